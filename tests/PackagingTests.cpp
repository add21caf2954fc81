// The readers of occupant packaging, report templates and database access.

#include "ReaderTest.h"

using PackagingTest = ReaderTest;

namespace {

constexpr const char* templateFile = "Manikin/ManikinTemplate.xml";

// Attributes of a manikin template that have both a role and a value, then those that have one of them.
constexpr const char* pairs[] = {"torso_length:mm", "torso_angle:deg", "hip_angle:deg", "rump_length:mm",
    "knee_angle:deg", "leg_room:mm", "leg_length:mm", "foot_angle:deg", "foot_length:mm", "foot_flesh_angle:deg",
    "foot_hoffset:mm", "foot_voffset:mm", "lift:mm"};
constexpr const char* roles[] = {"seat_point", "bof_point", "ankle_point", "heel_point", "pedal", "floor", "interior"};
constexpr const char* values[] = {"max_foot_angle:deg", "min_foot_angle:deg", "interior_interval:mm"};

} // namespace

TEST_F(PackagingTest, TemplatesEveryAttributeItsRoleAndItsUnit)
{
    Reader reader = {
        templateFile, "ManikinTemplate", "/definition", "foot_on_floor:flag ", "GetStandardData", "S, x, p, q, 1"};
    for (const std::string pair : pairs)
    {
        const std::string attribute = pair.substr(0, pair.find(':'));
        reader.fields += pair + "=0.0 " + attribute + ":usage>" + attribute + "_usage ";
    }
    for (const std::string role : roles)
        reader.fields += role + ":usage>" + role + "_usage ";
    for (const std::string value : values)
        reader.fields += value + "=0.0 ";
    ExpectElement(reader, "<percentil value='p' @/>");
    ExpectElement(reader, "<percentil value='P' lift='1'/><positioning name='q' @/>");
    ExpectElement(reader, "<percentil value='p'><deep><front_seat @/></deep><front_seat lift='1'/></percentil>");
    ExpectElement(reader, "<positioning name='q'><driver_seat lift='1'/><front_seat @/></positioning>");
    ExpectNone(reader, Document(Standard("S", Category("x", "<percentil value='P' lift='1'/>"))));
    ExpectNone(reader, Document(Standard("S", Category("X", "<percentil value='p' lift='1'/>"))));
}

TEST_F(PackagingTest, TemplatesLaterSourcesOverrideAttributeByAttribute)
{
    const auto attributes = [](int first, const std::string& number)
    {
        const char* names[] = {"torso_length", "rump_length", "leg_room", "leg_length"};
        std::string text;
        for (int index = first; index < 4; ++index)
            text += std::string(names[index]) + "='" + number + "' ";
        return text;
    };
    const auto seats = [&](int first, const std::string& driver, const std::string& back)
    { return "><driver_seat " + attributes(first, driver) + "/><back_seat " + attributes(first, back) + "/>"; };
    WriteDefault(templateFile,
        OneCategory("", "<percentil value='p' foot_on_floor='true' " + attributes(0, "1") + seats(1, "2", "3") +
                            "</percentil><percentil value='p' lift='9'/><percentil/><positioning name='q' " +
                            attributes(2, "4") + seats(3, "5", "6") + "</positioning><positioning name='seatless'/>" +
                            "<positioning name='other'><deep><front_seat/></deep></positioning><deep><positioning "
                            "name='deep'/></deep>"));
    const std::tuple<std::string, std::string> rows[] = {
        {"0", "1mm 2mm 4mm 5mm"},
        {"1", "1mm 1mm 4mm 4mm"},
        {"2", "1mm 3mm 4mm 6mm"},
        {"3", "1mm 1mm 4mm 4mm"},
        {"-1", "1mm 1mm 4mm 4mm"},
    };
    for (const auto& [seat, lengths] : rows)
    {
        std::istringstream texts(lengths);
        std::string torso, rump, room, leg;
        texts >> torso >> rump >> room >> leg;
        EXPECT_EQ(Ask("ManikinTemplate", "GetStandardData", "S, x, p, q, " + seat),
            "1 {2 " + torso + " 0 0.0 0 0 0.0 2 " + rump + " 0 0.0 2 " + room + " 2 " + leg +
                " 0 0.0 0.0 0.0 0 0.0 0 0.0 0 0.0 0 0.0 0 0 0 0.0 0 0 0 1 0 0.0}")
            << seat;
    }
    Expect("ManikinTemplate", {
                                  {"GetPercentilList", "S, x", "1 [p p]"},
                                  {"GetPercentilList", "s, x", "0 [~]"},
                                  {"GetPositioningList", "S, x", "1 [q seatless other]"},
                                  {"GetPositioningList", "s, x", "0 [~]"},
                                  {"IsSeatSupported", "S, x, q, 0", "1"},
                                  {"IsSeatSupported", "S, x, q, 1", "0"},
                                  {"IsSeatSupported", "S, x, q, 2", "1"},
                                  {"IsSeatSupported", "S, x, q, 3", "0"},
                                  {"IsSeatSupported", "S, x, other, 1", "1"},
                                  {"IsSeatSupported", "S, x, other, 0", "0"},
                                  {"IsSeatSupported", "S, x, seatless, 0", "1"},
                                  {"IsSeatSupported", "S, x, seatless, 3", "1"},
                                  {"IsSeatSupported", "S, x, deep, 0", "0"},
                                  {"IsSeatSupported", "s, x, seatless, 0", "0"},
                                  {"GetRole", "unused", "0"},
                                  {"GetRole", "base_data", "1"},
                                  {"GetRole", "250mm", "2"},
                                  {"GetRole", "", "2"},
                                  {"GetRole", "Input", "2"},
                                  {"GetRole", "input", "3"},
                                  {"GetRole", "selection", "3"},
                                  {"GetRole", "output", "4"},
                              });
    WriteDefault(templateFile, OneCategory("", "<percentil value='p' hip_angle=' selection ' pedal='unused'/>"));
    Expect("ManikinTemplate", {{"GetStandardData", "S, x, p, q, 0",
                                  "1 {0 0.0 0 0.0 0 3 selection 0 0.0 0 0.0 0 0.0 0 0.0 0 0.0 0.0 0.0 0 "
                                  "0.0 0 0.0 0 0.0 0 0.0 0 0 0 0.0 0 0 0 0 0 0.0}"}});
}

