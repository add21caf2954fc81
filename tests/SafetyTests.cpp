// The readers of the exterior and safety checks.

#include "ReaderTest.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKHeadImpactConfig.h"
#include "VEXMELKPPOffsetConfig.h"
#include "VEXMELKPedestrianProtectionConfig.h"

#include <regex>

namespace {

// Opens the conversions of single attributes.
class OpenPedestrianProtection : public VEXMELKPedestrianProtectionConfig
{
public:
    using VEXMELKPedestrianProtectionConfig::GetCategoryAttributeMap;
    using VEXMELKPedestrianProtectionConfig::GetOptionalBooleanValue;
    using VEXMELKPedestrianProtectionConfig::GetOptionalIntValue;
    using VEXMELKPedestrianProtectionConfig::GetOptionalStringValue;
    using VEXMELKPedestrianProtectionConfig::VEXMELKPedestrianProtectionConfig;
};

} // namespace

using SafetyTest = ReaderTest;

TEST_F(SafetyTest, EveryValueOfTheCategoryOrOfDefaultOrItsOwnDefault)
{
    const Reader readers[] = {
        {"OVA/NumberPlates.xml", "NumberPlates", "/definition",
            "FrontLowerLimit:mm BackLowerLimit:mm FrontUpperLimit:mm BackUpperLimit:mm FrontRightLimit:mm "
            "FrontLeftLimit:mm BackRightLimit:mm BackLeftLimit:mm"},
        {"OVA/ChildProtection.xml", "ChildProtection", "/definition",
            "CPShDist:mm CPShRadius:mm CPBackDist:mm CPTopAngle:deg CPShCShift:mm CPVolVertAngle:deg "
            "CPVolHorizAngle:deg CPVolHorizOffset:mm CPAustralianNormOffset:mm CPUseCShift:flag CPAustralianNorm:flag"},
        {"OVA/FreeSpace.xml", "FreeSpace", "/definition",
            "FSFrontAngle:deg FSMidAngle:deg FSBackAngle:deg FSSideAngle:deg FSNoseLength:mm FSHoleDistance:mm "
            "FSHoleHight:mm FSHoleLength:mm FSBottomHight:mm FSNoseHight:mm FSBodyHight:mm FSMidLength:mm "
            "FSNoseWidth:mm FSBodyWidth:mm"},
        {"OVA/WheelCovering.xml", "WheelCovering", "/definition",
            "FrontAlpha:deg FrontBeta:deg BackAlpha:deg BackBeta:deg BottomOffset:mm=keep TriangleHeight:mm "
            "LineHeight:mm HasSpecialBack:flag AlgorithmType Tolerance=0.0m"},
        {"Safety/PedestrianProtection.xml", "PedestrianProtection", "/definition",
            "CuttingStep:mm>cuttingStep WrapAroundUseWindshield:flag>wrapAroundUseWindshield"},
    };
    for (const Reader& reader : readers)
        ExpectCategory(reader);
}

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
    for (const std::string type : {"UpperBumper", "LowerBumper", "CornerOfBumper", "BonnetLeadingEdge", "BonnetSide",
             "WrapAround1", "WrapAround2", "WrapAround3", "BonnetRear"})
    {
        std::string record = type;
        record[0] = static_cast<char>(std::tolower(record[0]));
        ExpectElementOfEither(
            reader(record, curve), "<curve type='" + type + "' @/><curve type='" + type + "' angle='1'/>");
        const std::string other = "<curve type='bonnetSide' angle='1'/><curve angle='1'/>";
        ExpectNone(reader(record, emptyCurve), OneCategory("", other));
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
            const std::string boundary = "limit offset:mm offset_type ";
            const Reader ofSide = reader(area + "/" + side,
                boundary + (side == "front" ? "limit2 checkDist:mm" : "limit2:unread checkDist:unread"));
            ExpectElementOfEither(ofSide, "<" + area + ">" + children + "</" + area + ">");
            ExpectNone(ofSide, Document(Standard("S",
                                   Category("x", "<" + area + "/>") +
                                       Category("default", "<" + area + "><" + side + " limit='1'/></" + area + ">"))));
        }
    }
    ExpectElementOfEither(reader("bonnetRearTemplate", "startradius step"), "<bonnetRearTemplate @/>");
    ExpectNone(reader("bonnetRearTemplate", "startradius step"), OneCategory("", "<bonnetreartemplate step='1'/>"));
    ExpectMissing(reader("bonnetRearTemplate", "startradius step"));

    // What single values give when they are there, missing, or no integers.
    directory.Write(file, OneCategory("n='25' d='2.5' x='x' far='2147483648' yes='TRUE' no='yes'"));
    const auto config = CATHandle<OpenPedestrianProtection>::Create(CATUnicodeString(directory.Path()));
    CATIDOMNamedNodeMap_var attributes;
    config->GetCategoryAttributeMap("S", "x", attributes);
    const std::tuple<const char*, const char*, int, int> rows[] = {
        {"n", "25mm", 25, 0},
        {"d", "2.5mm", 2, 0},
        {"x", "x", -7, 0},
        {"far", "2147483648mm", -7, 0},
        {"yes", "TRUE", -7, 1},
        {"no", "yes", -7, 0},
        {"missing", "m", -7, 1},
    };
    for (const auto& [name, text, number, flag] : rows)
    {
        EXPECT_EQ(config->GetOptionalStringValue(attributes, name, "mm", "m"), text) << name;
        EXPECT_EQ(config->GetOptionalIntValue(attributes, name, -7), number) << name;
        EXPECT_EQ(config->GetOptionalBooleanValue(attributes, name, 1), flag) << name;
    }
    EXPECT_EQ(config->GetOptionalBooleanValue(NULL_var, "yes", 0), 0);
}

