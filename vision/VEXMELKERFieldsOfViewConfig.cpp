#include "VEXMELKERFieldsOfViewConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

// Each area reads only its own attributes.
void ReadSubtractArea(const CATIDOMElement_var& element, VEXMELKERFOVField& field)
{
    CATUnicodeString type;
    ReadFields(element, NULL_var, {{"type", "", type}});
    if (type == "upper area")
    {
        field.upper_area.present = 1;
        ReadFields(element, NULL_var,
            {
                {"upper_area_default", "", field.upper_area.upper_area_default},
                {"bottom_angle", "deg", field.upper_area.bottom_angle},
                {"A1_driver_angle", "deg", field.upper_area.A1_driver_angle},
                {"A2_area_width", "mm", field.upper_area.A2_area_width},
            });
    }
    else if (type == "side area")
    {
        field.side_area.present = 1;
        ReadFields(element, NULL_var,
            {
                {"side_area_default", "", field.side_area.side_area_default},
                {"driver_angle", "deg", field.side_area.driver_angle},
            });
    }
    else if (type == "lower area")
    {
        field.lower_area.present = 1;
        ReadFields(element, NULL_var,
            {
                {"lower_area_default", "", field.lower_area.lower_area_default},
                {"bottom_angle", "deg", field.lower_area.bottom_angle},
                {"cut_out_width", "mm", field.lower_area.cut_out_width},
            });
    }
    else if (type == "extended a-field")
    {
        field.extended_a_field.present = 1;
        ReadFields(
            element, NULL_var, {{"extended_a_field_default", "", field.extended_a_field.extended_a_field_default}});
    }
}

void ReadField(const CATIDOMElement_var& element, VEXMELKERFieldsOfViewConfigDefinition& definition)
{
    CATUnicodeString type;
    ReadFields(element, NULL_var, {{"type", "", type}});
    const bool isReduced = type == "reduced B";
    if (!isReduced && type != "extended A")
        return;
    VEXMELKERFOVField& field = definition.fields[isReduced ? 1 : 0];
    field.present = 1;
    ReadFields(element, NULL_var,
        {
            {"top_angle", "deg", field.top_angle},
            {"bottom_angle", "deg", field.bottom_angle},
            {"driver_angle", "deg", field.driver_angle},
            {"offset", "mm", field.offset, "0mm"},
        });
    if (isReduced)
        ForEachElement(element, "subtract", [&](const CATIDOMElement_var& area) { ReadSubtractArea(area, field); });
}

} // namespace

VEXMELKERFieldsOfViewConfig::VEXMELKERFieldsOfViewConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "ERFieldsOfView.xml")
{
}

unsigned char VEXMELKERFieldsOfViewConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, VEXMELKERFieldsOfViewConfigDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            const StandardData data = FindStandardData(standard, category);
            const CATIDOMElement_var& element = data.category != NULL_var ? data.category : data.defaultCategory;
            if (element == NULL_var)
                return 0;
            // "default" first, the category over it.
            for (const CATIDOMElement_var* pass : {&data.defaultCategory, &element})
                ForEachElement(*pass, "field", [&](const CATIDOMElement_var& field) { ReadField(field, definition); });
            return 1;
        });
}
