// What each element and attribute is by the descriptions, and whether its text is what its rows take.
#include "VEXMELKCheckPasses.h"

#include "VEXMELKSuggestions.h"

#include <algorithm>

namespace {

using File = VEXMELKCheckedFile;

std::string TagText(std::string_view tag) { return "<" + std::string(tag) + ">"; }

class ElementPass
{
public:
    ElementPass(File& file, VEXMELKFindingList& findings, std::size_t& values)
        : m_File(file), m_Findings(findings), m_Values(values)
    {
    }

    void Check()
    {
        for (std::size_t node = 0; node < m_File.Nodes().size(); ++node)
        {
            m_File.Nodes()[node].isLeftOut = node != 0 && (IsBelowLeftOut(node) || IsUnknown(node));
            if (!m_File.Nodes()[node].isLeftOut)
                CheckAttributes(node);
        }
    }

private:
    bool IsBelowLeftOut(std::size_t node) const { return m_File.Nodes()[m_File.Nodes()[node].parent].isLeftOut; }

    // Reports an element that the description does not know there.
    bool IsUnknown(std::size_t node)
    {
        const File::Node& here = m_File.Nodes()[node];
        const std::string tag(m_File.TagOf(node));
        const bool isFree = m_File.Places().IsByFreeTag(here.place);
        if (here.place.kind->isKnown && !isFree)
            return false;
        const std::string meant = VEXMELKMeant(tag, m_File.Places().TagsBelow(m_File.Nodes()[here.parent].place));
        const VEXMELKElement* elsewhere = m_File.Places().FindTag(tag);
        if (here.place.kind->isKnown && meant.empty() && !elsewhere)
            return false;
        if (elsewhere)
            ReportMisplaced(node, *elsewhere);
        else if (!meant.empty() || !HoldsKnown(node))
            ReportUnknown(node, meant);
        else
            return false; // it only groups what may stand at any depth
        return true;
    }
    bool HoldsKnown(std::size_t node) const
    {
        const auto& nodes = m_File.Nodes();
        return std::any_of(nodes.begin() + static_cast<std::ptrdiff_t>(node) + 1,
            nodes.begin() + static_cast<std::ptrdiff_t>(nodes[node].end),
            [](const File::Node& each) { return each.place.kind->isKnown; });
    }

    void ReportMisplaced(std::size_t node, const VEXMELKElement& elsewhere)
    {
        const std::string tag = TagText(m_File.TagOf(node));
        std::size_t around = m_File.Nodes()[node].parent;
        const std::string parent = TagText(m_File.TagOf(around));
        while (around != File::none && m_File.TagOf(around) != elsewhere.tag)
            around = m_File.Nodes()[around].parent;
        const std::string expected = !elsewhere.below ? "below the root" : "in " + TagText(elsewhere.below->tag);
        const std::string message =
            around != File::none ? tag + " stands in another " + tag : tag + " is not read in " + parent;
        VEXMELKFinding& finding =
            m_Findings.AtElement("misplaced-element", m_File, node, message + "; its place is " + expected);
        finding.effect = VEXMELKAskedAs(m_File, node) + "nothing in it is read";
    }
    void ReportUnknown(std::size_t node, const std::string& meant)
    {
        const std::string tag = TagText(m_File.TagOf(node));
        VEXMELKFinding& finding = m_Findings.AtElement("unknown-element", m_File, node,
            "nothing reads " + tag + " in " + TagText(m_File.TagOf(m_File.Nodes()[node].parent)));
        finding.effect = VEXMELKAskedAs(m_File, node) + "nothing in it is read";
        finding.suggestion = meant;
        if (meant.empty())
        {
            finding.level = VEXMELKLevel::Warning;
            ReportTooDeep(node);
        }
        else if (m_File.Nodes()[node].tag)
            MendTag(finding, *m_File.Nodes()[node].tag, meant);
    }
    // What an unknown element keeps from being read.
    void ReportTooDeep(std::size_t node)
    {
        m_File.ForEachChild(node,
            [&](std::size_t child)
            {
                if (const VEXMELKElement* elsewhere = m_File.Places().FindTag(m_File.TagOf(child)))
                    ReportMisplaced(child, *elsewhere);
            });
    }
    void MendTag(VEXMELKFinding& finding, const VEXMELKWrittenFile::Tag& tag, const std::string& meant) const
    {
        finding.edits.push_back({tag.name.begin, tag.name.end, meant});
        if (tag.isEmpty)
            return;
        const std::string& text = m_File.Written()->Text();
        const std::size_t closing = text.rfind("</", m_File.Written()->EndOfElement(tag));
        if (closing != std::string::npos && closing >= tag.span.end)
            finding.edits.push_back({closing + 2, closing + 2 + tag.name.end - tag.name.begin, meant});
    }