TEST_F(PackagingTest, SeatingBelts)
{
    const std::string file = "OVA/SeatingBelts.xml";
    ExpectCategory({file, "SeatingBelts", "/definition",
        "EUApproach:flag BackAngleEditAble:flag=true Trans1IsSpecial:flag Trans2IsSpecial:flag Trans3IsSpecial:flag "
        "USLowShiftThreshold:mm USLowXShift:mm USLowZShift:mm PlaneDistP:mm PlaneDistQ:mm PlaneDistR:mm"});

    const std::tuple<std::string, std::string, std::string> elements[] = {
        {"front", "back", "1"}, {"back", "front", "0"}};
    for (const auto& [name, other, isFront] : elements)
    {
        const Reader angles = {file, "SeatingBelts", "/definition",
            "PA1:deg PA2:deg PA1X:deg PA2X:deg QA1:deg QA2:deg QA1X:deg QA2X:deg", "GetSBAnglesData",
            "S, x, " + isFront, 1, 1};
        ExpectElement(angles, "<" + other + " PA1='1'/><deep><" + name + " @/></deep><" + name + " PA2='1'/>");
        ExpectMissing(angles);
        ExpectUntouched(angles, OneCategory("", "<" + other + " PA1='1'/>"), 1);
    }

    const Reader anchor = {file, "SeatingBelts", "/definition",
        "SMin:mm SMax:mm ShL1a:mm ShL2:mm ShL3a:mm ShL3b:mm ShL4:mm ShL1b:mm ShThrA:mm ShThrB:mm ShA1:mm ShA2:mm "
        "ShA2RearAlt:mm ShMulti1a:number ShMulti2a:number ShMulti1b:number ShMulti2b:number",
        "GetSBShAnchorData", "S, x", 1, 1};
    ExpectElement(anchor, "<deep><ShAnchor @/></deep><ShAnchor SMin='1'/>");
    ExpectMissing(anchor);
    ExpectUntouched(
        anchor, Document(Standard("S", Category("x", "") + Category("default", "<ShAnchor SMin='1'/>"))), 1);

    WriteDefault(file, OneCategory("", "<ShAnchor ShA1='5deg' ShMulti1a='1mm' ShMulti2a=' 1,5e1 ' ShMulti1b=''/>"));
    Expect("SeatingBelts", {{"GetSBShAnchorData", "S, x", "1 {'' '' '' '' '' '' '' '' '' '' 5deg '' '' ~ 15 ~ 0}"}});
}

