// Resolving lists of names. When a list has met more layouts than are kept, the oldest makes room.
#include "CATXMLPlaces.h"

#include "CATXMLDocument.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t layoutsOfList = 8;
constexpr std::uint32_t attributesOfLayout = 1024;

// The first attribute of that name, or none.
CATXMLPlaces::Place PlaceOf(const CATXMLAttributes& attributes, std::uint32_t symbol)
{
    const CATXMLAttributeEntry* last = attributes.first + attributes.count;
    const CATXMLAttributeEntry* found =
        std::find_if(attributes.first, last, [=](const CATXMLAttributeEntry& entry) { return entry.name == symbol; });
    return found == last ? CATXMLPlaces::none : static_cast<CATXMLPlaces::Place>(found - attributes.first);
}

} // namespace

CATXMLPlaces::Known& CATXMLPlaces::Add(const List& list)
{
    if (m_Used * 2 >= m_Slots.size())
    {
        std::vector<Known> larger(std::max<std::size_t>(m_Slots.size() * 2, 16));
        larger.swap(m_Slots);
        for (Known& known : larger)
            if (known.list)
                m_Slots[SlotOf({known.list, 0, known.size})] = std::move(known);
    }
    Known& added = m_Slots[SlotOf(list)];
    added.list = list.first;
    added.size = list.size;
    ++m_Used;
    return added;
}

const CATXMLPlaces::Place* CATXMLPlaces::FindOrResolve(
    const List& list, const CATXMLNames& names, const CATXMLAttributes& own, const CATXMLAttributes& other)
{
    if (own.count > attributesOfLayout || other.count > attributesOfLayout)
        return nullptr;
    Known& known = KnownOf(list);
    for (std::size_t index = 0; index < known.layouts.size(); ++index)
        if (known.layouts[index].Fits(own, other))
        {
            known.latest = index;
            return known.layouts[index].places.data();
        }

    Layout layout;
    layout.ownCount = own.count;
    for (const CATXMLAttributes* attributes : {&own, &other})
        for (std::uint32_t index = 0; index < attributes->count; ++index)
            layout.symbols.push_back(attributes->first[index].name);
    for (std::size_t position = 0; position < list.size; ++position)
    {
        const CATXMLNames::Symbol symbol = names.Find(list.At(position));
        Place place = symbol == CATXMLNames::none ? none : PlaceOf(own, symbol);
        if (place == none && symbol != CATXMLNames::none)
            if (const Place inOther = PlaceOf(other, symbol); inOther != none)
                place = static_cast<Place>(inOther | ofOther);
        layout.places.push_back(place);
    }
    known.latest = known.layouts.size() < layoutsOfList ? known.layouts.size() : (known.latest + 1) % layoutsOfList;
    if (known.latest == known.layouts.size())
        known.layouts.emplace_back();
    known.layouts[known.latest] = std::move(layout);
    return known.layouts[known.latest].places.data();
}
