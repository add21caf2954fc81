// Exterior and safety. Records first, then the configurations with their operations.

#include "Records.h"
#include "Registry.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKChildProtectionConfig.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKFreeSpaceConfig.h"
#include "VEXMELKHeadImpactConfig.h"
#include "VEXMELKLampPositionsConfig.h"
#include "VEXMELKNumberPlatesConfig.h"
#include "VEXMELKPPOffsetConfig.h"
#include "VEXMELKPedestrianProtectionConfig.h"
#include "VEXMELKWheelCoveringConfig.h"

template <> constexpr auto FieldsOf<VEXMELKBumpersDefinition>()
{
    using R = VEXMELKBumpersDefinition;
    return Fields<none, &R::NoseRadius, &R::SideRadius, &R::NoseAngle, &R::SideAngle, &R::NoseHeight, &R::NoseLength,
        &R::Width, &R::Height, &R::Extension, &R::Depth, &R::FilletRadius, &R::RenderHeight, &R::RenderDepth,
        &R::RenderDistance, &R::CenterLineLength, &R::loading, &R::Position, &R::Limit, &R::Offset, &R::Angle>();
}

template <> constexpr auto FieldsOf<VEXMELKChildProtectionDefinition>()
{
    using R = VEXMELKChildProtectionDefinition;
    return Fields<none, &R::CPShDist, &R::CPShRadius, &R::CPBackDist, &R::CPTopAngle, &R::CPShCShift,
        &R::CPVolVertAngle, &R::CPVolHorizAngle, &R::CPVolHorizOffset, &R::CPAustralianNormOffset, &R::CPUseCShift,
        &R::CPAustralianNorm>();
}

template <> constexpr auto FieldsOf<VEXMELKBarrierDefinition>()
{
    using R = VEXMELKBarrierDefinition;
    return Fields<fraction, &R::AllowMovingAroundX, &R::DeltaZLeft, &R::DeltaZRight, &R::shape, &R::ReferencePart,
        &R::loading, &R::Position, &R::Overlapping, &R::Rotation, &R::midPosition, &R::OverlappingSide,
        &R::PositionToGeometry, &R::EnableAdditionalShift, &R::AdditionalShift, &R::HeightAboveRoad>();
}

template <> constexpr auto FieldsOf<VEXMELKShapeDefinition>()
{
    using R = VEXMELKShapeDefinition;
    return Fields<none, &R::type, &R::MinRelWidth, &R::MinWidth, &R::Width, &R::Depth, &R::Height, &R::Radius,
        &R::HeightAboveRoad, &R::Radius2, &R::BaseRadius, &R::BaseDepth, &R::BaseHeight, &R::BaseFPDepth,
        &R::BaseFPMainRadius, &R::BaseFPSideRadius, &R::TriangleHeight, &R::TriangleToFP, &R::TriangleSideDepth,
        &R::ReferencePart, &R::Alpha>();
}

template <> constexpr auto FieldsOf<VEXMELKFreeSpaceDefinition>()
{
    using R = VEXMELKFreeSpaceDefinition;
    return Fields<none, &R::FSFrontAngle, &R::FSMidAngle, &R::FSBackAngle, &R::FSSideAngle, &R::FSNoseLength,
        &R::FSHoleDistance, &R::FSHoleHight, &R::FSHoleLength, &R::FSBottomHight, &R::FSNoseHight, &R::FSBodyHight,
        &R::FSMidLength, &R::FSNoseWidth, &R::FSBodyWidth>();
}

template <> constexpr auto FieldsOf<VEXMELKHeadGravityCenterDefinition>()
{
    using R = VEXMELKHeadGravityCenterDefinition;
    return Fields<none, &R::CG_FX_Offset, &R::CG_FZ_Offset, &R::CG_RX_Offset, &R::CG_RZ_Offset>();
}

