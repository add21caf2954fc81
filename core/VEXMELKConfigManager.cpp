#include "VEXMELKConfigManager.h"

#include "VEXMELKAPillarConfig.h"
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKChildProtectionConfig.h"
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
#include "VEXMELKGUI.h"
#include "VEXMELKGetAdminAccess.h"
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
#include "VEXMELKUtilities.h"
#include "VEXMELKVisionConeConfig.h"
#include "VEXMELKVisionPointsConfig.h"
#include "VEXMELKWheelCoveringConfig.h"
#include "VEXMELKWipersConfig.h"

#include <exception>
#include <utility>

VEXMELKConfigManager* VEXMELKConfigManager::m_Configuration = nullptr;
VEXMELKConfigManager* VEXMELKConfigManager::m_TestConfiguration = nullptr;

namespace {

template <class Component> void ReleaseAndClear(Component*& component)
{
    if (component)
        std::exchange(component, nullptr)->Release();
}

} // namespace

VEXMELKConfigManager::VEXMELKConfigManager() : m_CommaDelimiter(VEXMELKUtilities::IsCommaDelimeter()) {}

VEXMELKConfigManager::VEXMELKConfigManager(const VEXMELKConfigManager& other) = default;
VEXMELKConfigManager& VEXMELKConfigManager::operator=(const VEXMELKConfigManager& other) = default;

VEXMELKConfigManager::~VEXMELKConfigManager()
{
    ReleaseConfigManager(this);
    m_OpticalPropsOfWSConfig = nullptr; // not released, on purpose
}

VEXMELKConfigManager* VEXMELKConfigManager::GetConfigManager()
{
    if (VEXMELKUtilities::GetReloadConfigurationFlag())
    {
        ReleaseConfigManager();
        VEXMELKUtilities::SetReloadConfigurationFlag(0);
    }
    return GetCurrentManager();
}

VEXMELKConfigManager* VEXMELKConfigManager::GetCurrentManager()
{
    const VEXMELKAppMode mode = VEXMELKUtilities::GetAppMode();
    if (mode != VEXMELKNormalMode && mode != VEXMELKTestMode)
        return nullptr;
    VEXMELKConfigManager*& manager = mode == VEXMELKNormalMode ? m_Configuration : m_TestConfiguration;
    if (!manager)
        manager = new (std::nothrow) VEXMELKConfigManager;
    return manager;
}

bool VEXMELKConfigManager::WritesCommas()
{
    const VEXMELKConfigManager* manager = GetCurrentManager();
    return manager && manager->CommaDelimiter();
}

void VEXMELKConfigManager::ReleaseConfigManager()
{
    ReleaseAndClear(m_Configuration);
    ReleaseAndClear(m_TestConfiguration);
}

void VEXMELKConfigManager::ReleaseConfigManager(VEXMELKConfigManager* manager)
{
    ReleaseAndClear(manager->m_BaseDataConfig);
    ReleaseAndClear(manager->m_UFSlopeAngleConfig);
    ReleaseAndClear(manager->m_UFInnerAngleConfig);
    ReleaseAndClear(manager->m_UFCurbConfig);
    ReleaseAndClear(manager->m_UFDynamicCurbConfig);
    ReleaseAndClear(manager->m_UFSpaceToRoadConfig);
    ReleaseAndClear(manager->m_UFOilTubConfig);
    ReleaseAndClear(manager->m_UFWheelFixingConfig);
    ReleaseAndClear(manager->m_UFCompleteConfig);
    ReleaseAndClear(manager->m_NumberPlatesConfig);
    ReleaseAndClear(manager->m_LampPositionsConfig);
    ReleaseAndClear(manager->m_BumpersConfig);
    ReleaseAndClear(manager->m_WheelCoveringConfig);
    ReleaseAndClear(manager->m_SeatingBeltsConfig);
    ReleaseAndClear(manager->m_ChildProtectionConfig);
    ReleaseAndClear(manager->m_FreeSpaceConfig);
    ReleaseAndClear(manager->m_CrashBarriersConfig);
    ReleaseAndClear(manager->m_EyeEllipsesConfig);
    ReleaseAndClear(manager->m_EyePointsConfig);
    ReleaseAndClear(manager->m_ExtendedEyePointsConfig);
    ReleaseAndClear(manager->m_HeadContourConfig);
    ReleaseAndClear(manager->m_SRPLocationCurvesConfig);
    ReleaseAndClear(manager->m_ManikinTemplateConfig);
    ReleaseAndClear(manager->m_FieldsOfViewConfig);
    ReleaseAndClear(manager->m_ERFieldsOfViewConfig);
    ReleaseAndClear(manager->m_CRVConfig);
    ReleaseAndClear(manager->m_VisionPointsConfig);
    ReleaseAndClear(manager->m_VisionConeConfig);
    ReleaseAndClear(manager->m_PyramidConfig);
    ReleaseAndClear(manager->m_APillarConfig);
    ReleaseAndClear(manager->m_MirrorConfig);
    ReleaseAndClear(manager->m_PedestrianProtectionConfig);
    ReleaseAndClear(manager->m_HeadImpactConfig);
    ReleaseAndClear(manager->m_OpticalDistortionConfig);
    ReleaseAndClear(manager->m_MultipleReflectionConfig);
    ReleaseAndClear(manager->m_DirectViewConfig);
    ReleaseAndClear(manager->m_DirectView3DConfig);
    ReleaseAndClear(manager->m_WipersConfig);
    ReleaseAndClear(manager->m_DBAccessConfig);
    ReleaseAndClear(manager->m_ReportGenConfig);
    ReleaseAndClear(manager->m_PPOffsetConfig);
}

