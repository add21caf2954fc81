#include "VEXMELKUFOilTubConfig.h"

#include "VEXMELKField.h"

VEXMELKUFOilTubConfig::VEXMELKUFOilTubConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFOilTub.xml")
{
}

unsigned char VEXMELKUFOilTubConfig::GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
    CATUnicodeString& outOffset, CATUnicodeString& outAngle, CATUnicodeString& inOffset, CATUnicodeString& inAngle)
{
    return ReadCategory(standard, category,
        {
            {"out_offset", "mm", outOffset},
            {"out_angle", "deg", outAngle},
            {"in_offset", "mm", inOffset},
            {"in_angle", "deg", inAngle},
        });
}
