// Pictures: what stands in the written SVG is read back, and lies where the numbers of the files say.
#include "LibraryTest.h"
#include "VEXMELKDescription.h"
#include "VEXMELKPictures.h"
#include "VEXMELKSvg.h"

#include <cmath>
#include <map>
#include <numbers>
#include <regex>

using testing::HasSubstr;
using testing::Not;

namespace {

const VEXMELKConfigManager::Configuration& EntryOf(std::string_view name)
{
    for (const VEXMELKConfigManager::Configuration& entry : VEXMELKConfigManager::GetConfigurations())
        if (entry.description->name == name)
            return entry;
    throw std::runtime_error("no such configuration");
}

std::string SvgOf(const std::string& directory, const char* configuration, const char* standard, const char* category)
{
    VEXMELKPictures pictures{CATUnicodeString(directory)};
    return VEXMELKSvgText(pictures.Draw(EntryOf(configuration), standard, category), VEXMELKSvgUse::File);
}

// The elements of a panel, one to a line, and how its numbers became places.
class DrawnPanel
{
public:
    DrawnPanel(const std::string& svg, const std::string& title)
    {
        const std::size_t begin = svg.find("data-title=\"" + VEXMELKMarkupText(title) + "\"");
        if (begin == std::string::npos)
            return;
        m_Text = svg.substr(begin, svg.find("<g class=\"panel\"", begin) - begin);
        m_X0 = Attribute(m_Text, "data-x0");
        m_Y0 = Attribute(m_Text, "data-y0");
        m_Scale = Attribute(m_Text, "data-scale");
    }
    static double Attribute(const std::string& element, const std::string& name)
    {
        const std::size_t begin = element.find(" " + name + "=\"");
        return begin == std::string::npos ? NAN : std::stod(element.substr(begin + name.size() + 3));
    }
    double Scale() const { return m_Scale; }

    // Those of a field in a layer, dimensions ("w") or shapes.
    std::vector<std::string> Elements(const std::string& field, const std::string& layer, bool isDimension) const
    {
        std::vector<std::string> found;
        std::istringstream lines(m_Text);
        for (std::string line; std::getline(lines, line);)
            if (line.find("data-field=\"" + VEXMELKMarkupText(field) + "\"") != std::string::npos &&
                line.find("class=\"" + layer) != std::string::npos &&
                (line.find("class=\"" + layer + " w\"") != std::string::npos) == isDimension)
                found.push_back(line);
        return found;
    }

    // The numbers of a place in the panel's unit.
    double X(double pixels) const { return (pixels - m_X0) / m_Scale; }
    double Y(double pixels) const { return (m_Y0 - pixels) / m_Scale; }

    // The corners of a path, the middle of a circle or an ellipse.
    std::vector<std::pair<double, double>> Points(const std::string& element) const
    {
        std::vector<std::pair<double, double>> points;
        if (element.starts_with("<path"))
        {
            const std::string path = element.substr(element.find(" d=\""));
            const std::regex place("[ML]([-0-9.]+) ([-0-9.]+)");
            for (auto match = std::sregex_iterator(path.begin(), path.end(), place); match != std::sregex_iterator();
                 ++match)
                points.emplace_back(X(std::stod((*match)[1])), Y(std::stod((*match)[2])));
        }
        else
            points.emplace_back(X(Attribute(element, "cx")), Y(Attribute(element, "cy")));
        return points;
    }

private:
    std::string m_Text;
    double m_X0 = NAN;
    double m_Y0 = NAN;
    double m_Scale = NAN;
};

// "x y x y ...", rounded to what a hundredth of a pixel is worth.
std::string Rounded(const std::vector<std::pair<double, double>>& points, double scale)
{
    const double unit = std::pow(10.0, std::ceil(std::log10(0.02 / scale)));
    std::ostringstream text;
    for (const auto& [x, y] : points)
        text << (text.tellp() > 0 ? " " : "") << std::round(x / unit) * unit + 0.0 << ' '
             << std::round(y / unit) * unit + 0.0;
    return text.str();
}

struct PlaceCase
{
    const char* configuration;
    const char* standard;
    const char* category;
    const char* panel;
    const char* field;
    const char* layer;    // "d" Default, "c" Customer
    const char* expected; // the places of the shape
};

} // namespace

