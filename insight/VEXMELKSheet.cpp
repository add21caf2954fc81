// Reads the values that pictures are made of, and draws the vehicle around them.
#include "VEXMELKSheet.h"

#include "CATQuantity.h"
#include "VEXMELKAllQuestions.h"
#include "VEXMELKBaseDataConfig.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace {

// Past this nothing can be drawn beside anything else; a text tells of it. Millimetres or degrees.
constexpr double mostDrawn = 1e9;

VEXMELKMeasure Measured(const VEXMELKSheet& sheet, const std::string& field, const std::string& text, bool isRead,
    double value, const char* what)
{
    VEXMELKMeasure measure{field, text, value, isRead && std::fabs(value) < mostDrawn};
    if (!measure && !text.empty())
        sheet.Note(field + " is \"" + text + "\", which is no " + what + " that can be drawn");
    return measure;
}

} // namespace

double VEXMELKDegrees(double radians) { return radians * 180.0 / std::numbers::pi; }

const VEXMELKConfigManager::Configuration& VEXMELKPictureSource::Entry(const VEXMELKDescription& description)
{
    const auto configurations = VEXMELKConfigManager::GetConfigurations();
    return *std::find_if(configurations.begin(), configurations.end(),
        [&](const VEXMELKConfigManager::Configuration& entry) { return entry.description == &description; });
}

CATHandle<VEXMELKConfig> VEXMELKPictureSource::NewObject(const VEXMELKConfigManager::Configuration& configuration)
{
    CATHandle<VEXMELKConfig>& loaded = m_Loaded[configuration.description];
    if (loaded == NULL_var)
        loaded = VEXMELKLoad(*configuration.description, m_Source).object;
    auto object = CATHandle<VEXMELKConfig>::Adopt(configuration.create(m_Source.directory));
    *object.Get() = *loaded.Get(); // shares the documents
    return object;
}

VEXMELKPen VEXMELKSheet::On(
    const std::string& title, const std::string& xAxis, const std::string& yAxis, const std::string& unit) const
{
    std::vector<VEXMELKPanel>& panels = drawing.panels;
    const auto found =
        std::find_if(panels.begin(), panels.end(), [&](const VEXMELKPanel& panel) { return panel.title == title; });
    const auto position = static_cast<std::size_t>(found - panels.begin());
    if (found == panels.end())
        panels.push_back({title, xAxis, yAxis, unit, {}, false});
    return {drawing, position, layer};
}

VEXMELKMeasure VEXMELKSheet::Length(const std::string& field, const CATUnicodeString& text) const
{
    double metres = 0.0;
    const bool isRead = CATLengthFromText(text.ConvertToChar(), metres);
    return Measured(*this, field, VEXMELKPlain(text), isRead, metres * 1000.0, "length");
}

VEXMELKMeasure VEXMELKSheet::Angle(const std::string& field, const CATUnicodeString& text) const
{
    double radians = 0.0;
    const bool isRead = CATAngleFromText(text.ConvertToChar(), radians);
    return Measured(*this, field, VEXMELKPlain(text), isRead, VEXMELKDegrees(radians), "angle");
}

VEXMELKMeasure VEXMELKSheet::Number(
    const std::string& field, const CATUnicodeString& text, const std::string& unit) const
{
    double number = 0.0;
    const bool isRead = CATRealFromText(text.ConvertToChar(), number);
    return Measured(*this, field, VEXMELKPlain(text) + (isRead ? unit : ""), isRead, number, "number");
}

VEXMELKMeasure VEXMELKSheet::Given(const std::string& field, double number, const std::string& unit) const
{
    return Measured(*this, field, VEXMELKNumberText(number) + unit, std::isfinite(number), number, "number");
}

void VEXMELKSheet::Note(const std::string& text) const
{
    const VEXMELKDrawingNote note{layer, text};
    if (std::find(drawing.notes.begin(), drawing.notes.end(), note) == drawing.notes.end())
        drawing.notes.push_back(note);
}

void VEXMELKSheet::NoteText(const std::string& field, const CATUnicodeString& text) const
{
    const std::string plain = VEXMELKPlain(text);
    if (!plain.empty())
        Note(field + ": " + plain);
}

std::vector<CATUnicodeString> VEXMELKChoicesFor(const VEXMELKSheet& sheet, const VEXMELKDescription& description,
    std::string_view operation, std::string_view argument)
{
    const std::vector<VEXMELKSourceFile> files = VEXMELKLoadFiles(description, sheet.source.Source());
    std::vector<VEXMELKDocumentText> documents;
    documents.reserve(files.size());
    for (const VEXMELKSourceFile& file : files)
        documents.emplace_back(file.root, 1);
    std::vector<const VEXMELKDocumentText*> pointers;
    pointers.reserve(documents.size());
    for (const VEXMELKDocumentText& document : documents)
        pointers.push_back(&document);
    std::vector<CATUnicodeString> choices;
    std::set<std::string> known;
    for (const VEXMELKPreparedQuestion& question : VEXMELKAllQuestions(description, pointers))
    {
        if (question.Operation().Name() != operation)
            continue;
        for (const VEXMELKPreparedQuestion::Input& input : question.Inputs())
            if (question.Operation().Parameters()[input.parameter].name == argument)
                if (const auto* text = std::get_if<std::string>(&input.value); text && known.insert(*text).second)
                    choices.emplace_back(*text);
    }
    return choices;
}

