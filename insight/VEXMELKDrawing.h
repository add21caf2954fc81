// Drawings to scale: panels of shapes in millimetres or degrees. What stands in a drawing is geometry only; where
// labels find room, and which colours the layers have, is the writer's business (VEXMELKSvg.h).
//
// In a panel the first axis points to the right and the second one up. Turns are counted from the first axis towards
// the second, in degrees.
#ifndef VEXMELKDrawing_H
#define VEXMELKDrawing_H

#include <string>
#include <vector>

struct VEXMELKSpot
{
    double x = 0.0;
    double y = 0.0;
    bool operator==(const VEXMELKSpot&) const = default;
};

// Whose answer a shape shows. Surroundings belong to nobody: a schematic vehicle, the road.
enum class VEXMELKLayer
{
    Surroundings,
    Default,
    Customer
};

// A value as a picture tells of it: the field it stands in, the text that was handed out, and its number in
// millimetres, degrees or percent. One that is not given draws nothing.
struct VEXMELKMeasure
{
    std::string field;
    std::string text;
    double value = 0.0;
    bool isGiven = false;
    explicit operator bool() const { return isGiven; }
    bool operator==(const VEXMELKMeasure&) const = default;
};

struct VEXMELKShape
{
    enum Kind
    {
        Line,    // through the points, open or closed
        Ellipse, // about the first point
        Mark,    // a point
        Length,  // a dimension between two points
        Angle,   // a dimension about the first point, from one turn to another
        Label    // a text at a point
    };
    enum Role
    {
        Outline,
        Axis, // construction lines: dashed
        Area  // closed and filled
    };
    Kind kind = Line;
    Role role = Outline;
    VEXMELKLayer layer = VEXMELKLayer::Surroundings;
    std::vector<VEXMELKSpot> points;
    bool isClosed = false;
    double radiusX = 0.0; // of an ellipse; of an angle, that of its arc
    double radiusY = 0.0;
    double turn = 0.0;      // of an ellipse; of an angle, where it begins
    double endTurn = 0.0;   // of an angle
    VEXMELKMeasure measure; // of a dimension; the field of an outline that shows one value
    std::string label;      // of a mark or label
    bool operator==(const VEXMELKShape&) const = default;
};

struct VEXMELKPanel
{
    std::string title;
    std::string xAxis; // "x, to the rear"
    std::string yAxis;
    std::string unit; // of both axes: "mm", "deg", "%"; empty for directions alone, which have no axes
    std::vector<VEXMELKShape> shapes;
    bool isDetail = false; // shows what is drawn for the layers; of the surroundings what is near
};

struct VEXMELKDrawingNote
{
    VEXMELKLayer layer;
    std::string text;
    bool operator==(const VEXMELKDrawingNote&) const = default;
};

struct VEXMELKDrawing
{
    std::string title;
    std::vector<VEXMELKPanel> panels;
    std::vector<VEXMELKDrawingNote> notes;
    bool HasLayer(VEXMELKLayer layer) const;
};

// Draws into one panel for one layer.
class VEXMELKPen
{
public:
    VEXMELKPen(VEXMELKDrawing& drawing, std::size_t panel, VEXMELKLayer layer)
        : m_Drawing(&drawing), m_Panel(panel), m_Layer(layer)
    {
    }
    std::size_t Panel() const { return m_Panel; }
    bool IsEmpty() const { return m_Drawing->panels[m_Panel].shapes.empty(); } // nobody has drawn there
    // The same panel, drawn for nobody.
    VEXMELKPen Surroundings() const { return {*m_Drawing, m_Panel, VEXMELKLayer::Surroundings}; }

    void Line(std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure = {}) const;
    void Axis(VEXMELKSpot from, VEXMELKSpot to) const;
    void Outline(std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure = {}) const;
    void Area(std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure = {}) const;
    void Ellipse(
        VEXMELKSpot centre, double radiusX, double radiusY, double turn, const VEXMELKMeasure& measure = {}) const;
    void Circle(VEXMELKSpot centre, double radius, const VEXMELKMeasure& measure = {}) const;
    void Mark(VEXMELKSpot at, const std::string& label, const VEXMELKMeasure& measure = {}) const;
    void Label(VEXMELKSpot at, const std::string& label) const;
    // Dimensions; nothing when the value is not given.
    void Length(const VEXMELKMeasure& measure, VEXMELKSpot from, VEXMELKSpot to) const;
    void Angle(const VEXMELKMeasure& measure, VEXMELKSpot vertex, double fromTurn, double toTurn, double radius) const;
    // A line from a point under a turn.
    void Ray(VEXMELKSpot from, double turn, double length, const VEXMELKMeasure& measure = {}) const;
    // The part of a circle between two turns, filled.
    void Sector(
        VEXMELKSpot centre, double fromTurn, double toTurn, double radius, const VEXMELKMeasure& measure = {}) const;

private:
    VEXMELKShape& Add(VEXMELKShape::Kind kind, std::vector<VEXMELKSpot> points, const VEXMELKMeasure& measure) const;

    VEXMELKDrawing* m_Drawing;
    std::size_t m_Panel;
    VEXMELKLayer m_Layer;
};

// The point that lies at a distance from another under a turn.
VEXMELKSpot VEXMELKPolar(VEXMELKSpot from, double turn, double distance);
// Corners of a rectangle, from two opposite ones.
std::vector<VEXMELKSpot> VEXMELKBox(VEXMELKSpot corner, VEXMELKSpot opposite);
// Points turned about a centre.
std::vector<VEXMELKSpot> VEXMELKTurned(std::vector<VEXMELKSpot> points, VEXMELKSpot centre, double turn);
// A number for people: at most ten digits, no exponent where it can be helped, whatever the locale.
std::string VEXMELKNumberText(double number);

#endif
