// Vision, occupant packaging and reporting. Records first, then the configurations with their operations.

#include "Records.h"
#include "Registry.h"
#include "VEXMELKAPillarConfig.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKDBAccessConfig.h"
#include "VEXMELKDirectView3DConfig.h"
#include "VEXMELKDirectViewConfig.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKFieldsOfViewConfig.h"
#include "VEXMELKManikinTemplateConfig.h"
#include "VEXMELKMirrorConfig.h"
#include "VEXMELKMultipleReflectionConfig.h"
#include "VEXMELKOpticalDistortionConfig.h"
#include "VEXMELKOpticalPropsOfWSConfig.h"
#include "VEXMELKPyramidConfig.h"
#include "VEXMELKReportGenConfig.h"
#include "VEXMELKSRPLocationCurvesConfig.h"
#include "VEXMELKSeatingBeltsConfig.h"
#include "VEXMELKVisionConeConfig.h"
#include "VEXMELKVisionPointsConfig.h"
#include "VEXMELKWipersConfig.h"

template <> constexpr auto FieldsOf<VEXMELKAPillarConfigDefinition>()
{
    using R = VEXMELKAPillarConfigDefinition;
    return Fields<none, &R::top_angle, &R::bottom_angle, &R::driver_angle, &R::passenger_angle, &R::eye_triangle_side,
        &R::eye_triangle_base, &R::touch_line_angle>();
}

template <> constexpr auto FieldsOf<VEXMELKCRVConfigDefinition>()
{
    using R = VEXMELKCRVConfigDefinition;
    return Fields<none, &R::radius, &R::height, &R::visibleRayCount, &R::type, &R::front_offset,
        &R::driver_side_extension, &R::passenger_side_extension, &R::param1, &R::param2>();
}

template <> inline constexpr std::string_view unitOf<&VEXMELKDirectView3DCFG::ViewRange> = radians;
template <> inline constexpr std::string_view unitOf<&VEXMELKDirectView3DCFG::DirectionAngle> = radians;
template <> constexpr auto FieldsOf<VEXMELKDirectView3DCFG>()
{
    using R = VEXMELKDirectView3DCFG;
    return Fields<mm, &R::ComputationTypeText, &R::TargetTypeText, &R::DirectionText, &R::ComputationType,
        &R::TargetType, &R::ViewRange, &R::TargetDistance, &R::Orientation, &R::DirectionAngle>();
}

template <> constexpr auto FieldsOf<VEXMELKDirectViewCFG>()
{
    using R = VEXMELKDirectViewCFG;
    return Fields<none, &R::MaxTopAngle, &R::MaxBottomAngle, &R::MPAzimuth, &R::MPElevation, &R::Points, &R::PointNames,
        &R::PointReferences>();
}

template <> constexpr auto FieldsOf<VEXMELKERFOVSubtractArea>()
{
    using R = VEXMELKERFOVSubtractArea;
    return Fields<none, &R::bottom_angle, &R::A1_driver_angle, &R::A2_area_width, &R::driver_angle, &R::cut_out_width,
        &R::upper_area_default, &R::lower_area_default, &R::side_area_default, &R::extended_a_field_default,
        &R::present>();
}

template <> constexpr auto FieldsOf<VEXMELKERFOVField>()
{
    using R = VEXMELKERFOVField;
    return Fields<none, &R::top_angle, &R::bottom_angle, &R::driver_angle, &R::offset, &R::upper_area, &R::side_area,
        &R::lower_area, &R::extended_a_field, &R::present>();
}

template <> constexpr auto FieldsOf<VEXMELKERFieldsOfViewConfigDefinition>()
{
    using R = VEXMELKERFieldsOfViewConfigDefinition;
    return Fields<none, &R::fields>();
}

template <> constexpr auto FieldsOf<VEXMELKFOVInterval>()
{
    using R = VEXMELKFOVInterval;
    return Fields<none, &R::top_angle, &R::bottom_angle, &R::driver_angle, &R::passenger_angle, &R::present>();
}

template <> constexpr auto FieldsOf<VEXMELKFOVField>()
{
    using R = VEXMELKFOVField;
    return Fields<none, &R::offset, &R::intervals, &R::present>();
}

template <> constexpr auto FieldsOf<VEXMELKFieldsOfViewConfigDefinition>()
{
    using R = VEXMELKFieldsOfViewConfigDefinition;
    return Fields<none, &R::threshold1, &R::threshold2, &R::threshold3, &R::threshold4, &R::fields>();
}