class PictureTest : public LibraryTest
{
};

TEST_F(PictureTest, MarksLieWhereTheNumbersSay)
{
    const PlaceCase cases[] = {
        {"UFCurb", "EU Passenger Car", "suv", "Front end", "FrontOffset", "d", "-345 180 -930 180"},
        {"UFCurb", "In-house 2024", "default", "Front end", "FrontOffset", "d", "-302 130 -900 130"},
        {"UFCurb", "In-house 2024", "default", "Front end", "FrontOffset", "c", "-302 135 -900 135"},
        {"EyeEllipses", "Eye Ellipses 1997", "default", "Side view, by H-point travel", "95% cutoffLength", "d",
            "9 636"},
        {"EyePoints", "V and P Points", "default", "Side view", "top V", "d", "68 665"},
        {"EyePoints", "V and P Points", "default", "Plan view", "right P", "d", "63 47"},
        {"FieldsOfView", "EU Passenger Car", "default", "Field A", "A0", "d", "-13 -1 20 -1 20 3 -13 3"},
        {"ERFieldsOfView", "EU Passenger Car", "default", "Field reduced B, driver's half", "upper area bottom_angle",
            "d", "-15 4 0 4 0 7 -15 7"},
        {"DirectView", "EU Passenger Car", "default", "Side view", "Traffic light", "d", "-12900 5000"},
        {"Mirror", "EU Passenger Car", "default", "Mirror: Driver exterior", "point 1", "d", "5380 -1900"},
        {"NumberPlates", "EU Passenger Car", "suv", "Back plate, from the rear", "BackLowerLimit", "d",
            "260 300 -260 300 -260 1500 260 1500"},
        {"LampPositions", "EU Passenger Car", "default", "From the side: SDI", "SDI MaxFrontSpace", "d",
            "-900 350 900 350 900 1500 -900 1500"},
        {"CRV", "EU Passenger Car", "suv", "Side view", "height", "d", "-2080 0 -1780 0 -1780 900 -2080 900"},
        {"PedestrianProtection", "EU Passenger Car", "default", "Straight edges at the front end",
            "BonnetLeadingEdge length", "d", "-940 600 -173.96 1242.79"},
        {"Wipers", "In-house 2024", "default", "Shares of the fields that are wiped", "b_field", "c",
            "51 0 81 0 81 88 51 88"},
        {"SeatingBelts", "EU Passenger Car", "default", "Planes P, Q and R", "PlaneDistQ", "d", "120 0 120 120"},
        {"UFWheelFixing", "EU Passenger Car", "default", "Wheel from above", "offset", "d", "0 -80 25 -80 25 80 0 80"},
    };
    for (const PlaceCase& expected : cases)
    {
        SCOPED_TRACE(std::string(expected.configuration) + ", " + expected.panel + ", " + expected.field);
        const std::string svg =
            SvgOf(SAMPLE_CONFIGURATION, expected.configuration, expected.standard, expected.category);
        const DrawnPanel panel(svg, expected.panel);
        const std::vector<std::string> elements = panel.Elements(expected.field, expected.layer, false);
        ASSERT_FALSE(elements.empty());
        std::vector<std::pair<double, double>> wanted;
        std::istringstream numbers(expected.expected);
        for (double x = 0.0, y = 0.0; numbers >> x >> y;)
            wanted.emplace_back(x, y);
        const auto drawn = panel.Points(elements.front());
        ASSERT_EQ(drawn.size(), wanted.size()) << Rounded(drawn, panel.Scale());
        for (std::size_t number = 0; number < wanted.size(); ++number)
        {
            EXPECT_NEAR(drawn[number].first, wanted[number].first, 0.02 / panel.Scale());
            EXPECT_NEAR(drawn[number].second, wanted[number].second, 0.02 / panel.Scale());
        }
    }
}