TEST_F(SafetyTest, PedestrianProtectionOffsets)
{
    const std::string file = "Safety/PedestrianProtectionOffset.xml";
    const auto reader = [&](const std::string& record, const std::string& fields) {
        return Reader{file, "PPOffset", "/definition" + record, fields};
    };
    const Reader category = reader("", "calculation_type offset:metres");
    ExpectAll(category, Document(Standard("S", "<category name='default' offset='1'/><category name='x' @/>")));
    ExpectAll(category, Document(Standard("S", "<category name='x'/><category name='default' @/>")));
    ExpectNone(category, OneCategory(""));
    ExpectElementOfEither(reader("", "definition_type profile_type x_step:metres y_step:metres ref_part"),
        "<section_based @/><section_based x_step='9'/>");
    ExpectElementOfEither(reader("/curves/0", "type inner_offset:metres outer_offset:metres"),
        "<section_based><deep><curve @/></deep></section_based>");
    ExpectElementOfEither(reader("/outerRegion", "measurement_type param_x:metres"),
        "<section_based><outer_region @/><outer_region param_x='9'/></section_based>");
    ExpectNone(reader("/outerRegion", "measurement_type param_x:metres"),
        Document(Standard("S", Category("x", "<section_based/>") +
                                   Category("default", "<section_based><outer_region param_x='9'/></section_based>"))));

    WriteDefault(file,
        Document(
            Standard("S", "<category name='x' offset='25' calculation_type='c'/>") +
            Standard("T", Category("x", "<section_based><curve type='a' inner_offset='1cm' outer_offset='x'/><curve/>"
                                        "<curve inner_offset='1'/></section_based>"))));
    Expect(
        "PPOffset", {
                        {"GetStandardData", "S, x", "1 {c ~ ~ ~ 0 0 [] {~ ~} 0.025}"},
                        {"GetStandardData", "S, y", "0 {~ ~ ~ ~ 0 0 [] {~ ~} 0}"},
                        {"GetStandardData", "s, x", "0 {~ ~ ~ ~ 0 0 [] {~ ~} 0}"},
                        {"GetStandardData", "T, x", "1 {'' '' '' '' 0 0 [{a 0.01 0} {'' 0 0} {'' 0.001 0}] {'' 0} 0}"},
                    });
    VEXMELKPPOffsetDefinition callers;
    callers.curves.add(VEXPPOffsetCurveDefinition());
    EXPECT_TRUE(Manager().GetPPOffsetConfig()->GetStandardData("S", "x", callers));
    EXPECT_EQ(callers.curves.size(), 1) << "without a section the caller's curves stay";
}

