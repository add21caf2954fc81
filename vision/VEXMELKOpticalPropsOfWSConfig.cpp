#include "VEXMELKOpticalPropsOfWSConfig.h"

#include "VEXMELKField.h"

VEXMELKOpticalPropsOfWSConfig::VEXMELKOpticalPropsOfWSConfig(
    const CATUnicodeString& configurationDirectory, const CATUnicodeString& fileName)
    : VEXMELKUnderfloorConfig(configurationDirectory, fileName)
{
}

unsigned char VEXMELKOpticalPropsOfWSConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKOpticalPropsOfWSConfigDef& definition)
{
    return ReadCategory(standard, category,
        {
            {"gridOriginX", "mm", definition.gridOriginX},
            {"gridOriginY", "mm", definition.gridOriginY},
            {"gridOriginZ", "mm", definition.gridOriginZ},
            {"gridXSpace", "mm", definition.gridXSpace},
            {"gridYSpace", "mm", definition.gridYSpace},
            {"fromInside", "", definition.fromInside, AsFlag, true},
            {"reqValue", "deg", definition.reqValue},
            {"AreqValue", "deg", definition.AreqValue},
            {"BreqValue", "deg", definition.BreqValue},
        });
}
