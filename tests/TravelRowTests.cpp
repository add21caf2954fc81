// The choice of a row by H-point travel, in every operation that makes one.

#include "ReaderTest.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKHeadContourConfig.h"
#include "VEXMELKUtilities.h"

#include <iomanip>

namespace {

// Rows in document order, and which of them each rule chooses, counted from 1; 0 where there is none.
struct Case
{
    std::string rows; // texts of travels, separated by "|"; "-" is a row without a travel
    double travel;
    int coeficients1997;
    int radii1997;
    int radii2002;
    int headByLength; // radii and deltas of the head contour
    int headByText;   // its coefficients
    int hpoint;
    int correction;
};

constexpr double less = 0.5e-10; // than the tolerance of 1997
constexpr double more = 1.5e-10;

const Case cases[] = {
    // meant for 1997 and 2002: decreasing
    {"300|200|100", 350.0, 1, 1, 1, 3, 3, 1, 1},
    {"300|200|100", 300.0, 2, 2, 1, 3, 3, 1, 1},
    {"300|200|100", 300.0 + less, 2, 1, 1, 3, 3, 1, 1},
    {"300|200|100", 300.0 + more, 1, 1, 1, 3, 3, 1, 1},
    {"300|200|100", 300.0 - less, 2, 2, 2, 3, 3, 1, 2},
    {"300|200|100", 150.0, 3, 3, 3, 3, 3, 2, 3},
    {"300|200|100", 100.0, 3, 3, 3, 1, 1, 3, 3},
    {"300|200|100", 100.0 + less, 3, 3, 3, 3, 3, 3, 3},
    {"300|200|100", 100.0 - less, 3, 3, 0, 1, 1, 3, 0},
    {"300|200|100", 100.0 - more, 0, 0, 0, 1, 1, 3, 0},
    {"300|200|100", 50.0, 0, 0, 0, 1, 1, 3, 0},
    // meant for the head contour: increasing
    {"100|200|300", 350.0, 1, 1, 1, 3, 3, 3, 3},
    {"100|200|300", 300.0, 1, 1, 1, 2, 2, 3, 3},
    {"100|200|300", 300.0 + less, 1, 1, 1, 3, 3, 3, 3},
    {"100|200|300", 300.0 - less, 1, 1, 0, 2, 2, 3, 2},
    {"100|200|300", 300.0 - more, 0, 0, 0, 2, 2, 3, 2},
    {"100|200|300", 250.0, 0, 0, 0, 2, 2, 2, 2},
    {"100|200|300", 100.0, 0, 0, 0, 1, 1, 1, 1},
    {"100|200|300", 50.0, 0, 0, 0, 1, 1, 1, 0},
    // equal rows: found again by their text or length, the first of several
    {"200|200|200", 250.0, 1, 1, 1, 1, 1, 1, 1},
    {"200|200|200", 200.0, 1, 1, 1, 1, 1, 1, 1},
    {"200|200mm|0.2m", 250.0, 1, 1, 1, 1, 3, 1, 1},
    {"200|200mm|0.2m", 200.0, 3, 3, 1, 1, 1, 1, 1},
    {"300|200|200", 200.0, 2, 2, 2, 1, 1, 2, 2},
    // one row and none
    {"200", 250.0, 1, 1, 1, 1, 1, 1, 1},
    {"200", 200.0, 1, 1, 1, 1, 1, 1, 1},
    {"200", 150.0, 0, 0, 0, 1, 1, 1, 0},
    {"", 200.0, 0, 0, 0, 0, 0, 0, 0},
    // no travel is no row, and counts as 0 only among the H-points; no length is 0 everywhere
    {"-", 200.0, 0, 0, 0, 0, 0, 1, 0},
    {"300|-|100", 250.0, 3, 3, 3, 3, 3, 1, 3},
    {"300|-|100", 20.0, 0, 0, 0, 1, 1, 2, 0},
    {"300|x|100", 250.0, 2, 2, 2, 3, 3, 1, 3},
    {"300|1deg|100", 50.0, 0, 0, 0, 2, 2, 2, 2},
    {"300|200|x", 250.0, 2, 2, 2, 3, 3, 1, 2},
    // other ways to write a length
    {"30cm| 200 |0,1m", 250.0, 2, 2, 2, 3, 3, 1, 2},
    {"100.25|200.25|300,25", 300.25, 1, 1, 1, 2, 2, 3, 3},
    {"-100|-200", 0.0, 1, 1, 1, 2, 2, 1, 1},
    {"-100|-200", -150.0, 2, 2, 2, 2, 2, 1, 2},
    // too far away
    {"100", 999.9, 1, 1, 1, 1, 1, 1, 1},
    {"100", 1000.0, 1, 1, 1, 1, 1, 1, 0},
    {"0", 9999999.0, 1, 1, 1, 1, 1, 1, 0},
    {"0", 1e7, 1, 1, 1, 1, 1, 0, 0},
};

// "element" once a row, with its travel for "@" and its number for "#".
std::string Rows(const std::string& rows, const std::string& element)
{
    std::string contents;
    std::istringstream travels(rows);
    int number = 0;
    for (std::string travel; std::getline(travels, travel, '|');)
    {
        const std::string attribute = element.substr(0, element.find('@'));
        std::string row = travel == "-" ? attribute.substr(0, attribute.rfind(' ')) : attribute + "'" + travel + "'";
        row += element.substr(element.find('@') + 1);
        ++number;
        for (std::size_t at = row.find('#'); at != std::string::npos; at = row.find('#', at))
            row.replace(at, 1, std::to_string(number));
        contents += row;
    }
    return contents;
}

} // namespace

