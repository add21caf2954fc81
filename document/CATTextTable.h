// Finds the numbers of texts. The texts themselves lie with the owner of the table, who tells the text of a number.
#ifndef CATTextTable_H
#define CATTextTable_H

#include "CATTextHash.h"
#include "VEXMELKConfigurationExport.h"

#include <vector>

class ExportedByVEXMELKConfiguration CATTextTable
{
public:
    using Number = std::uint32_t;
    static constexpr Number none = UINT32_MAX;

    // The number of the text, or none; "textOf(number)" is the text of a number.
    template <class TextOf> Number Find(std::string_view text, const TextOf& textOf) const
    {
        return m_Slots.empty() ? none : m_Slots[SlotOf(text, CATTextHash(text, m_Secret), textOf)].number;
    }

    // The number of the text; when it has none, it gets "number".
    template <class TextOf> Number FindOrAdd(std::string_view text, Number number, const TextOf& textOf)
    {
        if (m_Used * 2 >= m_Slots.size())
            Grow();
        const std::uint32_t hash = CATTextHash(text, m_Secret);
        Slot& slot = m_Slots[SlotOf(text, hash, textOf)];
        if (slot.number == none)
        {
            slot = {hash, number};
            ++m_Used;
        }
        return slot.number;
    }

private:
    struct Slot
    {
        std::uint32_t hash;
        Number number;
    };

    // The slot of the text, or the empty one that it would get.
    template <class TextOf> std::size_t SlotOf(std::string_view text, std::uint32_t hash, const TextOf& textOf) const
    {
        const std::size_t mask = m_Slots.size() - 1;
        std::size_t slot = hash & mask;
        while (m_Slots[slot].number != none &&
               (m_Slots[slot].hash != hash || !CATTextEqual(textOf(m_Slots[slot].number), text)))
            slot = (slot + 1) & mask;
        return slot;
    }
    void Grow();

    CATTextHashSecret m_Secret = CATTextHashSecretOfProcess();
    std::vector<Slot> m_Slots; // a power of two, at most half of it in use; none in empty ones
    std::size_t m_Used = 0;
};

#endif
