// VEXMELKConfigManager: the entry to the library. Owns one configuration object per check.
//
//     VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
//     VEXMELKUFCurbConfigDefinition curb;
//     if (manager && manager->GetUFCurbConfig()->GetStandardData("Standard", "default", curb))
//         ... curb.FrontOffset is "120mm"
//
// There is one manager per application mode, each with a directory of its own. Pointers to configuration objects stay
// valid until the next reload or release.
//
// Threads: each thread that asks has managers, configuration objects and documents of its own, and shares nothing with
// the others that a query counts or keeps. So any number of threads may ask at once, without a lock. What a thread got
// from its manager - the manager, its objects, handles into their documents - is for that thread alone; the records
// that a query filled are the caller's. A request to reload (VEXMELKUtilities) reaches every thread, and each carries
// it out when it asks for its manager the next time. A thread that ends releases its managers; the main thread keeps
// them to the end of the process, so that the host may ask while it ends.
#ifndef VEXMELKConfigManager_H
#define VEXMELKConfigManager_H

#include "CATBaseUnknown.h"
#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

#include <array>
#include <span>
#include <string_view>

struct VEXMELKDescription;
class VEXMELKConfig;
class VEXMELKCheckConfig;
class VEXMELKBaseDataConfig;
class VEXMELKUFSlopeAngleConfig;
class VEXMELKUFInnerAngleConfig;
class VEXMELKUFCurbConfig;
class VEXMELKUFDynamicCurbConfig;
class VEXMELKUFSpaceToRoadConfig;
class VEXMELKUFOilTubConfig;
class VEXMELKUFWheelFixingConfig;
class VEXMELKUFCompleteConfig;
class VEXMELKNumberPlatesConfig;
class VEXMELKLampPositionsConfig;
class VEXMELKBumpersConfig;
class VEXMELKWheelCoveringConfig;
class VEXMELKSeatingBeltsConfig;
class VEXMELKChildProtectionConfig;
class VEXMELKFreeSpaceConfig;
class VEXMELKCrashBarriersConfig;
class VEXMELKEyeEllipsesConfig;
class VEXMELKEyePointsConfig;
class VEXMELKHeadContourConfig;
class VEXMELKSRPLocationCurvesConfig;
class VEXMELKManikinTemplateConfig;
class VEXMELKFieldsOfViewConfig;
class VEXMELKERFieldsOfViewConfig;
class VEXMELKCRVConfig;
class VEXMELKVisionPointsConfig;
class VEXMELKVisionConeConfig;
class VEXMELKPyramidConfig;
class VEXMELKAPillarConfig;
class VEXMELKMirrorConfig;
class VEXMELKPedestrianProtectionConfig;
class VEXMELKHeadImpactConfig;
class VEXMELKPPOffsetConfig;
class VEXMELKExtendedEyePointsConfig;
class VEXMELKOpticalPropsOfWSConfig;
class VEXMELKOpticalDistortionConfig;
class VEXMELKMultipleReflectionConfig;
class VEXMELKDirectViewConfig;
class VEXMELKDirectView3DConfig;
class VEXMELKWipersConfig;
class VEXMELKDBAccessConfig;
class VEXMELKReportGenConfig;

class ExportedByVEXMELKConfiguration VEXMELKConfigManager : public CATBaseUnknown
{
public:
    // The manager of the current application mode, created on first request; null in an unknown mode. A pending reload
    // request is carried out first: both managers of the calling thread go, with every configuration object they own.
    static VEXMELKConfigManager* GetConfigManager();
    // Releases both managers of the calling thread, with every configuration object they own. Those of other threads
    // stay.
    static void ReleaseConfigManager();

    // A copy has the pointers as they are, without references of its own. Managers are not meant to be copied.
    VEXMELKConfigManager(const VEXMELKConfigManager& other);
    VEXMELKConfigManager& operator=(const VEXMELKConfigManager& other);
    ~VEXMELKConfigManager() override;

