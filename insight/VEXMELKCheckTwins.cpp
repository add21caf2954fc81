// Elements of which only one counts, rows of which some are never chosen.
#include "VEXMELKCheckPasses.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

using File = VEXMELKCheckedFile;

// The element below which the described one is looked for.
std::size_t AnchorOf(const File& file, std::size_t node, const VEXMELKElement& element)
{
    std::size_t anchor = file.Nodes()[node].parent;
    const auto isAnchor = [&](std::size_t at)
    {
        const auto& described = file.Nodes()[at].place.kind->described;
        return std::find(described.begin(), described.end(), element.below) != described.end();
    };
    while (anchor != 0 && !(element.below && isAnchor(anchor)))
        anchor = file.Nodes()[anchor].parent;
    return anchor;
}

std::string NumberText(double number)
{
    char text[32];
    return {text, std::to_chars(std::begin(text), std::end(text), number).ptr};
}

// Calls act(node, described, anchor) for each element that the description knows.
template <class Act> void ForEachRuled(const File& file, Act act)
{
    for (std::size_t node = 1; node < file.Nodes().size(); ++node)
        if (!file.Nodes()[node].isLeftOut)
            if (const VEXMELKElement* ruling = file.Nodes()[node].place.kind->Ruling())
                act(node, *ruling, AnchorOf(file, node, *ruling));
}

class TwinPass
{
public:
    TwinPass(const File& file, VEXMELKFindingList& findings) : m_File(file), m_Findings(findings) {}

    void Check()
    {
        ForEachRuled(m_File, [&](std::size_t node, const VEXMELKElement& element, std::size_t anchor)
            { CheckElement(node, element, anchor); });
    }

private:
    void CheckElement(std::size_t node, const VEXMELKElement& element, std::size_t anchor)
    {
        const VEXMELKTwins twins = VEXMELKTwinsOf(element);
        if (twins == VEXMELKTwins::Each)
            return CheckOfList(node, element, anchor);
        const bool isKeyed = twins > VEXMELKTwins::Each;
        const auto key = isKeyed ? m_File.TextOf(node, element.key->attribute) : std::optional<std::string_view>("");
        if (!key)
            return;
        const auto amount = twins == VEXMELKTwins::ByRow ? VEXMELKAmountOf(*element.key, *key) : std::nullopt;
        const std::string identity = std::to_string(anchor) + " " + std::string(m_File.TagOf(node)) + " " +
                                     (amount ? NumberText(*amount) : std::string(*key));
        const auto [first, isNew] = m_First.emplace(identity, node);
        if (isNew)
            return;
        if (isKeyed)
            ReportKey(node, first->second, element, *key);
        else
            ReportElement(node, first->second, element);
    }

    // Of a list each element counts. The same one again, or one of the same name, is hardly meant.
    void CheckOfList(std::size_t node, const VEXMELKElement& element, std::size_t anchor)
    {
        const VEXMELKWrittenFile::Tag* tag = m_File.Nodes()[node].tag;
        const VEXMELKElementKind::Attribute* names = m_File.Nodes()[node].place.kind->Find("name");
        const auto name = names ? m_File.TextOf(node, "name") : std::nullopt;
        if (!tag || m_File.Nodes()[node].place.kind->attributes.empty())
            return;
        // A standard has one level, whatever list it stands in.
        const bool isInGroups = name && element.below && element.below->key && names->rows.front()->names == "standard";
        const std::string scope = std::to_string(isInGroups ? m_File.Nodes()[anchor].parent : anchor) + " ";
        const std::string written(m_File.Written()->Text({tag->span.begin, m_File.Written()->EndOfElement(*tag)}));
        const auto [same, isNew] = m_First.emplace(scope + written, node);
        const auto [named, isNewName] = name && !name->empty()
                                            ? m_First.emplace(scope + "name " + std::string(*name), node)
                                            : std::pair(m_First.end(), true);
        const std::string mark = "<" + std::string(m_File.TagOf(node)) + ">";
        if (!isNewName)
            m_Findings.AtValue("duplicate-name", m_File, node, "name",
                "another " + mark + " has the name " + VEXMELKQuoted(*name) + AtFirst(named->second) +
                    (isInGroups ? ": the lowest " + std::string(element.below->key->attribute) + " counts"
                                : ": both count"));
        else if (!isNew)
            m_Findings.AtElement("duplicate-element", m_File, node,
                mark + " repeats the one before" + AtFirst(same->second) + " letter for letter: both count");
    }

