// Pedestrians, heads inside, belts and children: reference lines of the front end, and angles and bodies about seats.
#include "VEXMELKChildProtectionConfig.h"
#include "VEXMELKHeadImpactConfig.h"
#include "VEXMELKPPOffsetConfig.h"
#include "VEXMELKPedestrianProtectionConfig.h"
#include "VEXMELKSeatingBeltsConfig.h"
#include "VEXMELKSheet.h"

#include <algorithm>
#include <cmath>

namespace {

// Pedestrian protection
// --------------------------------------------------------------------------------------------------

// The middle of a schematic front end, from the road below the bumper to the windscreen: what tapes are wrapped around.
std::vector<VEXMELKSpot> FrontContour(const VEXMELKVehicle& car)
{
    const double x = car.front;
    const double high = car.height;
    return {{x, 0.0}, {x, 0.36 * high}, {x + 60.0, 0.45 * high}, {x + 220.0, 0.52 * high}, {x + 1050.0, 0.66 * high},
        {x + 1900.0, 0.99 * high}, {x + 2600.0, high}};
}

// The point that a tape of that length reaches.
VEXMELKSpot AlongContour(const std::vector<VEXMELKSpot>& contour, double length)
{
    for (std::size_t number = 1; number < contour.size(); ++number)
    {
        const VEXMELKSpot from = contour[number - 1];
        const VEXMELKSpot to = contour[number];
        const double part = std::hypot(to.x - from.x, to.y - from.y);
        if (length <= part || number + 1 == contour.size())
            return {from.x + (to.x - from.x) * length / part, from.y + (to.y - from.y) * length / part};
        length -= part;
    }
    return contour.back();
}

struct Trace
{
    const char* name;
    const TraceCurveDefinition& curve;
};

// A straight edge that leans against the front end by an angle from the vertical, its lower end at a height.
void DrawEdge(const VEXMELKSheet& sheet, const VEXMELKPen& pen, const Trace& trace, double at)
{
    if (!trace.curve.defined)
        return;
    const std::string name = trace.name;
    const VEXMELKMeasure angle = sheet.Angle(name + " angle", trace.curve.angle);
    const VEXMELKMeasure length = sheet.Length(name + " length", trace.curve.length);
    const VEXMELKMeasure offset = sheet.Length(name + " offset", trace.curve.offset);
    if (!angle || !length)
        return;
    const VEXMELKSpot foot{at, offset.value};
    const double turn = 90.0 - angle.value;
    pen.Ray(foot, turn, length.value, length);
    pen.Length(length, foot, VEXMELKPolar(foot, turn, length.value));
    pen.Axis(foot, {foot.x, foot.y + 0.6 * length.value});
    pen.Angle(angle, foot, 90.0, turn, 0.5 * length.value);
    if (offset.value > 50.0)
        pen.Length(offset, {at, 0.0}, foot);
}

void DrawWrapAround(const VEXMELKSheet& sheet, const VEXMELKPen& pen, const Trace& trace)
{
    if (!trace.curve.defined)
        return;
    const VEXMELKMeasure length = sheet.Length(std::string(trace.name) + " length", trace.curve.length);
    if (!length)
        return;
    const std::vector<VEXMELKSpot> contour = FrontContour(sheet.vehicle);
    const VEXMELKSpot reached = AlongContour(contour, length.value);
    std::vector<VEXMELKSpot> tape;
    double left = length.value;
    for (std::size_t number = 0; number < contour.size() && left > 0.0; ++number)
    {
        tape.push_back(contour[number]);
        if (number + 1 < contour.size())
            left -= std::hypot(contour[number + 1].x - contour[number].x, contour[number + 1].y - contour[number].y);
    }
    tape.push_back(reached);
    pen.Line(tape, length);
    pen.Mark(reached, std::string(trace.name) + " " + length.text, length);
}

// A test area as its grid of M by N parts; where the lines run on the vehicle is the check's business.
void DrawBonnetTop(const VEXMELKSheet& sheet, const PPBonnetTopDefinition& area, const char* element)
{
    if (area.name == CATUnicodeString() && area.splitM == 0 && area.splitN == 0)
        return;
    const std::string name = VEXMELKPlain(area.name);
    const auto boundary = [&](const char* side, const PPBonnetTopBoundary& of)
    {
        if (of.limit != CATUnicodeString())
            sheet.Note(name + ", " + side + ": " + VEXMELKPlain(of.limit) +
                       (of.limit2 != CATUnicodeString() ? " or " + VEXMELKPlain(of.limit2) : "") +
                       (of.offset != CATUnicodeString() ? ", offset " + VEXMELKPlain(of.offset) : "") + " " +
                       VEXMELKPlain(of.offset_type) +
                       (of.checkDist != CATUnicodeString() ? ", check distance " + VEXMELKPlain(of.checkDist) : ""));
    };
    boundary("side", area.side);
    boundary("front", area.front);
    boundary("rear", area.rear);
    sheet.Note(std::string(element) + " \"" + name + "\": divided " + std::to_string(area.splitM) + " by " +
               std::to_string(area.splitN) + (area.detail ? ", in detail" : ""));
}

void DrawPedestrianProtection(const VEXMELKSheet& sheet)
{
    PedestrianProtectionDefinition front;
    if (!sheet.New<VEXMELKPedestrianProtectionConfig>()->GetStandardData(sheet.standard, sheet.category, front))
        return;
    const double nose = sheet.vehicle.front;
    const VEXMELKPen edges = sheet.SideDetail("Straight edges at the front end");
    DrawEdge(sheet, edges, {"UpperBumper", front.upperBumper}, nose - 160.0);
    DrawEdge(sheet, edges, {"LowerBumper", front.lowerBumper}, nose - 60.0);
    DrawEdge(sheet, edges, {"BonnetLeadingEdge", front.bonnetLeadingEdge}, nose - 40.0);
    const VEXMELKPen tapes = sheet.On("Wrap-around lines", "X, to the rear from the front axle", "Z, up from the road");
    tapes.Surroundings().Line(FrontContour(sheet.vehicle));
    DrawWrapAround(sheet, tapes, {"WrapAround1", front.wrapAround1});
    DrawWrapAround(sheet, tapes, {"WrapAround2", front.wrapAround2});
    DrawWrapAround(sheet, tapes, {"WrapAround3", front.wrapAround3});
    const VEXMELKPen across = sheet.FrontView("Bonnet side, from the front");
    if (front.bonnetSide.defined)
    {
        const VEXMELKMeasure angle = sheet.Angle("BonnetSide angle", front.bonnetSide.angle);
        const VEXMELKMeasure length = sheet.Length("BonnetSide length", front.bonnetSide.length);
        if (angle && length)
        {
            const VEXMELKSpot touch{0.9 * sheet.vehicle.width / 2.0, 0.62 * sheet.vehicle.height};
            const double turn = 90.0 + angle.value; // inwards and up
            const VEXMELKSpot foot = VEXMELKPolar(touch, turn + 180.0, length.value / 2.0);
            across.Ray(foot, turn, length.value, length);
            across.Length(length, foot, VEXMELKPolar(foot, turn, length.value));
            across.Axis(foot, {foot.x, foot.y + 0.6 * length.value});
            across.Angle(angle, foot, 90.0, turn, 0.5 * length.value);
        }
    }
    const VEXMELKPen plan = sheet.PlanView("Corner of the bumper");
    if (front.cornerOfBumper.defined)
    {
        const VEXMELKMeasure angle = sheet.Angle("CornerOfBumper angle", front.cornerOfBumper.angle);
        const VEXMELKMeasure length = sheet.Length("CornerOfBumper length", front.cornerOfBumper.length);
        const VEXMELKSpot corner{nose, 0.38 * sheet.vehicle.width};
        if (angle)
        {
            const double reach = length ? length.value : 500.0;
            plan.Ray(corner, angle.value, reach, angle);
            plan.Ray(corner, angle.value + 180.0, reach);
            plan.Axis(corner, {corner.x + reach, corner.y});
            plan.Length(length, corner, VEXMELKPolar(corner, angle.value, reach));
            plan.Angle(angle, corner, 0.0, angle.value, 0.6 * reach);
        }
    }
    DrawBonnetTop(sheet, front.bonnetTop1, "bonnetTop1");
    DrawBonnetTop(sheet, front.bonnetTop2, "bonnetTop2");
    sheet.NoteText("CuttingStep", front.cuttingStep);
    sheet.NoteText("rear template, start radius", front.bonnetRearTemplate.startradius);
    sheet.NoteText("rear template, step", front.bonnetRearTemplate.step);
}

// A section of the outer skin with the surfaces beneath it.
void DrawPPOffset(const VEXMELKSheet& sheet)
{
    VEXMELKPPOffsetDefinition offsets;
    if (!sheet.New<VEXMELKPPOffsetConfig>()->GetStandardData(sheet.standard, sheet.category, offsets))
        return;
    const VEXMELKPen pen = sheet.On("Offsets below the outer skin", "along the skin, schematic", "below the skin");
    constexpr double wide = 260.0;
    const VEXMELKMeasure whole = sheet.Given("offset", offsets.offset * 1000.0);
    const int curves = offsets.curves.size();
    const double end = wide * (curves + 1);
    pen.Surroundings().Line({{0.0, 0.0}, {end, 0.0}});
    pen.Line({{0.0, -whole.value}, {end, -whole.value}}, whole);
    pen.Length(whole, {end, -whole.value}, {end, 0.0});
    for (int number = 0; number < curves; ++number)
    {
        const VEXPPOffsetCurveDefinition& curve = offsets.curves[number];
        const std::string name = VEXMELKPlain(curve.type);
        const VEXMELKMeasure inner = sheet.Given(name + " inner", curve.inner_offset * 1000.0);
        const VEXMELKMeasure outer = sheet.Given(name + " outer", curve.outer_offset * 1000.0);
        const double from = wide * number + 0.1 * wide;
        const double to = wide * (number + 1) - 0.1 * wide;
        pen.Area(VEXMELKBox({from, -inner.value}, {to, -outer.value}), outer);
        pen.Length(inner, {to, -inner.value}, {to, 0.0});
        pen.Length(outer, {to, -outer.value}, {to, 0.0});
        pen.Label({from, -outer.value}, name);
    }
    if (offsets.outerRegion.param_x != 0.0)
    {
        const VEXMELKMeasure region = sheet.Given("param_x", offsets.outerRegion.param_x * 1000.0);
        pen.Length(region, {end - region.value, 0.0}, {end, 0.0});
    }
    if (offsets.x_step > 0.0 && offsets.y_step > 0.0)
    {
        const VEXMELKPen grid = sheet.On("Steps of the sections", "X", "Y");
        const VEXMELKMeasure x = sheet.Given("x_step", offsets.x_step * 1000.0);
        const VEXMELKMeasure y = sheet.Given("y_step", offsets.y_step * 1000.0);
        for (int step = 0; step <= 5; ++step)
        {
            grid.Line({{step * x.value, 0.0}, {step * x.value, 5.0 * y.value}}, x);
            grid.Line({{0.0, step * y.value}, {5.0 * x.value, step * y.value}}, y);
        }
        grid.Length(x, {0.0, 5.0 * y.value}, {x.value, 5.0 * y.value});
        grid.Length(y, {5.0 * x.value, 0.0}, {5.0 * x.value, y.value});
    }
    sheet.NoteText("calculation_type", offsets.calculation_type);
    sheet.NoteText("ref_part", offsets.ref_part);
    sheet.NoteText("definition_type", offsets.definition_type);
    sheet.NoteText("profile_type", offsets.profile_type);
    sheet.NoteText("measurement_type", offsets.outerRegion.measurement_type);
}

// Head impact
// ------------------------------------------------------------------------------------------------------------

constexpr double direction = 100.0; // its length in the picture: there is none in the file

// Horizontal angles are counted from the rear counter-clockwise in plan view, as the axes of a panel are.
void DrawHorizontal(const VEXMELKSheet& sheet, const std::string& name, const CATUnicodeString& fromText,
    const CATUnicodeString& toText, const char* fromField, const char* toField)
{
    const VEXMELKMeasure from = sheet.Angle(fromField, fromText);
    const VEXMELKMeasure to = sheet.Angle(toField, toText);
    const VEXMELKPen pen = sheet.On(name + ", plan view", "", "", "");
    pen.Surroundings().Mark({0.0, 0.0}, "");
    if (from && to)
        pen.Sector({0.0, 0.0}, from.value, to.value, direction, from);
    pen.Angle(from, {0.0, 0.0}, 0.0, from.value, 0.45 * direction);
    pen.Angle(to, {0.0, 0.0}, 0.0, to.value, 0.7 * direction);
    pen.Axis({0.0, 0.0}, {1.15 * direction, 0.0});
}

void DrawDirection(const VEXMELKSheet& sheet, const std::string& name, const CATUnicodeString& text, const char* field)
{
    const VEXMELKMeasure angle = sheet.Angle(field, text);
    if (!angle)
        return;
    const VEXMELKPen pen = sheet.On(name + ", plan view", "", "", "");
    pen.Ray({0.0, 0.0}, angle.value, direction, angle);
    pen.Angle(angle, {0.0, 0.0}, 0.0, angle.value, 0.55 * direction);
    pen.Axis({0.0, 0.0}, {1.15 * direction, 0.0});
}

void DrawVertical(const VEXMELKSheet& sheet, const std::string& name, const CATUnicodeString& minText,
    const CATUnicodeString& maxText)
{
    const VEXMELKMeasure least = sheet.Angle("MinVAngle", minText);
    const VEXMELKMeasure most = sheet.Angle("MaxVAngle", maxText);
    const VEXMELKPen pen = sheet.On(name + ", side view", "", "", "");
    if (least && most)
        pen.Sector({0.0, 0.0}, least.value, most.value, direction, least);
    pen.Angle(least, {0.0, 0.0}, 0.0, least.value, 0.8 * direction);
    pen.Angle(most, {0.0, 0.0}, 0.0, most.value, 0.55 * direction);
    pen.Axis({0.0, 0.0}, {1.15 * direction, 0.0});
}

void DrawGravityCentre(const VEXMELKSheet& sheet)
{
    VEXMELKHeadGravityCenterDefinition centre;
    if (!sheet.New<VEXMELKHeadImpactConfig>()->GetHeadGravityCenterSData(sheet.standard, centre))
        return;
    const VEXMELKPen pen = sheet.On(
        "Centres of gravity of the head", "X, to the rear from the seat's point", "Z, up from the seat's point");
    pen.Surroundings().Mark({0.0, 0.0}, "seating reference point");
    const auto mark = [&](const char* name, const VEXMELKMeasure& x, const VEXMELKMeasure& z)
    {
        if (!x || !z)
            return;
        pen.Mark({x.value, z.value}, name, x);
        pen.Circle({x.value, z.value}, 82.5);
        pen.Length(x, {0.0, z.value}, {x.value, z.value});
        pen.Length(z, {x.value, 0.0}, {x.value, z.value});
    };
    mark("front seat", sheet.Length("CG_FX_Offset", centre.CG_FX_Offset),
        sheet.Length("CG_FZ_Offset", centre.CG_FZ_Offset));
    mark("rear seat", sheet.Length("CG_RX_Offset", centre.CG_RX_Offset),
        sheet.Length("CG_RZ_Offset", centre.CG_RZ_Offset));
}

void DrawPillars(const VEXMELKSheet& sheet)
{
    const auto config = sheet.New<VEXMELKHeadImpactConfig>();
    const auto draw = [&](const char* name, const auto& pillar)
    {
        DrawHorizontal(sheet, name, pillar.MinHLeftAngle, pillar.MaxHLeftAngle, "MinHLeftAngle", "MaxHLeftAngle");
        DrawHorizontal(sheet, name, pillar.MinHRightAngle, pillar.MaxHRightAngle, "MinHRightAngle", "MaxHRightAngle");
        DrawVertical(sheet, name, pillar.MinVAngle, pillar.MaxVAngle);
    };
    VEXMELKAPillarDefinition a;
    if (config->GetAPillarSData(sheet.standard, a))
    {
        draw("A-pillar", a);
        sheet.Note("A-pillar: PT1 " + VEXMELKPlain(a.PT1_Offset) + ", PT2 " + VEXMELKPlain(a.PT2_Offset) + ", AP2 " +
                   VEXMELKPlain(a.AP2_Offset) + ", deviation up to " +
                   VEXMELKNumberText(a.MaxMeasurementDeviation * 100.0) + "%");
    }
    VEXMELKBPillarDefinition b;
    if (config->GetBPillarSData(sheet.standard, b))
        draw("B-pillar", b);
    VEXMELKRearmostPillarDefinition rearmost;
    if (config->GetRearmostPillarSData(sheet.standard, rearmost))
    {
        draw("Rearmost pillar", rearmost);
        sheet.Note("rearmost pillar: RP2 " + VEXMELKPlain(rearmost.RP2_Offset) + ", RP1 ratio " +
                   VEXMELKPlain(rearmost.RP1_Ratio));
    }
}

template <class Record, class Query> void DrawBothSides(const VEXMELKSheet& sheet, const char* name, Query query)
{
    Record record;
    if (!(sheet.New<VEXMELKHeadImpactConfig>().Get()->*query)(sheet.standard, record))
        return;
    DrawDirection(sheet, name, record.HLeftAngle, "HLeftAngle");
    DrawDirection(sheet, name, record.HRightAngle, "HRightAngle");
    DrawVertical(sheet, name, record.MinVAngle, record.MaxVAngle);
}

template <class Record, class Query> void DrawOneSide(const VEXMELKSheet& sheet, const char* name, Query query)
{
    Record record;
    if (!(sheet.New<VEXMELKHeadImpactConfig>().Get()->*query)(sheet.standard, record))
        return;
    DrawDirection(sheet, name, record.HAngle, "HAngle");
    DrawVertical(sheet, name, record.MinVAngle, record.MaxVAngle);
}

void DrawHeadImpact(const VEXMELKSheet& sheet)
{
    using Config = VEXMELKHeadImpactConfig;
    DrawGravityCentre(sheet);
    VEXMELKUpperRoofDefinition roof;
    if (sheet.New<Config>()->GetUpperRoofSData(sheet.standard, roof))
    {
        DrawVertical(sheet, "Upper roof", roof.MinVAngle, roof.MaxVAngle);
        sheet.Note("upper roof: section offset " + VEXMELKPlain(roof.RoofSectionOffset) + ", active ratio " +
                   VEXMELKPlain(roof.ActiveRoofRatio));
    }
    DrawPillars(sheet);
    DrawBothSides<VEXMELKOtherPillarDefinition>(sheet, "Other pillar", &Config::GetOtherPillarSData);
    DrawOneSide<VEXMELKFrontHeaderDefinition>(sheet, "Front header", &Config::GetFrontHeaderSData);
    DrawOneSide<VEXMELKRearHeaderDefinition>(sheet, "Rear header", &Config::GetRearHeaderSData);
    DrawBothSides<VEXMELKSideRailDefinition>(sheet, "Side rail", &Config::GetSideRailSData);
    DrawBothSides<VEXMELKSlidingDoorTrackDefinition>(sheet, "Sliding door track", &Config::GetSlidingDoorTrackSData);
    DrawOneSide<VEXMELKRollBarDefinition>(sheet, "Roll bar", &Config::GetRollBarSData);
    DrawBothSides<VEXMELKStiffenerBraceDefinition>(sheet, "Stiffener brace", &Config::GetStiffenerBraceSData);
}

// Belts
// ------------------------------------------------------------------------------------------------------------------

// The lower anchorages lie between two angles below the horizontal, behind the seat's point.
void DrawBeltAngles(const VEXMELKSheet& sheet, bool isFront)
{
    VEXMELKSBAnglesCfgDefinition angles;
    sheet.New<VEXMELKSeatingBeltsConfig>()->GetSBAnglesData(sheet.standard, sheet.category, isFront ? 1 : 0, angles);
    struct Pair
    {
        const char* title;
        const char* fromField;
        const CATUnicodeString& from;
        const char* toField;
        const CATUnicodeString& to;
    };
    const std::string seat = isFront ? "Front seat, " : "Back seat, ";
    double reach = 180.0;
    for (const Pair& pair :
        {Pair{"P", "PA1", angles.PA1, "PA2", angles.PA2}, Pair{"P", "PA1X", angles.PA1X, "PA2X", angles.PA2X},
            Pair{"Q", "QA1", angles.QA1, "QA2", angles.QA2}, Pair{"Q", "QA1X", angles.QA1X, "QA2X", angles.QA2X}})
    {
        const VEXMELKMeasure from = sheet.Angle(pair.fromField, pair.from);
        const VEXMELKMeasure to = sheet.Angle(pair.toField, pair.to);
        if (!from || !to)
            continue;
        const VEXMELKPen pen = sheet.On(seat + pair.title + " angles", "", "", "");
        const bool isSecond = std::string(pair.fromField).ends_with("X");
        pen.Surroundings().Mark({0.0, 0.0}, "");
        pen.Sector({0.0, 0.0}, -from.value, -to.value, isSecond ? 0.72 * reach : reach, from);
        pen.Angle(from, {0.0, 0.0}, 0.0, -from.value, isSecond ? 0.62 * reach : 0.9 * reach);
        pen.Angle(to, {0.0, 0.0}, 0.0, -to.value, isSecond ? 0.5 * reach : 0.8 * reach);
        pen.Axis({0.0, 0.0}, {1.1 * reach, 0.0});
    }
}

// Distances along the torso line, each on a line of its own beside it.
void DrawShoulderAnchor(const VEXMELKSheet& sheet)
{
    VEXMELKSBShAnchorCfgDefinition anchor;
    sheet.New<VEXMELKSeatingBeltsConfig>()->GetSBShAnchorData(sheet.standard, sheet.category, anchor);
    struct Named
    {
        const char* field;
        const CATUnicodeString& text;
    };
    double x = 0.0;
    for (const Named& named : {Named{"ShL1a", anchor.ShL1a}, Named{"ShL1b", anchor.ShL1b}, Named{"ShL2", anchor.ShL2},
             Named{"ShL3a", anchor.ShL3a}, Named{"ShL3b", anchor.ShL3b}, Named{"ShL4", anchor.ShL4},
             Named{"ShThrA", anchor.ShThrA}, Named{"ShThrB", anchor.ShThrB}, Named{"SMin", anchor.SMin},
             Named{"SMax", anchor.SMax}, Named{"ShA1", anchor.ShA1}, Named{"ShA2", anchor.ShA2},
             Named{"ShA2RearAlt", anchor.ShA2RearAlt}})
    {
        const VEXMELKMeasure length = sheet.Length(named.field, named.text);
        if (!length)
            continue;
        const VEXMELKPen pen = sheet.On("Shoulder anchorage, lengths", "one beside the other", "length");
        pen.Line({{x, 0.0}, {x, length.value}}, length);
        pen.Mark({x, length.value}, std::string(named.field) + " " + length.text, length);
        x += 90.0;
    }
    if (anchor.ShMulti1a != 0.0 || anchor.ShMulti2a != 0.0)
        sheet.Note("multipliers: 1a " + VEXMELKNumberText(anchor.ShMulti1a) + ", 2a " +
                   VEXMELKNumberText(anchor.ShMulti2a) + ", 1b " + VEXMELKNumberText(anchor.ShMulti1b) + ", 2b " +
                   VEXMELKNumberText(anchor.ShMulti2b));
}

void DrawSeatingBelts(const VEXMELKSheet& sheet)
{
    VEXMELKSBTandardCfgDefinition belts;
    if (!sheet.New<VEXMELKSeatingBeltsConfig>()->GetStandardData(sheet.standard, sheet.category, belts))
        return;
    DrawBeltAngles(sheet, true);
    DrawBeltAngles(sheet, false);
    DrawShoulderAnchor(sheet);
    const VEXMELKPen planes = sheet.On("Planes P, Q and R", "across, from the middle of the seat", "Z, up, schematic");
    for (const VEXMELKMeasure& plane : {sheet.Length("PlaneDistP", belts.PlaneDistP),
             sheet.Length("PlaneDistQ", belts.PlaneDistQ), sheet.Length("PlaneDistR", belts.PlaneDistR)})
    {
        if (plane)
            planes.Line({{plane.value, 0.0}, {plane.value, 120.0}}, plane);
        planes.Length(plane, {0.0, 120.0}, {plane.value, 120.0});
    }
    const VEXMELKPen shift = sheet.On("Shift of the low anchorage", "X, to the rear", "Z, up");
    const VEXMELKMeasure x = sheet.Length("USLowXShift", belts.USLowXShift);
    const VEXMELKMeasure z = sheet.Length("USLowZShift", belts.USLowZShift);
    if (x && z)
    {
        shift.Line({{0.0, 0.0}, {x.value, z.value}}, x);
        shift.Mark({x.value, z.value}, "shifted", x);
    }
    shift.Length(x, {0.0, 0.0}, {x.value, 0.0});
    shift.Length(z, {x.value, 0.0}, {x.value, z.value});
    sheet.NoteText("USLowShiftThreshold", belts.USLowShiftThreshold);
    sheet.Note(belts.EUApproach ? "European approach" : "not the European approach");
}

// Children
// ---------------------------------------------------------------------------------------------------------------

void DrawChildProtection(const VEXMELKSheet& sheet)
{
    VEXMELKChildProtectionDefinition child;
    if (!sheet.New<VEXMELKChildProtectionConfig>()->GetStandardData(sheet.standard, sheet.category, child))
        return;
    const VEXMELKMeasure shoulder = sheet.Length("CPShDist", child.CPShDist);
    const VEXMELKMeasure radius = sheet.Length("CPShRadius", child.CPShRadius);
    const VEXMELKMeasure back = sheet.Length("CPBackDist", child.CPBackDist);
    const VEXMELKMeasure top = sheet.Angle("CPTopAngle", child.CPTopAngle);
    const VEXMELKMeasure shift = sheet.Length("CPShCShift", child.CPShCShift);
    const VEXMELKMeasure vertical = sheet.Angle("CPVolVertAngle", child.CPVolVertAngle);
    const VEXMELKMeasure horizontal = sheet.Angle("CPVolHorizAngle", child.CPVolHorizAngle);
    const VEXMELKMeasure offset = sheet.Length("CPVolHorizOffset", child.CPVolHorizOffset);
    const double torso = 90.0 - sheet.vehicle.backAngle; // leaning to the rear
    const VEXMELKPen side =
        sheet.On("Side view", "X, to the rear from the seat's point", "Z, up from the seat's point");
    const VEXMELKSpot seat{0.0, 0.0};
    const VEXMELKSpot shoulders = VEXMELKPolar(seat, torso, shoulder.value);
    const VEXMELKSpot centre = VEXMELKPolar(shoulders, torso - 90.0, child.CPUseCShift ? shift.value : 0.0);
    side.Mark(seat, "seat's point");
    side.Axis(seat, VEXMELKPolar(seat, torso, 1.3 * shoulder.value));
    side.Length(shoulder, seat, shoulders);
    if (radius)
        side.Circle(centre, radius.value, radius);
    side.Length(radius, centre, VEXMELKPolar(centre, 180.0, radius.value));
    side.Mark(centre, "shoulder");
    if (back)
    {
        const VEXMELKSpot behind = VEXMELKPolar(seat, torso - 90.0, back.value);
        side.Line({behind, VEXMELKPolar(behind, torso, 1.3 * shoulder.value)}, back);
        side.Length(back, seat, behind);
    }
    if (top)
        side.Ray(centre, top.value, 2.0 * radius.value, top);
    side.Angle(top, centre, 0.0, top.value, 1.7 * radius.value);
    if (vertical)
        side.Sector(centre, -vertical.value, 0.0, 2.4 * radius.value, vertical);
    side.Angle(vertical, centre, -vertical.value, 0.0, 2.2 * radius.value);
    const VEXMELKPen plan =
        sheet.On("Plan view", "X, to the rear from the seat's point", "Y, across from the seat's middle");
    const double reach = 2.4 * std::max(radius.value, 100.0);
    if (horizontal)
        for (const double sign : {-1.0, 1.0})
            plan.Ray({0.0, sign * offset.value}, sign * horizontal.value, reach, horizontal);
    plan.Axis({0.0, 0.0}, {reach, 0.0});
    plan.Axis({0.0, offset.value}, {reach, offset.value});
    plan.Angle(horizontal, {0.0, offset.value}, 0.0, horizontal.value, 0.7 * reach);
    plan.Length(offset, {0.0, 0.0}, {0.0, offset.value});
    sheet.NoteText("CPAustralianNormOffset", child.CPAustralianNormOffset);
    sheet.Note(child.CPAustralianNorm ? "Australian rule" : "not the Australian rule");
}

constexpr VEXMELKDrawer safetyDrawers[] = {
    {"PedestrianProtection", DrawPedestrianProtection},
    {"PPOffset", DrawPPOffset},
    {"HeadImpact", DrawHeadImpact},
    {"SeatingBelts", DrawSeatingBelts},
    {"ChildProtection", DrawChildProtection},
};

} // namespace

std::span<const VEXMELKDrawer> VEXMELKSafetyDrawers() { return safetyDrawers; }
