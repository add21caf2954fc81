#include "VEXMELKWheelCoveringConfig.h"

#include "VEXMELKField.h"

VEXMELKWheelCoveringConfig::VEXMELKWheelCoveringConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "WheelCovering.xml")
{
}

unsigned char VEXMELKWheelCoveringConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKWheelCoveringDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"FrontAlpha", "deg", definition.FrontAlpha},
            {"FrontBeta", "deg", definition.FrontBeta},
            {"BackAlpha", "deg", definition.BackAlpha},
            {"BackBeta", "deg", definition.BackBeta},
            {"BottomOffset", "mm", definition.BottomOffset, Keep}, // a caller may have set it, on purpose
            {"TriangleHeight", "mm", definition.TriangleHeight},
            {"LineHeight", "mm", definition.LineHeight},
            {"HasSpecialBack", "", definition.HasSpecialBack, AsFlag, false},
            {"AlgorithmType", "", definition.AlgorithmType},
            {"Tolerance", "", definition.Tolerance, "0.0m"},
        });
}