    // The configuration directory of normal mode. False, with the output untouched, when it is not set; a message box
    // says so. True, with the output untouched, when there are no administration settings.
    unsigned char GetCFGDir(CATUnicodeString& directory);
    // The directory of test runs, empty when there is none.
    static CATUnicodeString GetTestPath();
    // Where the base-data database lies, and its user: the result of the administration settings, E_FAIL without them.
    static long GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user);
    // Whether numbers are written with a decimal comma; fixed when the manager was created.
    unsigned char CommaDelimiter() const;

    // Each returns the manager's one object of its class, created on first request; null when there is no memory.
    VEXMELKBaseDataConfig* GetBaseDataConfig();
    VEXMELKUFSlopeAngleConfig* GetUFSlopeAngleConfig();
    VEXMELKUFInnerAngleConfig* GetUFInnerAngleConfig();
    VEXMELKUFCurbConfig* GetUFCurbConfig();
    VEXMELKUFDynamicCurbConfig* GetUFDynamicCurbConfig();
    VEXMELKUFSpaceToRoadConfig* GetUFSpaceToRoadConfig();
    VEXMELKUFOilTubConfig* GetUFOilTubConfig();
    VEXMELKUFWheelFixingConfig* GetUFWheelFixingConfig();
    VEXMELKUFCompleteConfig* GetUFCompleteConfig();
    VEXMELKNumberPlatesConfig* GetNumberPlatesConfig();
    VEXMELKLampPositionsConfig* GetLampPositionsConfig();
    VEXMELKBumpersConfig* GetBumpersConfig();
    VEXMELKWheelCoveringConfig* GetWheelCoveringConfig();
    VEXMELKSeatingBeltsConfig* GetSeatingBeltsConfig();
    VEXMELKChildProtectionConfig* GetChildProtectionConfig();
    VEXMELKFreeSpaceConfig* GetFreeSpaceConfig();
    VEXMELKCrashBarriersConfig* GetCrashBarriersConfig();
    VEXMELKEyeEllipsesConfig* GetEyeEllipsesConfig();
    VEXMELKEyePointsConfig* GetEyePointsConfig();
    VEXMELKExtendedEyePointsConfig* GetExtendedEyePointsConfig();
    VEXMELKHeadContourConfig* GetHeadContourConfig();
    VEXMELKSRPLocationCurvesConfig* GetSRPLocationCurvesConfig();
    VEXMELKManikinTemplateConfig* GetManikinTemplateConfig();
    VEXMELKFieldsOfViewConfig* GetFieldsOfViewConfig();
    VEXMELKERFieldsOfViewConfig* GetERFieldsOfViewConfig();
    VEXMELKCRVConfig* GetCRVConfig();
    VEXMELKVisionPointsConfig* GetVisionPointsConfig();
    VEXMELKVisionConeConfig* GetVisionConeConfig();
    VEXMELKPyramidConfig* GetPyramidConfig();
    VEXMELKAPillarConfig* GetAPillarConfig();
    VEXMELKMirrorConfig* GetMirrorConfig();
    VEXMELKPedestrianProtectionConfig* GetPedestrianProtectionConfig();
    VEXMELKHeadImpactConfig* GetHeadImpactConfig();
    VEXMELKPPOffsetConfig* GetPPOffsetConfig();
    // Never created here, because its class is the base of two configurations: null unless a derived manager sets it.
    VEXMELKOpticalPropsOfWSConfig* GetOpticalPropsOfWSConfig();
    VEXMELKOpticalDistortionConfig* GetOpticalDistortionConfig();
    VEXMELKMultipleReflectionConfig* GetMultipleReflectionConfig();
    VEXMELKDirectViewConfig* GetDirectViewConfig();
    VEXMELKDirectView3DConfig* GetDirectView3DConfig();
    VEXMELKWipersConfig* GetWipersConfig();
    VEXMELKDBAccessConfig* GetDBAccessConfig();
    VEXMELKReportGenConfig* GetReportGenConfig();

    // A configuration as data.
    class Configuration
    {
    public:
        const VEXMELKDescription* description = nullptr;                // its file and operations
        std::array<std::string_view, 4> keys;                           // of GetConfig; empty ones are none
        VEXMELKConfig* (*get)(VEXMELKConfigManager& manager) = nullptr; // as the getter of its class
        // A new object over a directory, of no manager, with one reference, the caller's. Null for a class whose
        // creator gives it a file.
        VEXMELKConfig* (*create)(const CATUnicodeString& directory) = nullptr;

    private:
        friend class VEXMELKConfigManager;
        VEXMELKCheckConfig* (*m_GetCheck)(VEXMELKConfigManager& manager) = nullptr;
        void (*m_Release)(VEXMELKConfigManager& manager) = nullptr;
    };
    // All configurations, in a fixed order.
    static std::span<const Configuration> GetConfigurations();

    // The object that belongs to a check's key ("VEXMELKUFCurb"), in exactly that letter case; null for any other name.
    VEXMELKCheckConfig* GetConfig(const CATUnicodeString& name);

    // Whether numbers are written with a decimal comma by the manager of the current mode, whatever reload is pending,
    // so that a query never releases the object that is running it. No in an unknown mode.
    static bool WritesCommas();

