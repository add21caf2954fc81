// The configuration directory is checked whole unless configurations or files are named. A file elsewhere is checked in
// the directory that it lies in.
#include "Check.h"

#include "Console.h"
#include "Explain.h"
#include "Findings.h"
#include "Patch.h"
#include "Table.h"
#include "VEXMELKFilePath.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace {

namespace fs = std::filesystem;

struct Target
{
    std::string directory;
    VEXMELKCheckScope scope;
};

std::string FileOf(const VEXMELKDescription& description)
{
    std::string file(description.file);
    std::replace(file.begin(), file.end(), '\\', '/');
    return file;
}

// The directory in which a file would be one of those that are read; nothing when no file has such a name.
std::optional<fs::path> DirectoryOf(const fs::path& file)
{
    const std::string name = VEXMELKTextOf(file);
    for (const Configuration& configuration : AllConfigurations())
        for (const char* folder : {"/Default/", "/Customer/", "/"})
        {
            const std::string end = folder + FileOf(*configuration.entry->description);
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
        const bool isFile = name.find('/') != std::string::npos || fs::is_regular_file(VEXMELKFilePath(name), error) ||
                            fs::is_regular_file(VEXMELKFilePath(target.directory + "/" + name), error);
        if (isFile && !fs::exists(VEXMELKFilePath(name), error) &&
            !fs::exists(VEXMELKFilePath(target.directory + "/" + name), error))
            throw RequestError("there is no file " + Shown(name));
        if (isFile)
            AddFile(target, name);
        else
            target.scope.configurations.push_back(FindConfiguration(name).entry->description);
    }
    if (target.directory.empty())
        throw RequestError("there is no configuration directory: use --config, or set MELK_CFG_PATH");
    return target;
}

// A line on a terminal for what takes longer than a second.
class Progress
{
public:
    void Show(std::size_t number, std::size_t count, const std::string& file)
    {
        if (!m_IsTerminal || std::chrono::steady_clock::now() - m_Begin < std::chrono::seconds(1))
            return;
        std::cerr << "\r\x1b[K" << number << "/" << count << " " << Printable(file) << std::flush;
        m_IsShown = true;
    }
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress()
    {
        if (m_IsShown)
            std::cerr << "\r\x1b[K" << std::flush;
    }

private:
    const bool m_IsTerminal = IsTerminal(StandardStream::Error);
    const std::chrono::steady_clock::time_point m_Begin = std::chrono::steady_clock::now();
    bool m_IsShown = false;
};

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

} // namespace

ExitStatus RunCheck(const CheckOptions& options)
{
    Target target = ReadTarget(options.names);
    VEXMELKCheckResult result = Check(target);
    const VEXMELKLevel lowest = LevelOf(options.level);
    std::erase_if(result.findings, [&](const VEXMELKFinding& finding) { return finding.level > lowest; });
    if (options.format == "json")
        PrintJson(FindingsToJson(result));
    else if (options.format == "sarif")
        PrintJson(FindingsToSarif(result, MELKCFG_VERSION));
    else if (options.format == "github")
        PrintForGitHub(std::cout, result, target.directory);
    else if (options.format == "junit")
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

ExitStatus RunFix(const CheckOptions& options)
{
    Target target = ReadTarget(options.names);
    const VEXMELKCheckResult result = Check(target);
    const std::size_t mended = options.writes ? WriteFixes(result.findings, target.directory)
                                              : PrintFixes(std::cout, result.findings, target.directory);
    std::cerr << mended << (mended == 1 ? " finding" : " findings") << (options.writes ? " mended" : " can be mended")
              << std::endl;
    return result.files.empty() && result.findings.empty() ? NothingThere : Done;
}

ExitStatus RunRule(const std::string& id)
{
    if (id.empty())
    {
        for (const VEXMELKRule& rule : VEXMELKRules())
            std::cout << VEXMELKPageOf(rule) << "\n";
        return Done;
    }
    if (const VEXMELKRule* rule = VEXMELKFindRule(id))
    {
        std::cout << VEXMELKPageOf(*rule);
        return Done;
    }
    std::vector<std::string> known;
    for (const VEXMELKRule& rule : VEXMELKRules())
        known.emplace_back(rule.id);
    throw UnknownName("rule", id, known);
}