unsigned char VEXMELKConfigManager::GetCFGDir(CATUnicodeString& directory)
{
    const VEXIMELKAccessAdminAttr* settings = VEXMELKGetAdminAccess::VEXMELKGetAdminAccessAttr();
    if (!settings)
        return 1;
    CATString value;
    if (FAILED(settings->GetConfigurationDirectory(value)))
    {
        VEXMELKGUI::ShowError("Environment variable \"MELK_CFG_PATH\" not defined!\n"
                              "MELK is not able to initialize its objects!\n",
            "MELK - Configuration Error", 0, nullptr);
        return 0;
    }
    directory = CATUnicodeString(value);
    return 1;
}

CATUnicodeString VEXMELKConfigManager::GetXMLFilePath()
{
    CATUnicodeString directory;
    switch (VEXMELKUtilities::GetAppMode())
    {
    case VEXMELKNormalMode:
        GetCFGDir(directory);
        break;
    case VEXMELKTestMode:
        directory = GetTestPath() + "\\" + "Configuration";
        break;
    }
    return directory;
}

CATUnicodeString VEXMELKConfigManager::GetTestPath()
{
    const VEXIMELKAccessAdminAttr* settings = VEXMELKGetAdminAccess::VEXMELKGetAdminAccessAttr();
    return settings ? settings->GetTestPath() : CATUnicodeString();
}

long VEXMELKConfigManager::GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user)
{
    const VEXIMELKAccessAdminAttr* settings = VEXMELKGetAdminAccess::VEXMELKGetAdminAccessAttr();
    return settings ? settings->GetBaseDataDBPath(path, user) : E_FAIL;
}

unsigned char VEXMELKConfigManager::CommaDelimiter() const { return m_CommaDelimiter; }

template <class Config> Config* VEXMELKConfigManager::Obtain(Config*& member)
{
    try
    {
        if (!member)
            member = new Config(GetXMLFilePath());
    }
    catch (const std::exception&) // no memory: the next request tries again
    {
    }
    return member;
}

VEXMELKBaseDataConfig* VEXMELKConfigManager::GetBaseDataConfig() { return Obtain(m_BaseDataConfig); }

VEXMELKUFSlopeAngleConfig* VEXMELKConfigManager::GetUFSlopeAngleConfig() { return Obtain(m_UFSlopeAngleConfig); }

VEXMELKUFInnerAngleConfig* VEXMELKConfigManager::GetUFInnerAngleConfig() { return Obtain(m_UFInnerAngleConfig); }

VEXMELKUFCurbConfig* VEXMELKConfigManager::GetUFCurbConfig() { return Obtain(m_UFCurbConfig); }

VEXMELKUFDynamicCurbConfig* VEXMELKConfigManager::GetUFDynamicCurbConfig() { return Obtain(m_UFDynamicCurbConfig); }

VEXMELKUFSpaceToRoadConfig* VEXMELKConfigManager::GetUFSpaceToRoadConfig() { return Obtain(m_UFSpaceToRoadConfig); }

VEXMELKUFOilTubConfig* VEXMELKConfigManager::GetUFOilTubConfig() { return Obtain(m_UFOilTubConfig); }

VEXMELKUFWheelFixingConfig* VEXMELKConfigManager::GetUFWheelFixingConfig() { return Obtain(m_UFWheelFixingConfig); }

VEXMELKUFCompleteConfig* VEXMELKConfigManager::GetUFCompleteConfig() { return Obtain(m_UFCompleteConfig); }

VEXMELKNumberPlatesConfig* VEXMELKConfigManager::GetNumberPlatesConfig() { return Obtain(m_NumberPlatesConfig); }

