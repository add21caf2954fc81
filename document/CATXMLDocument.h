// A parsed document as an immutable arena.
//
// Nodes stand in document order, each knowing its parent and where its subtree ends, so the descendants of node n are
// the nodes n + 1 ... end(n) - 1. Names of elements and attributes are numbered ("symbols"); attribute values and
// texts lie in one buffer; for each tag there is the ordered list of its elements, so that the elements of a tag
// below a node are a slice of that list, found by binary search. Nothing is allocated to look something up.
#ifndef CATXMLDocument_H
#define CATXMLDocument_H

#include "CATTextTable.h"
#include "CATXMLPlaces.h"
#include "VEXMELKConfigurationExport.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>

// Throws std::bad_alloc: apart, so that programs without exceptions may include this.
[[noreturn]] ExportedByVEXMELKConfiguration void CATOutOfMemory();

// A growing array of plain values. It never holds two copies of a large block while it grows, and gives back what it
// has not used. It can start in storage that its owner provides: a small document is then written there first, and
// memory is allocated once its size is known.
template <class Value> class CATXMLBuffer
{
    static_assert(std::is_trivially_copyable_v<Value>);

public:
    CATXMLBuffer() = default;
    CATXMLBuffer(const CATXMLBuffer&) = delete;
    CATXMLBuffer& operator=(const CATXMLBuffer&) = delete;
    ~CATXMLBuffer()
    {
        if (!m_IsBorrowed)
            std::free(m_Values);
    }

    // For an empty array: uses the storage, which has to stay until Shrink, as long as it suffices.
    template <std::size_t Bytes> void BeginIn(std::array<std::byte, Bytes>& storage)
    {
        m_Values = reinterpret_cast<Value*>(storage.data());
        m_Capacity = Bytes / sizeof(Value);
        m_IsBorrowed = true;
    }

    std::size_t Size() const { return m_Size; }
    const Value* Data() const { return m_Values; }
    Value& operator[](std::size_t index) { return m_Values[index]; }
    const Value& operator[](std::size_t index) const { return m_Values[index]; }

    void Append(const Value& value)
    {
        const Value copy = value;
        *Extend(1) = copy;
    }
    // Adds slots with undefined contents and returns the first of them.
    Value* Extend(std::size_t count)
    {
        if (m_Capacity - m_Size < count)
            Reallocate(m_Size + count + m_Size / 2);
        m_Size += count;
        return m_Values + (m_Size - count);
    }
    // Slots that are added have undefined contents.
    void Resize(std::size_t size)
    {
        if (size > m_Capacity)
            Reallocate(size);
        m_Size = size;
    }
    void Shrink() { Reallocate(m_Size); }

private:
    void Reallocate(std::size_t capacity)
    {
        if (capacity == m_Capacity && !m_IsBorrowed)
            return;
        void* own = m_IsBorrowed ? nullptr : static_cast<void*>(m_Values);
        void* moved = std::realloc(own, std::max<std::size_t>(capacity, 1) * sizeof(Value));
        if (!moved)
            CATOutOfMemory();
        if (m_IsBorrowed)
            std::copy_n(m_Values, m_Size, static_cast<Value*>(moved));
        m_Values = static_cast<Value*>(moved);
        m_Capacity = capacity;
        m_IsBorrowed = false;
    }

    Value* m_Values = nullptr;
    std::size_t m_Size = 0;
    std::size_t m_Capacity = 0;
    bool m_IsBorrowed = false;
};

// Storage to begin in, for each array of a document.
using CATXMLStorage = std::array<std::byte, 8192>;

// Numbers names: the first new one is symbol 0, the next 1, and so on.
class ExportedByVEXMELKConfiguration CATXMLNames
{
public:
    using Symbol = CATTextTable::Number;
    static constexpr Symbol none = CATTextTable::none;

