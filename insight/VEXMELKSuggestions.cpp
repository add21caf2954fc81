// Names are compared by the number of edits that turn one into the other.
#include "VEXMELKSuggestions.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

// The characters of a text, so that one outside of ASCII counts as one.
std::u32string CharactersOf(std::string_view text)
{
    std::u32string characters;
    for (const char byte : text)
        if ((static_cast<unsigned char>(byte) & 0xC0U) == 0x80U && !characters.empty())
            characters.back() = characters.back() << 6U | static_cast<unsigned char>(byte);
        else
            characters += static_cast<unsigned char>(byte);
    return characters;
}

// Letters put in, left out, replaced or swapped with the next that turn one name into the other, letter case left
// aside.
std::size_t Distance(std::string_view leftText, std::string_view rightText)
{
    const std::u32string left = CharactersOf(leftText);
    const std::u32string right = CharactersOf(rightText);
    const auto lower = [](char32_t one) { return one >= U'A' && one <= U'Z' ? one - U'A' + U'a' : one; };
    const auto isSame = [&](char32_t one, char32_t other) { return lower(one) == lower(other); };
    std::vector<std::size_t> last(right.size() + 1);
    std::vector<std::size_t> row(right.size() + 1);
    std::vector<std::size_t> next(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < left.size(); ++i)
    {
        next[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j)
        {
            next[j + 1] = std::min({row[j] + (isSame(left[i], right[j]) ? 0 : 1), row[j + 1] + 1, next[j] + 1});
            if (i > 0 && j > 0 && isSame(left[i], right[j - 1]) && isSame(left[i - 1], right[j]))
                next[j + 1] = std::min(next[j + 1], last[j - 1] + 1);
        }
        std::swap(last, row);
        std::swap(row, next);
    }
    return row.back();
}

constexpr std::size_t longestName = 64;

} // namespace

std::vector<std::string> VEXMELKNearest(std::string_view name, std::vector<std::string> known)
{
    constexpr std::size_t suggestions = 3;
    if (known.empty() || name.size() > longestName)
        return {};
    std::stable_sort(known.begin(), known.end(),
        [&](const std::string& left, const std::string& right)
        { return Distance(name, left) < Distance(name, right); });
    // Besides the nearest one, only others that are as near.
    const std::size_t best = Distance(name, known.front());
    std::size_t count = 1;
    while (count < std::min(known.size(), suggestions) && Distance(name, known[count]) == best)
        ++count;
    known.resize(count);
    return known;
}

std::string VEXMELKMeant(std::string_view name, const std::vector<std::string>& known)
{
    if (name.size() > longestName)
        return {};
    std::vector<std::string> near;
    for (const std::string& candidate : known)
    {
        const std::size_t shorter = std::min(name.size(), candidate.size());
        const std::size_t allowed = shorter < 3 ? 0 : shorter < 7 ? 1 : shorter < 11 ? 2 : 3;
        if (candidate != name && candidate.size() <= longestName && Distance(name, candidate) <= allowed)
            near.push_back(candidate);
    }
    const std::vector<std::string> nearest = VEXMELKNearest(name, std::move(near));
    const auto isFirst = [&](const std::string& other) { return Distance(nearest.front(), other) == 0; };
    return std::all_of(nearest.begin(), nearest.end(), isFirst) && !nearest.empty() ? nearest.front() : std::string();
}
