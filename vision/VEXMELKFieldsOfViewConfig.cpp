#include "VEXMELKFieldsOfViewConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

#include <iterator>

namespace {

constexpr std::string_view fieldTypes[] = {"A", "B", "C"};

void ReadInterval(const CATIDOMElement_var& element, VEXMELKFOVField& field)
{
    CATUnicodeString indexText;
    int index = 0;
    if (!ReadFields(element, NULL_var, {{"index", "", indexText}}) || !indexText.ConvertToNum(&index, "%d") ||
        index < 0 || index >= static_cast<int>(std::size(field.intervals)))
        return;
    VEXMELKFOVInterval& interval = field.intervals[index];
    ReadFields(element, NULL_var,
        {
            {"top_angle", "deg", interval.top_angle},
            {"bottom_angle", "deg", interval.bottom_angle},
            {"driver_angle", "deg", interval.driver_angle},
            {"passenger_angle", "deg", interval.passenger_angle},
        });
    interval.present = 1;
}

void ReadField(const CATIDOMElement_var& element, VEXMELKFieldsOfViewConfigDefinition& definition)
{
    CATUnicodeString type;
    ReadFields(element, NULL_var, {{"type", "", type}});
    for (std::size_t index = 0; index < std::size(fieldTypes); ++index)
        if (type == fieldTypes[index])
        {
            VEXMELKFOVField& field = definition.fields[index];
            field.present = 1;
            ReadFields(element, NULL_var, {{"offset", "mm", field.offset}});
            ForEachElement(
                element, "interval", [&](const CATIDOMElement_var& interval) { ReadInterval(interval, field); });
        }
}

} // namespace

VEXMELKFieldsOfViewConfig::VEXMELKFieldsOfViewConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "FieldsOfView.xml")
{
}

unsigned char VEXMELKFieldsOfViewConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKFieldsOfViewConfigDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            const StandardData data = FindStandardData(standard, category);
            const CATIDOMElement_var& element = data.category != NULL_var ? data.category : data.defaultCategory;
            if (element == NULL_var)
                return 0;
            ReadFields(element, AttributesOf(data.defaultCategory),
                {
                    {"threshold1", "mm", definition.threshold1},
                    {"threshold2", "mm", definition.threshold2},
                    {"threshold3", "mm", definition.threshold3},
                    {"threshold4", "mm", definition.threshold4},
                });
            // "default" first, the category over it.
            for (const CATIDOMElement_var* pass : {&data.defaultCategory, &element})
                ForEachElement(*pass, "field", [&](const CATIDOMElement_var& field) { ReadField(field, definition); });
            return 1;
        });
}
