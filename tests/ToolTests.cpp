#include "Batch.h"
#include "LibraryTest.h"

#include <fstream>
#include <sstream>
#include <sys/wait.h>

using testing::HasSubstr;

namespace {

struct Outcome
{
    int status;
    std::string output;
};

// Runs melkcfg as a user does; both streams are caught.
Outcome RunTool(const std::string& arguments)
{
    FILE* pipe = popen((std::string("env -u MELK_CFG_PATH " MELKCFG " ") + arguments + " 2>&1").c_str(), "r");
    std::string output;
    for (char buffer[4096]; const std::size_t read = fread(buffer, 1, sizeof buffer, pipe);)
        output.append(buffer, read);
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

} // namespace

class ToolTest : public LibraryTest
{
protected:
    ToolTest()
    {
        directory.Write("Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="25" back_angle="7")"));
        directory.Write("Default/OVA/Bumpers.xml", "<broken>");
        directory.Write("DBAccess.xml", R"(<db host="h" password="geheim"/>)");
        Ask(R"({"settings":{"config":")" + directory.Path() + R"(","mode":0,"comma":false,"log_level":3}})");
    }
    // One line in, one line out.
    Json Ask(const std::string& line, bool showSecrets = false)
    {
        std::istringstream input(line);
        std::ostringstream output;
        RunBatch(input, output, m_Host, showSecrets);
        return Json::parse(output.str());
    }
    std::string Tool() const { return "--config " + directory.Path() + " "; }

private:
    Host m_Host{false};
};

TEST_F(ToolTest, BatchAnswersWithResultOutputsMessagesAndLog)
{
    EXPECT_EQ(Ask(R"({"id":"a","config":"UFCurb","operation":"GetStandardData",)"
                  R"("arguments":{"standard":"S","category":"x"},"outputs":{"definition":{"BackOffset":"mine"}}})")
                  .dump(),
        R"({"id":"a","result":true,"outputs":{"definition":{"FrontOffset":"25mm","FrontAngle":"","BackAngle":"7deg",)"
        R"("BackOffset":""}},"messages":[],"log":[]})");
    const Json unknown = Ask(R"({"config":"VEXMELKUFCurb","operation":"GetStandardData","arguments":{"standard":"T"},)"
                             R"("outputs":{"definition":{"BackOffset":"mine"}}})");
    EXPECT_EQ(unknown["result"], false);
    EXPECT_EQ(unknown["outputs"]["definition"]["BackOffset"], "mine");
    EXPECT_FALSE(unknown.contains("id"));

    const Json broken = Ask(R"({"config":"VEXMELKBumpersConfig","operation":"FindStandardLevel"})");
    EXPECT_EQ(broken["result"], 0);
    ASSERT_EQ(broken["messages"].size(), 2U);
    EXPECT_EQ(broken["messages"][0]["kind"], "error");
    EXPECT_EQ(broken["messages"][0]["title"], "MELK CFG: Parse Fatal Error");
    EXPECT_EQ(broken["messages"][1]["text"],
        " (configuration file not found or not readable) " + directory.Path() + "\\Default\\OVA\\Bumpers.xml");
}

