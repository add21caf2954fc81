// JSON written straight into a line, byte for byte as the JSON library writes it.
#ifndef MELKCFG_JsonText_H
#define MELKCFG_JsonText_H

#include "Json.h"
#include "VEXMELKValue.h"

void AppendJson(std::string& line, const Json& json);
// A text; bytes that are no UTF-8 are replaced.
void AppendJsonText(std::string& line, std::string_view text);
// A value, as ToJson gives it. Throws RequestError for a number that JSON cannot hold.
void AppendJson(std::string& line, const VEXMELKValue& value);
// A name and the ":" behind it; in front of all but the first of an object a ",".
void AppendJsonName(std::string& line, std::string_view name);

#endif
