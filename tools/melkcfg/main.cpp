// melkcfg: asks the configuration every question that a check can ask the library.

#include "CommandLine.h"
#include "VEXMELKConfigManager.h"

#include <algorithm>
#include <iostream>

namespace {

void AddCommands(CommandLine& line)
{
    AddQuestionCommands(line);
    AddChangeCommands(line);
    AddDumpCommands(line);
    AddMatrixCommands(line);
    AddDiffCommands(line);
    AddCheckCommands(line);
    AddSchemaCommands(line);
    AddSampleCommands(line);
    AddCompletionCommands(line);
    AddShellCommands(line, AddCommands);
}

ExitStatus Run(int argc, char** argv)
{
    CommandLine line;
    AddCommands(line);
    return line.Run({argv + std::min(argc, 1), argv + argc});
}

} // namespace

int main(int argc, char** argv)
{
    ExitStatus status = NotDone;
    try
    {
        status = Run(argc, argv);
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
