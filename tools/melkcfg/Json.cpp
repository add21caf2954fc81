// Reading JSON strictly, and messages about what could not be read.
#include "Json.h"

#include "VEXMELKSuggestions.h"

#include <algorithm>
#include <set>

namespace {

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
    std::string message = "unknown " + std::string(kind) + " " + Shown(name);
    const char* before = "; did you mean ";
    for (const std::string& nearest : VEXMELKNearest(name, known))
        message += std::exchange(before, " or ") + nearest;
    return RequestError(message + (*before == ' ' ? "?" : ""));
}

RequestError WrongType(const std::string& where, const char* type, const Json& value)
{
    constexpr std::size_t shown = 40;
    std::string text = value.dump(-1, ' ', true, Json::error_handler_t::replace); // in ASCII, to be cut anywhere
    if (text.size() > shown)
        text = text.substr(0, shown) + "...";
    return RequestError(where + ": expected " + type + ", got " + text);
}
