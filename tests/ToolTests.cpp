// melkcfg as its users run it: requests in a batch, commands, exit statuses.
#include "Batch.h"
#include "LibraryTest.h"
#include "Words.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <sys/wait.h>
#include <thread>

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

std::string ReadFile(const std::string& name)
{
    std::ifstream stream(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace

class ToolTest : public LibraryTest
{
protected:
    ToolTest()
    {
        directory.Write("Default/OVA/UFCurb.xml", OneCategory(R"(front_offset="25" back_angle="7")"));
        directory.Write("Default/OVA/Bumpers.xml", "<broken>");
        directory.Write("lines.txt", "standards UFCurb\n\n# a comment\nmelkcfg categories UFCurb S\nexlpain\n"
                                     "call UFCurb 'x\n");
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

TEST_F(ToolTest, ShellAnswersWithWhatTheFilesSayNow)
{
    const std::string answers = directory.Path() + "/answers.txt";
    const auto waitFor = [&](const char* text)
    {
        for (int tenths = 0; tenths < 300; ++tenths)
        {
            std::ifstream file(answers);
            const std::string all{std::istreambuf_iterator<char>(file), {}};
            if (all.find(text) != std::string::npos)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return false;
    };
    const char* question = "call UFCurb GetPointToPick standard=S\n";
    FILE* shell = popen((MELKCFG " " + Tool() + "shell > " + answers).c_str(), "w");
    fputs(question, shell);
    fflush(shell);
    EXPECT_TRUE(waitFor("point: \n"));
    directory.Write("Default/OVA/UFCurb.xml", OneCategory("point_to_pick='new'"));
    fputs(question, shell);
    fflush(shell);
    EXPECT_TRUE(waitFor("point: new\n"));
    EXPECT_EQ(pclose(shell), 0);
}

TEST(WordsTest, QuotedWordsAreReadAsTheyWere)
{
    const std::string plain = "aZ09_-./:=,@%+\u00E4";
    EXPECT_EQ(QuotedForShell(plain, 0), plain);
    EXPECT_EQ(QuotedForShell("In-house 2024 ($a)", 0), R"(In-house\ 2024\ \(\$a\))");
    for (const std::string& text : {plain, std::string(" 'a' \"b\" \\ $c `d` *?~#&|;<>()[]{}!\t")})
        for (const char* quote : {"", "'", "\""})
        {
            const Words read = SplitIntoWords("x " + (quote + QuotedForShell(text, *quote)) + quote);
            EXPECT_EQ(read.words, (std::vector<std::string>{"x", text})) << quote;
        }
}

TEST_F(ToolTest, CommandsAndTheirExitStatus)
{
    const TemporaryDirectory empty;
    const TemporaryDirectory tested;
    tested.Write("Configuration/Default/OVA/UFCurb.xml",
        R"(<configuration><standard name="Tested"><category name="default"/></standard><standard name="Tested"/></configuration>)");
    for (const auto& [written, status, output] : Table<3>(CaseFile("commands")))
    {
        std::string arguments = written;
        for (const auto& [name, path] :
            {std::pair("TOOL ", Tool()), std::pair("DIRECTORY", directory.Path()), std::pair("EMPTY", empty.Path()),
                std::pair("TESTED", tested.Path()), std::pair("SAMPLE", std::string(SAMPLE_CONFIGURATION))})
            arguments = Replaced(arguments, name, path);
        const ToolOutcome outcome = RunTool(arguments);
        EXPECT_EQ(outcome.status, std::stoi(status)) << arguments << "\n" << outcome.output;
        EXPECT_THAT(outcome.output, HasSubstr(output)) << arguments;
    }
}

TEST_F(ToolTest, SchemasAreThoseOfOneFileOrOfAll)
{
    const ToolOutcome all = RunTool("schema --rng");
    EXPECT_EQ(all.status, 2);
    EXPECT_THAT(all.output, HasSubstr("name a configuration, or a folder for all of them by --output"));
    EXPECT_EQ(RunTool("schema --rng --xsd UFCurb").status, 2);
    EXPECT_THAT(RunTool("--format json schema --rng UFCurb").output, HasSubstr("one form at a time"));
    EXPECT_THAT(RunTool("schema --output /tmp UFCurb").output, HasSubstr("--output is for --rng, --rnc and --xsd"));

    // The names of roots are those that are usual, and those in use.
    EXPECT_THAT(RunTool(Tool() + "schema --xsd DBAccess").output,
        testing::AllOf(HasSubstr("<xs:element name=\"db\""), HasSubstr("<xs:element name=\"dbaccess\"")));
    const ToolOutcome written = RunTool(Tool() + "schema --rnc --output " + directory.Path() + "/schemas");
    EXPECT_EQ(written.status, 0) << written.output;
    EXPECT_THAT(TextOfFile(directory.Path() + "/schemas/OVA/UFCurb.rnc"),
        HasSubstr(
            "## Offsets in front and behind. A length (mm, cm, dm, m, km, in, ft, mic); a bare number is in mm."));
}

TEST_F(ToolTest, SettingsOfOthersAreNotOverwritten)
{
    directory.Write("editors/settings.json", R"({"editor.tabSize": 2})");
    const ToolOutcome refused = RunTool(Tool() + "schema --editors " + directory.Path() + "/editors");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.output, HasSubstr("holds other settings"));
    EXPECT_FALSE(std::filesystem::exists(directory.Path() + "/editors/catalog.xml"));
    directory.Remove("editors/settings.json");
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(RunTool(Tool() + "schema --editors " + directory.Path() + "/editors").status, 0);
    const Json settings = Json::parse(TextOfFile(directory.Path() + "/editors/settings.json"));
    EXPECT_EQ(settings["xml.fileAssociations"].size(), 41U);
}

TEST_F(ToolTest, DescriptionsRulesAndMendsAreDataToo)
{
    const Json description = Json::parse(RunTool("schema --json UFCurb").output);
    EXPECT_EQ(description, Json::parse(RunTool("--format json schema UFCurb").output));
    EXPECT_EQ(description["version"], 1);
    EXPECT_EQ(description["configurations"][0]["file"], "OVA/UFCurb.xml");
    EXPECT_EQ(description["configurations"][0]["elements"][1]["attributes"][0].dump(),
        R"({"name":"front_offset","kind":"length","form":"text","meaning":"offsets in front and behind",)"
        R"("whenMissing":"gives","default":"","unit":"mm","units":["mm","cm","dm","m","km","in","ft","mic"]})");

    const Json rule = Json::parse(RunTool("--format json rule not-a-flag").output);
    EXPECT_EQ(rule["rules"][0]["id"], "not-a-flag");
    EXPECT_GT(Json::parse(RunTool("--format json rule").output)["rules"].size(), 40U);

    directory.Write("Default/OVA/Bumpers.xml", "<configuration/>");
    directory.Write("Default/OVA/UFCurb.xml", OneCategory("\nfront_ofset=\"25\""));
    const std::string mends = RunTool("--format json " + Tool() + "fix UFCurb 2>/dev/null").output;
    EXPECT_EQ(Json::parse(mends)["files"].dump(),
        R"([{"file":"Default/OVA/UFCurb.xml","findings":1,"edits":[{"line":2,"column":1,"endLine":2,"endColumn":12,)"
        R"("text":"front_offset"}],"renamed":null}])");
}

TEST_F(ToolTest, DrawsAPictureIntoAFileOfItsKind)
{
    const std::string file = directory.Path() + "/picture";
    const auto draw = [&](const std::string& arguments) { return RunTool(Tool() + "draw " + arguments); };
    EXPECT_EQ(draw("UFCurb S default -o " + file + ".svg").status, 0);
    EXPECT_EQ(draw("UFCurb S default").output, ReadFile(file + ".svg"));
    EXPECT_THAT(ReadFile(file + ".svg"), HasSubstr("FrontOffset 25mm"));
    const ToolOutcome png = draw("UFCurb S default -o " + file + ".png");
    if (png.status == 0)
        EXPECT_TRUE(ReadFile(file + ".png").starts_with("\x89PNG\r\n"));
    else
        EXPECT_THAT(png.output, HasSubstr("built without librsvg"));
    EXPECT_EQ(draw("UFCurb T default -o " + file + "2.svg").status, 1);
    EXPECT_EQ(ReadFile(file + "2.svg"), "");
    EXPECT_EQ(draw("UFCurb S default -o " + file + ".gif").status, 2);
    EXPECT_EQ(draw("UFOilTub S default").status, 3);
    EXPECT_EQ(draw("Bumpers S default").status, 2);
    EXPECT_EQ(draw("UFCurb S default -o " + directory.Path() + "/missing/p.svg").status, 2);
}

TEST_F(ToolTest, ReportsOnADirectoryInOnePage)
{
    directory.Remove("Default/OVA/Bumpers.xml");
    directory.Write("Customer/OVA/UFCurb.xml",
        R"(<c><standard name="S"><category name="default" front_offset="&lt;i&gt;"/></standard></c>)");
    const ToolOutcome outcome = RunTool(Tool() + "report");
    if (outcome.status == 2)
    {
        EXPECT_THAT(outcome.output, HasSubstr("built without nettle"));
        return;
    }
    const std::string& page = outcome.output;
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(RunTool(Tool() + "report").output, page);
    EXPECT_THAT(page, HasSubstr("default-src 'none'; style-src 'sha256-"));
    EXPECT_THAT(page, testing::Not(HasSubstr("<i>")));
    EXPECT_THAT(page, testing::Not(HasSubstr("geheim")));
    EXPECT_THAT(page, testing::Not(HasSubstr("http://www.w3.org/1999"))); // nothing is named that could be fetched
    EXPECT_THAT(page, testing::Not(HasSubstr(" style=")));
    EXPECT_THAT(page, testing::Not(HasSubstr(directory.Path())));
    EXPECT_THAT(page, HasSubstr("<code class=\"customer\">Customer/OVA/UFCurb.xml:1:"));
    const std::string dated = RunTool(Tool() + "report -o " + directory.Path() + "/r.html").output;
    EXPECT_EQ(dated, "");
    EXPECT_EQ(ReadFile(directory.Path() + "/r.html"), page);
}
