// Barriers and bumpers against the vehicle, lamps and number plates on it, free space at its coupling.
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKFreeSpaceConfig.h"
#include "VEXMELKLampPositionsConfig.h"
#include "VEXMELKNumberPlatesConfig.h"
#include "VEXMELKSheet.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// Crash barriers
// ---------------------------------------------------------------------------------------------------------

VEXMELKMeasure PercentOf(const std::string& field, double share)
{
    return {field, VEXMELKNumberText(share * 100.0) + "%", share * 100.0, true};
}

struct BarrierBox
{
    VEXMELKMeasure width;
    VEXMELKMeasure depth;
    VEXMELKMeasure height;
    VEXMELKMeasure aboveRoad;
    VEXMELKMeasure corner; // radius of the edge beside the overlap
    VEXMELKMeasure face;   // radius of the curved face
};

BarrierBox BoxOf(const VEXMELKSheet& sheet, const VEXMELKBarrierDefinition& barrier)
{
    VEXMELKShapeDefinition shape;
    shape.type = barrier.shape;
    if (!sheet.New<VEXMELKCrashBarriersConfig>()->GetShapeData(shape))
        return {};
    const VEXMELKMeasure own = sheet.Length("HeightAboveRoad", barrier.HeightAboveRoad);
    BarrierBox box{sheet.Length("Width", shape.Width), sheet.Length("Depth", shape.Depth),
        sheet.Length("Height", shape.Height), own ? own : sheet.Length("HeightAboveRoad", shape.HeightAboveRoad),
        sheet.Length("Radius", shape.Radius), sheet.Length("Radius2", shape.Radius2)};
    if (!box.face || box.face.value <= box.width.value / 2.0)
        box.face = {}; // a small one rounds edges, it does not curve the face
    return box;
}

// The barrier in a frame of its own: its face on the second axis, its body behind it, the edge that is rounded above.
std::vector<VEXMELKSpot> BarrierOutline(const BarrierBox& box)
{
    const double half = box.width.value / 2.0;
    const double depth = box.depth.value;
    std::vector<VEXMELKSpot> points = {{-depth, -half}, {-depth, half}};
    constexpr int steps = 12;
    if (box.face)
    {
        const double radius = box.face.value;
        const double edge = std::asin(half / radius);
        for (int step = 0; step <= steps; ++step)
        {
            const double turn = edge * (1.0 - 2.0 * step / steps);
            points.push_back({radius * (std::cos(turn) - 1.0), radius * std::sin(turn)});
        }
        return points;
    }
    const double corner = std::clamp(box.corner.value, 0.0, std::min(half, depth));
    for (int step = 0; step <= steps; ++step)
    {
        const double turn = 0.5 * std::numbers::pi * (1.0 - static_cast<double>(step) / steps);
        points.push_back({corner * (std::cos(turn) - 1.0), half - corner + corner * std::sin(turn)});
    }
    points.push_back({0.0, -half});
    return points;
}

struct Placing
{
    VEXMELKSpot at; // the middle of the face
    double turn = 0.0;
    double mirror = 1.0; // -1: the rounded edge is the other one
};

// How far the barrier covers the vehicle's width, from its left or its right side.
Placing PlacingOf(
    const VEXMELKVehicle& car, const VEXMELKBarrierDefinition& barrier, const BarrierBox& box, double rotation)
{
    const bool isLeft = barrier.OverlappingSide == VEXIMELKCrashBarrier::LeftSide;
    const double sign = isLeft ? -1.0 : 1.0;
    const double reach = car.width / 2.0 - barrier.Overlapping * car.width; // where the covered part ends
    const double across =
        barrier.midPosition || barrier.Overlapping >= 1.0 ? 0.0 : sign * (reach + box.width.value / 2.0);
    const double middle = (car.front + car.rear) / 2.0;
    // Y is up in the picture; the rounded edge of the outline is that towards the vehicle's middle.
    switch (barrier.Position)
    {
    case VEXIMELKCrashBarrier::Rear:
        return {{car.rear, across}, 180.0 + rotation, isLeft ? -1.0 : 1.0};
    case VEXIMELKCrashBarrier::Left:
        return {{middle, -car.width / 2.0}, 90.0 + rotation, 1.0};
    case VEXIMELKCrashBarrier::Right:
        return {{middle, car.width / 2.0}, 270.0 + rotation, 1.0};
    default:
        return {{car.front, across}, rotation, isLeft ? 1.0 : -1.0};
    }
}

