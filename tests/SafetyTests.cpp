// The readers of the exterior and safety checks.

#include "ReaderTest.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKPPOffsetConfig.h"
#include "VEXMELKPedestrianProtectionConfig.h"

#include <regex>

using SafetyTest = ReaderTest;

TEST_F(SafetyTest, PedestrianProtection)
{
    const std::string file = "Safety/PedestrianProtection.xml";
    const auto reader = [&](const std::string& record, const std::string& fields) {
        return Reader{file, "PedestrianProtection", "/definition/" + record, fields};
    };
    const std::string curve =
        "angle:deg length:mm offset:mm=0.0mm radiusLower:mm radiusUpper:mm threshold:mm use_lower_end:flag "
        "use_upper_end:flag use_left:flag use_right:flag tangent_selection=lowest curve_offset_type=WrapAround "
        "curve_offset:mm=0.0mm warning:flag alternative_angle:deg=40.0deg";
    const std::string emptyCurve = std::regex_replace(curve, std::regex("=[^ ]*"), "") + " defined:flag";
    for (const std::string& type : Split("UpperBumper LowerBumper CornerOfBumper BonnetLeadingEdge BonnetSide "
                                         "WrapAround1 WrapAround2 WrapAround3 BonnetRear",
             " "))
    {
        std::string record = type;
        record[0] = static_cast<char>(std::tolower(record[0]));
        ExpectElementOfEither(
            reader(record, curve), "<curve type='" + type + "' @/><curve type='" + type + "' angle='1'/>");
        ExpectNone(reader(record, emptyCurve), OneCategory("", "<curve type='bonnetSide' angle='1'/><curve/>"));
        ExpectMissing(reader(record, emptyCurve));
    }
    for (const std::string area : {"bonnetTop1", "bonnetTop2"})
    {
        const std::string fields = "name splitM:integer splitN:integer detail:flag";
        ExpectElementOfEither(reader(area, fields), "<" + area + " @/><" + area + " name='1'/>");
        ExpectNone(reader(area, fields), OneCategory("", "<bonnetTop name='1' splitM='1'/>"));
        for (const std::string side : {"side", "front", "rear"})
        {
            std::string children;
            for (const std::string other : {"side", "front", "rear"})
                children += "<" + other + (other == side ? " @/>" : " limit='1' offset='1'/>");
            const Reader ofSide = reader(
                area + "/" + side, std::string("limit offset:mm offset_type ") +
                                       (side == "front" ? "limit2 checkDist:mm" : "limit2:unread checkDist:unread"));
            ExpectElementOfEither(ofSide, "<" + area + ">" + children + "</" + area + ">");
            const std::string ofDefault = "<" + area + "><" + side + " limit='1'/></" + area + ">";
            ExpectNone(
                ofSide, Document(Standard("S", Category("x", "<" + area + "/>") + Category("default", ofDefault))));
        }
    }
}

TEST_F(SafetyTest, PedestrianProtectionOffsets)
{
    WriteDefault("Safety/PedestrianProtectionOffset.xml", OneCategory(""));
    VEXMELKPPOffsetDefinition callers;
    callers.curves.add(VEXPPOffsetCurveDefinition());
    EXPECT_TRUE(Manager().GetPPOffsetConfig()->GetStandardData("S", "x", callers));
    EXPECT_EQ(callers.curves.size(), 1) << "without a section the caller's curves stay";
}

TEST_F(SafetyTest, HeadImpactZones)
{
    const std::string file = "Safety/HeadImpact.xml";
    const auto zones = Table<2>(CaseFile("headImpactZones"));
    std::string others;
    for (const auto& zone : zones)
        others += "<" + zone[0] + "/>";
    std::size_t begin = 0;
    for (const auto& [zone, fields] : zones)
    {
        const std::string element = "<" + zone + " @/>";
        const Reader reader = {file, "HeadImpact", "/definition", fields, "Get" + zone + "SData", "S"};
        ExpectAll(reader, Document(Standard("S", element + "<" + zone + " MinVAngle='1'/>")));
        ExpectNone(reader, Document(Standard("S", element)));
        ExpectUntouched(reader, Document(Standard("S", Category("default", "<" + zone + " MinVAngle='1'/>"))), 0);
        ExpectUntouched(reader, Document(Standard("s", element)), 0);

        // All of them: up to the first that is missing.
        std::string attributes = others;
        attributes.replace(begin, element.size() - 2, element);
        const Reader whole = {file, "HeadImpact", "/definition/" + zone, fields, "GetStandardData", "S"};
        ExpectAll(whole, Document(Standard("S", attributes)));
        ExpectUntouched(whole, Document(Standard("S", others.substr(0, begin))), 0);
        Reader last = whole;
        last.result = zone == "StiffenerBrace" ? 1 : 0;
        ExpectAll(last, Document(Standard("S", others.substr(0, begin) + element)));
        begin += element.size() - 2;
    }
}

