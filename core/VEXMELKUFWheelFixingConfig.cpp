#include "VEXMELKUFWheelFixingConfig.h"

#include "VEXMELKField.h"

VEXMELKUFWheelFixingConfig::VEXMELKUFWheelFixingConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFWheelFixing.xml")
{
}

unsigned char VEXMELKUFWheelFixingConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& radius, CATUnicodeString& offset)
{
    return ReadCategory(standard, category,
        {
            {"radius", "mm", radius},
            {"offset", "mm", offset},
        });
}