void DrawOverlap(const VEXMELKPen& plan, const VEXMELKVehicle& car, const VEXMELKBarrierDefinition& barrier,
    const std::string& name, double x)
{
    if (barrier.midPosition || barrier.Position >= VEXIMELKCrashBarrier::Left)
        return;
    const double sign = barrier.OverlappingSide == VEXIMELKCrashBarrier::LeftSide ? -1.0 : 1.0;
    const double outer = sign * car.width / 2.0;
    plan.Length(PercentOf(name + " Overlapping", barrier.Overlapping), {x, outer},
        {x, outer - sign * barrier.Overlapping * car.width});
}

void DrawBarrier(const VEXMELKSheet& sheet, const VEXMELKBarrierDefinition& barrier, int number)
{
    const VEXMELKVehicle& car = sheet.vehicle;
    const BarrierBox box = BoxOf(sheet, barrier);
    const std::string name = std::to_string(number);
    const VEXMELKMeasure rotation = sheet.Angle(name + " Rotation", barrier.Rotation);
    if (!box.width || !box.depth)
        return;
    const VEXMELKPen plan = sheet.PlanView();
    const Placing placing = PlacingOf(car, barrier, box, rotation.value);
    std::vector<VEXMELKSpot> outline = BarrierOutline(box);
    for (VEXMELKSpot& point : outline)
        point = {placing.at.x + point.x, placing.at.y + placing.mirror * point.y};
    plan.Area(VEXMELKTurned(std::move(outline), placing.at, placing.turn), {"barrier " + name, "", 0.0, true});
    DrawOverlap(plan, car, barrier, name, placing.at.x);
    plan.Label(VEXMELKPolar(placing.at, placing.turn + 180.0, box.depth.value), "barrier " + name);
    if (rotation.value != 0.0)
        plan.Angle(
            rotation, placing.at, placing.turn - rotation.value + 90.0, placing.turn + 90.0, 0.4 * box.width.value);
    if (box.height && box.aboveRoad && barrier.Position <= VEXIMELKCrashBarrier::Rear)
    {
        const VEXMELKPen side = sheet.SideView();
        const bool isFront = barrier.Position == VEXIMELKCrashBarrier::Front;
        const double face = isFront ? car.front : car.rear;
        const double back = face + (isFront ? -1.0 : 1.0) * box.depth.value;
        const double top = box.aboveRoad.value + box.height.value;
        side.Area(VEXMELKBox({back, box.aboveRoad.value}, {face, top}), {"barrier " + name, "", 0.0, true});
        side.Length(box.depth, {back, top}, {face, top});
        side.Length(box.aboveRoad, {face, 0.0}, {face, box.aboveRoad.value});
        side.Length(box.height, {face, box.aboveRoad.value}, {face, top});
    }
    sheet.Note("barrier " + name + ": shape " + std::to_string(static_cast<int>(barrier.shape)) + ", width " +
               box.width.text +
               (box.face        ? ", face radius " + box.face.text
                   : box.corner ? ", edge radius " + box.corner.text
                                : "") +
               (barrier.midPosition ? ", mid position" : "") + ", loading " + VEXMELKPlain(barrier.loading));
}

void DrawCrashBarriers(const VEXMELKSheet& sheet)
{
    VEXArray<VEXMELKBarrierDefinition> barriers;
    sheet.New<VEXMELKCrashBarriersConfig>()->GetStandardData(sheet.standard, sheet.category, barriers);
    for (int number = 0; number < barriers.size(); ++number)
        DrawBarrier(sheet, barriers[number], number + 1);
}

// Bumpers
// ------------------------------------------------------------------------------------------------------------------

