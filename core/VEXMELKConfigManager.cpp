// The managers of the two modes, which each thread has for itself, and the one list of all configurations.
#include "VEXMELKConfigManager.h"

#include "VEXMELKAPillarConfig.h"
#include "VEXMELKAnswer.h"
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKChildProtectionConfig.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKDBAccessConfig.h"
#include "VEXMELKDescription.h"
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
#include "VEXMELKThreadEnd.h"
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

#include <algorithm>
#include <exception>
#include <type_traits>
#include <utility>

// The managers of the calling thread.
struct [[gnu::visibility("hidden")]] VEXMELKConfigManager::OfThread
{
    VEXMELKConfigManager* m_Configuration = nullptr;     // normal mode
    VEXMELKConfigManager* m_TestConfiguration = nullptr; // test mode
    static thread_local OfThread managers;
};
constinit thread_local VEXMELKConfigManager::OfThread VEXMELKConfigManager::OfThread::managers;

namespace {

template <class Component> void ReleaseAndClear(Component*& component)
{
    if (component)
        std::exchange(component, nullptr)->Release();
}

} // namespace

// Every configuration, in the order in which they are released.
class HiddenInVEXMELKConfiguration VEXMELKConfigManager::List
{
    using Manager = VEXMELKConfigManager;

    // The properties of the windscreen are neither created nor released here: whoever sets them keeps them.
    template <auto Member> static constexpr bool isOwned = true;

    template <auto Member> static auto* Get(Manager& manager)
    {
        if constexpr (isOwned<Member>)
            return manager.Obtain(Member);
        else
            return manager.*Member;
    }
    template <auto Member> static void Release(Manager& manager)
    {
        if constexpr (isOwned<Member>)
            ReleaseAndClear(manager.*Member);
    }

public:
    template <auto Member> static constexpr Configuration Of(auto... keys)
    {
        using Config = std::remove_pointer_t<std::remove_cvref_t<decltype(std::declval<Manager&>().*Member)>>;
        Configuration configuration;
        configuration.description = &Config::description;
        configuration.keys = {std::string_view(keys)...};
        configuration.get = [](Manager& manager) -> VEXMELKConfig* { return Get<Member>(manager); };
        if constexpr (std::is_constructible_v<Config, const CATUnicodeString&>)
            configuration.create = [](const CATUnicodeString& directory) -> VEXMELKConfig*
            { return OrElse<VEXMELKConfig*>(nullptr, [&] { return new Config(directory); }); };
        configuration.m_Release = Release<Member>;
        if constexpr (std::is_base_of_v<VEXMELKCheckConfig, Config>)
            configuration.m_GetCheck = [](Manager& manager) -> VEXMELKCheckConfig* { return Get<Member>(manager); };
        return configuration;
    }

    static const Configuration configurations[];
};

template <> constexpr bool VEXMELKConfigManager::List::isOwned<&VEXMELKConfigManager::m_OpticalPropsOfWSConfig> = false;

