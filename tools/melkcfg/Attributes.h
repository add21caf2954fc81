// Lists of configurable attributes as JSON. The access objects of an attribute exist for one call.
#ifndef MELKCFG_Attributes_H
#define MELKCFG_Attributes_H

#include "Json.h"
#include "VEXMELKValue.h"

Json AttributesToJson(const VEXMELKAttributeValues& attributes);
void AttributesFromJson(const Json& json, VEXMELKAttributeValues& attributes, const std::string& where);

#endif
