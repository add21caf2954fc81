// Base data, eyes, heads and seats: ellipses and points about the seating reference point.
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKExtendedEyePointsConfig.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKHeadContourConfig.h"
#include "VEXMELKSRPLocationCurvesConfig.h"
#include "VEXMELKSheet.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr const char* toTheRear = "X, to the rear";
constexpr const char* toTheRight = "Y, to the right";
constexpr const char* upwards = "Z, up";

// Base data
// ------------------------------------------------------------------------------------------------------------

void DrawWheel(const VEXMELKSheet& sheet, const char* tag)
{
    VEXMELKWheelsDefinition wheel;
    if (!sheet.New<VEXMELKBaseDataConfig>()->GetWheelsDataForBaseDataCategory(sheet.category, tag, wheel))
        return;
    const std::string prefix = std::string(tag) + " ";
    const VEXMELKMeasure x = sheet.Length(prefix + "CenterPointX", wheel.CenterPointX);
    const VEXMELKMeasure y = sheet.Length(prefix + "CenterPointY", wheel.CenterPointY);
    const VEXMELKMeasure z = sheet.Length(prefix + "CenterPointZ", wheel.CenterPointZ);
    const VEXMELKMeasure diameter = sheet.Length(prefix + "Diameter", wheel.Diameter);
    const VEXMELKMeasure loaded = sheet.Length(prefix + "StaticRadius", wheel.StaticRadius);
    const VEXMELKMeasure width = sheet.Length(prefix + "Width", wheel.Width);
    const VEXMELKPen side = sheet.On(
        "Side view", std::string(toTheRear) + " from the front axle", std::string(upwards) + " from the front axle");
    const VEXMELKPen plan = sheet.On(
        "Plan view", std::string(toTheRear) + " from the front axle", std::string(toTheRight) + " from the middle");
    const VEXMELKSpot centre{x.value, z.value};
    side.Mark(centre, tag);
    if (diameter)
        side.Circle(centre, diameter.value / 2.0, diameter);
    side.Length(diameter, {x.value - diameter.value / 2.0, z.value}, {x.value + diameter.value / 2.0, z.value});
    if (loaded)
        side.Line({{x.value - 1.3 * loaded.value, z.value - loaded.value},
                      {x.value + 1.3 * loaded.value, z.value - loaded.value}},
            loaded);
    side.Length(loaded, {x.value, z.value - loaded.value}, {x.value, z.value});
    const double reach = diameter.value / 2.0;
    for (const double sign : {1.0, -1.0})
        plan.Outline(VEXMELKBox({x.value - reach, sign * y.value - width.value / 2.0},
                         {x.value + reach, sign * y.value + width.value / 2.0}),
            width);
    plan.Length(x, {0.0, 0.0}, {x.value, 0.0});
    sheet.NoteText(prefix + "Sturz", wheel.Sturz);
    sheet.NoteText(prefix + "Spur", wheel.Spur);
}

void DrawSeat(const VEXMELKSheet& sheet, const VEXMELKSeatDefinition& seat)
{
    const std::string name = VEXMELKPlain(seat.name);
    const VEXMELKPen side = sheet.On(
        "Side view", std::string(toTheRear) + " from the front axle", std::string(upwards) + " from the front axle");
    const VEXMELKPen plan = sheet.On(
        "Plan view", std::string(toTheRear) + " from the front axle", std::string(toTheRight) + " from the middle");
    const auto mark = [&](const std::string& label, const CATUnicodeString& xText, const CATUnicodeString& yText,
                          const CATUnicodeString& zText)
    {
        const VEXMELKMeasure x = sheet.Length(label + " X", xText);
        const VEXMELKMeasure y = sheet.Length(label + " Y", yText);
        const VEXMELKMeasure z = sheet.Length(label + " Z", zText);
        if (x && z)
            side.Mark({x.value, z.value}, label, x);
        if (x && y)
            plan.Mark({x.value, y.value}, label, x);
    };
    mark(name, seat.RefPointX, seat.RefPointY, seat.RefPointZ);
    mark("heel", seat.HeelRPX, seat.HeelRPY, seat.HeelRPZ);
    mark("pedal", seat.PedalRPX, seat.PedalRPY, seat.PedalRPZ);
    mark("steering", seat.SteerRPX, seat.SteerRPY, seat.SteerRPZ);
    const VEXMELKMeasure back = sheet.Angle(name + " BackAngle", seat.BackAngle);
    const VEXMELKMeasure x = sheet.Length(name + " X", seat.RefPointX);
    const VEXMELKMeasure z = sheet.Length(name + " Z", seat.RefPointZ);
    if (back && x && z)
        side.Ray({x.value, z.value}, 90.0 - back.value, 600.0, back);
    const VEXMELKMeasure travel = sheet.Length(name + " HPointTravel", seat.HPointTravel);
    side.Length(travel, {x.value - travel.value, z.value}, {x.value, z.value});
}

