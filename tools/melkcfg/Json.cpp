// Reading JSON strictly, and messages about what could not be read.
#include "Json.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <set>

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

void CheckNesting(std::string_view text)
{
    constexpr int deepest = 64;
    int depth = 0;
    bool inString = false;
    for (std::size_t position = 0; position < text.size(); ++position)
    {
        const char character = text[position];
        if (character == '"')
            inString = !inString;
        else if (inString && character == '\\')
            ++position;
        else if (!inString && (character == '[' || character == '{') && ++depth > deepest)
            throw RequestError("not a JSON request: nested more than " + std::to_string(deepest) + " deep");
        else if (!inString && (character == ']' || character == '}'))
            --depth;
    }
}

} // namespace

Json ParseJson(std::string_view text)
{
    CheckNesting(text);
    std::vector<std::set<std::string>> members;
    const auto check = [&](int /*depth*/, Json::parse_event_t event, const Json& parsed)
    {
        if (event == Json::parse_event_t::object_start)
            members.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            members.pop_back();
        else if (event == Json::parse_event_t::key && !members.back().insert(parsed.get<std::string>()).second)
            throw RequestError("the member " + Shown(parsed.get<std::string>()) + " is given twice");
        return true;
    };
    try
    {
        return Json::parse(text, check);
    }
    catch (const Json::exception& error)
    {
        throw RequestError(std::string("not a JSON request: ") + Shown(error.what()));
    }
}

std::string Shown(std::string_view text)
{
    constexpr std::size_t longest = 120;
    const bool isCut = text.size() > longest;
    if (isCut)
    {
        std::size_t end = longest;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) // within a character
            --end;
        text = text.substr(0, end);
    }
    std::string shown;
    for (const char character : text)
    {
        const auto code = static_cast<unsigned char>(character);
        constexpr const char* digits = "0123456789abcdef";
        if (code >= ' ' && code != 0x7F)
            shown += character;
        else
            shown += {'\\', 'x', digits[code >> 4U], digits[code & 0xFU]};
    }
    return isCut ? shown + "..." : shown;
}

RequestError UnknownName(const char* kind, std::string_view name, const std::vector<std::string>& known)
{
    constexpr std::size_t suggestions = 3;
    constexpr std::size_t longestName = 64;
    std::string message = "unknown " + std::string(kind) + " " + Shown(name);
    if (known.empty() || name.size() > longestName)
        return RequestError(message);
    std::vector<std::string> nearest = known;
    std::stable_sort(nearest.begin(), nearest.end(),
        [&](const std::string& left, const std::string& right)
        { return Distance(name, left) < Distance(name, right); });
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
    std::string text = value.dump(-1, ' ', true, Json::error_handler_t::replace); // in ASCII, to be cut anywhere
    if (text.size() > shown)
        text = text.substr(0, shown) + "...";
    return RequestError(where + ": expected " + type + ", got " + text);
}