    // The same few names are asked for over and over, mostly by the same constants of the program: where a name lies in
    // memory tells where it was noted the last time.
    Symbol Find(std::string_view name) const
    {
        const std::uint64_t place = reinterpret_cast<std::uintptr_t>(name.data()) * 0x9E3779B97F4A7C15U;
        Symbol& noted = m_Noted[place >> 60U];
        if (noted == none || !CATTextEqual(Name(noted), name))
            noted = m_Table.Find(name, [this](Symbol symbol) { return Name(symbol); });
        return noted;
    }
    // The symbol of the name, which is numbered now if it is new.
    Symbol Intern(std::string_view name);
    // The symbols that are likely to be asked for next, once there is any: the same names come in the same order over
    // and over, so it is the one that followed the last time, or the one before.
    Symbol Likely() const { return m_Entries[m_Latest].following; }
    Symbol LessLikely() const { return m_Entries[m_Latest].followingBefore; }
    void TakeLikely() { m_Latest = Likely(); }
    void TakeLessLikely()
    {
        Entry& latest = m_Entries[m_Latest];
        std::swap(latest.following, latest.followingBefore);
        m_Latest = latest.following;
    }
    // The one that was asked for last.
    Symbol Latest() const { return m_Latest; }
    // Marks the name with the number; false when that is the mark that it has. The first mark has to be above 0.
    bool Mark(Symbol symbol, std::uint32_t mark) { return std::exchange(m_Entries[symbol].mark, mark) != mark; }
    std::string_view Name(Symbol symbol) const
    {
        const Entry& entry = m_Entries[symbol];
        return {m_Characters.Data() + entry.offset, entry.length};
    }
    std::size_t Size() const { return m_Entries.Size(); }
    // While names are added, so many bytes may be read from where the text of a name begins, however short it is.
    static constexpr std::size_t readableBytes = 16;
    void BeginIn(CATXMLStorage& characters, CATXMLStorage& entries)
    {
        m_Characters.BeginIn(characters);
        m_Entries.BeginIn(entries);
    }
    void Shrink();

private:
    struct Entry
    {
        std::uint32_t offset;
        std::uint32_t length;
        Symbol following; // the one that was asked for next, the last time; at first any
        Symbol followingBefore;
        std::uint32_t mark;
    };
    Symbol FindOrAdd(std::string_view name);

    CATTextTable m_Table;
    CATXMLBuffer<char> m_Characters;
    CATXMLBuffer<Entry> m_Entries;
    Symbol m_Latest = none; // that was numbered or met last, while the document is read
    mutable std::array<Symbol, 16> m_Noted = Filled();

    static constexpr std::array<Symbol, 16> Filled()
    {
        std::array<Symbol, 16> symbols{};
        symbols.fill(none);
        return symbols;
    }
};

class ExportedByVEXMELKConfiguration CATXMLDocument
{
public:
    using Index = std::uint32_t;
    using Symbol = CATXMLNames::Symbol;
    static constexpr Index none = UINT32_MAX;

    // The node types of the DOM that occur.
    enum NodeType : std::uint8_t
    {
        Element = 1,
        Attribute = 2,
        Text = 3,
        CDataSection = 4,
        ProcessingInstruction = 7,
        Comment = 8,
        Document = 9
    };

    // A slice of a tag's list of elements, or of the list of all elements.
    struct Elements
    {
        const Index* first = nullptr; // null: the list of all elements
        Index begin = 0;
        Index length = 0;
    };

    CATXMLDocument() = default;
    CATXMLDocument(const CATXMLDocument&) = delete;
    CATXMLDocument& operator=(const CATXMLDocument&) = delete;

    void AddRef() const { ++m_References; }
    void Release() const
    {
        if (--m_References == 0)
            Destroy(this);
    }

    // Node 0 is the document itself.
    Index RootElement() const { return m_Root; }
    NodeType Type(Index node) const { return static_cast<NodeType>(m_Nodes[node].type); }
    std::string_view NodeName(Index node) const
    {
        return Type(node) == Element ? m_Names.Name(m_Nodes[node].symbol) : OtherNodeName(node);
    }
    // The number of an element's tag.
    Symbol TagOf(Index element) const { return m_Nodes[element].symbol; }
    // The number of a name; none when neither an element nor an attribute has it.
    Symbol FindName(std::string_view name) const { return m_Names.Find(name); }
    std::string_view NodeText(Index node) const; // of texts, CDATA sections, comments and instructions; else empty
    Index Parent(Index node) const { return m_Nodes[node].parent; }
    Index FirstChild(Index node) const { return EndOf(node) > node + 1 ? node + 1 : none; }
    Index NextSibling(Index node) const
    {
        const Index parent = m_Nodes[node].parent;
        const Index next = EndOf(node);
        return parent != none && next < EndOf(parent) ? next : none;
    }

    std::uint32_t Line(Index element) const { return HeadOf(element).line; }
    std::uint32_t Column(Index element) const { return HeadOf(element).column; }

