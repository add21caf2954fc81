// Runs the passes over the files of a directory and sorts what they find.
#include "CATNumberText.h"
#include "VEXMELKCheckPasses.h"

#include "VEXMELKFilePath.h"
#include "VEXMELKTrial.h"

#include <algorithm>
#include <filesystem>

namespace {

using File = VEXMELKCheckedFile;

std::string ValueText(const VEXMELKRow& row, std::string_view text)
{
    std::string value(text);
    if (!row.unit.empty() && row.unit != "%" && !value.empty() && value.back() >= '0' && value.back() <= '9')
        value += row.unit;
    return value.empty() ? "empty" : VEXMELKQuoted(value).substr(1, VEXMELKQuoted(value).size() - 2);
}

// What a missing attribute gives.
std::string MissingText(const VEXMELKRow& row)
{
    switch (row.whenMissing.rule)
    {
    case VEXMELKWhenMissing::Keeps:
        return "stays what the check had";
    case VEXMELKWhenMissing::Repeats:
        return "is that of the element before";
    case VEXMELKWhenMissing::Skips:
        return "is missing, and the element plays no part";
    case VEXMELKWhenMissing::Fails:
        return "is missing, and the query fails";
    default:
        break;
    }
    if (row.form == VEXMELKForm::Flag)
        return row.whenMissing.flag ? "is true" : "is false";
    if (row.form == VEXMELKForm::Text && row.whenMissing.text.empty())
        return "is empty";
    return "is the built-in default";
}

const VEXMELKElement* CategoryThatReads(const VEXMELKRow& row, const VEXMELKElementKind& kind)
{
    for (const VEXMELKElement* element : kind.described)
        if (element->tag == "category")
            for (const VEXMELKRows table : element->tables)
                if (std::any_of(table.begin(), table.end(), [&](const VEXMELKRow& each) { return &each == &row; }))
                    return element;
    return nullptr;
}

bool IsBefore(const VEXMELKFinding& left, const VEXMELKFinding& right)
{
    return std::tie(left.file, left.begin, left.rule->id, left.message) <
           std::tie(right.file, right.begin, right.rule->id, right.message);
}

class Checker
{
public:
    Checker(const CATUnicodeString& directory, const VEXMELKCheckScope& scope)
        : m_Directory(directory.ConvertToChar()), m_Scope(scope), m_Baseline(VEXMELKLoadBaseline(m_Directory.Path()))
    {
    }

    VEXMELKCheckResult Check()
    {
        const VEXMELKSilence silence;
        const std::vector<const VEXMELKDescription*> wanted = Wanted();
        std::size_t number = 0;
        for (const VEXMELKDescription* description : wanted)
        {
            if (m_Scope.onFile)
                m_Scope.onFile(++number, wanted.size(), VEXMELKFileOf(*description));
            CheckConfiguration(*description);
        }
        CompareNamesOfFiles(wanted, "standard");
        CompareNamesOfFiles(wanted, "category");
        VEXMELKCheckFolders(m_Directory, m_Findings);
        for (const VEXMELKDescription* description : wanted)
            for (const auto& file : m_Directory.Of(*description).files)
                VEXMELKApplyAllowances(*file, m_Findings.All());
        m_Result.findings = std::move(m_Findings.All());
        KeepScope();
        std::sort(m_Result.findings.begin(), m_Result.findings.end(), IsBefore);
        return std::move(m_Result);
    }

private:
    // Those whose files are wanted.
    std::vector<const VEXMELKDescription*> Wanted() const
    {
        std::vector<const VEXMELKDescription*> wanted;
        const bool isAll = m_Scope.configurations.empty() && m_Scope.files.empty();
        for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
        {
            if (!configuration.create)
                continue;
            const VEXMELKDescription* description = configuration.description;
            const auto& chosen = m_Scope.configurations;
            const bool isChosen = std::find(chosen.begin(), chosen.end(), description) != chosen.end();
            const std::string file = VEXMELKFileOf(*description);
            const bool hasFile = std::any_of(m_Scope.files.begin(), m_Scope.files.end(),
                [&](const std::string& name)
                { return name == file || name == "Default/" + file || name == "Customer/" + file; });
            if (isAll || isChosen || hasFile)
                wanted.push_back(description);
        }
        return wanted;
    }

