#include "VEXMELKManikinTemplateConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

using Definition = VEXMELKManikinTemplateDefinition;

// One attribute fills a usage, a value, or both.
struct Row
{
    std::string_view attribute;
    std::string_view unit;
    VEXMELKMTElementUsage Definition::*usage;
    CATUnicodeString Definition::*value;
};

constexpr Row rows[] = {
    {"torso_length", "mm", &Definition::torso_length_usage, &Definition::torso_length},
    {"torso_angle", "deg", &Definition::torso_angle_usage, &Definition::torso_angle},
    {"seat_point", "", &Definition::seat_point_usage, nullptr},
    {"hip_angle", "deg", &Definition::hip_angle_usage, &Definition::hip_angle},
    {"rump_length", "mm", &Definition::rump_length_usage, &Definition::rump_length},
    {"knee_angle", "deg", &Definition::knee_angle_usage, &Definition::knee_angle},
    {"leg_room", "mm", &Definition::leg_room_usage, &Definition::leg_room},
    {"leg_length", "mm", &Definition::leg_length_usage, &Definition::leg_length},
    {"foot_angle", "deg", &Definition::foot_angle_usage, &Definition::foot_angle},
    {"max_foot_angle", "deg", nullptr, &Definition::max_foot_angle},
    {"min_foot_angle", "deg", nullptr, &Definition::min_foot_angle},
    {"foot_length", "mm", &Definition::foot_length_usage, &Definition::foot_length},
    {"foot_flesh_angle", "deg", &Definition::foot_flesh_angle_usage, &Definition::foot_flesh_angle},
    {"foot_hoffset", "mm", &Definition::foot_hoffset_usage, &Definition::foot_hoffset},
    {"foot_voffset", "mm", &Definition::foot_voffset_usage, &Definition::foot_voffset},
    {"bof_point", "", &Definition::bof_point_usage, nullptr},
    {"ankle_point", "", &Definition::ankle_point_usage, nullptr},
    {"lift", "mm", &Definition::lift_usage, &Definition::lift},
    {"heel_point", "", &Definition::heel_point_usage, nullptr},
    {"pedal", "", &Definition::pedal_usage, nullptr},
    {"floor", "", &Definition::floor_usage, nullptr},
    {"interior", "", &Definition::interior_usage, nullptr},
    {"interior_interval", "mm", nullptr, &Definition::interior_interval},
};

std::string_view ElementName(VEXMELKManikinTemplateSeatEnum seat)
{
    switch (seat)
    {
    case MTDriverSeat:
        return "driver_seat";
    case MTFrontSeat:
        return "front_seat";
    case MTBackSeat:
        return "back_seat";
    }
    return "";
}

} // namespace

VEXMELKManikinTemplateConfig::VEXMELKManikinTemplateConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Manikin") + "\\" + "ManikinTemplate.xml")
{
}

VEXMELKMTElementUsage VEXMELKManikinTemplateConfig::GetRole(CATUnicodeString& text)
{
    if (text == "unused")
        return MTUsageUnused;
    if (text == "base_data")
        return MTUsageBaseData;
    if (text == "input" || text == "selection")
        return MTUsageInput;
    return text == "output" ? MTUsageOutput : MTUsageValue;
}

unsigned char VEXMELKManikinTemplateConfig::GetPercentilList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element != NULL_var)
                ChildAttributeValues(element, "percentil", "value", names);
            return element != NULL_var;
        });
}

unsigned char VEXMELKManikinTemplateConfig::GetPositioningList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element != NULL_var)
                ChildAttributeValues(element, "positioning", "name", names);
            return element != NULL_var;
        });
}

unsigned char VEXMELKManikinTemplateConfig::IsSeatSupported(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& positioning, const VEXMELKManikinTemplateSeatEnum& seat)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMElement_var element =
                FindChild(GetCategoryElement(standard, category), "positioning", "name", positioning);
            if (element == NULL_var)
                return 0;
            CATIDOMElement_var seatElement;
            return FirstElement(element, "*") == NULL_var || GetMTSeatElement(element, seat, seatElement);
        });
}

unsigned char VEXMELKManikinTemplateConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& percentil, const CATUnicodeString& positioning,
    const VEXMELKManikinTemplateSeatEnum& seat, VEXMELKManikinTemplateDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            definition = VEXMELKManikinTemplateDefinition();
            for (const Row& row : rows)
                if (row.value)
                    definition.*row.value = "0.0";
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            ApplyTemplate(FindChild(element, "percentil", "value", percentil), seat, definition);
            ApplyTemplate(FindChild(element, "positioning", "name", positioning), seat, definition);
            return 1; // always
        });
}

void VEXMELKManikinTemplateConfig::ApplyTemplate(CATIDOMElement_var element, const VEXMELKManikinTemplateSeatEnum& seat,
    VEXMELKManikinTemplateDefinition& definition)
{
    CATIDOMElement_var seatElement;
    GetMTElementAttributesAndValues(element, definition);
    if (GetMTSeatElement(element, seat, seatElement))
        GetMTElementAttributesAndValues(seatElement, definition);
}

unsigned char VEXMELKManikinTemplateConfig::GetMTElementAttributesAndValues(
    CATIDOMElement_var& element, VEXMELKManikinTemplateDefinition& definition)
{
    if (element == NULL_var)
        return 0;
    for (const Row& row : rows)
    {
        CATUnicodeString text;
        if (!ReadFields(element, NULL_var, {{row.attribute, row.unit, text, Keep}}))
            continue;
        if (row.usage)
            definition.*row.usage = GetRole(text);
        if (row.value)
            definition.*row.value = text;
    }
    ReadFields(element, NULL_var, {{"foot_on_floor", "", definition.foot_on_floor, AsFlag, Keep}});
    return 1;
}

unsigned char VEXMELKManikinTemplateConfig::GetMTSeatElement(
    CATIDOMElement_var& parent, const VEXMELKManikinTemplateSeatEnum& seat, CATIDOMElement_var& seatElement)
{
    seatElement = FirstElement(parent, ElementName(seat));
    return seatElement != NULL_var;
}
