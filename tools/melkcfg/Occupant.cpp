// Base data and the occupant standards. Records first, then the configurations with their operations.

#include "Records.h"
#include "Registry.h"
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKExtendedEyePointsConfig.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKHeadContourConfig.h"

template <> constexpr auto FieldsOf<VEXMELKLoadingDefinition>()
{
    using R = VEXMELKLoadingDefinition;
    return Fields<none, &R::name, &R::spare1, &R::spare2, &R::front_delta, &R::back_delta>();
}

template <> constexpr auto FieldsOf<VEXMELKSeatDefinition>()
{
    using R = VEXMELKSeatDefinition;
    return Fields<none, &R::name, &R::IsFront, &R::RefPointX, &R::RefPointY, &R::RefPointZ, &R::BackAngle,
        &R::HPointTravel, &R::HeelRPX, &R::HeelRPY, &R::HeelRPZ, &R::PedalRPX, &R::PedalRPY, &R::PedalRPZ, &R::SteerRPX,
        &R::SteerRPY, &R::SteerRPZ>();
}

template <> constexpr auto FieldsOf<VEXMELKWheelsDefinition>()
{
    using R = VEXMELKWheelsDefinition;
    return Fields<none, &R::CenterPointX, &R::CenterPointY, &R::CenterPointZ, &R::StaticRadius, &R::Diameter, &R::Width,
        &R::Sturz, &R::Spur>();
}

template <> constexpr auto FieldsOf<VEXMELKExtendedEyePointPosition>()
{
    using R = VEXMELKExtendedEyePointPosition;
    return Fields<mm, &R::dx, &R::dy, &R::dz>();
}

template <> inline constexpr std::string_view unitOf<&VEXMELKBackAngleCorrection::back_angle> = radians;
template <> constexpr auto FieldsOf<VEXMELKBackAngleCorrection>()
{
    using R = VEXMELKBackAngleCorrection;
    return Fields<mm, &R::back_angle, &R::horizontal, &R::vertical>();
}

template <> constexpr auto FieldsOf<VEXMELKExtendedEyePointMovements>()
{
    using R = VEXMELKExtendedEyePointMovements;
    return Fields<mm, &R::type, &R::down_up_min, &R::down_up_max, &R::left_right_min, &R::left_right_max,
        &R::forward_backward_min, &R::forward_backward_max, &R::used_eye_position, &R::ext_up_dx, &R::ext_up_dy,
        &R::ext_up_dz, &R::ext_front_dx, &R::ext_front_dy, &R::ext_front_dz, &R::ext_side_dx, &R::ext_side_dy,
        &R::ext_side_dz>();
}

template <> constexpr auto FieldsOf<VEXMELKEyePointDefinition>()
{
    using R = VEXMELKEyePointDefinition;
    return Fields<none, &R::name, &R::dx, &R::dy, &R::dz, &R::dx_type, &R::dy_type, &R::dz_type>();
}

// x, y and z are the caller's alone.
template <> constexpr auto FieldsOf<VEXMELKEyePointPosition>()
{
    using R = VEXMELKEyePointPosition;
    return Fields<mm, &R::dx, &R::dy, &R::dz>();
}

