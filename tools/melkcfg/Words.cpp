// Double quotation marks keep backslashes before what they do not protect.
#include "Words.h"

#include <cctype>

namespace {

constexpr std::string_view specialInDoubleQuotes = "\"\\$`";

} // namespace

Words SplitIntoWords(std::string_view line)
{
    Words split;
    for (std::size_t position = 0; position < line.size(); ++position)
    {
        const char character = line[position];
        const bool isBlank = std::isspace(static_cast<unsigned char>(character)) != 0;
        if (split.quote == 0 && isBlank)
        {
            split.isLastOpen = false;
            continue;
        }
        if (!split.isLastOpen)
            split.words.emplace_back();
        split.isLastOpen = true;
        std::string& word = split.words.back();
        const bool hasNext = position + 1 < line.size();
        if (split.quote == character)
            split.quote = 0;
        else if (split.quote == 0 && (character == '"' || character == '\''))
            split.quote = character;
        else if (character == '\\' && hasNext &&
                 (split.quote == 0 ||
                     (split.quote == '"' && specialInDoubleQuotes.find(line[position + 1]) != std::string_view::npos)))
            word += line[++position];
        else
            word += character;
    }
    return split;
}

std::string QuotedForShell(std::string_view text, char quote)
{
    std::string quoted;
    for (const char character : text)
    {
        const bool isPlain = std::isalnum(static_cast<unsigned char>(character)) != 0 ||
                             (static_cast<unsigned char>(character) & 0x80U) != 0 ||
                             std::string_view("_-./:=,@%+").find(character) != std::string_view::npos;
        const bool isProtected = quote == 0     ? !isPlain
                                 : quote == '"' ? specialInDoubleQuotes.find(character) != std::string_view::npos
                                                : false;
        if (quote == '\'' && character == '\'')
            quoted += "'\\'";
        else if (isProtected)
            quoted += '\\';
        quoted += character;
    }
    return quoted;
}
