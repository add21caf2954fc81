// The readers of the vision checks.

#include "ReaderTest.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKFieldsOfViewConfig.h"
#include "VEXMELKOpticalPropsOfWSConfig.h"

class VisionTest : public ReaderTest
{
protected:
    // The manager has no object for the windscreen: its creator keeps it.
    VEXMELKConfig& Object(const std::string& configuration) override
    {
        if (configuration != "OpticalPropsOfWS")
            return ReaderTest::Object(configuration);
        m_Windscreen = CATHandle<VEXMELKOpticalPropsOfWSConfig>::Create(
            CATUnicodeString(directory.Path()), "Vision\\Windscreen.xml");
        return *m_Windscreen.Get();
    }

private:
    CATHandle<VEXMELKOpticalPropsOfWSConfig> m_Windscreen;
};

TEST_F(VisionTest, EveryValueOfTheCategoryOrOfDefaultOrItsOwnDefault)
{
    const Reader readers[] = {
        {"Vision/VisionCone.xml", "VisionCone", "/definition",
            "cone_angle:deg horizontal_axis_angle:deg vertical_axis_angle:deg cone_length:mm"},
        {"Vision/VisionPoints.xml", "VisionPoints", "/definition",
            "top_angle:deg bottom_angle:deg horizontal_angle:deg"},
        {"Vision/VisionPlanes.xml", "Pyramid", "/definition",
            "front_angle:deg driver_angle:deg passenger_angle:deg middle_plane_angle:deg"},
        {"Vision/APillar.xml", "APillar", "/definition",
            "top_angle:deg bottom_angle:deg driver_angle:deg passenger_angle:deg eye_triangle_side:mm "
            "eye_triangle_base:mm touch_line_angle:deg"},
        {"Vision/Windscreen.xml", "OpticalPropsOfWS", "/definition",
            "gridOriginX:mm gridOriginY:mm gridOriginZ:mm gridXSpace:mm gridYSpace:mm fromInside:flag=true "
            "reqValue:deg AreqValue:deg BreqValue:deg"},
        {"Vision/OpticalDistortion.xml", "OpticalDistortion", "/definition", "dcRadius:mm dcDensity"},
        {"Toolbox/Wipers.xml", "Wipers", "/definition", "a_field:number=-1 b_field:number=-1 c_field:number=-1"},
        {"Vision/FieldsOfView.xml", "FieldsOfView", "/definition",
            "threshold1:mm threshold2:mm threshold3:mm threshold4:mm"},
        {"Vision/DirectView3D.xml", "DirectView3D", "/definition",
            "ComputationType>ComputationTypeText ViewRange:radians Direction>DirectionText", "GetStandardData", "S, x",
            1, 1},
    };
    for (const Reader& reader : readers)
        ExpectCategory(reader);
}

TEST_F(VisionTest, RayDirection)
{
    const auto category = [](const std::string& name, const std::string& direction)
    { return "<category name='" + name + "' rayDirection='" + direction + "'/>"; };
    WriteDefault("Vision/MultipleReflection.xml",
        Document(Standard("S", category("x", " XDirection ") + category("case", "xdirection") +
                                   category("standard", "standard") + "<category name='bare'/>") +
                 Standard("T", category("default", "XDirection") + category("standard", "standard") +
                                   "<category name='bare'/>")));
    Expect("MultipleReflection", {
                                     {"GetStandardData", "S, x", "1 {1}"},
                                     {"GetStandardData", "S, case", "1 {0}"},
                                     {"GetStandardData", "S, standard", "1 {0}"},
                                     {"GetStandardData", "S, bare", "1 {0}"},
                                     {"GetStandardData", "S, unknown", "0 {~}"},
                                     {"GetStandardData", "T, bare", "1 {1}"},
                                     {"GetStandardData", "T, unknown", "1 {1}"},
                                     {"GetStandardData", "T, standard", "1 {0}"},
                                     {"GetStandardData", "unknown, x", "0 {~}"},
                                 });
}