TEST_F(PackagingTest, LocationCurves)
{
    const std::string file = "Manikin/SRPLocationCurves.xml";
    ExpectElement({file, "SRPLocationCurves", "/curves/0",
                      "name a:millimetres b:millimetres c:millimetres z_max:millimetres z_min:millimetres"},
        "<deep><curve @/></deep>");
    WriteDefault(file,
        Document(Standard(
            "S", Category("x", "<curve name='n' a='1' b='x' c='2cm'/><curve b='3'/>"
                               "<curve name=' n ' a='9'/><curve name='' a='9'/><curve name='N' z_min='4' z_max='5'/>") +
                     Category("y", ""))));
    Expect("SRPLocationCurves", {
                                    {"GetStandardData", "S, x", "1 [{n 1 0 20 0 0} {'' 0 3 0 0 0} {N 0 0 0 4 5}]"},
                                    {"GetStandardData", "S, y", "1 []"},
                                    {"GetStandardData", "S, z", "0 []"},
                                    {"GetStandardData", "s, x", "0 []"},
                                });
}

TEST_F(PackagingTest, ReportTemplates)
{
    const std::string file = "ReportTemplates.xml";
    WriteDefault(file, R"(<r>
        <template name="t"><header>base</header></template>
        <template name="text"><header> a &amp; b <b/>c</header><header>second</header><deep><footer>f</footer></deep>
          <feature type="Mirror">m</feature><feature type="Mirror">n</feature><feature type="default">d</feature>
          <deep><feature type="Deep">e</feature></deep><feature type="Empty"/></template>
        <template name="others"><header><!-- c -->x</header><footer><![CDATA[x]]></footer>
          <feature type="Mirror"><b/>x</feature><feature type="mirror">y</feature></template>
        <template name="firsts"><header/><header>x</header><footer><?p?>x</footer></template>
        <template name="text"/><template/><deep><template name="deep"/></deep></r>)");
    Expect("ReportGen", {
                            {"GetTemplates", "", "[t text others firsts text]"},
                            {"GetTemplateHeaderData", "t", "1 base"},
                            {"GetTemplateFooterData", "t", "0 ~"},
                            {"GetTemplateHeaderData", "text", "1  a & b "},
                            {"GetTemplateFooterData", "text", "1 f"},
                            {"GetTemplateFeatureData", "text, Mirror", "1 m"},
                            {"GetTemplateFeatureData", "text, mirror", "1 d"},
                            {"GetTemplateFeatureData", "text, Deep", "1 d"},
                            {"GetTemplateFeatureData", "text, Empty", "0 ~"},
                            {"GetTemplateHeaderData", "others", "0 ~"},
                            {"GetTemplateFooterData", "others", "0 ~"},
                            {"GetTemplateFeatureData", "others, Mirror", "0 ~"},
                            {"GetTemplateFeatureData", "others, Other", "0 ~"},
                            {"GetTemplateHeaderData", "firsts", "0 ~"},
                            {"GetTemplateFooterData", "firsts", "0 ~"},
                            {"GetTemplateHeaderData", "deep", "0 ~"},
                            {"GetTemplateFeatureData", "T, Mirror", "0 ~"},
                        });
    WriteCustomer(file, R"(<c><template name="own"/><template name="t"><footer>customer</footer></template></c>)");
    Expect("ReportGen", {
                            {"GetTemplates", "", "[own t text others firsts]"},
                            {"GetTemplateHeaderData", "t", "0 ~"},
                            {"GetTemplateFooterData", "t", "1 customer"},
                            {"GetTemplateFooterData", "text", "1 f"},
                        });
    directory.Remove("Default");
    directory.Remove("Customer");
    Release();
    Expect("ReportGen", {{"GetTemplates", "", "[]"}, {"GetTemplateHeaderData", "t", "0 ~"}});
}

TEST_F(PackagingTest, DatabaseAccessIsReadFromTheDirectoryItself)
{
    const Reader access = {
        "DBAccess.xml", "DBAccess", "", "host user password db_name>dbName", "GetDBAccessParameters", ""};
    WriteDefault("DBAccess.xml", "<r host='default'/>");
    Expect("DBAccess", {{"GetDBAccessParameters", "", "0 ~ ~ ~ ~"}});
    ExpectAll(access, "<r @/>");
    ExpectNone(access, "<r><r host='1'/></r>");
}
