// The readers of eye ellipses, eye points and extended eye points.

#include "ReaderTest.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKEyePointsConfig.h"

namespace {

constexpr const char* ellipsesFile = "Manikin/EyeEllipses.xml";
constexpr const char* pointsFile = "Manikin/EyePoints.xml";
constexpr const char* extendedFile = "Manikin/ExtendedEyePoints.xml";

} // namespace

using EyeTest = ReaderTest;

TEST_F(EyeTest, EllipsesEveryAttributeAndItsUnit)
{
    const auto inStandard = [](const std::string& contents)
    { return Document(Standard("S", contents + "<category name='x'/>")); };
    const Reader hpoint = {ellipsesFile, "EyeEllipses", "",
        "xmean:millimetres ymean_left:millimetres>ymeanLeft ymean_right:millimetres>ymeanRight zmean:millimetres "
        "cutoff90:millimetres>cutoffLength",
        "GetHPointTravelData", "S, x, 100, 90", 1, 0};
    ExpectElement(hpoint, "<hpoint value='100.5' @/>");
    ExpectMissing(hpoint);

    const Reader tips = {ellipsesFile, "EyeEllipses", "",
        "side_view_angle:radians>sideViewAngle plan_view_angle:radians>planViewAngle", "GetTipAngles"};
    ExpectElementOfEither(tips, "<tip_angles @/>");
    ExpectMissing(tips);

    const Reader correction = {ellipsesFile, "EyeEllipses", "", "horizontal:millimetres vertical:millimetres",
        "GetBackAngleCorrection", "S, 0"};
    ExpectAll(correction, inStandard("<back_angle value='0' @/>"));
    ExpectNone(correction, inStandard("<back_angle value='0'/>"));
    ExpectUntouched(correction, inStandard("<back_angle/>"), 0);

    const Reader displacement = {ellipsesFile, "EyeEllipses", "",
        "Y_Displacement_W7:millimetres=keep>displacementW7 Y_Displacement_W3:millimetres=keep>displacementW3",
        "GetUSADisplacement", "S, x", 1, 1};
    ExpectCategory(displacement);

    for (const std::string generation : {"1997", "2002"})
        for (const std::string cutoff : {"95", "99"})
        {
            const std::string element = "<coeficients" + generation + "><radii h_point_travel='100' @ radiusX_" +
                                        (cutoff == "95" ? "99" : "95") + "='1'/></coeficients" + generation + ">";
            const Reader radii = {ellipsesFile, "EyeEllipses", "",
                "radiusX_" + cutoff + ":millimetres=-1>radiusX radiusY_" + cutoff + ":millimetres=-1>radiusY radiusZ_" +
                    cutoff + ":millimetres=-1>radiusZ",
                "GetRadii" + generation, "S, 100, " + cutoff};
            ExpectAll(radii, inStandard(element));
            ExpectNone(radii, inStandard(element));
            ExpectUntouched(radii, inStandard(""), 0);
        }
}