    void CheckConfiguration(const VEXMELKDescription& description)
    {
        const VEXMELKCheckedConfiguration& configuration = m_Directory.Of(description);
        for (const auto& file : configuration.files)
        {
            m_Result.files.push_back(file->Name());
            AddProblems(*file);
            VEXMELKCheckElements(*file, m_Findings, m_Result.values);
        }
        for (const auto& file : configuration.files)
        {
            VEXMELKCheckTwins(*file, m_Findings);
            VEXMELKCheckRows(*file, m_Findings);
            VEXMELKCheckSettings(*file, m_Findings);
        }
        VEXMELKCheckNames(m_Directory, configuration, m_Findings);
        VEXMELKCheckStandards(m_Directory, configuration, m_Findings, m_Result.standards);
        VEXMELKCheckOverrides(configuration, m_Findings);
        if (m_Baseline)
            VEXMELKCheckBaseline(configuration, *m_Baseline, m_Findings);
    }

    // A standard or a category that one configuration alone calls so, where many others have one of nearly that name.
    void CompareNamesOfFiles(const std::vector<const VEXMELKDescription*>& descriptions, const std::string& tag)
    {
        constexpr int many = 3;
        constexpr std::size_t most = 100; // compared with each other
        std::map<std::string, std::set<const VEXMELKDescription*>> files;
        for (const VEXMELKDescription* description : descriptions)
            for (const std::string& name : m_Directory.NamesOf(m_Directory.Of(*description), tag))
                files[name].insert(description);
        std::vector<std::string> common;
        for (const auto& [name, in] : files)
            if (in.size() >= many && common.size() < most)
                common.push_back(name);
        std::size_t compared = 0;
        for (const auto& [name, in] : files)
        {
            if (in.size() > 1 || name != CATStripped(name) || ++compared > most * most)
                continue;
            const std::string meant = VEXMELKNearlySame(name, common);
            if (meant.empty() || files[meant].count(*in.begin()) != 0)
                continue;
            // Categories of standards have been compared with those of the other standards.
            const VEXMELKCheckedConfiguration& configuration = m_Directory.Of(**in.begin());
            if (tag == "standard" || m_Directory.NamesOf(configuration, "standard").empty())
                ReportSimilar(configuration, tag, name, meant);
        }
    }
    // At the first that is called so. Where another file took the name for the right one, it is taken back.
    void ReportSimilar(const VEXMELKCheckedConfiguration& configuration, const std::string& tag,
        const std::string& name, const std::string& meant)
    {
        std::erase_if(m_Findings.All(), [&](const VEXMELKFinding& finding)
            { return finding.rule->id == "similar-name" && finding.suggestion == name; });
        for (VEXMELKFinding& finding : m_Findings.All())
            if (finding.rule->id == "unknown-reference" && finding.suggestion == name)
                finding.edits.clear(); // what refers to it is right
        for (const auto& file : configuration.files)
            for (std::size_t node = 1; node < file->Nodes().size(); ++node)
                if (file->Is(node, tag) && !file->Nodes()[node].isLeftOut && file->TextOf(node, "name") == name)
                {
                    m_Findings
                        .AtValue("similar-name", *file, node, "name",
                            "the " + tag + " " + VEXMELKQuoted(name) + " is nearly " + VEXMELKQuoted(meant) +
                                " of other files")
                        .suggestion = meant;
                    return;
                }
    }

    void AddProblems(const File& file)
    {
        for (const File::Problem& problem : file.Problems())
        {
            VEXMELKFinding& finding = m_Findings.AtFile(
                problem.isFatal ? "not-well-formed" : "missing-type-definition", file.Name(), problem.message);
            finding.begin = problem.position;
            finding.end = {problem.position.line, problem.position.column + 1};
            if (problem.isFatal)
                finding.effect = std::string(file.Description().name) + ": every query fails";
        }
    }

    // Files that were read for the sake of others are not asked for.
    void KeepScope()
    {
        if (m_Scope.files.empty() && m_Scope.configurations.empty())
            return;
        const auto isAside = [&](const VEXMELKFinding& finding)
        {
            const auto& files = m_Scope.files;
            const auto isOf = [&](const VEXMELKDescription* description)
            { return finding.file.ends_with(VEXMELKFileOf(*description)); };
            return std::find(files.begin(), files.end(), finding.file) == files.end() &&
                   std::none_of(m_Scope.configurations.begin(), m_Scope.configurations.end(), isOf);
        };
        auto& findings = m_Result.findings;
        findings.erase(std::remove_if(findings.begin(), findings.end(), isAside), findings.end());
    }

