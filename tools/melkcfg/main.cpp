// melkcfg: asks the configuration every question that a check can ask the library.

#include "CommandLine.h"
#include "Console.h"
#include "VEXMELKConfigManager.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace {

void AddCommands(CommandLine& line)
{
    AddQuestionCommands(line);
    AddChangeCommands(line);
    AddDumpCommands(line);
    AddMatrixCommands(line);
    AddDiffCommands(line);
    AddAcceptCommands(line);
    AddCheckCommands(line);
    AddSchemaCommands(line);
    AddDrawCommands(line);
    AddReportCommands(line);
    AddSampleCommands(line);
    AddCompletionCommands(line);
    AddShellCommands(line, AddCommands);
}

ExitStatus Run(int argc, char** argv)
{
    const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    // Scripts ask questions over and over, and making all other commands takes longer than an answer.
    if (std::find(words.begin(), words.end(), "call") != words.end())
    {
        CommandLine line;
        AddQuestionCommands(line);
        if (line.Takes(words))
            return line.RunTaken();
    }
    CommandLine line;
    AddCommands(line);
    return line.Run(words);
}

} // namespace

int main(int argc, char** argv)
{
    ExitStatus status = NotDone;
    PrepareStreams();
    try
    {
        ProgramArguments arguments(argc, argv);
        status = Run(arguments.Count(), arguments.Values());
    }
    catch (const std::exception& error)
    {
        std::cerr << "melkcfg: " << error.what() << std::endl;
    }
    VEXMELKConfigManager::ReleaseConfigManager();
    if (!std::cout.flush())
    {
        std::cerr << "melkcfg: standard output cannot be written" << std::endl;
        status = NotDone;
    }
    return status;
}
