// Sixteen bytes of a document, looked at together: with the instructions of SSE2, or in plain C++ for processors that
// have none and as the measure of the others.
#ifndef CATXMLBlock_H
#define CATXMLBlock_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

class CATXMLPlainBlock
{
public:
    static constexpr unsigned size = 16;

    // Some of the bytes.
    struct Bytes
    {
        unsigned bits; // the lowest for the first byte

        Bytes operator|(Bytes other) const { return {bits | other.bits}; }
        unsigned Bits() const { return bits; }
    };
    // Counts bytes that are equal to something, in up to 255 blocks.
    class Counter
    {
    public:
        void Add(Bytes bytes) { m_Total += static_cast<unsigned>(std::popcount(bytes.bits)); }
        std::size_t Total() const { return m_Total; }

    private:
        unsigned m_Total = 0;
    };

    explicit CATXMLPlainBlock(const char* from) { std::memcpy(m_Bytes.data(), from, size); }
    void Store(char* to) const { std::memcpy(to, m_Bytes.data(), size); }

    Bytes Equal(char character) const
    {
        return Where([=](std::size_t, char byte) { return byte == character; });
    }
    Bytes Equal(const CATXMLPlainBlock& other) const
    {
        return Where([&](std::size_t place, char byte) { return byte == other.m_Bytes[place]; });
    }
    // Control characters, and the bytes of those that are not ASCII.
    Bytes Special() const
    {
        return Where([](std::size_t, char byte) { return static_cast<signed char>(byte) < ' '; });
    }

private:
    template <class Condition> Bytes Where(const Condition& condition) const
    {
        unsigned bits = 0;
        for (std::size_t place = 0; place < size; ++place)
            bits |= condition(place, m_Bytes[place]) ? 1U << place : 0U;
        return {bits};
    }

    std::array<char, size> m_Bytes;
};

#ifdef __SSE2__

class CATXMLVectorBlock
{
public:
    static constexpr unsigned size = 16;

    struct Bytes
    {
        __m128i all; // the highest bit is set in each of them, and clear in the others

        Bytes operator|(Bytes other) const { return {_mm_or_si128(all, other.all)}; }
        unsigned Bits() const { return static_cast<unsigned>(_mm_movemask_epi8(all)); }
    };
    class Counter
    {
    public:
        void Add(Bytes bytes) { m_Totals = _mm_sub_epi8(m_Totals, bytes.all); } // all bits are set in equal ones
        std::size_t Total() const
        {
            const __m128i halves = _mm_sad_epu8(m_Totals, _mm_setzero_si128());
            return static_cast<std::size_t>(_mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4));
        }

    private:
        __m128i m_Totals = _mm_setzero_si128();
    };

    explicit CATXMLVectorBlock(const char* from) : m_Bytes(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))) {}
    void Store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), m_Bytes); }

    Bytes Equal(char character) const { return {_mm_cmpeq_epi8(m_Bytes, _mm_set1_epi8(character))}; }
    Bytes Equal(const CATXMLVectorBlock& other) const { return {_mm_cmpeq_epi8(m_Bytes, other.m_Bytes)}; }
    // Bytes beyond ASCII have the highest bit, and control characters get it when a blank is taken off.
    Bytes Special() const { return {_mm_or_si128(m_Bytes, _mm_sub_epi8(m_Bytes, _mm_set1_epi8(' ')))}; }

private:
    __m128i m_Bytes;
};

using CATXMLBlock = CATXMLVectorBlock;

#else

using CATXMLBlock = CATXMLPlainBlock;

#endif

#endif
