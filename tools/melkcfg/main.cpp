// melkcfg: asks the configuration every question that a check can ask the library.

#include "CommandLine.h"
#include "VEXMELKConfigManager.h"

#include <iostream>

namespace {

ExitStatus Run(int argc, char** argv)
{
    CommandLine line;
    AddQuestionCommands(line);
    AddChangeCommands(line);
    AddDumpCommands(line);
    AddMatrixCommands(line);
    AddDiffCommands(line);
    AddAcceptCommands(line);
    AddCheckCommands(line);
    AddSchemaCommands(line);
    return line.Run(argc, argv);
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