// The impactor from the side: a body with a nose that narrows to its height at its tip. The tip stands at the first
// axis' zero, the body to the left.
void DrawProfile(const VEXMELKSheet& sheet, const VEXMELKBumpersDefinition& bumper)
{
    const VEXMELKMeasure height = sheet.Length("Height", bumper.Height);
    const VEXMELKMeasure depth = sheet.Length("Depth", bumper.Depth);
    const VEXMELKMeasure noseLength = sheet.Length("NoseLength", bumper.NoseLength);
    const VEXMELKMeasure noseHeight = sheet.Length("NoseHeight", bumper.NoseHeight);
    const VEXMELKMeasure noseAngle = sheet.Angle("NoseAngle", bumper.NoseAngle);
    const VEXMELKMeasure noseRadius = sheet.Length("NoseRadius", bumper.NoseRadius);
    if (!height || !depth)
        return;
    const VEXMELKPen pen = sheet.On("Impactor from the side", "to the vehicle", "from the middle of the nose");
    const double half = height.value / 2.0;
    const double nose = noseHeight ? noseHeight.value / 2.0 : half;
    const double shoulder = -noseLength.value;
    pen.Area(
        {{-depth.value, -half}, {-depth.value, half}, {shoulder, half}, {0.0, nose}, {0.0, -nose}, {shoulder, -half}},
        height);
    pen.Length(depth, {-depth.value, half}, {0.0, half});
    pen.Length(noseLength, {shoulder, half}, {0.0, half});
    pen.Length(height, {shoulder, -half}, {shoulder, half});
    pen.Length(noseHeight, {0.0, -nose}, {0.0, nose});
    if (noseRadius)
        for (const double sign : {1.0, -1.0})
            pen.Circle({-noseRadius.value, sign * (nose - noseRadius.value)}, noseRadius.value, noseRadius);
    pen.Angle(noseAngle, {0.0, nose}, 180.0, 180.0 - noseAngle.value, 0.5 * noseLength.value);
}

void DrawBumper(const VEXMELKSheet& sheet, const VEXMELKBumpersDefinition& bumper, const std::string& name)
{
    const VEXMELKVehicle& car = sheet.vehicle;
    const VEXMELKPen plan = sheet.PlanView();
    const VEXMELKPen side = sheet.SideDetail(bumper.Position ? "Front end" : "Rear end");
    const VEXMELKMeasure width = sheet.Length(name + " Width", bumper.Width);
    const VEXMELKMeasure depth = sheet.Length(name + " Depth", bumper.Depth);
    const VEXMELKMeasure height = sheet.Length(name + " Height", bumper.Height);
    const VEXMELKMeasure limit = sheet.Length(name + " Limit", bumper.Limit);
    const VEXMELKMeasure offset = sheet.Length(name + " Offset", bumper.Offset);
    const VEXMELKMeasure angle = sheet.Angle(name + " Angle", bumper.Angle);
    const double face = bumper.Position ? car.front : car.rear;
    const double outwards = bumper.Position ? -1.0 : 1.0;
    if (width && depth)
    {
        const VEXMELKSpot at{face, offset.value};
        std::vector<VEXMELKSpot> box = VEXMELKBox({face, offset.value - width.value / 2.0},
            {face + outwards * depth.value, offset.value + width.value / 2.0});
        plan.Area(VEXMELKTurned(std::move(box), at, -outwards * angle.value), width);
        plan.Label(VEXMELKPolar(at, bumper.Position ? 180.0 : 0.0, depth.value), name);
        if (offset.value != 0.0)
            plan.Length(offset, {face, 0.0}, at);
        if (angle.value != 0.0)
            plan.Angle(angle, at, 90.0, 90.0 - outwards * angle.value, 0.45 * width.value);
    }
    if (limit)
    {
        side.Line({{face + outwards * std::max(depth.value, 200.0), limit.value}, {face, limit.value}}, limit);
        side.Length(limit, {face, 0.0}, {face, limit.value});
    }
    if (limit && height && depth)
        side.Area(VEXMELKBox({face, limit.value - height.value / 2.0},
                      {face + outwards * depth.value, limit.value + height.value / 2.0}),
            height);
    sheet.Note(name + ": " + (bumper.Position ? "front" : "rear") + ", loading " + VEXMELKPlain(bumper.loading));
}