TEST_F(SafetyTest, CrashBarriers)
{
    WriteDefault("OVA/CrashBarriers.xml", Document(Standard("S", Category("x", R"(<barrier/>
        <barrier Overlapping='50' shape='RCAR 2004 Rear' Position='rear' OverlappingSide='rear'/>
        <barrier shape='RCAR 2006' Position='left' OverlappingSide='right'/>
        <barrier Overlapping='mid_position' shape='RCAR 2004 Front' Position='right' OverlappingSide='front'/>
        <barrier shape=' RCAR 2006 ' Position='front' OverlappingSide='left'/>
        <barrier Overlapping='Mid_position' shape='rcar 2006' Position='Rear' OverlappingSide='Right'/>
        <barrier Overlapping='12,5' shape='' Position='x' OverlappingSide='x'/>)") +
                                                                     Category("empty", ""))));
    VEXArray<VEXMELKBarrierDefinition> barriers;
    EXPECT_TRUE(Manager().GetCrashBarriersConfig()->GetStandardData("S", "x", barriers));
    std::ostringstream text;
    for (const VEXMELKBarrierDefinition& read : barriers)
        text << read.Overlapping << (read.midPosition ? "m " : " ") << read.shape << read.Position
             << read.OverlappingSide << "; ";
    EXPECT_EQ(text.str(), "0 000; 0.5 111; 0.5 221; 1m 030; 1 200; 0 000; 0.125 000; ");
    Expect("CrashBarriers", "GetStandardData | S, empty = 1 [] | S, unknown = 0 [] | s, x = 0 []");
}

TEST_F(SafetyTest, BarrierShapesStandBelowTheRoot)
{
    const std::string file = "OVA/CrashBarriers.xml";
    const std::string front = "<shape name='RCAR 2004 Front' ";
    WriteDefault(file, Document(front + "Width='1' Depth='2'/><shape name='RCAR 2004 Rear' Width='3'/><shape name='' "
                                        "Width='4'/>"));
    WriteCustomer(file, Document("<shape name='RCAR 2006' Width='5'/>" + front + "Width='6'/>"));
    const std::pair<int, const char*> widths[] = {{0, "6mm"}, {1, "3mm"}, {2, "5mm"}, {3, ""}, {-1, ""}};
    for (const auto& [type, width] : widths)
    {
        VEXMELKShapeDefinition read;
        read.type = static_cast<VEXIMELKCrashBarrier::ShapeType>(type);
        EXPECT_EQ(Manager().GetCrashBarriersConfig()->GetShapeData(read), *width == 0 ? 0 : 1) << type;
        EXPECT_EQ(read.Width, width) << type;
        EXPECT_EQ(read.Depth, "") << type;
    }
}

TEST_F(SafetyTest, Bumpers)
{
    const std::string file = "OVA/Bumpers.xml";
    const std::string profile = "NoseRadius:mm SideRadius:mm NoseAngle:deg SideAngle:deg NoseHeight:mm NoseLength:mm "
                                "Width:mm Height:mm Extension:mm Depth:mm FilletRadius:mm RenderHeight:mm "
                                "RenderDepth:mm RenderDistance:mm CenterLineLength:mm";
    for (const auto& [type, pendulum] : Table<2>("0|MiddlePendulum\n1|RotatedPendulum\n2|ShiftedPendulum"))
    {
        const std::string start = "<" + pendulum + ">";
        const std::string end = "</" + pendulum + ">";
        const auto reader = [&, inputs = "S, x, " + type](const std::string& fields) {
            return Reader{file, "Bumpers", "/bumpers/0", fields, "GetStandardData", inputs};
        };
        ExpectElement(reader("loading Limit:mm Offset:mm Angle:deg=30.0deg"),
            "<deep>" + start + "<deep><bumper @/></deep>" + end + "</deep>" + start + "<bumper Limit='1'/>" + end);
        const std::string used = Standard("S", Category("x", start + "<bumper Profile='p'/>" + end));
        ExpectAll(reader(profile), Document("<Profile name='P' Width='1'/><Profile name='p' @/>" + used));
        ExpectNone(reader(profile), Document("<Profile name='p'/>" + used));
    }
}