template <> constexpr auto FieldsOf<VEXMELKUpperRoofDefinition>()
{
    using R = VEXMELKUpperRoofDefinition;
    return Fields<none, &R::RoofSectionOffset, &R::ActiveRoofRatio, &R::MinVAngle, &R::MaxVAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKAPillarDefinition>()
{
    using R = VEXMELKAPillarDefinition;
    return Fields<fraction, &R::PT1_Offset, &R::PT2_Offset, &R::AP2_Offset, &R::MinVAngle, &R::MaxVAngle,
        &R::MinHLeftAngle, &R::MaxHLeftAngle, &R::MinHRightAngle, &R::MaxHRightAngle, &R::MeasurementMethod,
        &R::MaxMeasurementDeviation>();
}

template <> constexpr auto FieldsOf<VEXMELKBPillarDefinition>()
{
    using R = VEXMELKBPillarDefinition;
    return Fields<none, &R::MinHLeftAngle, &R::MaxHLeftAngle, &R::MinHRightAngle, &R::MaxHRightAngle, &R::MinVAngle,
        &R::MaxVAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKRearmostPillarDefinition>()
{
    using R = VEXMELKRearmostPillarDefinition;
    return Fields<none, &R::RP2_Offset, &R::RP1_Ratio, &R::MinVAngle, &R::MaxVAngle, &R::MinHLeftAngle,
        &R::MaxHLeftAngle, &R::MinHRightAngle, &R::MaxHRightAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKOtherPillarDefinition>()
{
    using R = VEXMELKOtherPillarDefinition;
    return Fields<none, &R::HLeftAngle, &R::HRightAngle, &R::MinVAngle, &R::MaxVAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKFrontHeaderDefinition>()
{
    using R = VEXMELKFrontHeaderDefinition;
    return Fields<none, &R::FH1_Offset, &R::FH2_Offset, &R::MinVAngle, &R::MaxVAngle, &R::HAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKRearHeaderDefinition>()
{
    using R = VEXMELKRearHeaderDefinition;
    return Fields<none, &R::RH_Offset, &R::MinVAngle, &R::MaxVAngle, &R::HAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKSideRailDefinition>()
{
    using R = VEXMELKSideRailDefinition;
    return Fields<none, &R::SR1_Offset, &R::SR2_Offset, &R::SR3_Offset, &R::HLeftAngle, &R::HRightAngle, &R::MinVAngle,
        &R::MaxVAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKSlidingDoorTrackDefinition>()
{
    using R = VEXMELKSlidingDoorTrackDefinition;
    return Fields<none, &R::HLeftAngle, &R::HRightAngle, &R::MinVAngle, &R::MaxVAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKRollBarDefinition>()
{
    using R = VEXMELKRollBarDefinition;
    return Fields<none, &R::HAngle, &R::MinVAngle, &R::MaxVAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKStiffenerBraceDefinition>()
{
    using R = VEXMELKStiffenerBraceDefinition;
    return Fields<none, &R::HLeftAngle, &R::HRightAngle, &R::MinVAngle, &R::MaxVAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKHeadImpactDefinition>()
{
    using R = VEXMELKHeadImpactDefinition;
    return Fields<none, &R::HeadGravityCenter, &R::UpperRoof, &R::APillar, &R::BPillar, &R::RearmostPillar,
        &R::OtherPillar, &R::FrontHeader, &R::RearHeader, &R::SideRail, &R::SlidingDoorTrack, &R::RollBar,
        &R::StiffenerBrace>();
}

template <> constexpr auto FieldsOf<VEXMELKLampPositionsDefinition>()
{
    using R = VEXMELKLampPositionsDefinition;
    return Fields<none, &R::Abbr, &R::Descr, &R::IsFront, &R::IsBack, &R::IsSide, &R::MinVerticalSpace,
        &R::MaxVerticalSpace, &R::MinInnerSpace, &R::MinInnerSpace2, &R::MaxOuterSpace, &R::MaxOuterSpace2,
        &R::MaxFrontSpace, &R::MaxFrontSpace2, &R::MaxBackSpace, &R::MaxBackSpace2, &R::LampColor, &R::LampVisibility,
        &R::WidthThreshold, &R::LengthThreshold>();
}

template <> constexpr auto FieldsOf<VEXMELKNumberPlatesDefinition>()
{
    using R = VEXMELKNumberPlatesDefinition;
    return Fields<none, &R::FrontLowerLimit, &R::BackLowerLimit, &R::FrontUpperLimit, &R::BackUpperLimit,
        &R::FrontRightLimit, &R::FrontLeftLimit, &R::BackRightLimit, &R::BackLeftLimit>();
}

template <> constexpr auto FieldsOf<VEXPPOffsetCurveDefinition>()
{
    using R = VEXPPOffsetCurveDefinition;
    return Fields<metres, &R::type, &R::inner_offset, &R::outer_offset>();
}

template <> constexpr auto FieldsOf<VEXPPOffsetOuterRegionDefinition>()
{
    using R = VEXPPOffsetOuterRegionDefinition;
    return Fields<metres, &R::measurement_type, &R::param_x>();
}

template <> constexpr auto FieldsOf<VEXMELKPPOffsetDefinition>()
{
    using R = VEXMELKPPOffsetDefinition;
    return Fields<metres, &R::calculation_type, &R::ref_part, &R::definition_type, &R::profile_type, &R::x_step,
        &R::y_step, &R::curves, &R::outerRegion, &R::offset>();
}

template <> constexpr auto FieldsOf<TraceCurveDefinition>()
{
    using R = TraceCurveDefinition;
    return Fields<none, &R::angle, &R::length, &R::offset, &R::radiusLower, &R::radiusUpper, &R::threshold, &R::defined,
        &R::use_lower_end, &R::use_upper_end, &R::use_left, &R::use_right, &R::tangent_selection, &R::curve_offset_type,
        &R::curve_offset, &R::warning, &R::alternative_angle>();
}

template <> constexpr auto FieldsOf<PPBonnetTopBoundary>()
{
    using R = PPBonnetTopBoundary;
    return Fields<none, &R::limit, &R::limit2, &R::offset, &R::offset_type, &R::checkDist>();
}

template <> constexpr auto FieldsOf<PPBonnetTopDefinition>()
{
    using R = PPBonnetTopDefinition;
    return Fields<none, &R::name, &R::side, &R::front, &R::rear, &R::splitM, &R::splitN, &R::detail>();
}

template <> constexpr auto FieldsOf<PPBonnetRearTemplateDefinition>()
{
    using R = PPBonnetRearTemplateDefinition;
    return Fields<none, &R::startradius, &R::step>();
}

template <> constexpr auto FieldsOf<PedestrianProtectionDefinition>()
{
    using R = PedestrianProtectionDefinition;
    return Fields<none, &R::upperBumper, &R::lowerBumper, &R::cornerOfBumper, &R::bonnetLeadingEdge, &R::bonnetSide,
        &R::wrapAround1, &R::wrapAround2, &R::wrapAround3, &R::bonnetRear, &R::bonnetTop1, &R::bonnetTop2,
        &R::bonnetRearTemplate, &R::wrapAroundUseWindshield, &R::cuttingStep>();
}

template <> constexpr auto FieldsOf<VEXMELKWheelCoveringDefinition>()
{
    using R = VEXMELKWheelCoveringDefinition;
    return Fields<none, &R::FrontAlpha, &R::FrontBeta, &R::BackAlpha, &R::BackBeta, &R::BottomOffset,
        &R::TriangleHeight, &R::LineHeight, &R::HasSpecialBack, &R::AlgorithmType, &R::Tolerance>();
}

std::vector<Configuration> SafetyConfigurations()
{
    using Manager = VEXMELKConfigManager;
    return {
        Describe<&Manager::GetNumberPlatesConfig>("NumberPlates", {"VEXMELKNumberPlates"}, "OVA\\NumberPlates.xml",
            {
                Query(
                    "GetStandardData", "standard, category, >definition", &VEXMELKNumberPlatesConfig::GetStandardData),
            }),
        Describe<&Manager::GetLampPositionsConfig>("LampPositions", {"VEXMELKLampPositions"}, "OVA\\LampPositions.xml",
            {
                Query("GetStandardData", "standard, category, >lamps", &VEXMELKLampPositionsConfig::GetStandardData),
                Query("GetStatusOfLimits", "standard, category", &VEXMELKLampPositionsConfig::GetStatusOfLimits),
            }),
        Describe<&Manager::GetBumpersConfig>("Bumpers", {"VEXMELKBumpers"}, "OVA\\Bumpers.xml",
            {
                Query("GetStandardData", "standard, category, type, >bumpers", &VEXMELKBumpersConfig::GetStandardData),
            }),
        Describe<&Manager::GetWheelCoveringConfig>("WheelCovering", {"VEXMELKWheelCovering"}, "OVA\\WheelCovering.xml",
            {
                Query(
                    "GetStandardData", "standard, category, >definition", &VEXMELKWheelCoveringConfig::GetStandardData),
            }),
        Describe<&Manager::GetChildProtectionConfig>("ChildProtection", {"VEXMELKChildProtection"},
            "OVA\\ChildProtection.xml",
            {
                Query("GetStandardData", "standard, category, >definition",
                    &VEXMELKChildProtectionConfig::GetStandardData),
            }),
        Describe<&Manager::GetFreeSpaceConfig>("FreeSpace", {"VEXMELKFreeSpace"}, "OVA\\FreeSpace.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKFreeSpaceConfig::GetStandardData),
            }),
        Describe<&Manager::GetCrashBarriersConfig>("CrashBarriers", {}, "OVA\\CrashBarriers.xml",
            {
                Query("GetStandardData", "standard, category, >barriers", &VEXMELKCrashBarriersConfig::GetStandardData),
                Query("GetShapeData", ">shape", &VEXMELKCrashBarriersConfig::GetShapeData),
            }),
        Describe<&Manager::GetPedestrianProtectionConfig>("PedestrianProtection", {},
            "Safety\\PedestrianProtection.xml",
            {
                Query("GetStandardData", "standard, category, >definition",
                    &VEXMELKPedestrianProtectionConfig::GetStandardData),
            }),
        Describe<&Manager::GetHeadImpactConfig>("HeadImpact", {"VEXMELKHeadImpact"}, "Safety\\HeadImpact.xml",
            {
                Query("GetHeadGravityCenterSData", "standard, >definition",
                    &VEXMELKHeadImpactConfig::GetHeadGravityCenterSData),
                Query("GetUpperRoofSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetUpperRoofSData),
                Query("GetAPillarSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetAPillarSData),
                Query("GetBPillarSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetBPillarSData),
                Query("GetRearmostPillarSData", "standard, >definition",
                    &VEXMELKHeadImpactConfig::GetRearmostPillarSData),
                Query("GetOtherPillarSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetOtherPillarSData),
                Query("GetFrontHeaderSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetFrontHeaderSData),
                Query("GetRearHeaderSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetRearHeaderSData),
                Query("GetSideRailSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetSideRailSData),
                Query("GetSlidingDoorTrackSData", "standard, >definition",
                    &VEXMELKHeadImpactConfig::GetSlidingDoorTrackSData),
                Query("GetRollBarSData", "standard, >definition", &VEXMELKHeadImpactConfig::GetRollBarSData),
                Query("GetStiffenerBraceSData", "standard, >definition",
                    &VEXMELKHeadImpactConfig::GetStiffenerBraceSData),
                Query("GetStandardData", "standard, >definition", &VEXMELKHeadImpactConfig::GetStandardData),
                Query("GetStandardNames", ">names", &VEXMELKHeadImpactConfig::GetStandardNames),
            }),
        Describe<&Manager::GetPPOffsetConfig>("PPOffset", {}, "Safety\\PedestrianProtectionOffset.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKPPOffsetConfig::GetStandardData),
            }),
    };
}
