// melkcfg: asks the configuration every question that a check can ask the library.

#include "Batch.h"
#include "CATIXMLDOMDocumentBuilder.h"
#include "Changes.h"
#include "Check.h"
#include "VEXMELKUtilities.h"

#include <CLI/CLI.hpp>
#include <cstdio>
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

struct Settings
{
    std::string directory;
    std::string testPath;
    std::string format = "text";
    bool comma = false;
    bool trace = false;
    bool batch = false;
};

void Apply(const Settings& settings, Host& host)
{
    if (!settings.directory.empty())
        host.SetConfigurationDirectory(settings.directory);
    if (!settings.testPath.empty())
    {
        host.SetTestPath(settings.testPath);
        VEXMELKUtilities::SetAppMode(VEXMELKTestMode);
    }
    VEXMELKUtilities::SetCommaDelimeter(settings.comma ? 1 : 0);
    if (settings.trace)
        VEXMELKLog::SetLevel(VEXMELKLog::TraceLevel);
}

// The commands that stand on origins.
struct InsightCommands
{
    CLI::App* explain;
    CLI::App* whatIf;
    CLI::App* unused;
};

InsightCommands AddInsightCommands(CLI::App& app, CommandOptions& options)
{
    InsightCommands commands{};
    commands.explain = app.add_subcommand("explain", "Where each value of an answer comes from, and what it hides");
    commands.explain->add_option("CONFIG", options.configuration, "The configuration")->required();
    commands.explain->add_option("OPERATION", options.operation, "The operation, or the standard of the main query")
        ->required();
    commands.explain->add_option("NAME=VALUE", options.assignments, "The operation's arguments, or the category");
    commands.explain->add_option("--field", options.field, "Only this field, such as definition.FrontOffset");
    commands.explain->add_flag("--steps", options.steps, "Every look-up, in the order in which it is tried");

    commands.whatIf =
        app.add_subcommand("whatif", "Every answer that becomes another one by edits, of which none is written");
    commands.whatIf->add_option(
        "EDIT", options.assignments, "FILE:LINE:COL=TEXT, or CONFIG/STANDARD/CATEGORY/ATTRIBUTE=TEXT");
    commands.whatIf->add_option("--overlay", options.overlay, "A directory with edited files")->type_name("DIR");

    commands.unused = app.add_subcommand("unused", "Texts and elements that no answer depends on");
    commands.unused->add_option("CONFIG", options.assignments, "Only the files of these configurations");
    return commands;
}

// The commands that say what is wrong with files.
struct CheckCommands
{
    CLI::App* check;
    CLI::App* fix;
    CLI::App* rule;
};

CheckCommands AddCheckCommands(CLI::App& app, CheckOptions& options, std::string& rule)
{
    CheckCommands commands{};
    commands.check = app.add_subcommand("check", "What is wrong with the files; exit status 1 when something is");
    commands.check->add_option("--level", options.level, "The lowest level that is shown and counts")
        ->check(CLI::IsMember({"error", "warning", "note"}))
        ->capture_default_str();
    commands.fix = app.add_subcommand("fix", "The findings that have one safe mend, as a patch");
    commands.fix->add_flag("--write", options.writes, "Mend the files in place");
    for (CLI::App* command : {commands.check, commands.fix})
        command->add_option("CONFIG|FILE", options.names, "Only these configurations and files");
    commands.rule = app.add_subcommand("rule", "What a rule of check is about");
    commands.rule->add_option("ID", rule, "The rule; without it, all of them");
    return commands;
}

// Those of all commands. Gives that of the configuration directory.
const CLI::Option* AddOptions(CLI::App& app, Settings& settings, CommandOptions& options)
{
    const CLI::Option* configuration =
        app.add_option("--config", settings.directory, "The configuration directory; without it, MELK_CFG_PATH")
            ->type_name("DIR");
    app.add_option("--test-path", settings.testPath, "Test mode: files are read from DIR/Configuration")
        ->type_name("DIR");
    app.add_flag("--comma", settings.comma, "The application's decimal separator is the comma");
    app.add_option(
           "--format", settings.format, "text for people, json for programs; of check also sarif, github, junit")
        ->check(CLI::IsMember({"text", "json", "sarif", "github", "junit"}));
    app.add_flag("--trace", settings.trace, "Log lines at trace level on standard error");
    app.add_flag("--show-secrets", options.showSecrets, "Print the database password");
    return configuration;
}