TEST_F(SafetyTest, HeadImpactZones)
{
    const std::string file = "Safety/HeadImpact.xml";
    const std::string vertical = "MinVAngle:deg MaxVAngle:deg ";
    const std::string horizontal = "MinHLeftAngle:deg MaxHLeftAngle:deg MinHRightAngle:deg MaxHRightAngle:deg ";
    const std::string sides = "HLeftAngle:deg HRightAngle:deg ";
    const std::pair<std::string, std::string> zones[] = {
        {"HeadGravityCenter", "CG_FX_Offset:mm CG_FZ_Offset:mm CG_RX_Offset:mm CG_RZ_Offset:mm"},
        {"UpperRoof", "RoofSectionOffset:mm ActiveRoofRatio " + vertical},
        {"APillar",
            "PT1_Offset:mm PT2_Offset:mm AP2_Offset:mm MaxMeasurementDeviation:percent=0.05 " + vertical + horizontal},
        {"BPillar", horizontal + vertical},
        {"RearmostPillar", "RP2_Offset:mm RP1_Ratio " + vertical + horizontal},
        {"OtherPillar", sides + vertical},
        {"FrontHeader", "FH1_Offset:mm FH2_Offset:mm HAngle:deg " + vertical},
        {"RearHeader", "RH_Offset:mm HAngle:deg " + vertical},
        {"SideRail", "SR1_Offset:mm SR2_Offset:mm SR3_Offset:mm " + sides + vertical},
        {"SlidingDoorTrack", sides + vertical},
        {"RollBar", "HAngle:deg " + vertical},
        {"StiffenerBrace", sides + vertical},
    };
    std::string others;
    for (const auto& zone : zones)
        others += "<" + zone.first + "/>";
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
        last.result = 0;
        if (zone != "StiffenerBrace")
            ExpectAll(last, Document(Standard("S", others.substr(0, begin) + element)));
        begin += element.size() - 2;
    }

    const auto pillar = [](const std::string& standard, const std::string& attributes)
    { return Standard(standard, "<APillar " + attributes + "/>"); };
    WriteDefault(file, Document(pillar("0", "MeasurementMethod='0' MaxMeasurementDeviation='10%'") +
                                pillar("1", "MeasurementMethod=' 1 ' MaxMeasurementDeviation='10'") +
                                pillar("01", "MeasurementMethod='01' MaxMeasurementDeviation='x'") +
                                pillar("2", "MeasurementMethod='2' MaxMeasurementDeviation='2,5 %'") +
                                pillar("none", "") + "<standard/>" + pillar("1", "")));
    const std::string angles = "1 {'' '' '' '' '' '' '' '' ''";
    Expect("HeadImpact", {
                             {"GetAPillarSData", "0", angles + " 0 0.1}"},
                             {"GetAPillarSData", "1", angles + " 1 0.1}"},
                             {"GetAPillarSData", "01", angles + " 2 0}"},
                             {"GetAPillarSData", "2", angles + " 2 0.025}"},
                             {"GetAPillarSData", "none", angles + " 2 0.05}"},
                             {"GetAPillarSData", "unknown", "0 {~ ~ ~ ~ ~ ~ ~ ~ ~ ~ ~}"},
                             {"GetStandardNames", "", "[0 1 01 2 none 1]"},
                         });
    WriteCustomer(file, Document(pillar("2", "") + pillar("own", "") + pillar("2", "")));
    Expect("HeadImpact", {
                             {"GetStandardNames", "", "[2 own 2 0 1 01 none]"},
                             {"GetAPillarSData", "2", angles + " 2 0.05}"},
                             {"GetAPillarSData", "0", angles + " 0 0.1}"},
                         });
    directory.Remove(file);
    directory.Remove("Default");
    Release();
    Expect("HeadImpact", {{"GetStandardNames", "", "[]"}});
}

TEST_F(SafetyTest, CrashBarriers)
{
    const std::string file = "OVA/CrashBarriers.xml";
    ExpectElement({file, "CrashBarriers", "/barriers/0",
                      "AllowMovingAroundX:flag DeltaZLeft=0mm DeltaZRight=0mm ReferencePart:flag loading "
                      "Overlapping:percent Rotation:deg=0deg PositionToGeometry:flag EnableAdditionalShift:flag "
                      "AdditionalShift:mm=0mm HeightAboveRoad:mm"},
        "<deep><barrier @/></deep>");

    const auto barrier = [](const std::string& attributes) { return "<barrier " + attributes + "/>"; };
    WriteDefault(file,
        Document(Standard("S",
            Category("x",
                barrier("") +
                    barrier("Overlapping='50' shape='RCAR 2004 Rear' Position='rear' OverlappingSide='rear'") +
                    barrier("shape='RCAR 2006' Position='left' OverlappingSide='right'") +
                    barrier(
                        "Overlapping='mid_position' shape='RCAR 2004 Front' Position='right' OverlappingSide='front'") +
                    barrier("shape=' RCAR 2006 ' Position='front' OverlappingSide='left'") +
                    barrier("Overlapping='Mid_position' shape='rcar 2006' Position='Rear' OverlappingSide='Right'") +
                    barrier("Overlapping='12,5' shape='' Position='x' OverlappingSide='x'")) +
                Category("empty", ""))));
    VEXArray<VEXMELKBarrierDefinition> barriers;
    EXPECT_TRUE(Manager().GetCrashBarriersConfig()->GetStandardData("S", "x", barriers));
    std::string described;
    for (const VEXMELKBarrierDefinition& read : barriers)
    {
        std::ostringstream text;
        text << read.Overlapping << (read.midPosition ? "m " : " ") << read.shape << read.Position
             << read.OverlappingSide;
        described += text.str() + "; ";
    }
    EXPECT_EQ(described, "0 000; 0.5 111; 0.5 221; 1m 030; 1 200; 0 000; 0.125 000; ");
    Expect("CrashBarriers", {
                                {"GetStandardData", "S, empty", "1 []"},
                                {"GetStandardData", "S, unknown", "0 []"},
                                {"GetStandardData", "s, x", "0 []"},
                            });
}

