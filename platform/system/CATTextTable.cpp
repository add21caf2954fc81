#include "CATTextTable.h"

#include <algorithm>

void CATTextTable::Insert(std::vector<Slot>& slots, const Slot& entry)
{
    const std::size_t mask = slots.size() - 1;
    std::size_t slot = entry.hash & mask;
    while (slots[slot].number != none)
        slot = (slot + 1) & mask;
    slots[slot] = entry;
}

void CATTextTable::Add(std::string_view text, Number number)
{
    if (m_Used * 2 >= m_Slots.size())
    {
        std::vector<Slot> larger(std::max<std::size_t>(m_Slots.size() * 2, 16), Slot{0, none});
        for (const Slot& entry : m_Slots)
            if (entry.number != none)
                Insert(larger, entry);
        m_Slots.swap(larger);
    }
    Insert(m_Slots, {CATTextHash(text, m_Salt), number});
    ++m_Used;
}
