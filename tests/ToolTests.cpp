// melkcfg as its users run it: requests in a batch, commands, exit statuses.
#include "Batch.h"
#include "LibraryTest.h"

#include <regex>
#include <sstream>
#include <sys/wait.h>

using testing::HasSubstr;

namespace {

struct ToolOutcome
{
    int status;
    std::string output;
};

// Runs melkcfg as a user does; both streams are caught.
ToolOutcome RunTool(const std::string& arguments)
{
    FILE* pipe = popen((std::string("(env -u MELK_CFG_PATH " MELKCFG " ") + arguments + ") 2>&1").c_str(), "r");
    std::string output;
    char buffer[4096];
    for (std::size_t read = 1; read > 0; output.append(buffer, read))
        read = fread(buffer, 1, sizeof buffer, pipe);
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

// A peer that sends a request only when it has the answer to the one before, and half a request.
TEST_F(ToolTest, BatchAnswersAtOnce)
{
    const std::string script = "coproc " MELKCFG R"( call --batch
ask() { printf "$1" >&"${COPROC[1]}"; read -t 60 -u "${COPROC[0]}" answer && echo "$answer"; }
ask '{"id":1,"manager":"reload"}\n'
ask '{"id":2,"manager":"release"}\n{"id":3,'
ask '"manager":"reload"}\n'
)";
    directory.Write("peer.sh", script);
    FILE* pipe = popen(("bash " + directory.Path() + "/peer.sh").c_str(), "r");
    std::string output(1000, '\0');
    output.resize(fread(output.data(), 1, output.size(), pipe));
    EXPECT_EQ(pclose(pipe), 0);
    const std::string rest = R"(,"result":null,"outputs":{},"messages":[],"log":[]})"
                             "\n";
    EXPECT_EQ(output, R"({"id":1)" + rest + R"({"id":2)" + rest + R"({"id":3)" + rest);
}

TEST_F(ToolTest, BatchAnswersWithResultOutputsMessagesAndLog)
{
    EXPECT_EQ(Ask(R"({"id":"a","config":"UFCurb","operation":"GetEyes","arguments":{"standard":"S"},)"
                  R"("outputs":{"eyes":{"Standard":"mine"}}})")
                  .dump(),
        R"({"id":"a","result":true,"outputs":{"eyes":{"EyesType":2,"Standard":"mine","Percentil":""}},)"
        R"("messages":[],"log":[]})");
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
    for (const auto& [written, error] : Table<2>(CaseFile("requestsThatCannotBeUnderstood")))
    {
        const std::string request =
            std::regex_replace(written, std::regex("^(\\w+)\\.(\\w+) ?(.*)"), R"({"config":"$1","operation":"$2",$3})");
        const Json answer = Ask(request == " " ? "\n" : Replaced(request, ",}", "}"));
        EXPECT_THAT(answer.value("error", "no error"), HasSubstr(error)) << request;
        EXPECT_FALSE(answer.contains("result")) << request;
    }
    EXPECT_EQ(Ask(R"({"id":[1],"config":"x"})")["id"], Json::parse("[1]"));
}

TEST_F(ToolTest, RequestsOfAnySizeAreRefusedInShortMessages)
{
    for (const char* nested : {"[", "{\"a\":", "[{\"a\":"})
        EXPECT_THAT(Ask(Repeated(65000, nested))["error"].get<std::string>(), HasSubstr("nested more than 64 deep"));
    const std::string name = Repeated(400000, "\xC3\xA4");
    for (const std::string& request : {R"({"config":")" + name + R"(","operation":"x"})",
             R"({"config":"UFCurb","operation":")" + name + R"("})", R"({")" + name + R"(":1})"})
    {
        const std::string error = Ask(request)["error"];
        EXPECT_LT(error.size(), 200U);
        EXPECT_THAT(error, HasSubstr("\xC3\xA4..."));
    }
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
    ASSERT_EQ(AllConfigurations().size(), VEXMELKConfigManager::GetConfigurations().size());
    for (const Configuration& configuration : AllConfigurations())
    {
        const auto offers = [&](const char* name)
        {
            return std::any_of(configuration.operations.begin(), configuration.operations.end(),
                [&](const Operation& operation) { return operation.name == name; });
        };
        EXPECT_TRUE(offers("GetLoading") && offers("FillCFGAttributes")) << configuration.name;
        EXPECT_EQ(offers("GetStandardNames"),
            configuration.name != "BaseData" && configuration.name != "DBAccess" && configuration.name != "ReportGen");
        for (const Operation& operation : configuration.operations)
            for (const Parameter& parameter : operation.Parameters())
                EXPECT_FALSE(parameter.name.empty() || parameter.type.empty()) << configuration.name << operation.name;
    }
}

TEST_F(ToolTest, CommandsAndTheirExitStatus)
{
    const TemporaryDirectory empty;
    for (const auto& [written, status, output] : Table<3>(CaseFile("commands")))
    {
        const std::string arguments = Replaced(
            Replaced(Replaced(written, "TOOL ", Tool()), "DIRECTORY", directory.Path()), "EMPTY", empty.Path());
        const ToolOutcome outcome = RunTool(arguments);
        EXPECT_EQ(outcome.status, std::stoi(status)) << arguments << "\n" << outcome.output;
        EXPECT_THAT(outcome.output, HasSubstr(output)) << arguments;
    }
}
