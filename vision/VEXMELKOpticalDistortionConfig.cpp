#include "VEXMELKOpticalDistortionConfig.h"

#include "VEXMELKField.h"

VEXMELKOpticalDistortionConfig::VEXMELKOpticalDistortionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKOpticalPropsOfWSConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "OpticalDistortion.xml")
{
}

unsigned char VEXMELKOpticalDistortionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKOpticalDistortionConfigDef& definition)
{
    return ReadCategory(standard, category,
        {
            {"dcRadius", "mm", definition.dcRadius},
            {"dcDensity", "", definition.dcDensity},
        });
}