VEXMELKLampPositionsConfig* VEXMELKConfigManager::GetLampPositionsConfig() { return Obtain(m_LampPositionsConfig); }

VEXMELKBumpersConfig* VEXMELKConfigManager::GetBumpersConfig() { return Obtain(m_BumpersConfig); }

VEXMELKWheelCoveringConfig* VEXMELKConfigManager::GetWheelCoveringConfig() { return Obtain(m_WheelCoveringConfig); }

VEXMELKSeatingBeltsConfig* VEXMELKConfigManager::GetSeatingBeltsConfig() { return Obtain(m_SeatingBeltsConfig); }

VEXMELKChildProtectionConfig* VEXMELKConfigManager::GetChildProtectionConfig()
{
    return Obtain(m_ChildProtectionConfig);
}

VEXMELKFreeSpaceConfig* VEXMELKConfigManager::GetFreeSpaceConfig() { return Obtain(m_FreeSpaceConfig); }

VEXMELKCrashBarriersConfig* VEXMELKConfigManager::GetCrashBarriersConfig() { return Obtain(m_CrashBarriersConfig); }

VEXMELKEyeEllipsesConfig* VEXMELKConfigManager::GetEyeEllipsesConfig() { return Obtain(m_EyeEllipsesConfig); }

VEXMELKEyePointsConfig* VEXMELKConfigManager::GetEyePointsConfig() { return Obtain(m_EyePointsConfig); }

VEXMELKExtendedEyePointsConfig* VEXMELKConfigManager::GetExtendedEyePointsConfig()
{
    return Obtain(m_ExtendedEyePointsConfig);
}

VEXMELKHeadContourConfig* VEXMELKConfigManager::GetHeadContourConfig() { return Obtain(m_HeadContourConfig); }

VEXMELKSRPLocationCurvesConfig* VEXMELKConfigManager::GetSRPLocationCurvesConfig()
{
    return Obtain(m_SRPLocationCurvesConfig);
}

VEXMELKManikinTemplateConfig* VEXMELKConfigManager::GetManikinTemplateConfig()
{
    return Obtain(m_ManikinTemplateConfig);
}

VEXMELKFieldsOfViewConfig* VEXMELKConfigManager::GetFieldsOfViewConfig() { return Obtain(m_FieldsOfViewConfig); }

VEXMELKERFieldsOfViewConfig* VEXMELKConfigManager::GetERFieldsOfViewConfig() { return Obtain(m_ERFieldsOfViewConfig); }

VEXMELKCRVConfig* VEXMELKConfigManager::GetCRVConfig() { return Obtain(m_CRVConfig); }

VEXMELKVisionPointsConfig* VEXMELKConfigManager::GetVisionPointsConfig() { return Obtain(m_VisionPointsConfig); }

VEXMELKVisionConeConfig* VEXMELKConfigManager::GetVisionConeConfig() { return Obtain(m_VisionConeConfig); }

VEXMELKPyramidConfig* VEXMELKConfigManager::GetPyramidConfig() { return Obtain(m_PyramidConfig); }

VEXMELKAPillarConfig* VEXMELKConfigManager::GetAPillarConfig() { return Obtain(m_APillarConfig); }

VEXMELKMirrorConfig* VEXMELKConfigManager::GetMirrorConfig() { return Obtain(m_MirrorConfig); }

VEXMELKPedestrianProtectionConfig* VEXMELKConfigManager::GetPedestrianProtectionConfig()
{
    return Obtain(m_PedestrianProtectionConfig);
}

VEXMELKHeadImpactConfig* VEXMELKConfigManager::GetHeadImpactConfig() { return Obtain(m_HeadImpactConfig); }

VEXMELKPPOffsetConfig* VEXMELKConfigManager::GetPPOffsetConfig() { return Obtain(m_PPOffsetConfig); }

VEXMELKOpticalPropsOfWSConfig* VEXMELKConfigManager::GetOpticalPropsOfWSConfig() { return m_OpticalPropsOfWSConfig; }

VEXMELKOpticalDistortionConfig* VEXMELKConfigManager::GetOpticalDistortionConfig()
{
    return Obtain(m_OpticalDistortionConfig);
}

VEXMELKMultipleReflectionConfig* VEXMELKConfigManager::GetMultipleReflectionConfig()
{
    return Obtain(m_MultipleReflectionConfig);
}

VEXMELKDirectViewConfig* VEXMELKConfigManager::GetDirectViewConfig() { return Obtain(m_DirectViewConfig); }

VEXMELKDirectView3DConfig* VEXMELKConfigManager::GetDirectView3DConfig() { return Obtain(m_DirectView3DConfig); }

