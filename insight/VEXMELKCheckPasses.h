// What the rules share: the files of a directory, and a list to which findings are added. Each pass looks at one kind
// of mistake.
#ifndef VEXMELKCheckPasses_H
#define VEXMELKCheckPasses_H

#include "VEXMELKBaseline.h"
#include "VEXMELKCheck.h"
#include "VEXMELKCheckedFile.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKJudge.h"
#include "VEXMELKWording.h"

#include <set>

class VEXMELKFindingList
{
public:
    using File = VEXMELKCheckedFile;

    // Findings about a whole file, an element (its tag's name), and an attribute's name or value. What is returned can
    // be completed until the next one is added.
    VEXMELKFinding& AtFile(std::string_view rule, const std::string& file, std::string message);
    VEXMELKFinding& AtElement(std::string_view rule, const File& file, std::size_t node, std::string message);
    VEXMELKFinding& AtName(
        std::string_view rule, const File& file, std::size_t node, std::string_view attribute, std::string message);
    VEXMELKFinding& AtValue(
        std::string_view rule, const File& file, std::size_t node, std::string_view attribute, std::string message);
    std::vector<VEXMELKFinding>& All() { return m_Findings; }

private:
    VEXMELKFinding& Add(std::string_view rule, const std::string& file, std::string message);
    void SetSpan(VEXMELKFinding& finding, const File& file, std::size_t node, VEXMELKWrittenFile::Span span) const;

    std::vector<VEXMELKFinding> m_Findings;
};

// The files of one configuration that are there.
struct VEXMELKCheckedConfiguration
{
    const VEXMELKDescription* description = nullptr;
    std::vector<std::unique_ptr<VEXMELKCheckedFile>> files; // that the library reads: Default or single, then Customer
    std::vector<std::string> unread;                        // that it does not read, because of the others

    const VEXMELKCheckedFile* Customer() const;
    const VEXMELKCheckedFile* Main() const; // the Default or single file
};

class VEXMELKCheckedDirectory
{
public:
    explicit VEXMELKCheckedDirectory(std::string path) : m_Path(std::move(path)) {}

    const std::string& Path() const { return m_Path; }
    bool Has(const std::string& file) const;
    // Loads its files when it is first asked for.
    const VEXMELKCheckedConfiguration& Of(const VEXMELKDescription& description);
    // By the name of its file, such as "EyePoints.xml"; null when there is no such configuration.
    const VEXMELKCheckedConfiguration* OfFile(std::string_view fileName);

    // The names of all elements with the tag in the files that a configuration reads.
    std::vector<std::string> NamesOf(const VEXMELKCheckedConfiguration& configuration, std::string_view tag) const;

private:
    std::string m_Path;
    std::map<const VEXMELKDescription*, VEXMELKCheckedConfiguration> m_Configurations;
};

// "UFCurb, EU Passenger Car, suv: ", as far as the node stands in these.
std::string VEXMELKAskedAs(const VEXMELKCheckedFile& file, std::size_t node);
// What the checks get without the attribute: "front_offset is 120mm (of "default", 35:23)".
std::string VEXMELKWithout(const VEXMELKCheckedFile& file, std::size_t node, const VEXMELKRow& row);
// The name that this one is but for a slip of the pen. Names with other numbers, words or abbreviations are not. Empty
// when there is none.
std::string VEXMELKNearlySame(const std::string& name, const std::vector<std::string>& others);
// "35:23".
std::string VEXMELKPlaceText(VEXMELKPosition position);
VEXMELKPosition VEXMELKPositionOf(const VEXMELKCheckedFile& file, std::size_t node);

// The passes. Those of a file mark the elements that the others leave out, and come first.
void VEXMELKCheckElements(VEXMELKCheckedFile& file, VEXMELKFindingList& findings, std::size_t& values);
void VEXMELKCheckTwins(const VEXMELKCheckedFile& file, VEXMELKFindingList& findings);
void VEXMELKCheckRows(const VEXMELKCheckedFile& file, VEXMELKFindingList& findings);
void VEXMELKCheckSettings(const VEXMELKCheckedFile& file, VEXMELKFindingList& findings);
void VEXMELKCheckNames(
    VEXMELKCheckedDirectory& directory, const VEXMELKCheckedConfiguration& configuration, VEXMELKFindingList& findings);
void VEXMELKCheckStandards(VEXMELKCheckedDirectory& directory, const VEXMELKCheckedConfiguration& configuration,
    VEXMELKFindingList& findings, std::size_t& standards);
void VEXMELKCheckOverrides(const VEXMELKCheckedConfiguration& configuration, VEXMELKFindingList& findings);
// Compares with what was accepted: see VEXMELKBaseline.h.
void VEXMELKCheckBaseline(
    const VEXMELKCheckedConfiguration& configuration, const VEXMELKBaseline& baseline, VEXMELKFindingList& findings);
void VEXMELKCheckFolders(const VEXMELKCheckedDirectory& directory, VEXMELKFindingList& findings);
// Takes out what comments allow, and adds what is wrong with these comments.
void VEXMELKApplyAllowances(const VEXMELKCheckedFile& file, std::vector<VEXMELKFinding>& findings);

#endif
