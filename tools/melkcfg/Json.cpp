// Reading JSON strictly, and messages about what could not be read.
#include "Json.h"

#include "VEXMELKSuggestions.h"

#include <algorithm>

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

// Builds the JSON and refuses members that are given twice, which the library's own builder merges.
class StrictBuilder final : public nlohmann::json_sax<Json>
{
public:
    Json Take() { return std::move(m_Root); }

    bool null() override { return Add(nullptr); }
    bool boolean(bool value) override { return Add(value); }
    bool number_integer(number_integer_t value) override { return Add(value); }
    bool number_unsigned(number_unsigned_t value) override { return Add(value); }
    bool number_float(number_float_t value, const string_t& /*text*/) override { return Add(value); }
    bool string(string_t& value) override { return Add(std::move(value)); }
    bool binary(binary_t& value) override { return Add(std::move(value)); }
    bool start_object(std::size_t /*size*/) override { return Open(Json::object()); }
    bool start_array(std::size_t /*size*/) override { return Open(Json::array()); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }
    bool key(string_t& name) override
    {
        const auto [place, isNew] = m_Open.back()->get_ref<Json::object_t&>().emplace(name, nullptr);
        if (!isNew)
            throw RequestError("the member " + Shown(name) + " is given twice");
        m_Member = &place->second;
        return true;
    }
    bool parse_error(std::size_t /*place*/, const std::string& /*token*/, const Json::exception& error) override
    {
        throw RequestError(std::string("not a JSON request: ") + Shown(error.what()));
    }

private:
    // Where the next value goes.
    Json& Place(Json value)
    {
        if (m_Open.empty())
            return m_Root = std::move(value);
        if (m_Open.back()->is_object())
            return *m_Member = std::move(value);
        m_Open.back()->push_back(std::move(value));
        return m_Open.back()->back();
    }
    bool Add(Json value)
    {
        Place(std::move(value));
        return true;
    }
    bool Open(Json value)
    {
        m_Open.push_back(&Place(std::move(value)));
        return true;
    }
    bool Close()
    {
        m_Open.pop_back();
        return true;
    }

    Json m_Root;
    std::vector<Json*> m_Open; // none of them moves while it is open
    Json* m_Member = nullptr;  // of the innermost object
};

} // namespace

Json ParseJson(std::string_view text)
{
    CheckNesting(text);
    StrictBuilder builder;
    Json::sax_parse(text, &builder);
    return builder.Take();
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
