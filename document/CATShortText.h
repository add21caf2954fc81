// A growing text that holds up to 23 bytes in itself.
//
// The values that the library hands out are nearly all that short ("120mm", "30deg"), and records are made of dozens of
// them: filling and copying a record then costs neither allocations nor calls.
#ifndef CATShortText_H
#define CATShortText_H

#include "CATTextHash.h"
#include "VEXMELKConfigurationExport.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

class ExportedByVEXMELKConfiguration CATShortText
{
public:
    CATShortText() noexcept = default;
    explicit CATShortText(std::string_view text) : CATShortText() { Assign(text); }
    CATShortText(const CATShortText& other) : CATShortText() { Assign(other.View()); }
    CATShortText(CATShortText&& other) noexcept : CATShortText() { Swap(other); }
    CATShortText& operator=(const CATShortText& other)
    {
        Assign(other.View());
        return *this;
    }
    CATShortText& operator=(CATShortText&& other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~CATShortText()
    {
        if (!IsInline())
            delete[] m_Heap; // NOLINT(clang-analyzer-cplusplus.NewDelete): it does not follow Swap
    }

    std::string_view View() const { return {Data(), m_Size}; }
    const char* Data() const { return IsInline() ? m_Inline : m_Heap; } // ended by a zero byte
    char* Data() { return IsInline() ? m_Inline : m_Heap; }
    std::size_t Size() const { return m_Size; }

    // Assign and Append may be given a part of the text itself. When memory runs out the text stays as it was.
    void Assign(std::string_view text)
    {
        if (text.size() > m_Capacity)
            return Reallocate(0, text);
        Place(Data(), text);
        m_Size = static_cast<std::uint32_t>(text.size());
    }
    void Append(std::string_view text)
    {
        if (text.size() > m_Capacity - m_Size)
            return Reallocate(m_Size, text);
        Place(Data() + m_Size, text);
        m_Size += static_cast<std::uint32_t>(text.size());
    }
    // An end of up to three bytes that a short text may get, as one word with a zero byte behind it.
    struct End
    {
        std::uint32_t bytes = 0;
        std::uint32_t size = 0;

        constexpr End() = default;
        explicit constexpr End(std::string_view text) : size(static_cast<std::uint32_t>(text.size()))
        {
            char characters[sizeof bytes] = {};
            for (std::size_t index = 0; index < text.size() && index < longestEnd; ++index)
                characters[index] = text[index];
            bytes = std::bit_cast<std::uint32_t>(characters);
        }
    };
    static constexpr std::size_t longestEnd = sizeof(End::bytes) - 1;
    // The usual case of an assignment, without a branch for each size: for a short text of which "shortBytes" bytes may
    // be read, whatever lies behind it. False, and the text as it was, for any other.
    static constexpr std::ptrdiff_t shortBytes = 24;
    bool AssignShort(std::string_view text, const End& end)
    {
        if (!IsInline() || text.size() + sizeof end.bytes > shortBytes)
            return false;
        std::memcpy(m_Inline, text.data(), shortBytes);
        std::memcpy(m_Inline + text.size(), &end.bytes, sizeof end.bytes);
        m_Size = static_cast<std::uint32_t>(text.size()) + end.size;
        return true;
    }
    // Shortens the text.
    void SetSize(std::size_t size)
    {
        m_Size = static_cast<std::uint32_t>(size);
        Data()[size] = '\0';
    }

    // Eight bytes at a time: the storage is made of whole words, and what lies behind the text and its zero byte does
    // not matter. Not for zero bytes: one of them ends the text.
    void ReplaceAll(char what, char with)
    {
        constexpr std::uint64_t everyByte = 0x0101010101010101U;
        constexpr std::uint64_t lowBits = everyByte * 0x7FU;
        for (char* at = Data(); at < Data() + m_Size; at += sizeof(std::uint64_t))
        {
            std::uint64_t word = 0;
            std::memcpy(&word, at, sizeof word);
            const std::uint64_t difference = word ^ everyByte * static_cast<unsigned char>(what);
            // In each byte 1 where there is no difference, else 0.
            const std::uint64_t isWhat = ~(((difference & lowBits) + lowBits) | difference | lowBits) >> 7U;
            word ^= isWhat * static_cast<unsigned char>(what ^ with);
            std::memcpy(at, &word, sizeof word);
        }
    }

private:
    static constexpr std::uint32_t inlineCapacity = 23;

    bool IsInline() const { return m_Capacity == inlineCapacity; }
    // The first bytes of the text, then the other text, in larger storage.
    void Reallocate(std::size_t kept, std::string_view text);
    void Swap(CATShortText& other) noexcept
    {
        unsigned char bytes[sizeof(CATShortText)];
        std::memcpy(bytes, static_cast<void*>(this), sizeof bytes);
        std::memcpy(static_cast<void*>(this), static_cast<void*>(&other), sizeof bytes);
        std::memcpy(static_cast<void*>(&other), bytes, sizeof bytes);
    }

    // The text, and a zero byte behind it.
    static void Place(char* to, std::string_view text)
    {
        const std::size_t size = text.size();
        CATTextCopy(to, text);
        to[size] = '\0';
    }

    union
    {
        char m_Inline[inlineCapacity + 1] = {};
        char* m_Heap;
    };
    std::uint32_t m_Size = 0;
    std::uint32_t m_Capacity = inlineCapacity;
};

#endif