void DrawBaseData(const VEXMELKSheet& sheet)
{
    const auto base = sheet.New<VEXMELKBaseDataConfig>();
    CATUnicodeString width;
    CATUnicodeString forward;
    CATUnicodeString backward;
    DrawWheel(sheet, "front");
    DrawWheel(sheet, "rear");
    if (base->GetOverallDataForCategory(sheet.category, width, forward, backward))
    {
        const VEXMELKPen plan = sheet.On(
            "Plan view", std::string(toTheRear) + " from the front axle", std::string(toTheRight) + " from the middle");
        const VEXMELKMeasure across = sheet.Length("carWidth", width);
        const VEXMELKMeasure front = sheet.Length("forwardDistance", forward);
        const VEXMELKMeasure rear = sheet.Length("backwardDistance", backward);
        const double half = across.value / 2.0;
        const double end = sheet.vehicle.rearAxle + rear.value;
        if (across)
            plan.Outline(VEXMELKBox({-front.value, -half}, {end, half}), across);
        plan.Length(across, {end, -half}, {end, half});
        plan.Length(front, {-front.value, -half}, {0.0, -half});
        plan.Length(rear, {sheet.vehicle.rearAxle, -half}, {end, -half});
    }
    VEXArray<VEXMELKSeatDefinition> seats;
    base->GetSeatDataForBaseDataCategory(sheet.category, seats);
    for (const VEXMELKSeatDefinition& seat : seats)
        DrawSeat(sheet, seat);
}

// Eye ellipses
// -----------------------------------------------------------------------------------------------------------

struct Axes
{
    double side = 0.0; // how far the axes are turned, in degrees
    double plan = 0.0;
};

Axes TipAnglesOf(const VEXMELKSheet& sheet)
{
    double side = 0.0;
    double plan = 0.0;
    if (sheet.New<VEXMELKEyeEllipsesConfig>()->GetTipAngles(sheet.standard, sheet.category, side, plan))
        return {VEXMELKDegrees(side), VEXMELKDegrees(plan)};
    return {};
}

void DrawTipAngle(
    const VEXMELKSheet& sheet, const VEXMELKPen& pen, const char* field, VEXMELKSpot centre, double angle, double reach)
{
    pen.Ray(centre, angle, 1.25 * reach);
    pen.Ray(centre, angle + 180.0, 1.25 * reach);
    pen.Axis({centre.x - 1.25 * reach, centre.y}, {centre.x + 1.25 * reach, centre.y});
    pen.Angle(sheet.Given(field, angle, "deg"), centre, 0.0, angle, 1.15 * reach);
}