template <> constexpr auto FieldsOf<VEXMELKManikinTemplateDefinition>()
{
    using R = VEXMELKManikinTemplateDefinition;
    return Fields<none, &R::torso_length_usage, &R::torso_length, &R::torso_angle_usage, &R::torso_angle,
        &R::seat_point_usage, &R::hip_angle_usage, &R::hip_angle, &R::rump_length_usage, &R::rump_length,
        &R::knee_angle_usage, &R::knee_angle, &R::leg_room_usage, &R::leg_room, &R::leg_length_usage, &R::leg_length,
        &R::foot_angle_usage, &R::foot_angle, &R::max_foot_angle, &R::min_foot_angle, &R::foot_length_usage,
        &R::foot_length, &R::foot_flesh_angle_usage, &R::foot_flesh_angle, &R::foot_hoffset_usage, &R::foot_hoffset,
        &R::foot_voffset_usage, &R::foot_voffset, &R::bof_point_usage, &R::ankle_point_usage, &R::lift_usage, &R::lift,
        &R::heel_point_usage, &R::pedal_usage, &R::floor_usage, &R::foot_on_floor, &R::interior_usage,
        &R::interior_interval>();
}

template <> constexpr auto FieldsOf<VEXMELKMirrorPointDefinition>()
{
    using R = VEXMELKMirrorPointDefinition;
    return Fields<none, &R::Coordinate1, &R::Coordinate1REL, &R::Y, &R::YREL, &R::R>();
}

template <> constexpr auto FieldsOf<VEXMELKMirrorDefinition>()
{
    using R = VEXMELKMirrorDefinition;
    return Fields<none, &R::USBackLineDistance, &R::USAngle, &R::infinite_size, &R::PositionType, &R::Plane, &R::X,
        &R::XREL, &R::Points, &R::ReqTotalCoverage>();
}

template <> constexpr auto FieldsOf<VEXMELKMultipleReflectionConfigDef>()
{
    using R = VEXMELKMultipleReflectionConfigDef;
    return Fields<none, &R::rayDirection>();
}

template <> constexpr auto FieldsOf<VEXMELKOpticalDistortionConfigDef>()
{
    using R = VEXMELKOpticalDistortionConfigDef;
    return Fields<none, &R::dcRadius, &R::dcDensity>();
}

template <> constexpr auto FieldsOf<VEXMELKOpticalPropsOfWSConfigDef>()
{
    using R = VEXMELKOpticalPropsOfWSConfigDef;
    return Fields<none, &R::gridOriginX, &R::gridOriginY, &R::gridOriginZ, &R::gridXSpace, &R::gridYSpace,
        &R::fromInside, &R::reqValue, &R::AreqValue, &R::BreqValue>();
}

template <> constexpr auto FieldsOf<VEXMELKPyramidConfigDefinition>()
{
    using R = VEXMELKPyramidConfigDefinition;
    return Fields<none, &R::front_angle, &R::driver_angle, &R::passenger_angle, &R::middle_plane_angle>();
}

template <> constexpr auto FieldsOf<VEXMELKSRPLocationCurveDefinition>()
{
    using R = VEXMELKSRPLocationCurveDefinition;
    return Fields<mm, &R::name, &R::a, &R::b, &R::c, &R::z_min, &R::z_max>();
}

template <> constexpr auto FieldsOf<VEXMELKSBTandardCfgDefinition>()
{
    using R = VEXMELKSBTandardCfgDefinition;
    return Fields<none, &R::EUApproach, &R::BackAngleEditAble, &R::Trans1IsSpecial, &R::Trans2IsSpecial,
        &R::Trans3IsSpecial, &R::USLowShiftThreshold, &R::USLowXShift, &R::USLowZShift, &R::PlaneDistP, &R::PlaneDistQ,
        &R::PlaneDistR>();
}

template <> constexpr auto FieldsOf<VEXMELKSBAnglesCfgDefinition>()
{
    using R = VEXMELKSBAnglesCfgDefinition;
    return Fields<none, &R::PA1, &R::PA2, &R::PA1X, &R::PA2X, &R::QA1, &R::QA2, &R::QA1X, &R::QA2X>();
}

