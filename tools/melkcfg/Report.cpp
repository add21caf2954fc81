// report: one page that tells everything about a directory.
#include "CommandLine.h"
#include "Digest.h"
#include "Explain.h"
#include "Output.h"
#include "Progress.h"
#include "ReportPage.h"

#include <iostream>

namespace {

ExitStatus RunReport(const std::string& output, const Host& host)
{
    Sha256Hex(""); // without digests there is no report, and nothing is to be asked
    const CATUnicodeString directory = CurrentDirectory();
    Progress progress;
    std::vector<VEXMELKReportConfiguration> configurations = VEXMELKReportOn(directory,
        [&](std::size_t number, std::size_t count, const std::string& name) { progress.Show(number, count, name); });
    if (configurations.empty())
    {
        std::cerr << "there is no configuration file that can be read\n";
        return host.HasErrors() ? NotDone : NothingThere;
    }
    WriteOutput(output, ReportPageOn(directory, std::move(configurations)));
    return host.HasErrors() ? NotDone : Done;
}

} // namespace

void AddReportCommands(CommandLine& line)
{
    const auto output = std::make_shared<std::string>();
    CLI::App* report = line.Add("report", "A page about the whole directory: answers, origins, pictures, verdicts",
        [output](const Host& host) { return RunReport(*output, host); }, {"text"});
    report->add_option("-o,--output", *output, "FILE.html; standard output without it");
}
