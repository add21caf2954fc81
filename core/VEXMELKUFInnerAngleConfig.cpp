#include "VEXMELKUFInnerAngleConfig.h"

#include "VEXMELKField.h"

VEXMELKUFInnerAngleConfig::VEXMELKUFInnerAngleConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFInnerAngle.xml")
{
}

unsigned char VEXMELKUFInnerAngleConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& innerAngle, CATUnicodeString& calculation)
{
    return ReadCategory(standard, category,
        {
            {"inner_angle", "deg", innerAngle},
            {"calculation", "", calculation},
        });
}