TEST_F(VisionTest, CloseRangeVisibility)
{
    const std::string file = "Vision/CloseRangeVisibility.xml";
    const auto reader = [&](const std::string& fields) { return Reader{file, "CRV", "/definition", fields}; };
    ExpectElementOfEither(reader("radius=keep height=keep visibleRayCount=keep"), "<cylinder @/>");
    ExpectElementOfEither(reader("param1=keep param2=keep"), "<death_zone @/>");
    ExpectElementOfEither(reader("type=keep"), "<area @/>");
    ExpectElementOfEither(reader("front_offset:mm=2000mm driver_side_extension:mm=700mm "
                                 "passenger_side_extension:mm=900mm"),
        "<area type='front_view' @/>");

    const std::string lengths = " front_offset='1' driver_side_extension='2' passenger_side_extension='3'/>";
    WriteDefault(file, Document(Standard("S", Category("x", "<area type='Front_view'" + lengths) +
                                                  Category("typeless", "<area" + lengths) + Category("bare", ""))));
    Expect("CRV", {
                      {"GetStandardData", "S, x", "1 {~ ~ ~ Front_view 2000mm 700mm 900mm ~ ~}"},
                      {"GetStandardData", "S, typeless", "1 {~ ~ ~ ~ 2000mm 700mm 900mm ~ ~}"},
                      {"GetStandardData", "S, bare", "1 {~ ~ ~ ~ 2000mm 700mm 900mm ~ ~}"},
                      {"GetStandardData", "S, unknown", "0 {~ ~ ~ ~ 2000mm 700mm 900mm ~ ~}"},
                      {"GetStandardData", "unknown, x", "0 {~ ~ ~ ~ 2000mm 700mm 900mm ~ ~}"},
                  });
    VEXMELKCRVConfigDefinition callers;
    callers.type = "front_view";
    EXPECT_TRUE(Manager().GetCRVConfig()->GetStandardData("S", "typeless", callers));
    EXPECT_EQ(callers.front_offset, "1mm") << "the caller's type counts where the file has none";
}

TEST_F(VisionTest, FieldsEveryAttributeAndItsUnit)
{
    const auto expect = [this](const std::string& configuration, const std::string& record, const std::string& fields,
                            const std::string& element)
    {
        const Reader reader = {
            "Vision/" + configuration + ".xml", configuration, "/definition/fields/" + record, fields};
        ExpectElement(reader, element);
        ExpectUntouched(reader, Document(Standard("S", Category("x", ""))), 1);
    };
    const std::string types[] = {"A", "B", "C"};
    for (int type = 0; type < 3; ++type)
    {
        const std::string field = "<field type='" + types[type] + "' ";
        expect("FieldsOfView", std::to_string(type), "offset:mm", field + "@/>");
        for (const std::string index : {"0", "4"})
            expect("FieldsOfView", std::to_string(type) + "/intervals/" + index,
                "top_angle:deg bottom_angle:deg driver_angle:deg passenger_angle:deg",
                field + "><interval index='" + index + "' @/></field>");
    }
    const std::string angles = "top_angle:deg bottom_angle:deg driver_angle:deg offset:mm=0mm";
    expect("ERFieldsOfView", "0", angles, "<field type='extended A' @/>");
    expect("ERFieldsOfView", "1", angles, "<field type='reduced B' @/>");

    // Each area has its own attributes, and leaves those of the others.
    const auto area = [&](const std::string& name, const std::string& type, const std::string& fields)
    {
        expect("ERFieldsOfView", "1/" + name, fields,
            "<field type='reduced B'><deep><subtract type='" + type + "' @/></deep></field>");
    };
    area("upper_area", "upper area",
        "bottom_angle:deg A1_driver_angle:deg A2_area_width:mm upper_area_default driver_angle:unread=keep "
        "cut_out_width:unread=keep lower_area_default:unread=keep side_area_default:unread=keep "
        "extended_a_field_default:unread=keep");
    area("side_area", "side area",
        "driver_angle:deg side_area_default bottom_angle:unread=keep A1_driver_angle:unread=keep "
        "A2_area_width:unread=keep cut_out_width:unread=keep upper_area_default:unread=keep "
        "lower_area_default:unread=keep extended_a_field_default:unread=keep");
    area("lower_area", "lower area",
        "bottom_angle:deg cut_out_width:mm lower_area_default A1_driver_angle:unread=keep A2_area_width:unread=keep "
        "driver_angle:unread=keep upper_area_default:unread=keep side_area_default:unread=keep "
        "extended_a_field_default:unread=keep");
    area("extended_a_field", "extended a-field",
        "extended_a_field_default bottom_angle:unread=keep A1_driver_angle:unread=keep A2_area_width:unread=keep "
        "driver_angle:unread=keep cut_out_width:unread=keep upper_area_default:unread=keep "
        "lower_area_default:unread=keep side_area_default:unread=keep");
}