// By the table of H-point travels: the whole axes are given.
void DrawEllipsesByTravel(const VEXMELKSheet& sheet, const CATRawCollint& cutoffs, const Axes& tip)
{
    const double travel = sheet.vehicle.hPointTravel;
    double widest = 0.0;
    VEXMELKSpot sideCentre;
    VEXMELKSpot planCentre;
    for (const int cutoff : cutoffs)
    {
        const auto config = sheet.New<VEXMELKEyeEllipsesConfig>();
        double x = 0.0;
        double left = 0.0;
        double right = 0.0;
        double z = 0.0;
        double length = 0.0;
        double sideMinor = 0.0;
        double planMinor = 0.0;
        if (!config->GetHPointTravelData(sheet.standard, sheet.category, travel, cutoff, x, left, right, z, length))
            return;
        config->GetSideViewMinorAxis(sheet.standard, sheet.category, cutoff, sideMinor);
        config->GetPlanViewMinorAxis(sheet.standard, sheet.category, cutoff, planMinor);
        const VEXMELKPen side = sheet.On("Side view, by H-point travel", toTheRear, upwards);
        const VEXMELKPen plan = sheet.On("Plan view, by H-point travel", toTheRear, toTheRight);
        const std::string percent = std::to_string(cutoff) + "% ";
        const VEXMELKMeasure major = sheet.Given(percent + "cutoffLength", length);
        sideCentre = {x, z};
        planCentre = {x, left};
        if (length <= 0.0)
            continue;
        side.Ellipse(sideCentre, length / 2.0, sideMinor / 2.0, tip.side, major);
        plan.Ellipse(planCentre, length / 2.0, planMinor / 2.0, tip.plan, major);
        plan.Ellipse({x, right}, length / 2.0, planMinor / 2.0, tip.plan, major);
        side.Length(major, VEXMELKPolar(sideCentre, tip.side + 180.0, length / 2.0),
            VEXMELKPolar(sideCentre, tip.side, length / 2.0));
        side.Length(sheet.Given(percent + "side view axis", sideMinor),
            VEXMELKPolar(sideCentre, tip.side - 90.0, sideMinor / 2.0),
            VEXMELKPolar(sideCentre, tip.side + 90.0, sideMinor / 2.0));
        plan.Length(sheet.Given(percent + "plan view axis", planMinor),
            VEXMELKPolar({x, right}, tip.plan - 90.0, planMinor / 2.0),
            VEXMELKPolar({x, right}, tip.plan + 90.0, planMinor / 2.0));
        widest = std::max(widest, length / 2.0);
    }
    if (widest <= 0.0)
        return;
    const VEXMELKPen side = sheet.On("Side view, by H-point travel", toTheRear, upwards);
    const VEXMELKPen plan = sheet.On("Plan view, by H-point travel", toTheRear, toTheRight);
    side.Mark(sideCentre, "xmean " + VEXMELKNumberText(sideCentre.x) + ", zmean " + VEXMELKNumberText(sideCentre.y));
    plan.Mark(planCentre, "ymean left " + VEXMELKNumberText(planCentre.y));
    DrawTipAngle(sheet, side, "sideViewAngle", sideCentre, tip.side, widest);
    DrawTipAngle(sheet, plan, "planViewAngle", planCentre, tip.plan, widest);
}

// By the radii of either generation, about the constant part of the centre: the package dimensions that move it from
// there are the vehicle's own.
void DrawEllipsesByRadii(const VEXMELKSheet& sheet, const CATRawCollint& cutoffs, const Axes& tip)
{
    const double travel = sheet.vehicle.hPointTravel;
    const auto config = sheet.New<VEXMELKEyeEllipsesConfig>();
    const bool is2002 = config->IsStandard2002(sheet.standard) != 0;
    double L1 = 0.0;
    double L6 = 0.0;
    double H30 = 0.0;
    double T = 0.0;
    double powerX = 0.0;
    double powerZ = 0.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    const auto number = [](double value) { return VEXMELKNumberText(value); };
    if (is2002 && config->GetCoeficients2002(sheet.standard, L1, L6, H30, T, x, y, z))
        sheet.Note("centre: " + number(x) + " + " + number(L1) + "·L1 + " + number(L6) + "·L6 + " + number(H30) +
                   "·H30 + " + number(T) + "·T; drawn without L1, L6, H30 and T");
    else if (config->GetCoeficients1997(sheet.standard, travel, L1, powerX, L6, powerZ, x, y, z))
        sheet.Note("centre: x = " + number(x) + " + " + number(L1) + "·L40 + " + number(powerX) + "·L40², z = " +
                   number(z) + " + " + number(L6) + "·L40 + " + number(powerZ) + "·L40²; drawn without L40");
    double widest = 0.0;
    for (const int cutoff : cutoffs)
    {
        double rx = 0.0;
        double ry = 0.0;
        double rz = 0.0;
        const auto fresh = sheet.New<VEXMELKEyeEllipsesConfig>();
        if (!(is2002 ? fresh->GetRadii2002(sheet.standard, travel, cutoff, rx, ry, rz)
                     : fresh->GetRadii1997(sheet.standard, travel, cutoff, rx, ry, rz)))
            continue;
        const VEXMELKPen side = sheet.On("Side view", toTheRear, upwards);
        const VEXMELKPen plan = sheet.On("Plan view", toTheRear, toTheRight);
        const std::string percent = std::to_string(cutoff) + "% ";
        const VEXMELKMeasure radiusX = sheet.Given(percent + "radiusX", rx);
        const VEXMELKSpot centre{x, z};
        side.Ellipse(centre, rx, rz, tip.side, radiusX);
        side.Length(radiusX, centre, VEXMELKPolar(centre, tip.side, rx));
        side.Length(sheet.Given(percent + "radiusZ", rz), centre, VEXMELKPolar(centre, tip.side + 90.0, rz));
        for (const double sign : {-1.0, 1.0})
            plan.Ellipse({x, sign * std::abs(y)}, rx, ry, tip.plan, radiusX);
        const VEXMELKSpot right{x, std::abs(y)};
        plan.Length(sheet.Given(percent + "radiusY", ry), right, VEXMELKPolar(right, tip.plan + 90.0, ry));
        widest = std::max(widest, rx);
    }
    if (widest <= 0.0)
        return;
    DrawTipAngle(sheet, sheet.On("Side view", toTheRear, upwards), "sideViewAngle", {x, z}, tip.side, widest);
    const VEXMELKPen plan = sheet.On("Plan view", toTheRear, toTheRight);
    DrawTipAngle(sheet, plan, "planViewAngle", {x, -std::abs(y)}, tip.plan, widest);
    plan.Length(sheet.Given("y", y), {x, 0.0}, {x, y});
}

