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

namespace {

int unanswered = 0;

void Print(const char* question, int count)
{
    std::cout << question << ": " << count << '\n';
    unanswered += count > 0 ? 0 : 1;
}

void AskForStandards(const char* name, VEXMELKCheckConfig* config)
{
    CATListValCATUnicodeString names;
    config->GetStandardNames(names, "default", 0, 3);
    Print(name, names.Size());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    setenv("MELK_CFG_PATH", argv[1], 1);
    VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
    AskForStandards("UFSlopeAngle", manager->GetUFSlopeAngleConfig());
    AskForStandards("UFInnerAngle", manager->GetUFInnerAngleConfig());
    AskForStandards("UFCurb", manager->GetUFCurbConfig());
    AskForStandards("UFDynamicCurb", manager->GetUFDynamicCurbConfig());
    AskForStandards("UFSpaceToRoad", manager->GetUFSpaceToRoadConfig());
    AskForStandards("UFOilTub", manager->GetUFOilTubConfig());
    AskForStandards("UFWheelFixing", manager->GetUFWheelFixingConfig());
    AskForStandards("UFComplete", manager->GetUFCompleteConfig());
    AskForStandards("NumberPlates", manager->GetNumberPlatesConfig());
    AskForStandards("LampPositions", manager->GetLampPositionsConfig());
    AskForStandards("Bumpers", manager->GetBumpersConfig());
    AskForStandards("WheelCovering", manager->GetWheelCoveringConfig());
    AskForStandards("SeatingBelts", manager->GetSeatingBeltsConfig());
    AskForStandards("ChildProtection", manager->GetChildProtectionConfig());
    AskForStandards("FreeSpace", manager->GetFreeSpaceConfig());
    AskForStandards("CrashBarriers", manager->GetCrashBarriersConfig());
    AskForStandards("EyeEllipses", manager->GetEyeEllipsesConfig());
    AskForStandards("EyePoints", manager->GetEyePointsConfig());
    AskForStandards("ExtendedEyePoints", manager->GetExtendedEyePointsConfig());
    AskForStandards("HeadContour", manager->GetHeadContourConfig());
    AskForStandards("SRPLocationCurves", manager->GetSRPLocationCurvesConfig());
    AskForStandards("ManikinTemplate", manager->GetManikinTemplateConfig());
    AskForStandards("FieldsOfView", manager->GetFieldsOfViewConfig());
    AskForStandards("ERFieldsOfView", manager->GetERFieldsOfViewConfig());
    AskForStandards("CRV", manager->GetCRVConfig());
    AskForStandards("VisionPoints", manager->GetVisionPointsConfig());
    AskForStandards("VisionCone", manager->GetVisionConeConfig());
    AskForStandards("Pyramid", manager->GetPyramidConfig());
    AskForStandards("APillar", manager->GetAPillarConfig());
    AskForStandards("Mirror", manager->GetMirrorConfig());
    AskForStandards("PedestrianProtection", manager->GetPedestrianProtectionConfig());
    AskForStandards("PPOffset", manager->GetPPOffsetConfig());
    AskForStandards("OpticalDistortion", manager->GetOpticalDistortionConfig());
    AskForStandards("MultipleReflection", manager->GetMultipleReflectionConfig());
    AskForStandards("DirectView", manager->GetDirectViewConfig());
    AskForStandards("DirectView3D", manager->GetDirectView3DConfig());
    AskForStandards("Wipers", manager->GetWipersConfig());

    CATListValCATUnicodeString names;
    manager->GetHeadImpactConfig()->GetStandardNames(names);
    Print("HeadImpact", names.Size());
    manager->GetBaseDataConfig()->GetBaseDataCategories(names);
    Print("BaseData", names.Size());
    manager->GetReportGenConfig()->GetTemplates(names);
    Print("ReportGen", names.Size());
    CATUnicodeString host;
    CATUnicodeString user;
    CATUnicodeString password;
    CATUnicodeString dbName;
    Print("DBAccess", manager->GetDBAccessConfig()->GetDBAccessParameters(host, user, password, dbName));
    VEXMELKOpticalPropsOfWSConfig windscreen(argv[1], "Vision\\OpticalDistortion.xml");
    AskForStandards("OpticalPropsOfWS", &windscreen);
    VEXMELKConfigManager::ReleaseConfigManager();
    return unanswered;
}
