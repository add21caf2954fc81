// Records of the library as JSON objects: the name of a member is the name of its field. A record is described by the
// list of its fields, in declared order.
#ifndef MELKCFG_Records_H
#define MELKCFG_Records_H

#include "Codec.h"

// The name of a field, as the compiler writes it into the name of this function.
template <auto Field> constexpr std::string_view NameOf()
{
    std::string_view name = __PRETTY_FUNCTION__;
    name = name.substr(name.find("Field = "));
    name = name.substr(0, name.find_first_of(";]"));
    return name.substr(name.rfind(':') + 1);
}

// Units of numbers.
inline constexpr char none[] = "";
inline constexpr char mm[] = "mm";
inline constexpr char metres[] = "m";
inline constexpr char radians[] = "rad";
inline constexpr char fraction[] = "1";

// The unit of a field, where it differs from that of the record's other numbers.
template <auto Field> inline constexpr std::string_view unitOf = {};

// A record's fields, and the unit of those that are numbers.
template <const char* unit, auto... List> struct Fields
{
    // Calls act(name, unit, pointer to member) for each field.
    template <class Act> static void ForEach(Act act)
    {
        (act(std::string(NameOf<List>()), unitOf<List>.empty() ? std::string_view(unit) : unitOf<List>, List), ...);
    }
};

#endif
