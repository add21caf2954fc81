// The main query of every configuration that can be reached, over the sample configuration, beside the same look-up by
// hand over pugixml. Before anything is timed, the two answers are compared, text by text and number by number.
#include "Bench.h"
#include "ByHand.h"
#include "Registry.h"
#include "Trees.h"

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
#include "VEXMELKHeadContourConfig.h"
#include "VEXMELKHeadImpactConfig.h"
#include "VEXMELKLampPositionsConfig.h"
#include "VEXMELKManikinTemplateConfig.h"
#include "VEXMELKMirrorConfig.h"
#include "VEXMELKMultipleReflectionConfig.h"
#include "VEXMELKNumberPlatesConfig.h"
#include "VEXMELKOpticalDistortionConfig.h"
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

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <set>

namespace {

using Ask = std::function<int()>;

struct Case
{
    std::string configuration;
    std::string operation;
    Ask library;
    Json arguments; // the same question for the registry of operations
    Plan plan;
};

Json ToJson(const CATUnicodeString& text) { return text.ConvertToChar(); }
template <class Value> Json ToJson(Value value) { return value; }

// Two records gather more with every query, unless their caller empties them.
template <class Value> void Empty(Value& /*value*/) {}
void Empty(VEXMELKMirrorDefinition& mirror) { mirror.Points.reset(); }
void Empty(VEXMELKDirectViewCFG& view)
{
    view.PointNames.RemoveAll();
    view.PointReferences.RemoveAll();
}

// A query that is asked again and again, with outputs that stay.
template <auto Getter, class Config, class Result, class... Arguments, class... Inputs>
Case Main(const char* operation, Result (Config::*query)(Arguments...), Plan plan, const Inputs&... inputs)
{
    using Values = std::tuple<std::remove_cvref_t<Arguments>...>;
    const auto values = std::make_shared<Values>();
    const auto given = std::make_tuple(inputs...);
    using Owner = std::remove_pointer_t<decltype((std::declval<VEXMELKConfigManager&>().*Getter)())>;
    Case main{std::string(Owner::description.name), operation, {}, Json::object(), std::move(plan)};
    const auto& parameters = FindConfiguration(main.configuration).FindOperation(operation).Parameters();
    const auto set = [&]<std::size_t... Index>(std::index_sequence<Index...>)
    {
        ((std::get<Index>(*values) = std::tuple_element_t<Index, Values>(std::get<Index>(given))), ...);
        ((main.arguments[parameters[Index].name] = ToJson(std::get<Index>(*values))), ...);
    };
    set(std::index_sequence_for<Inputs...>());
    main.library = [query, values]
    {
        Config* config = (VEXMELKConfigManager::GetConfigManager()->*Getter)();
        return std::apply(
            [&](auto&... value)
            {
                (Empty(value), ...);
                return static_cast<int>((config->*query)(value...));
            },
            *values);
    };
    return main;
}

Elements All(std::string tag, const std::string& attributes, std::vector<Elements> inner = {})
{
    return {std::move(tag), Attributes(attributes), Which::All, "", "", 0.0, std::move(inner)};
}

Elements First(std::string tag, const std::string& attributes, std::vector<Elements> inner = {})
{
    return {std::move(tag), Attributes(attributes), Which::First, "", "", 0.0, std::move(inner)};
}

Elements Keyed(
    std::string tag, std::string attribute, std::string key, const std::string& attributes, std::vector<Elements> inner)
{
    return {std::move(tag), Attributes(attributes), Which::First, std::move(attribute), std::move(key), 0.0,
        std::move(inner)};
}

Elements Over(Elements elements)
{
    elements.intoLast = true;
    return elements;
}

constexpr const char* sample = "EU Passenger Car";
constexpr const char* asked = "suv";

template <auto Getter, class Query>
Case Table(const char* file, const char* attributes, Query query, const char* category = asked)
{
    return Main<Getter>(
        "GetStandardData", query, {file, sample, category, Attributes(attributes), {}}, sample, category);
}

Plan BumpersPlan()
{
    Elements bumper = All("bumper", "loading Limit:mm Position:code Offset:mm Angle:deg=30.0deg");
    bumper.reference = "Profile";
    bumper.referencedTag = "Profile";
    bumper.referencedWanted =
        Attributes("NoseRadius:mm SideRadius:mm NoseAngle:deg SideAngle:deg NoseHeight:mm NoseLength:mm Width:mm "
                   "Height:mm Extension:mm Depth:mm FilletRadius:mm RenderDepth:mm RenderHeight:mm RenderDistance:mm "
                   "CenterLineLength:mm");
    return {"OVA/Bumpers.xml", sample, asked, {}, {First("MiddlePendulum", "", {bumper})}, Plan::WholeCategory};
}

Plan PedestrianPlan()
{
    Plan plan{"Safety/PedestrianProtection.xml", sample, asked,
        Attributes("CuttingStep:mm WrapAroundUseWindshield:flag"), {}, Plan::ElementByElement};
    for (const char* type : {"UpperBumper", "LowerBumper", "CornerOfBumper", "BonnetLeadingEdge", "BonnetSide",
             "WrapAround1", "WrapAround2", "WrapAround3", "BonnetRear"})
        plan.elements.push_back(Keyed("curve", "type", type,
            "angle:deg length:mm offset:mm=0.0mm radiusLower:mm radiusUpper:mm threshold:mm tangent_selection=lowest "
            "use_upper_end:flag use_lower_end:flag use_left:flag use_right:flag curve_offset_type=WrapAround "
            "curve_offset:mm=0.0mm warning:flag alternative_angle:deg=40.0deg",
            {}));
    for (const char* area : {"bonnetTop1", "bonnetTop2"})
        plan.elements.push_back(First(area, "name detail:flag splitM:num splitN:num",
            {First("side", "limit offset:mm offset_type"),
                First("front", "limit checkDist:mm limit2 offset:mm offset_type"),
                First("rear", "limit offset:mm offset_type")}));
    plan.elements.push_back(First("bonnetRearTemplate", "startradius step"));
    return plan;
}

Plan HeadImpactPlan()
{
    Plan plan{"Safety/HeadImpact.xml", "US Passenger Car", "", {}, {}};
    plan.elements = {
        First("HeadGravityCenter", "CG_FX_Offset:mm CG_FZ_Offset:mm CG_RX_Offset:mm CG_RZ_Offset:mm"),
        First("UpperRoof", "RoofSectionOffset:mm ActiveRoofRatio MinVAngle:deg MaxVAngle:deg"),
        First("APillar",
            "AP2_Offset:mm PT1_Offset:mm PT2_Offset:mm MaxHLeftAngle:deg MaxHRightAngle:deg MaxVAngle:deg "
            "MinHLeftAngle:deg MinHRightAngle:deg MinVAngle:deg MeasurementMethod:code MaxMeasurementDeviation:code"),
        First("BPillar", "MinHLeftAngle:deg MaxHLeftAngle:deg MinHRightAngle:deg MaxHRightAngle:deg MinVAngle:deg "
                         "MaxVAngle:deg"),
        First("RearmostPillar", "RP2_Offset:mm RP1_Ratio MinVAngle:deg MaxVAngle:deg MinHLeftAngle:deg "
                                "MaxHLeftAngle:deg MinHRightAngle:deg MaxHRightAngle:deg"),
        First("OtherPillar", "HLeftAngle:deg HRightAngle:deg MinVAngle:deg MaxVAngle:deg"),
        First("FrontHeader", "FH1_Offset:mm FH2_Offset:mm MinVAngle:deg MaxVAngle:deg HAngle:deg"),
        First("RearHeader", "RH_Offset:mm MinVAngle:deg MaxVAngle:deg HAngle:deg"),
        First("SideRail", "SR1_Offset:mm SR2_Offset:mm SR3_Offset:mm HLeftAngle:deg HRightAngle:deg MinVAngle:deg "
                          "MaxVAngle:deg"),
        First("SlidingDoorTrack", "HLeftAngle:deg HRightAngle:deg MinVAngle:deg MaxVAngle:deg"),
        First("RollBar", "HAngle:deg MinVAngle:deg MaxVAngle:deg"),
        First("StiffenerBrace", "HLeftAngle:deg HRightAngle:deg MinVAngle:deg MaxVAngle:deg"),
    };
    return plan;
}

Plan ManikinPlan()
{
    const std::string rows = "torso_length:mm torso_angle:deg seat_point:code hip_angle:deg rump_length:mm "
                             "knee_angle:deg leg_room:mm leg_length:mm foot_angle:deg max_foot_angle:deg "
                             "min_foot_angle:deg foot_length:mm foot_flesh_angle:deg foot_hoffset:mm foot_voffset:mm "
                             "bof_point:code ankle_point:code lift:mm heel_point:code pedal:code floor:code "
                             "interior:code interior_interval:mm foot_on_floor:flag";
    const Elements seat = Over(First("driver_seat", rows));
    return {"Manikin/ManikinTemplate.xml", "Two-dimensional Template", asked, {},
        {Keyed("percentil", "value", "95", rows, {seat}),
            Over(Keyed("positioning", "name", "heel point", rows, {seat}))},
        Plan::WholeCategory};
}

std::vector<Case> UnderfloorCases()
{
    using M = VEXMELKConfigManager;
    return {
        Table<&M::GetUFSlopeAngleConfig>(
            "OVA/UFSlopeAngle.xml", "front_angle:deg back_angle:deg", &VEXMELKUFSlopeAngleConfig::GetStandardData),
        Table<&M::GetUFInnerAngleConfig>(
            "OVA/UFInnerAngle.xml", "inner_angle:deg calculation", &VEXMELKUFInnerAngleConfig::GetStandardData),
        Table<&M::GetUFCurbConfig>("OVA/UFCurb.xml", "front_offset:mm front_angle:deg back_angle:deg back_offset:mm",
            &VEXMELKUFCurbConfig::GetStandardData),
        Table<&M::GetUFDynamicCurbConfig>("OVA/UFDynamicCurb.xml",
            "out_offset:mm in_offset:mm in_length:mm calculation", &VEXMELKUFDynamicCurbConfig::GetStandardData),
        Table<&M::GetUFSpaceToRoadConfig>("OVA/UFSpaceToRoad.xml",
            "offset:mm WholeLength:flag CalcUnderAxis:flag OffsetUnderAxes:mm CircUnderAxis:flag extension:mm "
            "WheelRadius:flag GeneralSurface:flag",
            &VEXMELKUFSpaceToRoadConfig::GetStandardData),
        Table<&M::GetUFOilTubConfig>("OVA/UFOilTub.xml", "out_offset:mm out_angle:deg in_offset:mm in_angle:deg",
            &VEXMELKUFOilTubConfig::GetStandardData),
        Table<&M::GetUFWheelFixingConfig>(
            "OVA/UFWheelFixing.xml", "radius:mm offset:mm", &VEXMELKUFWheelFixingConfig::GetStandardData),
        Table<&M::GetUFCompleteConfig>("OVA/UFComplete.xml",
            "Curb DynCurb InnerAngle OilTub SlopeAngle SpaceToRoad WheelFixing",
            &VEXMELKUFCompleteConfig::GetStandardData),
    };
}

std::vector<Case> OccupantCases()
{
    using M = VEXMELKConfigManager;
    const std::string offsets = "dx:millimetres dy:millimetres dz:millimetres";
    const std::string bounds = "min:millimetres max:millimetres";
    Elements radii2002{"radii", Attributes("radiusX_95:millimetres radiusY_95:millimetres radiusZ_95:millimetres"),
        Which::FirstNotAbove, "h_point_travel", "", 110.0};
    Elements radiiRow{"h_point_travel", Attributes("x_radius:millimetres y_radius:millimetres z_radius:millimetres"),
        Which::LastBelow, "value", "", 110.0};
    return {
        Main<&M::GetBaseDataConfig>("GetSeatDataForBaseDataCategory",
            &VEXMELKBaseDataConfig::GetSeatDataForBaseDataCategory,
            {"OVA/BaseData.xml", "default", "", {},
                {All("seat",
                    "name IsFront:flag BackAngle:deg HPointTravel:mm RefPointX:mm RefPointY:mm RefPointZ:mm "
                    "HeelRPX:mm HeelRPY:mm HeelRPZ:mm PedalRPX:mm PedalRPY:mm PedalRPZ:mm SteerRPX:mm SteerRPY:mm "
                    "SteerRPZ:mm")},
                Plan::WholeCategory, "category"},
            "default"),
        Main<&M::GetEyeEllipsesConfig>("GetRadii2002", &VEXMELKEyeEllipsesConfig::GetRadii2002,
            {"Manikin/EyeEllipses.xml", "Eye Ellipses 2002", "", {}, {First("coeficients2002", "", {radii2002})}},
            "Eye Ellipses 2002", 110.0, 95),
        Main<&M::GetEyePointsConfig>("GetEyePoints", &VEXMELKEyePointsConfig::GetEyePoints,
            {"Manikin/EyePoints.xml", "V and P Points", asked, {}, {All("point", "name dx:mm dy:mm dz:mm")},
                Plan::WholeCategory},
            "V and P Points", asked),
        Main<&M::GetExtendedEyePointsConfig>("GetExtendedEyePointMovements",
            &VEXMELKExtendedEyePointsConfig::GetExtendedEyePointMovements,
            {"Manikin/ExtendedEyePoints.xml", "In-house Extended Eyes", asked, {},
                {First("movements", "type"),
                    First("standard_movements", "used_eye_position:code",
                        {First("ext_up", offsets), First("ext_front", offsets), First("ext_side", offsets)}),
                    First("free_movements", "",
                        {First("down_up", bounds), First("left_right", bounds), First("forward_backward", bounds)})},
                Plan::ElementByElement},
            "In-house Extended Eyes", asked),
        Main<&M::GetHeadContourConfig>("GetRadii", &VEXMELKHeadContourConfig::GetRadii,
            {"Manikin/HeadContour.xml", "Head Contour 2002", asked, {},
                {First("radii", "", {Keyed("cutoff", "value", "95", "", {radiiRow})})}, Plan::WholeCategory},
            "Head Contour 2002", asked, 110.0, 95),
        Main<&M::GetSRPLocationCurvesConfig>("GetStandardData", &VEXMELKSRPLocationCurvesConfig::GetStandardData,
            {"Manikin/SRPLocationCurves.xml", "Seat Location", asked, {},
                {All("curve", "name a:millimetres b:millimetres c:millimetres z_max:millimetres z_min:millimetres")},
                Plan::WholeCategory},
            "Seat Location", asked),
        Main<&M::GetManikinTemplateConfig>("GetStandardData", &VEXMELKManikinTemplateConfig::GetStandardData,
            ManikinPlan(), "Two-dimensional Template", asked, "95", "heel point", MTDriverSeat),
    };
}

std::vector<Case> VisionCases()
{
    using M = VEXMELKConfigManager;
    return {
        Table<&M::GetSeatingBeltsConfig>("OVA/SeatingBelts.xml",
            "EUApproach:flag BackAngleEditAble:flag Trans1IsSpecial:flag Trans2IsSpecial:flag Trans3IsSpecial:flag "
            "USLowShiftThreshold:mm USLowXShift:mm USLowZShift:mm PlaneDistP:mm PlaneDistQ:mm PlaneDistR:mm",
            &VEXMELKSeatingBeltsConfig::GetStandardData, "van"),
        Main<&M::GetFieldsOfViewConfig>("GetStandardData", &VEXMELKFieldsOfViewConfig::GetStandardData,
            {"Vision/FieldsOfView.xml", sample, asked,
                Attributes("threshold1:mm threshold2:mm threshold3:mm threshold4:mm"),
                {All("field", "type:code offset:mm",
                    {All("interval",
                        "index:code top_angle:deg bottom_angle:deg driver_angle:deg passenger_angle:deg")})},
                Plan::Overlay},
            sample, asked),
        Main<&M::GetERFieldsOfViewConfig>("GetStandardData", &VEXMELKERFieldsOfViewConfig::GetStandardData,
            {"Vision/ERFieldsOfView.xml", sample, asked, {},
                {All("field", "type:code top_angle:deg bottom_angle:deg driver_angle:deg offset:mm=0mm",
                    {All("subtract", "type:code upper_area_default side_area_default lower_area_default "
                                     "extended_a_field_default bottom_angle:deg A1_driver_angle:deg A2_area_width:mm "
                                     "driver_angle:deg cut_out_width:mm")})},
                Plan::Overlay},
            sample, asked),
        Main<&M::GetCRVConfig>("GetStandardData", &VEXMELKCRVConfig::GetStandardData,
            {"Vision/CloseRangeVisibility.xml", sample, asked, {},
                {First("cylinder", "radius height visibleRayCount"),
                    First("area", "type front_offset:mm driver_side_extension:mm passenger_side_extension:mm"),
                    First("death_zone", "param1 param2")},
                Plan::ElementByElement},
            sample, asked),
        Table<&M::GetVisionPointsConfig>("Vision/VisionPoints.xml",
            "top_angle:deg bottom_angle:deg horizontal_angle:deg", &VEXMELKVisionPointsConfig::GetStandardData, "van"),
        Table<&M::GetVisionConeConfig>("Vision/VisionCone.xml",
            "cone_angle:deg horizontal_axis_angle:deg vertical_axis_angle:deg cone_length:mm",
            &VEXMELKVisionConeConfig::GetStandardData, "van"),
        Table<&M::GetPyramidConfig>("Vision/VisionPlanes.xml",
            "front_angle:deg driver_angle:deg passenger_angle:deg middle_plane_angle:deg",
            &VEXMELKPyramidConfig::GetStandardData, "van"),
        Table<&M::GetAPillarConfig>("Vision/APillar.xml",
            "top_angle:deg bottom_angle:deg driver_angle:deg passenger_angle:deg eye_triangle_side:mm "
            "eye_triangle_base:mm touch_line_angle:deg",
            &VEXMELKAPillarConfig::GetStandardData, "van"),
        Main<&M::GetMirrorConfig>("GetStandardData", &VEXMELKMirrorConfig::GetStandardData,
            {"Vision/Mirror.xml", sample, asked, {},
                {Keyed("InstructionField", "PositionType", "Interior", "Plane PositionType X:mm XREL ReqTotalCoverage",
                    {All("Point", "TargetOnRoad:code X:mm XREL Y:mm YREL R:mm")})},
                Plan::WholeCategory, "standard", Attributes("infinite_size:mm USBackLineDistance:mm USAngle:deg")},
            sample, asked, "Interior"),
        Table<&M::GetOpticalDistortionConfig>("Vision/OpticalDistortion.xml", "dcRadius:mm dcDensity",
            &VEXMELKOpticalDistortionConfig::GetStandardData, "van"),
        Table<&M::GetMultipleReflectionConfig>("Vision/MultipleReflection.xml", "rayDirection:code",
            &VEXMELKMultipleReflectionConfig::GetStandardData, "van"),
        Main<&M::GetDirectViewConfig>("GetStandardData", &VEXMELKDirectViewConfig::GetStandardData,
            {"Vision/DirectView.xml", sample, asked,
                Attributes("MaxTopAngle:mm MaxBottomAngle:mm MPAzimuth:mm MPElevation:mm"),
                {All("Point", "X:code Y:code Z:code name reference:code")}, Plan::WholeCategory},
            sample, asked),
        Main<&M::GetDirectView3DConfig>("GetStandardData", &VEXMELKDirectView3DConfig::GetStandardData,
            {"Vision/DirectView3D.xml", sample, asked, Attributes("ComputationType ViewRange:radians Direction"),
                {First("Target", "Distance:millimetres type")}},
            sample, asked),
        Table<&M::GetWipersConfig>(
            "Toolbox/Wipers.xml", "a_field:num b_field:num c_field:num", &VEXMELKWipersConfig::GetStandardData),
        Main<&M::GetDBAccessConfig>("GetDBAccessParameters", &VEXMELKDBAccessConfig::GetDBAccessParameters,
            {"DBAccess.xml", "", "", Attributes("host user password db_name"), {}, Plan::WholeCategory, "", {}, true}),
        Main<&M::GetReportGenConfig>("GetTemplateHeaderData", &VEXMELKReportGenConfig::GetTemplateHeaderData,
            {"ReportTemplates.xml", "Standard", "", {}, {First("header", ".")}, Plan::WholeCategory, "template"},
            "Standard"),
    };
}

std::vector<Case> SafetyCases()
{
    using M = VEXMELKConfigManager;
    std::string freeSpace;
    for (const Field& field : freeSpaceFields)
        freeSpace += std::string(field.attribute) + ":" + field.unit + " ";
    return {
        Table<&M::GetNumberPlatesConfig>("OVA/NumberPlates.xml",
            "FrontLowerLimit:mm FrontUpperLimit:mm FrontRightLimit:mm FrontLeftLimit:mm BackLowerLimit:mm "
            "BackUpperLimit:mm BackRightLimit:mm BackLeftLimit:mm",
            &VEXMELKNumberPlatesConfig::GetStandardData),
        Main<&M::GetLampPositionsConfig>("GetStandardData", &VEXMELKLampPositionsConfig::GetStandardData,
            {"OVA/LampPositions.xml", sample, asked, {},
                {All("Lamp", "Abbr Descr IsFront:flag IsBack:flag IsSide:flag MinVerticalSpace:mm MaxVerticalSpace:mm "
                             "MinInnerSpace:mm MinInnerSpace2:mm MaxOuterSpace:mm MaxOuterSpace2:mm MaxFrontSpace:mm "
                             "MaxFrontSpace2:mm MaxBackSpace:mm MaxBackSpace2:mm LampColor LampVisibility "
                             "WidthThreshold:mm LengthThreshold:mm")},
                Plan::WholeCategory},
            sample, asked),
        Main<&M::GetBumpersConfig>(
            "GetStandardData", &VEXMELKBumpersConfig::GetStandardData, BumpersPlan(), sample, asked, MiddlePendulum),
        Table<&M::GetWheelCoveringConfig>("OVA/WheelCovering.xml",
            "FrontAlpha:deg FrontBeta:deg BackAlpha:deg BackBeta:deg BottomOffset:mm TriangleHeight:mm LineHeight:mm "
            "HasSpecialBack:flag AlgorithmType Tolerance=0.0m",
            &VEXMELKWheelCoveringConfig::GetStandardData),
        Table<&M::GetChildProtectionConfig>("OVA/ChildProtection.xml",
            "CPShDist:mm CPShRadius:mm CPBackDist:mm CPTopAngle:deg CPShCShift:mm CPVolVertAngle:deg "
            "CPVolHorizAngle:deg CPVolHorizOffset:mm CPUseCShift:flag CPAustralianNormOffset:mm CPAustralianNorm:flag",
            &VEXMELKChildProtectionConfig::GetStandardData, "van"),
        Table<&M::GetFreeSpaceConfig>("OVA/FreeSpace.xml", freeSpace.c_str(), &VEXMELKFreeSpaceConfig::GetStandardData),
        Main<&M::GetCrashBarriersConfig>("GetStandardData", &VEXMELKCrashBarriersConfig::GetStandardData,
            {"OVA/CrashBarriers.xml", "In-house 2024", asked, {},
                {All("barrier", "AllowMovingAroundX:flag DeltaZLeft=0mm DeltaZRight=0mm shape:code loading "
                                "Position:code Rotation:deg=0deg OverlappingSide:code PositionToGeometry:flag "
                                "EnableAdditionalShift:flag AdditionalShift:mm=0mm ReferencePart:flag "
                                "HeightAboveRoad:mm Overlapping:code")},
                Plan::WholeCategory},
            "In-house 2024", asked),
        Main<&M::GetPedestrianProtectionConfig>(
            "GetStandardData", &VEXMELKPedestrianProtectionConfig::GetStandardData, PedestrianPlan(), sample, asked),
        Main<&M::GetHeadImpactConfig>("GetStandardData",
            static_cast<unsigned char (VEXMELKHeadImpactConfig::*)(
                const CATUnicodeString&, VEXMELKHeadImpactDefinition&)>(&VEXMELKHeadImpactConfig::GetStandardData),
            HeadImpactPlan(), "US Passenger Car"),
        Main<&M::GetPPOffsetConfig>("GetStandardData", &VEXMELKPPOffsetConfig::GetStandardData,
            {"Safety/PedestrianProtectionOffset.xml", sample, asked, Attributes("calculation_type offset:metres"),
                {First("section_based", "definition_type profile_type x_step:metres y_step:metres ref_part",
                    {All("curve", "type inner_offset:metres outer_offset:metres"),
                        First("outer_region", "measurement_type param_x:metres")})},
                Plan::ElementByElement},
            sample, asked),
    };
}

// The texts and numbers of an answer, wherever they stand in it.
void Collect(const Json& json, std::set<std::string>& texts, std::vector<double>& numbers)
{
    if (json.is_structured())
        for (const Json& member : json)
            Collect(member, texts, numbers);
    else if (json.is_string() && !json.get<std::string>().empty())
        texts.insert(json.get<std::string>());
    else if (json.is_number())
        numbers.push_back(json.get<double>());
    else if (json.is_boolean())
        numbers.push_back(json.get<bool>() ? 1.0 : 0.0);
}

// Every text that the library answers was read by hand too, and everything read by hand is in the library's answer.
void Compare(const Case& one, const Json& answer, const ByHand& byHand)
{
    std::set<std::string> texts;
    std::vector<double> numbers;
    Collect(answer, texts, numbers);
    std::set<std::string> read;
    for (std::size_t record = 0; record < byHand.RecordCount(); ++record)
        for (const Value& value : byHand.Records()[record])
        {
            const std::string where = one.configuration + ": " + value.wanted->attribute + " = ";
            const bool isText = value.wanted->kind == Kind::Text;
            if (isText || value.wanted->kind == Kind::Code)
                read.insert(value.text);
            if (isText && !value.text.empty())
                Require(texts.count(value.text) == 1, where + value.text);
            if (value.isFound && !isText && value.wanted->kind != Kind::Code)
                Require(
                    std::any_of(numbers.begin(), numbers.end(),
                        [&](double number) { return std::fabs(number - value.number) <= 1e-9 * std::fabs(number); }),
                    where + std::to_string(value.number));
        }
    Require(byHand.RecordCount() > 0, one.configuration + ": nothing read by hand");
    for (const std::string& text : texts)
        Require(read.count(text) == 1, one.configuration + ": not read by hand: " + text);
}

void Time(benchmark::State& state, const Ask& ask)
{
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(ask());
        benchmark::ClobberMemory();
    }
}

