// Default settings: which of them a standard uses, and what they make of a check's attributes.
#include "Attributes.h"
#include "LibraryTest.h"
#include "VEXMELKUFCurbConfig.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The list of attributes with the state of their access objects, as JSON.
VEXMELKAttributeValues List(const char* json)
{
    VEXMELKAttributeValues list;
    AttributesFromJson(Json::parse(json), list, "list");
    return list;
}

Json State(const VEXMELKAttributeValues& list) { return AttributesToJson(list); }

// Opens the helpers of single attributes.
class OpenCurb : public VEXMELKUFCurbConfig
{
public:
    using VEXMELKUFCurbConfig::CFGAttributeAddColorRange;
    using VEXMELKUFCurbConfig::CFGAttributeSetColorRanges;
    using VEXMELKUFCurbConfig::GetChildElementWithAtrributeValue;
    using VEXMELKUFCurbConfig::GetChildElementWithAttributeMap;
    using VEXMELKUFCurbConfig::GetDefaultSettingsElement;
    using VEXMELKUFCurbConfig::VEXMELKUFCurbConfig;
};

} // namespace

class AttributeTest : public LibraryTest
{
protected:
    AttributeTest() { directory.Write("Default/OVA/UFCurb.xml", CaseFile("defaultSettings.xml")); }
    VEXMELKUFCurbConfig& Config() { return *Manager().GetUFCurbConfig(); }
};

TEST_F(AttributeTest, ValuesAndReadOnlyFlagsByKindAndType)
{
    for (const auto& [name, kind, value, readOnly] : Table<4>(CaseFile("kindsOfAttributes")))
    {
        SCOPED_TRACE(name + " as " + kind);
        VEXMELKAttributeValues list;
        list.Append({std::stoi(kind), name.c_str(), list.NewAccess(), list.NewAccess(), list.NewAccess()});
        list[1].firstAccess->SetValueFromText("before");
        list[1].firstAccess->SetReadOnly(kind == "3");
        EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
        EXPECT_EQ(list[1].firstAccess->GetText(), value);
        EXPECT_EQ(list[1].firstAccess->IsReadOnly(), readOnly == "1");
        EXPECT_EQ(list[1].firstAccess->GetRangeCount(), 0);
        EXPECT_FALSE(list[1].secondAccess->IsReadOnly() || list[1].thirdAccess->IsReadOnly());
    }
    EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(AttributeTest, ColourRanges)
{
    const char* const objects = R"([{"kind":2,"name":"scale","objects":[
        {"value":"v","ranges":[{"min":9}]}, {"value":"v","ranges":[{"min":9}]}, {"value":"v","ranges":[{"min":9}]}]}])";
    VEXMELKAttributeValues list = List(objects);
    EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
    EXPECT_EQ(State(list), Json::parse(R"([{"kind":2,"name":"scale","objects":[
        {"value":"v","read_only":true,"ranges":[
            {"min":0.0,"max":1500.0,"min_color":32768,"max_color":16711680,"critical":true},
            {"min":-1.0,"max":0.0,"min_color":16711680,"max_color":0,"critical":false},
            {"min":2.0,"max":3.0,"min_color":0,"max_color":255,"critical":true}]},
        {"value":"v","read_only":true,"ranges":[]},
        {"value":"True","read_only":true,
         "ranges":[{"min":9.0,"max":0.0,"min_color":0,"max_color":0,"critical":false}]}]}])"));
    EXPECT_THAT(TakeLog(), ElementsAre("(EE) Config: Missing max range value", "(EE) Config: Missing min range value",
                               "(EE) Config: Missing min color", "(EE) Config: Missing max color"));

    VEXMELKAttributeValues incomplete =
        List(R"([{"kind":2,"name":"scale","objects":[{"ranges":[{"min":9}]},{},null]}])");
    EXPECT_TRUE(Config().FillCFGAttributes("Set", incomplete));
    EXPECT_EQ(incomplete[1].firstAccess->GetRangeCount(), 1) << "without all three objects nothing is read";
    EXPECT_TRUE(incomplete[1].secondAccess->IsReadOnly()) << "but for the flag";
}

TEST_F(AttributeTest, ColourRangesNeedAllThatTheyAreReadFromAndInto)
{
    const auto config = CATHandle<OpenCurb>::Create(CATUnicodeString(directory.Path()));
    CATIDOMElement_var scale;
    CATIDOMElement_var range;
    CATIDOMNamedNodeMap_var rangeMap;
    config->GetChildElementWithAtrributeValue(
        config->GetDefaultSettingsElement("Set"), "parameter", "name", "scale", scale);
    ASSERT_TRUE(config->GetChildElementWithAttributeMap(scale, "range", range, rangeMap));
    for (const std::string lacking : {"first", "second", "third", "map", "element"})
    {
        VEXMELKAttributeValues list =
            List(R"([{"kind":2,"name":"scale","objects":[{"ranges":[{}]},{"ranges":[{}]},{}]}])");
        const Json before = State(list);
        const VEXMELKCFGAttributeStr& all = list[1];
        VEXMELKCFGAttributeStr some = {all.kind, all.name, lacking == "first" ? nullptr : all.firstAccess,
            lacking == "second" ? nullptr : all.secondAccess, lacking == "third" ? nullptr : all.thirdAccess};
        config->CFGAttributeSetColorRanges(some, lacking == "map" ? CATIDOMNamedNodeMap_var() : scale->GetAttributes(),
            lacking == "element" ? CATIDOMElement_var() : scale);
        if (lacking == "first" || lacking == "second" || lacking == "map") // a range needs no more
            config->CFGAttributeAddColorRange(some, lacking == "map" ? CATIDOMNamedNodeMap_var() : rangeMap);
        EXPECT_EQ(State(list), before) << "without the " << lacking;
    }
}

