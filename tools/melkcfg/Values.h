// Values of the library as JSON: a record is an object with the names of its fields, a list a list.
#ifndef MELKCFG_Values_H
#define MELKCFG_Values_H

#include "Json.h"
#include "VEXMELKValue.h"

Json ToJson(const VEXMELKValue& value);
// Throws RequestError for a number that JSON cannot hold.
void RequireJsonNumber(double number);

// Merges the JSON over the value: members of a record that the JSON does not name stay. Throws RequestError for what is
// of another type, "where" being its name.
void FromJson(const Json& json, const VEXMELKValue& value, const std::string& where);

// The same for a value of a known type.
template <class Value> Value ValueFromJson(const Json& json, const std::string& where)
{
    Value value{};
    FromJson(json, VEXMELKValueOf(value), where);
    return value;
}

#endif