constinit const VEXMELKConfigManager::Configuration VEXMELKConfigManager::List::configurations[] = {
    Of<&VEXMELKConfigManager::m_BaseDataConfig>(),
    Of<&VEXMELKConfigManager::m_UFSlopeAngleConfig>("VEXMELKUFSlopeAngle"),
    Of<&VEXMELKConfigManager::m_UFInnerAngleConfig>("VEXMELKUFInnerAngle"),
    Of<&VEXMELKConfigManager::m_UFCurbConfig>("VEXMELKUFCurb"),
    Of<&VEXMELKConfigManager::m_UFDynamicCurbConfig>("VEXMELKUFDynCurb"),
    Of<&VEXMELKConfigManager::m_UFSpaceToRoadConfig>("VEXMELKUFSpaceToRoad"),
    Of<&VEXMELKConfigManager::m_UFOilTubConfig>("VEXMELKUFOilTub"),
    Of<&VEXMELKConfigManager::m_UFWheelFixingConfig>("VEXMELKUFWheelFixing"),
    Of<&VEXMELKConfigManager::m_UFCompleteConfig>("VEXMELKUFComplete"),
    Of<&VEXMELKConfigManager::m_NumberPlatesConfig>("VEXMELKNumberPlates"),
    Of<&VEXMELKConfigManager::m_LampPositionsConfig>("VEXMELKLampPositions"),
    Of<&VEXMELKConfigManager::m_BumpersConfig>("VEXMELKBumpers"),
    Of<&VEXMELKConfigManager::m_WheelCoveringConfig>("VEXMELKWheelCovering"),
    Of<&VEXMELKConfigManager::m_SeatingBeltsConfig>("VEXMELKSeatingBelts"),
    Of<&VEXMELKConfigManager::m_ChildProtectionConfig>("VEXMELKChildProtection"),
    Of<&VEXMELKConfigManager::m_FreeSpaceConfig>("VEXMELKFreeSpace"),
    Of<&VEXMELKConfigManager::m_CrashBarriersConfig>(),
    Of<&VEXMELKConfigManager::m_EyeEllipsesConfig>("VEXMELKEyeEllipses"),
    Of<&VEXMELKConfigManager::m_EyePointsConfig>("VEXMELKEyePoints"),
    Of<&VEXMELKConfigManager::m_ExtendedEyePointsConfig>("VEXMELKExtendedEyePoints"),
    Of<&VEXMELKConfigManager::m_HeadContourConfig>("VEXMELKHeadContour"),
    Of<&VEXMELKConfigManager::m_SRPLocationCurvesConfig>("VEXMELKSRPLocationCurves"),
    Of<&VEXMELKConfigManager::m_ManikinTemplateConfig>(),
    Of<&VEXMELKConfigManager::m_FieldsOfViewConfig>("VEXMELKFieldsOfView", "VEXMELKFieldOfView"),
    Of<&VEXMELKConfigManager::m_ERFieldsOfViewConfig>(
        "VEXMELKERFieldsOfView", "VEXMELKERFieldOfView", "VEXMELKERAFieldOfView", "VEXMELKERBFieldOfView"),
    Of<&VEXMELKConfigManager::m_CRVConfig>("VEXMELKCloseRangeVisibility"),
    Of<&VEXMELKConfigManager::m_VisionPointsConfig>("VEXMELKVisionPoints"),
    Of<&VEXMELKConfigManager::m_VisionConeConfig>("VEXMELKVisionCone"),
    Of<&VEXMELKConfigManager::m_PyramidConfig>("VEXMELKPyramid"),
    Of<&VEXMELKConfigManager::m_APillarConfig>("VEXMELKPillarCovering"),
    Of<&VEXMELKConfigManager::m_MirrorConfig>("VEXMELKMirror"),
    Of<&VEXMELKConfigManager::m_PedestrianProtectionConfig>(),
    Of<&VEXMELKConfigManager::m_HeadImpactConfig>("VEXMELKHeadImpact"),
    Of<&VEXMELKConfigManager::m_OpticalPropsOfWSConfig>(),
    Of<&VEXMELKConfigManager::m_OpticalDistortionConfig>(),
    Of<&VEXMELKConfigManager::m_MultipleReflectionConfig>(),
    Of<&VEXMELKConfigManager::m_DirectViewConfig>("VEXMELKDirectView"),
    Of<&VEXMELKConfigManager::m_DirectView3DConfig>("VEXMELKDirectView3D"),
    Of<&VEXMELKConfigManager::m_WipersConfig>("VEXMELKWipers"),
    Of<&VEXMELKConfigManager::m_DBAccessConfig>(),
    Of<&VEXMELKConfigManager::m_ReportGenConfig>(),
    Of<&VEXMELKConfigManager::m_PPOffsetConfig>(),
};

VEXMELKConfigManager::VEXMELKConfigManager() : m_CommaDelimiter(VEXMELKUtilities::IsCommaDelimeter()) {}

VEXMELKConfigManager::VEXMELKConfigManager(const VEXMELKConfigManager& other) = default;
VEXMELKConfigManager& VEXMELKConfigManager::operator=(const VEXMELKConfigManager& other) = default;