VEXMELKWipersConfig* VEXMELKConfigManager::GetWipersConfig() { return Obtain(m_WipersConfig); }

VEXMELKDBAccessConfig* VEXMELKConfigManager::GetDBAccessConfig() { return Obtain(m_DBAccessConfig); }

VEXMELKReportGenConfig* VEXMELKConfigManager::GetReportGenConfig() { return Obtain(m_ReportGenConfig); }

namespace {

using Manager = VEXMELKConfigManager;

struct Key
{
    const char* name;
    VEXMELKCheckConfig* (*get)(Manager& manager);
};

// The getter of a class as the getter of its base.
template <auto Getter> VEXMELKCheckConfig* Call(Manager& manager) { return (manager.*Getter)(); }

constexpr Key keys[] = {
    {"VEXMELKUFSlopeAngle", Call<&Manager::GetUFSlopeAngleConfig>},
    {"VEXMELKUFInnerAngle", Call<&Manager::GetUFInnerAngleConfig>},
    {"VEXMELKUFCurb", Call<&Manager::GetUFCurbConfig>},
    {"VEXMELKUFDynCurb", Call<&Manager::GetUFDynamicCurbConfig>},
    {"VEXMELKUFSpaceToRoad", Call<&Manager::GetUFSpaceToRoadConfig>},
    {"VEXMELKUFOilTub", Call<&Manager::GetUFOilTubConfig>},
    {"VEXMELKUFWheelFixing", Call<&Manager::GetUFWheelFixingConfig>},
    {"VEXMELKUFComplete", Call<&Manager::GetUFCompleteConfig>},
    {"VEXMELKNumberPlates", Call<&Manager::GetNumberPlatesConfig>},
    {"VEXMELKLampPositions", Call<&Manager::GetLampPositionsConfig>},
    {"VEXMELKBumpers", Call<&Manager::GetBumpersConfig>},
    {"VEXMELKWheelCovering", Call<&Manager::GetWheelCoveringConfig>},
    {"VEXMELKSeatingBelts", Call<&Manager::GetSeatingBeltsConfig>},
    {"VEXMELKChildProtection", Call<&Manager::GetChildProtectionConfig>},
    {"VEXMELKFreeSpace", Call<&Manager::GetFreeSpaceConfig>},
    {"VEXMELKEyeEllipses", Call<&Manager::GetEyeEllipsesConfig>},
    {"VEXMELKEyePoints", Call<&Manager::GetEyePointsConfig>},
    {"VEXMELKExtendedEyePoints", Call<&Manager::GetExtendedEyePointsConfig>},
    {"VEXMELKHeadContour", Call<&Manager::GetHeadContourConfig>},
    {"VEXMELKSRPLocationCurves", Call<&Manager::GetSRPLocationCurvesConfig>},
    {"VEXMELKFieldsOfView", Call<&Manager::GetFieldsOfViewConfig>},
    {"VEXMELKFieldOfView", Call<&Manager::GetFieldsOfViewConfig>},
    {"VEXMELKERFieldsOfView", Call<&Manager::GetERFieldsOfViewConfig>},
    {"VEXMELKERFieldOfView", Call<&Manager::GetERFieldsOfViewConfig>},
    {"VEXMELKERAFieldOfView", Call<&Manager::GetERFieldsOfViewConfig>},
    {"VEXMELKERBFieldOfView", Call<&Manager::GetERFieldsOfViewConfig>},
    {"VEXMELKCloseRangeVisibility", Call<&Manager::GetCRVConfig>},
    {"VEXMELKVisionPoints", Call<&Manager::GetVisionPointsConfig>},
    {"VEXMELKVisionCone", Call<&Manager::GetVisionConeConfig>},
    {"VEXMELKPyramid", Call<&Manager::GetPyramidConfig>},
    {"VEXMELKPillarCovering", Call<&Manager::GetAPillarConfig>},
    {"VEXMELKMirror", Call<&Manager::GetMirrorConfig>},
    {"VEXMELKHeadImpact", Call<&Manager::GetHeadImpactConfig>},
    {"VEXMELKDirectView", Call<&Manager::GetDirectViewConfig>},
    {"VEXMELKDirectView3D", Call<&Manager::GetDirectView3DConfig>},
    {"VEXMELKWipers", Call<&Manager::GetWipersConfig>},
};

} // namespace

VEXMELKCheckConfig* VEXMELKConfigManager::GetConfig(const CATUnicodeString& name)
{
    for (const Key& key : keys)
        if (name == key.name)
            return key.get(*this);
    return nullptr;
}