    void CheckAttributes(std::size_t node)
    {
        const File::Node& here = m_File.Nodes()[node];
        const VEXMELKElementKind& kind = *here.place.kind;
        if (kind.described.empty())
            return; // the root of most files, and elements that only group others
        for (const auto& [name, text] : Attributes(node))
            if (const VEXMELKElementKind::Attribute* attribute = kind.Find(name))
                CheckText(node, *attribute, text);
            else if (!name.starts_with("xmlns") && !name.starts_with("xml:") && !name.starts_with("xsi:"))
                ReportUnread(node, name);
        for (const VEXMELKElementKind::Attribute& attribute : kind.attributes)
            if (!m_File.TextOf(node, attribute.name))
                CheckMissing(node, attribute);
            else
                CheckPair(node, attribute);
    }
    // A lower limit and the upper one that belongs to it. Angles may go past the full turn.
    void CheckPair(std::size_t node, const VEXMELKElementKind::Attribute& lower)
    {
        for (const auto& [low, high] :
            {std::pair("Min", "Max"), std::pair("min", "max"), std::pair("LowerLimit", "UpperLimit")})
        {
            std::string name(lower.name);
            const std::size_t at = name.find(low);
            if (at == std::string::npos)
                continue;
            name.replace(at, std::string_view(low).size(), high);
            const VEXMELKElementKind::Attribute* upper = m_File.Nodes()[node].place.kind->Find(name);
            const auto text = upper ? m_File.TextOf(node, name) : std::nullopt;
            if (!text || m_File.Is(node, "range"))
                continue;
            const auto least = VEXMELKAmountOf(*lower.rows.front(), *m_File.TextOf(node, lower.name));
            const auto most = VEXMELKAmountOf(*upper->rows.front(), *text);
            if (!least || !most || *least <= *most)
                continue;
            VEXMELKFinding& finding = m_Findings.AtValue("limits-reversed", m_File, node, lower.name,
                std::string(lower.name) + " is above " + name + ", which is " + VEXMELKQuoted(*text));
            if (lower.rows.front()->kind == VEXMELKKind::Angle)
                finding.level = VEXMELKLevel::Note;
        }
    }
    // As they are written; with those that a document type adds only where an entity wrote the element.
    std::vector<std::pair<std::string_view, std::string_view>> Attributes(std::size_t node) const
    {
        std::vector<std::pair<std::string_view, std::string_view>> attributes;
        const File::Node& here = m_File.Nodes()[node];
        if (here.tag)
        {
            for (const VEXMELKWrittenFile::Attribute& written : here.tag->attributes)
            {
                const std::string_view name = m_File.Written()->Text(written.name);
                if (const auto text = m_File.TextOf(node, name))
                    attributes.emplace_back(name, *text);
            }
            return attributes;
        }
        const CATIDOMNamedNodeMap_var map = here.element->GetAttributes();
        for (int position = 0; position < map->GetLength(); ++position)
            attributes.emplace_back(map->Item(position)->GetNodeName(), map->Item(position)->GetNodeValue());
        return attributes;
    }

    void ReportUnread(std::size_t node, std::string_view name)
    {
        const VEXMELKElementKind& kind = *m_File.Nodes()[node].place.kind;
        const std::string_view tag = m_File.TagOf(node);
        std::vector<std::string> candidates;
        for (const VEXMELKElementKind::Attribute& attribute : kind.attributes)
            if (!m_File.TextOf(node, attribute.name))
                candidates.emplace_back(attribute.name);
        const std::string meant = VEXMELKMeant(name, candidates);
        const VEXMELKElement* reader = m_File.Places().FindReaderOf(name);
        if (meant.empty() && reader && reader->tag != tag)
        {
            m_Findings.AtName("misplaced-attribute", m_File, node, name,
                "nothing reads the attribute " + VEXMELKQuoted(name) + " of " + TagText(tag) + "; " +
                    (reader->tag == "*" ? "another element" : TagText(reader->tag)) + " has one");
            return;
        }
        VEXMELKFinding& finding = m_Findings.AtName("unknown-attribute", m_File, node, name,
            "nothing reads the attribute " + VEXMELKQuoted(name) + " of " + TagText(tag));
        finding.suggestion = meant;
        if (meant.empty())
        {
            finding.level = VEXMELKLevel::Warning;
            return;
        }
        finding.effect = VEXMELKAskedAs(m_File, node) + VEXMELKWithout(m_File, node, *kind.Find(meant)->rows.front());
        if (const VEXMELKWrittenFile::Tag* written = m_File.Nodes()[node].tag)
            if (const auto* attribute = m_File.Written()->AttributeOf(*written, name))
                finding.edits.push_back({attribute->name.begin, attribute->name.end, meant});
    }

