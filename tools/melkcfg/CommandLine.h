// The command line: the options of all commands, and the commands, each with what it runs.
#ifndef MELKCFG_CommandLine_H
#define MELKCFG_CommandLine_H

#include "Commands.h"

#include <CLI/CLI.hpp>
#include <functional>

class CommandLine
{
public:
    using Action = std::function<ExitStatus(Host&)>;

    CommandLine();

    CommandOptions options; // what more than one command reads

    // A command that prints in these formats, and what it runs. Its other options are added to what is handed out.
    CLI::App* Add(const std::string& name, const std::string& description, Action action,
        std::vector<std::string> formats = {"text", "json"});

    // Throws RequestError for what no command takes.
    ExitStatus Run(int argc, char** argv);

private:
    struct Command
    {
        CLI::App* parser;
        Action action;
        std::vector<std::string> formats;
    };

    // Throws RequestError when the command does not print in the format that was asked for.
    void RequireFormat(const Command& command) const;
    void ApplyTo(Host& host) const;

    CLI::App m_Application{
        "Asks the configuration of the vehicle-architecture checks what a check can ask it.", "melkcfg"};
    std::vector<Command> m_Commands;
    std::string m_Directory;
    std::string m_TestPath;
    bool m_Comma = false;
    bool m_Trace = false;
};

// The commands of each file.
void AddQuestionCommands(CommandLine& line); // list, standards, categories, operations, explain, call
void AddChangeCommands(CommandLine& line);   // whatif, unused
void AddDumpCommands(CommandLine& line);
void AddMatrixCommands(CommandLine& line); // table
void AddDiffCommands(CommandLine& line);
void AddAcceptCommands(CommandLine& line);
void AddCheckCommands(CommandLine& line); // check, fix, rule
void AddSchemaCommands(CommandLine& line);

#endif
