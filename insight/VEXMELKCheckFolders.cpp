// Files that nothing reads: of unknown names, in the wrong folder, hidden by others.
#include "VEXMELKBaseline.h"
#include "VEXMELKCheckPasses.h"

#include "VEXMELKFilePath.h"
#include "VEXMELKSuggestions.h"
#include "VEXMELKTrial.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
        [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
    return text;
}

std::string LastOf(const std::string& file) { return file.substr(file.rfind('/') + 1); }

class FolderPass
{
public:
    FolderPass(const VEXMELKCheckedDirectory& directory, VEXMELKFindingList& findings)
        : m_Directory(directory), m_Findings(findings)
    {
        for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
            if (configuration.create)
                AddKnown(*configuration.description);
        m_Known.emplace_back(VEXMELKBaselineFile);
    }

    void Check()
    {
        std::error_code error;
        std::vector<std::string> files;
        const fs::path root = VEXMELKFilePath(m_Directory.Path());
        for (fs::recursive_directory_iterator entry(root, fs::directory_options::skip_permission_denied, error), end;
             !error && entry != end; entry.increment(error))
        {
            const std::string name = VEXMELKTextOf(entry->path().lexically_relative(root));
            if (VEXMELKTextOf(entry->path().filename()).starts_with(".") && entry->is_directory(error))
                entry.disable_recursion_pending();
            else if (entry->is_regular_file(error))
                files.push_back(name);
        }
        std::sort(files.begin(), files.end());
        for (const std::string& file : files)
            CheckFile(file);
    }

private:
    void AddKnown(const VEXMELKDescription& description)
    {
        const std::string file = VEXMELKFileOf(description);
        m_Known.push_back(file);
        if (description.layout == VEXMELKLayout::Single)
            return;
        m_Known.push_back("Default/" + file);
        m_Known.push_back("Customer/" + file);
    }

    void CheckFile(const std::string& file)
    {
        if (file == VEXMELKBaselineFile) // of accept, not of the checks
            return;
        const auto is = [&](const std::string& known) { return known == file; };
        const bool isXml = Lower(file).ends_with(".xml");
        if (std::any_of(m_Known.begin(), m_Known.end(), is))
        {
            CheckLayout(file);
            return;
        }
        const auto sameLetters = [&](const std::string& known) { return Lower(known) == Lower(file); };
        const auto sameName = [&](const std::string& known) { return LastOf(known) == LastOf(file); };
        auto known = std::find_if(m_Known.begin(), m_Known.end(), sameLetters);
        if (known != m_Known.end())
        {
            VEXMELKFinding& finding = m_Findings.AtFile(
                "misnamed-file", file, "nothing reads this file: its name differs from " + *known + " by letter case");
            finding.suggestion = *known;
            if (!m_Directory.Has(*known))
                finding.renamed = *known;
        }
        else if (std::any_of(m_Known.begin(), m_Known.end(), sameName))
            ReportFolder(file);
        else if (isXml || !Near(file).empty())
        {
            VEXMELKFinding& finding = m_Findings.AtFile(
                Near(file).empty() ? "unread-file" : "misnamed-file", file, "nothing reads this file");
            finding.suggestion = Near(file);
        }
    }
    void ReportFolder(const std::string& file)
    {
        const std::string folder = file.starts_with("Customer/") ? "Customer/" : "Default/";
        const auto isThere = [&](const std::string& known) {
            return LastOf(known) == LastOf(file) && (known.starts_with(folder) || known.find('/') == std::string::npos);
        };
        const auto known = std::find_if(m_Known.rbegin(), m_Known.rend(), isThere);
        VEXMELKFinding& finding =
            m_Findings.AtFile("misplaced-file", file, "nothing reads this file: it is in the wrong folder");
        if (known != m_Known.rend())
            finding.suggestion = *known;
    }
    // A known file of the same folder whose name is nearly this one's.
    std::string Near(const std::string& file) const
    {
        const std::string folder = file.substr(0, file.size() - LastOf(file).size());
        std::vector<std::string> names;
        for (const std::string& known : m_Known)
            if (known.substr(0, known.size() - LastOf(known).size()) == folder && !m_Directory.Has(known))
                names.push_back(LastOf(known));
        const std::string meant = VEXMELKMeant(LastOf(file), names);
        return meant.empty() ? meant : folder + meant;
    }

    void CheckLayout(const std::string& file)
    {
        const bool isCustomer = file.starts_with("Customer/");
        if (file.starts_with("Default/"))
            return;
        const std::string name = isCustomer ? file.substr(std::string("Customer/").size()) : file;
        if (isCustomer && !m_Directory.Has("Default/" + name))
            m_Findings.AtFile("customer-only-file", file,
                "nothing reads this file: there is no Default/" + name + " beside which it would count");
        else if (!isCustomer && m_Directory.Has("Default/" + name))
            m_Findings.AtFile("hidden-file", file, "nothing reads this file: Default/" + name + " comes before it");
    }

    const VEXMELKCheckedDirectory& m_Directory;
    VEXMELKFindingList& m_Findings;
    std::vector<std::string> m_Known;
};

} // namespace

void VEXMELKCheckFolders(const VEXMELKCheckedDirectory& directory, VEXMELKFindingList& findings)
{
    FolderPass(directory, findings).Check();
}
