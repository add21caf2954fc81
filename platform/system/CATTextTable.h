// Finds the numbers of texts. The texts themselves lie with the owner of the table, who tells the text of a number.
#ifndef CATTextTable_H
#define CATTextTable_H

#include "CATTextHash.h"

#include <vector>

class CATTextTable
{
public:
    using Number = std::uint32_t;
    static constexpr Number none = UINT32_MAX;

    // The number of the text, or none; "textOf(number)" is the text of a number.
    template <class TextOf> Number Find(std::string_view text, const TextOf& textOf) const
    {
        if (m_Slots.empty())
            return none;
        const std::uint32_t hash = CATTextHash(text, m_Salt);
        const std::size_t mask = m_Slots.size() - 1;
        for (std::size_t slot = hash & mask; m_Slots[slot].number != none; slot = (slot + 1) & mask)
            if (m_Slots[slot].hash == hash && CATTextEqual(textOf(m_Slots[slot].number), text))
                return m_Slots[slot].number;
        return none;
    }

    // Adds a text that is not in the table.
    void Add(std::string_view text, Number number);

private:
    struct Slot
    {
        std::uint32_t hash;
        Number number;
    };
    static void Insert(std::vector<Slot>& slots, const Slot& entry);

    std::uint64_t m_Salt = CATTextHashSalt();
    std::vector<Slot> m_Slots; // a power of two, at most half of it in use; none in empty ones
    std::size_t m_Used = 0;
};

#endif