TEST_F(AttributeTest, InitMakesEditableFirstAndFollowsTheSettingsOfTheStandard)
{
    const char* const json = R"([{"kind":0,"name":"simple","objects":[{"value":"v","read_only":true}]},
        {"kind":0,"name":"simple","objects":[null]},
        {"kind":2,"name":"none","objects":[{"read_only":true},{"read_only":true},{"read_only":true}]},
        {"kind":2,"name":"none","objects":[null,null,null]},
        {"kind":1,"name":"none","objects":[{"value":"v","read_only":true}]}])";
    for (const auto& [standard, result, value] : Table<3>("S|1|12.5%\nT|0|v\nunknown|0|v"))
    {
        VEXMELKAttributeValues list = List(json);
        EXPECT_EQ(Config().InitStandardData(standard.c_str(), list), std::stoi(result)) << standard;
        EXPECT_EQ(list[1].firstAccess->GetText(), value) << standard;
        for (const auto* access :
            {list[1].firstAccess, list[5].firstAccess, list[3].firstAccess, list[3].secondAccess, list[3].thirdAccess})
            EXPECT_FALSE(access->IsReadOnly()) << standard;
        EXPECT_EQ(list[5].firstAccess->GetText(), "v") << "values are not cleared";
        EXPECT_EQ(list.Size(), 5);
    }
    VEXMELKAttributeValues list = List(json);
    EXPECT_TRUE(Config().FillCFGAttributes("no such settings", list));
    EXPECT_EQ(list[1].firstAccess->GetText(), "v");
    EXPECT_TRUE(list[1].firstAccess->IsReadOnly());
}

TEST_F(AttributeTest, CustomerSettingsHideThoseOfTheBaseFile)
{
    directory.Write("Customer/OVA/UFCurb.xml", Document("<DefaultSettings><Settings name='Own'><parameter "
                                                        "name='simple' value='own'/></Settings></DefaultSettings>"));
    VEXMELKAttributeValues list = List(R"([{"kind":0,"name":"simple","objects":[{"value":"v"}]}])");
    EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
    EXPECT_EQ(list[1].firstAccess->GetText(), "v");
    EXPECT_TRUE(Config().FillCFGAttributes("Own", list));
    EXPECT_EQ(list[1].firstAccess->GetText(), "own");
}

TEST_F(AttributeTest, TraceTellsWhatWasRead)
{
    VEXMELKLog::SetLevel(0);
    VEXMELKAttributeValues list =
        List(R"([{"kind":0,"name":"typed","objects":[{}]},{"kind":1,"name":"simple","objects":[{}]},
        {"kind":2,"name":"list","objects":[{},{},{}]},{"kind":1,"name":"list","objects":[{}]},
        {"kind":0,"name":"scale","objects":[{}]},{"kind":2,"name":"scale","objects":[{},{},{}]},
        {"kind":2,"name":"plain","objects":[{},{},{}]}])");
    EXPECT_TRUE(Config().InitStandardData("S", list));
    std::string log;
    for (const std::string& line : TakeLog())
        log += line + "\n";
    EXPECT_EQ(log, CaseFile("trace"));
    VEXMELKLog::SetLevel(4);
    EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(AttributeTest, CommasOfTheApplicationReadTheSame)
{
    VEXMELKUtilities::SetCommaDelimeter(1);
    VEXMELKAttributeValues list = List(R"([{"kind":2,"name":"scale","objects":[{},{},{}]},
        {"kind":0,"name":"simple","objects":[{}]}])");
    EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
    EXPECT_EQ(list[1].firstAccess->GetRange(1).Maximum, 1500.0);
    EXPECT_EQ(list[2].firstAccess->GetText(), "12,5%");
}

TEST(Palette, HasTheSixteenColoursInTheirOrder)
{
    int position = 0;
    for (const auto& [name, color] : Table<2>(R"(
        black   | 000000
        maroon  | 800000
        green   | 008000
        olive   | 808000
        navy    | 000080
        purple  | 800080
        teal    | 008080
        silver  | C0C0C0
        gray    | 808080
        red     | FF0000
        lime    | 00FF00
        yellow  | FFFF00
        blue    | 0000FF
        fuchsia | FF00FF
        aqua    | 00FFFF
        white   | FFFFFF)"))
    {
        const auto expected = static_cast<unsigned int>(std::stoul(color, nullptr, 16));
        EXPECT_EQ(VEXMELKUtilities::VGAColor(position++), expected) << name;
        EXPECT_EQ(VEXMELKUtilities::VGAColor(CATUnicodeString(name)), expected);
    }
    EXPECT_EQ(position, VEXMELKUtilities::GetNumberOfVGAColors());
}
