// The shapes of drawings. Everything that is no number is left out: a drawing has only points that exist.
#include "VEXMELKDrawing.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

bool VEXMELKDrawing::HasLayer(VEXMELKLayer layer) const
{
    const auto isOfIt = [&](const auto& part) { return part.layer == layer; };
    return std::any_of(notes.begin(), notes.end(), isOfIt) ||
           std::any_of(panels.begin(), panels.end(),
               [&](const VEXMELKPanel& panel)
               { return std::any_of(panel.shapes.begin(), panel.shapes.end(), isOfIt); });
}

VEXMELKSpot VEXMELKPolar(VEXMELKSpot from, double turn, double distance)
{
    const double radians = turn * std::numbers::pi / 180.0;
    return {from.x + distance * std::cos(radians), from.y + distance * std::sin(radians)};
}

std::vector<VEXMELKSpot> VEXMELKBox(VEXMELKSpot corner, VEXMELKSpot opposite)
{
    return {corner, {opposite.x, corner.y}, opposite, {corner.x, opposite.y}};
}

std::vector<VEXMELKSpot> VEXMELKTurned(std::vector<VEXMELKSpot> points, VEXMELKSpot centre, double turn)
{
    const double radians = turn * std::numbers::pi / 180.0;
    const double cosine = std::cos(radians);
    const double sine = std::sin(radians);
    for (VEXMELKSpot& point : points)
    {
        const double x = point.x - centre.x;
        const double y = point.y - centre.y;
        point = {centre.x + x * cosine - y * sine, centre.y + x * sine + y * cosine};
    }
    return points;
}

std::string VEXMELKNumberText(double number)
{
    if (std::fabs(number) < 5e-7)
        return "0";
    std::array<char, 64> digits{};
    const bool isUsual = std::fabs(number) < 1e9;
    const auto written = isUsual ? std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                       std::chars_format::fixed, std::fabs(number) < 1.0 ? 6 : 3)
                                 : std::to_chars(digits.data(), digits.data() + digits.size(), number);
    std::string text(digits.data(), written.ptr);
    if (!isUsual || text.find('.') == std::string::npos)
        return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

VEXMELKShape& VEXMELKPen::Add(
    VEXMELKShape::Kind kind, std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure) const
{
    VEXMELKShape shape;
    shape.kind = kind;
    shape.layer = m_Layer;
    shape.points = std::move(points);
    shape.measure = measure;
    std::vector<VEXMELKShape>& shapes = m_Drawing->panels[m_Panel].shapes;
    shapes.push_back(std::move(shape));
    return shapes.back();
}

void VEXMELKPen::Line(std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure) const
{
    Add(VEXMELKShape::Line, std::move(points), measure);
}

void VEXMELKPen::Axis(VEXMELKSpot from, VEXMELKSpot to) const
{
    Add(VEXMELKShape::Line, {from, to}, {}).role = VEXMELKShape::Axis;
}

void VEXMELKPen::Outline(std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure) const
{
    Add(VEXMELKShape::Line, std::move(points), measure).isClosed = true;
}

void VEXMELKPen::Area(std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure) const
{
    VEXMELKShape& shape = Add(VEXMELKShape::Line, std::move(points), measure);
    shape.isClosed = true;
    shape.role = VEXMELKShape::Area;
}

void VEXMELKPen::Ellipse(
    VEXMELKSpot centre, double radiusX, double radiusY, double turn, const VEXMELKMeasure& measure) const
{
    VEXMELKShape& shape = Add(VEXMELKShape::Ellipse, {centre}, measure);
    shape.radiusX = std::fabs(radiusX);
    shape.radiusY = std::fabs(radiusY);
    shape.turn = turn;
}

void VEXMELKPen::Circle(VEXMELKSpot centre, double radius, const VEXMELKMeasure& measure) const
{
    Ellipse(centre, radius, radius, 0.0, measure);
}

void VEXMELKPen::Mark(VEXMELKSpot at, const std::string& label, const VEXMELKMeasure& measure) const
{
    Add(VEXMELKShape::Mark, {at}, measure).label = label;
}

void VEXMELKPen::Label(VEXMELKSpot at, const std::string& label) const
{
    Add(VEXMELKShape::Label, {at}, {}).label = label;
}

void VEXMELKPen::Length(const VEXMELKMeasure& measure, VEXMELKSpot from, VEXMELKSpot to) const
{
    if (measure)
        Add(VEXMELKShape::Length, {from, to}, measure);
}

void VEXMELKPen::Angle(
    const VEXMELKMeasure& measure, VEXMELKSpot vertex, double fromTurn, double toTurn, double radius) const
{
    if (!measure)
        return;
    VEXMELKShape& shape = Add(VEXMELKShape::Angle, {vertex}, measure);
    shape.turn = fromTurn;
    shape.endTurn = toTurn;
    shape.radiusX = std::fabs(radius);
    shape.radiusY = std::fabs(radius);
}

void VEXMELKPen::Ray(VEXMELKSpot from, double turn, double length, const VEXMELKMeasure& measure) const
{
    Line({from, VEXMELKPolar(from, turn, length)}, measure);
}

void VEXMELKPen::Sector(
    VEXMELKSpot centre, double fromTurn, double toTurn, double radius, const VEXMELKMeasure& measure) const
{
    constexpr double step = 2.0; // degrees from point to point
    const double turns = std::clamp(toTurn - fromTurn, -360.0, 360.0);
    const int steps = std::max(1, static_cast<int>(std::ceil(std::fabs(turns) / step)));
    std::vector<VEXMELKSpot> points = {centre};
    for (int number = 0; number <= steps; ++number)
        points.push_back(VEXMELKPolar(centre, fromTurn + turns * number / steps, radius));
    Area(std::move(points), measure);
}