ExitStatus Run(int argc, char** argv)
{
    CLI::App app("Asks the configuration of the vehicle-architecture checks what a check can ask it.", "melkcfg");
    Settings settings;
    CommandOptions options;
    app.footer(footer);
    app.require_subcommand(1);
    app.fallthrough();
    app.set_version_flag("--version", VersionText);
    const CLI::Option* configuration = AddOptions(app, settings, options);

    CLI::App* list = app.add_subcommand("list", "Every configuration, with its file and number of standards");

    CLI::App* standards = app.add_subcommand("standards", "The standards of a category, with their priority levels");
    standards->add_option("CONFIG", options.configuration, "The configuration")->required();
    standards->add_option("--category", options.category, "The vehicle category")->capture_default_str();
    standards->add_option("--max-level", options.maxLevel, "The highest priority level")->capture_default_str();
    standards->add_flag("--unordered", options.unordered, "In the order of the files, whatever the level");

    CLI::App* categories = app.add_subcommand("categories", "The categories of a standard");
    categories->add_option("CONFIG", options.configuration, "The configuration")->required();
    categories->add_option("STANDARD", options.standard, "The standard")->required();

    CLI::App* operations = app.add_subcommand("operations", "Every query operation, with its arguments and outputs");
    operations->add_option("CONFIG", options.configuration, "Only those of this configuration");

    const InsightCommands insight = AddInsightCommands(app, options);
    CheckOptions checkOptions;
    std::string rule;
    const CheckCommands checks = AddCheckCommands(app, checkOptions, rule);

    CLI::App* schema = app.add_subcommand("schema", "The elements and attributes of each file, as tables in Markdown");
    schema->add_option("CONFIG", options.configuration, "Only those of this configuration");

    CLI::App* call = app.add_subcommand("call", "Run one query operation, or a batch of them");
    call->add_option("CONFIG", options.configuration, "The configuration");
    call->add_option("OPERATION", options.operation, "The operation");
    call->add_option("NAME=VALUE", options.assignments, "Its arguments; an output's value before the call as JSON");
    call->add_flag("--batch", settings.batch, "JSON Lines on standard input, one answer a line on standard output");

    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return app.exit(error) == 0 ? Done : NotDone;
    }
    if (configuration->count() > 0 && settings.directory.empty())
        throw RequestError("--config names no directory");
    options.asJson = settings.format == "json";
    checkOptions.format = settings.format;
    if (settings.format != "text" && !options.asJson && !checks.check->parsed())
        throw RequestError("--format " + settings.format + " is for check");
    Host host(!settings.batch);
    Apply(settings, host);
    if (checks.check->parsed())
        return RunCheck(checkOptions);
    if (checks.fix->parsed())
        return RunFix(checkOptions);
    if (checks.rule->parsed())
        return RunRule(rule);
    if (list->parsed())
        return RunList(options, host);
    if (standards->parsed())
        return RunStandards(options, host);
    if (categories->parsed())
        return RunCategories(options, host);
    if (operations->parsed())
        return RunOperations(options);
    if (insight.whatIf->parsed())
        return RunWhatIf(options);
    if (insight.unused->parsed())
        return RunUnused(options);
    if (insight.explain->parsed())
        return RunExplain(options, host);
    if (schema->parsed())
        return RunSchema(options);
    if (settings.batch)
    {
        if (!options.configuration.empty())
            throw RequestError("--batch takes its requests from standard input, and no CONFIG");
        BatchInput standardInput(std::cout);
        std::istream requests(&standardInput);
        const bool understood = RunBatch(requests, std::cout, host, options.showSecrets);
        if (standardInput.HasFailed())
            throw RequestError("standard input cannot be read");
        return understood ? Done : NotDone;
    }
    if (options.operation.empty())
        throw RequestError("call needs CONFIG and OPERATION, or --batch");
    return RunCall(options, host);
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
