// Lays panels out and writes them. Sizes are in pixels of 96 to the inch, so that a picture printed at its own size has
// the scale that it names. Widths of texts are estimated from the number of their characters, generously.
#include "VEXMELKSvg.h"

#include "VEXMELKDocumentText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

namespace {

constexpr double pixelsPerMillimetre = 96.0 / 25.4;
constexpr double narrowestPlot = 150.0;
constexpr double lowestPlot = 110.0;
constexpr double fontSize = 10.0;
constexpr double characterWidth = 6.1;
constexpr double lane = 19.0; // from dimension to dimension
constexpr double widestRow = 1180.0;
constexpr double gap = 26.0; // between panels
constexpr double margin = 14.0;

// How large a plot may become: alone it has more room, and among many less.
struct Room
{
    double width;
    double height;
};
Room RoomAmong(std::size_t panels)
{
    if (panels == 1)
        return {860.0, 420.0};
    return panels <= 8 ? Room{480.0, 330.0} : Room{250.0, 190.0};
}

// Texts --------------------------------------------------------------------------------------------------------------

std::string Pixels(double number)
{
    std::array<char, 64> digits{};
    const double rounded = std::round(number * 100.0) / 100.0 + 0.0; // no negative zero
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), rounded, std::chars_format::fixed, 2);
    std::string text(digits.data(), written.ptr);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

std::string Precise(double number)
{
    std::array<char, 64> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return {digits.data(), written.ptr};
}

double WidthOf(std::string_view text)
{
    const auto isFirstByte = [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80U; };
    return characterWidth * static_cast<double>(std::count_if(text.begin(), text.end(), isFirstByte));
}

// At least as large as the number, and round.
double RoundedUp(double number)
{
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    for (const double step : {1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0})
        if (step * power >= number * (1.0 - 1e-9))
            return step * power;
    return 10.0 * power;
}

