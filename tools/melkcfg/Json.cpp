#include "Json.h"

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

RequestError UnknownName(const char* kind, std::string_view name, const std::vector<std::string>& known)
{
    constexpr std::size_t suggestions = 3;
    std::vector<std::string> nearest = known;
    std::stable_sort(nearest.begin(), nearest.end(),
        [&](const std::string& left, const std::string& right)
        { return Distance(name, left) < Distance(name, right); });
    std::string message = "unknown " + std::string(kind) + " " + std::string(name);
    if (nearest.empty())
        return RequestError(message);
    // Besides the nearest one, only others that are as near.
    const std::size_t best = Distance(name, nearest.front());
    message += "; did you mean " + nearest.front();
    for (std::size_t index = 1; index < std::min(nearest.size(), suggestions); ++index)
        if (Distance(name, nearest[index]) == best)
            message += " or " + nearest[index];
    return RequestError(message + "?");
}

RequestError WrongType(const std::string& where, const char* type, const Json& value)
{
    constexpr std::size_t shown = 40;
    std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (text.size() > shown)
        text = text.substr(0, shown) + "...";
    return RequestError(where + ": expected " + type + ", got " + text);
}
