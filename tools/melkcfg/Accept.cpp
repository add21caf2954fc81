// Writes down which Default values the Customer values were made against, so that check can tell when these change.
#include "CommandLine.h"
#include "Explain.h"
#include "VEXMELKBaseline.h"

#include <fstream>
#include <iostream>
#include <memory>

namespace {

ExitStatus RunAccept(bool printsOnly)
{
    const CATUnicodeString directory = CurrentDirectory();
    if (!RequireFiles(directory, {}))
    {
        std::cerr << "melkcfg: there is no configuration file" << std::endl;
        return NothingThere;
    }
    const VEXMELKBaseline baseline = VEXMELKCurrentBaseline(directory);
    const std::string text = VEXMELKBaselineText(baseline);
    if (printsOnly)
    {
        std::cout << text;
        return Done;
    }
    if (baseline.empty())
    {
        std::cerr << "melkcfg: no Customer value replaces a Default value" << std::endl;
        return NothingThere;
    }
    const std::string path = std::string(directory.ConvertToChar()) + "/" + VEXMELKBaselineFile;
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    if (!stream)
        throw RequestError(path + " cannot be written");
    std::size_t values = 0;
    for (const auto& [file, ofFile] : baseline)
        values += ofFile.size();
    std::cout << VEXMELKBaselineFile << ": " << values << " values of " << baseline.size() << " files\n";
    return Done;
}

} // namespace

void AddAcceptCommands(CommandLine& line)
{
    const auto printsOnly = std::make_shared<bool>(false);
    line.Add("accept", "Writes down which Default values the Customer values were made against, for check to compare",
            [printsOnly](const Host&) { return RunAccept(*printsOnly); }, {"text"})
        ->add_flag("--print", *printsOnly, "Print it instead");
}
