// The configuration directory is checked whole unless configurations or files are named. A file elsewhere is checked in
// the directory that it lies in.
#include "CommandLine.h"
#include "Console.h"
#include "Explain.h"
#include "Findings.h"
#include "Patch.h"
#include "Progress.h"
#include "Table.h"
#include "VEXMELKFilePath.h"
#include "VEXMELKTrial.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>

namespace {

namespace fs = std::filesystem;

struct CheckOptions
{
    std::vector<std::string> names; // of configurations and files
    std::string level = "warning";  // the lowest one that counts
    bool writes = false;            // fix: in place
};

struct Target
{
    std::string directory;
    VEXMELKCheckScope scope;
};

// The directory in which a file would be one of those that are read; nothing when no file has such a name.
std::optional<fs::path> DirectoryOf(const fs::path& file)
{
    const std::string name = VEXMELKTextOf(file);
    for (const Configuration& configuration : AllConfigurations())
        for (const char* folder : {"/Default/", "/Customer/", "/"})
        {
            const std::string end = folder + VEXMELKFileOf(*configuration.entry->description);
            if (configuration.entry->create && name.ends_with(end))
                return VEXMELKFilePath(name.substr(0, name.size() - end.size()));
        }
    return std::nullopt;
}

void AddFile(Target& target, const std::string& name)
{
    std::error_code error;
    const fs::path below = VEXMELKFilePath(target.directory) / VEXMELKFilePath(name);
    const bool isBelow = !target.directory.empty() && fs::is_regular_file(below, error);
    const fs::path path = fs::weakly_canonical(isBelow ? below : VEXMELKFilePath(name), error);
    const auto directory = DirectoryOf(path);
    const fs::path current =
        target.directory.empty() ? fs::path() : fs::weakly_canonical(VEXMELKFilePath(target.directory), error);
    const std::string relative = VEXMELKTextOf(path.lexically_relative(current));
    if (!current.empty() && !relative.starts_with(".."))
    {
        target.scope.files.push_back(relative);
        return;
    }
    if (!directory)
        throw RequestError(Shown(name) + ": no check reads a file of this name");
    if (!target.scope.files.empty() || !target.scope.configurations.empty())
        throw RequestError("files of several directories cannot be checked at once");
    target.directory = VEXMELKTextOf(*directory);
    target.scope.files.push_back(VEXMELKTextOf(path.lexically_relative(*directory)));
}

Target ReadTarget(const std::vector<std::string>& names)
{
    Target target;
    {
        const VEXMELKSilence silence; // files may be named without one
        target.directory = CurrentDirectory().ConvertToChar();
    }
    for (const std::string& name : names)
    {
        std::error_code error;
        const bool isFile = fs::is_regular_file(VEXMELKFilePath(name), error) ||
                            fs::is_regular_file(VEXMELKFilePath(target.directory + "/" + name), error);
        if (isFile)
            AddFile(target, name);
        else if (name.find('/') != std::string::npos && !LookForConfiguration(name))
            throw RequestError(fs::is_directory(VEXMELKFilePath(name), error)
                                   ? Shown(name) + " is a directory: use --config"
                                   : "there is no file " + Shown(name));
        else
            target.scope.configurations.push_back(FindConfiguration(name).entry->description);
    }
    if (target.directory.empty())
        throw RequestError("there is no configuration directory: use --config, or set MELK_CFG_PATH");
    return target;
}

VEXMELKCheckResult Check(Target& target)
{
    Progress progress;
    target.scope.onFile = [&](std::size_t number, std::size_t count, const std::string& file)
    { progress.Show(number, count, file); };
    return VEXMELKCheck(CATUnicodeString(target.directory), target.scope);
}

TextStyle StyleOfOutput()
{
    TextStyle style;
    if (!IsTerminal(StandardStream::Output))
        return style;
    const char* noColour = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    style.isColoured = (!noColour || !*noColour) && terminal && std::string_view(terminal) != "dumb";
    style.width = TerminalWidth().value_or(0);
    return style;
}

VEXMELKLevel LevelOf(const std::string& name)
{
    return name == "error" ? VEXMELKLevel::Error : name == "note" ? VEXMELKLevel::Note : VEXMELKLevel::Warning;
}

ExitStatus RunCheck(const CheckOptions& options, const std::string& format)
{
    Target target = ReadTarget(options.names);
    VEXMELKCheckResult result = Check(target);
    const VEXMELKLevel lowest = LevelOf(options.level);
    std::erase_if(result.findings, [&](const VEXMELKFinding& finding) { return finding.level > lowest; });
    if (format == "json")
        PrintJson(FindingsToJson(result));
    else if (format == "sarif")
        PrintJson(FindingsToSarif(result, MELKCFG_VERSION));
    else if (format == "github")
        PrintForGitHub(std::cout, result, target.directory);
    else if (format == "junit")
        PrintForJUnit(std::cout, result);
    else
        PrintFindings(std::cout, result, target.directory, StyleOfOutput());
    if (!result.findings.empty())
        return AnsweredFalse;
    if (!result.files.empty())
        return Done;
    std::cerr << "melkcfg: there is no configuration file to check" << std::endl;
    return NothingThere;
}

ExitStatus RunFix(const CheckOptions& options, bool asJson)
{
    Target target = ReadTarget(options.names);
    const VEXMELKCheckResult result = Check(target);
    std::size_t mended = 0;
    if (asJson)
    {
        const Json fixes = FixesToJson(result.findings, target.directory);
        PrintJson(fixes);
        for (const Json& file : fixes["files"])
            mended += file["findings"].get<std::size_t>();
    }
    else if (!options.writes)
        mended = PrintFixes(std::cout, result.findings, target.directory);
    if (options.writes)
        mended = WriteFixes(result.findings, target.directory);
    std::cerr << mended << (mended == 1 ? " finding" : " findings") << (options.writes ? " mended" : " can be mended")
              << std::endl;
    return result.files.empty() && result.findings.empty() ? NothingThere : Done;
}

Json RulesToJson(std::span<const VEXMELKRule> rules)
{
    Json list = Json::array();
    for (const VEXMELKRule& rule : rules)
        list.push_back({{"id", rule.id}, {"level", VEXMELKNameOf(rule.level)}, {"title", rule.title},
            {"text", rule.text}, {"bad", rule.bad}, {"good", rule.good}});
    return {{"version", 1}, {"rules", list}};
}

// The page of a rule, or of all.
ExitStatus RunRule(const std::string& id, bool asJson)
{
    const VEXMELKRule* one = VEXMELKFindRule(id);
    if (one || id.empty())
    {
        const std::span<const VEXMELKRule> rules = one ? std::span(one, 1) : VEXMELKRules();
        if (asJson)
            PrintJson(RulesToJson(rules));
        else
            for (const VEXMELKRule& rule : rules)
                std::cout << VEXMELKPageOf(rule) << (one ? "" : "\n");
        return Done;
    }
    std::vector<std::string> known;
    for (const VEXMELKRule& rule : VEXMELKRules())
        known.emplace_back(rule.id);
    throw UnknownName("rule", id, known);
}

} // namespace

void AddCheckCommands(CommandLine& line)
{
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* check = line.Add("check", "What is wrong with the files; exit status 1 when something is",
        [&line, options](const Host&) { return RunCheck(*options, line.options.format); },
        {"text", "json", "sarif", "github", "junit"});
    check->add_option("--level", options->level, "The lowest level that is shown and counts")
        ->check(CLI::IsMember({"error", "warning", "note"}))
        ->capture_default_str();
    CLI::App* fix = line.Add("fix", "The findings that have one safe mend, as a patch",
        [&line, options](const Host&) { return RunFix(*options, line.options.AsJson()); });
    fix->add_flag("--write", options->writes, "Mend the files in place");
    for (CLI::App* command : {check, fix})
        command->add_option("CONFIG|FILE", options->names, "Only these configurations and files");

    const auto id = std::make_shared<std::string>();
    line.Add("rule", "What a rule of check is about",
            [&line, id](const Host&) { return RunRule(*id, line.options.AsJson()); })
        ->add_option("ID", *id, "The rule; without it, all of them");
}
