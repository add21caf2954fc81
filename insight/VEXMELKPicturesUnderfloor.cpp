// The underfloor checks and the wheel covering, drawn under a schematic vehicle: clearances are heights above the road,
// angles begin where a line leaves the road and touches a tyre.
#include "VEXMELKSheet.h"
#include "VEXMELKUFCompleteConfig.h"
#include "VEXMELKUFCurbConfig.h"
#include "VEXMELKUFDynamicCurbConfig.h"
#include "VEXMELKUFInnerAngleConfig.h"
#include "VEXMELKUFOilTubConfig.h"
#include "VEXMELKUFSlopeAngleConfig.h"
#include "VEXMELKUFSpaceToRoadConfig.h"
#include "VEXMELKUFWheelFixingConfig.h"
#include "VEXMELKWheelCoveringConfig.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// One end of the vehicle: which way it looks, where its axle stands, and where it ends.
struct VehicleEnd
{
    double sign; // -1 to the front, 1 to the rear
    double axle;
    double radius;
    double end;
};

VehicleEnd FrontOf(const VEXMELKVehicle& vehicle) { return {-1.0, 0.0, vehicle.frontRadius, vehicle.front}; }
VehicleEnd RearOf(const VEXMELKVehicle& vehicle) { return {1.0, vehicle.rearAxle, vehicle.rearRadius, vehicle.rear}; }

// A line that rises from the road under the angle, away from the tyre that it touches.
void DrawTyreTangent(const VEXMELKPen& pen, const VehicleEnd& end, const VEXMELKMeasure& angle)
{
    if (!angle || angle.value <= 0.0 || angle.value >= 90.0)
        return;
    // A tangent under that angle leaves the road where the wheel's centre is seen under half of it.
    const double half = angle.value / 2.0 * std::numbers::pi / 180.0;
    const VEXMELKSpot foot{end.axle + end.sign * end.radius * std::tan(half), 0.0};
    const double reach = std::max(std::fabs(end.end - foot.x) * 1.15, end.radius);
    const double turn = end.sign < 0.0 ? 180.0 - angle.value : angle.value;
    pen.Ray(foot, turn, reach / std::cos(angle.value * std::numbers::pi / 180.0), angle);
    pen.Angle(angle, foot, end.sign < 0.0 ? 180.0 : 0.0, turn, 0.75 * reach);
}

// A height above the road, as a line along the vehicle.
void DrawHeight(const VEXMELKPen& pen, const VEXMELKMeasure& height, double from, double to)
{
    if (!height)
        return;
    pen.Line({{from, height.value}, {to, height.value}}, height);
    pen.Length(height, {to, 0.0}, {to, height.value});
}

void DrawCurb(const VEXMELKSheet& sheet)
{
    VEXMELKUFCurbConfigDefinition curb;
    if (!sheet.New<VEXMELKUFCurbConfig>()->GetStandardData(sheet.standard, sheet.category, curb))
        return;
    const VehicleEnd front = FrontOf(sheet.vehicle);
    const VehicleEnd rear = RearOf(sheet.vehicle);
    const VEXMELKPen ahead = sheet.SideDetail("Front end");
    const VEXMELKPen behind = sheet.SideDetail("Rear end");
    DrawHeight(ahead, sheet.Length("FrontOffset", curb.FrontOffset), front.axle - front.radius, front.end);
    DrawHeight(behind, sheet.Length("BackOffset", curb.BackOffset), rear.axle + rear.radius, rear.end);
    DrawTyreTangent(ahead, front, sheet.Angle("FrontAngle", curb.FrontAngle));
    DrawTyreTangent(behind, rear, sheet.Angle("BackAngle", curb.BackAngle));
}

void DrawDynamicCurb(const VEXMELKSheet& sheet)
{
    CATUnicodeString outOffset;
    CATUnicodeString inOffset;
    CATUnicodeString inLength;
    CATUnicodeString calculation;
    if (!sheet.New<VEXMELKUFDynamicCurbConfig>()->GetStandardData(
            sheet.standard, sheet.category, outOffset, inOffset, inLength, calculation))
        return;
    const VEXMELKPen pen = sheet.SideDetail("Front end");
    const VehicleEnd front = FrontOf(sheet.vehicle);
    const VEXMELKMeasure inside = sheet.Length("in_offset", inOffset);
    const VEXMELKMeasure length = sheet.Length("in_length", inLength);
    DrawHeight(pen, sheet.Length("out_offset", outOffset), front.axle - front.radius, front.end);
    const double begin = front.axle + front.radius;
    const double end = begin + (length ? length.value : front.radius);
    DrawHeight(pen, inside, begin, end);
    const double height = inside ? inside.value : 0.0;
    pen.Length(length, {begin, height}, {end, height});
    sheet.NoteText("calculation", calculation);
}

