// Edits are made in a copy of the configuration directory, so that nothing of the user's is written.
#include "ChangeOutput.h"
#include "CommandLine.h"
#include "Console.h"
#include "Explain.h"
#include "Progress.h"
#include "Table.h"
#include "VEXMELKAnswers.h"
#include "VEXMELKFilePath.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

namespace {

namespace fs = std::filesystem;

class Copy
{
public:
    explicit Copy(const fs::path& directory)
    {
        m_Path = VEXMELKFilePath(NewTemporaryFolder());
        if (m_Path.empty())
            throw RequestError("no temporary directory can be made");
        Lay(directory);
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    ~Copy()
    {
        std::error_code ignored;
        fs::remove_all(m_Path, ignored);
    }
    const fs::path& Path() const { return m_Path; }
    // Lays the files of a directory over the copy.
    void Lay(const fs::path& directory) const
    {
        std::error_code error;
        fs::copy(directory, m_Path, fs::copy_options::recursive | fs::copy_options::overwrite_existing, error);
        if (error)
            throw RequestError(VEXMELKTextOf(directory) + " cannot be copied: " + error.message());
    }

private:
    fs::path m_Path;
};

struct Edit
{
    VEXMELKPosition position;
    std::string text;
};
using Edits = std::map<std::string, std::vector<Edit>>; // by file

bool IsNumber(const std::string& text)
{
    return !text.empty() && text.size() < 9 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// FILE:LINE:COL=TEXT.
bool ReadPlaceEdit(const std::string& place, const std::string& text, Edits& edits)
{
    const std::size_t column = place.rfind(':');
    const std::size_t line = column == 0 || column == std::string::npos ? column : place.rfind(':', column - 1);
    if (line == std::string::npos || column == std::string::npos || line == column)
        return false;
    const std::string lineText = place.substr(line + 1, column - line - 1);
    const std::string columnText = place.substr(column + 1);
    const bool arePlaces = IsNumber(lineText) && IsNumber(columnText);
    if (arePlaces)
        edits[place.substr(0, line)].push_back({{std::stoi(lineText), std::stoi(columnText)}, text});
    return arePlaces;
}

// CONFIG/STANDARD/CATEGORY/ATTRIBUTE=TEXT: the attribute of the category that counts.
void ReadNamedEdit(const std::string& name, const std::string& text, Edits& edits)
{
    const std::size_t config = name.find('/');
    const std::size_t attribute = name.rfind('/');
    const std::size_t category =
        attribute == 0 || attribute == std::string::npos ? attribute : name.rfind('/', attribute - 1);
    if (config == std::string::npos || category <= config || category == attribute)
        throw RequestError(
            "expected FILE:LINE:COL=TEXT or CONFIG/STANDARD/CATEGORY/ATTRIBUTE=TEXT, got " + Shown(name));
    const std::string standardName = name.substr(config + 1, category - config - 1);
    const std::string categoryName = name.substr(category + 1, attribute - category - 1);
    const std::string attributeName = name.substr(attribute + 1);
    const Configuration& configuration = FindConfiguration(name.substr(0, config));
    const CATUnicodeString directory = CurrentDirectory();
    const VEXMELKTrial trial(*configuration.entry, directory);
    for (std::size_t document = trial.Documents().size(); document-- > 0;)
    {
        const VEXMELKDocumentText& written = trial.Documents()[document];
        const auto isNamed = [&](std::size_t element, std::string_view tag, const std::string& wanted)
        { return written.Elements()[element].node->GetTagName() == tag && written.TextOf(element, "name") == wanted; };
        for (std::size_t element = 1; element < written.Elements().size(); ++element)
        {
            const std::size_t parent = written.Elements()[element].parent;
            if (!isNamed(element, "category", categoryName) || !isNamed(parent, "standard", standardName))
                continue;
            const CATIDOMElement_var node = written.Elements()[element].node;
            const auto file = VEXMELKWrittenFile::Read(trial.Files()[document].path);
            const auto place =
                file ? file->ValueOf({node->GetLineNumber(), node->GetColumnNumber()}, attributeName) : std::nullopt;
            if (!place)
                throw RequestError(trial.Files()[document].name + ": the category does not have the attribute " +
                                   Shown(attributeName));
            edits[trial.Files()[document].name].push_back({*place, text});
            return;
        }
    }
    throw RequestError("there is no category " + Shown(categoryName) + " of a standard " + Shown(standardName));
}

Edits ReadEdits(const std::vector<std::string>& texts)
{
    Edits edits;
    for (const std::string& text : texts)
    {
        const std::size_t equals = text.find('=');
        if (equals == std::string::npos)
            throw RequestError("an edit needs =TEXT: " + Shown(text));
        const std::string place = text.substr(0, equals);
        if (!ReadPlaceEdit(place, text.substr(equals + 1), edits))
            ReadNamedEdit(place, text.substr(equals + 1), edits);
    }
    return edits;
}

// The last edit of a file first, so that the places of the others stay.
void Apply(Edits& edits, const fs::path& directory)
{
    for (auto& [name, ofFile] : edits)
    {
        const fs::path relative = VEXMELKFilePath(name).lexically_normal();
        if (relative.is_absolute() || (!relative.empty() && *relative.begin() == ".."))
            throw RequestError(Shown(name) + " is no file below the configuration directory");
        std::sort(ofFile.begin(), ofFile.end(),
            [](const Edit& left, const Edit& right)
            {
                return std::pair(left.position.line, left.position.column) >
                       std::pair(right.position.line, right.position.column);
            });
        for (const Edit& edit : ofFile)
        {
            const fs::path path = directory / VEXMELKFilePath(name);
            const auto file = VEXMELKWrittenFile::Read(VEXMELKTextOf(path));
            if (!file)
                throw RequestError(Shown(name) + " cannot be read");
            const auto bytes = file->With(edit.position, edit.text);
            if (!bytes)
                throw RequestError(Shown(name) + ":" + std::to_string(edit.position.line) + ":" +
                                   std::to_string(edit.position.column) + ": no value begins there");
            std::ofstream(path, std::ios::binary) << *bytes;
        }
    }
}

// The files that edits are in and that lie in the overlay, below the directory.
std::vector<std::string> ChangedFiles(const Edits& edits, const std::string& overlay)
{
    std::vector<std::string> files;
    for (const auto& [name, ofFile] : edits)
        files.push_back(VEXMELKTextOf(VEXMELKFilePath(name).lexically_normal()));
    if (!overlay.empty())
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(VEXMELKFilePath(overlay)))
            if (entry.is_regular_file())
                files.push_back(VEXMELKTextOf(entry.path().lexically_relative(VEXMELKFilePath(overlay))));
    return files;
}

// The configurations whose files these are; all, which is none by name, when one is no configuration's: others may
// refer to it.
std::vector<const VEXMELKConfigManager::Configuration*> ReadersOf(const std::vector<std::string>& files)
{
    std::vector<const VEXMELKConfigManager::Configuration*> readers;
    for (const std::string& name : files)
    {
        bool isRead = false;
        for (const VEXMELKConfigManager::Configuration* configuration : VEXMELKAskedConfigurations({}))
        {
            const std::string file = VEXMELKFileOf(*configuration->description);
            if (file.empty() || (name != file && name != "Default/" + file && name != "Customer/" + file))
                continue;
            readers.push_back(configuration);
            isRead = true;
        }
        if (!isRead)
            return {};
    }
    return readers;
}

void PrintEffects(const VEXMELKComparison& comparison, bool showSecrets)
{
    Rows rows;
    for (const VEXMELKChange& change : comparison.changes)
        rows.push_back({std::string(change.configuration->description->name),
            std::string(change.question->Operation().Name()), change.question->ArgumentText(), change.field,
            ValuesText(change, showSecrets), PercentText(change), PlaceText(change.before), PlaceText(change.after)});
    PrintTable(rows);
    std::cout << comparison.changes.size() << " values change; " << comparison.questions << " questions were asked\n";
}

ExitStatus RunWhatIf(const CommandOptions& options)
{
    const CATUnicodeString directory = CurrentDirectory();
    if (!fs::is_directory(VEXMELKFilePath(directory)))
        return NothingThere;
    Edits edits = ReadEdits(options.assignments);
    if (edits.empty() && options.overlay.empty())
        throw RequestError("whatif needs an edit, or --overlay DIR");
    const Copy copy(VEXMELKFilePath(directory));
    if (!options.overlay.empty())
        copy.Lay(VEXMELKFilePath(options.overlay));
    Apply(edits, copy.Path());
    Progress progress;
    VEXMELKComparisonScope scope;
    scope.configurations = ReadersOf(ChangedFiles(edits, options.overlay));
    scope.hasChoices = true;
    scope.onQuestion = [&](std::size_t number, std::size_t count, const std::string& name)
    { progress.Show(number, count, name); };
    const VEXMELKComparison comparison = VEXMELKCompare(directory, CATUnicodeString(VEXMELKTextOf(copy.Path())), scope);
    if (options.AsJson())
        PrintJson(ChangesToJson(comparison, options.showSecrets));
    else
        PrintEffects(comparison, options.showSecrets);
    return comparison.questions == 0 ? NothingThere : Done;
}

ExitStatus RunUnused(const CommandOptions& options)
{
    std::vector<const Configuration*> wanted;
    for (const std::string& name : options.assignments)
        wanted.push_back(&FindConfiguration(name));
    if (wanted.empty())
        for (const Configuration& configuration : AllConfigurations())
            wanted.push_back(&configuration);
    Json json = Json::array();
    Rows rows;
    bool isAnyThere = false;
    for (const Configuration* configuration : wanted)
    {
        if (!configuration->entry->create)
            continue;
        const CATUnicodeString directory = CurrentDirectory();
        {
            const VEXMELKSilence silence;
            if (VEXMELKLoadFiles(*configuration->entry->description, directory).empty())
                continue;
        }
        isAnyThere = true;
        for (const VEXMELKUnusedText& unused : VEXMELKUnused(*configuration->entry, directory))
        {
            json.push_back({{"file", unused.file}, {"line", unused.position.line}, {"column", unused.position.column},
                {"path", unused.path}, {"attribute", unused.attribute.empty() ? Json() : Json(unused.attribute)},
                {"reason", unused.reason}});
            rows.push_back({unused.file + ":" + std::to_string(unused.position.line) + ":" +
                                std::to_string(unused.position.column),
                unused.attribute.empty() ? unused.path : unused.path + "/@" + unused.attribute, unused.reason});
        }
    }
    if (options.AsJson())
        PrintJson({{"version", 1}, {"unused", json}});
    else
        PrintTable(rows);
    return isAnyThere ? Done : NothingThere;
}

} // namespace

void AddChangeCommands(CommandLine& line)
{
    CommandOptions& options = line.options;
    CLI::App* whatIf = line.Add("whatif", "Every answer that becomes another one by edits, of which none is written",
        [&](const Host&) { return RunWhatIf(options); });
    whatIf->add_option("EDIT", options.assignments, "FILE:LINE:COL=TEXT, or CONFIG/STANDARD/CATEGORY/ATTRIBUTE=TEXT");
    whatIf->add_option("--overlay", options.overlay, "A directory with edited files")->type_name("DIR");

    CLI::App* unused = line.Add(
        "unused", "Texts and elements that no answer depends on", [&](const Host&) { return RunUnused(options); });
    unused->add_option("CONFIG", options.assignments, "Only the files of these configurations");
}
