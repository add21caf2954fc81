// Comparing, hashing and copying texts that are short as a rule: names of documents and standards, values.
//
// The names come out of files, so the hash is salted per process: nobody can write a file whose names all collide.
#ifndef CATTextHash_H
#define CATTextHash_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

std::uint64_t CATTextHashSalt();

namespace CATTextHashDetail {

inline std::uint64_t Load(const char* text, std::size_t bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, text, bytes);
    return word;
}

inline std::uint64_t Mix(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 32U);
}

} // namespace CATTextHashDetail

// left == right, without a call for names of the usual length.
inline bool CATTextEqual(std::string_view left, std::string_view right)
{
    using CATTextHashDetail::Load;
    const std::size_t size = left.size();
    if (size != right.size())
        return false;
    // Two words that may overlap cover the text.
    const auto sameEnds = [&](std::size_t bytes)
    {
        const std::size_t last = size - bytes;
        return ((Load(left.data(), bytes) ^ Load(right.data(), bytes)) |
                   (Load(left.data() + last, bytes) ^ Load(right.data() + last, bytes))) == 0;
    };
    if (size >= 8)
        return sameEnds(8) && (size <= 16 || std::memcmp(left.data() + 8, right.data() + 8, size - 16) == 0);
    if (size >= 4)
        return sameEnds(4);
    return size < 2 ? size == 0 || *left.data() == *right.data() : sameEnds(2);
}

// Copies the text, from where it may overlap. Short ones are copied by two words that may overlap too, both read before
// either is written.
inline void CATTextCopy(char* to, std::string_view text)
{
    const char* from = text.data();
    const std::size_t size = text.size();
    const auto copyEnds = [&]<class Word>(Word first)
    {
        Word last;
        std::memcpy(&first, from, sizeof first);
        std::memcpy(&last, from + size - sizeof last, sizeof last);
        std::memcpy(to, &first, sizeof first);
        std::memcpy(to + size - sizeof last, &last, sizeof last);
    };
    if (size > 16)
        std::memmove(to, from, size);
    else if (size >= 8)
        copyEnds(std::uint64_t{});
    else if (size >= 4)
        copyEnds(std::uint32_t{});
    else if (size >= 2)
        copyEnds(std::uint16_t{});
    else if (size == 1)
        *to = *from;
}

inline std::uint32_t CATTextHash(std::string_view text, std::uint64_t salt)
{
    using CATTextHashDetail::Load;
    using CATTextHashDetail::Mix;
    const char* at = text.data();
    std::size_t left = text.size();
    std::uint64_t hash = salt ^ left;
    for (; left > 8; left -= 8, at += 8)
        hash = Mix(hash, Load(at, 8));
    if (left >= 4)
        hash = Mix(hash, Load(at, 4) | Load(at + left - 4, 4) << 32U);
    else if (left > 0)
        hash = Mix(hash, Load(at, 1) | Load(at + left / 2, 1) << 8U | Load(at + left - 1, 1) << 16U);
    return static_cast<std::uint32_t>(Mix(hash, salt));
}

#endif