void DrawEyeEllipses(const VEXMELKSheet& sheet)
{
    CATRawCollint cutoffs;
    if (!sheet.New<VEXMELKEyeEllipsesConfig>()->GetCutOffList(sheet.standard, cutoffs))
        return;
    const Axes tip = TipAnglesOf(sheet);
    DrawEllipsesByTravel(sheet, cutoffs, tip);
    DrawEllipsesByRadii(sheet, cutoffs, tip);
    if (!sheet.drawing.panels.empty())
        sheet.Note("for the H-point travel " + VEXMELKNumberText(sheet.vehicle.hPointTravel) +
                   "mm of the category's driver's seat; angles turn the rear end up, or to the right");
    double w7 = 0.0;
    double w3 = 0.0;
    sheet.New<VEXMELKEyeEllipsesConfig>()->GetUSADisplacement(sheet.standard, sheet.category, w7, w3);
    if (w7 != 0.0 || w3 != 0.0)
        sheet.Note("displacements: W7 " + VEXMELKNumberText(w7) + "mm, W3 " + VEXMELKNumberText(w3) + "mm");
}

// Eye points
// -----------------------------------------------------------------------------------------------------------

struct EyeViews
{
    VEXMELKPen side;
    VEXMELKPen plan;
    explicit EyeViews(const VEXMELKSheet& sheet)
        : side(sheet.On("Side view", std::string(toTheRear) + " from the reference point",
              std::string(upwards) + " from the reference point")),
          plan(sheet.On("Plan view", std::string(toTheRear) + " from the reference point",
              std::string(toTheRight) + " from the reference point"))
    {
    }
    void Mark(const std::string& name, double dx, double dy, double dz) const
    {
        const VEXMELKMeasure measure{
            name, VEXMELKNumberText(dx) + ", " + VEXMELKNumberText(dy) + ", " + VEXMELKNumberText(dz), dx, true};
        side.Mark({dx, dz}, name, measure);
        plan.Mark({dx, dy}, name, measure);
    }
};

