#include "VEXMELKNumberPlatesConfig.h"

#include "VEXMELKField.h"

VEXMELKNumberPlatesConfig::VEXMELKNumberPlatesConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "NumberPlates.xml")
{
}

unsigned char VEXMELKNumberPlatesConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKNumberPlatesDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"FrontLowerLimit", "mm", definition.FrontLowerLimit},
            {"FrontUpperLimit", "mm", definition.FrontUpperLimit},
            {"FrontRightLimit", "mm", definition.FrontRightLimit},
            {"FrontLeftLimit", "mm", definition.FrontLeftLimit},
            {"BackLowerLimit", "mm", definition.BackLowerLimit},
            {"BackUpperLimit", "mm", definition.BackUpperLimit},
            {"BackRightLimit", "mm", definition.BackRightLimit},
            {"BackLeftLimit", "mm", definition.BackLeftLimit},
        });
}
