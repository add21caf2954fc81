// Names that refer to something: standards of this and other files, settings, loadings, shapes, profiles.
#include "VEXMELKCheckPasses.h"

#include "VEXMELKDocumentText.h"
#include "VEXMELKSuggestions.h"

#include <algorithm>

namespace {

using File = VEXMELKCheckedFile;

// With more names that lead nowhere, nobody reads what each could mean, and comparing them takes its time.
constexpr std::size_t mostSuggestions = 100;
constexpr std::string_view standardOf = "standard of ";

class NamePass
{
public:
    NamePass(VEXMELKCheckedDirectory& directory, const VEXMELKCheckedConfiguration& configuration,
        VEXMELKFindingList& findings)
        : m_Directory(directory), m_Configuration(configuration), m_Findings(findings)
    {
    }

    void Check()
    {
        for (const auto& file : m_Configuration.files)
            for (std::size_t node = 0; node < file->Nodes().size(); ++node)
                if (!file->Nodes()[node].isLeftOut)
                    for (const VEXMELKElementKind::Attribute& attribute : file->Nodes()[node].place.kind->attributes)
                        for (const VEXMELKRow* row : attribute.rows)
                            if (!row->names.empty() && row->names != "colour")
                                CheckName(*file, node, *row);
    }

private:
    void CheckName(const File& file, std::size_t node, const VEXMELKRow& row)
    {
        const auto text = file.TextOf(node, row.attribute);
        if (!text || text->empty())
            return;
        const std::size_t begin = std::min(text->find_first_not_of(' '), text->size());
        const std::string name(row.isAsWritten ? *text : text->substr(begin, text->find_last_not_of(' ') + 1 - begin));
        const std::set<std::string>* known = Known(row.names);
        if (!known || known->count(name) != 0 || IsUnknownWord(row, name))
            return;
        VEXMELKFinding& finding = m_Findings.AtValue("unknown-reference", file, node, row.attribute,
            "there is no " + NounOf(row.names) + " " + VEXMELKQuoted(name));
        finding.effect = VEXMELKAskedAs(file, node) + std::string(row.attribute) + " leads to nothing";
        if (++m_Unknown > mostSuggestions)
            return;
        const std::vector<std::string> names(known->begin(), known->end());
        finding.suggestion = VEXMELKNearlySame(name, names);
        const bool isSafe = !finding.suggestion.empty();
        if (!isSafe)
            finding.suggestion = VEXMELKMeant(name, names);
        const VEXMELKWrittenFile::Tag* tag = file.Nodes()[node].tag;
        const auto* written = tag ? file.Written()->AttributeOf(*tag, row.attribute) : nullptr;
        if (isSafe && written && file.Written()->Text(written->value) == name &&
            VEXMELKEscaped(finding.suggestion) == finding.suggestion)
            finding.edits.push_back({written->value.begin, written->value.end, finding.suggestion});
    }
    // Told by the rule of words.
    static bool IsUnknownWord(const VEXMELKRow& row, const std::string& name)
    {
        const auto& words = row.words.list;
        return !words.empty() &&
               std::none_of(words.begin(), words.end(), [&](const VEXMELKWord& word) { return word.text == name; });
    }

    static std::string NounOf(std::string_view names)
    {
        return names.starts_with(standardOf)
                   ? "standard in " + std::string(names.substr(standardOf.size())) + " with the name"
                   : std::string(names) + " with the name";
    }

    // The names that there are; null when the file that has them is not there.
    const std::set<std::string>* Known(std::string_view names)
    {
        const auto known = m_Known.find(names);
        if (known != m_Known.end())
            return known->second ? &*known->second : nullptr;
        std::optional<std::set<std::string>>& found = m_Known[names];
        if (const auto all = Find(names))
            found.emplace(all->begin(), all->end());
        return found ? &*found : nullptr;
    }
    std::optional<std::vector<std::string>> Find(std::string_view names)
    {
        const VEXMELKCheckedConfiguration* in = &m_Configuration;
        std::string_view tag = names == "settings" ? "Settings" : names;
        if (names.starts_with(standardOf))
        {
            in = m_Directory.OfFile(names.substr(standardOf.size()));
            tag = "standard";
        }
        else if (names == "loading")
            in = m_Directory.OfFile("BaseData.xml");
        if (!in || in->files.empty() || HasBroken(*in))
            return std::nullopt;
        if (tag == "Settings")
            return Settings(*in);
        std::vector<std::string> found = m_Directory.NamesOf(*in, tag);
        if (names == "loading" && found.empty())
            return std::nullopt;
        return found;
    }
    static bool HasBroken(const VEXMELKCheckedConfiguration& configuration)
    {
        return std::any_of(configuration.files.begin(), configuration.files.end(),
            [](const auto& file) { return file->Nodes().empty(); });
    }
    // Those of the Customer file, when it has any, else those of the other one.
    std::vector<std::string> Settings(const VEXMELKCheckedConfiguration& configuration) const
    {
        std::vector<std::string> names;
        for (auto file = configuration.files.rbegin(); file != configuration.files.rend() && names.empty(); ++file)
            for (std::size_t node = 0; node < (*file)->Nodes().size(); ++node)
                if ((*file)->Is(node, "Settings"))
                    if (const auto name = (*file)->TextOf(node, "name"))
                        names.emplace_back(*name);
        return names;
    }

    VEXMELKCheckedDirectory& m_Directory;
    const VEXMELKCheckedConfiguration& m_Configuration;
    VEXMELKFindingList& m_Findings;
    std::map<std::string_view, std::optional<std::set<std::string>>> m_Known;
    std::size_t m_Unknown = 0;
};

} // namespace

void VEXMELKCheckNames(
    VEXMELKCheckedDirectory& directory, const VEXMELKCheckedConfiguration& configuration, VEXMELKFindingList& findings)
{
    NamePass(directory, configuration, findings).Check();
}
