#include "VEXMELKUFDynamicCurbConfig.h"

#include "VEXMELKField.h"

VEXMELKUFDynamicCurbConfig::VEXMELKUFDynamicCurbConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFDynamicCurb.xml")
{
}

unsigned char VEXMELKUFDynamicCurbConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& outOffset, CATUnicodeString& inOffset,
    CATUnicodeString& inLength, CATUnicodeString& calculation)
{
    return ReadCategory(standard, category,
        {
            {"out_offset", "mm", outOffset},
            {"in_offset", "mm", inOffset},
            {"in_length", "mm", inLength},
            {"calculation", "", calculation},
        });
}
