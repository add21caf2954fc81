#include "VEXMELKPyramidConfig.h"

#include "VEXMELKField.h"

VEXMELKPyramidConfig::VEXMELKPyramidConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "VisionPlanes.xml")
{
}

unsigned char VEXMELKPyramidConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKPyramidConfigDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"front_angle", "deg", definition.front_angle},
            {"driver_angle", "deg", definition.driver_angle},
            {"passenger_angle", "deg", definition.passenger_angle},
            {"middle_plane_angle", "deg", definition.middle_plane_angle},
        });
}