void DrawInnerAngle(const VEXMELKSheet& sheet)
{
    CATUnicodeString innerAngle;
    CATUnicodeString calculation;
    if (!sheet.New<VEXMELKUFInnerAngleConfig>()->GetStandardData(
            sheet.standard, sheet.category, innerAngle, calculation))
        return;
    const VEXMELKPen pen = sheet.SideView();
    const VEXMELKVehicle& car = sheet.vehicle;
    const VEXMELKMeasure angle = sheet.Angle("inner_angle", innerAngle);
    sheet.NoteText("calculation", calculation);
    if (!angle || angle.value <= 0.0 || angle.value >= 180.0)
        return;
    // Each side of the ramp rises by half of the angle; with it, it leaves the road a little inside of its tyre.
    const double half = angle.value / 2.0 * std::numbers::pi / 180.0;
    const VEXMELKSpot front{car.frontRadius * std::tan(half / 2.0), 0.0};
    const VEXMELKSpot rear{car.rearAxle - car.rearRadius * std::tan(half / 2.0), 0.0};
    const VEXMELKSpot apex{(front.x + rear.x) / 2.0, (rear.x - front.x) / 2.0 * std::tan(half)};
    pen.Line({front, apex, rear}, angle);
    pen.Ray(apex, angle.value / 2.0, 0.32 * car.rearAxle);
    pen.Angle(angle, apex, -angle.value / 2.0, angle.value / 2.0, 0.25 * car.rearAxle);
}

void DrawOilTub(const VEXMELKSheet& sheet)
{
    CATUnicodeString outOffset;
    CATUnicodeString outAngle;
    CATUnicodeString inOffset;
    CATUnicodeString inAngle;
    if (!sheet.New<VEXMELKUFOilTubConfig>()->GetStandardData(
            sheet.standard, sheet.category, outOffset, outAngle, inOffset, inAngle))
        return;
    const VEXMELKPen pen = sheet.SideDetail("Front end");
    const double reach = sheet.vehicle.frontRadius * 2.2;
    const auto draw = [&](const VEXMELKMeasure& offset, const VEXMELKMeasure& angle, double sign)
    {
        if (!offset)
            return;
        const VEXMELKSpot begin{sign * 60.0, offset.value};
        const VEXMELKSpot bend{sign * sheet.vehicle.frontRadius, offset.value};
        pen.Line({begin, bend}, offset);
        pen.Length(offset, {bend.x, 0.0}, bend);
        if (!angle)
            return;
        const double turn = sign < 0.0 ? 180.0 - angle.value : angle.value;
        pen.Ray(bend, turn, reach, angle);
        pen.Axis(bend, {bend.x + sign * reach, bend.y});
        pen.Angle(angle, bend, sign < 0.0 ? 180.0 : 0.0, turn, 0.8 * reach);
    };
    draw(sheet.Length("out_offset", outOffset), sheet.Angle("out_angle", outAngle), -1.0);
    draw(sheet.Length("in_offset", inOffset), sheet.Angle("in_angle", inAngle), 1.0);
}

void DrawSlopeAngle(const VEXMELKSheet& sheet)
{
    CATUnicodeString frontAngle;
    CATUnicodeString backAngle;
    if (!sheet.New<VEXMELKUFSlopeAngleConfig>()->GetStandardData(sheet.standard, sheet.category, frontAngle, backAngle))
        return;
    DrawTyreTangent(sheet.SideDetail("Front end"), FrontOf(sheet.vehicle), sheet.Angle("front_angle", frontAngle));
    DrawTyreTangent(sheet.SideDetail("Rear end"), RearOf(sheet.vehicle), sheet.Angle("back_angle", backAngle));
}

struct SpaceToRoad
{
    CATUnicodeString offset;
    unsigned char wholeLength = 0;
    unsigned char calcUnderAxis = 0;
    CATUnicodeString offsetUnderAxes;
    unsigned char circUnderAxis = 0;
    CATUnicodeString extension;
    unsigned char wheelRadius = 0;
    unsigned char generalSurface = 0;
};