template <> constexpr auto FieldsOf<VEXMELKSBShAnchorCfgDefinition>()
{
    using R = VEXMELKSBShAnchorCfgDefinition;
    return Fields<none, &R::SMin, &R::SMax, &R::ShL1a, &R::ShL2, &R::ShL3a, &R::ShL3b, &R::ShL4, &R::ShL1b, &R::ShThrA,
        &R::ShThrB, &R::ShA1, &R::ShA2, &R::ShA2RearAlt, &R::ShMulti1a, &R::ShMulti2a, &R::ShMulti1b, &R::ShMulti2b>();
}

template <> constexpr auto FieldsOf<VEXMELKVisionConeConfigDefinition>()
{
    using R = VEXMELKVisionConeConfigDefinition;
    return Fields<none, &R::cone_angle, &R::horizontal_axis_angle, &R::vertical_axis_angle, &R::cone_length>();
}

template <> constexpr auto FieldsOf<VEXMELKVisionPointsConfigDefinition>()
{
    using R = VEXMELKVisionPointsConfigDefinition;
    return Fields<none, &R::top_angle, &R::bottom_angle, &R::horizontal_angle>();
}

template <> constexpr auto FieldsOf<VEXMELKWipersDefinition>()
{
    using R = VEXMELKWipersDefinition;
    return Fields<none, &R::a_field, &R::b_field, &R::c_field>();
}

