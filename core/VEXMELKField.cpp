#include "VEXMELKField.h"

#include "CATNumberText.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKElements.h"

#include <cmath>
#include <optional>

namespace {

// The order of the steps is meant.
inline void Normalize(std::string_view unit, bool writesCommas, std::string_view text, CATUnicodeString& value)
{
    const std::string_view stripped = CATStripped(text);
    value = stripped;
    if (writesCommas)
        value.ReplaceAll('.', ',');
    if (!unit.empty() && !stripped.empty() && CATIsDigit(stripped.back()))
        value.Append(unit);
    if (unit == "%")
        value.RemoveAll('%');
}

std::optional<VEXMELKNodeText> NamedItem(
    const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap, std::string_view name)
{
    std::optional<VEXMELKNodeText> item;
    if (map != NULL_var)
        item = map->GetNamedItemValue(name);
    if (!item && defaultMap != NULL_var)
        item = defaultMap->GetNamedItemValue(name);
    return item;
}

} // namespace

bool ReadFields(const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap,
    std::initializer_list<VEXMELKField> fields)
{
    bool complete = true;
    std::optional<bool> writesCommas; // asked for with the first value: that may call for a manager
    CATUnicodeString converted;
    for (const VEXMELKField& field : fields)
    {
        const std::optional<VEXMELKNodeText> item = NamedItem(map, defaultMap, field.Attribute());
        if (!item)
        {
            field.SetMissing();
            complete = false;
            continue;
        }
        if (!writesCommas)
            writesCommas = VEXMELKConfigManager::WritesCommas();
        CATUnicodeString& text = field.Text() ? *field.Text() : converted;
        Normalize(field.Unit(), *writesCommas, *item, text);
        if (!field.Text())
            field.Convert(text);
    }
    return complete;
}

bool ReadFields(const CATIDOMElement_var& element, const CATIDOMNamedNodeMap_var& defaultMap,
    std::initializer_list<VEXMELKField> fields)
{
    return ReadFields(element->GetAttributes(), defaultMap, fields);
}

CATUnicodeString NormalizedValue(std::string_view unit, std::string_view text)
{
    CATUnicodeString value;
    Normalize(unit, VEXMELKConfigManager::WritesCommas(), text, value);
    return value;
}

CATIDOMElement_var NearestAngle(
    const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute, double angle)
{
    constexpr double farthest = 100.0;
    const auto distance = [angle](std::string_view text)
    { return std::optional(std::fabs(ParameterRadians(NormalizedValue("deg", text), "config_angle") - angle)); };
    return NearestElement(parent, tag, attribute, farthest, distance);
}

CATIDOMElement_var NearestLengthBelow(
    const CATIDOMElement_var& parent, std::string_view tag, std::string_view attribute, double length)
{
    constexpr double farthest = 900.0;
    const auto distance = [length](std::string_view text)
    {
        const double start = ParameterMillimetres(NormalizedValue("mm", text), "config_length");
        return start <= length ? std::optional(length - start) : std::nullopt;
    };
    return NearestElement(parent, tag, attribute, farthest, distance);
}