TEST_F(PictureTest, EllipsesHaveTheirAxesAndTurn)
{
    const DrawnPanel panel(
        SvgOf(SAMPLE_CONFIGURATION, "EyeEllipses", "Eye Ellipses 1997", "default"), "Side view, by H-point travel");
    const std::string ellipse = panel.Elements("99% cutoffLength", "d", false).front();
    EXPECT_NEAR(DrawnPanel::Attribute(ellipse, "rx") / panel.Scale(), 267.0 / 2.0, 0.02);
    EXPECT_NEAR(DrawnPanel::Attribute(ellipse, "ry") / panel.Scale(), 122.0 / 2.0, 0.02);
    EXPECT_THAT(ellipse, HasSubstr("rotate(6.4 ")); // downwards on the page: the rear end is lower
}

TEST_F(PictureTest, AnglesOpenByTheirValue)
{
    const std::string svg = SvgOf(SAMPLE_CONFIGURATION, "UFSlopeAngle", "EU Passenger Car", "suv");
    const DrawnPanel panel(svg, "Front end");
    const auto line = panel.Points(panel.Elements("front_angle", "d", false).front());
    const double turn =
        std::atan2(line[1].second - line[0].second, line[0].first - line[1].first) * 180.0 / std::numbers::pi;
    EXPECT_NEAR(turn, 25.0, 0.01);
    // It touches the tyre of radius 345: that far from its centre.
    const double sine = std::sin(25.0 * std::numbers::pi / 180.0);
    const double cosine = std::cos(25.0 * std::numbers::pi / 180.0);
    EXPECT_NEAR(std::fabs((0.0 - line[0].first) * sine + 345.0 * cosine), 345.0, 0.2);
    const std::string arc = panel.Elements("front_angle", "d", true).front();
    EXPECT_EQ(DrawnPanel::Attribute(arc, "data-from") - DrawnPanel::Attribute(arc, "data-to"), 25.0);
}

TEST_F(PictureTest, AWrongUnitStrikesTheEye)
{
    const auto draw = [&](const char* radius)
    {
        directory.Write("Default/Manikin/EyeEllipses.xml",
            std::string(R"(<c><standard name="S"><coeficients2002><cutOff value="95"/><radii h_point_travel="0mm" )") +
                R"(radiusX_95=")" + radius + R"(" radiusY_95="30mm" radiusZ_95="47mm"/></coeficients2002>)" +
                R"(<category name="default"/></standard></c>)");
        return SvgOf(directory.Path(), "EyeEllipses", "S", "default");
    };
    const DrawnPanel right(draw("103mm"), "Side view");
    const std::string svg = draw("103m");
    const DrawnPanel wrong(svg, "Side view");
    EXPECT_THAT(svg, HasSubstr("95% radiusX 103000mm"));
    EXPECT_GT(right.Scale(), 500.0 * wrong.Scale());
    const std::string ellipse = wrong.Elements("95% radiusX", "d", false).front();
    EXPECT_GT(DrawnPanel::Attribute(ellipse, "rx"), 300.0 * DrawnPanel::Attribute(ellipse, "ry"));
}

TEST_F(PictureTest, LayersStandOverOneAnother)
{
    const std::string both = SvgOf(SAMPLE_CONFIGURATION, "UFCurb", "In-house 2024", "default");
    EXPECT_THAT(both, HasSubstr(">Default</text>"));
    EXPECT_THAT(both, HasSubstr(">Customer</text>"));
    const std::string one = SvgOf(SAMPLE_CONFIGURATION, "UFCurb", "EU Passenger Car", "suv");
    EXPECT_THAT(one, Not(HasSubstr(">Customer</text>")));
    const std::string onlyCustomers = SvgOf(SAMPLE_CONFIGURATION, "UFCurb", "In-house 2025", "default");
    EXPECT_THAT(onlyCustomers, Not(HasSubstr(">Default</text>")));
    EXPECT_THAT(onlyCustomers, HasSubstr(">Customer</text>"));
}