void DrawBumpers(const VEXMELKSheet& sheet)
{
    struct Pendulum
    {
        BumperType type;
        const char* name;
    };
    bool hasProfile = false;
    for (const Pendulum& pendulum : {Pendulum{static_cast<BumperType>(0), "middle"},
             Pendulum{static_cast<BumperType>(1), "rotated"}, Pendulum{static_cast<BumperType>(2), "shifted"}})
    {
        VEXArray<VEXMELKBumpersDefinition> bumpers;
        sheet.New<VEXMELKBumpersConfig>()->GetStandardData(sheet.standard, sheet.category, pendulum.type, bumpers);
        for (int number = 0; number < bumpers.size(); ++number)
        {
            DrawBumper(sheet, bumpers[number], std::string(pendulum.name) + " " + std::to_string(number + 1));
            if (!hasProfile)
                DrawProfile(sheet, bumpers[number]);
            hasProfile = true;
        }
    }
}

// Lamps and plates
// ---------------------------------------------------------------------------------------------------------

// On both sides of the middle: not nearer to it than half of the inner spacing, not farther from the outer edge than
// the outer one.
void DrawLampAcross(const VEXMELKSheet& sheet, const VEXMELKPen& pen, const VEXMELKLampPositionsDefinition& lamp)
{
    const std::string name = VEXMELKPlain(lamp.Abbr);
    const VEXMELKMeasure low = sheet.Length(name + " MinVerticalSpace", lamp.MinVerticalSpace);
    const VEXMELKMeasure high = sheet.Length(name + " MaxVerticalSpace", lamp.MaxVerticalSpace);
    const VEXMELKMeasure inner = sheet.Length(name + " MinInnerSpace", lamp.MinInnerSpace);
    const VEXMELKMeasure outer = sheet.Length(name + " MaxOuterSpace", lamp.MaxOuterSpace);
    const double half = sheet.vehicle.width / 2.0;
    const double from = std::max(inner.value / 2.0, outer ? half - outer.value : 0.0);
    if (low && high)
        for (const double sign : {-1.0, 1.0})
            pen.Area(VEXMELKBox({sign * from, low.value}, {sign * half, high.value}), low);
    pen.Label({half, high.value}, name);
    pen.Length(low, {half, 0.0}, {half, low.value});
    pen.Length(high, {half, 0.0}, {half, high.value});
    pen.Length(inner, {-inner.value / 2.0, high.value}, {inner.value / 2.0, high.value});
    pen.Length(outer, {half - outer.value, high.value}, {half, high.value});
}

void DrawLampAlong(const VEXMELKSheet& sheet, const VEXMELKPen& pen, const VEXMELKLampPositionsDefinition& lamp)
{
    const VEXMELKVehicle& car = sheet.vehicle;
    const std::string name = VEXMELKPlain(lamp.Abbr);
    const VEXMELKMeasure low = sheet.Length(name + " MinVerticalSpace", lamp.MinVerticalSpace);
    const VEXMELKMeasure high = sheet.Length(name + " MaxVerticalSpace", lamp.MaxVerticalSpace);
    const VEXMELKMeasure front = sheet.Length(name + " MaxFrontSpace", lamp.MaxFrontSpace);
    const VEXMELKMeasure rear = sheet.Length(name + " MaxBackSpace", lamp.MaxBackSpace);
    if (!low || !high)
        return;
    if (front)
        pen.Area(VEXMELKBox({car.front, low.value}, {car.front + front.value, high.value}), front);
    if (rear)
        pen.Area(VEXMELKBox({car.rear - rear.value, low.value}, {car.rear, high.value}), rear);
    if (!front && !rear)
        pen.Area(VEXMELKBox({car.front, low.value}, {car.rear, high.value}), low);
    pen.Label({front ? car.front + front.value : car.rear, high.value}, name);
    pen.Length(front, {car.front, high.value}, {car.front + front.value, high.value});
    pen.Length(rear, {car.rear - rear.value, high.value}, {car.rear, high.value});
    pen.Length(low, {car.rear, 0.0}, {car.rear, low.value});
    pen.Length(high, {car.rear, 0.0}, {car.rear, high.value});
}

