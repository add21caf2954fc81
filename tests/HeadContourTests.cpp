// The reader of the head contours.

#include "ReaderTest.h"

namespace {

constexpr const char* file = "Manikin/HeadContour.xml";

Reader ReaderOf(const std::string& operation, const std::string& inputs, const std::string& fields)
{
    return {file, "HeadContour", "", fields, operation, inputs};
}

std::string Seat(const std::string& position, const std::string& contents)
{
    return "<seat position='" + position + "'>" + contents + "</seat>";
}

} // namespace

using HeadContourTest = ReaderTest;

TEST_F(HeadContourTest, EveryAttributeAndItsUnit)
{
    const Reader radii = ReaderOf("GetRadii", "S, x, 200, 95",
        "x_radius:millimetres=keep>xRadius y_radius:millimetres=keep>yRadius z_radius:millimetres=keep>zRadius");
    ExpectElement(radii, "<radii><cutoff value='95'><h_point_travel value='100' @/></cutoff></radii>", 0);
    ExpectMissing(radii);

    const Reader bySeat[] = {
        ReaderOf("GetCoeficients", "S, x, driver, 200",
            "ax:number=keep bx:number=keep cx:number=keep az:number=keep bz:number=keep cz:number=keep"),
        ReaderOf("Get2002NonDriverCoeficients", "S, x, driver, 200",
            "ax:metres=keep bx:metres=keep cx:metres=keep dx:metres=keep az:metres=keep bz:metres=keep"),
        ReaderOf("GetDeltas", "S, x, driver, 200",
            "delta_x:millimetres=keep>deltaX delta_y:millimetres=keep>deltaY delta_z:millimetres=keep>deltaZ"),
        ReaderOf("GetHeadClearance", "S, x, driver",
            "angle:radians=keep req_diagonal:metres=keep>reqDiagonal req_vertical:metres=keep>reqVertical"),
    };
    const char* elements[] = {"<coeficients h_point_travel='100' @/>",
        "<coeficients2002nonDriver h_point_travel='100' @/>", "<deltas h_point_travel='100' @/>",
        "<head_clearance @/>"};
    for (int index = 0; index < 4; ++index)
    {
        const Reader& reader = bySeat[index];
        const std::string element = elements[index];
        const std::string other = element.substr(0, element.find('@')) + "ax='1' delta_y='1' req_vertical='1'/>";
        const int resultOfNone = index == 3 ? 1 : 0;
        ExpectElement(reader, Seat("front", other) + Seat("driver", element) + Seat("general", other), resultOfNone);
        ExpectElement(reader, Seat("driver", "") + Seat("general", element), resultOfNone);
        ExpectElement(reader, Seat("general", element) + Seat("front", other), resultOfNone);
        ExpectUntouched(reader, OneCategory("", Seat("general", "") + Seat("front", other)), 0);
        ExpectUntouched(reader, OneCategory("", element.substr(0, element.find('@')) + "/>"), 0);
        ExpectMissing(reader);
    }

    const Reader tips =
        ReaderOf("GetTipAngles", "S, x", "side_view_angle:radians>sideViewAngle plan_view_angle:radians>planViewAngle");
    ExpectElementOfEither(tips, "<tip_angles @/>");
    ExpectMissing(tips);
}

TEST_F(HeadContourTest, ValuesThatAreMissingOrNoQuantities)
{
    WriteDefault(file,
        OneCategory("",
            "<radii><cutoff value='95'><h_point_travel value='1' x_radius='x' z_radius='3cm'/></cutoff></radii>" +
                Seat("general", "<coeficients h_point_travel='1' ax='x' bx='2' cx='3,5mm' az='' bz='-5'/>"
                                "<coeficients2002nonDriver h_point_travel='1' ax='1deg' cx='1m' dx='2' az='3' bz='4'/>"
                                "<deltas h_point_travel='1' delta_x='1' delta_y='1rad'/>"
                                "<deep><head_clearance angle='1mm' req_vertical='2'/></deep>")));
    Expect("HeadContour", {
                              {"GetRadii", "S, x, 9, 95", "0 0 ~ 30"},
                              {"GetCoeficients", "S, x, back, 9", "0 0 2 3.5 0 -5 ~"},
                              {"Get2002NonDriverCoeficients", "S, x, back, 9", "0 0 ~ 1 0.002 0.003 0.004"},
                              {"GetDeltas", "S, x, back, 9", "0 1 0 ~"},
                              {"GetHeadClearance", "S, x, back", "1 0 ~ 0.002"},
                          });
}

TEST_F(HeadContourTest, RowOfDeltasIsLookedForInTheSeatFirst)
{
    const std::string row = "<deltas h_point_travel='100' delta_x='1' delta_y='1' delta_z='1'/>";
    const std::string deepRow = "<deep><deltas h_point_travel='50' delta_x='2' delta_y='2' delta_z='2'/></deep>";
    const std::string tooHigh = "<deep><deltas h_point_travel='150' delta_x='3' delta_y='3' delta_z='3'/></deep>";
    WriteDefault(file, Document(Standard("S", Category("below", Seat("driver", deepRow) + Seat("general", row)) +
                                                  Category("above", Seat("driver", tooHigh) + Seat("general", row)))));
    Expect("HeadContour", {
                              {"GetDeltas", "S, below, driver, 200", "1 2 2 2"},
                              {"GetDeltas", "S, above, driver, 200", "1 1 1 1"},
                          });
}