VEXMELKConfigManager::~VEXMELKConfigManager()
{
    ReleaseConfigManager(this);
    m_OpticalPropsOfWSConfig = nullptr; // not released: it belongs to whoever has set it
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
    OfThread& managers = OfThread::managers;
    VEXMELKConfigManager*& manager =
        mode == VEXMELKNormalMode ? managers.m_Configuration : managers.m_TestConfiguration;
    if (!manager)
    {
        VEXMELKAtThreadEnd(ReleaseConfigManager);
        manager = new (std::nothrow) VEXMELKConfigManager;
    }
    return manager;
}

bool VEXMELKConfigManager::WritesCommas()
{
    const VEXMELKConfigManager* manager = GetCurrentManager();
    return manager && manager->CommaDelimiter();
}

void VEXMELKConfigManager::ReleaseConfigManager()
{
    OfThread& managers = OfThread::managers;
    for (VEXMELKConfigManager** manager : {&managers.m_Configuration, &managers.m_TestConfiguration})
    {
        if (*manager)
            (*manager)->m_IsReleased = true;
        ReleaseAndClear(*manager);
    }
}

void VEXMELKConfigManager::ReleaseConfigManager(VEXMELKConfigManager* manager)
{
    for (const Configuration& configuration : List::configurations)
        configuration.m_Release(*manager);
}

unsigned char VEXMELKConfigManager::GetCFGDir(CATUnicodeString& directory)
{
    return OrElse<unsigned char>(0, [&] { return ReadCFGDir(directory); });
}

unsigned char VEXMELKConfigManager::ReadCFGDir(CATUnicodeString& directory)
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
        ReadCFGDir(directory);
        break;
    case VEXMELKTestMode:
        directory = ReadTestPath() + "\\" + "Configuration";
        break;
    }
    return directory;
}

CATUnicodeString VEXMELKConfigManager::GetTestPath() { return OrElse(CATUnicodeString(), ReadTestPath); }

CATUnicodeString VEXMELKConfigManager::ReadTestPath()
{
    const VEXIMELKAccessAdminAttr* settings = VEXMELKGetAdminAccess::VEXMELKGetAdminAccessAttr();
    return settings ? settings->GetTestPath() : CATUnicodeString();
}

long VEXMELKConfigManager::GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user)
{
    const VEXIMELKAccessAdminAttr* settings = VEXMELKGetAdminAccess::VEXMELKGetAdminAccessAttr();
    return OrElse<long>(E_FAIL, [&] { return settings ? settings->GetBaseDataDBPath(path, user) : E_FAIL; });
}

unsigned char VEXMELKConfigManager::CommaDelimiter() const { return m_CommaDelimiter; }

// The directory is asked for first: that may show a box, in which the host may ask for the same object, or have this
// manager released. The object then belongs to the manager that has taken its place.
template <class Config> Config* VEXMELKConfigManager::Obtain(Config* VEXMELKConfigManager::*member)
{
    if (this->*member)
        return this->*member;
    AddRef();
    Config* obtained = nullptr;
    try
    {
        const CATUnicodeString directory = GetXMLFilePath();
        VEXMELKConfigManager* owner = m_IsReleased ? GetCurrentManager() : this;
        if (owner && !(owner->*member))
            owner->*member = new Config(directory);
        obtained = owner ? owner->*member : nullptr;
    }
    catch (...) // no memory, or the settings of the host failed: the next request tries again
    {
    }
    Release();
    return obtained;
}

VEXMELKBaseDataConfig* VEXMELKConfigManager::GetBaseDataConfig()
{
    return Obtain(&VEXMELKConfigManager::m_BaseDataConfig);
}

VEXMELKUFSlopeAngleConfig* VEXMELKConfigManager::GetUFSlopeAngleConfig()
{
    return Obtain(&VEXMELKConfigManager::m_UFSlopeAngleConfig);
}

VEXMELKUFInnerAngleConfig* VEXMELKConfigManager::GetUFInnerAngleConfig()
{
    return Obtain(&VEXMELKConfigManager::m_UFInnerAngleConfig);
}