// NOLINTNEXTLINE(readability-function-size): one table
std::vector<Configuration> VisionConfigurations()
{
    using Manager = VEXMELKConfigManager;
    std::vector<Configuration> configurations = {
        Describe<&Manager::GetSeatingBeltsConfig>("SeatingBelts", {"VEXMELKSeatingBelts"}, "OVA\\SeatingBelts.xml",
            {
                Query(
                    "GetStandardData", "standard, category, >definition", &VEXMELKSeatingBeltsConfig::GetStandardData),
                Query("GetSBAnglesData", "standard, category, front, >definition",
                    &VEXMELKSeatingBeltsConfig::GetSBAnglesData),
                Query("GetSBShAnchorData", "standard, category, >definition",
                    &VEXMELKSeatingBeltsConfig::GetSBShAnchorData),
            }),
        Describe<&Manager::GetSRPLocationCurvesConfig>("SRPLocationCurves", {"VEXMELKSRPLocationCurves"},
            "Manikin\\SRPLocationCurves.xml",
            {
                Query(
                    "GetStandardData", "standard, category, >curves", &VEXMELKSRPLocationCurvesConfig::GetStandardData),
            }),
        Describe<&Manager::GetManikinTemplateConfig>("ManikinTemplate", {}, "Manikin\\ManikinTemplate.xml",
            {
                Query("GetRole", "text", &VEXMELKManikinTemplateConfig::GetRole),
                Query(
                    "GetPercentilList", "standard, category, >names", &VEXMELKManikinTemplateConfig::GetPercentilList),
                Query("GetPositioningList", "standard, category, >names",
                    &VEXMELKManikinTemplateConfig::GetPositioningList),
                Query("IsSeatSupported", "standard, category, positioning, seat",
                    &VEXMELKManikinTemplateConfig::IsSeatSupported),
                Query("GetStandardData", "standard, category, percentil, positioning, seat, >definition",
                    &VEXMELKManikinTemplateConfig::GetStandardData),
            }),
        Describe<&Manager::GetFieldsOfViewConfig>("FieldsOfView", {"VEXMELKFieldsOfView", "VEXMELKFieldOfView"},
            "Vision\\FieldsOfView.xml",
            {
                Query(
                    "GetStandardData", "standard, category, >definition", &VEXMELKFieldsOfViewConfig::GetStandardData),
            }),
        Describe<&Manager::GetERFieldsOfViewConfig>("ERFieldsOfView",
            {"VEXMELKERFieldsOfView", "VEXMELKERFieldOfView", "VEXMELKERAFieldOfView", "VEXMELKERBFieldOfView"},
            "Vision\\ERFieldsOfView.xml",
            {
                Query("GetStandardData", "standard, category, >definition",
                    &VEXMELKERFieldsOfViewConfig::GetStandardData),
            }),
        Describe<&Manager::GetCRVConfig>("CRV", {"VEXMELKCloseRangeVisibility"}, "Vision\\CloseRangeVisibility.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKCRVConfig::GetStandardData),
            }),
        Describe<&Manager::GetVisionPointsConfig>("VisionPoints", {"VEXMELKVisionPoints"}, "Vision\\VisionPoints.xml",
            {
                Query(
                    "GetStandardData", "standard, category, >definition", &VEXMELKVisionPointsConfig::GetStandardData),
            }),
        Describe<&Manager::GetVisionConeConfig>("VisionCone", {"VEXMELKVisionCone"}, "Vision\\VisionCone.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKVisionConeConfig::GetStandardData),
            }),
        Describe<&Manager::GetPyramidConfig>("Pyramid", {"VEXMELKPyramid"}, "Vision\\VisionPlanes.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKPyramidConfig::GetStandardData),
            }),
        Describe<&Manager::GetAPillarConfig>("APillar", {"VEXMELKPillarCovering"}, "Vision\\APillar.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKAPillarConfig::GetStandardData),
            }),
        Describe<&Manager::GetMirrorConfig>("Mirror", {"VEXMELKMirror"}, "Vision\\Mirror.xml",
            {
                Query("GetIFNamesList", "standard, category, >names", &VEXMELKMirrorConfig::GetIFNamesList),
                Query("GetPosition", "standard, category, position", &VEXMELKMirrorConfig::GetPosition),
                Query("GetStandardData", "standard, category, position, >definition",
                    &VEXMELKMirrorConfig::GetStandardData),
            }),
        Describe<&Manager::GetOpticalPropsOfWSConfig>("OpticalPropsOfWS", {}, "",
            {
                Query("GetStandardData", "standard, category, >definition",
                    &VEXMELKOpticalPropsOfWSConfig::GetStandardData),
            }),
        Describe<&Manager::GetOpticalDistortionConfig>("OpticalDistortion", {}, "Vision\\OpticalDistortion.xml",
            {
                Query("GetStandardData", "standard, category, >definition",
                    &VEXMELKOpticalDistortionConfig::GetStandardData),
            }),
        Describe<&Manager::GetMultipleReflectionConfig>("MultipleReflection", {}, "Vision\\MultipleReflection.xml",
            {
                Query("GetStandardData", "standard, category, >definition",
                    &VEXMELKMultipleReflectionConfig::GetStandardData),
            }),
        Describe<&Manager::GetDirectViewConfig>("DirectView", {"VEXMELKDirectView"}, "Vision\\DirectView.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKDirectViewConfig::GetStandardData),
            }),
        Describe<&Manager::GetDirectView3DConfig>("DirectView3D", {"VEXMELKDirectView3D"}, "Vision\\DirectView3D.xml",
            {
                Query(
                    "GetStandardData", "standard, category, >definition", &VEXMELKDirectView3DConfig::GetStandardData),
                Query("DirectionFromString", "text, >orientation", &VEXMELKDirectView3DConfig::DirectionFromString),
                Query("ComputationTypeFromString", "text", &VEXMELKDirectView3DConfig::ComputationTypeFromString),
                Query("TargetTypeFromString", "text", &VEXMELKDirectView3DConfig::TargetTypeFromString),
            }),
        Describe<&Manager::GetWipersConfig>("Wipers", {"VEXMELKWipers"}, "Toolbox\\Wipers.xml",
            {
                Query("GetStandardData", "standard, category, >definition", &VEXMELKWipersConfig::GetStandardData),
            }),
        Describe<&Manager::GetDBAccessConfig>("DBAccess", {}, "DBAccess.xml",
            {
                Query("GetDBAccessParameters", ">host, >user, >*password, >dbName",
                    &VEXMELKDBAccessConfig::GetDBAccessParameters),
            }),
        Describe<&Manager::GetReportGenConfig>("ReportGen", {}, "ReportTemplates.xml",
            {
                Query("GetTemplates", ">names", &VEXMELKReportGenConfig::GetTemplates),
                Query("GetTemplateHeaderData", "templateName, >text", &VEXMELKReportGenConfig::GetTemplateHeaderData),
                Query("GetTemplateFooterData", "templateName, >text", &VEXMELKReportGenConfig::GetTemplateFooterData),
                Query("GetTemplateFeatureData", "templateName, featureType, >text",
                    &VEXMELKReportGenConfig::GetTemplateFeatureData),
            }),
    };
    // The one whose file has no parts.
    const auto access = std::find_if(configurations.begin(), configurations.end(),
        [](const Configuration& configuration) { return configuration.name == "DBAccess"; });
    access->isSingle = true;
    return configurations;
}
