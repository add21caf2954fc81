// Numbering names, and finding the elements of a tag below a node.
#include "CATXMLDocument.h"

#include <algorithm>
#include <new>

void CATOutOfMemory() { throw std::bad_alloc(); }

// The same names come in the same order over and over: the one that followed the last time is tried first.
CATXMLNames::Symbol CATXMLNames::Intern(const char* name)
{
    Symbol symbol = m_Latest == none ? none : m_Entries[m_Latest].following;
    if (!Is(symbol, name))
    {
        symbol = FindOrAdd(name);
        if (m_Latest != none)
            m_Entries[m_Latest].following = symbol;
    }
    return m_Latest = symbol;
}

CATXMLNames::Symbol CATXMLNames::FindOrAdd(std::string_view name)
{
    const auto added = static_cast<Symbol>(m_Entries.Size());
    const Symbol symbol = m_Table.FindOrAdd(name, added, [this](Symbol known) { return Name(known); });
    if (symbol == added)
    {
        m_Entries.Append(
            {static_cast<std::uint32_t>(m_Characters.Size()), static_cast<std::uint32_t>(name.size()), none});
        *std::copy(name.begin(), name.end(), m_Characters.Extend(name.size() + 1)) = '\0';
    }
    return symbol;
}

void CATXMLNames::Shrink()
{
    m_Characters.Shrink();
    m_Entries.Shrink();
}

void CATXMLDocument::Destroy(const CATXMLDocument* document) { delete document; }

std::string_view CATXMLDocument::OtherNodeName(Index node) const
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
    // Most often the list begins or ends within the node's subtree.
    const Index* begin = first == last || *first > node ? first : std::lower_bound(first, last, node + 1);
    const Index* end = begin == last || last[-1] < after ? last : std::lower_bound(begin, last, after);
    return {m_TagElements.Data(), static_cast<Index>(begin - m_TagElements.Data()), static_cast<Index>(end - begin)};
}