double TickStep(double smallest)
{
    const double power = std::pow(10.0, std::floor(std::log10(smallest)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= smallest * (1.0 - 1e-9))
            return step * power;
    return 10.0 * power;
}

const char* ClassOf(VEXMELKLayer layer)
{
    switch (layer)
    {
    case VEXMELKLayer::Default:
        return "d";
    case VEXMELKLayer::Customer:
        return "c";
    default:
        return "s";
    }
}

// Places -------------------------------------------------------------------------------------------------------------

struct Rectangle
{
    double left = std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();

    double Width() const { return right - left; }
    double Height() const { return top - bottom; }
    void Include(VEXMELKSpot point)
    {
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        bottom = std::min(bottom, point.y);
        top = std::max(top, point.y);
    }
    bool Overlaps(const Rectangle& other) const
    {
        return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
    }
    double Shared(const Rectangle& other) const
    {
        return Overlaps(other) ? (std::min(right, other.right) - std::max(left, other.left)) *
                                     (std::min(top, other.top) - std::max(bottom, other.bottom))
                               : 0.0;
    }
    // Not below these sizes, about the same middle.
    void Widen(double width, double height)
    {
        const double x = std::max(0.0, width - Width()) / 2.0;
        const double y = std::max(0.0, height - Height()) / 2.0;
        *this = {left - x, bottom - y, right + x, top + y};
    }
};

Rectangle BoundsOf(const VEXMELKPanel& panel)
{
    Rectangle bounds;
    for (const VEXMELKShape& shape : panel.shapes)
    {
        if (panel.isDetail && shape.layer == VEXMELKLayer::Surroundings)
            continue;
        if (shape.kind == VEXMELKShape::Ellipse)
        {
            const double turn = shape.turn * std::numbers::pi / 180.0;
            const double x = std::hypot(shape.radiusX * std::cos(turn), shape.radiusY * std::sin(turn));
            const double y = std::hypot(shape.radiusX * std::sin(turn), shape.radiusY * std::cos(turn));
            bounds.Include({shape.points.front().x - x, shape.points.front().y - y});
            bounds.Include({shape.points.front().x + x, shape.points.front().y + y});
        }
        else
            for (const VEXMELKSpot& point : shape.points)
                bounds.Include(point);
        if (shape.kind == VEXMELKShape::Angle)
            for (const double turn : {shape.turn, (shape.turn + shape.endTurn) / 2.0, shape.endTurn})
                bounds.Include(VEXMELKPolar(shape.points.front(), turn, shape.radiusX));
    }
    const double most = std::max({bounds.Width(), bounds.Height(), 1e-3});
    bounds.Widen(0.12 * most, 0.12 * most);
    const double around = panel.isDetail ? 0.3 * most : 0.1 * most;
    bounds.Widen(bounds.Width() + around, bounds.Height() + around);
    return bounds;
}

// One panel ----------------------------------------------------------------------------------------------------------

class PanelWriter
{
public:
    PanelWriter(const VEXMELKPanel& panel, bool hasBothLayers, Room room, std::string id)
        : m_Panel(panel), m_HasBothLayers(hasBothLayers), m_Id(std::move(id)), m_Bounds(BoundsOf(panel))
    {
        const double widest =
            std::min(room.width / m_Bounds.Width(), room.height / m_Bounds.Height()) / pixelsPerMillimetre;
        m_UnitsPerMillimetre = RoundedUp(1.0 / widest);
        m_Scale = pixelsPerMillimetre / m_UnitsPerMillimetre;
        m_Bounds.Widen(narrowestPlot / m_Scale, lowestPlot / m_Scale);
        PlanDimensions();
        m_TickStep = TickStep(52.0 / m_Scale);
        if (HasAxes())
            for (const double tick : Ticks(m_Bounds.bottom, m_Bounds.top))
                m_Left = std::max(m_Left, WidthOf(VEXMELKNumberText(tick)) + 9.0);
        m_Top = 34.0 + lane * static_cast<double>(m_AcrossLanes.size());
    }

    double Width() const
    {
        const double plot = m_Left + m_Scale * m_Bounds.Width() + 8.0 + lane * static_cast<double>(m_UpLanes.size());
        const double title = WidthOf(m_Panel.title) * 1.15 + WidthOf(Caption()) + 12.0;
        return std::max({plot, title, m_Left + WidthOf(m_Panel.xAxis) + 36.0, m_Left + WidthOf(m_Panel.yAxis) + 36.0});
    }
    double Height() const { return m_Top + m_Scale * m_Bounds.Height() + (HasAxes() ? 44.0 : 4.0); }

    void Write(double left, double top, std::string& text)
    {
        m_X0 = left + m_Left - m_Scale * m_Bounds.left;
        m_Y0 = top + m_Top + m_Scale * m_Bounds.top;
        m_Edge = {left, top, left + Width(), top + Height()};
        m_Text = &text;
        text += "<g class=\"panel\" data-title=\"" + VEXMELKMarkupText(m_Panel.title) + "\" data-unit=\"" +
                VEXMELKMarkupText(m_Panel.unit) + "\" data-x0=\"" + Precise(m_X0) + "\" data-y0=\"" + Precise(m_Y0) +
                "\" data-scale=\"" + Precise(m_Scale) + "\">\n<text class=\"h\" x=\"" + Pixels(left + 2.0) + "\" y=\"" +
                Pixels(top + 12.0) + "\">" + VEXMELKMarkupText(m_Panel.title) + "<tspan class=\"n\" dx=\"8\">" +
                VEXMELKMarkupText(Caption()) + "</tspan></text>\n";
        if (HasAxes())
            WriteAxes();
        WriteSurroundings();
        for (const VEXMELKShape& shape : m_Panel.shapes)
            if (shape.layer != VEXMELKLayer::Surroundings || shape.kind == VEXMELKShape::Mark)
                WriteShape(shape);
        WriteLanes();
        for (const VEXMELKShape& shape : m_Panel.shapes)
            WriteLabel(shape);
        text += "</g>\n";
    }

private:
    struct Dimension
    {
        const VEXMELKShape* shape;
        double from; // along the lane, in pixels from the left or the top of the plot
        double to;
        double textFrom;
        double textTo;
        double Begin() const { return std::min(from, textFrom); }
        double End() const { return std::max(to, textTo); }
    };
    using Lanes = std::vector<std::vector<Dimension>>;

    static std::string LabelOf(const VEXMELKShape& shape)
    {
        return shape.measure.field.empty() ? shape.measure.text : shape.measure.field + " " + shape.measure.text;
    }

    bool HasAxes() const { return !m_Panel.unit.empty(); }

    // What stands around is cut at the edge of the plot.
    void WriteSurroundings()
    {
        std::string& text = *m_Text;
        text += "<clipPath id=\"" + m_Id + "\"><rect x=\"" + Pixels(X(m_Bounds.left)) + "\" y=\"" +
                Pixels(Y(m_Bounds.top)) + "\" width=\"" + Pixels(PlotWidth()) + "\" height=\"" + Pixels(PlotHeight()) +
                "\"/></clipPath>\n<g clip-path=\"url(#" + m_Id + ")\">\n";
        for (const VEXMELKShape& shape : m_Panel.shapes)
            if (shape.layer == VEXMELKLayer::Surroundings && shape.kind != VEXMELKShape::Mark)
                WriteShape(shape);
        text += "</g>\n";
    }

    // "1 : 25", or how much a millimetre of the picture is worth.
    std::string Caption() const
    {
        if (!HasAxes())
            return {};
        if (m_Panel.unit != "mm")
            return "1 mm = " + VEXMELKNumberText(m_UnitsPerMillimetre) + " " + m_Panel.unit;
        return m_UnitsPerMillimetre >= 1.0 ? "1 : " + VEXMELKNumberText(m_UnitsPerMillimetre)
                                           : VEXMELKNumberText(1.0 / m_UnitsPerMillimetre) + " : 1";
    }

    double PlotWidth() const { return m_Scale * m_Bounds.Width(); }
    double PlotHeight() const { return m_Scale * m_Bounds.Height(); }
    double X(double x) const { return m_X0 + m_Scale * x; }
    double Y(double y) const { return m_Y0 - m_Scale * y; }

    bool IsAcross(const VEXMELKShape& shape) const
    {
        return std::fabs(shape.points[0].y - shape.points[1].y) * m_Scale < 0.01;
    }
    bool IsUp(const VEXMELKShape& shape) const
    {
        return !IsAcross(shape) && std::fabs(shape.points[0].x - shape.points[1].x) * m_Scale < 0.01;
    }

    Dimension DimensionOf(const VEXMELKShape& shape, double from, double to, double room) const
    {
        const double width = WidthOf(LabelOf(shape)) + 6.0;
        // Within the plot where it has room.
        const double middle = (from + to) / 2.0;
        const double begin = width > room ? (room - width) / 2.0 : std::clamp(middle - width / 2.0, 0.0, room - width);
        return {&shape, std::min(from, to), std::max(from, to), begin, begin + width};
    }

    // The same value between the same heights is told once.
    static void AddNew(std::vector<Dimension>& dimensions, const Dimension& added)
    {
        const auto isSame = [&](const Dimension& other)
        {
            return other.from == added.from && other.to == added.to && other.shape->measure == added.shape->measure &&
                   other.shape->layer == added.shape->layer;
        };
        if (std::none_of(dimensions.begin(), dimensions.end(), isSame))
            dimensions.push_back(added);
    }

    void PlanDimensions()
    {
        std::vector<Dimension> across;
        std::vector<Dimension> up;
        for (const VEXMELKShape& shape : m_Panel.shapes)
        {
            if (shape.kind != VEXMELKShape::Length)
                continue;
            if (IsAcross(shape))
                AddNew(across, DimensionOf(shape, (shape.points[0].x - m_Bounds.left) * m_Scale,
                                   (shape.points[1].x - m_Bounds.left) * m_Scale, PlotWidth()));
            else if (IsUp(shape))
                AddNew(up, DimensionOf(shape, (m_Bounds.top - shape.points[0].y) * m_Scale,
                               (m_Bounds.top - shape.points[1].y) * m_Scale, PlotHeight()));
        }
        m_AcrossLanes = InLanes(std::move(across));
        m_UpLanes = InLanes(std::move(up));
    }

    // The shortest stand next to the plot.
    static Lanes InLanes(std::vector<Dimension> dimensions)
    {
        std::stable_sort(dimensions.begin(), dimensions.end(),
            [](const Dimension& left, const Dimension& right) { return left.to - left.from < right.to - right.from; });
        Lanes lanes;
        for (const Dimension& dimension : dimensions)
        {
            const auto hasRoom = [&](const std::vector<Dimension>& inLane)
            {
                return std::all_of(inLane.begin(), inLane.end(),
                    [&](const Dimension& other)
                    { return other.End() + 3.0 < dimension.Begin() || dimension.End() + 3.0 < other.Begin(); });
            };
            const auto free = std::find_if(lanes.begin(), lanes.end(), hasRoom);
            (free == lanes.end() ? lanes.emplace_back() : *free).push_back(dimension);
        }
        return lanes;
    }

    std::vector<double> Ticks(double from, double to) const
    {
        std::vector<double> ticks;
        const double first = std::ceil(from / m_TickStep);
        const double last = std::floor(to / m_TickStep);
        for (int number = 0; first + number <= last; ++number)
            ticks.push_back((first + number) * m_TickStep);
        return ticks;
    }

    void WriteLine(const std::string& kind, double x1, double y1, double x2, double y2)
    {
        *m_Text += "<path class=\"" + kind + "\" d=\"M" + Pixels(x1) + " " + Pixels(y1) + "L" + Pixels(x2) + " " +
                   Pixels(y2) + "\"/>\n";
    }

    void WriteText(const std::string& kind, double x, double y, const std::string& text, const std::string& more = {})
    {
        *m_Text += "<text class=\"" + kind + "\" x=\"" + Pixels(x) + "\" y=\"" + Pixels(y) + "\"" + more + ">" +
                   VEXMELKMarkupText(text) + "</text>\n";
    }

    void WriteAxes()
    {
        const double left = X(m_Bounds.left);
        const double right = X(m_Bounds.right);
        const double top = Y(m_Bounds.top);
        const double bottom = Y(m_Bounds.bottom);
        std::string grid;
        for (const double tick : Ticks(m_Bounds.left, m_Bounds.right))
            grid += "M" + Pixels(X(tick)) + " " + Pixels(top) + "V" + Pixels(bottom);
        for (const double tick : Ticks(m_Bounds.bottom, m_Bounds.top))
            grid += "M" + Pixels(left) + " " + Pixels(Y(tick)) + "H" + Pixels(right);
        *m_Text += "<path class=\"g\" d=\"" + grid + "\"/>\n";
        if (m_Bounds.bottom < 0.0 && m_Bounds.top > 0.0)
            WriteLine("z", left, Y(0.0), right, Y(0.0));
        if (m_Bounds.left < 0.0 && m_Bounds.right > 0.0)
            WriteLine("z", X(0.0), top, X(0.0), bottom);
        *m_Text += "<path class=\"r\" d=\"M" + Pixels(left) + " " + Pixels(top) + "V" + Pixels(bottom) + "H" +
                   Pixels(right) + "\"/>\n";
        double free = -std::numeric_limits<double>::infinity();
        for (const double tick : Ticks(m_Bounds.left, m_Bounds.right))
        {
            const std::string number = VEXMELKNumberText(tick);
            if (X(tick) - WidthOf(number) / 2.0 < free)
                continue;
            WriteText("t m", X(tick), bottom + 12.0, number, " data-tick=\"x\"");
            free = X(tick) + WidthOf(number) / 2.0 + 8.0;
        }
        for (const double tick : Ticks(m_Bounds.bottom, m_Bounds.top))
            WriteText("t e", left - 5.0, Y(tick) + 3.5, VEXMELKNumberText(tick), " data-tick=\"y\"");
        WriteText("n", left, bottom + 26.0, "→ " + m_Panel.xAxis + " [" + m_Panel.unit + "]");
        WriteText("n", left, bottom + 38.0, "↑ " + m_Panel.yAxis + " [" + m_Panel.unit + "]");
    }

    static std::string ClassesOf(const VEXMELKShape& shape)
    {
        const std::string layer = ClassOf(shape.layer);
        return shape.role == VEXMELKShape::Axis   ? layer + " a"
               : shape.role == VEXMELKShape::Area ? layer + " f"
                                                  : layer;
    }

    static std::string DataOf(const VEXMELKShape& shape)
    {
        if (shape.measure.field.empty())
            return {};
        return " data-field=\"" + VEXMELKMarkupText(shape.measure.field) + "\" data-value=\"" +
               VEXMELKMarkupText(shape.measure.text) + "\"";
    }

    std::string PathOf(const VEXMELKShape& shape) const
    {
        std::string path;
        for (const VEXMELKSpot& point : shape.points)
            path += (path.empty() ? "M" : "L") + Pixels(X(point.x)) + " " + Pixels(Y(point.y));
        return path + (shape.isClosed ? "Z" : "");
    }

    void WriteShape(const VEXMELKShape& shape)
    {
        RememberLines(shape);
        const std::string begin = " class=\"" + ClassesOf(shape) + "\"" + DataOf(shape);
        const double x = X(shape.points.front().x);
        const double y = Y(shape.points.front().y);
        if (shape.kind == VEXMELKShape::Line)
            *m_Text += "<path" + begin + " d=\"" + PathOf(shape) + "\"/>\n";
        else if (shape.kind == VEXMELKShape::Ellipse)
        {
            *m_Text += "<ellipse" + begin + " cx=\"" + Pixels(x) + "\" cy=\"" + Pixels(y) + "\" rx=\"" +
                       Pixels(m_Scale * shape.radiusX) + "\" ry=\"" + Pixels(m_Scale * shape.radiusY) + "\"";
            if (shape.turn != 0.0)
                *m_Text += " transform=\"rotate(" + Pixels(-shape.turn) + " " + Pixels(x) + " " + Pixels(y) + ")\"";
            *m_Text += "/>\n";
        }
        else if (shape.kind == VEXMELKShape::Mark)
        {
            *m_Text += "<circle class=\"" + std::string(ClassOf(shape.layer)) + " p\"" + DataOf(shape) + " cx=\"" +
                       Pixels(x) + "\" cy=\"" + Pixels(y) + "\" r=\"2.5\"/>\n";
            m_Taken.push_back({x - 3.0, y - 3.0, x + 3.0, y + 3.0});
        }
        else if (shape.kind == VEXMELKShape::Angle)
            WriteArc(shape);
        else if (shape.kind == VEXMELKShape::Length && !IsAcross(shape) && !IsUp(shape))
            *m_Text += "<path class=\"" + std::string(ClassOf(shape.layer)) + " w\"" + DataOf(shape) + " d=\"" +
                       PathOf(shape) + "\"/>\n";
    }

    // What labels had better not stand on.
    void RememberLines(const VEXMELKShape& shape)
    {
        std::vector<VEXMELKSpot> points = shape.points;
        if (shape.kind == VEXMELKShape::Ellipse)
        {
            points.clear();
            for (int turn = 0; turn <= 360; turn += 10)
            {
                const double radians = turn * std::numbers::pi / 180.0;
                points.push_back({shape.points.front().x + shape.radiusX * std::cos(radians),
                    shape.points.front().y + shape.radiusY * std::sin(radians)});
            }
            points = VEXMELKTurned(std::move(points), shape.points.front(), shape.turn);
        }
        if (shape.isClosed)
            points.push_back(points.front());
        for (std::size_t number = 1; number < points.size(); ++number)
            m_Lines.push_back(
                {{X(points[number - 1].x), Y(points[number - 1].y)}, {X(points[number].x), Y(points[number].y)}});
    }

    // Far enough from its vertex to be seen, and not out of the plot; the customer's outside of the other.
    double ArcRadius(const VEXMELKShape& shape) const
    {
        const double most = 0.8 * std::min(PlotWidth(), PlotHeight());
        const double radius = std::clamp(shape.radiusX * m_Scale, std::min(26.0, most), most);
        return m_HasBothLayers && shape.layer == VEXMELKLayer::Customer ? 1.18 * radius : radius;
    }

    VEXMELKSpot OnArc(const VEXMELKShape& shape, double turn, double radius) const
    {
        const double radians = turn * std::numbers::pi / 180.0;
        return {X(shape.points.front().x) + radius * std::cos(radians),
            Y(shape.points.front().y) - radius * std::sin(radians)};
    }

    void WriteArc(const VEXMELKShape& shape)
    {
        const double radius = ArcRadius(shape);
        std::string path;
        const double turns = std::clamp(shape.endTurn - shape.turn, -360.0, 360.0);
        const int steps = std::max(2, static_cast<int>(std::ceil(std::fabs(turns) / 6.0)));
        for (int step = 0; step <= steps; ++step)
        {
            const VEXMELKSpot point = OnArc(shape, shape.turn + turns * step / steps, radius);
            path += (path.empty() ? "M" : "L") + Pixels(point.x) + " " + Pixels(point.y);
        }
        *m_Text += "<path class=\"" + std::string(ClassOf(shape.layer)) + " w\"" + DataOf(shape) + " data-from=\"" +
                   Pixels(shape.turn) + "\" data-to=\"" + Pixels(shape.endTurn) + "\" d=\"" + path + "\"/>\n";
    }

    // Lines first, so that no text is crossed out by those of the lanes farther out.
    void WriteLanes()
    {
        const double left = X(m_Bounds.left);
        const double right = X(m_Bounds.right);
        const double top = Y(m_Bounds.top);
        std::string texts;
        const auto label = [&](const VEXMELKShape& shape, double x, double y, const char* turn)
        {
            texts += "<text class=\"b m " + std::string(ClassOf(shape.layer)) + "\" transform=\"translate(" +
                     Pixels(x) + " " + Pixels(y) + ")" + turn + "\">" + VEXMELKMarkupText(LabelOf(shape)) + "</text>\n";
        };
        for (std::size_t number = 0; number < m_AcrossLanes.size(); ++number)
            for (const Dimension& dimension : m_AcrossLanes[number])
            {
                const double y = top - 5.0 - lane * static_cast<double>(number);
                for (const VEXMELKSpot& point : dimension.shape->points)
                    WriteLine(std::string(ClassOf(dimension.shape->layer)) + " x", X(point.x), Y(point.y), X(point.x),
                        y - 3.0);
                WriteDimensionLine(*dimension.shape, left + dimension.from, y, left + dimension.to, y);
                label(*dimension.shape, left + (dimension.textFrom + dimension.textTo) / 2.0, y - 3.5, "");
            }
        for (std::size_t number = 0; number < m_UpLanes.size(); ++number)
            for (const Dimension& dimension : m_UpLanes[number])
            {
                const double x = right + 17.0 + lane * static_cast<double>(number);
                for (const VEXMELKSpot& point : dimension.shape->points)
                    WriteLine(std::string(ClassOf(dimension.shape->layer)) + " x", X(point.x), Y(point.y), x + 3.0,
                        Y(point.y));
                WriteDimensionLine(*dimension.shape, x, top + dimension.from, x, top + dimension.to);
                label(*dimension.shape, x - 3.5, top + (dimension.textFrom + dimension.textTo) / 2.0, "rotate(-90)");
            }
        *m_Text += texts;
    }

    // With a stroke across at each end.
    void WriteDimensionLine(const VEXMELKShape& shape, double x1, double y1, double x2, double y2)
    {
        std::string path = "M" + Pixels(x1) + " " + Pixels(y1) + "L" + Pixels(x2) + " " + Pixels(y2);
        for (const VEXMELKSpot end : {VEXMELKSpot{x1, y1}, VEXMELKSpot{x2, y2}})
            path += "M" + Pixels(end.x - 3.0) + " " + Pixels(end.y + 3.0) + "l6 -6";
        *m_Text +=
            "<path class=\"" + std::string(ClassOf(shape.layer)) + " w\"" + DataOf(shape) + " d=\"" + path + "\"/>\n";
    }

    void WriteLabel(const VEXMELKShape& shape)
    {
        if (shape.kind == VEXMELKShape::Mark || shape.kind == VEXMELKShape::Label)
        {
            if (!shape.label.empty())
                Place({X(shape.points.front().x), Y(shape.points.front().y)}, shape.label, shape.layer, 0.0, false);
        }
        else if (shape.kind == VEXMELKShape::Angle)
        {
            const double middle = (shape.turn + shape.endTurn) / 2.0;
            Place(OnArc(shape, middle, ArcRadius(shape)), LabelOf(shape), shape.layer, middle, true);
        }
        else if (shape.kind == VEXMELKShape::Length && !IsAcross(shape) && !IsUp(shape))
            Place({(X(shape.points[0].x) + X(shape.points[1].x)) / 2.0,
                      (Y(shape.points[0].y) + Y(shape.points[1].y)) / 2.0},
                LabelOf(shape), shape.layer, 0.0, false);
    }

    // At the nearest place about a point where no other text stands, first in the direction that is liked.
    void Place(VEXMELKSpot at, const std::string& text, VEXMELKLayer layer, double turn, bool isDirected)
    {
        const double width = WidthOf(text);
        const double height = fontSize + 1.0;
        Rectangle best;
        double bestCost = std::numeric_limits<double>::infinity();
        for (int distance = 7; distance < 120; distance += 6)
            for (const double offset : {0.0, 30.0, -30.0, 60.0, -60.0, 90.0, -90.0, 135.0, -135.0, 180.0})
            {
                const double radians = ((isDirected ? turn : 25.0) + offset) * std::numbers::pi / 180.0;
                const double x = at.x + distance * std::cos(radians) + (std::cos(radians) - 1.0) / 2.0 * width;
                const double y = at.y - distance * std::sin(radians) - (std::sin(radians) + 1.0) / 2.0 * height;
                const Rectangle place{x, y, x + width, y + height};
                const double cost = CostOf(place) + distance + std::fabs(offset) / 12.0;
                if (cost < bestCost)
                {
                    best = place;
                    bestCost = cost;
                }
            }
        m_Taken.push_back(best);
        const VEXMELKSpot middle{(best.left + best.right) / 2.0, (best.bottom + best.top) / 2.0};
        const double nearX = std::clamp(at.x, best.left, best.right);
        const double nearY = std::clamp(at.y, best.bottom, best.top);
        if (std::hypot(nearX - at.x, nearY - at.y) > 16.0)
            WriteLine(std::string(ClassOf(layer)) + " x", at.x, at.y, nearX, nearY);
        WriteText(std::string("b m ") + ClassOf(layer), middle.x, best.top - 2.0, text);
    }

    static bool Crosses(const Rectangle& place, VEXMELKSpot from, VEXMELKSpot to)
    {
        double begin = 0.0;
        double end = 1.0;
        const auto clip = [&](double start, double change, double low, double high)
        {
            if (std::fabs(change) < 1e-9)
                return start >= low && start <= high;
            const double first = (low - start) / change;
            const double second = (high - start) / change;
            begin = std::max(begin, std::min(first, second));
            end = std::min(end, std::max(first, second));
            return begin <= end;
        };
        return clip(from.x, to.x - from.x, place.left, place.right) &&
               clip(from.y, to.y - from.y, place.bottom, place.top);
    }

    double CostOf(const Rectangle& place) const
    {
        double cost = 0.0;
        for (const Rectangle& taken : m_Taken)
            cost += 10.0 * place.Shared(taken);
        for (const auto& [from, to] : m_Lines)
            cost += Crosses(place, from, to) ? 14.0 : 0.0;
        const double left = X(m_Bounds.left);
        const double top = Y(m_Bounds.top);
        const double outside = std::max(0.0, left - place.left) + std::max(0.0, place.right - (left + PlotWidth())) +
                               std::max(0.0, top - place.bottom) + std::max(0.0, place.top - (top + PlotHeight()));
        return cost + 20.0 * outside;
    }

    const VEXMELKPanel& m_Panel;
    const bool m_HasBothLayers;
    const std::string m_Id;
    Rectangle m_Bounds; // of the plot, in the panel's unit
    double m_UnitsPerMillimetre = 1.0;
    double m_Scale = 1.0; // pixels to a unit
    double m_TickStep = 1.0;
    Lanes m_AcrossLanes;  // above the plot
    Lanes m_UpLanes;      // to the right of it
    double m_Left = 12.0; // where the plot begins in the panel
    double m_Top = 0.0;
    double m_X0 = 0.0;
    double m_Y0 = 0.0;
    Rectangle m_Edge; // of the panel, in pixels
    std::vector<Rectangle> m_Taken;
    std::vector<std::pair<VEXMELKSpot, VEXMELKSpot>> m_Lines;
    std::string* m_Text = nullptr;
};

// The whole ----------------------------------------------------------------------------------------------------------

struct Colours
{
    const char* ground;
    const char* text;
    const char* faint; // captions
    const char* grid;
    const char* surroundings;
    const char* byDefault;
    const char* byCustomer;
};
constexpr Colours light{"#ffffff", "#1b1f24", "#57606a", "#e7eaee", "#8c959f", "#0a5aa8", "#c2410c"};
constexpr Colours dark{"#14181d", "#e6edf3", "#9aa6b2", "#252c34", "#6e7a86", "#6cb2f7", "#ff9a5c"};

std::string StyleOf(const Colours& colours, const std::string& scope)
{
    const auto rule = [&](const char* selector, const std::string& declarations)
    { return scope + selector + "{" + declarations + "}\n"; };
    const auto ofLayer = [&](const std::string& name, const std::string& colour, const char* width)
    {
        return rule(("." + name).c_str(), "fill:none;stroke:" + colour + ";stroke-width:" + width) +
               rule((".f." + name).c_str(), "fill:" + colour + ";fill-opacity:.13") +
               rule((".p." + name).c_str(), "fill:" + colour + ";stroke:none") +
               rule(("text." + name).c_str(), "fill:" + colour + ";stroke:" + colours.ground);
    };
    const std::string ground = colours.ground;
    return rule("text",
               "font-family:DejaVu Sans,Verdana,Arial,sans-serif;font-size:10px;fill:" + std::string(colours.text)) +
           ofLayer("s", colours.surroundings, "1") + ofLayer("d", colours.byDefault, "1.4") +
           ofLayer("c", colours.byCustomer, "1.4") + rule(".a", "stroke-width:.8;stroke-dasharray:7 3 1.5 3") +
           rule(".w", "stroke-width:.9") + rule(".x", "stroke-width:.5;stroke-opacity:.55") +
           rule(".g", "fill:none;stroke:" + std::string(colours.grid) + ";stroke-width:.7") +
           rule(".z", "fill:none;stroke:" + std::string(colours.surroundings) + ";stroke-width:.6;stroke-opacity:.7") +
           rule(".r", "fill:none;stroke:" + std::string(colours.faint) + ";stroke-width:.9") +
           rule("text.b", "stroke-width:3px;paint-order:stroke;stroke-linejoin:round") +
           rule("text.m", "text-anchor:middle") + rule("text.e", "text-anchor:end") +
           rule("text.t", "font-size:9px;fill:" + std::string(colours.faint)) +
           rule("text.n,tspan.n", "font-size:9.5px;font-weight:normal;fill:" + std::string(colours.faint)) +
           rule("text.h", "font-size:11px;font-weight:bold") + rule("text.k", "font-size:13px;font-weight:bold") +
           rule("text.l", "stroke:none");
}

// In lines that fit into a width.
std::vector<std::string> Wrapped(const std::string& text, double width)
{
    std::vector<std::string> lines(1);
    std::size_t begin = 0;
    while (begin < text.size())
    {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        const std::string word = text.substr(begin, end - begin);
        if (!lines.back().empty() && WidthOf(lines.back()) + WidthOf(word) + characterWidth > width)
            lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : " ") + word;
        begin = end + 1;
    }
    return lines;
}

