#include "VEXMELKUFSpaceToRoadConfig.h"

#include "VEXMELKField.h"

VEXMELKUFSpaceToRoadConfig::VEXMELKUFSpaceToRoadConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFSpaceToRoad.xml")
{
}

unsigned char VEXMELKUFSpaceToRoadConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& offset, unsigned char& wholeLength,
    unsigned char& calcUnderAxis, CATUnicodeString& offsetUnderAxes, unsigned char& circUnderAxis,
    CATUnicodeString& extension, unsigned char& wheelRadius, unsigned char& generalSurface)
{
    return ReadCategory(standard, category,
        {
            {"offset", "mm", offset},
            {"WholeLength", "", wholeLength, AsFlag, false},
            {"CalcUnderAxis", "", calcUnderAxis, AsFlag, false},
            {"OffsetUnderAxes", "mm", offsetUnderAxes},
            {"CircUnderAxis", "", circUnderAxis, AsFlag, false},
            {"extension", "mm", extension},
            {"WheelRadius", "", wheelRadius, AsFlag, true},
            {"GeneralSurface", "", generalSurface, AsFlag, true},
        });
}