void DrawLampPositions(const VEXMELKSheet& sheet)
{
    VEXArray<VEXMELKLampPositionsDefinition> lamps;
    const auto config = sheet.New<VEXMELKLampPositionsConfig>();
    config->GetStandardData(sheet.standard, sheet.category, lamps);
    for (const VEXMELKLampPositionsDefinition& lamp : lamps)
    {
        const std::string name = VEXMELKPlain(lamp.Abbr);
        if (lamp.IsFront)
            DrawLampAcross(sheet, sheet.FrontView("From the front: " + name), lamp);
        if (lamp.IsBack)
            DrawLampAcross(sheet, sheet.RearView("From the rear: " + name), lamp);
        if (lamp.IsSide)
            DrawLampAlong(sheet, sheet.SideView("From the side: " + name), lamp);
        sheet.Note(name + ": " + VEXMELKPlain(lamp.Descr) + ", " + VEXMELKPlain(lamp.LampColor) + ", visible " +
                   VEXMELKPlain(lamp.LampVisibility));
        sheet.NoteText(name + " MinInnerSpace2", lamp.MinInnerSpace2);
        sheet.NoteText(name + " MaxOuterSpace2", lamp.MaxOuterSpace2);
        sheet.NoteText(name + " WidthThreshold", lamp.WidthThreshold);
        sheet.NoteText(name + " LengthThreshold", lamp.LengthThreshold);
    }
    if (lamps.size() > 0)
        sheet.Note(
            config->GetStatusOfLimits(sheet.standard, sheet.category) ? "the limits apply" : "the limits do not apply");
}

// Left and right are the vehicle's own: seen from the front its right side is on the left.
void DrawPlateField(const VEXMELKPen& pen, const VEXMELKMeasure& low, const VEXMELKMeasure& high,
    const VEXMELKMeasure& left, const VEXMELKMeasure& right, double rightSign)
{
    const double from = rightSign * right.value;
    const double to = -rightSign * left.value;
    if (low && high && left && right)
        pen.Area(VEXMELKBox({from, low.value}, {to, high.value}), low);
    pen.Length(low, {from, 0.0}, {from, low.value});
    pen.Length(high, {from, 0.0}, {from, high.value});
    pen.Length(left, {0.0, high.value}, {to, high.value});
    pen.Length(right, {from, high.value}, {0.0, high.value});
}

void DrawNumberPlates(const VEXMELKSheet& sheet)
{
    VEXMELKNumberPlatesDefinition plates;
    if (!sheet.New<VEXMELKNumberPlatesConfig>()->GetStandardData(sheet.standard, sheet.category, plates))
        return;
    DrawPlateField(sheet.FrontView("Front plate, from the front"),
        sheet.Length("FrontLowerLimit", plates.FrontLowerLimit),
        sheet.Length("FrontUpperLimit", plates.FrontUpperLimit), sheet.Length("FrontLeftLimit", plates.FrontLeftLimit),
        sheet.Length("FrontRightLimit", plates.FrontRightLimit), -1.0);
    DrawPlateField(sheet.RearView("Back plate, from the rear"), sheet.Length("BackLowerLimit", plates.BackLowerLimit),
        sheet.Length("BackUpperLimit", plates.BackUpperLimit), sheet.Length("BackLeftLimit", plates.BackLeftLimit),
        sheet.Length("BackRightLimit", plates.BackRightLimit), 1.0);
}

// Free space
// ---------------------------------------------------------------------------------------------------------------