// NOLINTNEXTLINE(readability-function-size): one table
std::vector<Configuration> OccupantConfigurations()
{
    using Manager = VEXMELKConfigManager;
    return {
        Describe<&Manager::GetBaseDataConfig>("BaseData", {}, "OVA\\BaseData.xml",
            {
                Query("GetLoadingDataForBaseDataCategory", "category, >loadings",
                    &VEXMELKBaseDataConfig::GetLoadingDataForBaseDataCategory),
                Query("GetOverallDataForCategory", "category, >carWidth, >forwardDistance, >backwardDistance",
                    &VEXMELKBaseDataConfig::GetOverallDataForCategory),
                Query("GetSeatDataForBaseDataCategory", "category, >seats",
                    &VEXMELKBaseDataConfig::GetSeatDataForBaseDataCategory),
                Query("GetWheelsDataForBaseDataCategory", "category, wheel, >data",
                    &VEXMELKBaseDataConfig::GetWheelsDataForBaseDataCategory),
                Query("GetBaseDataCategories", ">categories", &VEXMELKBaseDataConfig::GetBaseDataCategories),
            }),
        Describe<&Manager::GetEyeEllipsesConfig>("EyeEllipses", {"VEXMELKEyeEllipses"}, "Manikin\\EyeEllipses.xml",
            {
                Query("IsStandard", "standard, elementName", &VEXMELKEyeEllipsesConfig::IsStandard),
                Query("IsStandard2002", "standard", &VEXMELKEyeEllipsesConfig::IsStandard2002),
                Query("IsStandard1997", "standard", &VEXMELKEyeEllipsesConfig::IsStandard1997),
                Query("GetCutOffList", "standard, >cutoffs", &VEXMELKEyeEllipsesConfig::GetCutOffList),
                Query("GetCoeficients1997", "standard, hPointTravel:mm, >L40X, >L40XP2, >L40Z, >L40ZP2, >x, >y, >z",
                    &VEXMELKEyeEllipsesConfig::GetCoeficients1997),
                Query("GetCoeficients2002", "standard, >L1, >L6, >H30, >T, >x, >y, >z",
                    &VEXMELKEyeEllipsesConfig::GetCoeficients2002),
                Query("GetRadii1997", "standard, hPointTravel:mm, cutoff:%, >radiusX:mm, >radiusY:mm, >radiusZ:mm",
                    &VEXMELKEyeEllipsesConfig::GetRadii1997),
                Query("GetRadii2002", "standard, hPointTravel:mm, cutoff:%, >radiusX:mm, >radiusY:mm, >radiusZ:mm",
                    &VEXMELKEyeEllipsesConfig::GetRadii2002),
                Query("GetHPointTravelData",
                    "standard, category, hPointTravel:mm, cutoff:%, >xmean:mm, >ymeanLeft:mm, >ymeanRight:mm, "
                    ">zmean:mm, >cutoffLength:mm",
                    &VEXMELKEyeEllipsesConfig::GetHPointTravelData),
                Query("GetSideViewMinorAxis", "standard, category, cutoff:%, >axis:mm",
                    &VEXMELKEyeEllipsesConfig::GetSideViewMinorAxis),
                Query("GetPlanViewMinorAxis", "standard, category, cutoff:%, >axis:mm",
                    &VEXMELKEyeEllipsesConfig::GetPlanViewMinorAxis),
                Query("GetTipAngles", "standard, category, >sideViewAngle:rad, >planViewAngle:rad",
                    &VEXMELKEyeEllipsesConfig::GetTipAngles),
                Query("GetBackAngleCorrection", "standard, backAngle:rad, >horizontal:mm, >vertical:mm",
                    &VEXMELKEyeEllipsesConfig::GetBackAngleCorrection),
                Query("GetUSADisplacement", "standard, category, >displacementW7:mm, >displacementW3:mm",
                    &VEXMELKEyeEllipsesConfig::GetUSADisplacement),
            }),
        Describe<&Manager::GetEyePointsConfig>("EyePoints", {"VEXMELKEyePoints"}, "Manikin\\EyePoints.xml",
            {
                Query("GetEyePoints", "standard, category, >points", &VEXMELKEyePointsConfig::GetEyePoints),
                Query("GetTopVEyePointPosition", "standard, category, >position",
                    &VEXMELKEyePointsConfig::GetTopVEyePointPosition),
                Query("GetBottomVEyePointPosition", "standard, category, >position",
                    &VEXMELKEyePointsConfig::GetBottomVEyePointPosition),
                Query("GetLeftPEyePointPosition", "standard, category, >position",
                    &VEXMELKEyePointsConfig::GetLeftPEyePointPosition),
                Query("GetRightPEyePointPosition", "standard, category, >position",
                    &VEXMELKEyePointsConfig::GetRightPEyePointPosition),
                Query("GetLeftEyePointPosition", "standard, category, >position",
                    &VEXMELKEyePointsConfig::GetLeftEyePointPosition),
                Query("GetRightEyePointPosition", "standard, category, >position",
                    &VEXMELKEyePointsConfig::GetRightEyePointPosition),
                Query("GetBackAngleCorrection", "standard, category, backAngle:rad, >horizontal:mm, >vertical:mm",
                    &VEXMELKEyePointsConfig::GetBackAngleCorrection),
                Query("GetHPointTravelCorrection", "standard, category, hPointTravel:m, >horizontal:mm",
                    &VEXMELKEyePointsConfig::GetHPointTravelCorrection),
                Query("GetBackLineLength", "standard", &VEXMELKEyePointsConfig::GetBackLineLength),
                Query("GetVertLineLength", "standard", &VEXMELKEyePointsConfig::GetVertLineLength),
                Query("GetEyesType", "standard", &VEXMELKEyePointsConfig::GetEyesType),
            }),
        Describe<&Manager::GetExtendedEyePointsConfig>("ExtendedEyePoints", {"VEXMELKExtendedEyePoints"},
            "Manikin\\ExtendedEyePoints.xml",
            {
                Query("GetExtendedEyePointPosition", "standard, category, pointName, >position",
                    &VEXMELKExtendedEyePointsConfig::GetExtendedEyePointPosition),
                Query("GetExtendedEyePointMovements", "standard, category, >movements",
                    &VEXMELKExtendedEyePointsConfig::GetExtendedEyePointMovements),
                Query("GetExtendedBackAngleCorrectionList", "standard, category, >corrections",
                    &VEXMELKExtendedEyePointsConfig::GetExtendedBackAngleCorrectionList),
                Query("GetExtendedBackAngleCorrection",
                    "standard, category, backAngle:rad, >horizontal:mm, >vertical:mm",
                    &VEXMELKExtendedEyePointsConfig::GetExtendedBackAngleCorrection),
                Query("GetBackLineLength_mm", "standard", &VEXMELKExtendedEyePointsConfig::GetBackLineLength_mm),
            }),
        Describe<&Manager::GetHeadContourConfig>("HeadContour", {"VEXMELKHeadContour"}, "Manikin\\HeadContour.xml",
            {
                Query("GetMiddleStripeWitdh", "standard, >width:mm", &VEXMELKHeadContourConfig::GetMiddleStripeWitdh),
                Query("GetEllipsesStandard", "standard, >ellipsesStandard",
                    &VEXMELKHeadContourConfig::GetEllipsesStandard),
                Query("GetSeatName", "isFront, isDriver, >name", &VEXMELKHeadContourConfig::GetSeatName),
                Query("GetRadii",
                    "standard, category, hPointTravel:mm, cutoff:%, >xRadius:mm, >yRadius:mm, >zRadius:mm",
                    &VEXMELKHeadContourConfig::GetRadii),
                Query("GetCutoffList", "standard, category, >cutoffs", &VEXMELKHeadContourConfig::GetCutoffList),
                Query("GetCurrentCutoffList", ">cutoffs", &VEXMELKHeadContourConfig::GetCurrentCutoffList),
                Query("GetCoeficients", "standard, category, seatName, hPointTravel:mm, >ax, >bx, >cx, >az, >bz, >cz",
                    &VEXMELKHeadContourConfig::GetCoeficients),
                Query("Get2002NonDriverCoeficients",
                    "standard, category, seatName, hPointTravel:mm, >ax:m, >bx:m, >cx:m, >dx:m, >az:m, >bz:m",
                    &VEXMELKHeadContourConfig::Get2002NonDriverCoeficients),
                Query("GetDeltas", "standard, category, seatName, hPointTravel:mm, >deltaX:mm, >deltaY:mm, >deltaZ:mm",
                    &VEXMELKHeadContourConfig::GetDeltas),
                Query("GetHeadClearance", "standard, category, seatName, >angle:rad, >reqDiagonal:m, >reqVertical:m",
                    &VEXMELKHeadContourConfig::GetHeadClearance),
                Query("GetTipAngles", "standard, category, >sideViewAngle:rad, >planViewAngle:rad",
                    &VEXMELKHeadContourConfig::GetTipAngles),
                Query("IsStandard2002Used", "standard, category", &VEXMELKHeadContourConfig::IsStandard2002Used),
            }),
    };
}
