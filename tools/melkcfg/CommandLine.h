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

    // Runs the words behind the program's name. Throws RequestError for what no command takes.
    ExitStatus Run(const std::vector<std::string>& words);
    // The same in two steps: whether a command takes the words, of which nothing is said when none does, and running
    // it.
    bool Takes(const std::vector<std::string>& words);
    ExitStatus RunTaken();

    // Called when the settings are made, before the command runs.
    std::function<void()> beforeCommand;

    const CLI::App& Application() const { return m_Application; }
    // The formats of a command; null for one that is not there.
    const std::vector<std::string>* FormatsOf(const CLI::App& parser) const;
    // The options of all commands that were given, as words.
    std::vector<std::string> CommonWords() const;

private:
    struct Command
    {
        CLI::App* parser;
        Action action;
        std::vector<std::string> formats;
    };

    void Parse(const std::vector<std::string>& words);
    // Throws RequestError when the command does not print in the format that was asked for.
    void RequireFormat(const Command& command) const;
    void ApplyTo(Host& host) const;
    ExitStatus Help() const;

    CLI::App m_Application{
        "Asks the configuration of the vehicle-architecture checks what a check can ask it.", "melkcfg"};
    std::vector<Command> m_Commands;
    std::string m_Directory;
    std::string m_TestPath;
    bool m_Comma = false;
    bool m_Trace = false;
    std::string m_HelpOn;
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
void AddDrawCommands(CommandLine& line);       // draw
void AddReportCommands(CommandLine& line);     // report
void AddSampleCommands(CommandLine& line);     // init
void AddCompletionCommands(CommandLine& line); // manual, completion, complete
// shell: each of its lines is a command line of its own, with the commands that "addCommands" adds.
void AddShellCommands(CommandLine& line, void (*addCommands)(CommandLine& line));

#endif