// The test body: a nose, a hole under it, a middle part and a body, one behind the other.
void DrawFreeSpace(const VEXMELKSheet& sheet)
{
    VEXMELKFreeSpaceDefinition space;
    if (!sheet.New<VEXMELKFreeSpaceConfig>()->GetStandardData(sheet.standard, sheet.category, space))
        return;
    const auto length = [&](const char* field, const CATUnicodeString& text) { return sheet.Length(field, text); };
    const VEXMELKMeasure nose = length("FSNoseLength", space.FSNoseLength);
    const VEXMELKMeasure noseHeight = length("FSNoseHight", space.FSNoseHight);
    const VEXMELKMeasure noseWidth = length("FSNoseWidth", space.FSNoseWidth);
    const VEXMELKMeasure middle = length("FSMidLength", space.FSMidLength);
    const VEXMELKMeasure body = length("FSBodyHight", space.FSBodyHight);
    const VEXMELKMeasure bodyWidth = length("FSBodyWidth", space.FSBodyWidth);
    const VEXMELKMeasure bottom = length("FSBottomHight", space.FSBottomHight);
    const VEXMELKMeasure holeAt = length("FSHoleDistance", space.FSHoleDistance);
    const VEXMELKMeasure holeLength = length("FSHoleLength", space.FSHoleLength);
    const VEXMELKMeasure holeHeight = length("FSHoleHight", space.FSHoleHight);
    const VEXMELKMeasure front = sheet.Angle("FSFrontAngle", space.FSFrontAngle);
    const VEXMELKMeasure mid = sheet.Angle("FSMidAngle", space.FSMidAngle);
    const VEXMELKMeasure back = sheet.Angle("FSBackAngle", space.FSBackAngle);
    const VEXMELKMeasure aside = sheet.Angle("FSSideAngle", space.FSSideAngle);
    const VEXMELKPen side = sheet.On("Test body, side view", "along, from the tip of the nose", "up, from the bottom");
    const VEXMELKPen plan = sheet.On("Test body, plan view", "along, from the tip of the nose", "across");
    const double bodyAt = nose.value + middle.value;
    const double low = bottom.value;
    if (nose && noseHeight && middle && body)
    {
        side.Area({{0.0, low}, {0.0, low + noseHeight.value}, {nose.value, low + noseHeight.value},
                      {bodyAt, body.value}, {bodyAt, 0.0}, {nose.value, low}},
            body);
        side.Length(nose, {0.0, low + noseHeight.value}, {nose.value, low + noseHeight.value});
        side.Length(middle, {nose.value, body.value}, {bodyAt, body.value});
        side.Length(noseHeight, {0.0, low}, {0.0, low + noseHeight.value});
        side.Length(body, {bodyAt, 0.0}, {bodyAt, body.value});
        side.Length(bottom, {nose.value, 0.0}, {nose.value, low});
    }
    if (holeAt && holeLength && holeHeight)
    {
        side.Outline(
            VEXMELKBox({holeAt.value, low}, {holeAt.value + holeLength.value, low + holeHeight.value}), holeHeight);
        side.Length(holeAt, {0.0, low}, {holeAt.value, low});
        side.Length(holeLength, {holeAt.value, low}, {holeAt.value + holeLength.value, low});
        side.Length(holeHeight, {holeAt.value, low}, {holeAt.value, low + holeHeight.value});
    }
    const double reach = 0.5 * std::max(nose.value, 1.0);
    const auto slope = [&](const VEXMELKMeasure& angle, VEXMELKSpot at)
    {
        if (angle)
            side.Ray(at, 90.0 + angle.value, reach, angle);
        side.Angle(angle, at, 90.0, 90.0 + angle.value, 0.9 * reach);
    };
    slope(front, {0.0, low + noseHeight.value});
    slope(mid, {nose.value, low + noseHeight.value});
    slope(back, {bodyAt, body.value});
    if (noseWidth && bodyWidth)
    {
        plan.Area({{0.0, -noseWidth.value / 2.0}, {0.0, noseWidth.value / 2.0}, {nose.value, noseWidth.value / 2.0},
                      {bodyAt, bodyWidth.value / 2.0}, {bodyAt, -bodyWidth.value / 2.0},
                      {nose.value, -noseWidth.value / 2.0}},
            bodyWidth);
        plan.Length(noseWidth, {0.0, -noseWidth.value / 2.0}, {0.0, noseWidth.value / 2.0});
        plan.Length(bodyWidth, {bodyAt, -bodyWidth.value / 2.0}, {bodyAt, bodyWidth.value / 2.0});
    }
    const VEXMELKSpot corner{0.0, noseWidth.value / 2.0};
    if (aside)
        plan.Ray(corner, aside.value, 1.2 * nose.value, aside);
    plan.Angle(aside, corner, 0.0, aside.value, nose.value);
}

constexpr VEXMELKDrawer exteriorDrawers[] = {
    {"CrashBarriers", DrawCrashBarriers},
    {"Bumpers", DrawBumpers},
    {"LampPositions", DrawLampPositions},
    {"NumberPlates", DrawNumberPlates},
    {"FreeSpace", DrawFreeSpace},
};

} // namespace

std::span<const VEXMELKDrawer> VEXMELKExteriorDrawers() { return exteriorDrawers; }
