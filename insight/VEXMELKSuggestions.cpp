// Names are compared by the number of edits that turn one into the other.
#include "VEXMELKSuggestions.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace {

// Edits that turn one name into the other, letter case left aside.
std::size_t Distance(std::string_view left, std::string_view right)
{
    const auto lower = [](char character) { return std::tolower(static_cast<unsigned char>(character)); };
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char wanted : left)
    {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < right.size(); ++j)
        {
            const std::size_t substituted = diagonal + (lower(wanted) == lower(right[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({substituted, row[j + 1] + 1, row[j] + 1});
        }
    }
    return row.back();
}

} // namespace

std::vector<std::string> VEXMELKNearest(std::string_view name, std::vector<std::string> known)
{
    constexpr std::size_t suggestions = 3;
    constexpr std::size_t longestName = 64;
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