private:
    class List;
    struct OfThread;
    VEXMELKConfigManager();
    static VEXMELKConfigManager* GetCurrentManager();
    static void ReleaseConfigManager(VEXMELKConfigManager* manager);
    // As the public ones; these throw when memory runs out or the host's settings fail.
    static unsigned char ReadCFGDir(CATUnicodeString& directory);
    static CATUnicodeString ReadTestPath();
    CATUnicodeString GetXMLFilePath();
    template <class Config> Config* Obtain(Config* VEXMELKConfigManager::*member);

    unsigned char m_CommaDelimiter;
    VEXMELKBaseDataConfig* m_BaseDataConfig = nullptr;
    VEXMELKUFSlopeAngleConfig* m_UFSlopeAngleConfig = nullptr;
    VEXMELKUFInnerAngleConfig* m_UFInnerAngleConfig = nullptr;
    VEXMELKUFCurbConfig* m_UFCurbConfig = nullptr;
    VEXMELKUFDynamicCurbConfig* m_UFDynamicCurbConfig = nullptr;
    VEXMELKUFSpaceToRoadConfig* m_UFSpaceToRoadConfig = nullptr;
    VEXMELKUFOilTubConfig* m_UFOilTubConfig = nullptr;
    VEXMELKUFWheelFixingConfig* m_UFWheelFixingConfig = nullptr;
    VEXMELKUFCompleteConfig* m_UFCompleteConfig = nullptr;
    VEXMELKNumberPlatesConfig* m_NumberPlatesConfig = nullptr;
    VEXMELKLampPositionsConfig* m_LampPositionsConfig = nullptr;
    VEXMELKBumpersConfig* m_BumpersConfig = nullptr;
    VEXMELKWheelCoveringConfig* m_WheelCoveringConfig = nullptr;
    VEXMELKSeatingBeltsConfig* m_SeatingBeltsConfig = nullptr;
    VEXMELKChildProtectionConfig* m_ChildProtectionConfig = nullptr;
    VEXMELKFreeSpaceConfig* m_FreeSpaceConfig = nullptr;
    VEXMELKCrashBarriersConfig* m_CrashBarriersConfig = nullptr;
    VEXMELKEyeEllipsesConfig* m_EyeEllipsesConfig = nullptr;
    VEXMELKEyePointsConfig* m_EyePointsConfig = nullptr;
    VEXMELKHeadContourConfig* m_HeadContourConfig = nullptr;
    VEXMELKSRPLocationCurvesConfig* m_SRPLocationCurvesConfig = nullptr;
    VEXMELKManikinTemplateConfig* m_ManikinTemplateConfig = nullptr;
    VEXMELKFieldsOfViewConfig* m_FieldsOfViewConfig = nullptr;
    VEXMELKERFieldsOfViewConfig* m_ERFieldsOfViewConfig = nullptr;
    VEXMELKCRVConfig* m_CRVConfig = nullptr;
    VEXMELKVisionPointsConfig* m_VisionPointsConfig = nullptr;
    VEXMELKVisionConeConfig* m_VisionConeConfig = nullptr;
    VEXMELKPyramidConfig* m_PyramidConfig = nullptr;
    VEXMELKAPillarConfig* m_APillarConfig = nullptr;
    VEXMELKMirrorConfig* m_MirrorConfig = nullptr;
    VEXMELKPedestrianProtectionConfig* m_PedestrianProtectionConfig = nullptr;
    VEXMELKHeadImpactConfig* m_HeadImpactConfig = nullptr;
    VEXMELKPPOffsetConfig* m_PPOffsetConfig = nullptr;
    VEXMELKExtendedEyePointsConfig* m_ExtendedEyePointsConfig = nullptr;
    VEXMELKOpticalPropsOfWSConfig* m_OpticalPropsOfWSConfig = nullptr;
    VEXMELKOpticalDistortionConfig* m_OpticalDistortionConfig = nullptr;
    VEXMELKMultipleReflectionConfig* m_MultipleReflectionConfig = nullptr;
    VEXMELKDirectViewConfig* m_DirectViewConfig = nullptr;
    VEXMELKDirectView3DConfig* m_DirectView3DConfig = nullptr;
    VEXMELKWipersConfig* m_WipersConfig = nullptr;
    VEXMELKDBAccessConfig* m_DBAccessConfig = nullptr;
    VEXMELKReportGenConfig* m_ReportGenConfig = nullptr;
    bool m_IsReleased = false; // it lives on only for an operation that is running
};

#endif