class DrawingWriter
{
public:
    DrawingWriter(const VEXMELKDrawing& drawing, VEXMELKSvgUse use, std::string_view id)
        : m_Drawing(drawing), m_Use(use), m_Id(id)
    {
    }

    std::string Text()
    {
        std::string body;
        m_Width = WidthOf(m_Drawing.title) * 1.4 + 2.0 * margin;
        double top = margin;
        if (m_Use == VEXMELKSvgUse::File)
        {
            body += "<text class=\"k\" x=\"" + Pixels(margin) + "\" y=\"" + Pixels(top + 12.0) + "\">" +
                    VEXMELKMarkupText(m_Drawing.title) + "</text>\n";
            top += 24.0;
        }
        WriteLegend(top, body);
        top += 24.0;
        WritePanels(top, body);
        WriteNotes(top, body);
        return Head(top + margin) + body + "</svg>\n";
    }

private:
    std::string Head(double height) const
    {
        const std::string size = Pixels(m_Width) + " " + Pixels(height);
        const std::string title =
            "<title id=\"" + std::string(m_Id) + "-t\">" + VEXMELKMarkupText(m_Drawing.title) + "</title>\n";
        std::string head =
            "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"drawing\" role=\"img\" aria-labelledby=\"" +
            std::string(m_Id) + "-t\" viewBox=\"0 0 " + size + "\"";
        if (m_Use == VEXMELKSvgUse::Page)
            return head + " width=\"" + Pixels(m_Width) + "\" height=\"" + Pixels(height) + "\">\n" + title;
        const auto millimetres = [](double pixels) { return Pixels(pixels / pixelsPerMillimetre) + "mm"; };
        return head + " width=\"" + millimetres(m_Width) + "\" height=\"" + millimetres(height) + "\">\n" + title +
               "<style>\n" + StyleOf(light, "") + "</style>\n<rect width=\"100%\" height=\"100%\" fill=\"" +
               light.ground + "\"/>\n";
    }