    void CheckText(std::size_t node, const VEXMELKElementKind::Attribute& attribute, std::string_view text)
    {
        ++m_Values;
        if (!CheckType(node, attribute))
            return;
        CheckBlanks(node, attribute, text);
        const auto judgement = VEXMELKJudge(attribute.rows, text);
        if (!judgement)
            return;
        VEXMELKFinding& finding = m_Findings.AtValue(judgement->rule, m_File, node, attribute.name, judgement->message);
        finding.level = judgement->level;
        finding.suggestion = judgement->suggestion;
        if (!judgement->effect.empty())
            finding.effect = VEXMELKAskedAs(m_File, node) + std::string(attribute.name) + " " + judgement->effect;
        if (judgement->isSafe)
            MendValue(finding, node, attribute.name, text, judgement->suggestion);
    }
    // Only where the value is written as it is read, without references.
    void MendValue(VEXMELKFinding& finding, std::size_t node, std::string_view name, std::string_view text,
        const std::string& mended) const
    {
        const VEXMELKWrittenFile::Tag* tag = m_File.Nodes()[node].tag;
        const auto* written = tag ? m_File.Written()->AttributeOf(*tag, name) : nullptr;
        if (written && m_File.Written()->Text(written->value) == text)
            finding.edits.push_back({written->value.begin, written->value.end, mended});
    }

    // Whether the attribute is read for the type that the element has; reports it when not.
    bool CheckType(std::size_t node, const VEXMELKElementKind::Attribute& attribute)
    {
        const std::string_view type = m_File.TextOf(node, "type").value_or("");
        std::string wanted;
        for (const VEXMELKRow* row : attribute.rows)
        {
            if (row->onlyFor.empty() || row->onlyFor == type)
                return true;
            if (wanted.find(row->onlyFor) == std::string::npos)
                wanted += (wanted.empty() ? "" : " and ") + VEXMELKQuoted(row->onlyFor);
        }
        m_Findings.AtName("misplaced-attribute", m_File, node, attribute.name,
            VEXMELKQuoted(attribute.name) + " is read for the type " + wanted + " only");
        return false;
    }

    // Names are compared exactly.
    void CheckBlanks(std::size_t node, const VEXMELKElementKind::Attribute& attribute, std::string_view text)
    {
        const VEXMELKRow& row = *attribute.rows.front();
        const bool isName = row.kind == VEXMELKKind::Name || row.kind == VEXMELKKind::Word ||
                            (row.kind == VEXMELKKind::Text && row.isAsWritten);
        if (!isName || row.isSecret)
            return;
        const VEXMELKWrittenFile::Tag* tag = m_File.Nodes()[node].tag;
        const auto* written = tag ? m_File.Written()->AttributeOf(*tag, attribute.name) : nullptr;
        const std::string_view raw = written ? m_File.Written()->Text(written->value) : text;
        if (raw.find_first_of("\r\n\t") != std::string_view::npos ||
            text.find_first_of("\r\n\t") != std::string_view::npos)
        {
            m_Findings.AtValue("line-break", m_File, node, attribute.name,
                "a line break or tab in " + VEXMELKQuoted(attribute.name) + " is read as a blank");
            return;
        }
        if (!row.isAsWritten || text.empty() || (text.front() != ' ' && text.back() != ' '))
            return;
        VEXMELKFinding& finding = m_Findings.AtValue("blanks-around-name", m_File, node, attribute.name,
            "blanks around " + VEXMELKQuoted(text) + " are a part of the name");
        const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
        finding.suggestion = text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
    }

    void CheckMissing(std::size_t node, const VEXMELKElementKind::Attribute& attribute)
    {
        const VEXMELKElementKind& kind = *m_File.Nodes()[node].place.kind;
        const std::string tag = TagText(m_File.TagOf(node));
        const std::string name = VEXMELKQuoted(attribute.name);
        if (kind.IsFoundBy(attribute))
            m_Findings.AtElement("missing-name", m_File, node, tag + " has no " + name + ": it is never found").effect =
                VEXMELKAskedAs(m_File, node) + "the element plays no part";
        else if (kind.Needs(attribute))
            m_Findings.AtElement("missing-attribute", m_File, node, tag + " has no " + name + ": queries for it fail");
        else if (attribute.rows.front()->whenMissing.rule == VEXMELKWhenMissing::Repeats && HasEarlierTwin(node))
            m_Findings
                .AtElement(
                    "repeated-value", m_File, node, tag + " has no " + name + ": that of the one before it is taken")
                .effect = VEXMELKAskedAs(m_File, node) + std::string(attribute.name) + " repeats";
    }
    bool HasEarlierTwin(std::size_t node) const
    {
        const std::size_t parent = m_File.Nodes()[node].parent;
        for (std::size_t early = parent + 1; early < node; early = m_File.Nodes()[early].end)
            if (m_File.TagOf(early) == m_File.TagOf(node))
                return true;
        return false;
    }

    File& m_File;
    VEXMELKFindingList& m_Findings;
    std::size_t& m_Values;
};

} // namespace

void VEXMELKCheckElements(VEXMELKCheckedFile& file, VEXMELKFindingList& findings, std::size_t& values)
{
    ElementPass(file, findings, values).Check();
}
