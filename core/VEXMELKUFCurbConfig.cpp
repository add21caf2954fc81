#include "VEXMELKUFCurbConfig.h"

#include "VEXMELKField.h"

VEXMELKUFCurbConfig::VEXMELKUFCurbConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFCurb.xml")
{
}

unsigned char VEXMELKUFCurbConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKUFCurbConfigDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"front_offset", "mm", definition.FrontOffset},
            {"front_angle", "deg", definition.FrontAngle},
            {"back_angle", "deg", definition.BackAngle},
            {"back_offset", "mm", definition.BackOffset},
        });
}
