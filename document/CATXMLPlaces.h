// Where the attributes that a list of names asks for stand in the elements of a document.
//
// Elements of a kind are written alike: their attributes have the same names in the same order. For each such layout a
// list is resolved once; after that the layout is only compared, which takes an operation an attribute. A document
// keeps a few layouts for each list: what a file can make it keep is bounded.
#ifndef CATXMLPlaces_H
#define CATXMLPlaces_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// An attribute in a document.
struct CATXMLAttributeEntry
{
    std::uint32_t name;  // its number
    std::uint32_t value; // offset of the length, which the text follows
};

// The attributes of one element, in the order of the file.
struct CATXMLAttributes
{
    const CATXMLAttributeEntry* first = nullptr;
    std::uint32_t count = 0;
};

class CATXMLNames;

class CATXMLPlaces
{
public:
    // A position among the attributes of the element, or with "ofOther" added of the other one.
    using Place = std::uint16_t;
    static constexpr Place none = UINT16_MAX;
    static constexpr Place ofOther = 1U << 15U;

    // A list of names, which stays where it is as long as the document lives: it is known by its address. The names
    // stand in objects that follow each other.
    struct List
    {
        const std::string_view* first = nullptr;
        std::size_t stride = 0; // from one name to the next, in bytes
        std::size_t size = 0;

        std::string_view At(std::size_t position) const
        {
            const auto* address = reinterpret_cast<const unsigned char*>(first) + position * stride;
            return *reinterpret_cast<const std::string_view*>(address);
        }
    };

    // The place of each name of the list: in the attributes of an element, or else in those of the other one. Valid
    // until the next call; null for elements with more attributes than are worth keeping.
    const Place* Find(
        const List& list, const CATXMLNames& names, const CATXMLAttributes& own, const CATXMLAttributes& other)
    {
        const Known& known = KnownOf(list);
        if (known.latest < known.layouts.size() && known.layouts[known.latest].Fits(own, other)) [[likely]]
            return known.layouts[known.latest].places.data();
        return FindOrResolve(list, names, own, other);
    }

private:
    struct Layout
    {
        bool Fits(const CATXMLAttributes& own, const CATXMLAttributes& other) const
        {
            return own.count == ownCount && own.count + other.count == symbols.size() && IsSame(own, symbols.data()) &&
                   IsSame(other, symbols.data() + ownCount);
        }
        static bool IsSame(const CATXMLAttributes& attributes, const std::uint32_t* symbols)
        {
            std::uint32_t difference = 0;
            for (std::uint32_t index = 0; index < attributes.count; ++index)
                difference |= attributes.first[index].name ^ symbols[index];
            return difference == 0;
        }

        std::uint32_t ownCount = 0;
        std::vector<std::uint32_t> symbols; // of the element, then of the other one
        std::vector<Place> places;
    };
    struct Known
    {
        const std::string_view* list = nullptr; // null: a slot that is free
        std::size_t size = 0;
        std::size_t latest = 0; // the layout that fitted the last time
        std::vector<Layout> layouts = {};
    };

    std::size_t SlotOf(const List& list) const
    {
        const auto address = reinterpret_cast<std::uintptr_t>(list.first) + list.size;
        std::size_t slot = (address * 0x9E3779B97F4A7C15U >> 32U) & (m_Slots.size() - 1);
        while (m_Slots[slot].list && (m_Slots[slot].list != list.first || m_Slots[slot].size != list.size))
            slot = (slot + 1) & (m_Slots.size() - 1);
        return slot;
    }
    Known& KnownOf(const List& list)
    {
        if (!m_Slots.empty())
            if (Known& known = m_Slots[SlotOf(list)]; known.list) [[likely]]
                return known;
        return Add(list);
    }
    Known& Add(const List& list);
    const Place* FindOrResolve(
        const List& list, const CATXMLNames& names, const CATXMLAttributes& own, const CATXMLAttributes& other);

    std::vector<Known> m_Slots; // a power of two, at most half of it in use
    std::size_t m_Used = 0;
};

#endif
