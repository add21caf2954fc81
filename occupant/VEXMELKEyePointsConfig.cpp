// The driver's eye points. A missing category is replaced by "default", whole; nothing else comes from there.
#include "VEXMELKEyePointsConfig.h"

#include "VEXMELKOccupantRules.h"

namespace {

using Point = VEXMELKEyePointDefinition;
using Position = VEXMELKEyePointPosition;

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);

constexpr VEXMELKWord pointTypes[] = {
    {"single_point", VEXIMELKEyes::SinglePoint}, {"single_pair", VEXIMELKEyes::SinglePair}};
constexpr VEXMELKRow pointTypeName = Word(
    "name", {pointTypes}, "exactly `single_point` (1) or `single_pair` (2); anything else is 0", AsWritten(), Skip);
constexpr VEXMELKElement pointTypeElement{.tag = "eye_points_type",
    .below = &VEXMELKCommon::standards,
    .key = &pointTypeName,
    .meaning = "how many points are used; the first with a `name` counts",
    .whenMissing = "0"};

constexpr const char* offsetMeaning =
    "Offset, as a text. Exactly `steering_wheel_center` places this coordinate at the centre of the steering wheel.";
constexpr VEXMELKWord centre[] = {{"steering_wheel_center"}};
constexpr VEXMELKTable pointTable{
    Text<&Point::name>("name", "its name"),
    Length<&Point::dx>("dx", offsetMeaning, Or{{centre}}),
    Length<&Point::dy>("dy", offsetMeaning, Or{{centre}}),
    Length<&Point::dz>("dz", offsetMeaning, Or{{centre}}),
};
constexpr VEXMELKElement pointElements{.tag = "point",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {pointTable.rows},
    .meaning = "a point of the list",
    .whenMissing = "fails"};

constexpr VEXMELKTable positionTable{
    Millimetres<&Position::dx>("dx", "offset"),
    Millimetres<&Position::dy>("dy", "offset"),
    Millimetres<&Position::dz>("dz", "offset"),
};
constexpr VEXMELKElement PositionOf(const char* tag)
{
    return {.tag = tag,
        .below = &categoryElements,
        .place = VEXMELKPlace::AnyDepth,
        .fallBack = VEXMELKFallBack::WholeCategory,
        .tables = {positionTable.rows},
        .meaning = "the characteristic points; the first of each counts",
        .whenMissing = "fails"};
}
constexpr VEXMELKElement topVPoint = PositionOf("top_v_point");
constexpr VEXMELKElement bottomVPoint = PositionOf("bottom_v_point");
constexpr VEXMELKElement leftPPoint = PositionOf("left_p_point");
constexpr VEXMELKElement rightPPoint = PositionOf("right_p_point");
constexpr VEXMELKElement leftPoint = PositionOf("left_point");
constexpr VEXMELKElement rightPoint = PositionOf("right_point");

constexpr VEXMELKElement backAngles = BackAnglesBelow(categoryElements);

constexpr VEXMELKRow travelValue = Millimetres("value", "the travel from which it holds", Skip);
constexpr VEXMELKOutputTable<double> travelTable{Millimetres("horizontal", "the correction")};
constexpr VEXMELKElement travelElements{.tag = "hpoint_travel",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::LengthBelow,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .key = &travelValue,
    .tables = {travelTable.rows},
    .meaning = "a correction for an H-point travel",
    .whenMissing = "fails"};

constexpr const VEXMELKElement* elements[] = {&pointTypeElement, &backLine, &verticalLine, &categoryElements,
    &pointElements, &topVPoint, &bottomVPoint, &leftPPoint, &rightPPoint, &leftPoint, &rightPoint, &backAngles,
    &travelElements};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Point> = VEXMELKFieldList<Point>(pointTable, VEXMELKComputed<&Point::dx_type>(),
    VEXMELKComputed<&Point::dy_type>(), VEXMELKComputed<&Point::dz_type>());
template <>
constexpr auto VEXMELKFieldsOf<Position> = VEXMELKFieldList<Position>(
    positionTable, VEXMELKCallers<&Position::x>(), VEXMELKCallers<&Position::y>(), VEXMELKCallers<&Position::z>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetEyePoints>(
        "GetEyePoints", standardArgument, categoryArgument, Output("points")),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetTopVEyePointPosition>(
        "GetTopVEyePointPosition", standardArgument, categoryArgument, Output("position")),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetBottomVEyePointPosition>(
        "GetBottomVEyePointPosition", standardArgument, categoryArgument, Output("position")),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetLeftPEyePointPosition>(
        "GetLeftPEyePointPosition", standardArgument, categoryArgument, Output("position")),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetRightPEyePointPosition>(
        "GetRightPEyePointPosition", standardArgument, categoryArgument, Output("position")),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetLeftEyePointPosition>(
        "GetLeftEyePointPosition", standardArgument, categoryArgument, Output("position")),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetRightEyePointPosition>(
        "GetRightEyePointPosition", standardArgument, categoryArgument, Output("position")),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetBackAngleCorrection>(
        "GetBackAngleCorrection", standardArgument, categoryArgument, BackAngle(backAngles), backAngleTable),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetHPointTravelCorrection>("GetHPointTravelCorrection", standardArgument,
        categoryArgument,
        VEXMELKParameter{.name = "hPointTravel", .role = VEXMELKRole::Travel, .unit = "m", .element = &travelElements},
        travelTable),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetBackLineLength>("GetBackLineLength", standardArgument),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetVertLineLength>("GetVertLineLength", standardArgument),
    VEXMELKDescribe<&VEXMELKEyePointsConfig::GetEyesType>("GetEyesType", standardArgument),
};

