#include "VEXMELKEyePointsConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"
#include "VEXMELKOccupantRules.h"

VEXMELKEyePointsConfig::VEXMELKEyePointsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("Manikin") + "\\" + "EyePoints.xml")
{
}

unsigned char VEXMELKEyePointsConfig::IsKeyWord(const CATUnicodeString& text)
{
    return text == "steering_wheel_center";
}

VEXIMELKEyePoints::PointCoordType VEXMELKEyePointsConfig::GetPointCoordType(const CATUnicodeString& text)
{
    return IsKeyWord(text) ? VEXIMELKEyePoints::SteeringWheelCenter : VEXIMELKEyePoints::Length;
}

void VEXMELKEyePointsConfig::GetEyePointConfigPosition(
    const CATIDOMElement_var& element, VEXMELKEyePointPosition& position)
{
    ReadOffsets(element, position.dx, position.dy, position.dz);
}

unsigned char VEXMELKEyePointsConfig::GetEyePoints(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXArray<VEXMELKEyePointDefinition>& points)
{
    return Answer(
        [&]() -> unsigned char
        {
            points.reset();
            ForEachElement(GetCategoryElement(standard, category), "point", points,
                [&](const CATIDOMElement_var& element)
                {
                    VEXMELKEyePointDefinition point;
                    ReadFields(element, NULL_var,
                        {
                            {"name", "", point.name},
                            {"dx", "mm", point.dx},
                            {"dy", "mm", point.dy},
                            {"dz", "mm", point.dz},
                        });
                    point.dx_type = GetPointCoordType(point.dx);
                    point.dy_type = GetPointCoordType(point.dy);
                    point.dz_type = GetPointCoordType(point.dz);
                    points.add(point);
                });
            return points.size() > 0;
        });
}

unsigned char VEXMELKEyePointsConfig::GetPosition(const CATUnicodeString& standard, const CATUnicodeString& category,
    std::string_view elementName, VEXMELKEyePointPosition& position)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = FirstElement(GetCategoryElement(standard, category), elementName);
            if (element == NULL_var)
                return 0;
            GetEyePointConfigPosition(element, position);
            return 1;
        });
}

unsigned char VEXMELKEyePointsConfig::GetTopVEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, "top_v_point", position);
}

unsigned char VEXMELKEyePointsConfig::GetBottomVEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, "bottom_v_point", position);
}

unsigned char VEXMELKEyePointsConfig::GetLeftPEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, "left_p_point", position);
}

unsigned char VEXMELKEyePointsConfig::GetRightPEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, "right_p_point", position);
}

unsigned char VEXMELKEyePointsConfig::GetLeftEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, "left_point", position);
}

unsigned char VEXMELKEyePointsConfig::GetRightEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, "right_point", position);
}

unsigned char VEXMELKEyePointsConfig::GetBackAngleCorrection(const CATUnicodeString& standard,
    const CATUnicodeString& category, double backAngle, double& horizontal, double& vertical)
{
    return Answer([&]() -> unsigned char
        { return ReadBackAngleCorrection(GetCategoryElement(standard, category), backAngle, horizontal, vertical); });
}

unsigned char VEXMELKEyePointsConfig::GetHPointTravelCorrection(
    const CATUnicodeString& standard, const CATUnicodeString& category, double hPointTravel, double& horizontal)
{
    return Answer(
        [&]() -> unsigned char
        {
            // The travel comes in as metres here, unlike everywhere else: on purpose.
            const CATIDOMElement_var row = NearestLengthBelow(
                GetCategoryElement(standard, category), "hpoint_travel", "value", hPointTravel * 1000);
            if (row == NULL_var)
                return 0;
            ReadFields(row, NULL_var, {{"horizontal", "mm", horizontal, ByLengthParameter, 0.0}});
            return 1;
        });
}

double VEXMELKEyePointsConfig::GetBackLineLength(const CATUnicodeString& standard)
{
    return Answer([&] { return LineLength(GetStandardElement(standard), "back_line", usualBackLineLength); });
}

double VEXMELKEyePointsConfig::GetVertLineLength(const CATUnicodeString& standard)
{
    return Answer([&] { return LineLength(GetStandardElement(standard), "vertical_line", usualVerticalLineLength); });
}

VEXIMELKEyes::EyesType VEXMELKEyePointsConfig::GetEyesType(const CATUnicodeString& standard)
{
    return Answer(
        [&]
        {
            const std::optional<VEXMELKNodeText> name =
                FirstChildAttribute(GetStandardElement(standard), "eye_points_type", "name");
            if (name == "single_point")
                return VEXIMELKEyes::SinglePoint;
            if (name == "single_pair")
                return VEXIMELKEyes::SinglePair;
            return VEXIMELKEyes::NoEyes;
        });
}
