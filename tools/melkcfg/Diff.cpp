// Two directories are compared by their answers, not by their texts. Values are printed below each other, each with the
// places that decide it before and after.
#include "ChangeOutput.h"
#include "CommandLine.h"
#include "Explain.h"
#include "Progress.h"
#include "Table.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>

namespace {

struct DiffOptions
{
    std::vector<std::string> directories;
    std::vector<std::string> configurations;
    std::vector<std::string> kinds;
    bool tellsByStatus = false;
};

VEXMELKSource DirectoryNamed(const std::string& name)
{
    std::error_code error;
    if (!std::filesystem::is_directory(name, error))
        throw RequestError(Shown(name) + " is no directory");
    return CATUnicodeString(name);
}

std::pair<VEXMELKSource, VEXMELKSource> SourcesOf(const DiffOptions& options)
{
    if (options.directories.size() == 2)
        return {DirectoryNamed(options.directories[0]), DirectoryNamed(options.directories[1])};
    const CATUnicodeString current = CurrentDirectory();
    if (options.directories.size() == 1)
        return {DirectoryNamed(options.directories[0]), current};
    return {VEXMELKSource(current, true), current};
}

// "In-house 2024  suv", and "position=left" of further arguments.
std::string NamesOf(const VEXMELKPreparedQuestion& question)
{
    std::string names;
    for (const VEXMELKPreparedQuestion::Input& input : question.Inputs())
    {
        const VEXMELKParameter& parameter = question.Operation().Parameters()[input.parameter];
        const bool isName = parameter.role == VEXMELKRole::Standard || parameter.role == VEXMELKRole::Category;
        if (parameter.IsOutput() && !std::holds_alternative<long>(input.value))
            continue;
        names += (names.empty() ? "" : "  ") + (isName ? "" : std::string(parameter.name) + "=") +
                 VEXMELKTextOf(input.value);
    }
    return names;
}

std::string FieldOf(const VEXMELKChange& change)
{
    if (!change.question)
        return change.field;
    // An output of its own that is a record is called the same everywhere.
    const std::string record = "definition.";
    const std::string field = change.field.starts_with(record) ? change.field.substr(record.size()) : change.field;
    const bool isUsual = change.question->Operation().Name() == "GetStandardData";
    return isUsual ? field : std::string(change.question->Operation().Name()) + " " + field;
}

std::string PlaceWithCategory(const VEXMELKChangedSide& side)
{
    if (!side.HasPlace())
        return "no text";
    return PlaceText(side) + (side.category.empty() ? "" : " (" + side.category + ")");
}

void PrintDifference(const VEXMELKComparison& comparison, bool showSecrets)
{
    for (const VEXMELKChange& change : comparison.changes)
    {
        const std::string kind =
            change.kind == VEXMELKChangeKind::Changed ? "" : std::string(VEXMELKNameOf(change.kind));
        const bool isText = !change.question; // its own values are texts of files
        std::vector<std::string> cells = {std::string(change.configuration->description->name),
            change.question ? NamesOf(*change.question) : "", FieldOf(change), ValuesText(change, showSecrets),
            PercentText(change), kind};
        std::erase(cells, "");
        std::string line;
        for (const std::string& cell : cells)
            line += (line.empty() ? "" : "  ") + cell;
        PrintTable({{line}});
        if (change.before.HasPlace() || change.after.HasPlace())
        {
            const std::string before = PlaceWithCategory(change.before);
            const std::string after = PlaceWithCategory(change.after);
            PrintTable({{"        " + (before == after && !isText ? before : before + " → " + after)}});
        }
    }
    std::cout << comparison.changes.size() << (comparison.changes.size() == 1 ? " difference; " : " differences; ")
              << comparison.questions << " questions were asked of both\n";
}

ExitStatus RunDiff(const CommandOptions& common, const DiffOptions& options)
{
    const auto [before, after] = SourcesOf(options);
    Progress progress;
    VEXMELKComparisonScope scope;
    for (const std::string& name : options.configurations)
        scope.configurations.push_back(FindConfiguration(name).entry);
    scope.hasMoves = true;
    scope.onQuestion = [&](std::size_t number, std::size_t count, const std::string& name)
    { progress.Show(number, count, name); };
    RequireFiles(before, scope.configurations);
    RequireFiles(after, scope.configurations);
    VEXMELKComparison comparison = VEXMELKCompare(before, after, scope);
    if (!options.kinds.empty())
        std::erase_if(comparison.changes,
            [&](const VEXMELKChange& change)
            {
                const auto isKind = [&](const std::string& kind) { return kind == VEXMELKNameOf(change.kind); };
                return std::none_of(options.kinds.begin(), options.kinds.end(), isKind);
            });
    if (common.AsJson())
        PrintJson(ChangesToJson(comparison, common.showSecrets));
    else
        PrintDifference(comparison, common.showSecrets);
    TellLeftOut(comparison.leftOut);
    if (comparison.textsLeftOut != 0)
        std::cerr << "melkcfg: " << comparison.textsLeftOut
                  << " more texts differ; whether an answer depends on them was not tried" << std::endl;
    if (comparison.questions == 0)
    {
        std::cerr << "melkcfg: there is no configuration file to compare" << std::endl;
        return NothingThere;
    }
    return options.tellsByStatus && !comparison.changes.empty() ? AnsweredFalse : Done;
}

} // namespace

void AddDiffCommands(CommandLine& line)
{
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* diff = line.Add("diff",
        "What changes in the answers: of OLD to NEW, of OLD to the configuration directory, or of its Default files "
        "alone to all of it",
        [&line, options](const Host&) { return RunDiff(line.options, *options); });
    diff->add_option("OLD NEW", options->directories, "Configuration directories")->expected(0, 2);
    diff->add_option("--only", options->configurations, "Only this configuration")->type_name("CONFIG");
    diff->add_option("--kind", options->kinds, "Only changes of this kind")
        ->check(CLI::IsMember({"changed", "added", "removed", "moved", "written"}))
        ->delimiter(',');
    diff->add_flag("--exit-code", options->tellsByStatus, "Exit with 1 when something differs");
}
