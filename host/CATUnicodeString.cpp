// Strings: case change by utf8proc, and numbers as scanf and printf treat them, whatever the locale.
#include "CATUnicodeString.h"

#include "CATNumberText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <utf8proc.h>

namespace {

std::string_view WithoutLeadingWhiteSpace(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

bool IsAscii(std::string_view text)
{
    return std::all_of(
        text.begin(), text.end(), [](char character) { return static_cast<signed char>(character) >= 0; });
}

// Bytes that are no UTF-8 stay as they are.
std::string MapCharacters(std::string_view text, utf8proc_int32_t (*map)(utf8proc_int32_t))
{
    std::string mapped;
    mapped.reserve(text.size());
    while (!text.empty())
    {
        utf8proc_int32_t character = -1;
        const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
        const utf8proc_ssize_t length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &character);
        if (length <= 0)
        {
            mapped += text.front();
            text.remove_prefix(1);
            continue;
        }
        utf8proc_uint8_t encoded[4];
        const utf8proc_ssize_t size = utf8proc_encode_char(map(character), encoded);
        mapped.append(reinterpret_cast<const char*>(encoded), static_cast<std::size_t>(size));
        text.remove_prefix(static_cast<std::size_t>(length));
    }
    return mapped;
}

void ChangeCase(CATShortText& text, char first, char last, utf8proc_int32_t (*map)(utf8proc_int32_t))
{
    if (!IsAscii(text.View()))
        return text.Assign(MapCharacters(text.View(), map));
    constexpr char otherCase = 'a' ^ 'A';
    char* characters = text.Data();
    for (std::size_t index = 0; index < text.Size(); ++index)
        if (characters[index] >= first && characters[index] <= last)
            characters[index] = static_cast<char>(characters[index] ^ otherCase);
}

struct Magnitude
{
    bool found = false;
    bool negative = false;
    std::uint64_t value = 0; // not above 2^32
};

Magnitude ReadInteger(std::string_view text, int base)
{
    constexpr std::uint64_t tooLarge = std::uint64_t{1} << 32U;
    Magnitude read;
    text = WithoutLeadingWhiteSpace(text);
    read.negative = text.starts_with('-');
    if (read.negative || text.starts_with('+'))
        text.remove_prefix(1);
    const bool prefixed = base == 16 && (text.starts_with("0x") || text.starts_with("0X"));
    const std::string_view digits = prefixed ? text.substr(2) : text;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), read.value, base);
    // "0x" without a digit behind it is the number 0.
    read.found = prefixed || end != digits.data();
    if (error == std::errc::result_out_of_range)
        read.value = tooLarge;
    read.value = std::min(read.value, tooLarge);
    return read;
}

} // namespace

int CATUnicodeString::SearchSubString(std::string_view text) const
{
    const std::size_t position = m_Text.View().find(text);
    return position == std::string_view::npos ? -1 : static_cast<int>(position);
}

void CATUnicodeString::RemoveAll(char what)
{
    char* begin = m_Text.Data();
    m_Text.SetSize(static_cast<std::size_t>(std::remove(begin, begin + m_Text.Size(), what) - begin));
}

void CATUnicodeString::Strip() { m_Text.Assign(CATStripped(m_Text.View())); }

void CATUnicodeString::ToUpper() { ChangeCase(m_Text, 'a', 'z', utf8proc_toupper); }

void CATUnicodeString::ToLower() { ChangeCase(m_Text, 'A', 'Z', utf8proc_tolower); }

int CATUnicodeString::ConvertToNum(int* value, const char* format) const
{
    *value = 0;
    const Magnitude read = ReadInteger(m_Text.View(), 10);
    const std::uint64_t limit = std::uint64_t{std::numeric_limits<int>::max()} + (read.negative ? 1U : 0U);
    if (std::string_view(format) != "%d" || !read.found || read.value > limit)
        return 0;
    const auto number = static_cast<std::int64_t>(read.value);
    *value = static_cast<int>(read.negative ? -number : number);
    return 1;
}

int CATUnicodeString::ConvertToNum(unsigned int* value, const char* format) const
{
    *value = 0;
    const Magnitude read = ReadInteger(m_Text.View(), 16);
    if (std::string_view(format) != "%X" || !read.found || read.value > std::numeric_limits<unsigned int>::max())
        return 0;
    const auto number = static_cast<unsigned int>(read.value);
    *value = read.negative ? 0U - number : number;
    return 1;
}

int CATUnicodeString::ConvertToNum(double* value, const char* format) const
{
    *value = 0.0;
    std::string_view text = WithoutLeadingWhiteSpace(m_Text.View());
    return std::string_view(format) == "%le" && CATTakeNumber(text, *value) ? 1 : 0;
}

void CATUnicodeString::BuildFromNum(int value) { m_Text.Assign(std::to_string(value)); }

void CATUnicodeString::BuildFromNum(double value)
{
    char digits[32];
    const char* end = std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::general, 6).ptr;
    m_Text.Assign({digits, static_cast<std::size_t>(end - digits)});
}