    using AttributeEntry = CATXMLAttributeEntry;
    using Attributes = CATXMLAttributes;
    Attributes AttributesOf(Index element) const
    {
        const Head* head = &HeadOf(element);
        return {m_Attributes.Data() + head[0].firstAttribute, head[1].firstAttribute - head[0].firstAttribute};
    }
    std::string_view AttributeName(const AttributeEntry& attribute) const { return m_Names.Name(attribute.name); }
    std::string_view AttributeValue(const AttributeEntry& attribute) const { return ValueAt(attribute.value); }
    // The position of the attribute of that name, or none. "hint" is looked at first: names are most often asked for in
    // the order in which they are written.
    Index FindAttribute(const Attributes& attributes, std::string_view name, Index hint) const
    {
        if (hint < attributes.count && CATTextEqual(AttributeName(attributes.first[hint]), name))
            return hint;
        return FindAttribute(attributes, m_Names.Find(name));
    }
    Index FindAttribute(const Attributes& attributes, Symbol name) const
    {
        for (Index index = 0; name != CATXMLNames::none && index < attributes.count; ++index)
            if (attributes.first[index].name == name)
                return index;
        return none;
    }
    // The places of a list of names among the attributes of one element, or else of another one.
    const CATXMLPlaces::Place* FindPlaces(
        const CATXMLPlaces::List& list, const Attributes& attributes, const Attributes& other) const
    {
        return m_Places.Find(list, m_Names, attributes, other);
    }
    // Behind the last byte of all texts and values. Whoever copies a short one may read as far.
    const char* TextsEnd() const { return m_Text.Data() + m_Text.Size(); }

    // Whether the other node lies below the node, at any depth.
    bool Contains(Index node, Index other) const { return other > node && other < EndOf(node); }

    // All descendants of the node with that tag, in document order; "*" takes every tag.
    Elements ElementsByTagName(Index node, std::string_view tag) const;
    Elements ElementsByTag(Index node, Symbol tag) const;
    Index ElementAt(const Elements& elements, Index position) const
    {
        return elements.first ? elements.first[elements.begin + position] : m_Heads[elements.begin + position].node;
    }

private:
    friend class CATXMLDocumentWriter;
    template <class Block> friend class CATXMLPlainReader;

    struct Node
    {
        Index parent;
        Index endOrLength;         // document, element: end of the subtree; others: length of the text
        Index headOrText;          // element: index of its head; others: offset of the text
        std::uint32_t symbol : 28; // element: its tag; instruction: its target
        std::uint32_t type : 4;
    };
    struct Head
    {
        Index node;
        Index firstAttribute; // its attributes end where the next head's begin
        std::uint32_t line;
        std::uint32_t column;
    };

    static void Destroy(const CATXMLDocument* document);
    std::string_view OtherNodeName(Index node) const;
    // What is left to do when all nodes are there.
    void Complete();
    void IndexTags();

    bool HasChildren(Index node) const { return Type(node) == Element || Type(node) == Document; }
    Index EndOf(Index node) const { return HasChildren(node) ? m_Nodes[node].endOrLength : node + 1; }
    const Head& HeadOf(Index element) const { return m_Heads[m_Nodes[element].headOrText]; }
    // The length of a value stands before it, seven bits a byte, the last byte below 128.
    std::string_view ValueAt(Index offset) const
    {
        const char* at = m_Text.Data() + offset;
        std::size_t length = static_cast<unsigned char>(*at++);
        for (unsigned shift = 7; length >> shift != 0; shift += 7)
            length = (length & ((std::size_t{1} << shift) - 1)) |
                     static_cast<std::size_t>(static_cast<unsigned char>(*at++)) << shift;
        return {at, length};
    }

    mutable std::size_t m_References = 0;
    mutable CATXMLPlaces m_Places;
    Index m_Root = none;
    CATXMLNames m_Names;
    CATXMLBuffer<Node> m_Nodes;
    CATXMLBuffer<Head> m_Heads; // one for each element, and one past the last
    CATXMLBuffer<AttributeEntry> m_Attributes;
    CATXMLBuffer<char> m_Text;
    CATXMLBuffer<Index> m_TagBegins; // symbol: where its elements begin in m_TagElements; one past the last
    CATXMLBuffer<Index> m_TagElements;
};

#endif
