// Comparing, hashing and copying texts that are short as a rule: names of documents and standards, values.
//
// The names come out of files, so the hash has a secret of the process in every step: nobody can write a file whose
// names collide, whatever the secret is.
#ifndef CATTextHash_H
#define CATTextHash_H

#include "VEXMELKConfigurationExport.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#ifdef _MSC_VER
#include <intrin.h>
#endif

struct CATTextHashSecret
{
    std::uint64_t first;
    std::uint64_t second;
};
// The same for the whole process.
ExportedByVEXMELKConfiguration CATTextHashSecret CATTextHashSecretOfProcess();

namespace CATTextHashDetail {

inline std::uint64_t Load(const char* text, std::size_t bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, text, bytes);
    return word;
}

// Both halves of the product of 128 bits: each bit of the result depends on all bits of both factors.
inline std::uint64_t Fold(std::uint64_t left, std::uint64_t right)
{
#ifdef _MSC_VER
    std::uint64_t high = 0;
    const std::uint64_t low = _umul128(left, right, &high);
    return low ^ high;
#else
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(left) * right;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
#endif
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

inline std::uint32_t CATTextHash(std::string_view text, const CATTextHashSecret& secret)
{
    using CATTextHashDetail::Fold;
    using CATTextHashDetail::Load;
    const char* at = text.data();
    std::size_t left = text.size();
    std::uint64_t hash = secret.first;
    for (; left > 16; left -= 16, at += 16)
        hash = Fold(Load(at, 8) ^ secret.second, Load(at + 8, 8) ^ hash);
    // Two words that may overlap cover the rest.
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
    if (left >= 8)
    {
        begin = Load(at, 8);
        end = Load(at + left - 8, 8);
    }
    else if (left >= 4)
    {
        begin = Load(at, 4);
        end = Load(at + left - 4, 4);
    }
    else if (left > 0)
        begin = Load(at, 1) | Load(at + left / 2, 1) << 8U | Load(at + left - 1, 1) << 16U;
    hash = Fold(begin ^ secret.second, end ^ hash);
    return static_cast<std::uint32_t>(Fold(hash, secret.first ^ text.size()));
}

#endif