void DrawEyeCategory(const VEXMELKSheet& sheet, const EyeViews& views)
{
    const auto config = sheet.New<VEXMELKEyePointsConfig>();
    VEXArray<VEXMELKEyePointDefinition> points;
    config->GetEyePoints(sheet.standard, sheet.category, points);
    for (const VEXMELKEyePointDefinition& point : points)
    {
        const std::string name = VEXMELKPlain(point.name);
        if (point.dx_type == VEXIMELKEyePoints::Length && point.dy_type == VEXIMELKEyePoints::Length &&
            point.dz_type == VEXIMELKEyePoints::Length)
            views.Mark(name, sheet.Length(name + ".dx", point.dx).value, sheet.Length(name + ".dy", point.dy).value,
                sheet.Length(name + ".dz", point.dz).value);
        else
            sheet.Note(name + ": dx " + VEXMELKPlain(point.dx) + ", dy " + VEXMELKPlain(point.dy) + ", dz " +
                       VEXMELKPlain(point.dz) + " (not drawn: it depends on the steering wheel)");
    }
    using Query = unsigned char (VEXMELKEyePointsConfig::*)(
        const CATUnicodeString&, const CATUnicodeString&, VEXMELKEyePointPosition&);
    struct Named
    {
        const char* name;
        Query query;
    };
    for (const Named& named : {Named{"top V", &VEXMELKEyePointsConfig::GetTopVEyePointPosition},
             Named{"bottom V", &VEXMELKEyePointsConfig::GetBottomVEyePointPosition},
             Named{"left P", &VEXMELKEyePointsConfig::GetLeftPEyePointPosition},
             Named{"right P", &VEXMELKEyePointsConfig::GetRightPEyePointPosition},
             Named{"left", &VEXMELKEyePointsConfig::GetLeftEyePointPosition},
             Named{"right", &VEXMELKEyePointsConfig::GetRightEyePointPosition}})
    {
        VEXMELKEyePointPosition position;
        if ((config.Get()->*named.query)(sheet.standard, sheet.category, position))
            views.Mark(named.name, position.dx, position.dy, position.dz);
    }
}

void DrawEyePoints(const VEXMELKSheet& sheet)
{
    const EyeViews views(sheet);
    DrawEyeCategory(sheet, views);
    if (views.side.IsEmpty())
        return;
    const auto config = sheet.New<VEXMELKEyePointsConfig>();
    const VEXMELKMeasure back = sheet.Given("back line", config->GetBackLineLength(sheet.standard));
    const VEXMELKMeasure vertical = sheet.Given("vertical line", config->GetVertLineLength(sheet.standard));
    const double turn = 90.0 - sheet.vehicle.backAngle;
    views.side.Ray({0.0, 0.0}, turn, back.value, back);
    views.side.Length(back, {0.0, 0.0}, VEXMELKPolar({0.0, 0.0}, turn, back.value));
    views.side.Line({{0.0, 0.0}, {0.0, vertical.value}}, vertical);
    views.side.Length(vertical, {0.0, 0.0}, {0.0, vertical.value});
    views.side.Surroundings().Mark({0.0, 0.0}, "reference point");
    views.plan.Surroundings().Mark({0.0, 0.0}, "reference point");
    sheet.Note("the back line stands at the back angle of the category's driver's seat, " +
               VEXMELKNumberText(sheet.vehicle.backAngle) + "deg");
}

void DrawMovements(const EyeViews& views, const std::string& name, const VEXMELKExtendedEyePointPosition& at,
    const VEXMELKExtendedEyePointMovements& moves)
{
    if (moves.forward_backward_min != moves.forward_backward_max || moves.down_up_min != moves.down_up_max)
    {
        const VEXMELKMeasure box{name + " free movements", "", 0.0, true};
        views.side.Area(VEXMELKBox({at.dx + moves.forward_backward_min, at.dz + moves.down_up_min},
                            {at.dx + moves.forward_backward_max, at.dz + moves.down_up_max}),
            box);
        views.plan.Area(VEXMELKBox({at.dx + moves.forward_backward_min, at.dy + moves.left_right_min},
                            {at.dx + moves.forward_backward_max, at.dy + moves.left_right_max}),
            box);
    }
    struct Standard
    {
        const char* name;
        double x;
        double y;
        double z;
    };
    for (const Standard& move : {Standard{"ext_up", moves.ext_up_dx, moves.ext_up_dy, moves.ext_up_dz},
             Standard{"ext_front", moves.ext_front_dx, moves.ext_front_dy, moves.ext_front_dz},
             Standard{"ext_side", moves.ext_side_dx, moves.ext_side_dy, moves.ext_side_dz}})
        if (move.x != 0.0 || move.y != 0.0 || move.z != 0.0)
        {
            views.side.Line({{at.dx, at.dz}, {at.dx + move.x, at.dz + move.z}});
            views.plan.Line({{at.dx, at.dy}, {at.dx + move.x, at.dy + move.y}});
            views.Mark(name + " " + move.name, at.dx + move.x, at.dy + move.y, at.dz + move.z);
        }
}