TEST_F(EyeTest, EllipsesGenerationsAndCutOffs)
{
    WriteDefault(ellipsesFile, Document(R"(
        <standard name="both"><coeficients1997><cutOff value="91"/></coeficients1997><deep><coeficients2002>
          <cutOff value="90"/><cutOff value="x"/><cutOff/><cutOff value="95.7"/><sub><cutOff value="1"/></sub>
          <coef_L1 value="1.5"/><coef_L1 value="9"/><sub><coef_L6 value=" 6,5 "/></sub><coef_H30/><coef_T value="x"/>
          <coef_x value="2.5e1"/><coef_z value="-4"/>
          <radii h_point_travel="100" radiusX_95="1" radiusX_99="2"/>
        </coeficients2002></deep></standard>
        <standard name="old"><coeficients1997><cutOff value="91"/>
          <radii h_point_travel="100" radiusY_95="3" radiusY_99="x"/></coeficients1997></standard>
        <standard name="bare"><coeficients1997><cutOff value="91"/></coeficients1997><coeficients2002/></standard>
        <standard name="none"/>)"));
    Expect("EyeEllipses", {
                              {"IsStandard", "both, cutOff", "1"},
                              {"IsStandard", "both, cutoff", "0"},
                              {"IsStandard", "both, standard", "0"},
                              {"IsStandard", "BOTH, cutOff", "0"},
                              {"IsStandard2002", "both", "1"},
                              {"IsStandard2002", "old", "0"},
                              {"IsStandard1997", "both", "1"},
                              {"IsStandard1997", "old", "1"},
                              {"IsStandard1997", "none", "0"},
                              {"GetCutOffList", "both", "1 [90 0 95]"},
                              {"GetCutOffList", "old", "1 [91]"},
                              {"GetCutOffList", "bare", "0 []"},
                              {"GetCutOffList", "none", "1 [90 95 99]"},
                              {"GetCutOffList", "unknown", "1 [90 95 99]"},
                              {"GetCoeficients2002", "both", "1 1.5 6.5 ~ 0 25 ~ -4"},
                              {"GetCoeficients2002", "old", "0 ~ ~ ~ ~ ~ ~ ~"},
                              {"GetCoeficients2002", "unknown", "0 ~ ~ ~ ~ ~ ~ ~"},
                              {"GetRadii2002", "both, 100, 95", "1 1 -1 -1"},
                              {"GetRadii2002", "both, 100, 99", "1 2 -1 -1"},
                              {"GetRadii2002", "both, 100, 90", "0 1 -1 -1"},
                              {"GetRadii2002", "old, 100, 95", "0 ~ ~ ~"},
                              {"GetRadii1997", "old, 100, 0", "0 -1 3 -1"},
                              {"GetRadii1997", "old, 100, 99", "1 -1 0 -1"},
                              {"GetRadii1997", "none, 100, 95", "0 ~ ~ ~"},
                          });
}

TEST_F(EyeTest, EllipsesCoefficientsOf1997FailKindByKind)
{
    WriteDefault(ellipsesFile, Document(R"(
        <standard name="all"><coeficients1997>
          <coef_L40X h_point_travel="100" value="1.5"/><coef_L40XP2 h_point_travel="100" value="2.5"/>
          <coef_L40Z h_point_travel="100" value="3.5"/><coef_L40ZP2 h_point_travel="100" value="4,5"/>
          <coef_x h_point_travel="100" value="5.5"/><coef_y h_point_travel="100" value="6.5"/>
          <coef_z h_point_travel="100" value="7.5"/></coeficients1997></standard>
        <standard name="gaps"><coeficients1997>
          <coef_L40X h_point_travel="100"/><sub><coef_L40XP2 h_point_travel="100" value="2"/></sub>
          <coef_L40Z value="3"/><coef_L40ZP2 h_point_travel="100" value="x"/><coef_x h_point_travel="200" value="5"/>
          <coef_y h_point_travel="100" value="6"/></coeficients1997></standard>
        <standard name="new"><coeficients2002/></standard>)"));
    Expect("EyeEllipses",
        {
            {"GetCoeficients1997", "all, 150", "1 1.5 2.5 3.5 4.5 5.5 6.5 7.5"},
            {"GetCoeficients1997", "all, 50", "0 ~ ~ ~ ~ ~ ~ ~"},
            {"GetCoeficients1997", "gaps, 250", "0 ~ ~ ~ 0 5 6 ~"}, // kinds without rows
            {"GetCoeficients1997", "gaps, 150", "0 ~ ~ ~ 0 ~ ~ ~"}, // below the rows of coef_x: nothing after it
            {"GetCoeficients1997", "new, 150", "0 ~ ~ ~ ~ ~ ~ ~"},
            {"GetCoeficients1997", "unknown, 150", "0 ~ ~ ~ ~ ~ ~ ~"},
        });
}

TEST_F(EyeTest, EllipsesKeepTheDataOfTheLastCategoryThatWasThere)
{
    WriteDefault(ellipsesFile, Document(R"(
        <standard name="S">
          <category name="x"><hpoint value="100" xmean="1" ymean_left="2" ymean_right="3" zmean="4" cutoff90="5"
              cutoff95="6" cutoff99="7"/>
            <side_view cutoff90="1" cutoff95="2" cutoff99="3"/><side_view cutoff90="11" cutoff95="12"/>
            <deep><plan_view cutoff90="21" cutoff95="22" cutoff99="23deg"/></deep></category>
          <category name="y"><hpoint value="100" xmean="8"/></category>
          <category name="z"/></standard>
        <standard name="T"><category name="y"><hpoint value="100" xmean="9"/><side_view cutoff99="33"/></category></standard>
        <standard name="none"/>)"));
    Expect("EyeEllipses", {
                              {"GetSideViewMinorAxis", "unknown, x, 90", "1 0"},
                              {"GetHPointTravelData", "unknown, x, 100, 90", "0 ~ ~ ~ ~ ~"},
                              {"GetHPointTravelData", "S, x, 100, 90", "1 1 2 3 4 5"},
                              {"GetHPointTravelData", "S, x, 100, 95", "1 1 2 3 4 6"},
                              {"GetHPointTravelData", "S, x, 100, 99", "1 1 2 3 4 7"},
                              {"GetHPointTravelData", "S, x, 100, 80", "1 1 2 3 4 4"},
                              {"GetSideViewMinorAxis", "S, x, 90", "1 11"},
                              {"GetSideViewMinorAxis", "S, x, 95", "1 12"},
                              {"GetSideViewMinorAxis", "S, x, 99", "1 0"},
                              {"GetSideViewMinorAxis", "S, x, 80", "1 0"},
                              {"GetPlanViewMinorAxis", "S, x, 90", "1 21"},
                              {"GetPlanViewMinorAxis", "S, x, 95", "1 22"},
                              {"GetPlanViewMinorAxis", "S, x, 99", "1 0"},
                              {"GetPlanViewMinorAxis", "S, x, 0", "1 0"},
                              {"GetHPointTravelData", "unknown, y, 100, 90", "1 1 2 3 4 5"}, // nothing there
                              {"GetPlanViewMinorAxis", "unknown, y, 95", "1 22"},
                              {"GetHPointTravelData", "S, y, 100, 90", "1 8 0 0 0 0"},
                              {"GetSideViewMinorAxis", "S, y, 95", "1 12"}, // of the category before it
                              {"GetHPointTravelData", "T, y, 100, 90", "1 9 0 0 0 0"},
                              {"GetSideViewMinorAxis", "T, y, 99", "1 33"},
                              {"GetSideViewMinorAxis", "T, y, 95", "1 0"},
                              {"GetPlanViewMinorAxis", "T, y, 95", "1 22"},
                              {"GetHPointTravelData", "S, z, 100, 90", "0 ~ ~ ~ ~ ~"},
                          });
    auto& config = static_cast<VEXMELKEyeEllipsesConfig&>(Object("EyeEllipses"));
    double axis = before;
    const auto copy = CATHandle<VEXMELKEyeEllipsesConfig>::Create(config);
    EXPECT_TRUE(copy->GetPlanViewMinorAxis("unknown", "x", 95, axis));
    EXPECT_DOUBLE_EQ(axis, 22.0) << "a copy has the data too";
}

TEST_F(EyeTest, EllipsesAnglesAndDisplacements)
{
    WriteDefault(ellipsesFile, Document(R"(
        <standard name="S">
          <back_angle value="10deg" horizontal="1" vertical="2"/><back_angle horizontal="9"/>
          <back_angle value="20" horizontal="3"/><deep><back_angle value="0.5rad" vertical="1cm"/></deep>
          <back_angle value="20" horizontal="4"/>
          <category name="default" Y_Displacement_W7="5" Y_Displacement_W3="6">
            <deep><tip_angles side_view_angle="90" plan_view_angle="0.25rad"/></deep><tip_angles/></category>
          <category name="x" Y_Displacement_W3="7"><tip_angles plan_view_angle="5mm"/></category>
          <category name="y" Y_Displacement_W7="x"/></standard>
        <standard name="T"><back_angle value="0" horizontal="8"/>
          <category name="x" Y_Displacement_W3="9"/></standard>)"));
    Expect("EyeEllipses",
        {
            {"GetBackAngleCorrection", "S, 0.1", "1 1 2"}, {"GetBackAngleCorrection", "S, 0.3", "1 3 0"},
            {"GetBackAngleCorrection", "S, 0.45", "1 0 10"}, {"GetBackAngleCorrection", "T, 99.9", "1 8 0"},
            {"GetBackAngleCorrection", "T, -100", "0 ~ ~"}, {"GetBackAngleCorrection", "unknown, 0.1", "0 ~ ~"},
            {"GetTipAngles", "S, x", "1 0 0"}, {"GetTipAngles", "S, y", "1 1.57079633 0.25"},
            {"GetTipAngles", "S, unknown", "1 1.57079633 0.25"}, {"GetTipAngles", "T, x", "0 ~ ~"},
            {"GetUSADisplacement", "S, x", "1 5 7"}, {"GetUSADisplacement", "S, y", "1 0 6"},
            {"GetUSADisplacement", "T, x", "1 ~ ~"}, // the second only after the first
        });
}

TEST_F(EyeTest, PointsEveryAttributeAndItsUnit)
{
    ExpectElement({pointsFile, "EyePoints", "/points/0", "name dx:mm dy:mm dz:mm", "GetEyePoints"}, "<point @/>");

    const std::pair<std::string, const char*> positions[] = {
        {"TopV", "top_v_point"},
        {"BottomV", "bottom_v_point"},
        {"LeftP", "left_p_point"},
        {"RightP", "right_p_point"},
        {"Left", "left_point"},
        {"Right", "right_point"},
    };
    for (const auto& [name, element] : positions)
    {
        const Reader position = {pointsFile, "EyePoints", "/position", "dx:millimetres dy:millimetres dz:millimetres",
            "Get" + name + "EyePointPosition"};
        std::string elements;
        for (const auto& other : positions)
            elements += std::string("<") + other.second + (other.second == element ? " @" : " dx='1' dz='3'") + "/>";
        ExpectElement(position, elements + "<" + element + " dx='9'/>");
        ExpectMissing(position);
        ExpectUntouched(position, OneCategory(""), 0);
    }

    const Reader backAngle = {pointsFile, "EyePoints", "", "horizontal:millimetres vertical:millimetres",
        "GetBackAngleCorrection", "S, x, 0.5"};
    ExpectElement(backAngle, "<back_angle value='0.5rad' @/>");
    ExpectMissing(backAngle);
    ExpectUntouched(backAngle, OneCategory("", "<back_angle/>"), 0);

    const Reader travel = {
        pointsFile, "EyePoints", "", "horizontal:millimetres", "GetHPointTravelCorrection", "S, x, 0.25"};
    ExpectElement(travel, "<hpoint_travel value='200.5' @/>");
    ExpectMissing(travel);
}

TEST_F(EyeTest, PointsKeywordLinesAndTypes)
{
    const std::string keyword = "steering_wheel_center";
    WriteDefault(pointsFile, Document(R"(
        <standard name="S"><back_line/><back_line length="1.5m"/><back_line length="9"/><vertical_line length="700"/>
          <eye_points_type/><eye_points_type name="single_pair"/><eye_points_type name="single_point"/>
          <category name="x"><point name="n" dx=" steering_wheel_center " dy="1.5" dz="Steering_Wheel_Center"/>
            <deep><point dy="steering_wheel_center"/><point dz="steering_wheel_center"/></deep></category>
          <category name="y"/></standard>
        <standard name="one"><eye_points_type name="single_point"/><back_line length="x"/><vertical_line/></standard>
        <standard name="case"><eye_points_type name="Single_Point"/><eye_points_type name="single_pair"/></standard>
        <standard name="deep"><deep><back_line length="1"/><vertical_line length="2"/>
          <eye_points_type name="single_pair"/></deep></standard>)"));
    Expect("EyePoints", {
                            {"GetEyePoints", "S, x",
                                "1 [{n " + keyword + " 1.5mm Steering_Wheel_Center 1 0 0} {'' '' " + keyword +
                                    " '' 0 1 0} {'' '' '' " + keyword + " 0 0 1}]"},
                            {"GetEyePoints", "S, y", "0 []"},
                            {"GetEyePoints", "S, X", "0 []"},
                            {"GetEyePoints", "s, x", "0 []"},
                            {"GetBackLineLength", "S", "1500"},
                            {"GetBackLineLength", "one", "0"},
                            {"GetBackLineLength", "deep", "635"},
                            {"GetBackLineLength", "unknown", "635"},
                            {"GetVertLineLength", "S", "700"},
                            {"GetVertLineLength", "one", "600"},
                            {"GetVertLineLength", "deep", "600"},
                            {"GetVertLineLength", "unknown", "600"},
                            {"GetEyesType", "S", "2"},
                            {"GetEyesType", "one", "1"},
                            {"GetEyesType", "case", "0"},
                            {"GetEyesType", "deep", "0"},
                            {"GetEyesType", "unknown", "0"},
                        });

    VEXMELKEyePointPosition position;
    position.x = 1.0;
    position.y = 2.0;
    position.z = 3.0;
    position.dx = before;
    WriteDefault(pointsFile, OneCategory("", "<deep><top_v_point x='9' dx='x' dy='1cm'/></deep>"));
    EXPECT_TRUE(Manager().GetEyePointsConfig()->GetTopVEyePointPosition("S", "x", position));
    EXPECT_THAT(std::vector({position.x, position.y, position.z, position.dx, position.dy, position.dz}),
        testing::ElementsAre(1.0, 2.0, 3.0, 0.0, 10.0, 0.0));
}

TEST_F(EyeTest, ExtendedEveryAttributeAndItsUnit)
{
    const auto reader = [](const std::string& record, const std::string& fields, const std::string& operation,
                            const std::string& inputs) {
        return Reader{extendedFile, "ExtendedEyePoints", record, fields, operation, inputs};
    };
    const Reader position =
        reader("/position", "dx:millimetres dy:millimetres dz:millimetres", "GetExtendedEyePointPosition", "S, x, eye");
    ExpectElement(position, "<Eye dx='9'/><deep><eye @/></deep><eye dx='9'/>");
    ExpectMissing(position);

    ExpectElement(reader("/corrections/0", "value:radians>back_angle horizontal:millimetres vertical:millimetres",
                      "GetExtendedBackAngleCorrectionList", "S, x"),
        "<back_angle @/>");
    const Reader correction =
        reader("", "horizontal:millimetres vertical:millimetres", "GetExtendedBackAngleCorrection", "S, x, 0.5");
    ExpectElement(correction, "<back_angle value='0.5rad' @/>");
    ExpectMissing(correction);

    for (const std::string name : {"ext_up", "ext_front", "ext_side"})
    {
        std::string elements;
        for (const std::string other : {"ext_up", "ext_front", "ext_side"})
            elements += "<" + other + (other == name ? " @/>" : " dx='1' dy='2' dz='3'/>");
        ExpectElementOfEither(
            reader("/movements",
                "dx:millimetres>" + name + "_dx dy:millimetres>" + name + "_dy dz:millimetres>" + name + "_dz",
                "GetExtendedEyePointMovements", "S, x"),
            "<standard_movements>" + elements + "</standard_movements>");
    }
    for (const std::string name : {"down_up", "left_right", "forward_backward"})
    {
        std::string elements;
        for (const std::string other : {"down_up", "left_right", "forward_backward"})
            elements += "<" + other + (other == name ? " @/>" : " min='1' max='2'/>");
        ExpectElementOfEither(reader("/movements", "min:millimetres>" + name + "_min max:millimetres>" + name + "_max",
                                  "GetExtendedEyePointMovements", "S, x"),
            "<free_movements>" + elements + "</free_movements>");
    }
}

TEST_F(EyeTest, ExtendedMovementsOfTheCategoryOrOfDefault)
{
    const auto standard = [](const std::string& name, const std::string& position)
    {
        return Standard(name, Category("x", "<standard_movements used_eye_position='" + position +
                                                "'><ext_up dx='1'/></standard_movements>"));
    };
    WriteDefault(extendedFile,
        Document(standard("fix", "fix_standard_point") + standard("front", "forward_most") +
                 standard("side", "sideward_most") + standard("up", "upward_most") + standard("case", "Forward_Most") +
                 standard("blank", " forward_most") + standard("empty", "") + R"(
        <standard name="S"><back_line length="500"/>
          <category name="default"><movements type="free"/><free_movements><left_right min="1" max="2"/></free_movements>
            <standard_movements used_eye_position="forward_most"><ext_side dz="3"/></standard_movements></category>
          <category name="typeless"><movements/></category>
          <category name="own"><movements type="own"/><standard_movements/><deep><free_movements/></deep></category>
          <category name="free"><free_movements/></category></standard>
        <standard name="none"><category name="x"><movements type="t"/></category></standard>)"));
    const std::string zeros = " 0 0 0 0 0 0 0 0 0";
    Expect("ExtendedEyePoints",
        {
            {"GetExtendedEyePointMovements", "fix, x", "1 {standard_movements 0 0 0 0 0 0 1 1 0 0 0 0 0 0 0 0}"},
            {"GetExtendedEyePointMovements", "front, x", "1 {standard_movements 0 0 0 0 0 0 2 1 0 0 0 0 0 0 0 0}"},
            {"GetExtendedEyePointMovements", "side, x", "1 {standard_movements 0 0 0 0 0 0 3 1 0 0 0 0 0 0 0 0}"},
            {"GetExtendedEyePointMovements", "up, x", "1 {standard_movements 0 0 0 0 0 0 4 1 0 0 0 0 0 0 0 0}"},
            {"GetExtendedEyePointMovements", "case, x", "1 {standard_movements 0 0 0 0 0 0 0 1 0 0 0 0 0 0 0 0}"},
            {"GetExtendedEyePointMovements", "blank, x", "1 {standard_movements 0 0 0 0 0 0 0 1 0 0 0 0 0 0 0 0}"},
            {"GetExtendedEyePointMovements", "empty, x", "1 {standard_movements 0 0 0 0 0 0 0 1 0 0 0 0 0 0 0 0}"},
            {"GetExtendedEyePointMovements", "S, unknown", "1 {free 0 0 1 2 0 0 2 0 0 0 0 0 0 0 0 3}"},
            {"GetExtendedEyePointMovements", "S, typeless", "1 {standard_movements 0 0 1 2 0 0 2 0 0 0 0 0 0 0 0 3}"},
            {"GetExtendedEyePointMovements", "S, own", "1 {own 0 0 1 2 0 0 0" + zeros + "}"},
            {"GetExtendedEyePointMovements", "S, free", "1 {free 0 0 0 0 0 0 2 0 0 0 0 0 0 0 0 3}"},
            {"GetExtendedEyePointMovements", "none, x", "0 {t 0 0 0 0 0 0 0" + zeros + "}"},
            {"GetExtendedEyePointMovements", "none, y", "0 {standard_movements 0 0 0 0 0 0 0" + zeros + "}"},
            {"GetExtendedBackAngleCorrectionList", "S, own", "1 []"},
            {"GetExtendedBackAngleCorrectionList", "none, y", "0 []"},
            {"GetExtendedBackAngleCorrection", "S, own, 0", "0 ~ ~"},
            {"GetExtendedEyePointPosition", "S, own, eye", "0 {~ ~ ~}"},
            {"GetBackLineLength_mm", "S", "500"},
            {"GetBackLineLength_mm", "none", "635"},
        });
}