    void WriteLegend(double top, std::string& body) const
    {
        double x = margin;
        const auto write = [&](VEXMELKLayer layer, const std::string& text)
        {
            if (!m_Drawing.HasLayer(layer))
                return;
            const std::string middle = Pixels(top + 6.0);
            body +=
                "<path class=\"" + std::string(ClassOf(layer)) + "\" d=\"M" + Pixels(x) + " " + middle + "h22\"/>\n";
            body += "<text class=\"l " + std::string(ClassOf(layer)) + "\" x=\"" + Pixels(x + 27.0) + "\" y=\"" +
                    Pixels(top + 9.5) + "\">" + text + "</text>\n";
            x += 27.0 + WidthOf(text) + 22.0;
        };
        write(VEXMELKLayer::Default, "Default");
        write(VEXMELKLayer::Customer, "Customer");
        write(VEXMELKLayer::Surroundings, "surroundings, schematic");
    }

    void WritePanels(double& top, std::string& body)
    {
        const bool hasBoth = m_Drawing.HasLayer(VEXMELKLayer::Default) && m_Drawing.HasLayer(VEXMELKLayer::Customer);
        double x = margin;
        double rowHeight = 0.0;
        for (const VEXMELKPanel& panel : m_Drawing.panels)
        {
            PanelWriter writer(panel, hasBoth, RoomAmong(m_Drawing.panels.size()),
                std::string(m_Id) + "-" + std::to_string(&panel - m_Drawing.panels.data()));
            if (x > margin && x + writer.Width() + margin > widestRow)
            {
                top += rowHeight + gap;
                x = margin;
                rowHeight = 0.0;
            }
            writer.Write(x, top, body);
            x += writer.Width() + gap;
            rowHeight = std::max(rowHeight, writer.Height());
            m_Width = std::max(m_Width, x - gap + margin);
        }
        top += rowHeight;
    }

    void WriteNotes(double& top, std::string& body) const
    {
        for (const VEXMELKDrawingNote& note : m_Drawing.notes)
            for (const std::string& line : Wrapped(note.text, m_Width - 2.0 * margin))
            {
                top += 14.0;
                body += "<text class=\"l " + std::string(ClassOf(note.layer)) + "\" x=\"" + Pixels(margin) + "\" y=\"" +
                        Pixels(top) + "\">" + VEXMELKMarkupText(line) + "</text>\n";
            }
    }

    const VEXMELKDrawing& m_Drawing;
    const VEXMELKSvgUse m_Use;
    const std::string_view m_Id;
    double m_Width = 0.0;
};

} // namespace

std::string VEXMELKMarkupText(std::string_view text)
{
    std::string shown(text);
    std::replace_if(
        shown.begin(), shown.end(), [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }, ' ');
    return VEXMELKEscaped(shown);
}

std::string VEXMELKSvgText(const VEXMELKDrawing& drawing, VEXMELKSvgUse use, std::string_view id)
{
    return DrawingWriter(drawing, use, id).Text();
}

std::string VEXMELKSvgStyle(bool isDark) { return StyleOf(isDark ? dark : light, ".drawing "); }
