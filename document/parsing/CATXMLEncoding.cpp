// Asks iconv for the character of each byte. An encoding whose bytes combine would need more than a table.
#include "CATXMLEncoding.h"

#include <algorithm>
#include <charconv>
#include <iconv.h>
#include <string>

namespace {

struct Family
{
    std::string_view prefix;
    int first;
    int last;
};

constexpr Family families[] = {
    {"ISO-8859-", 1, 16},
    {"WINDOWS-", 1250, 1258},
};

constexpr char UpperCase(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool IsKnown(std::string_view name)
{
    for (const Family& family : families)
    {
        if (!name.starts_with(family.prefix))
            continue;
        const std::string_view number = name.substr(family.prefix.size());
        int value = 0;
        const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
        return error == std::errc() && end == number.data() + number.size() && !number.starts_with('0') &&
               value >= family.first && value <= family.last;
    }
    return false;
}

int Decode(iconv_t converter, char byte)
{
    unsigned char unit[4] = {};
    char* input = &byte;
    char* output = reinterpret_cast<char*>(unit);
    std::size_t inputLeft = 1;
    std::size_t outputLeft = sizeof unit;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const bool decoded = iconv(converter, &input, &inputLeft, &output, &outputLeft) == 0;
    // A character that another one could combine with is only handed out when the text ends.
    iconv(converter, nullptr, nullptr, &output, &outputLeft);
    if (!decoded || outputLeft != 0)
        return -1;
    return unit[0] | unit[1] << 8 | unit[2] << 16;
}

} // namespace

bool CATXMLSingleByteMap(std::string_view encoding, int (&characters)[256])
{
    std::string name(encoding);
    std::transform(name.begin(), name.end(), name.begin(), UpperCase);
    if (!IsKnown(name))
        return false;
    iconv_t converter = iconv_open("UTF-32LE", name.c_str());
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number in the range that stands for no encoding
    if (converter == reinterpret_cast<iconv_t>(-1))
        return false;
    for (int byte = 0; byte < 256; ++byte)
        characters[byte] = Decode(converter, static_cast<char>(byte));
    iconv_close(converter);
    return true;
}
