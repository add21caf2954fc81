// The table doubles before more than half of it is in use, so that a search soon meets an empty slot.
#include "CATTextTable.h"

#include <algorithm>

void CATTextTable::Grow()
{
    std::vector<Slot> larger(std::max<std::size_t>(m_Slots.size() * 2, 128), Slot{0, none});
    const std::size_t mask = larger.size() - 1;
    for (const Slot& entry : m_Slots)
    {
        if (entry.number == none)
            continue;
        std::size_t slot = entry.hash & mask;
        while (larger[slot].number != none)
            slot = (slot + 1) & mask;
        larger[slot] = entry;
    }
    m_Slots.swap(larger);
}
