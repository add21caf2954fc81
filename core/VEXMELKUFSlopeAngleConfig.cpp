#include "VEXMELKUFSlopeAngleConfig.h"

#include "VEXMELKField.h"

VEXMELKUFSlopeAngleConfig::VEXMELKUFSlopeAngleConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFSlopeAngle.xml")
{
}

unsigned char VEXMELKUFSlopeAngleConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& frontAngle, CATUnicodeString& backAngle)
{
    return ReadCategory(standard, category,
        {
            {"front_angle", "deg", frontAngle},
            {"back_angle", "deg", backAngle},
        });
}
