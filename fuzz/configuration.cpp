// A packed configuration directory, asked every question that its file can answer.
//
// The first line is a byte of settings ('1': with decimal commas) and the name of the file below the directory. Then
// come the Default file, the Customer file and the document type definition, separated by lines "----"; what is not
// there is not written.
#include "Directory.h"
#include "Host.h"
#include "Questions.h"
#include "Require.h"
#include "VEXMELKCheck.h"
#include "VEXMELKUtilities.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

constexpr std::size_t rounds = 3;

std::string_view Take(std::string_view& text, std::string_view separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + separator.size(), text.size()));
    return taken;
}

void RequireNumbers(const Json& json)
{
    Require(!json.is_number_float() || !std::isnan(json.get<double>()));
    if (json.is_structured())
        for (const auto& item : json)
            RequireNumbers(item);
}

// Findings have a rule, a file, a place, and texts that a terminal may show.
void RequireFindings(const CATUnicodeString& directory)
{
    for (const VEXMELKFinding& finding : VEXMELKCheck(directory).findings)
    {
        Require(finding.rule != nullptr && !finding.file.empty());
        Require(finding.begin.line > 0 && finding.begin.column > 0);
        Require(std::tie(finding.begin.line, finding.begin.column) <= std::tie(finding.end.line, finding.end.column));
        Require(std::none_of(finding.message.begin(), finding.message.end(),
            [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }));
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Directory directory;
    static Host host(false);
    host.SetConfigurationDirectory(directory.Path());

    std::string_view text = TextOf(data, size);
    const std::string_view head = Take(text, "\n");
    const std::string file(head.substr(std::min<std::size_t>(1, head.size())));
    const std::string_view contents = Take(text, "\n----\n");
    const std::string_view customer = Take(text, "\n----\n");
    for (const Configuration& configuration : AllConfigurations())
    {
        if (file.empty() || file != FileOf(configuration))
            continue;
        const std::string layout = configuration.isSingle ? "" : "Default/";
        directory.Write(layout + file, contents);
        directory.Write("Customer/" + file, customer);
        directory.Write("basedata.dtd", text);
        VEXMELKConfigManager::ReleaseConfigManager();
        VEXMELKUtilities::SetCommaDelimeter(head.front() == '1');
        const std::vector<Question> questions = QuestionsFor(configuration, contents, rounds);
        const Json answers = Ask(configuration, questions);
        RequireNumbers(answers);
        RequireFindings(CATUnicodeString(directory.Path()));
        VEXMELKConfigManager::ReleaseConfigManager();
        Require(Ask(configuration, questions) == answers); // nothing is left of the first load
        host.TakeMessages();
        directory.Write(layout + file, {});
        directory.Write("Customer/" + file, {});
    }
    return 0;
}
