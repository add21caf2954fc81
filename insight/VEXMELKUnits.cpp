// The library's reader of quantities converts: what a file's row says and what is asked for agree to the last bit.
#include "VEXMELKUnits.h"

#include "CATQuantity.h"

#include <algorithm>
#include <cmath>

namespace {

using Read = bool (*)(std::string_view text, double& value);

bool ReadMillimetres(std::string_view text, double& millimetres)
{
    double metres = 0.0;
    const bool isLength = CATLengthFromText(text, metres);
    millimetres = metres * 1000.0; // rounded as the lengths in files are
    return isLength && std::isfinite(millimetres);
}

bool ReadPercentage(std::string_view text, double& percentage)
{
    const std::size_t sign = text.find('%');
    return sign != std::string_view::npos && sign + 1 == text.size() &&
           CATRealFromText(text.substr(0, sign), percentage);
}

std::vector<std::string_view> PercentageUnits() { return {"%"}; }

// What an argument with a unit takes.
struct Dimension
{
    std::string_view unit;
    std::string_view noun;
    Read read;
    std::vector<std::string_view> (*units)();
};

constexpr Dimension dimensions[] = {
    {"mm", "a length", ReadMillimetres, CATLengthUnits},
    {"m", "a length", CATLengthFromText, CATLengthUnits},
    {"rad", "an angle", CATAngleFromText, CATAngleUnits},
    {"%", "a percentage", ReadPercentage, PercentageUnits},
};

std::string Listed(const std::vector<std::string_view>& units)
{
    std::string list;
    for (const std::string_view unit : units)
        list += (list.empty() ? "" : ", ") + std::string(unit);
    return list;
}

// The dimension that the text has; null when it has none.
const Dimension* DimensionOf(std::string_view text)
{
    const auto* found = std::find_if(std::begin(dimensions), std::end(dimensions),
        [&](const Dimension& dimension)
        {
            double ignored = 0.0;
            return dimension.read(text, ignored);
        });
    return found == std::end(dimensions) ? nullptr : found;
}

// Null for a unit without a dimension.
const Dimension* DimensionWith(std::string_view unit)
{
    const auto* found = std::find_if(std::begin(dimensions), std::end(dimensions),
        [&](const Dimension& dimension) { return dimension.unit == unit; });
    return found == std::end(dimensions) ? nullptr : found;
}

} // namespace

bool VEXMELKHasDimension(std::string_view unit) { return DimensionWith(unit) != nullptr; }

VEXMELKConverted VEXMELKInUnit(std::string_view text, std::string_view unit)
{
    const Dimension& wanted = *DimensionWith(unit);
    const std::string due = std::string(wanted.noun) + (" (" + Listed(wanted.units()) + ")");
    const std::string shown(text.substr(0, 40));
    double number = 0.0;
    if (CATRealFromText(text, number))
        return {{}, "write " + shown + " with its unit, as " + due + ", or as a number in " + std::string(unit)};
    if (wanted.read(text, number))
        return {number, {}};
    if (const Dimension* other = DimensionOf(text); other && other->noun != wanted.noun)
        return {{}, shown + " is " + std::string(other->noun) + ", where " + due + " is due"};
    return {{}, "expected a number, got \"" + shown + "\"; with its unit it is " + due};
}