void DrawExtendedEyePoints(const VEXMELKSheet& sheet)
{
    const EyeViews views(sheet);
    VEXMELKExtendedEyePointMovements moves;
    const auto config = sheet.New<VEXMELKExtendedEyePointsConfig>();
    config->GetExtendedEyePointMovements(sheet.standard, sheet.category, moves);
    for (const CATUnicodeString& name : VEXMELKChoicesFor(
             sheet, VEXMELKExtendedEyePointsConfig::description, "GetExtendedEyePointPosition", "pointName"))
    {
        VEXMELKExtendedEyePointPosition at;
        if (!config->GetExtendedEyePointPosition(sheet.standard, sheet.category, name, at))
            continue;
        if (at.dx == 0.0 && at.dy == 0.0 && at.dz == 0.0)
            continue; // an element that is no point
        views.Mark(VEXMELKPlain(name), at.dx, at.dy, at.dz);
        DrawMovements(views, VEXMELKPlain(name), at, moves);
    }
    if (!views.side.IsEmpty())
        sheet.NoteText("type of movement", moves.type);
}

// Heads and seats
// --------------------------------------------------------------------------------------------------------

struct HeadEllipse
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    int cutoff = 0;
};

std::vector<HeadEllipse> HeadEllipsesOf(const VEXMELKSheet& sheet)
{
    const auto config = sheet.New<VEXMELKHeadContourConfig>();
    CATListValCATUnicodeString cutoffs;
    config->GetCutoffList(sheet.standard, sheet.category, cutoffs);
    std::vector<HeadEllipse> ellipses;
    for (const CATUnicodeString& text : cutoffs)
    {
        HeadEllipse ellipse;
        text.ConvertToNum(&ellipse.cutoff, "%d");
        if (config->GetRadii(sheet.standard, sheet.category, sheet.vehicle.hPointTravel, ellipse.cutoff, ellipse.x,
                ellipse.y, ellipse.z))
            ellipses.push_back(ellipse);
    }
    return ellipses;
}

void DrawClearance(const VEXMELKSheet& sheet, const VEXMELKPen& rear, const CATUnicodeString& seat,
    const HeadEllipse& head, VEXMELKSpot centre)
{
    double angle = 0.0;
    double diagonal = 0.0;
    double vertical = 0.0;
    if (!sheet.New<VEXMELKHeadContourConfig>()->GetHeadClearance(
            sheet.standard, sheet.category, seat, angle, diagonal, vertical))
        return;
    const VEXMELKSpot top{centre.x, centre.y + head.z};
    const VEXMELKMeasure up = sheet.Given("reqVertical", vertical * 1000.0);
    rear.Line({{top.x - 0.5 * head.y, top.y + up.value}, {top.x + 0.5 * head.y, top.y + up.value}}, up);
    rear.Length(up, top, {top.x, top.y + up.value});
    const VEXMELKMeasure tilt = sheet.Given("angle", VEXMELKDegrees(angle), "deg");
    const VEXMELKMeasure aside = sheet.Given("reqDiagonal", diagonal * 1000.0);
    const double radians = (90.0 - tilt.value) / VEXMELKDegrees(1.0);
    const double reach =
        head.y * head.z / std::hypot(head.z * std::cos(radians), head.y * std::sin(radians)); // to the contour
    const VEXMELKSpot on = VEXMELKPolar(centre, 90.0 - tilt.value, reach);
    rear.Axis(centre, on);
    rear.Length(aside, on, VEXMELKPolar(on, 90.0 - tilt.value, aside.value));
    rear.Line({on, VEXMELKPolar(on, 90.0 - tilt.value, aside.value)}, aside);
    rear.Angle(tilt, centre, 90.0, 90.0 - tilt.value, 0.6 * head.z);
}

