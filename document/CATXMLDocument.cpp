// Numbering names, and finding the elements of a tag below a node.
#include "CATXMLDocument.h"

#include <algorithm>
#include <new>

void CATOutOfMemory() { throw std::bad_alloc(); }

CATXMLNames::Symbol CATXMLNames::Intern(std::string_view name)
{
    if (m_Latest != none && CATTextEqual(Name(Likely()), name))
        return m_Latest = Likely();
    const Symbol symbol = FindOrAdd(name);
    if (m_Latest != none)
        m_Entries[m_Latest].followingBefore = std::exchange(m_Entries[m_Latest].following, symbol);
    return m_Latest = symbol;
}

CATXMLNames::Symbol CATXMLNames::FindOrAdd(std::string_view name)
{
    const auto added = static_cast<Symbol>(m_Entries.Size());
    const Symbol symbol = m_Table.FindOrAdd(name, added, [this](Symbol known) { return Name(known); });
    if (symbol == added)
    {
        const std::size_t begin = m_Characters.Size();
        m_Entries.Append({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(name.size()), 0, 0, 0});
        std::copy(name.begin(), name.end(), m_Characters.Extend(name.size() + readableBytes));
        m_Characters.Resize(begin + name.size());
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

namespace {

// The first of an ordered list that is not below the limit, by steps from "near" that double.
const std::uint32_t* NotBefore(
    const std::uint32_t* first, const std::uint32_t* last, const std::uint32_t* near, std::uint32_t limit)
{
    std::ptrdiff_t step = 1;
    if (near != last && *near < limit)
    {
        for (first = near + 1; last - first > step && first[step] < limit; step *= 2)
            first += step + 1;
        return std::lower_bound(first, first + std::min(step, last - first), limit);
    }
    for (last = near; last - first > step && last[-step] >= limit; step *= 2)
        last -= step;
    return std::lower_bound(last - std::min(step, last - first), last, limit);
}

} // namespace

CATXMLDocument::Elements CATXMLDocument::ElementsByTagName(Index node, std::string_view tag) const
{
    if (tag == "*")
    {
        const Index after = EndOf(node);
        const Head* first = m_Heads.Data();
        const Head* last = first + (m_Heads.Size() - 1);
        const auto before = [](const Head& head, Index limit) { return head.node < limit; };
        const Head* begin = std::lower_bound(first, last, node + 1, before);
        const Head* end = std::lower_bound(begin, last, after, before);
        return {nullptr, static_cast<Index>(begin - first), static_cast<Index>(end - begin)};
    }
    return ElementsByTag(node, m_Names.Find(tag));
}

CATXMLDocument::Elements CATXMLDocument::ElementsByTag(Index node, Symbol tag) const
{
    if (tag == CATXMLNames::none)
        return {m_TagElements.Data(), 0, 0};
    const Index* first = m_TagElements.Data() + m_TagBegins[tag];
    const Index* last = m_TagElements.Data() + m_TagBegins[tag + 1];
    const Index after = EndOf(node);
    // Most often the list begins or ends within the node's subtree.
    const Index* begin = first;
    if (first != last && *first <= node)
    {
        // Elements of a kind are spread evenly as a rule: the search begins where the node's share of all nodes is.
        const double share = static_cast<double>(node) / static_cast<double>(m_Nodes.Size());
        begin = NotBefore(
            first, last, first + static_cast<std::ptrdiff_t>(share * static_cast<double>(last - first)), node + 1);
    }
    const Index* end = begin == last || last[-1] < after ? last : NotBefore(begin, last, begin, after);
    return {m_TagElements.Data(), static_cast<Index>(begin - m_TagElements.Data()), static_cast<Index>(end - begin)};
}

void CATXMLDocument::Complete()
{
    m_Nodes[0].endOrLength = static_cast<Index>(m_Nodes.Size());
    m_Heads.Append({0, static_cast<Index>(m_Attributes.Size()), 0, 0});
    m_Names.Shrink();
    m_Nodes.Shrink();
    m_Heads.Shrink();
    m_Attributes.Shrink();
    m_Text.Shrink();
    IndexTags();
}

// A counting sort: counts the elements of each tag, turns the counts into begins, and deals the elements out.
void CATXMLDocument::IndexTags()
{
    const std::size_t elements = m_Heads.Size() - 1;
    const std::size_t symbols = m_Names.Size();
    const auto tagOf = [&](std::size_t element) { return m_Nodes[m_Heads[element].node].symbol; };

    m_TagBegins.Resize(symbols + 1);
    std::fill_n(&m_TagBegins[0], symbols + 1, 0U);
    for (std::size_t element = 0; element < elements; ++element)
        ++m_TagBegins[tagOf(element)];
    Index next = 0;
    for (std::size_t symbol = 0; symbol <= symbols; ++symbol)
        next += std::exchange(m_TagBegins[symbol], next);
    m_TagElements.Resize(elements);
    for (std::size_t element = 0; element < elements; ++element)
        m_TagElements[m_TagBegins[tagOf(element)]++] = m_Heads[element].node;
    // Each begin now stands where the next one belongs.
    for (std::size_t symbol = symbols; symbol > 0; --symbol)
        m_TagBegins[symbol] = m_TagBegins[symbol - 1];
    m_TagBegins[0] = 0;
}