TEST_F(PictureTest, TextsOfFilesAreEscaped)
{
    directory.Write("Default/OVA/LampPositions.xml",
        R"(<c><standard name="&lt;b&gt;&amp;&quot;"><category name="default">)"
        R"(<Lamp Abbr="&lt;script&gt;" Descr="]]&gt;&#9;'" IsFront="true" )"
        R"(MinVerticalSpace="5" MaxVerticalSpace="9"/></category></standard></c>)");
    const std::string svg = SvgOf(directory.Path(), "LampPositions", "<b>&\"", "default");
    EXPECT_THAT(svg, HasSubstr("&lt;b&gt;&amp;&quot;"));
    EXPECT_THAT(svg, HasSubstr("From the front: &lt;script&gt;"));
    EXPECT_THAT(svg, Not(HasSubstr("<script>")));
}

TEST_F(PictureTest, WhatCannotBeDrawnIsTold)
{
    directory.Write(
        "Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="wide" back_offset="1e300km" back_angle="9")"));
    const std::string svg = SvgOf(directory.Path(), "UFCurb", "S", "default");
    EXPECT_THAT(svg, HasSubstr("FrontOffset is &quot;wide&quot;, which is no length"));
    EXPECT_THAT(svg, HasSubstr("BackOffset is &quot;1e300km&quot;, which is no length"));
    EXPECT_THAT(svg, HasSubstr("BackAngle 9deg"));
    EXPECT_TRUE(
        VEXMELKPictures{CATUnicodeString(directory.Path())}.Draw(EntryOf("UFCurb"), "T", "default").panels.empty());
}

// Every configuration that is drawn has a picture in the sample, of numbers only, and the same each time.
TEST_F(PictureTest, TheSampleIsDrawnWhole)
{
    const char* const standards[] = {"EU Passenger Car", "US Passenger Car", "Eye Ellipses 2002", "V and P Points",
        "In-house Extended Eyes", "Head Contour 2002", "Seat Location"};
    VEXMELKPictures pictures{CATUnicodeString(SAMPLE_CONFIGURATION)};
    VEXMELKPictures again{CATUnicodeString(SAMPLE_CONFIGURATION)};
    std::map<std::string, std::string> notesOf; // what stands beside the first picture
    for (const auto& [configuration, notes] : Table<2>(CaseFile("pictureNotes")))
        notesOf[configuration] = notes;
    int count = 0;
    for (const VEXMELKConfigManager::Configuration& entry : VEXMELKConfigManager::GetConfigurations())
    {
        if (!VEXMELKIsDrawn(*entry.description))
            continue;
        SCOPED_TRACE(entry.description->name);
        ++count;
        bool isDrawn = false;
        std::string notes;
        for (const char* standard : standards)
        {
            const VEXMELKDrawing drawing = pictures.Draw(entry, standard, "default");
            if (!isDrawn)
                for (const VEXMELKDrawingNote& note : drawing.notes)
                    notes += (notes.empty() ? "" : "; ") + note.text;
            const std::string svg = VEXMELKSvgText(drawing, VEXMELKSvgUse::File);
            isDrawn = isDrawn || !drawing.panels.empty();
            EXPECT_THAT(svg, Not(HasSubstr("nan")));
            EXPECT_THAT(svg, Not(HasSubstr("inf\"")));
            EXPECT_EQ(svg, VEXMELKSvgText(again.Draw(entry, standard, "default"), VEXMELKSvgUse::File));
        }
        EXPECT_TRUE(isDrawn);
        EXPECT_EQ(notes, notesOf[std::string(entry.description->name)]);
    }
    EXPECT_EQ(count, 38);
}