void DrawHeadContour(const VEXMELKSheet& sheet)
{
    const std::vector<HeadEllipse> heads = HeadEllipsesOf(sheet);
    const auto config = sheet.New<VEXMELKHeadContourConfig>();
    double sideAngle = 0.0;
    double planAngle = 0.0;
    config->GetTipAngles(sheet.standard, sheet.category, sideAngle, planAngle);
    double stripe = 0.0;
    const bool hasStripe = config->GetMiddleStripeWitdh(sheet.standard, stripe) != 0;
    for (const char* seat : {"driver", "front", "back"})
    {
        VEXMELKSpot side;
        double across = 0.0;
        const bool hasDeltas = config->GetDeltas(sheet.standard, sheet.category, seat, sheet.vehicle.hPointTravel,
                                   side.x, across, side.y) != 0;
        if (heads.empty() || !hasDeltas)
            continue;
        const std::string name = seat;
        const VEXMELKPen sideView = sheet.On(
            name + ", side view", std::string(toTheRear) + " from the eyes", std::string(upwards) + " from the eyes");
        const VEXMELKPen rearView =
            sheet.On(name + ", from the rear", "outwards from the eyes", std::string(upwards) + " from the eyes");
        for (const HeadEllipse& head : heads)
        {
            const std::string percent = std::to_string(head.cutoff) + "% ";
            const VEXMELKMeasure radius = sheet.Given(percent + "xRadius", head.x);
            sideView.Ellipse(side, head.x, head.z, VEXMELKDegrees(sideAngle), radius);
            sideView.Length(radius, side, VEXMELKPolar(side, VEXMELKDegrees(sideAngle), head.x));
            const VEXMELKMeasure wide = sheet.Given(percent + "yRadius", head.y);
            rearView.Ellipse({across, side.y}, head.y, head.z, 0.0, wide);
            rearView.Length(wide, {across - head.y, side.y}, {across, side.y});
            rearView.Length(sheet.Given(percent + "zRadius", head.z), {across, side.y}, {across, side.y + head.z});
        }
        sideView.Mark({0.0, 0.0}, "eyes");
        sideView.Length(sheet.Given("deltaX", side.x), {0.0, 0.0}, {side.x, 0.0});
        sideView.Length(sheet.Given("deltaZ", side.y), {side.x, 0.0}, side);
        DrawClearance(sheet, rearView, seat, heads.back(), {across, side.y});
        if (hasStripe)
        {
            const VEXMELKMeasure width = sheet.Given("middle stripe", stripe);
            for (const double sign : {-0.5, 0.5})
                rearView.Line(
                    {{across + sign * stripe, side.y}, {across + sign * stripe, side.y + heads.back().z}}, width);
            rearView.Length(width, {across - 0.5 * stripe, side.y}, {across + 0.5 * stripe, side.y});
        }
    }
    CATUnicodeString reference;
    if (config->GetEllipsesStandard(sheet.standard, reference))
        sheet.NoteText("eye ellipses", reference);
}

// X = a + b·Z + c·Z², as far as each curve reaches.
void DrawSRPCurves(const VEXMELKSheet& sheet)
{
    VEXArray<VEXMELKSRPLocationCurveDefinition> curves;
    sheet.New<VEXMELKSRPLocationCurvesConfig>()->GetStandardData(sheet.standard, sheet.category, curves);
    for (const VEXMELKSRPLocationCurveDefinition& curve : curves)
    {
        const VEXMELKPen pen = sheet.On("Side view", "X, behind the heel point", "Z, above the heel point");
        const std::string name = VEXMELKPlain(curve.name);
        std::vector<VEXMELKSpot> points;
        constexpr int steps = 40;
        for (int step = 0; step <= steps; ++step)
        {
            const double z = curve.z_min + (curve.z_max - curve.z_min) * step / steps;
            points.push_back({curve.a + curve.b * z + curve.c * z * z, z});
        }
        const std::string equation = VEXMELKNumberText(curve.a) + " + " + VEXMELKNumberText(curve.b) + "·Z + " +
                                     VEXMELKNumberText(curve.c) + "·Z²";
        pen.Line(points, {name, equation, curve.a, true});
        pen.Mark(points.back(), name);
        pen.Length(
            sheet.Given(name + " z", curve.z_max - curve.z_min), points.front(), {points.front().x, curve.z_max});
        sheet.Note(name + ": X = " + equation + ", Z from " + VEXMELKNumberText(curve.z_min) + " to " +
                   VEXMELKNumberText(curve.z_max) + "mm");
    }
}

constexpr VEXMELKDrawer occupantDrawers[] = {
    {"BaseData", DrawBaseData},
    {"EyeEllipses", DrawEyeEllipses},
    {"EyePoints", DrawEyePoints},
    {"ExtendedEyePoints", DrawExtendedEyePoints},
    {"HeadContour", DrawHeadContour},
    {"SRPLocationCurves", DrawSRPCurves},
};

} // namespace

std::span<const VEXMELKDrawer> VEXMELKOccupantDrawers() { return occupantDrawers; }
