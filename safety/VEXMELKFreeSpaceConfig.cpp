#include "VEXMELKFreeSpaceConfig.h"

#include "VEXMELKField.h"

VEXMELKFreeSpaceConfig::VEXMELKFreeSpaceConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "FreeSpace.xml")
{
}

unsigned char VEXMELKFreeSpaceConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKFreeSpaceDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"FSFrontAngle", "deg", definition.FSFrontAngle},
            {"FSMidAngle", "deg", definition.FSMidAngle},
            {"FSBackAngle", "deg", definition.FSBackAngle},
            {"FSSideAngle", "deg", definition.FSSideAngle},
            {"FSNoseLength", "mm", definition.FSNoseLength},
            {"FSHoleDistance", "mm", definition.FSHoleDistance},
            {"FSHoleHight", "mm", definition.FSHoleHight},
            {"FSHoleLength", "mm", definition.FSHoleLength},
            {"FSBottomHight", "mm", definition.FSBottomHight},
            {"FSNoseHight", "mm", definition.FSNoseHight},
            {"FSBodyHight", "mm", definition.FSBodyHight},
            {"FSMidLength", "mm", definition.FSMidLength},
            {"FSNoseWidth", "mm", definition.FSNoseWidth},
            {"FSBodyWidth", "mm", definition.FSBodyWidth},
        });
}