    std::string AtFirst(std::size_t first) const
    {
        return " (" + VEXMELKPlaceText(VEXMELKPositionOf(m_File, first)) + ")";
    }
    void ReportKey(std::size_t node, std::size_t first, const VEXMELKElement& element, std::string_view key)
    {
        const bool isOverlay = element.fallBack == VEXMELKFallBack::Overlay;
        const std::string tag = "<" + std::string(m_File.TagOf(node)) + ">";
        VEXMELKFinding& finding = m_Findings.AtValue("duplicate-name", m_File, node, element.key->attribute,
            "another " + tag + " has the " + std::string(element.key->attribute) + " " + VEXMELKQuoted(key) +
                AtFirst(first) + (isOverlay ? ": this one is read over it" : ": the first counts"));
        if (isOverlay)
            return;
        finding.effect = VEXMELKAskedAs(m_File, node) + "nothing in the second " + tag + " is read";
        Remove(finding, node);
    }
    void ReportElement(std::size_t node, std::size_t first, const VEXMELKElement& element)
    {
        const std::string tag = "<" + std::string(m_File.TagOf(node)) + ">";
        const bool isSingle = element.choice == VEXMELKChoice::Single;
        const bool isLast = element.choice == VEXMELKChoice::Last;
        VEXMELKFinding& finding = m_Findings.AtElement("duplicate-element", m_File, node,
            "another " + tag + " stands before this one" + AtFirst(first) +
                (isSingle    ? ": two count as none"
                    : isLast ? ": the last counts"
                             : ": the first counts"));
        finding.effect = VEXMELKAskedAs(m_File, node) + (isSingle    ? "neither is read"
                                                            : isLast ? "the first is not read"
                                                                     : "the second is not read");
        if (!isSingle && !isLast)
            Remove(finding, node);
    }
    // With the indentation before it, when nothing else stands in its lines.
    void Remove(VEXMELKFinding& finding, std::size_t node) const
    {
        const VEXMELKWrittenFile::Tag* tag = m_File.Nodes()[node].tag;
        if (!tag)
            return;
        const std::string& text = m_File.Written()->Text();
        const std::size_t end = m_File.Written()->EndOfElement(*tag);
        const std::size_t before = text.find_last_not_of(" \t", tag->span.begin - 1);
        const bool isAlone = before != std::string::npos && (text[before] == '\n' || text[before] == '\r') &&
                             end < text.size() && (text[end] == '\n' || text[end] == '\r');
        std::size_t begin = isAlone ? before : tag->span.begin;
        if (isAlone && text[before] == '\n' && before > 0 && text[before - 1] == '\r')
            --begin;
        finding.edits.push_back({begin, end, ""});
    }

    const File& m_File;
    VEXMELKFindingList& m_Findings;
    std::unordered_map<std::string, std::size_t> m_First;
};

// The rows of one list, in the order of the file.
struct RowList
{
    const VEXMELKElement* element = nullptr;
    std::vector<std::pair<double, std::size_t>> rows; // key and node
};

class RowPass
{
public:
    RowPass(const File& file, VEXMELKFindingList& findings) : m_File(file), m_Findings(findings) {}

    void Check()
    {
        std::map<std::pair<std::size_t, std::string>, RowList> lists;
        ForEachRuled(m_File,
            [&](std::size_t node, const VEXMELKElement& element, std::size_t anchor)
            {
                if (!IsOrdered(element))
                    return;
                const auto key = m_File.TextOf(node, element.key->attribute);
                const auto amount = key ? VEXMELKAmountOf(*element.key, *key) : std::nullopt;
                if (!amount)
                    return;
                RowList& list = lists[{anchor, std::string(m_File.TagOf(node))}];
                list.element = &element;
                list.rows.emplace_back(*amount, node);
            });
        for (const auto& [place, list] : lists)
            CheckList(list);
    }

private:
    static bool IsOrdered(const VEXMELKElement& element)
    {
        return VEXMELKTwinsOf(element) == VEXMELKTwins::ByRow && element.choice != VEXMELKChoice::NearestAngle &&
               element.choice != VEXMELKChoice::LengthBelow && element.choice != VEXMELKChoice::NearestTravel;
    }

    // Rows of head contours are written with increasing travel, where the last below the travel counts; the others with
    // decreasing travel, where the first counts. A row that equals another one is a twin, which is told elsewhere.
    void CheckList(const RowList& list)
    {
        const bool isIncreasing = list.element->choice == VEXMELKChoice::HeadContour;
        std::vector<std::pair<double, std::size_t>> rows = list.rows;
        if (isIncreasing)
            std::reverse(rows.begin(), rows.end());
        double least = std::numeric_limits<double>::infinity();
        std::size_t hider = 0;
        for (const auto& [travel, node] : rows)
        {
            // An earlier row (of those to be asked first) with a smaller travel is taken for every travel of this one.
            const bool isHidden = least < travel;
            if (isHidden)
                Report(node, hider, isIncreasing, *list.element);
            if (travel < least)
            {
                least = travel;
                hider = node;
            }
        }
    }
    void Report(std::size_t node, std::size_t hider, bool isIncreasing, const VEXMELKElement& element)
    {
        const std::string tag = "<" + std::string(m_File.TagOf(node)) + ">";
        m_Findings
            .AtValue("row-order", m_File, node, element.key->attribute,
                "no travel above its own chooses this " + tag + ": the one at " +
                    VEXMELKPlaceText(VEXMELKPositionOf(m_File, hider)) + " is taken before it; write the rows with " +
                    (isIncreasing ? "increasing" : "decreasing") + " travel")
            .effect = VEXMELKAskedAs(m_File, node) + "queries get another row, or fail";
    }

    const File& m_File;
    VEXMELKFindingList& m_Findings;
};

} // namespace

void VEXMELKCheckTwins(const VEXMELKCheckedFile& file, VEXMELKFindingList& findings)
{
    TwinPass(file, findings).Check();
}

void VEXMELKCheckRows(const VEXMELKCheckedFile& file, VEXMELKFindingList& findings) { RowPass(file, findings).Check(); }
