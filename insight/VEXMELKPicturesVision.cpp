// What the driver sees and has to see: fields of view as diagrams of angles, cones and planes from the eye, mirrors'
// and close-range areas around the vehicle.
#include "VEXMELKAPillarConfig.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKDirectView3DConfig.h"
#include "VEXMELKDirectViewConfig.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKFieldsOfViewConfig.h"
#include "VEXMELKMirrorConfig.h"
#include "VEXMELKMultipleReflectionConfig.h"
#include "VEXMELKOpticalDistortionConfig.h"
#include "VEXMELKPyramidConfig.h"
#include "VEXMELKSheet.h"
#include "VEXMELKVisionConeConfig.h"
#include "VEXMELKVisionPointsConfig.h"
#include "VEXMELKWipersConfig.h"

#include <algorithm>
#include <cmath>

namespace {

// Fields of view
// -------------------------------------------------------------------------------------------------------

VEXMELKPen AngleDiagram(const VEXMELKSheet& sheet, const std::string& title)
{
    return sheet.On(title, "azimuth, to the passenger's side", "elevation, up", "deg");
}

// A rectangle of angles, with its four limits as far as they are given.
void DrawAngleField(const VEXMELKPen& pen, const std::string& name, const VEXMELKMeasure& top,
    const VEXMELKMeasure& bottom, const VEXMELKMeasure& left, const VEXMELKMeasure& right)
{
    if (!top && !bottom && !left && !right)
        return;
    pen.Area(VEXMELKBox({left.value, bottom.value}, {right.value, top.value}), {name, "", 0.0, true});
    pen.Label({left.value, top.value}, name);
    pen.Length(left, {left.value, 0.0}, {0.0, 0.0});
    pen.Length(right, {0.0, 0.0}, {right.value, 0.0});
    pen.Length(top, {right.value, 0.0}, {right.value, top.value});
    pen.Length(bottom, {right.value, bottom.value}, {right.value, 0.0});
}

void DrawThresholds(const VEXMELKSheet& sheet, const VEXMELKFieldsOfViewConfigDefinition& fields)
{
    const VEXMELKMeasure thresholds[] = {sheet.Length("threshold1", fields.threshold1),
        sheet.Length("threshold2", fields.threshold2), sheet.Length("threshold3", fields.threshold3),
        sheet.Length("threshold4", fields.threshold4)};
    double y = 0.0;
    double most = 0.0;
    for (const VEXMELKMeasure& threshold : thresholds)
        most = std::max(most, std::fabs(threshold.value));
    for (const VEXMELKMeasure& threshold : thresholds)
    {
        const VEXMELKPen pen = sheet.On("Thresholds", "length", "schematic");
        if (threshold)
            pen.Line({{0.0, y}, {threshold.value, y}}, threshold);
        pen.Length(threshold, {0.0, y}, {threshold.value, y});
        y -= 0.12 * most;
    }
}

void DrawFieldsOfView(const VEXMELKSheet& sheet)
{
    VEXMELKFieldsOfViewConfigDefinition definition;
    if (!sheet.New<VEXMELKFieldsOfViewConfig>()->GetStandardData(sheet.standard, sheet.category, definition))
        return;
    for (std::size_t number = 0; number < definition.fields.size(); ++number)
    {
        const VEXMELKFOVField& field = definition.fields[number];
        if (!field.present)
            continue;
        const std::string name(1, static_cast<char>('A' + number));
        const VEXMELKPen pen = AngleDiagram(sheet, "Field " + name);
        for (std::size_t index = 0; index < field.intervals.size(); ++index)
        {
            const VEXMELKFOVInterval& interval = field.intervals[index];
            if (!interval.present)
                continue;
            const std::string prefix = name + std::to_string(index) + " ";
            DrawAngleField(pen, name + std::to_string(index), sheet.Angle(prefix + "top", interval.top_angle),
                sheet.Angle(prefix + "bottom", interval.bottom_angle),
                sheet.Angle(prefix + "driver", interval.driver_angle),
                sheet.Angle(prefix + "passenger", interval.passenger_angle));
        }
        sheet.NoteText("offset of field " + name, field.offset);
    }
    DrawThresholds(sheet, definition);
}

void DrawSubtractedAreas(const VEXMELKSheet& sheet, const VEXMELKPen& pen, const VEXMELKERFOVField& field,
    const VEXMELKMeasure& top, const VEXMELKMeasure& bottom, const VEXMELKMeasure& driver)
{
    if (field.upper_area.present)
    {
        const VEXMELKMeasure limit = sheet.Angle("upper area bottom_angle", field.upper_area.bottom_angle);
        const VEXMELKMeasure side = sheet.Angle("A1_driver_angle", field.upper_area.A1_driver_angle);
        if (limit && side)
            pen.Area(VEXMELKBox({side.value, limit.value}, {0.0, top.value}), limit);
        pen.Length(limit, {0.0, 0.0}, {0.0, limit.value});
        pen.Length(side, {side.value, top.value}, {0.0, top.value});
        sheet.NoteText("A2_area_width", field.upper_area.A2_area_width);
        sheet.NoteText("upper area by default", field.upper_area.upper_area_default);
    }
    if (field.side_area.present)
    {
        const VEXMELKMeasure limit = sheet.Angle("side area driver_angle", field.side_area.driver_angle);
        if (limit)
            pen.Area(VEXMELKBox({driver.value, bottom.value}, {limit.value, top.value}), limit);
        pen.Length(limit, {limit.value, bottom.value}, {0.0, bottom.value});
        sheet.NoteText("side area by default", field.side_area.side_area_default);
    }
    if (field.lower_area.present)
    {
        const VEXMELKMeasure limit = sheet.Angle("lower area bottom_angle", field.lower_area.bottom_angle);
        if (limit)
            pen.Area(VEXMELKBox({driver.value, bottom.value}, {0.0, limit.value}), limit);
        pen.Length(limit, {driver.value, limit.value}, {driver.value, 0.0});
        sheet.NoteText("cut_out_width", field.lower_area.cut_out_width);
        sheet.NoteText("lower area by default", field.lower_area.lower_area_default);
    }
    if (field.extended_a_field.present)
        sheet.NoteText("extended a-field by default", field.extended_a_field.extended_a_field_default);
}

void DrawERFieldsOfView(const VEXMELKSheet& sheet)
{
    VEXMELKERFieldsOfViewConfigDefinition definition;
    if (!sheet.New<VEXMELKERFieldsOfViewConfig>()->GetStandardData(sheet.standard, sheet.category, definition))
        return;
    const char* const names[] = {"extended A", "reduced B"};
    for (std::size_t number = 0; number < std::size(names); ++number)
    {
        const VEXMELKERFOVField& field = definition.fields[number];
        if (!field.present)
            continue;
        const VEXMELKPen pen = AngleDiagram(sheet, std::string("Field ") + names[number] + ", driver's half");
        const VEXMELKMeasure top = sheet.Angle("top_angle", field.top_angle);
        const VEXMELKMeasure bottom = sheet.Angle("bottom_angle", field.bottom_angle);
        const VEXMELKMeasure driver = sheet.Angle("driver_angle", field.driver_angle);
        DrawAngleField(pen, names[number], top, bottom, driver, {});
        DrawSubtractedAreas(sheet, pen, field, top, bottom, driver);
        sheet.NoteText(std::string("offset of field ") + names[number], field.offset);
    }
}

// From the eye
// -----------------------------------------------------------------------------------------------------------

// The eye looks to the front, which is on the left: turns there are 180 degrees.
constexpr double toTheFront = 180.0;

struct EyePanels
{
    VEXMELKPen side;
    VEXMELKPen plan;
    VEXMELKSpot sideEye;
    VEXMELKSpot planEye;
    explicit EyePanels(const VEXMELKSheet& sheet)
        : side(sheet.SideView()),
          plan(sheet.PlanView()),
          sideEye(sheet.vehicle.Eye()),
          planEye{sideEye.x, sheet.vehicle.seatY}
    {
    }
};

// A direction that rises by an angle (negative: falls) in side view.
void DrawElevation(const VEXMELKPen& pen, VEXMELKSpot eye, const VEXMELKMeasure& angle, double reach)
{
    if (!angle)
        return;
    pen.Ray(eye, toTheFront - angle.value, reach, angle);
    pen.Angle(angle, eye, toTheFront, toTheFront - angle.value, 0.6 * reach);
}

// A direction to the right (positive) or to the left in plan view: Y is to the right, which is up there.
void DrawAzimuth(const VEXMELKPen& pen, VEXMELKSpot eye, const VEXMELKMeasure& angle, double reach, double sign = 1.0)
{
    if (!angle)
        return;
    pen.Ray(eye, toTheFront - sign * angle.value, reach, angle);
    pen.Angle(angle, eye, toTheFront, toTheFront - sign * angle.value, 0.6 * reach);
}

void DrawEye(const EyePanels& panels, double reach)
{
    panels.side.Mark(panels.sideEye, "eye");
    panels.plan.Mark(panels.planEye, "eye");
    panels.side.Axis(panels.sideEye, {panels.sideEye.x - reach, panels.sideEye.y});
    panels.plan.Axis(panels.planEye, {panels.planEye.x - reach, panels.planEye.y});
}

void DrawVisionCone(const VEXMELKSheet& sheet)
{
    VEXMELKVisionConeConfigDefinition cone;
    if (!sheet.New<VEXMELKVisionConeConfig>()->GetStandardData(sheet.standard, sheet.category, cone))
        return;
    const EyePanels panels(sheet);
    const VEXMELKMeasure angle = sheet.Angle("cone_angle", cone.cone_angle);
    const VEXMELKMeasure across = sheet.Angle("horizontal_axis_angle", cone.horizontal_axis_angle);
    const VEXMELKMeasure up = sheet.Angle("vertical_axis_angle", cone.vertical_axis_angle);
    const VEXMELKMeasure length = sheet.Length("cone_length", cone.cone_length);
    const double reach = length ? length.value : 1000.0;
    DrawEye(panels, reach);
    const auto draw = [&](const VEXMELKPen& pen, VEXMELKSpot eye, const VEXMELKMeasure& axis)
    {
        const double turn = toTheFront - axis.value;
        if (angle)
            pen.Sector(eye, turn - angle.value / 2.0, turn + angle.value / 2.0, reach, angle);
        pen.Axis(eye, VEXMELKPolar(eye, turn, 1.1 * reach));
        pen.Angle(axis, eye, toTheFront, turn, 0.9 * reach);
        pen.Angle(angle, eye, turn - angle.value / 2.0, turn + angle.value / 2.0, 0.45 * reach);
        pen.Length(length, VEXMELKPolar(eye, turn + angle.value / 2.0, reach), eye);
    };
    draw(panels.side, panels.sideEye, up);
    draw(panels.plan, panels.planEye, across);
}

void DrawVisionPoints(const VEXMELKSheet& sheet)
{
    VEXMELKVisionPointsConfigDefinition points;
    if (!sheet.New<VEXMELKVisionPointsConfig>()->GetStandardData(sheet.standard, sheet.category, points))
        return;
    constexpr double reach = 2200.0;
    const EyePanels panels(sheet);
    DrawEye(panels, reach);
    DrawElevation(panels.side, panels.sideEye, sheet.Angle("top_angle", points.top_angle), reach);
    DrawElevation(panels.side, panels.sideEye, sheet.Angle("bottom_angle", points.bottom_angle), reach);
    DrawAzimuth(panels.plan, panels.planEye, sheet.Angle("horizontal_angle", points.horizontal_angle), reach, -1.0);
}

// The front plane is seen from the side, the others from above.
void DrawPyramid(const VEXMELKSheet& sheet)
{
    VEXMELKPyramidConfigDefinition planes;
    if (!sheet.New<VEXMELKPyramidConfig>()->GetStandardData(sheet.standard, sheet.category, planes))
        return;
    constexpr double reach = 2200.0;
    const EyePanels panels(sheet);
    DrawEye(panels, reach);
    DrawElevation(panels.side, panels.sideEye, sheet.Angle("front_angle", planes.front_angle), reach);
    DrawElevation(
        panels.side, panels.sideEye, sheet.Angle("middle_plane_angle", planes.middle_plane_angle), 0.8 * reach);
    DrawAzimuth(panels.plan, panels.planEye, sheet.Angle("driver_angle", planes.driver_angle), reach, -1.0);
    DrawAzimuth(panels.plan, panels.planEye, sheet.Angle("passenger_angle", planes.passenger_angle), reach);
}

void DrawAPillar(const VEXMELKSheet& sheet)
{
    VEXMELKAPillarConfigDefinition pillar;
    if (!sheet.New<VEXMELKAPillarConfig>()->GetStandardData(sheet.standard, sheet.category, pillar))
        return;
    constexpr double reach = 1500.0;
    const EyePanels panels(sheet);
    DrawEye(panels, reach);
    DrawElevation(panels.side, panels.sideEye, sheet.Angle("top_angle", pillar.top_angle), reach);
    DrawElevation(panels.side, panels.sideEye, sheet.Angle("bottom_angle", pillar.bottom_angle), reach);
    DrawAzimuth(panels.plan, panels.planEye, sheet.Angle("driver_angle", pillar.driver_angle), reach, -1.0);
    DrawAzimuth(panels.plan, panels.planEye, sheet.Angle("passenger_angle", pillar.passenger_angle), reach);
    // The eyes are the base of a triangle; the head turns about its apex.
    const VEXMELKMeasure side = sheet.Length("eye_triangle_side", pillar.eye_triangle_side);
    const VEXMELKMeasure base = sheet.Length("eye_triangle_base", pillar.eye_triangle_base);
    if (side && base && side.value > std::fabs(base.value) / 2.0)
    {
        const VEXMELKPen pen = sheet.On("Eye triangle", "X, to the rear from the eyes", "Y, to the right");
        const VEXMELKSpot left{0.0, -base.value / 2.0};
        const VEXMELKSpot right{0.0, base.value / 2.0};
        const VEXMELKSpot apex{std::sqrt(side.value * side.value - base.value * base.value / 4.0), 0.0};
        pen.Outline({left, right, apex}, side);
        pen.Mark(left, "left eye");
        pen.Mark(right, "right eye");
        pen.Mark(apex, "P");
        pen.Length(base, left, right);
        pen.Length(side, left, apex);
        const VEXMELKMeasure touch = sheet.Angle("touch_line_angle", pillar.touch_line_angle);
        pen.Angle(touch, right, toTheFront, toTheFront - touch.value, 0.9 * side.value);
        if (touch)
            pen.Ray(right, toTheFront - touch.value, 1.2 * side.value, touch);
        pen.Axis(right, {right.x - 1.2 * side.value, right.y});
    }
}

// Direct view
// ------------------------------------------------------------------------------------------------------------

void DrawDirectViewPoints(const VEXMELKSheet& sheet, VEXMELKDirectViewCFG& view)
{
    const EyePanels panels(sheet);
    panels.side.Mark(panels.sideEye, "eye");
    panels.plan.Mark(panels.planEye, "eye");
    for (int number = 1; number <= view.Points.Size(); ++number)
    {
        const CATMathPoint point = view.Points[number];
        const int reference = number <= view.PointReferences.Size() ? view.PointReferences[number] : 0;
        // X and Y are measured from the reference, as is Z from the eyes; else Z is a height above the road.
        const bool isFromEyes = reference == 3;
        const double x = reference == 1   ? sheet.vehicle.front
                         : reference == 2 ? sheet.vehicle.rear
                         : isFromEyes     ? panels.sideEye.x
                                          : 0.0;
        const double y = isFromEyes ? panels.planEye.y : 0.0;
        const double z = isFromEyes ? panels.sideEye.y : 0.0;
        const std::string name = VEXMELKPlain(view.PointNames[number]);
        const VEXMELKSpot side{x + point.GetX(), z + point.GetZ()};
        const VEXMELKSpot plan{x + point.GetX(), y + point.GetY()};
        const VEXMELKMeasure measure{name,
            VEXMELKNumberText(point.GetX()) + ", " + VEXMELKNumberText(point.GetY()) + ", " +
                VEXMELKNumberText(point.GetZ()),
            point.GetX(), true};
        panels.side.Line({panels.sideEye, side});
        panels.plan.Line({panels.planEye, plan});
        panels.side.Mark(side, name, measure);
        panels.plan.Mark(plan, name, measure);
        const char* const references[] = {"the front axle", "the vehicle's front", "the vehicle's rear", "the eyes"};
        sheet.Note(
            name + ": " + measure.text + "mm from " + references[reference >= 0 && reference <= 3 ? reference : 0]);
    }
}

void DrawDirectView(const VEXMELKSheet& sheet)
{
    VEXMELKDirectViewCFG view;
    sheet.New<VEXMELKDirectViewConfig>()->GetStandardData(sheet.standard, sheet.category, view);
    const VEXMELKMeasure top = sheet.Angle("MaxTopAngle", view.MaxTopAngle);
    const VEXMELKMeasure bottom = sheet.Angle("MaxBottomAngle", view.MaxBottomAngle);
    const VEXMELKMeasure azimuth = sheet.Angle("MPAzimuth", view.MPAzimuth);
    const VEXMELKMeasure elevation = sheet.Angle("MPElevation", view.MPElevation);
    if (top || bottom || azimuth || elevation)
    {
        const VEXMELKPen pen = AngleDiagram(sheet, "Limits of the view");
        const double half =
            std::max({std::fabs(azimuth.value) * 1.5, std::fabs(top.value), std::fabs(bottom.value), 1.0});
        if (top && bottom)
            pen.Area(VEXMELKBox({-half, bottom.value}, {half, top.value}), top);
        pen.Length(top, {half, 0.0}, {half, top.value});
        pen.Length(bottom, {half, bottom.value}, {half, 0.0});
        if (azimuth && elevation)
            pen.Mark({azimuth.value, elevation.value}, "reference direction", azimuth);
        pen.Length(azimuth, {0.0, elevation.value}, {azimuth.value, elevation.value});
        pen.Length(elevation, {azimuth.value, 0.0}, {azimuth.value, elevation.value});
    }
    DrawDirectViewPoints(sheet, view);
}

double TurnOf(const VEXMELKDirectView3DCFG& view)
{
    switch (view.Orientation)
    {
    case DV3DBackward:
        return 0.0;
    case DV3DLeft: // Y is to the right, which is up
        return 270.0;
    case DV3DRight:
        return 90.0;
    case DV3DAngle:
        return toTheFront - VEXMELKDegrees(view.DirectionAngle);
    default:
        return toTheFront;
    }
}

void DrawDirectView3D(const VEXMELKSheet& sheet)
{
    VEXMELKDirectView3DCFG view;
    sheet.New<VEXMELKDirectView3DConfig>()->GetStandardData(sheet.standard, sheet.category, view);
    if (view.TargetDistance <= 0.0 && view.ViewRange <= 0.0)
        return;
    const VEXMELKPen pen = sheet.PlanView();
    const VEXMELKSpot eye{sheet.vehicle.Eye().x, sheet.vehicle.seatY};
    const VEXMELKMeasure range = sheet.Given("ViewRange", VEXMELKDegrees(view.ViewRange), "deg");
    const VEXMELKMeasure distance = sheet.Given("TargetDistance", view.TargetDistance);
    const double reach = view.TargetDistance > 0.0 ? view.TargetDistance : 5000.0;
    const double turn = TurnOf(view);
    const double half = range.value / 2.0;
    pen.Mark(eye, "eye");
    pen.Axis(eye, VEXMELKPolar(eye, turn, 1.1 * reach));
    pen.Length(distance, eye, VEXMELKPolar(eye, turn, reach));
    pen.Angle(range, eye, turn - half, turn + half, 0.35 * reach);
    if (view.TargetType == DV3DSpherical)
        pen.Sector(eye, turn - half, turn + half, reach, range);
    else
    {
        // A plane at the distance: across the direction, or along the vehicle beside it.
        const VEXMELKSpot middle = VEXMELKPolar(eye, turn, reach);
        const double wide = reach * std::tan(std::min(half, 75.0) / VEXMELKDegrees(1.0));
        pen.Line({VEXMELKPolar(middle, turn + 90.0, wide), VEXMELKPolar(middle, turn - 90.0, wide)}, distance);
        pen.Ray(eye, turn - half, reach, range);
        pen.Ray(eye, turn + half, reach, range);
    }
    sheet.NoteText("Direction", view.DirectionText);
    sheet.NoteText("ComputationType", view.ComputationTypeText);
    sheet.NoteText("Target", view.TargetTypeText);
}

// Around the vehicle
// -----------------------------------------------------------------------------------------------------

// Where a coordinate is measured from, by its name.
double OriginOf(const VEXMELKSheet& sheet, const CATUnicodeString& reference, const VEXMELKMeasure& coordinate)
{
    const std::string name = VEXMELKPlain(reference);
    if (name == "Eyes")
        return sheet.vehicle.Eye().x;
    if (name == "CarBack")
        return sheet.vehicle.rear;
    if (name == "CarFront")
        return sheet.vehicle.front;
    if (name == "CarSide") // outwards on the side that the sign says
        return (coordinate.value < 0.0 ? -0.5 : 0.5) * sheet.vehicle.width;
    return 0.0;
}

void DrawMirrorPoint(const VEXMELKSheet& sheet, const VEXMELKPen& plan, const VEXMELKMirrorPointDefinition& point,
    bool isOnRoad, const VEXMELKMeasure& plane, double planeAt, int number, std::vector<VEXMELKSpot>& ground)
{
    const std::string name = std::to_string(number);
    const VEXMELKMeasure first = sheet.Length("point " + name, point.Coordinate1);
    const VEXMELKMeasure y = sheet.Length("point " + name + " Y", point.Y);
    const VEXMELKMeasure radius = sheet.Length("point " + name + " R", point.R);
    const double x = isOnRoad ? OriginOf(sheet, point.Coordinate1REL, first) + first.value : planeAt;
    const VEXMELKSpot at{x, OriginOf(sheet, point.YREL, y) + y.value};
    if (!isOnRoad && !plane)
        return;
    ground.push_back(at);
    plan.Mark(at, name, first);
    if (radius && radius.value > 0.0)
        plan.Circle(at, radius.value, radius);
    sheet.Note("point " + name + ": " + (isOnRoad ? "X " : "Z ") + VEXMELKPlain(point.Coordinate1) + " from " +
               VEXMELKPlain(point.Coordinate1REL) + ", Y " + VEXMELKPlain(point.Y) + " from " +
               VEXMELKPlain(point.YREL) + ", R " + VEXMELKPlain(point.R));
}

void DrawMirrorPosition(const VEXMELKSheet& sheet, const VEXMELKMirrorDefinition& mirror)
{
    const VEXMELKPen plan = sheet.PlanView("Mirror: " + VEXMELKPlain(mirror.PositionType));
    const VEXMELKMeasure plane = sheet.Length("X", mirror.X);
    const double planeAt = OriginOf(sheet, mirror.XREL, plane) + plane.value;
    const VEXMELKSpot eye{sheet.vehicle.Eye().x, sheet.vehicle.seatY};
    plan.Mark(eye, "eye");
    const bool isRoad = VEXMELKPlain(mirror.Plane) == "road";
    std::vector<VEXMELKSpot> ground;
    for (int number = 0; number < mirror.Points.size(); ++number)
    {
        const VEXMELKMirrorPointDefinition& point = mirror.Points[number];
        const bool isOnRoad = isRoad || VEXMELKPlain(point.Coordinate1REL) != "Road";
        DrawMirrorPoint(sheet, plan, point, isOnRoad, plane, planeAt, number + 1, ground);
    }
    double widest = sheet.vehicle.width;
    for (const VEXMELKSpot& spot : ground)
    {
        plan.Line({eye, spot});
        widest = std::max(widest, std::fabs(spot.y));
    }
    if (ground.size() > 1)
        plan.Line(ground);
    if (plane)
        plan.Line({{planeAt, -1.15 * widest}, {planeAt, 1.15 * widest}}, plane);
    plan.Length(plane, {planeAt - plane.value, 0.0}, {planeAt, 0.0});
    const VEXMELKMeasure line = sheet.Length("USBackLineDistance", mirror.USBackLineDistance);
    const VEXMELKMeasure angle = sheet.Angle("USAngle", mirror.USAngle);
    plan.Length(line, {sheet.vehicle.rear, 0.0}, {sheet.vehicle.rear + line.value, 0.0});
    if (angle)
        for (const double sign : {-0.5, 0.5})
            plan.Ray(eye, sign * angle.value, planeAt - eye.x, angle);
    plan.Angle(angle, eye, -angle.value / 2.0, angle.value / 2.0, 0.5 * (planeAt - eye.x));
    sheet.NoteText("required coverage of " + VEXMELKPlain(mirror.PositionType), mirror.ReqTotalCoverage);
}

void DrawMirror(const VEXMELKSheet& sheet)
{
    CATListValCATUnicodeString names;
    sheet.New<VEXMELKMirrorConfig>()->GetIFNamesList(sheet.standard, sheet.category, names);
    for (const CATUnicodeString& name : names)
    {
        VEXMELKMirrorDefinition mirror;
        if (sheet.New<VEXMELKMirrorConfig>()->GetStandardData(sheet.standard, sheet.category, name, mirror))
            DrawMirrorPosition(sheet, mirror);
    }
}

void DrawCRV(const VEXMELKSheet& sheet)
{
    VEXMELKCRVConfigDefinition crv;
    if (!sheet.New<VEXMELKCRVConfig>()->GetStandardData(sheet.standard, sheet.category, crv))
        return;
    const VEXMELKVehicle& car = sheet.vehicle;
    const VEXMELKMeasure radius = sheet.Length("radius", crv.radius);
    const VEXMELKMeasure height = sheet.Length("height", crv.height);
    const VEXMELKMeasure ahead = sheet.Length("front_offset", crv.front_offset);
    const VEXMELKMeasure driver = sheet.Length("driver_side_extension", crv.driver_side_extension);
    const VEXMELKMeasure passenger = sheet.Length("passenger_side_extension", crv.passenger_side_extension);
    const VEXMELKPen plan = sheet.PlanView();
    const VEXMELKPen side = sheet.SideView();
    const double half = car.width / 2.0;
    const double axle = 0.0;
    if (VEXMELKPlain(crv.type) == "front_view" && ahead && driver && passenger)
    {
        const double front = car.front - ahead.value;
        plan.Area({{front, -half - driver.value}, {front, half + passenger.value}, {axle, half + passenger.value},
                      {axle, half}, {car.front, half}, {car.front, -half}, {axle, -half}, {axle, -half - driver.value}},
            ahead);
        plan.Length(ahead, {front, 0.0}, {car.front, 0.0});
        plan.Length(driver, {axle, -half - driver.value}, {axle, -half});
        plan.Length(passenger, {axle, half}, {axle, half + passenger.value});
    }
    if (radius && height)
    {
        const double at = car.front - std::max(ahead.value / 2.0, radius.value);
        side.Area(VEXMELKBox({at - radius.value, 0.0}, {at + radius.value, height.value}), height);
        side.Length(height, {at - radius.value, 0.0}, {at - radius.value, height.value});
        side.Length(radius, {at, height.value}, {at + radius.value, height.value});
        plan.Circle({at, 0.0}, radius.value, radius);
        side.Line({car.Eye(), {at + radius.value, height.value}});
        side.Mark(car.Eye(), "eye");
    }
    sheet.NoteText("area", crv.type);
    sheet.NoteText("visibleRayCount", crv.visibleRayCount);
    sheet.NoteText("death zone", crv.param1 + CATUnicodeString(" ") + crv.param2);
}

// The share of each field that has to be wiped, as areas: the whole square is the field.
void DrawWipers(const VEXMELKSheet& sheet)
{
    VEXMELKWipersDefinition wipers;
    if (!sheet.New<VEXMELKWipersConfig>()->GetStandardData(sheet.standard, sheet.category, wipers))
        return;
    struct Zone
    {
        const char* field;
        double share;
    };
    double left = 0.0;
    for (const Zone& zone :
        {Zone{"a_field", wipers.a_field}, Zone{"b_field", wipers.b_field}, Zone{"c_field", wipers.c_field}})
    {
        const VEXMELKPen pen =
            sheet.On("Shares of the fields that are wiped", "fields, one beside the other", "share", "%");
        constexpr double width = 30.0;
        if (zone.share < 0.0)
            sheet.Note(std::string(zone.field) + " is not given");
        else
        {
            const VEXMELKMeasure share = sheet.Given(zone.field, zone.share, "%");
            pen.Surroundings().Outline(VEXMELKBox({left, 0.0}, {left + width, 100.0}));
            pen.Area(VEXMELKBox({left, 0.0}, {left + width, share.value}), share);
            pen.Length(share, {left + width, 0.0}, {left + width, share.value});
        }
        left += 1.7 * width;
    }
}

// The windscreen's optics
// ------------------------------------------------------------------------------------------------

void DrawRequiredAngles(const VEXMELKSheet& sheet, const VEXMELKOpticalPropsOfWSConfigDef& grid)
{
    double x = 0.0;
    for (const VEXMELKMeasure& angle : {sheet.Angle("reqValue", grid.reqValue),
             sheet.Angle("AreqValue", grid.AreqValue), sheet.Angle("BreqValue", grid.BreqValue)})
    {
        const VEXMELKPen pen = sheet.On("Required values", "one beside the other", "angle", "deg");
        if (angle)
            pen.Line({{x, 0.0}, {x, angle.value}}, angle);
        pen.Length(angle, {x, 0.0}, {x, angle.value});
        x += 0.3 * std::max(std::fabs(angle.value), 0.01);
    }
}

// The part that both checks have from their base.
void DrawGrid(const VEXMELKSheet& sheet, VEXMELKOpticalPropsOfWSConfig& config, const VEXMELKMeasure& radius)
{
    VEXMELKOpticalPropsOfWSConfigDef grid;
    if (!config.VEXMELKOpticalPropsOfWSConfig::GetStandardData(sheet.standard, sheet.category, grid))
        return;
    DrawRequiredAngles(sheet, grid);
    constexpr int cells = 6;
    const VEXMELKPen pen = sheet.On("Grid on the windscreen", "Y, to the right", "Z, up");
    const VEXMELKMeasure y = sheet.Length("gridOriginY", grid.gridOriginY);
    const VEXMELKMeasure z = sheet.Length("gridOriginZ", grid.gridOriginZ);
    const VEXMELKMeasure across = sheet.Length("gridXSpace", grid.gridXSpace);
    const VEXMELKMeasure up = sheet.Length("gridYSpace", grid.gridYSpace);
    if (!y || !z || !across || !up)
        return;
    const VEXMELKSpot origin{y.value, z.value};
    for (int line = 0; line <= cells; ++line)
    {
        pen.Line(
            {{origin.x + line * across.value, origin.y}, {origin.x + line * across.value, origin.y + cells * up.value}},
            across);
        pen.Line(
            {{origin.x, origin.y + line * up.value}, {origin.x + cells * across.value, origin.y + line * up.value}},
            up);
    }
    if (radius)
        pen.Circle({origin.x + across.value, origin.y + up.value}, radius.value, radius);
    pen.Mark(origin, "origin " + y.text + ", " + z.text, y);
    pen.Length(across, origin, {origin.x + across.value, origin.y});
    pen.Length(up, {origin.x + cells * across.value, origin.y}, {origin.x + cells * across.value, origin.y + up.value});
    pen.Length(radius, {origin.x + across.value, origin.y + up.value},
        {origin.x + across.value + radius.value, origin.y + up.value});
    sheet.NoteText("gridOriginX", grid.gridOriginX);
    sheet.Note(grid.fromInside ? "seen from inside" : "seen from outside");
}

void DrawOpticalDistortion(const VEXMELKSheet& sheet)
{
    VEXMELKOpticalDistortionConfigDef definition;
    if (!sheet.New<VEXMELKOpticalDistortionConfig>()->GetStandardData(sheet.standard, sheet.category, definition))
        return;
    DrawGrid(sheet, *sheet.New<VEXMELKOpticalDistortionConfig>().Get(), sheet.Length("dcRadius", definition.dcRadius));
    sheet.NoteText("dcDensity", definition.dcDensity);
}

void DrawMultipleReflection(const VEXMELKSheet& sheet)
{
    VEXMELKMultipleReflectionConfigDef definition;
    if (!sheet.New<VEXMELKMultipleReflectionConfig>()->GetStandardData(sheet.standard, sheet.category, definition))
        return;
    DrawGrid(sheet, *sheet.New<VEXMELKMultipleReflectionConfig>().Get(), {});
    sheet.Note(static_cast<int>(definition.rayDirection) == 1 ? "rays along X" : "rays in the standard direction");
}

constexpr VEXMELKDrawer visionDrawers[] = {
    {"FieldsOfView", DrawFieldsOfView},
    {"ERFieldsOfView", DrawERFieldsOfView},
    {"VisionCone", DrawVisionCone},
    {"VisionPoints", DrawVisionPoints},
    {"Pyramid", DrawPyramid},
    {"APillar", DrawAPillar},
    {"DirectView", DrawDirectView},
    {"DirectView3D", DrawDirectView3D},
    {"Mirror", DrawMirror},
    {"CRV", DrawCRV},
    {"Wipers", DrawWipers},
    {"OpticalDistortion", DrawOpticalDistortion},
    {"MultipleReflection", DrawMultipleReflection},
};

} // namespace

std::span<const VEXMELKDrawer> VEXMELKVisionDrawers() { return visionDrawers; }