void DrawUnderAxle(const VEXMELKSheet& sheet, const VEXMELKPen& pen, const SpaceToRoad& space, const VehicleEnd& axle)
{
    const VEXMELKMeasure height = sheet.Length("OffsetUnderAxes", space.offsetUnderAxes);
    const VEXMELKMeasure extension = sheet.Length("extension", space.extension);
    const double wheel = space.wheelRadius ? axle.radius : 0.0;
    const double reach = wheel + (extension ? extension.value : 0.0);
    if (height)
        pen.Line({{axle.axle - reach, height.value}, {axle.axle + reach, height.value}}, height);
    if (height && axle.sign < 0.0)
    {
        pen.Length(height, {axle.axle, 0.0}, {axle.axle, height.value});
        pen.Length(extension, {axle.axle + wheel, height.value}, {axle.axle + reach, height.value});
    }
    if (space.circUnderAxis && reach > 0.0)
        pen.Circle({axle.axle, axle.radius}, reach);
}

void DrawSpaceToRoad(const VEXMELKSheet& sheet)
{
    SpaceToRoad space;
    if (!sheet.New<VEXMELKUFSpaceToRoadConfig>()->GetStandardData(sheet.standard, sheet.category, space.offset,
            space.wholeLength, space.calcUnderAxis, space.offsetUnderAxes, space.circUnderAxis, space.extension,
            space.wheelRadius, space.generalSurface))
        return;
    const VEXMELKPen pen = sheet.SideView();
    const VEXMELKVehicle& car = sheet.vehicle;
    const VEXMELKMeasure offset = sheet.Length("offset", space.offset);
    const double from = space.wholeLength ? car.front : car.frontRadius;
    const double to = space.wholeLength ? car.rear : car.rearAxle - car.rearRadius;
    DrawHeight(pen, offset, from, to);
    DrawUnderAxle(sheet, pen, space, FrontOf(car));
    DrawUnderAxle(sheet, pen, space, RearOf(car));
    sheet.Note(std::string(space.wholeLength ? "along the whole length" : "between the axles") +
               (space.calcUnderAxis ? "; calculated under the axles" : "; not calculated under the axles") +
               (space.generalSurface ? "; general surface" : "; no general surface"));
}

void DrawWheelFixing(const VEXMELKSheet& sheet)
{
    CATUnicodeString radiusText;
    CATUnicodeString offsetText;
    if (!sheet.New<VEXMELKUFWheelFixingConfig>()->GetStandardData(
            sheet.standard, sheet.category, radiusText, offsetText))
        return;
    const VEXMELKMeasure radius = sheet.Length("radius", radiusText);
    const VEXMELKMeasure offset = sheet.Length("offset", offsetText);
    const double wheel = sheet.vehicle.frontRadius;
    const VEXMELKPen side = sheet.On("Wheel from the side", "from the wheel's centre", "from the wheel's centre");
    side.Surroundings().Circle({0.0, 0.0}, wheel);
    side.Surroundings().Circle({0.0, 0.0}, 0.62 * wheel);
    if (radius)
        side.Circle({0.0, 0.0}, radius.value, radius);
    side.Length(radius, {0.0, 0.0}, {radius.value, 0.0});
    const VEXMELKPen across = sheet.On("Wheel from above", "outwards from the wheel's outer face", "along the vehicle");
    across.Surroundings().Outline(VEXMELKBox({-0.34 * wheel * 2.0, -wheel}, {0.0, wheel}));
    if (!radius || !offset)
        return;
    across.Area(VEXMELKBox({0.0, -radius.value}, {offset.value, radius.value}), offset);
    across.Length(offset, {0.0, radius.value}, {offset.value, radius.value});
    across.Length(radius, {offset.value, 0.0}, {offset.value, radius.value});
}