VEXMELKUFCurbConfig* VEXMELKConfigManager::GetUFCurbConfig() { return Obtain(&VEXMELKConfigManager::m_UFCurbConfig); }

VEXMELKUFDynamicCurbConfig* VEXMELKConfigManager::GetUFDynamicCurbConfig()
{
    return Obtain(&VEXMELKConfigManager::m_UFDynamicCurbConfig);
}

VEXMELKUFSpaceToRoadConfig* VEXMELKConfigManager::GetUFSpaceToRoadConfig()
{
    return Obtain(&VEXMELKConfigManager::m_UFSpaceToRoadConfig);
}

VEXMELKUFOilTubConfig* VEXMELKConfigManager::GetUFOilTubConfig()
{
    return Obtain(&VEXMELKConfigManager::m_UFOilTubConfig);
}

VEXMELKUFWheelFixingConfig* VEXMELKConfigManager::GetUFWheelFixingConfig()
{
    return Obtain(&VEXMELKConfigManager::m_UFWheelFixingConfig);
}

VEXMELKUFCompleteConfig* VEXMELKConfigManager::GetUFCompleteConfig()
{
    return Obtain(&VEXMELKConfigManager::m_UFCompleteConfig);
}

VEXMELKNumberPlatesConfig* VEXMELKConfigManager::GetNumberPlatesConfig()
{
    return Obtain(&VEXMELKConfigManager::m_NumberPlatesConfig);
}

VEXMELKLampPositionsConfig* VEXMELKConfigManager::GetLampPositionsConfig()
{
    return Obtain(&VEXMELKConfigManager::m_LampPositionsConfig);
}

VEXMELKBumpersConfig* VEXMELKConfigManager::GetBumpersConfig()
{
    return Obtain(&VEXMELKConfigManager::m_BumpersConfig);
}

VEXMELKWheelCoveringConfig* VEXMELKConfigManager::GetWheelCoveringConfig()
{
    return Obtain(&VEXMELKConfigManager::m_WheelCoveringConfig);
}

VEXMELKSeatingBeltsConfig* VEXMELKConfigManager::GetSeatingBeltsConfig()
{
    return Obtain(&VEXMELKConfigManager::m_SeatingBeltsConfig);
}

VEXMELKChildProtectionConfig* VEXMELKConfigManager::GetChildProtectionConfig()
{
    return Obtain(&VEXMELKConfigManager::m_ChildProtectionConfig);
}

VEXMELKFreeSpaceConfig* VEXMELKConfigManager::GetFreeSpaceConfig()
{
    return Obtain(&VEXMELKConfigManager::m_FreeSpaceConfig);
}

VEXMELKCrashBarriersConfig* VEXMELKConfigManager::GetCrashBarriersConfig()
{
    return Obtain(&VEXMELKConfigManager::m_CrashBarriersConfig);
}

VEXMELKEyeEllipsesConfig* VEXMELKConfigManager::GetEyeEllipsesConfig()
{
    return Obtain(&VEXMELKConfigManager::m_EyeEllipsesConfig);
}

VEXMELKEyePointsConfig* VEXMELKConfigManager::GetEyePointsConfig()
{
    return Obtain(&VEXMELKConfigManager::m_EyePointsConfig);
}

VEXMELKExtendedEyePointsConfig* VEXMELKConfigManager::GetExtendedEyePointsConfig()
{
    return Obtain(&VEXMELKConfigManager::m_ExtendedEyePointsConfig);
}

VEXMELKHeadContourConfig* VEXMELKConfigManager::GetHeadContourConfig()
{
    return Obtain(&VEXMELKConfigManager::m_HeadContourConfig);
}

VEXMELKSRPLocationCurvesConfig* VEXMELKConfigManager::GetSRPLocationCurvesConfig()
{
    return Obtain(&VEXMELKConfigManager::m_SRPLocationCurvesConfig);
}

VEXMELKManikinTemplateConfig* VEXMELKConfigManager::GetManikinTemplateConfig()
{
    return Obtain(&VEXMELKConfigManager::m_ManikinTemplateConfig);
}