TEST_F(HeadContourTest, StripeEllipsesStandardAndSeatNames)
{
    WriteDefault(file, Document(R"(
        <standard name="S" eye_ellipses_ref_standard=" E.1 "><middle_stripe/><middle_stripe width="12,5"/>
          <middle_stripe width="9"/></standard>
        <standard name="T" eye_ellipses_ref_standard=""><deep><middle_stripe width="1"/></deep></standard>
        <standard name="U"><middle_stripe width="2deg"/></standard>)"));
    Expect("HeadContour", {
                              {"GetMiddleStripeWitdh", "S", "1 12.5"},
                              {"GetMiddleStripeWitdh", "T", "0 ~"},
                              {"GetMiddleStripeWitdh", "U", "1 0"},
                              {"GetMiddleStripeWitdh", "unknown", "0 ~"},
                              {"GetEllipsesStandard", "S", "1  E.1 "},
                              {"GetEllipsesStandard", "T", "0 ''"},
                              {"GetEllipsesStandard", "U", "0 ''"},
                              {"GetEllipsesStandard", "unknown", "0 ~"},
                              {"GetSeatName", "0, 0", "back"},
                              {"GetSeatName", "0, 1", "back"},
                              {"GetSeatName", "1, 0", "front"},
                              {"GetSeatName", "1, 1", "driver"},
                          });
}

TEST_F(HeadContourTest, CutOffsOfTheQueryBefore)
{
    WriteDefault(file, Document(R"(
        <standard name="S">
          <category name="default"><radii><cutoff value="50"/></radii></category>
          <category name="x"><deep><radii><cutoff value="95"><h_point_travel value="1"/></cutoff><cutoff/>
            <cutoff value="99"/><cutoff value="95"/><deep><cutoff value="1"/></deep></radii></deep>
            <radii><cutoff value="2"/></radii></category>
          <category name="bare"/><category name="empty"><radii/></category></standard>
        <standard name="T"><category name="x"><radii><cutoff value="70"/></radii></category></standard>)"));
    const std::vector<std::pair<std::string, std::string>> naming = {
        {"GetCutoffList", "S, x"},
        {"GetRadii", "S, x, 100, 95"},
        {"GetCoeficients", "S, x, driver, 100"},
        {"Get2002NonDriverCoeficients", "S, x, driver, 100"},
        {"GetDeltas", "S, x, driver, 100"},
        {"GetHeadClearance", "S, x, driver"},
        {"GetTipAngles", "S, x"},
        {"IsStandard2002Used", "S, x"},
    };
    Expect("HeadContour", {{"GetCurrentCutoffList", "", "0 [~]"}});
    for (const auto& [operation, inputs] : naming)
    {
        Expect("HeadContour", {
                                  {"GetCutoffList", "T, x", "1 [70]"},
                                  {"GetCurrentCutoffList", "", "1 [70]"},
                              });
        Ask("HeadContour", operation, inputs);
        EXPECT_EQ(Ask("HeadContour", "GetCurrentCutoffList", ""), "3 [95 99 95]") << operation;
    }
    Expect("HeadContour", {
                              {"GetCutoffList", "S, x", "2 [95 99]"},
                              {"GetCutoffList", "S, unknown", "1 [50]"},
                              {"GetCurrentCutoffList", "", "1 [50]"},
                              {"GetMiddleStripeWitdh", "T", "0 ~"},
                              {"GetCurrentCutoffList", "", "1 [50]"},
                              {"GetCutoffList", "S, bare", "0 [~]"},
                              {"GetCurrentCutoffList", "", "0 [~]"},
                              {"GetCutoffList", "S, empty", "0 []"},
                              {"GetCutoffList", "T, unknown", "0 [~]"},
                              {"GetRadii", "S, x, 100, 99", "0 ~ ~ ~"},
                              {"GetRadii", "S, x, 100, 90", "0 ~ ~ ~"},
                              {"GetRadii", "S, x, 100, 95", "0 ~ ~ ~"},
                          });
}

TEST_F(HeadContourTest, StandardOf2002IsToldByTheCategoryOrDefault)
{
    const std::string row = Seat("driver", "<coeficients2002nonDriver/>");
    WriteDefault(file, Document(Standard("S", Category("default", "") + Category("x", row) + Category("y", "")) +
                                Standard("T", Category("default", row) + Category("x", "")) +
                                Standard("obsolete", row) + Standard("both", Category("x", row))));
    WriteCustomer(file, Document(Standard("both", Category("x", ""))));
    Expect("HeadContour", {
                              {"IsStandard2002Used", "S, x", "1"},
                              {"IsStandard2002Used", "S, y", "0"},
                              {"IsStandard2002Used", "S, unknown", "0"},
                              {"IsStandard2002Used", "T, x", "1"},
                              {"IsStandard2002Used", "T, unknown", "1"},
                              {"IsStandard2002Used", "both, x", "0"},
                              {"IsStandard2002Used", "obsolete, default", "0"},
                              {"IsStandard2002Used", "unknown, x", "0"},
                          });
}
