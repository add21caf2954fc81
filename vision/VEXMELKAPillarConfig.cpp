#include "VEXMELKAPillarConfig.h"

#include "VEXMELKField.h"

VEXMELKAPillarConfig::VEXMELKAPillarConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "APillar.xml")
{
}

unsigned char VEXMELKAPillarConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKAPillarConfigDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"top_angle", "deg", definition.top_angle},
            {"bottom_angle", "deg", definition.bottom_angle},
            {"driver_angle", "deg", definition.driver_angle},
            {"passenger_angle", "deg", definition.passenger_angle},
            {"eye_triangle_side", "mm", definition.eye_triangle_side},
            {"eye_triangle_base", "mm", definition.eye_triangle_base},
            {"touch_line_angle", "deg", definition.touch_line_angle},
        });
}