using TravelRowTest = ReaderTest;

TEST_F(TravelRowTest, ChosenByTheRuleOfEachOperation)
{
    // Outputs are the row's number, in the unit that makes it one.
    const std::tuple<std::string, std::string, std::string, int, int Case::*> operations[] = {
        {"EyeEllipses", "GetCoeficients1997", "S, @", 7, &Case::coeficients1997},
        {"EyeEllipses", "GetRadii1997", "S, @, 95", 3, &Case::radii1997},
        {"EyeEllipses", "GetRadii2002", "S, @, 99", 3, &Case::radii2002},
        {"EyeEllipses", "GetHPointTravelData", "S, x, @, 99", 5, &Case::hpoint},
        {"HeadContour", "GetRadii", "S, x, @, 95", 3, &Case::headByLength},
        {"HeadContour", "GetDeltas", "S, x, driver, @", 3, &Case::headByLength},
        {"HeadContour", "GetCoeficients", "S, x, driver, @", 6, &Case::headByText},
        {"HeadContour", "Get2002NonDriverCoeficients", "S, x, driver, @", 6, &Case::headByText},
        {"EyePoints", "GetHPointTravelCorrection", "S, x, @", 1, &Case::correction},
    };
    for (const Case& row : cases)
    {
        std::string coeficients;
        for (const std::string kind : {"L40X", "L40XP2", "L40Z", "L40ZP2", "x", "y", "z"})
            coeficients += Rows(row.rows, "<coef_" + kind + " h_point_travel=@ value='#'/>");
        const auto radii = [&](const char* cutoff)
        {
            return Rows(row.rows, std::string("<radii h_point_travel=@ radiusX_") + cutoff + "='#' radiusY_" + cutoff +
                                      "='#' radiusZ_" + cutoff + "='#'/>");
        };
        WriteDefault("Manikin/EyeEllipses.xml",
            Document(Standard("S",
                "<coeficients1997>" + coeficients + radii("95") + "</coeficients1997><coeficients2002>" + radii("99") +
                    "</coeficients2002>" +
                    Category("x",
                        Rows(row.rows,
                            "<hpoint value=@ xmean='#' ymean_left='#' ymean_right='#' zmean='#' cutoff99='#'/>")))));
        const std::string seat =
            Rows(row.rows, "<coeficients h_point_travel=@ ax='#' bx='#' cx='#' az='#' bz='#' cz='#'/>") +
            Rows(row.rows,
                "<coeficients2002nonDriver h_point_travel=@ ax='#m' bx='#m' cx='#m' dx='#m' az='#m' bz='#m'/>") +
            Rows(row.rows, "<deltas h_point_travel=@ delta_x='#' delta_y='#' delta_z='#'/>");
        WriteDefault("Manikin/HeadContour.xml",
            OneCategory("", "<radii><cutoff value='95'>" +
                                Rows(row.rows, "<h_point_travel value=@ x_radius='#' y_radius='#' z_radius='#'/>") +
                                "</cutoff></radii><seat position='driver'>" + seat + "</seat>"));
        WriteDefault(
            "Manikin/EyePoints.xml", OneCategory("", Rows(row.rows, "<hpoint_travel value=@ horizontal='#'/>")));
        for (const bool comma : {false, true})
        {
            VEXMELKUtilities::SetCommaDelimeter(comma);
            Release();
            for (const auto& [configuration, operation, inputs, outputs, chosen] : operations)
            {
                std::ostringstream travel;
                travel << std::setprecision(17) << (configuration == "EyePoints" ? row.travel / 1000.0 : row.travel);
                std::string asked = inputs;
                asked.replace(asked.find('@'), 1, travel.str());
                std::ostringstream answer;
                answer << (row.*chosen == 0 ? "0" : "1");
                for (int output = 0; output < outputs; ++output)
                    answer << " " << (row.*chosen == 0 ? "~" : std::to_string(row.*chosen));
                EXPECT_EQ(Ask(configuration, operation, asked), answer.str())
                    << operation << " of " << row.rows << " at " << travel.str() << (comma ? " with commas" : "");
            }
        }
    }
}