    VEXMELKCheckedDirectory m_Directory;
    const VEXMELKCheckScope& m_Scope;
    const std::optional<VEXMELKBaseline> m_Baseline;
    VEXMELKFindingList m_Findings;
    VEXMELKCheckResult m_Result;
};

} // namespace

VEXMELKFinding& VEXMELKFindingList::Add(std::string_view rule, const std::string& file, std::string message)
{
    VEXMELKFinding finding;
    finding.rule = VEXMELKFindRule(rule);
    finding.level = finding.rule->level;
    finding.file = file;
    finding.message = std::move(message);
    m_Findings.push_back(std::move(finding));
    return m_Findings.back();
}

VEXMELKFinding& VEXMELKFindingList::AtFile(std::string_view rule, const std::string& file, std::string message)
{
    VEXMELKFinding& finding = Add(rule, file, std::move(message));
    finding.begin = {1, 1};
    finding.end = {1, 1};
    return finding;
}

VEXMELKFinding& VEXMELKFindingList::AtElement(
    std::string_view rule, const File& file, std::size_t node, std::string message)
{
    VEXMELKFinding& finding = Add(rule, file.Name(), std::move(message));
    const VEXMELKWrittenFile::Tag* tag = file.Nodes()[node].tag;
    SetSpan(finding, file, node,
        tag ? VEXMELKWrittenFile::Span{tag->span.begin, tag->name.end} : VEXMELKWrittenFile::Span());
    return finding;
}

VEXMELKFinding& VEXMELKFindingList::AtName(
    std::string_view rule, const File& file, std::size_t node, std::string_view attribute, std::string message)
{
    VEXMELKFinding& finding = Add(rule, file.Name(), std::move(message));
    const VEXMELKWrittenFile::Tag* tag = file.Nodes()[node].tag;
    const auto* written = tag ? file.Written()->AttributeOf(*tag, attribute) : nullptr;
    SetSpan(finding, file, node, written ? written->name : VEXMELKWrittenFile::Span());
    return finding;
}

VEXMELKFinding& VEXMELKFindingList::AtValue(
    std::string_view rule, const File& file, std::size_t node, std::string_view attribute, std::string message)
{
    VEXMELKFinding& finding = Add(rule, file.Name(), std::move(message));
    const VEXMELKWrittenFile::Tag* tag = file.Nodes()[node].tag;
    const auto* written = tag ? file.Written()->AttributeOf(*tag, attribute) : nullptr;
    SetSpan(finding, file, node, written ? written->value : VEXMELKWrittenFile::Span());
    return finding;
}

// What an entity or a document type wrote is told at the element.
void VEXMELKFindingList::SetSpan(
    VEXMELKFinding& finding, const File& file, std::size_t node, VEXMELKWrittenFile::Span span) const
{
    const File::Node& here = file.Nodes()[node];
    finding.begin = VEXMELKPositionOf(file, node);
    finding.end = {finding.begin.line, finding.begin.column + 1};
    if (here.tag && span.end > 0)
    {
        finding.begin = file.Written()->PositionIn(*here.tag, span.begin);
        finding.end = file.Written()->PositionIn(*here.tag, span.end);
    }
}

const VEXMELKCheckedFile* VEXMELKCheckedConfiguration::Customer() const
{
    const bool isThere = !files.empty() && files.back()->GetLayer() == VEXMELKCheckedFile::Layer::Customer;
    return isThere ? files.back().get() : nullptr;
}

const VEXMELKCheckedFile* VEXMELKCheckedConfiguration::Main() const
{
    return files.empty() ? nullptr : files.front().get();
}

bool VEXMELKCheckedDirectory::Has(const std::string& file) const
{
    std::error_code error;
    return std::filesystem::is_regular_file(VEXMELKFilePath(m_Path + "/" + file), error);
}

