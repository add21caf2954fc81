// The descriptions of files as data for programs (docs/schemas.md).
#ifndef MELKCFG_DescriptionJson_H
#define MELKCFG_DescriptionJson_H

#include "Json.h"
#include "VEXMELKDescription.h"

Json DescriptionsToJson(const std::vector<const VEXMELKDescription*>& descriptions);

#endif