TEST_F(VisionTest, FieldsOfDefaultFirstThenThoseOfTheCategory)
{
    const auto interval = [](const std::string& index, const std::string& top)
    { return "<interval index='" + index + "' top_angle='" + top + "'/>"; };
    const auto field = [](const std::string& type, const std::string& contents, const std::string& offset = "")
    { return "<field type='" + type + "'" + offset + ">" + contents + "</field>"; };
    WriteDefault("Vision/FieldsOfView.xml",
        Document(Standard("S", Category("default", field("A", interval("0", "1") + interval("1", "2"), " offset='5'") +
                                                       field("B", interval("4", "3"), " offset='6'") +
                                                       field("B", "", " offset='7'")) +
                                   Category("x", "<deep>" + field("A", "<deep>" + interval("1", "8") + "</deep>") +
                                                     "</deep>" + field("a", interval("2", "9")) + field(" C ", "") +
                                                     field("D", "") + "<field/>")) +
                 Standard("own", Category("x", field("C", interval("3", "1"), " offset='2'"))) +
                 Standard("indices",
                     Category("default",
                         field("A", interval("-1", "1") + interval("5", "2") + interval("x", "3") + interval("", "4") +
                                        "<interval top_angle='5'/>" + interval("99999999999", "6") +
                                        interval("1.5", "7") + interval(" 3 ", "8") + interval("4294967296", "9")))) +
                 "<standard name='obsolete' threshold1='1'>" + field("A", "") + "</standard>"));
    const auto ask = [this](const char* standard, const char* category, VEXMELKFieldsOfViewConfigDefinition& definition)
    {
        std::string text =
            Manager().GetFieldsOfViewConfig()->GetStandardData(standard, category, definition) ? "1" : "0";
        for (int type = 0; type < 3; ++type)
        {
            const VEXMELKFOVField& read = definition.fields[type];
            if (read.present)
                text += std::string(1, ' ') + "ABC"[type] + read.offset.ConvertToChar();
            for (int index = 0; index < 5; ++index)
                if (read.intervals[index].present)
                    text += " " + std::to_string(index) + ":" + read.intervals[index].top_angle.ConvertToChar();
        }
        return text;
    };
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"S", "x", "1 A 0:1deg 1:8deg B7mm 4:3deg C"},
        {"S", "default", "1 A5mm 0:1deg 1:2deg B7mm 4:3deg"},
        {"S", "unknown", "1 A5mm 0:1deg 1:2deg B7mm 4:3deg"},
        {"own", "x", "1 C2mm 3:1deg"},
        {"own", "unknown", "0"},
        {"indices", "x", "1 A 1:7deg 3:8deg"},
        {"obsolete", "default", "0"},
        {"unknown", "x", "0"},
    };
    for (const auto& [standard, category, answer] : rows)
    {
        VEXMELKFieldsOfViewConfigDefinition fresh;
        EXPECT_EQ(ask(standard, category, fresh), answer) << standard << " " << category;
    }
    VEXMELKFieldsOfViewConfigDefinition used;
    ask("own", "x", used);
    EXPECT_EQ(ask("S", "default", used), "1 A5mm 0:1deg 1:2deg B7mm 4:3deg C2mm 3:1deg") << "nothing is cleared";
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
}

