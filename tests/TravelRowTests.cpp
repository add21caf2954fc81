// The choice of a row by H-point travel, in every operation that makes one.

#include "ReaderTest.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKHeadContourConfig.h"

#include <algorithm>
#include <iomanip>
#include <iterator>

namespace {

// "element" once a row, with its travel for "@" and its number for "#".
std::string Rows(const std::string& travels, const std::string& element)
{
    std::string contents;
    int number = 0;
    for (const std::string& travel : Split(travels, "/"))
    {
        const std::vector<std::string> attribute = Split(element, "@");
        const std::string start = attribute[0].substr(0, attribute[0].rfind(' '));
        const std::string row = (travel == "-" ? start : attribute[0] + "'" + travel + "'") + attribute[1];
        contents += travels.empty() ? "" : Replaced(row, "#", std::to_string(++number));
    }
    return contents;
}

} // namespace

using TravelRowTest = ReaderTest;

TEST_F(TravelRowTest, ChosenByTheRuleOfEachOperation)
{
    // The inputs, the number of outputs (each the row's number, in the unit that makes it one), the column.
    const auto operations = Table<5>(R"(
        EyeEllipses | GetCoeficients1997          | S, @             | 7 | 1997coef
        EyeEllipses | GetRadii1997                | S, @, 95         | 3 | 1997radii
        EyeEllipses | GetRadii2002                | S, @, 99         | 3 | 2002radii
        HeadContour | GetRadii                    | S, x, @, 95      | 3 | contour
        HeadContour | GetDeltas                   | S, x, driver, @  | 3 | contour
        HeadContour | GetCoeficients              | S, x, driver, @  | 6 | contcoef
        HeadContour | Get2002NonDriverCoeficients | S, x, driver, @  | 6 | contcoef
        EyeEllipses | GetHPointTravelData         | S, x, @, 99      | 5 | hpoint
        EyePoints   | GetHPointTravelCorrection   | S, x, @          | 1 | eyepoint)");
    // Beside the tolerance of 1997.
    const std::pair<const char*, double> offsets[] = {
        {"+less", 0.5e-10}, {"-less", -0.5e-10}, {"+just", 1e-10}, {"+more", 1.5e-10}, {"-more", -1.5e-10}};
    std::vector<std::string> columns;
    for (const auto& [rows, asked, numbers] : Table<3>(CaseFile("travelRows")))
    {
        std::istringstream words(numbers);
        const std::vector<std::string> chosen{std::istream_iterator<std::string>(words), {}};
        if (columns.empty())
        {
            columns = chosen;
            continue;
        }
        std::string coeficients;
        for (const std::string kind : {"L40X", "L40XP2", "L40Z", "L40ZP2", "x", "y", "z"})
            coeficients += Rows(rows, "<coef_" + kind + " h_point_travel=@ value='#'/>");
        const std::string radii = Rows(rows, "<radii h_point_travel=@ radiusX_%='#' radiusY_%='#' radiusZ_%='#'/>");
        WriteDefault("Manikin/EyeEllipses.xml",
            Document(Standard(
                "S", "<coeficients1997>" + coeficients + Replaced(radii, "%", "95") +
                         "</coeficients1997><coeficients2002>" + Replaced(radii, "%", "99") + "</coeficients2002>" +
                         Category("x", Rows(rows, "<hpoint value=@ xmean='#' ymean_left='#' ymean_right='#' zmean='#' "
                                                  "cutoff99='#'/>")))));
        WriteDefault("Manikin/HeadContour.xml",
            OneCategory(
                "", "<radii><cutoff value='95'>" +
                        Rows(rows, "<h_point_travel value=@ x_radius='#' y_radius='#' z_radius='#'/>") +
                        "</cutoff></radii><seat position='driver'>" +
                        Rows(rows, "<coeficients h_point_travel=@ ax='#' bx='#' cx='#' az='#' bz='#' cz='#'/>") +
                        Rows(rows, "<coeficients2002nonDriver h_point_travel=@ ax='#m' bx='#m' cx='#m' dx='#m' az='#m' "
                                   "bz='#m'/>") +
                        Rows(rows, "<deltas h_point_travel=@ delta_x='#' delta_y='#' delta_z='#'/>") + "</seat>"));
        WriteDefault("Manikin/EyePoints.xml", OneCategory("", Rows(rows, "<hpoint_travel value=@ horizontal='#'/>")));
        for (const bool comma : {false, true})
        {
            VEXMELKUtilities::SetCommaDelimeter(comma);
            Release();
            double travel = std::stod(asked);
            for (const auto& [name, offset] : offsets)
                travel += asked.ends_with(name) ? offset : 0.0;
            for (const auto& [configuration, operation, inputs, outputs, column] : operations)
            {
                std::ostringstream length;
                length << std::setprecision(17) << (configuration == "EyePoints" ? travel / 1000.0 : travel);
                const auto place = std::find(columns.begin(), columns.end(), column) - columns.begin();
                const std::string& number = chosen.at(static_cast<std::size_t>(place));
                const std::string output = number == "-" ? " ~" : " " + number;
                EXPECT_EQ(Ask(configuration, operation, Replaced(inputs, "@", length.str())),
                    (number == "-" ? "0" : "1") + Repeated(std::stoul(outputs), output))
                    << operation << " of " << rows << " at " << asked << (comma ? " with commas" : "");
            }
        }
    }
}

TEST_F(TravelRowTest, EveryTenthOfAMillimetreIsFoundAgainByItsLength)
{
    const auto travelOf = [](int tenth) { return std::to_string(tenth / 10) + "." + std::to_string(tenth % 10); };
    std::string contour;
    std::string points;
    for (int tenth = 0; tenth <= 10000; ++tenth)
    {
        const auto category = [&](const std::string& contents)
        { return Category("#", Replaced(contents, "@", "'" + travelOf(tenth) + "'")); };
        const std::string number = std::to_string(tenth + 1);
        contour += Replaced(category("<radii><cutoff value='95'><h_point_travel value=@ x_radius='#' y_radius='1' "
                                     "z_radius='1'/></cutoff></radii><seat position='general'><deltas "
                                     "h_point_travel=@ delta_x='#' delta_y='1' delta_z='1'/></seat>"),
            "#", number);
        points += Replaced(category("<hpoint_travel value=@ horizontal='#'/>"), "#", number);
    }
    WriteDefault("Manikin/HeadContour.xml", Document(Standard("S", contour)));
    WriteDefault("Manikin/EyePoints.xml", Document(Standard("S", points)));
    VEXMELKHeadContourConfig& head = *Manager().GetHeadContourConfig();
    VEXMELKEyePointsConfig& eyes = *Manager().GetEyePointsConfig();
    double ignored = 0.0;
    for (int tenth = 0; tenth <= 10000; ++tenth)
    {
        const CATUnicodeString category(std::to_string(tenth + 1));
        const double metres = VEXMELKUtilities::GetValueInMeters(CATUnicodeString(travelOf(tenth)));
        std::vector<double> found(3, before);
        EXPECT_TRUE(head.GetRadii("S", category, 500.0, 95, found[0], ignored, ignored));
        EXPECT_TRUE(head.GetDeltas("S", category, "driver", 500.0, found[1], ignored, ignored));
        EXPECT_TRUE(eyes.GetHPointTravelCorrection("S", category, metres, found[2]));
        ASSERT_THAT(found, testing::Each(testing::DoubleNear(tenth + 1, 1e-6))) << travelOf(tenth);
    }
}