TEST_F(ToolTest, RequestsThatCannotBeUnderstoodNameTheNearestRightOne)
{
    const struct
    {
        const char* request;
        const char* error;
    } rows[] = {
        {"", "not a JSON request"},
        {"{", "not a JSON request"},
        {"[]", "expected an object"},
        {R"({"config":"UFCurb"})", "\"operation\" is missing"},
        {R"({"operation":"x"})", "\"config\" is missing"},
        {R"({"config":7,"operation":"x"})", "config: expected a text, got 7"},
        {R"({"config":"UFCurbs","operation":"x"})", "unknown configuration UFCurbs; did you mean UFCurb?"},
        {R"({"config":"EyeEllipses","operation":"GetRadii2003"})",
            "unknown operation GetRadii2003; did you mean GetRadii2002?"},
        {R"({"config":"UFCurb","operation":"GetStandardData","arguments":{"standart":"S"}})",
            "unknown argument standart; did you mean standard?"},
        {R"({"config":"UFCurb","operation":"GetStandardData","arguments":{"standard":1}})",
            "standard: expected a text, got 1"},
        {R"({"config":"UFCurb","operation":"GetStandardData","arguments":[]})", "arguments: expected an object"},
        {R"({"config":"UFCurb","operation":"GetStandardData","outputs":{"definition":{"FrontOfset":""}}})",
            "unknown field definition.FrontOfset; did you mean FrontOffset?"},
        {R"({"config":"UFCurb","operation":"GetLoading","arguments":{"rear":1}})",
            "rear: expected true or false, got 1"},
        {R"({"config":"Bumpers","operation":"GetStandardData","arguments":{"type":1.5}})",
            "type: expected an integer of 32 bits, got 1.5"},
        {R"({"config":"Bumpers","operation":"GetStandardData","arguments":{"type":4294967296}})",
            "type: expected an integer of 32 bits"},
        {R"({"config":"EyeEllipses","operation":"GetRadii2002","arguments":{"hPointTravel":"x"}})",
            "hPointTravel: expected a number, got \"x\""},
        {R"({"config":"UFCurb","operation":"GetStandardNames","outputs":{"names":["a",1]}})",
            "names[1]: expected a text, got 1"},
        {R"({"config":"DirectView","operation":"GetStandardData","outputs":{"definition":{"Points":[[1,2]]}}})",
            "definition.Points[0]: expected a point [x, y, z]"},
        {R"({"config":"UFCurb","operation":"InitStandardData","outputs":{"attributes":[{"objects":[1]}]}})",
            "expected an object, got 1"},
        {R"({"settings":{"mod":1}})", "unknown setting mod; did you mean mode?"},
        {R"({"settings":{"comma":1}})", "comma: expected true or false, got 1"},
        {R"({"manager":"relaod"})", "unknown manager request relaod; did you mean reload?"},
        {R"({"config":"UFCurb","operation":"FindStandardLevel","argument":{}})", "did you mean arguments?"},
        {R"({"config":"OpticalPropsOfWS","operation":"FindStandardLevel"})", "no configuration object"},
    };
    for (const auto& row : rows)
    {
        std::string line = row.request;
        const Json answer = Ask(line.empty() ? "\n" : line);
        EXPECT_THAT(answer.value("error", "no error"), HasSubstr(row.error)) << row.request;
        EXPECT_FALSE(answer.contains("result")) << row.request;
    }
    EXPECT_EQ(Ask(R"({"id":[1],"config":"x"})")["id"], Json::parse("[1]"));
}

TEST_F(ToolTest, SettingsAndManagerDriveTheHost)
{
    const std::string names = R"({"config":"UFCurb","operation":"GetPointToPick","arguments":{"standard":"S"}})";
    EXPECT_EQ(Ask(R"({"id":1,"settings":{"mode":2}})").dump(),
        R"({"id":1,"result":null,"outputs":{},"messages":[],"log":[]})");
    EXPECT_EQ(Ask(names)["error"], "no configuration object");
    Ask(R"({"settings":{"mode":1,"test_path":")" + directory.Path() + R"(/none"}})");
    EXPECT_EQ(Ask(names)["messages"].size(), 1U);
    Ask(R"({"settings":{"mode":0}})");
    EXPECT_EQ(Ask(names)["result"], true);
    directory.Write("Default/OVA/UFCurb.xml", OneCategory("point_to_pick='new'"));
    EXPECT_EQ(Ask(names)["outputs"]["point"], "");
    Ask(R"({"manager":"reload"})");
    EXPECT_EQ(Ask(names)["outputs"]["point"], "new");
    Ask(R"({"settings":{"config":null}})");
    Ask(R"({"manager":"release"})");
    EXPECT_EQ(Ask(names)["messages"].size(), 2U) << "the missing setting, and the missing file";
}

TEST_F(ToolTest, PasswordStaysHidden)
{
    const std::string request = R"({"config":"DBAccess","operation":"GetDBAccessParameters"})";
    EXPECT_EQ(Ask(request)["outputs"]["password"], "********");
    EXPECT_EQ(Ask(request, true)["outputs"]["password"], "geheim");
    EXPECT_THAT(RunTool(Tool() + "call DBAccess GetDBAccessParameters").output,
        testing::AllOf(HasSubstr("password: ********"), Not(HasSubstr("geheim"))));
    EXPECT_THAT(
        RunTool(Tool() + "--show-secrets call DBAccess GetDBAccessParameters").output, HasSubstr("password: geheim"));
}

