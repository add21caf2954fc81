// The elements of default settings, which all files may have.
#ifndef VEXMELKSettings_H
#define VEXMELKSettings_H

#include "VEXMELKCommonElements.h"

namespace VEXMELKSettings {

using namespace VEXMELKRowKinds;

inline constexpr VEXMELKElement defaults{.tag = "DefaultSettings",
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Single,
    .meaning = "default settings of the editable attributes",
    .whenMissing = "no settings"};

// Which settings a standard uses: an entry in the settings, or a child of the standard itself.
inline constexpr VEXMELKRow entryName = Name("name", "standard", "the standard's name", AsWritten(), Skip);
inline constexpr VEXMELKElement ofStandard{.tag = "standard",
    .below = &defaults,
    .choice = VEXMELKChoice::ByKey,
    .key = &entryName,
    .meaning = "says which settings a standard uses"};
inline constexpr VEXMELKRow usedName = Name("name", "settings", "the name of the settings", AsWritten(), Skip);
constexpr VEXMELKElement UsedBelow(const VEXMELKElement& parent)
{
    return {.tag = "UseDefaultSettings",
        .below = &parent,
        .choice = VEXMELKChoice::Single,
        .key = &usedName,
        .meaning = "there must be exactly one with a `name`; two count as none"};
}
inline constexpr VEXMELKElement usedByEntry = UsedBelow(ofStandard);
inline constexpr VEXMELKElement usedByStandard = UsedBelow(VEXMELKCommon::standards);

inline constexpr VEXMELKRow setName = Text("name", "its name", AsWritten(), Skip);
inline constexpr VEXMELKElement set{.tag = "Settings",
    .below = &defaults,
    .choice = VEXMELKChoice::ByKey,
    .key = &setName,
    .meaning = "one set of settings",
    .whenMissing = "the attributes stay as they are"};

inline constexpr VEXMELKRow parameterName = Text("name", "the attribute's name in the check", AsWritten(), Skip);
inline constexpr VEXMELKWord typeWords[] = {{"simple"}, {"list"}, {"colorRanges"}};
inline constexpr VEXMELKWord accessWords[] = {{"readOnly"}, {"readWrite"}};
inline constexpr VEXMELKRow type = Word("type", {typeWords}, "the kind of attribute", Else("simple"));
inline constexpr VEXMELKRow value = Text("value", "the value, for `simple`", Skip);
inline constexpr VEXMELKRow useInterpolation =
    Flag("useInterpolation", "for `colorRanges`: whether colours run into each other", Skip);
inline constexpr VEXMELKRow access =
    Word("access", {accessWords}, "exactly `readOnly` makes the attribute read-only; anything else makes it editable");
inline constexpr std::array parameterRows{type, value, useInterpolation, access};
inline constexpr VEXMELKElement parameter{.tag = "parameter",
    .below = &set,
    .choice = VEXMELKChoice::ByKey,
    .key = &parameterName,
    .tables = {parameterRows},
    .meaning = "one attribute of the check",
    .whenMissing = "that attribute keeps its value and is editable"};

inline constexpr VEXMELKRow minValue = Number("minValue", "the range begins here", Skip);
inline constexpr VEXMELKRow maxValue = Number("maxValue", "the range ends here", Skip);
inline constexpr VEXMELKRow minColor = Name("minColor", "colour", "colour at its begin", Skip);
inline constexpr VEXMELKRow maxColor = Name("maxColor", "colour", "colour at its end", Skip);
inline constexpr VEXMELKWord criticalWords[] = {{"1"}};
inline constexpr VEXMELKRow isCritical =
    Flag("isCritical", "exactly `true` or `1` marks the range as critical", Exact(), Or{{criticalWords}});
inline constexpr std::array rangeRows{minValue, maxValue, minColor, maxColor, isCritical};
inline constexpr VEXMELKElement range{.tag = "range",
    .below = &parameter,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .tables = {rangeRows},
    .meaning = "one range of values with its colours"};

} // namespace VEXMELKSettings

#endif