TEST_F(TravelRowTest, EveryTenthOfAMillimetreIsFoundAgainByItsLength)
{
    constexpr int tenths = 10000;
    constexpr int perStandard = 100;
    const auto travelOf = [](int tenth) { return std::to_string(tenth / 10) + "." + std::to_string(tenth % 10); };
    std::string contour;
    std::string points;
    for (int first = 0; first <= tenths; first += perStandard)
    {
        std::string categories;
        std::string corrections;
        for (int tenth = first; tenth < first + perStandard; ++tenth)
        {
            const std::string text = travelOf(tenth);
            const std::string value = std::to_string(tenth + 1);
            categories +=
                Category(value, "<radii><cutoff value='95'><h_point_travel value='" + text + "' x_radius='" + value +
                                    "' y_radius='1' z_radius='1'/></cutoff></radii><seat position='general'><deltas "
                                    "h_point_travel='" +
                                    text + "' delta_x='" + value + "' delta_y='1' delta_z='1'/></seat>");
            corrections += Category(value, "<hpoint_travel value='" + text + "' horizontal='" + value + "'/>");
        }
        contour += Standard(std::to_string(first), categories);
        points += Standard(std::to_string(first), corrections);
    }
    WriteDefault("Manikin/HeadContour.xml", Document(contour));
    WriteDefault("Manikin/EyePoints.xml", Document(points));
    VEXMELKHeadContourConfig& head = *Manager().GetHeadContourConfig();
    VEXMELKEyePointsConfig& eyes = *Manager().GetEyePointsConfig();
    for (int tenth = 0; tenth <= tenths; ++tenth)
    {
        const CATUnicodeString standard(std::to_string(tenth / perStandard * perStandard));
        const CATUnicodeString category(std::to_string(tenth + 1));
        const double metres = VEXMELKUtilities::GetValueInMeters(CATUnicodeString(travelOf(tenth)));
        double radius = before;
        double delta = before;
        double correction = before;
        double ignored = 0.0;
        EXPECT_TRUE(head.GetRadii(standard, category, 500.0, 95, radius, ignored, ignored));
        EXPECT_TRUE(head.GetDeltas(standard, category, "driver", 500.0, delta, ignored, ignored));
        EXPECT_TRUE(eyes.GetHPointTravelCorrection(standard, category, metres, correction));
        ASSERT_THAT(std::vector({radius, delta, correction}), testing::Each(testing::DoubleNear(tenth + 1, 1e-6)))
            << travelOf(tenth);
    }
}
