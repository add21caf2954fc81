#include "VEXMELKVisionConeConfig.h"

#include "VEXMELKField.h"

VEXMELKVisionConeConfig::VEXMELKVisionConeConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "VisionCone.xml")
{
}

unsigned char VEXMELKVisionConeConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKVisionConeConfigDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"cone_angle", "deg", definition.cone_angle},
            {"horizontal_axis_angle", "deg", definition.horizontal_axis_angle},
            {"vertical_axis_angle", "deg", definition.vertical_axis_angle},
            {"cone_length", "mm", definition.cone_length},
        });
}
