// What a text does when it outgrows its storage.
#include "CATShortText.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

void CATShortText::Reallocate(std::size_t kept, std::string_view text)
{
    const std::size_t size = kept + text.size();
    // A long text is often appended to. With its zero byte, the storage is made of whole words.
    const std::size_t capacity = std::max<std::size_t>(size + size / 2, std::size_t{m_Capacity} * 2) | 7U;
    if (capacity >= std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("text too long");
    char* larger = new char[capacity + 1]();
    std::memcpy(larger, Data(), kept);
    std::memcpy(larger + kept, text.data(), text.size());
    if (!IsInline())
        delete[] m_Heap;
    m_Heap = larger;
    m_Capacity = static_cast<std::uint32_t>(capacity);
    SetSize(size);
}
