// Asks one question of every configuration class, of the configuration directory that is the first argument.

#include "VEXMELKAPillarConfig.h"
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKChildProtectionConfig.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKDBAccessConfig.h"
#include "VEXMELKDirectView3DConfig.h"
#include "VEXMELKDirectViewConfig.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKExtendedEyePointsConfig.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKFieldsOfViewConfig.h"
#include "VEXMELKFreeSpaceConfig.h"
#include "VEXMELKHeadContourConfig.h"
#include "VEXMELKHeadImpactConfig.h"
#include "VEXMELKLampPositionsConfig.h"
#include "VEXMELKManikinTemplateConfig.h"
#include "VEXMELKMirrorConfig.h"
#include "VEXMELKMultipleReflectionConfig.h"
#include "VEXMELKNumberPlatesConfig.h"
#include "VEXMELKOpticalDistortionConfig.h"
#include "VEXMELKOpticalPropsOfWSConfig.h"
#include "VEXMELKPPOffsetConfig.h"
#include "VEXMELKPedestrianProtectionConfig.h"
#include "VEXMELKPyramidConfig.h"
#include "VEXMELKReportGenConfig.h"
#include "VEXMELKSRPLocationCurvesConfig.h"
#include "VEXMELKSeatingBeltsConfig.h"
#include "VEXMELKUFCompleteConfig.h"
#include "VEXMELKUFCurbConfig.h"
#include "VEXMELKUFDynamicCurbConfig.h"
#include "VEXMELKUFInnerAngleConfig.h"
#include "VEXMELKUFOilTubConfig.h"
#include "VEXMELKUFSlopeAngleConfig.h"
#include "VEXMELKUFSpaceToRoadConfig.h"
#include "VEXMELKUFWheelFixingConfig.h"
#include "VEXMELKVisionConeConfig.h"
#include "VEXMELKVisionPointsConfig.h"
#include "VEXMELKWheelCoveringConfig.h"
#include "VEXMELKWipersConfig.h"

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
#ifdef _WIN32
    _putenv_s("MELK_CFG_PATH", argv[1]);
#else
    setenv("MELK_CFG_PATH", argv[1], 1);
#endif
    VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
    VEXMELKOpticalPropsOfWSConfig windscreen(argv[1], "Vision\\OpticalDistortion.xml");
    int unanswered = 0;
    const auto print = [&](const char* question, int count)
    {
        std::cout << question << ": " << count << '\n';
        unanswered += count > 0 ? 0 : 1;
    };
    CATListValCATUnicodeString names;
    const std::pair<const char*, VEXMELKCheckConfig*> checks[] = {{"UFSlopeAngle", manager->GetUFSlopeAngleConfig()},
        {"UFInnerAngle", manager->GetUFInnerAngleConfig()}, {"UFCurb", manager->GetUFCurbConfig()},
        {"UFDynamicCurb", manager->GetUFDynamicCurbConfig()}, {"UFSpaceToRoad", manager->GetUFSpaceToRoadConfig()},
        {"UFOilTub", manager->GetUFOilTubConfig()}, {"UFWheelFixing", manager->GetUFWheelFixingConfig()},
        {"UFComplete", manager->GetUFCompleteConfig()}, {"NumberPlates", manager->GetNumberPlatesConfig()},
        {"LampPositions", manager->GetLampPositionsConfig()}, {"Bumpers", manager->GetBumpersConfig()},
        {"WheelCovering", manager->GetWheelCoveringConfig()}, {"SeatingBelts", manager->GetSeatingBeltsConfig()},
        {"ChildProtection", manager->GetChildProtectionConfig()}, {"FreeSpace", manager->GetFreeSpaceConfig()},
        {"CrashBarriers", manager->GetCrashBarriersConfig()}, {"EyeEllipses", manager->GetEyeEllipsesConfig()},
        {"EyePoints", manager->GetEyePointsConfig()}, {"ExtendedEyePoints", manager->GetExtendedEyePointsConfig()},
        {"HeadContour", manager->GetHeadContourConfig()}, {"SRPLocationCurves", manager->GetSRPLocationCurvesConfig()},
        {"ManikinTemplate", manager->GetManikinTemplateConfig()}, {"FieldsOfView", manager->GetFieldsOfViewConfig()},
        {"ERFieldsOfView", manager->GetERFieldsOfViewConfig()}, {"CRV", manager->GetCRVConfig()},
        {"VisionPoints", manager->GetVisionPointsConfig()}, {"VisionCone", manager->GetVisionConeConfig()},
        {"Pyramid", manager->GetPyramidConfig()}, {"APillar", manager->GetAPillarConfig()},
        {"Mirror", manager->GetMirrorConfig()}, {"PedestrianProtection", manager->GetPedestrianProtectionConfig()},
        {"PPOffset", manager->GetPPOffsetConfig()}, {"OpticalDistortion", manager->GetOpticalDistortionConfig()},
        {"MultipleReflection", manager->GetMultipleReflectionConfig()}, {"DirectView", manager->GetDirectViewConfig()},
        {"DirectView3D", manager->GetDirectView3DConfig()}, {"Wipers", manager->GetWipersConfig()},
        {"OpticalPropsOfWS", &windscreen}};
    for (const auto& [name, config] : checks)
    {
        config->GetStandardNames(names, "default", 0, 3);
        print(name, names.Size());
    }
    manager->GetHeadImpactConfig()->GetStandardNames(names);
    print("HeadImpact", names.Size());
    manager->GetBaseDataConfig()->GetBaseDataCategories(names);
    print("BaseData", names.Size());
    manager->GetReportGenConfig()->GetTemplates(names);
    print("ReportGen", names.Size());
    CATUnicodeString text;
    print("DBAccess", manager->GetDBAccessConfig()->GetDBAccessParameters(text, text, text, text));
    VEXMELKConfigManager::ReleaseConfigManager();
    return unanswered;
}