const VEXMELKCheckedConfiguration& VEXMELKCheckedDirectory::Of(const VEXMELKDescription& description)
{
    VEXMELKCheckedConfiguration& configuration = m_Configurations[&description];
    if (configuration.description)
        return configuration;
    configuration.description = &description;
    const std::string file = VEXMELKFileOf(description);
    const auto add = [&](File::Layer layer, const std::string& name)
    { configuration.files.push_back(std::make_unique<File>(description, layer, name, m_Path)); };
    if (description.layout == VEXMELKLayout::Parts && Has("Default/" + file))
    {
        add(File::Layer::Default, "Default/" + file);
        if (Has("Customer/" + file))
            add(File::Layer::Customer, "Customer/" + file);
    }
    else if (Has(file))
        add(File::Layer::Single, file);
    return configuration;
}

const VEXMELKCheckedConfiguration* VEXMELKCheckedDirectory::OfFile(std::string_view fileName)
{
    for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
        if (configuration.create && VEXMELKFileOf(*configuration.description).ends_with("/" + std::string(fileName)))
            return &Of(*configuration.description);
    return nullptr;
}

std::vector<std::string> VEXMELKCheckedDirectory::NamesOf(
    const VEXMELKCheckedConfiguration& configuration, std::string_view tag) const
{
    std::vector<std::string> names;
    for (const auto& file : configuration.files)
        for (std::size_t node = 0; node < file->Nodes().size(); ++node)
        {
            const VEXMELKElement* element = file->Nodes()[node].place.kind->As(tag);
            const bool isReference = element && tag == "standard" && element->below;
            if (const auto name = element && !isReference ? file->TextOf(node, "name") : std::nullopt)
                names.emplace_back(*name);
        }
    return names;
}

std::string VEXMELKPlaceText(VEXMELKPosition position)
{
    return std::to_string(position.line) + ":" + std::to_string(position.column);
}

VEXMELKPosition VEXMELKPositionOf(const VEXMELKCheckedFile& file, std::size_t node)
{
    return {file.Nodes()[node].element->GetLineNumber(), file.Nodes()[node].element->GetColumnNumber()};
}

std::string VEXMELKAskedAs(const VEXMELKCheckedFile& file, std::size_t node)
{
    std::string asked(file.Description().name);
    for (const char* tag : {"standard", "category"})
    {
        std::size_t around = file.Around(node, tag);
        if (around != File::none && file.TagOf(around) != tag)
            around = File::none; // a standard that is its own category
        const std::string_view name = around == File::none ? "" : file.TextOf(around, "name").value_or("");
        const std::string quoted = VEXMELKQuoted(name);
        if (!name.empty())
            asked += ", " + quoted.substr(1, quoted.size() - 2);
    }
    return asked + ": ";
}

std::string VEXMELKWithout(const VEXMELKCheckedFile& file, std::size_t node, const VEXMELKRow& row)
{
    const std::string name(row.attribute);
    const VEXMELKElement* category = CategoryThatReads(row, *file.Nodes()[node].place.kind);
    std::string found;
    if (category && category->fallBack == VEXMELKFallBack::ValueByValue)
        file.ForEachChild(file.Nodes()[node].parent,
            [&](std::size_t other)
            {
                const auto text = file.TextOf(other, row.attribute);
                if (!found.empty() || !text || other == node || file.TextOf(other, "name") != "default")
                    return;
                const VEXMELKWrittenFile::Tag* tag = file.Nodes()[other].tag;
                const auto* written = tag ? file.Written()->AttributeOf(*tag, row.attribute) : nullptr;
                const VEXMELKPosition position =
                    written ? file.Written()->PositionIn(*tag, written->value.begin) : VEXMELKPositionOf(file, other);
                found = name + " is " + ValueText(row, *text) + " (of \"default\", " + VEXMELKPlaceText(position) + ")";
            });
    return found.empty() ? name + " " + MissingText(row) : found;
}

VEXMELKCheckResult VEXMELKCheck(const CATUnicodeString& directory, const VEXMELKCheckScope& scope)
{
    return Checker(directory, scope).Check();
}

bool VEXMELKMayShow(const VEXMELKFinding& finding)
{
    for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
        if (configuration.description && VEXMELKHasSecrets(*configuration.description) &&
            finding.file.ends_with(VEXMELKFileOf(*configuration.description)))
            return false;
    return true;
}