// The vehicle
// ----------------------------------------------------------------------------------------------------------

namespace {

bool ReadLength(const CATUnicodeString& text, double& millimetres)
{
    double metres = 0.0;
    if (!CATLengthFromText(text.ConvertToChar(), metres) || std::fabs(metres) > 20.0)
        return false; // no vehicle: the picture is drawn around a usual one
    millimetres = metres * 1000.0;
    return true;
}

} // namespace

VEXMELKVehicle::VEXMELKVehicle(VEXMELKPictureSource& source, const CATUnicodeString& category)
{
    const auto base = source.New<VEXMELKBaseDataConfig>();
    VEXMELKWheelsDefinition wheel;
    if (base->GetWheelsDataForBaseDataCategory(category, "front", wheel))
        ReadLength(wheel.StaticRadius, frontRadius);
    rearRadius = frontRadius;
    wheel = {};
    if (base->GetWheelsDataForBaseDataCategory(category, "rear", wheel))
    {
        ReadLength(wheel.StaticRadius, rearRadius);
        ReadLength(wheel.CenterPointX, rearAxle);
    }
    CATUnicodeString carWidth;
    CATUnicodeString forward;
    CATUnicodeString backward;
    if (!base->GetOverallDataForCategory(category, carWidth, forward, backward))
        base->GetOverallDataForCategory("default", carWidth, forward, backward);
    double distance = 0.0;
    ReadLength(carWidth, width);
    if (ReadLength(forward, distance))
        front = -distance;
    rear = rearAxle + (ReadLength(backward, distance) ? distance : 1000.0);
    VEXArray<VEXMELKSeatDefinition> seats;
    base->GetSeatDataForBaseDataCategory(category, seats);
    if (seats.size() == 0)
        return;
    const VEXMELKSeatDefinition& driver = seats[0];
    ReadLength(driver.RefPointX, seatX);
    ReadLength(driver.RefPointY, seatY);
    if (ReadLength(driver.RefPointZ, seatZ))
        seatZ += frontRadius; // from the axle's height to the road's
    ReadLength(driver.HPointTravel, hPointTravel);
    double radians = 0.0;
    if (CATAngleFromText(driver.BackAngle.ConvertToChar(), radians))
        backAngle = VEXMELKDegrees(radians);
    height = std::max(height, seatZ + 950.0);
}

void VEXMELKVehicle::DrawSide(const VEXMELKPen& pen) const
{
    const double length = rear - front;
    const double sill = 0.6 * frontRadius;
    const auto x = [&](double share) { return front + share * length; };
    const auto z = [&](double share) { return sill + share * (height - sill); };
    pen.Line({{x(0.03), sill}, {x(0.006), z(0.06)}, {x(0.0), z(0.18)}, {x(0.004), z(0.3)}, {x(0.02), z(0.38)},
        {x(0.06), z(0.44)}, {x(0.15), z(0.5)}, {x(0.255), z(0.56)}, {x(0.32), z(0.74)}, {x(0.385), z(0.9)},
        {x(0.44), z(0.97)}, {x(0.53), z(1.0)}, {x(0.63), z(0.99)}, {x(0.73), z(0.945)}, {x(0.82), z(0.84)},
        {x(0.9), z(0.68)}, {x(0.96), z(0.63)}, {x(0.985), z(0.58)}, {x(0.992), z(0.42)}, {x(1.0), z(0.3)},
        {x(0.998), z(0.16)}, {x(0.975), z(0.03)}});
    // The windows' edge, the sill between the wheel arches, the arches.
    pen.Line({{x(0.29), z(0.6)}, {x(0.35), z(0.775)}, {x(0.41), z(0.885)}, {x(0.53), z(0.925)}, {x(0.64), z(0.91)},
        {x(0.74), z(0.85)}, {x(0.82), z(0.66)}, {x(0.29), z(0.6)}});
    const auto arch = [&](double axle, double radius)
    {
        const double wide = 1.17 * radius;
        std::vector<VEXMELKSpot> points;
        for (int turn = 180; turn >= 0; turn -= 15)
            points.push_back(VEXMELKPolar({axle, radius}, turn, wide));
        points.front().y = sill;
        points.back().y = sill;
        pen.Line(points);
        pen.Circle({axle, radius}, radius);
        pen.Circle({axle, radius}, 0.62 * radius);
    };
    arch(0.0, frontRadius);
    arch(rearAxle, rearRadius);
    pen.Line({{x(0.03), sill}, {-1.17 * frontRadius, sill}});
    pen.Line({{1.17 * frontRadius, sill}, {rearAxle - 1.17 * rearRadius, sill}});
    pen.Line({{rearAxle + 1.17 * rearRadius, sill}, {x(0.975), z(0.03)}});
    pen.Line({{front - 0.06 * length, 0.0}, {rear + 0.06 * length, 0.0}});
}