// The seven checks together, each with the standard that is named for it.
void DrawComplete(const VEXMELKSheet& sheet)
{
    VEXMELKUFCompleteConfigDefinition parts;
    if (!sheet.New<VEXMELKUFCompleteConfig>()->GetStandardData(sheet.standard, sheet.category, parts))
        return;
    const auto draw = [&](const char* field, const CATUnicodeString& standard, VEXMELKDraw drawPart)
    {
        sheet.NoteText(field, standard);
        VEXMELKSheet part = sheet;
        part.standard = standard;
        if (standard != CATUnicodeString())
            drawPart(part);
    };
    draw("Curb", parts.Curb, DrawCurb);
    draw("DynCurb", parts.DynCurb, DrawDynamicCurb);
    draw("InnerAngle", parts.InnerAngle, DrawInnerAngle);
    draw("OilTub", parts.OilTub, DrawOilTub);
    draw("SlopeAngle", parts.SlopeAngle, DrawSlopeAngle);
    draw("SpaceToRoad", parts.SpaceToRoad, DrawSpaceToRoad);
    draw("WheelFixing", parts.WheelFixing, DrawWheelFixing);
}

// The part of a wheel that is to be covered: from the vertical by one angle to the front and another to the rear.
void DrawCovering(const VEXMELKPen& pen, double radius, const VEXMELKMeasure& alpha, const VEXMELKMeasure& beta,
    const VEXMELKMeasure& bottom)
{
    pen.Surroundings().Circle({0.0, 0.0}, radius);
    pen.Surroundings().Axis({0.0, -radius}, {0.0, 1.45 * radius});
    if (alpha)
        pen.Ray({0.0, 0.0}, 90.0 + alpha.value, 1.4 * radius, alpha);
    if (beta)
        pen.Ray({0.0, 0.0}, 90.0 - beta.value, 1.4 * radius, beta);
    pen.Angle(alpha, {0.0, 0.0}, 90.0, 90.0 + alpha.value, 1.25 * radius);
    pen.Angle(beta, {0.0, 0.0}, 90.0, 90.0 - beta.value, 1.25 * radius);
    if (alpha && beta)
        pen.Sector({0.0, 0.0}, 90.0 - beta.value, 90.0 + alpha.value, radius);
    if (bottom)
    {
        pen.Line({{-1.2 * radius, bottom.value}, {1.2 * radius, bottom.value}}, bottom);
        pen.Length(bottom, {1.2 * radius, 0.0}, {1.2 * radius, bottom.value});
    }
}

void DrawWheelCovering(const VEXMELKSheet& sheet)
{
    VEXMELKWheelCoveringDefinition cover;
    if (!sheet.New<VEXMELKWheelCoveringConfig>()->GetStandardData(sheet.standard, sheet.category, cover))
        return;
    const VEXMELKMeasure bottom = sheet.Length("BottomOffset", cover.BottomOffset);
    const auto wheel = [&](const char* title)
    { return sheet.On(title, "to the rear from the wheel's centre", "up from the wheel's centre"); };
    DrawCovering(wheel("Front wheel"), sheet.vehicle.frontRadius, sheet.Angle("FrontAlpha", cover.FrontAlpha),
        sheet.Angle("FrontBeta", cover.FrontBeta), bottom);
    DrawCovering(wheel("Rear wheel"), sheet.vehicle.rearRadius, sheet.Angle("BackAlpha", cover.BackAlpha),
        sheet.Angle("BackBeta", cover.BackBeta), bottom);
    const VEXMELKPen heights = sheet.On("Heights", "schematic", "up");
    double x = 0.0;
    for (const VEXMELKMeasure& height :
        {sheet.Length("TriangleHeight", cover.TriangleHeight), sheet.Length("LineHeight", cover.LineHeight)})
    {
        if (height)
            heights.Line({{x, 0.0}, {x, height.value}}, height);
        heights.Length(height, {x, 0.0}, {x, height.value});
        x += 20.0;
    }
    sheet.NoteText("AlgorithmType", cover.AlgorithmType);
    sheet.NoteText("Tolerance", cover.Tolerance);
    sheet.Note(cover.HasSpecialBack ? "special back" : "no special back");
}

constexpr VEXMELKDrawer underfloorDrawers[] = {
    {"UFCurb", DrawCurb},
    {"UFDynamicCurb", DrawDynamicCurb},
    {"UFInnerAngle", DrawInnerAngle},
    {"UFOilTub", DrawOilTub},
    {"UFSlopeAngle", DrawSlopeAngle},
    {"UFSpaceToRoad", DrawSpaceToRoad},
    {"UFWheelFixing", DrawWheelFixing},
    {"UFComplete", DrawComplete},
    {"WheelCovering", DrawWheelCovering},
};

} // namespace

std::span<const VEXMELKDrawer> VEXMELKUnderfloorDrawers() { return underfloorDrawers; }
