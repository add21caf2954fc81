// The searches for the nearest row. A distance that is no number is never taken.
#include "VEXMELKLookUp.h"

#include "VEXMELKValues.h"

#include <cmath>

CATIDOMElement_var NearestAngle(VEXMELKDecimals decimals, const CATIDOMElement_var& parent, std::string_view tag,
    std::string_view attribute, double angle)
{
    constexpr double farthest = 100.0;
    const auto distance = [&](std::string_view text)
    {
        const double radians = NumberOfForm(VEXMELKForm::Radians, "deg", decimals.WritesCommas(), text);
        return std::optional(std::fabs(radians - angle));
    };
    return NearestElement(parent, tag, attribute, farthest, distance);
}

CATIDOMElement_var NearestLengthBelow(VEXMELKDecimals decimals, const CATIDOMElement_var& parent, std::string_view tag,
    std::string_view attribute, double length)
{
    constexpr double farthest = 900.0;
    const auto distance = [&](std::string_view text)
    {
        const double start = NumberOfForm(VEXMELKForm::Millimetres, "mm", decimals.WritesCommas(), text);
        return start <= length ? std::optional(length - start) : std::nullopt;
    };
    return NearestElement(parent, tag, attribute, farthest, distance);
}
