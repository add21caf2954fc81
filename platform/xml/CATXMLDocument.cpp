#include "CATXMLDocument.h"

#include <algorithm>

CATXMLNames::Symbol CATXMLNames::Intern(std::string_view name)
{
    const Symbol known = Find(name);
    if (known != none)
        return known;
    const auto symbol = static_cast<Symbol>(m_Entries.Size());
    const auto offset = static_cast<std::uint32_t>(m_Characters.Size());
    std::copy(name.begin(), name.end(), m_Characters.Extend(name.size()));
    m_Entries.Append({offset, static_cast<std::uint32_t>(name.size())});
    m_Table.Add(name, symbol);
    return symbol;
}

void CATXMLNames::Shrink()
{
    m_Characters.Shrink();
    m_Entries.Shrink();
}

void CATXMLDocument::Destroy(const CATXMLDocument* document) { delete document; }

std::string_view CATXMLDocument::NodeName(Index node) const
{
    switch (Type(node))
    {
    case Text:
        return "#text";
    case CDataSection:
        return "#cdata-section";
    case Comment:
        return "#comment";
    case Document:
        return "#document";
    default:
        return m_Names.Name(m_Nodes[node].symbol);
    }
}

std::string_view CATXMLDocument::NodeText(Index node) const
{
    if (HasChildren(node))
        return {};
    return {m_Text.Data() + m_Nodes[node].headOrText, m_Nodes[node].endOrLength};
}

CATXMLDocument::Elements CATXMLDocument::ElementsByTagName(Index node, std::string_view tag) const
{
    const Index after = EndOf(node);
    if (tag == "*")
    {
        const Head* first = m_Heads.Data();
        const Head* last = first + (m_Heads.Size() - 1);
        const auto before = [](const Head& head, Index limit) { return head.node < limit; };
        const Head* begin = std::lower_bound(first, last, node + 1, before);
        const Head* end = std::lower_bound(begin, last, after, before);
        return {nullptr, static_cast<Index>(begin - first), static_cast<Index>(end - begin)};
    }
    const Symbol symbol = m_Names.Find(tag);
    if (symbol == CATXMLNames::none)
        return {m_TagElements.Data(), 0, 0};
    const Index* first = m_TagElements.Data() + m_TagBegins[symbol];
    const Index* last = m_TagElements.Data() + m_TagBegins[symbol + 1];
    const Index* begin = std::lower_bound(first, last, node + 1);
    const Index* end = std::lower_bound(begin, last, after);
    return {m_TagElements.Data(), static_cast<Index>(begin - m_TagElements.Data()), static_cast<Index>(end - begin)};
}