TEST_F(VisionTest, ReducedFieldsOfDefaultFirstThenThoseOfTheCategory)
{
    const auto reduced = [](const std::string& contents)
    { return "<field type='reduced B' top_angle='1'>" + contents + "</field>"; };
    WriteDefault("Vision/ERFieldsOfView.xml",
        Document(Standard("S",
                     Category("default", "<field type='extended A' offset='5'><subtract type='side area'/></field>" +
                                             reduced("<subtract type='upper area' A2_area_width='6'/><subtract "
                                                     "type='lower area' cut_out_width='7'/>")) +
                         Category("x", reduced("<subtract type='lower area'/><subtract type='Side area'/><subtract/>") +
                                           "<field type='Extended A' offset='8'/><field offset='9'/>")) +
                 Standard("own", Category("x", reduced("<subtract type='extended a-field'/>"))) +
                 "<standard name='obsolete'>" + reduced("") + "</standard>"));
    const auto ask = [this](
                         const char* standard, const char* category, VEXMELKERFieldsOfViewConfigDefinition& definition)
    {
        std::string text =
            Manager().GetERFieldsOfViewConfig()->GetStandardData(standard, category, definition) ? "1" : "0";
        for (const VEXMELKERFOVField& read : definition.fields)
        {
            text += read.present ? std::string(" ") + read.offset.ConvertToChar() : " -";
            for (const VEXMELKERFOVSubtractArea* area :
                {&read.upper_area, &read.side_area, &read.lower_area, &read.extended_a_field})
                text += !area->present ? " -"
                                       : std::string(" +") + area->A2_area_width.ConvertToChar() +
                                             area->cut_out_width.ConvertToChar();
        }
        return text;
    };
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"S", "x", "1 5mm - - - - 0mm +6mm - + -"},
        {"S", "default", "1 5mm - - - - 0mm +6mm - +7mm -"},
        {"S", "unknown", "1 5mm - - - - 0mm +6mm - +7mm -"},
        {"own", "x", "1 - - - - - 0mm - - - +"},
        {"own", "unknown", "0 - - - - - - - - - -"},
        {"obsolete", "default", "0 - - - - - - - - - -"},
        {"unknown", "x", "0 - - - - - - - - - -"},
    };
    for (const auto& [standard, category, answer] : rows)
    {
        VEXMELKERFieldsOfViewConfigDefinition fresh;
        EXPECT_EQ(ask(standard, category, fresh), answer) << standard << " " << category;
    }
    VEXMELKERFieldsOfViewConfigDefinition used;
    ask("own", "x", used);
    EXPECT_EQ(ask("S", "default", used), "1 5mm - - - - 0mm +6mm - +7mm +") << "nothing is cleared";
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
}

