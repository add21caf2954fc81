// Which command was given is known after all have been added, so each brings what it runs.
#include "CommandLine.h"

#include "CATIXMLDOMDocumentBuilder.h"
#include "Explain.h"
#include "UsageErrors.h"
#include "VEXMELKUtilities.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace {

constexpr const char* footer = R"(Exit status:
  0  done: the query answered true, or has no boolean result
  1  the query answered false
  2  it could not be done: wrong command line or batch line, a file that could not be read or parsed
  3  there was nothing to work on: no configuration file found)";

std::string VersionText()
{
    const auto number = [](std::size_t value) { return std::to_string(value); };
    return std::string("melkcfg ") + MELKCFG_VERSION + "\nparser: " + CATIXMLDOMDocumentBuilder::GetParserVersion() +
           "\nbounds of a document: " + number(CATXMLBounds::documentBytes) + " bytes, " +
           number(CATXMLBounds::elementDepth) + " elements deep, " + number(CATXMLBounds::entityDepth) +
           " entities deep, " + number(CATXMLBounds::declaredAttributes) + " attributes declared of one element, " +
           number(CATXMLBounds::externalFiles) + " external files, " + number(CATXMLBounds::externalDepth) +
           " of them deep, expansion to " + number(CATXMLBounds::expandedBytes) + " bytes and past that to " +
           number(CATXMLBounds::expandedFactor) + " times its size";
}

// Why there was nothing to work on, as far as that is the directory's fault.
void PrintFaultOfDirectory()
{
    const VEXMELKSilence silence; // a box has said that it is not set
    const std::string directory = DirectoryPath();
    std::error_code error;
    if (directory.empty())
        std::cerr << "melkcfg: there is no configuration directory: use --config, or set MELK_CFG_PATH" << std::endl;
    else if (!std::filesystem::exists(directory, error))
        std::cerr << "melkcfg: the configuration directory " << Shown(directory) << " does not exist" << std::endl;
    else if (!std::filesystem::is_directory(directory, error))
        std::cerr << "melkcfg: the configuration directory " << Shown(directory) << " is no directory" << std::endl;
}

} // namespace

CommandLine::CommandLine()
{
    m_Application.footer(footer);
    m_Application.require_subcommand(1);
    m_Application.failure_message(UsageError);
    m_Application.fallthrough();
    m_Application.set_version_flag("--version", VersionText);
    m_Application.add_option("--config", m_Directory, "The configuration directory; without it, MELK_CFG_PATH")
        ->type_name("DIR");
    m_Application.add_option("--test-path", m_TestPath, "Test mode: files are read from DIR/Configuration")
        ->type_name("DIR");
    m_Application.add_flag("--comma", m_Comma, "The application's decimal separator is the comma");
    m_Application.add_option("--format", options.format,
        "text for people, json for programs; of check also sarif, github, junit; of dump and table csv; of table html");
    m_Application.add_flag("--trace", m_Trace, "Log lines at trace level on standard error");
    m_Application.add_flag("--show-secrets", options.showSecrets, "Print the database password");
    Add("help", "What a command does, and what it takes", [this](const Host&) { return Help(); }, {"text"})
        ->add_option("COMMAND", m_HelpOn, "The command; without it, all of them");
}

CLI::App* CommandLine::Add(
    const std::string& name, const std::string& description, Action action, std::vector<std::string> formats)
{
    CLI::App* parser = m_Application.add_subcommand(name, description);
    m_Commands.push_back({parser, std::move(action), std::move(formats)});
    return parser;
}

void CommandLine::Parse(const std::vector<std::string>& words)
{
    std::vector<std::string> fromTheEnd(words.rbegin(), words.rend());
    m_Application.parse(fromTheEnd);
}

bool CommandLine::Takes(const std::vector<std::string>& words)
{
    try
    {
        Parse(words);
        return true;
    }
    catch (const CLI::ParseError&)
    {
        return false;
    }
}

ExitStatus CommandLine::Run(const std::vector<std::string>& words)
{
    try
    {
        Parse(words);
    }
    catch (const CLI::ParseError& error)
    {
        return m_Application.exit(error) == 0 ? Done : NotDone;
    }
    return RunTaken();
}

ExitStatus CommandLine::RunTaken()
{
    if (m_Application.count("--config") > 0 && m_Directory.empty())
        throw RequestError("--config names no directory");
    const Command& command =
        *std::find_if(m_Commands.begin(), m_Commands.end(), [](const Command& one) { return one.parser->parsed(); });
    RequireFormat(command);
    Host host(!options.batch);
    ApplyTo(host);
    if (beforeCommand)
        beforeCommand();
    const ExitStatus status = command.action(host);
    if (status == NothingThere)
        PrintFaultOfDirectory();
    return status;
}

ExitStatus CommandLine::Help() const
{
    const CLI::App* wanted = &m_Application;
    std::vector<std::string> names;
    for (const Command& command : m_Commands)
    {
        if (command.parser->get_name() == m_HelpOn)
            wanted = command.parser;
        names.push_back(command.parser->get_name());
    }
    if (wanted == &m_Application && !m_HelpOn.empty())
        throw UnknownName("command", m_HelpOn, names);
    // The application's own help() is that of the command that was given.
    const bool isWhole = wanted == &m_Application;
    std::cout << wanted->get_formatter()->make_help(
        wanted, isWhole ? "melkcfg" : "melkcfg " + m_HelpOn, CLI::AppFormatMode::Normal);
    return Done;
}

const std::vector<std::string>* CommandLine::FormatsOf(const CLI::App& parser) const
{
    const auto found = std::find_if(
        m_Commands.begin(), m_Commands.end(), [&](const Command& command) { return command.parser == &parser; });
    return found == m_Commands.end() ? nullptr : &found->formats;
}

std::vector<std::string> CommandLine::CommonWords() const
{
    std::vector<std::string> words;
    for (const CLI::Option* option : m_Application.get_options())
        for (const std::string& result : option->results())
        {
            words.push_back(option->get_name());
            if (option->get_items_expected_max() > 0)
                words.push_back(result);
        }
    return words;
}

void CommandLine::RequireFormat(const Command& command) const
{
    if (std::find(command.formats.begin(), command.formats.end(), options.format) != command.formats.end())
        return;
    std::string message = command.parser->get_name() + " prints ";
    for (const std::string& format : command.formats)
        message += format + (&format == &command.formats.back() ? "" : ", ");
    throw RequestError(message + "; not " + Shown(options.format));
}

void CommandLine::ApplyTo(Host& host) const
{
    if (!m_Directory.empty())
        host.SetConfigurationDirectory(m_Directory);
    if (!m_TestPath.empty())
        host.SetTestPath(m_TestPath);
    VEXMELKUtilities::SetAppMode(m_TestPath.empty() ? VEXMELKNormalMode : VEXMELKTestMode);
    VEXMELKUtilities::SetCommaDelimeter(m_Comma ? 1 : 0);
    VEXMELKLog::SetLevel(m_Trace ? VEXMELKLog::TraceLevel : VEXMELKLog::ErrorLevel);
}