void Check(const Case& one, const std::shared_ptr<ByHand>& byHand)
{
    UseDirectory(SampleDirectory(), false);
    const Configuration& configuration = FindConfiguration(one.configuration);
    VEXMELKConfig& object = *configuration.get(*VEXMELKConfigManager::GetConfigManager());
    const Operation& operation = configuration.FindOperation(one.operation);
    const Answered answered = operation.Prepare(one.arguments, Json::object())(object);
    const Json& result = answered.result;
    Require(one.library() == (result.is_boolean() ? static_cast<int>(result.get<bool>()) : result.get<int>()),
        one.configuration + ": result");
    Require((*byHand)() == 1, one.configuration + ": not found by hand");
    Compare(one, answered.outputs, *byHand);
}

} // namespace

void RegisterConfigurations()
{
    for (const auto& cases : {UnderfloorCases(), OccupantCases(), VisionCases(), SafetyCases()})
        for (const Case& one : cases)
        {
            const auto byHand = std::make_shared<ByHand>(one.plan);
            const std::string name = "configurations/" + one.configuration + "/";
            benchmark::RegisterBenchmark((name + "library").c_str(),
                [=](benchmark::State& state)
                {
                    Check(one, byHand);
                    Time(state, one.library);
                });
            benchmark::RegisterBenchmark((name + "pugixml").c_str(),
                [=](benchmark::State& state)
                {
                    Check(one, byHand);
                    Time(state, [&] { return (*byHand)(); });
                });
        }
}
