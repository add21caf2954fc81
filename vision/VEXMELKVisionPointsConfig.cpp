#include "VEXMELKVisionPointsConfig.h"

#include "VEXMELKField.h"

VEXMELKVisionPointsConfig::VEXMELKVisionPointsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "VisionPoints.xml")
{
}

unsigned char VEXMELKVisionPointsConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKVisionPointsConfigDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"top_angle", "deg", definition.top_angle},
            {"bottom_angle", "deg", definition.bottom_angle},
            {"horizontal_angle", "deg", definition.horizontal_angle},
        });
}
