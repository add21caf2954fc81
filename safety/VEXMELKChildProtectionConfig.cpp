#include "VEXMELKChildProtectionConfig.h"

#include "VEXMELKField.h"

VEXMELKChildProtectionConfig::VEXMELKChildProtectionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "ChildProtection.xml")
{
}

unsigned char VEXMELKChildProtectionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKChildProtectionDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"CPShDist", "mm", definition.CPShDist},
            {"CPShRadius", "mm", definition.CPShRadius},
            {"CPBackDist", "mm", definition.CPBackDist},
            {"CPTopAngle", "deg", definition.CPTopAngle},
            {"CPShCShift", "mm", definition.CPShCShift},
            {"CPVolVertAngle", "deg", definition.CPVolVertAngle},
            {"CPVolHorizAngle", "deg", definition.CPVolHorizAngle},
            {"CPVolHorizOffset", "mm", definition.CPVolHorizOffset},
            {"CPUseCShift", "", definition.CPUseCShift, AsFlag, false},
            {"CPAustralianNormOffset", "mm", definition.CPAustralianNormOffset},
            {"CPAustralianNorm", "", definition.CPAustralianNorm, AsFlag, false},
        });
}