VEXMELKFieldsOfViewConfig* VEXMELKConfigManager::GetFieldsOfViewConfig()
{
    return Obtain(&VEXMELKConfigManager::m_FieldsOfViewConfig);
}

VEXMELKERFieldsOfViewConfig* VEXMELKConfigManager::GetERFieldsOfViewConfig()
{
    return Obtain(&VEXMELKConfigManager::m_ERFieldsOfViewConfig);
}

VEXMELKCRVConfig* VEXMELKConfigManager::GetCRVConfig() { return Obtain(&VEXMELKConfigManager::m_CRVConfig); }

VEXMELKVisionPointsConfig* VEXMELKConfigManager::GetVisionPointsConfig()
{
    return Obtain(&VEXMELKConfigManager::m_VisionPointsConfig);
}

VEXMELKVisionConeConfig* VEXMELKConfigManager::GetVisionConeConfig()
{
    return Obtain(&VEXMELKConfigManager::m_VisionConeConfig);
}

VEXMELKPyramidConfig* VEXMELKConfigManager::GetPyramidConfig()
{
    return Obtain(&VEXMELKConfigManager::m_PyramidConfig);
}

VEXMELKAPillarConfig* VEXMELKConfigManager::GetAPillarConfig()
{
    return Obtain(&VEXMELKConfigManager::m_APillarConfig);
}

VEXMELKMirrorConfig* VEXMELKConfigManager::GetMirrorConfig() { return Obtain(&VEXMELKConfigManager::m_MirrorConfig); }

VEXMELKPedestrianProtectionConfig* VEXMELKConfigManager::GetPedestrianProtectionConfig()
{
    return Obtain(&VEXMELKConfigManager::m_PedestrianProtectionConfig);
}

VEXMELKHeadImpactConfig* VEXMELKConfigManager::GetHeadImpactConfig()
{
    return Obtain(&VEXMELKConfigManager::m_HeadImpactConfig);
}

VEXMELKPPOffsetConfig* VEXMELKConfigManager::GetPPOffsetConfig()
{
    return Obtain(&VEXMELKConfigManager::m_PPOffsetConfig);
}

VEXMELKOpticalPropsOfWSConfig* VEXMELKConfigManager::GetOpticalPropsOfWSConfig() { return m_OpticalPropsOfWSConfig; }

VEXMELKOpticalDistortionConfig* VEXMELKConfigManager::GetOpticalDistortionConfig()
{
    return Obtain(&VEXMELKConfigManager::m_OpticalDistortionConfig);
}

VEXMELKMultipleReflectionConfig* VEXMELKConfigManager::GetMultipleReflectionConfig()
{
    return Obtain(&VEXMELKConfigManager::m_MultipleReflectionConfig);
}

VEXMELKDirectViewConfig* VEXMELKConfigManager::GetDirectViewConfig()
{
    return Obtain(&VEXMELKConfigManager::m_DirectViewConfig);
}

VEXMELKDirectView3DConfig* VEXMELKConfigManager::GetDirectView3DConfig()
{
    return Obtain(&VEXMELKConfigManager::m_DirectView3DConfig);
}

VEXMELKWipersConfig* VEXMELKConfigManager::GetWipersConfig() { return Obtain(&VEXMELKConfigManager::m_WipersConfig); }

VEXMELKDBAccessConfig* VEXMELKConfigManager::GetDBAccessConfig()
{
    return Obtain(&VEXMELKConfigManager::m_DBAccessConfig);
}

VEXMELKReportGenConfig* VEXMELKConfigManager::GetReportGenConfig()
{
    return Obtain(&VEXMELKConfigManager::m_ReportGenConfig);
}

VEXMELKCheckConfig* VEXMELKConfigManager::GetConfig(const CATUnicodeString& name)
{
    for (const Configuration& configuration : List::configurations)
        if (!name.IsEmpty() &&
            std::ranges::find(configuration.keys, std::string_view(name)) != configuration.keys.end())
            return configuration.m_GetCheck(*this);
    return nullptr;
}

std::span<const VEXMELKConfigManager::Configuration> VEXMELKConfigManager::GetConfigurations()
{
    return List::configurations;
}