constinit const VEXMELKDescription VEXMELKEyePointsConfig::description{
    .name = "EyePoints",
    .file = "Manikin\\EyePoints.xml",
    .meaning = "The driver's eye points.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKEyePointsConfig::VEXMELKEyePointsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKEyePointsConfig::IsKeyWord(const CATUnicodeString& text) { return text == centre[0].text; }

VEXIMELKEyePoints::PointCoordType VEXMELKEyePointsConfig::GetPointCoordType(const CATUnicodeString& text)
{
    return IsKeyWord(text) ? VEXIMELKEyePoints::SteeringWheelCenter : VEXIMELKEyePoints::Length;
}

void VEXMELKEyePointsConfig::GetEyePointConfigPosition(
    const CATIDOMElement_var& element, VEXMELKEyePointPosition& position)
{
    ReadFields(Decimals(), element, positionTable, position);
}

unsigned char VEXMELKEyePointsConfig::GetEyePoints(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXArray<VEXMELKEyePointDefinition>& points)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            points.reset(); // not before: a name may be a text of the array
            ForEach(element, pointElements, points,
                [&](const CATIDOMElement_var& pointElement)
                {
                    Point point;
                    ReadFields(Decimals(), pointElement, pointTable, point);
                    point.dx_type = GetPointCoordType(point.dx);
                    point.dy_type = GetPointCoordType(point.dy);
                    point.dz_type = GetPointCoordType(point.dz);
                    points.add(point);
                });
            return points.size() > 0;
        });
}

unsigned char VEXMELKEyePointsConfig::GetPosition(const CATUnicodeString& standard, const CATUnicodeString& category,
    const VEXMELKElement& described, VEXMELKEyePointPosition& position)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = Find(GetCategoryElement(standard, category), described);
            if (element == NULL_var)
                return 0;
            GetEyePointConfigPosition(element, position);
            return 1;
        });
}

unsigned char VEXMELKEyePointsConfig::GetTopVEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, topVPoint, position);
}

unsigned char VEXMELKEyePointsConfig::GetBottomVEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, bottomVPoint, position);
}

unsigned char VEXMELKEyePointsConfig::GetLeftPEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, leftPPoint, position);
}

unsigned char VEXMELKEyePointsConfig::GetRightPEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, rightPPoint, position);
}

unsigned char VEXMELKEyePointsConfig::GetLeftEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, leftPoint, position);
}

unsigned char VEXMELKEyePointsConfig::GetRightEyePointPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position)
{
    return GetPosition(standard, category, rightPoint, position);
}

unsigned char VEXMELKEyePointsConfig::GetBackAngleCorrection(const CATUnicodeString& standard,
    const CATUnicodeString& category, double backAngle, double& horizontal, double& vertical)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            return ReadBackAngleCorrection(
                Decimals(), GetCategoryElement(standard, category), backAngles, backAngle, horizontal, vertical);
        });
}

unsigned char VEXMELKEyePointsConfig::GetHPointTravelCorrection(
    const CATUnicodeString& standard, const CATUnicodeString& category, double hPointTravel, double& horizontal)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            // The travel comes in as metres here, unlike everywhere else: its callers have it from the model.
            const CATIDOMElement_var row =
                FindNearest(Decimals(), GetCategoryElement(standard, category), travelElements, hPointTravel * 1000);
            if (row == NULL_var)
                return 0;
            ReadFields(Decimals(), row, travelTable, horizontal);
            return 1;
        });
}

double VEXMELKEyePointsConfig::GetBackLineLength(const CATUnicodeString& standard)
{
    return Answer(*this, [&] { return LineLength(GetStandardElement(standard), backLine); });
}

double VEXMELKEyePointsConfig::GetVertLineLength(const CATUnicodeString& standard)
{
    return Answer(*this, [&] { return LineLength(GetStandardElement(standard), verticalLine); });
}

VEXIMELKEyes::EyesType VEXMELKEyePointsConfig::GetEyesType(const CATUnicodeString& standard)
{
    return Answer(*this,
        [&]
        {
            const std::optional<VEXMELKNodeText> name = FirstKey(GetStandardElement(standard), pointTypeElement);
            return static_cast<VEXIMELKEyes::EyesType>(
                name ? ValueOfWord(pointTypeName.words, *name) : VEXIMELKEyes::NoEyes);
        });
}