void VEXMELKVehicle::DrawPlan(const VEXMELKPen& pen) const
{
    const double half = width / 2.0;
    const double length = rear - front;
    const auto outline = [&](const std::vector<VEXMELKSpot>& shares)
    {
        std::vector<VEXMELKSpot> points;
        points.reserve(2 * shares.size());
        for (const VEXMELKSpot& share : shares)
            points.push_back({front + share.x * length, share.y * half});
        for (std::size_t left = shares.size(); left > 0; --left)
            points.push_back({front + shares[left - 1].x * length, -shares[left - 1].y * half});
        pen.Outline(points);
    };
    outline({{0.0, 0.0}, {0.004, 0.4}, {0.018, 0.72}, {0.05, 0.9}, {0.12, 0.98}, {0.25, 1.0}, {0.7, 1.0}, {0.88, 0.97},
        {0.96, 0.87}, {0.99, 0.65}, {1.0, 0.3}, {1.0, 0.0}});
    outline({{0.27, 0.0}, {0.275, 0.4}, {0.3, 0.8}, {0.41, 0.68}, {0.4, 0.35}, {0.395, 0.0}});
    outline({{0.74, 0.0}, {0.745, 0.6}, {0.86, 0.72}, {0.875, 0.3}, {0.875, 0.0}});
    pen.Axis({front - 0.04 * length, 0.0}, {rear + 0.04 * length, 0.0});
}

void VEXMELKVehicle::DrawAcross(const VEXMELKPen& pen) const
{
    const double half = width / 2.0;
    const double sill = 0.6 * frontRadius;
    pen.Outline({{-0.94 * half, sill}, {-half, 0.35 * height}, {-0.98 * half, 0.6 * height},
        {-0.74 * half, 0.94 * height}, {-0.6 * half, height}, {0.6 * half, height}, {0.74 * half, 0.94 * height},
        {0.98 * half, 0.6 * height}, {half, 0.35 * height}, {0.94 * half, sill}});
    pen.Outline({{-0.88 * half, 0.62 * height}, {-0.66 * half, 0.92 * height}, {0.66 * half, 0.92 * height},
        {0.88 * half, 0.62 * height}});
    const double tyre = 0.24 * half;
    pen.Outline(VEXMELKBox({-half + 20.0, 0.0}, {-half + 20.0 + tyre, sill}));
    pen.Outline(VEXMELKBox({half - 20.0 - tyre, 0.0}, {half - 20.0, sill}));
    pen.Line({{-1.15 * half, 0.0}, {1.15 * half, 0.0}});
    pen.Axis({0.0, 0.0}, {0.0, 1.05 * height});
}

namespace {

// The vehicle stands once in a panel, whichever layers are drawn there.
template <class Drawn> VEXMELKPen WithVehicle(const VEXMELKSheet& sheet, const VEXMELKPen& pen, const Drawn& draw)
{
    const std::vector<VEXMELKPanel>& panels = sheet.drawing.panels;
    if (panels[pen.Panel()].shapes.empty())
        draw(pen.Surroundings());
    return pen;
}

} // namespace

VEXMELKPen VEXMELKSheet::SideView(const std::string& title) const
{
    return WithVehicle(*this, On(title, "X, to the rear from the front axle", "Z, up from the road"),
        [&](const VEXMELKPen& pen) { vehicle.DrawSide(pen); });
}
VEXMELKPen VEXMELKSheet::SideDetail(const std::string& title) const
{
    const VEXMELKPen pen = SideView(title);
    drawing.panels[pen.Panel()].isDetail = true;
    return pen;
}
VEXMELKPen VEXMELKSheet::PlanView(const std::string& title) const
{
    return WithVehicle(*this, On(title, "X, to the rear from the front axle", "Y, to the right from the middle"),
        [&](const VEXMELKPen& pen) { vehicle.DrawPlan(pen); });
}
VEXMELKPen VEXMELKSheet::FrontView(const std::string& title) const
{
    return WithVehicle(*this, On(title, "across, from the middle", "Z, up from the road"),
        [&](const VEXMELKPen& pen) { vehicle.DrawAcross(pen); });
}
VEXMELKPen VEXMELKSheet::RearView(const std::string& title) const
{
    return WithVehicle(*this, On(title, "across, from the middle", "Z, up from the road"),
        [&](const VEXMELKPen& pen) { vehicle.DrawAcross(pen); });
}
