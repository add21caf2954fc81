#include "Attributes.h"
#include "LibraryTest.h"
#include "VEXMELKUFCurbConfig.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The list of attributes with the state of their access objects, as JSON.
AttributeList List(const char* json)
{
    AttributeList list;
    Codec<AttributeList>::Read(Json::parse(json), list, "list");
    return list;
}

Json State(const AttributeList& list) { return Codec<AttributeList>::Write(list); }

} // namespace

class AttributeTest : public LibraryTest
{
protected:
    AttributeTest() { directory.Write("Default/OVA/UFCurb.xml", CaseFile("defaultSettings.xml")); }
    VEXMELKUFCurbConfig& Config() { return *Manager().GetUFCurbConfig(); }
};

TEST_F(AttributeTest, ValuesAndReadOnlyFlagsByKindAndType)
{
    const struct
    {
        const char* name;
        int kind;
        const char* value;
        bool readOnly;
    } rows[] = {
        {"simple", 0, "12.5%", false}, {"typed", 0, "t", true}, {"empty", 0, "before", false},
        {"list", 0, "before", true}, {"list", 1, "before", true}, {"simple", 1, "before", false},
        {"other", 0, "before", true}, {"scale", 0, "before", true}, {"Simple", 0, "before", false},
        {"typed", 3, "before", true}, // an unknown kind is left alone, its flag too
    };
    for (const auto& row : rows)
    {
        AttributeList list;
        list.Append({row.kind, row.name, list.NewAccess(), nullptr, nullptr});
        list[1].firstAccess->SetValueFromText("before");
        list[1].firstAccess->SetReadOnly(row.readOnly && row.kind == 3);
        EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
        EXPECT_EQ(list[1].firstAccess->GetText(), row.value) << row.name << " as " << row.kind;
        EXPECT_EQ(list[1].firstAccess->IsReadOnly(), row.readOnly) << row.name << " as " << row.kind;
    }
    EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(AttributeTest, ColourRanges)
{
    const char* const objects = R"([{"kind":2,"name":"scale","objects":[
        {"value":"v","ranges":[{"min":9}]}, {"value":"v","ranges":[{"min":9}]}, {"value":"v","ranges":[{"min":9}]}]}])";
    AttributeList list = List(objects);
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

    AttributeList incomplete = List(R"([{"kind":2,"name":"scale","objects":[{"ranges":[{"min":9}]},{},null]}])");
    EXPECT_TRUE(Config().FillCFGAttributes("Set", incomplete));
    EXPECT_EQ(incomplete[1].firstAccess->GetRangeCount(), 1) << "without all three objects nothing is read";
    EXPECT_TRUE(incomplete[1].secondAccess->IsReadOnly()) << "but for the flag";
}

TEST_F(AttributeTest, InitMakesEditableFirstAndFollowsTheSettingsOfTheStandard)
{
    const char* const json = R"([{"kind":0,"name":"simple","objects":[{"value":"v","read_only":true}]},
        {"kind":1,"name":"none","objects":[{"value":"v","read_only":true}]},
        {"kind":2,"name":"none","objects":[{"read_only":true},{"read_only":true},{"read_only":true}]},
        {"kind":0,"name":"simple","objects":[null]}])";
    const struct
    {
        const char* standard;
        bool result;
        const char* value;
    } rows[] = {{"S", true, "12.5%"}, {"T", false, "v"}, {"unknown", false, "v"}};
    for (const auto& row : rows)
    {
        AttributeList list = List(json);
        EXPECT_EQ(Config().InitStandardData(row.standard, list) != 0, row.result) << row.standard;
        EXPECT_EQ(list[1].firstAccess->GetText(), row.value) << row.standard;
        for (const auto* access :
            {list[1].firstAccess, list[2].firstAccess, list[3].firstAccess, list[3].secondAccess, list[3].thirdAccess})
            EXPECT_FALSE(access->IsReadOnly()) << row.standard;
        EXPECT_EQ(list[2].firstAccess->GetText(), "v") << "values are not cleared";
        EXPECT_EQ(list.Size(), 4);
    }
    AttributeList list = List(json);
    EXPECT_TRUE(Config().FillCFGAttributes("no such settings", list));
    EXPECT_EQ(list[1].firstAccess->GetText(), "v");
    EXPECT_TRUE(list[1].firstAccess->IsReadOnly());
}

TEST_F(AttributeTest, CustomerSettingsHideThoseOfTheBaseFile)
{
    directory.Write("Customer/OVA/UFCurb.xml", Document("<DefaultSettings><Settings name='Own'><parameter "
                                                        "name='simple' value='own'/></Settings></DefaultSettings>"));
    AttributeList list = List(R"([{"kind":0,"name":"simple","objects":[{"value":"v"}]}])");
    EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
    EXPECT_EQ(list[1].firstAccess->GetText(), "v");
    EXPECT_TRUE(Config().FillCFGAttributes("Own", list));
    EXPECT_EQ(list[1].firstAccess->GetText(), "own");
}

TEST_F(AttributeTest, TraceTellsWhatWasRead)
{
    VEXMELKLog::SetLevel(0);
    AttributeList list = List(R"([{"kind":0,"name":"typed","objects":[{}]},{"kind":1,"name":"simple","objects":[{}]},
        {"kind":2,"name":"list","objects":[{},{},{}]},{"kind":1,"name":"list","objects":[{}]},
        {"kind":0,"name":"scale","objects":[{}]},{"kind":2,"name":"scale","objects":[{},{},{}]}])");
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
    AttributeList list = List(R"([{"kind":2,"name":"scale","objects":[{},{},{}]},
        {"kind":0,"name":"simple","objects":[{}]}])");
    EXPECT_TRUE(Config().FillCFGAttributes("Set", list));
    EXPECT_EQ(list[1].firstAccess->GetRange(1).Maximum, 1500.0);
    EXPECT_EQ(list[2].firstAccess->GetText(), "12,5%");
}
