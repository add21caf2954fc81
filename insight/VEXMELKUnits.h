// Numbers that people write with a unit where an operation takes a number.
#ifndef VEXMELKUnits_H
#define VEXMELKUnits_H

#include <optional>
#include <string>
#include <string_view>

struct VEXMELKConverted
{
    std::optional<double> number;
    std::string fault; // why there is none
};

// Whether numbers in this unit have a dimension ("mm", "m", "rad", "%").
bool VEXMELKHasDimension(std::string_view unit);

// The quantity ("133mm", "13.3 cm", "25deg") as a number in the unit, which has a dimension. A length that a file and
// the text spell alike is the same number in both. No number for a text that is no quantity of the unit's dimension,
// and for one without a unit.
VEXMELKConverted VEXMELKInUnit(std::string_view text, std::string_view unit);

#endif
