// Looks encodings up in tables of our own: what the systems have differs in the bytes that stand for nothing.
#include "CATXMLEncoding.h"

#include "CATXMLEncodingTables.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr char16_t none = 0xFFFF;

constexpr char UpperCase(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

} // namespace

bool CATXMLIsEncoding(std::string_view name, std::string_view upperCase)
{
    const auto same = [](char left, char right) { return UpperCase(left) == right; };
    return std::equal(name.begin(), name.end(), upperCase.begin(), upperCase.end(), same);
}

bool CATXMLSingleByteMap(std::string_view encoding, int (&characters)[256])
{
    const auto* table = std::find_if(std::begin(encodingTables), std::end(encodingTables),
        [&](const CATXMLEncodingTable& each) { return CATXMLIsEncoding(encoding, each.name); });
    if (table == std::end(encodingTables))
        return false;
    for (int byte = 0; byte < 128; ++byte)
    {
        const char16_t upper = table->characters[static_cast<std::size_t>(byte)];
        characters[byte] = byte;
        characters[byte + 128] = upper == none ? -1 : static_cast<int>(upper);
    }
    return true;
}