TEST_F(SafetyTest, BarrierShapesStandBelowTheRoot)
{
    const std::string file = "OVA/CrashBarriers.xml";
    const Reader shape = {file, "CrashBarriers", "/shape",
        "MinRelWidth=0.5 MinWidth:mm=1200mm Width:mm=keep Depth:mm=keep Height:mm=keep Radius:mm=keep "
        "HeightAboveRoad:mm=keep Radius2:mm=keep BaseRadius:mm=keep BaseDepth:mm=keep BaseHeight:mm=keep "
        "BaseFPDepth:mm=keep BaseFPMainRadius:mm=keep BaseFPSideRadius:mm=keep TriangleHeight:mm=keep "
        "TriangleToFP:mm=keep TriangleSideDepth:mm=keep ReferencePart=keep Alpha:deg=10deg",
        "GetShapeData", ""};
    const std::string front = "<shape name='RCAR 2004 Front' ";
    ExpectAll(shape, Document("<shape name='RCAR 2006' Width='1'/>" + front + "@/>" + front + "Width='1'/>"));
    ExpectNone(shape, Document(front + "/>"));
    ExpectUntouched(shape, Document("<shape Width='1'/>" + Standard("S", front + "Width='1'/>")), 0);

    const std::string rear = "<shape name='RCAR 2004 Rear' ";
    WriteDefault(file, Document(front + "Width='1' Depth='2'/>" + rear + "Width='3'/><shape name='' Width='4'/>"));
    WriteCustomer(file, Document("<shape name='RCAR 2006' Width='5'/>" + front + "Width='6'/>"));
    const std::tuple<int, int, const char*> rows[] = {
        {0, 1, "6mm"}, {1, 1, "3mm"}, {2, 1, "5mm"}, {3, 0, ""}, {-1, 0, ""}};
    for (const auto& [type, result, width] : rows)
    {
        VEXMELKShapeDefinition read;
        read.type = static_cast<VEXIMELKCrashBarrier::ShapeType>(type);
        EXPECT_EQ(Manager().GetCrashBarriersConfig()->GetShapeData(read), result) << type;
        EXPECT_EQ(read.Width, width) << type;
        EXPECT_EQ(read.Depth, "") << type;
    }
}