TEST_F(VisionTest, Mirrors)
{
    const std::string file = "Vision/Mirror.xml";
    const auto reader = [&](const std::string& fields) {
        return Reader{file, "Mirror", "/definition", fields, "GetStandardData", "S, x, p"};
    };
    ExpectElement(reader("Plane X:mm XREL ReqTotalCoverage"), "<InstructionField PositionType='p' @/>");
    const Reader ofStandard = reader("USBackLineDistance:mm USAngle:deg infinite_size:mm");
    ExpectAll(ofStandard, Document("<standard name='S' @><category name='x' USAngle='1'/></standard>"));
    ExpectNone(ofStandard, Document(Standard("S", "<category name='x' USAngle='1'/>")));
    ExpectNone(ofStandard, Document(Standard("s", "<category name='x'/>", "USAngle='1'")), 0);

    WriteDefault(file, Document(R"(
        <standard name="S" USAngle="9">
          <category name="x">
            <InstructionField PositionType="left" Plane="Road" XREL="r"><deep><Point X="1" XREL="a" Y="2" YREL="b" R="3"
              Z="9" ZREL="z"/></deep><Point/></InstructionField>
            <InstructionField/><InstructionField PositionType="left" Plane="second"/>
            <InstructionField PositionType="right" Plane="WALL">
              <Point TargetOnRoad="true" X="1" XREL="a" Z="9" ZREL="z"/><Point TargetOnRoad="TRUE" X="1" XREL="a" Z="9"
              ZREL="z"/><Point Z="8" R="7"/></InstructionField></category>
          <category name="bare"/></standard>)"));
    const std::string none = "{~ ~ ~ ~ ~} "; // a point of the caller's, which stays
    Expect(
        "Mirror", {
                      {"GetStandardData", "S, x, left",
                          "1 {'' 9deg '' left road '' r [" + none + none + "{1mm a 2mm b 3mm} {'' '' '' '' ''}] ''}"},
                      {"GetStandardData", "S, x, right",
                          "1 {'' 9deg '' right wall '' '' [" + none + none + none +
                              "{1mm a '' '' ''} {9mm z '' '' ''} {8mm '' '' '' 7mm}] ''}"},
                      {"GetStandardData", "S, x, Left", "1 {'' 9deg '' ~ ~ ~ ~ [] ~}"},
                      {"GetStandardData", "S, unknown, left", "0 {'' 9deg '' ~ ~ ~ ~ [] ~}"},
                      {"GetIFNamesList", "S, x", "1 [left left right]"},
                      {"GetIFNamesList", "S, bare", "1 []"},
                      {"GetIFNamesList", "S, unknown", "0 [~]"},
                      {"GetPosition", "S, x, right", "right"},
                      {"GetPosition", "S, x, Right", "left"},
                      {"GetPosition", "S, bare, right", "''"},
                      {"GetPosition", "S, unknown, right", "''"},
                  });
}

TEST_F(VisionTest, DirectViewPoints)
{
    const std::string file = "Vision/DirectView.xml";
    Reader angles = {file, "DirectView", "/definition", "MaxTopAngle:mm MaxBottomAngle:mm MPAzimuth:mm MPElevation:mm",
        "GetStandardData", "S, x", 1, 1};
    ExpectAll(angles, Document(Standard("S", "<category name='X'/><category name='default' @/>")));
    ExpectAll(angles, Document(Standard("S", "<category name='default' MPAzimuth='1'/><category name='x' @/>")));
    ExpectNone(angles, Document(Standard("S", "<category name='x'/><category name='default' MPAzimuth='1'/>")));
    ExpectMissing(angles);

    WriteDefault(file, OneCategory("MPAzimuth='30deg'", R"(
        <deep><Point X="1.5" Y="2mm" Z="3cm" name="n" reference="CarFront"/></deep><Point reference="CarBack"/>
        <Point X="1deg" Y="-0,5" name="" reference=" EyesMidpoint "/><Point Z="1" name="m" reference="carFront"/>)"));
    const std::string points = "[[1500 2 30] [0 0 0] [0 -500 0] [0 0 1000]]";
    for (const bool comma : {false, true})
    {
        VEXMELKUtilities::SetCommaDelimeter(comma);
        Release();
        // Names and references of the query before stay.
        Expect("DirectView",
            {
                {"GetStandardData", "S, x", "1 {'' '' 30deg '' " + points + " [~ ~ ~ ~ n '' '' m] [~ ~ ~ ~ 1 2 3 0]}"},
                {"GetStandardData", "s, x", "1 {~ ~ ~ ~ [] [] []}"},
            });
    }
}

TEST_F(VisionTest, DirectView3DTypesAndDirections)
{
    const std::string file = "Vision/DirectView3D.xml";
    ExpectElement({file, "DirectView3D", "/definition", "Distance:millimetres>TargetDistance type>TargetTypeText"},
        "<deep><Target @/></deep><Target Distance='1'/>");
    ExpectMissing({file, "DirectView3D", "/definition",
        "ComputationType:integer TargetType:integer TargetDistance:number "
        "Orientation:integer DirectionAngle:number TargetTypeText",
        "GetStandardData", "S, x", 1, 1});

    WriteDefault(file, Document(R"(
        <standard name="S"><category name="default" Direction="left" ComputationType="Ambinocular" ViewRange="180">
          <Target type="Parallel" Distance="9"/></category>
          <category name="x" Direction=" -90.5 "/><category name="y" ViewRange="1mm" ComputationType="ambinocular"
            Direction="right"><Target type="Spherical" Distance="2cm"/></category></standard>)"));
    const std::vector<Question> questions = {
        {"GetStandardData", "S, unknown", "1 {Ambinocular Parallel left 1 0 3.14159265 9 2 0}"},
        {"GetStandardData", "S, y", "1 {ambinocular Spherical right 0 2 0 20 3 0}"},
        {"GetStandardData", "S, x", "1 {Ambinocular ~ -90.5 1 ~ 3.14159265 ~ 4 -1.57952297}"},
        {"DirectionFromString", "", "0 0"},
        {"DirectionFromString", "frontward", "0 0"},
        {"DirectionFromString", "backward", "0 1"},
        {"DirectionFromString", "left", "0 2"},
        {"DirectionFromString", "right", "0 3"},
        {"DirectionFromString", "45", "0.785398163 4"},
        {"DirectionFromString", "22,5deg", "0.392699082 4"},
        {"DirectionFromString", "Left", "0 4"},
        {"ComputationTypeFromString", "Monocular", "0"},
        {"ComputationTypeFromString", "Ambinocular", "1"},
        {"ComputationTypeFromString", "", "0"},
        {"TargetTypeFromString", "Parallel", "0"},
        {"TargetTypeFromString", "Perpendicular", "1"},
        {"TargetTypeFromString", "Spherical", "2"},
        {"TargetTypeFromString", "parallel", "1"},
        {"TargetTypeFromString", "", "1"},
    };
    Expect("DirectView3D", questions);
    VEXMELKUtilities::SetCommaDelimeter(1);
    Release();
    Expect("DirectView3D", {{"GetStandardData", "S, x", "1 {Ambinocular ~ -90,5 1 ~ 3.14159265 ~ 4 -1.57952297}"}});
}