TEST_F(ToolTest, EveryConfigurationOffersItsOperations)
{
    std::size_t operations = 0;
    for (const Configuration& configuration : AllConfigurations())
    {
        operations += configuration.operations.size();
        const auto offers = [&](const char* name)
        {
            return std::any_of(configuration.operations.begin(), configuration.operations.end(),
                [&](const Operation& operation) { return operation.name == name; });
        };
        EXPECT_TRUE(offers("GetLoading") && offers("FillCFGAttributes")) << configuration.name;
        EXPECT_EQ(offers("GetStandardNames"),
            configuration.name != "BaseData" && configuration.name != "DBAccess" && configuration.name != "ReportGen");
        for (const Operation& operation : configuration.operations)
            for (const Parameter& parameter : operation.parameters)
                EXPECT_FALSE(parameter.name.empty() || parameter.type.empty()) << configuration.name << operation.name;
    }
    EXPECT_EQ(AllConfigurations().size(), 42U);
    EXPECT_EQ(operations, 434U);
}

TEST_F(ToolTest, CommandsAndTheirExitStatus)
{
    const TemporaryDirectory empty;
    const struct
    {
        std::string arguments;
        int status;
        const char* output;
    } rows[] = {
        {Tool() + "call UFCurb GetStandardData standard=S category=x", 0,
            "result: true\ndefinition.FrontOffset: 25mm\ndefinition.FrontAngle: \ndefinition.BackAngle: 7deg\n"},
        {Tool() + "--format json call UFCurb FindStandardLevel standard=S", 0, "\"result\": 0"},
        {Tool() + "--comma call UFCurb GetStandardData standard=S 'definition={\"BackOffset\":\"b\"}'", 0, "25mm"},
        {Tool() + "call UFCurb GetStandardData standard=T", 1, "result: false\n"},
        {Tool() + "call UFCurb GetStandardData standards=S", 2, "unknown argument standards; did you mean standard?"},
        {Tool() + "call UFCurb GetStandardNames maxLevel=x", 2, "maxLevel: expected integer, got \"x\""},
        {Tool() + "call UFCurb", 2, "call needs CONFIG and OPERATION, or --batch"},
        {Tool() + "call Bumpers FindStandardLevel", 2, "error: MELK CFG: Parse Fatal Error: "},
        {Tool() + "call Mirror FindStandardLevel", 3, "error: Error: "},
        {"call UFCurb FindStandardLevel", 3,
            "error: MELK - Configuration Error: Environment variable \"MELK_CFG_PATH\""},
        {"--config " + empty.Path() + " list", 3, "UFCurb"},
        {Tool() + "list", 2, "Default"},
        {Tool() + "standards UFCurb", 0, "0  S\n"},
        {Tool() + "standards UFCurb --max-level -1", 0, ""},
        {Tool() + "standards BaseData", 2, "BaseData has no standards"},
        {Tool() + "categories UFCurb S", 0, "default\n"},
        {Tool() + "categories UFCurb T", 1, ""},
        {"operations UFWheelFixing", 0,
            "GetStandardData(standard: text, category: text) -> flag, radius: text, offset: text\n"},
        {"--test-path " + directory.Path() + " call UFCurb FindStandardLevel", 3, "Configuration\\OVA\\UFCurb.xml"},
        {"--version", 0, "parser: expat_"},
        {"--help", 0, "there was nothing to work on"},
        {"frobnicate", 2, ""},
        {Tool() + "call --batch < /dev/null", 0, ""},
        {Tool() + "call --batch < " + directory.Path() + "/Default/OVA/UFCurb.xml", 2,
            "{\"error\":\"not a JSON request"},
    };
    for (const auto& row : rows)
    {
        const Outcome outcome = RunTool(row.arguments);
        EXPECT_EQ(outcome.status, row.status) << row.arguments << "\n" << outcome.output;
        EXPECT_THAT(outcome.output, HasSubstr(row.output)) << row.arguments;
    }
}