TEST_F(SafetyTest, Bumpers)
{
    const std::string file = "OVA/Bumpers.xml";
    const std::string pendulums[] = {"MiddlePendulum", "RotatedPendulum", "ShiftedPendulum"};
    const std::string profile = "NoseRadius:mm SideRadius:mm NoseAngle:deg SideAngle:deg NoseHeight:mm NoseLength:mm "
                                "Width:mm Height:mm Extension:mm Depth:mm FilletRadius:mm RenderHeight:mm "
                                "RenderDepth:mm RenderDistance:mm CenterLineLength:mm";
    for (int type = 0; type < 3; ++type)
    {
        const std::string start = "<" + pendulums[type] + ">";
        const std::string end = "</" + pendulums[type] + ">";
        const auto reader = [&](const std::string& fields) {
            return Reader{file, "Bumpers", "/bumpers/0", fields, "GetStandardData", "S, x, " + std::to_string(type)};
        };
        ExpectElement(reader("loading Limit:mm Offset:mm Angle:deg=30.0deg"),
            "<deep>" + start + "<deep><bumper @/></deep>" + end + "</deep>" + start + "<bumper Limit='1'/>" + end);
        const std::string used = Standard("S", Category("x", start + "<bumper Profile='p'/>" + end));
        ExpectAll(reader(profile), Document("<Profile name='P' Width='1'/><Profile name='p' @/>" + used));
        ExpectNone(reader(profile), Document("<Profile name='p'/>" + used));
    }

    WriteDefault(file,
        Document(
            "<Profile name='p' NoseRadius='1' SideRadius='1' NoseAngle='1' SideAngle='1' NoseHeight='1' NoseLength='1' "
            "Width='1' Height='2' Extension='3' Depth='4' FilletRadius='5' RenderHeight='1' RenderDepth='1' "
            "RenderDistance='1' CenterLineLength='1'/><Profile name='q' Width='6' NoseRadius='7'/><Profile name='r'/>" +
            Standard("S",
                "<category name='default'><RotatedPendulum><bumper/></RotatedPendulum></category>" +
                    Category("x", "<MiddlePendulum><bumper Profile='p' Position='front' Limit='8' Angle='9' "
                                  "loading='l' Offset='9'/>"
                                  "<bumper Position='Front' Profile='unknown'/><bumper Profile='q' Position=' front "
                                  "'/><bumper Profile='r' "
                                  "Position='rear'/></MiddlePendulum><MiddlePendulum><bumper/></MiddlePendulum>"))));
    WriteCustomer(file, Document("<Profile name='r' Depth='10' Offset='11'/>"));
    const std::string common = "'' '' '' '' ";
    const std::string five = "2mm 3mm 4mm 5mm ";
    const std::string own = "'' '' 30.0deg}";
    Expect("Bumpers",
        {
            {"GetStandardData", "S, x, 0",
                "1 [{1mm 1mm 1deg 1deg 1mm 1mm 1mm " + five + "1mm 1mm 1mm 1mm l 1 8mm 9mm 9deg} {'' '' " + common +
                    "1mm " + five + common + "'' 0 " + own + " {7mm '' " + common + "6mm " + five + common + "'' 1 " +
                    own + " {'' '' " + common + "6mm 2mm 3mm 10mm 5mm " + common + "'' 0 " + own + "]"},
            {"GetStandardData", "S, x, 1", "1 []"},
            {"GetStandardData", "S, x, 3", "1 []"},
            {"GetStandardData", "S, x, -1", "1 []"},
            {"GetStandardData", "S, unknown, 0", "1 []"},
            {"GetStandardData", "s, x, 0", "0 []"},
        });
}

TEST_F(SafetyTest, Lamps)
{
    const std::string file = "OVA/LampPositions.xml";
    ExpectElement({file, "LampPositions", "/lamps/0",
                      "Abbr Descr IsFront:flag IsBack:flag IsSide:flag MinVerticalSpace:mm MaxVerticalSpace:mm "
                      "MinInnerSpace:mm MinInnerSpace2:mm MaxOuterSpace:mm MaxOuterSpace2:mm MaxFrontSpace:mm "
                      "MaxFrontSpace2:mm MaxBackSpace:mm MaxBackSpace2:mm LampColor LampVisibility WidthThreshold:mm "
                      "LengthThreshold:mm"},
        "<deep><Lamp @/></deep>");
    WriteDefault(file,
        Document(
            Standard("S", Category("x", "<Lamp Abbr='a' IsFront='true'/><Lamp LampColor='c'/>") + Category("y", "")) +
            Standard("on", "", "UseLampLimits='True'") + Standard("off", "", "UseLampLimits='false'") +
            Standard("blank", "", "UseLampLimits='true '") + Standard("both", "", "UseLampLimits='false'")));
    WriteCustomer(file, Document(Standard("both", "")));
    const std::string nine = " '' '' '' '' '' '' '' '' ''";
    Expect(
        "LampPositions", {
                             {"GetStandardData", "S, x",
                                 "1 [{a '' 1 0 0" + nine + " '' '' '' '' ''} {'' '' 0 0 0" + nine + " '' c '' '' ''}]"},
                             {"GetStandardData", "S, y", "1 []"},
                             {"GetStandardData", "S, z", "1 []"},
                             {"GetStandardData", "s, x", "1 []"},
                             {"GetStatusOfLimits", "S, x", "1"},
                             {"GetStatusOfLimits", "on, x", "1"},
                             {"GetStatusOfLimits", "off, x", "0"},
                             {"GetStatusOfLimits", "blank, x", "0"},
                             {"GetStatusOfLimits", "both, x", "1"},
                             {"GetStatusOfLimits", "unknown, x", "0"},
                         });
    directory.Remove(file);
    directory.Remove("Default");
    Release();
    Expect("LampPositions", {{"GetStandardData", "S, x", "1 []"}, {"GetStatusOfLimits", "S, x", "0"}});
}
