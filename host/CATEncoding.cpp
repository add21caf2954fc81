// Every conversion goes by way of the characters' numbers.
#include "CATEncoding.h"

#include "CATXMLEncoding.h"

#include <algorithm>
#include <iterator>
#include <utf8proc.h>

namespace {

using Characters = std::optional<std::u32string>;

Characters FromUTF8(std::string_view bytes)
{
    std::u32string characters;
    while (!bytes.empty())
    {
        utf8proc_int32_t character = 0;
        const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(bytes.data()),
            static_cast<utf8proc_ssize_t>(bytes.size()), &character);
        if (length <= 0)
            return std::nullopt;
        characters += static_cast<char32_t>(character);
        bytes.remove_prefix(static_cast<std::size_t>(length));
    }
    return characters;
}

std::string ToUTF8(const std::u32string& characters)
{
    std::string bytes;
    for (const char32_t character : characters)
    {
        utf8proc_uint8_t encoded[4];
        const utf8proc_ssize_t length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(character), encoded);
        bytes.append(reinterpret_cast<const char*>(encoded), static_cast<std::size_t>(length));
    }
    return bytes;
}

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// "high" tells which byte of a unit is the higher one.
Characters FromUTF16(std::string_view bytes, std::size_t high)
{
    std::u32string characters;
    const auto unitAt = [&](std::size_t at)
    {
        return static_cast<char32_t>(
            static_cast<unsigned char>(bytes[at + high]) << 8U | static_cast<unsigned char>(bytes[at + 1 - high]));
    };
    for (std::size_t at = 0; at < bytes.size(); at += 2)
    {
        if (at + 2 > bytes.size())
            return std::nullopt;
        const char32_t unit = unitAt(at);
        const bool isPair = IsHighSurrogate(unit) && at + 4 <= bytes.size() && IsLowSurrogate(unitAt(at + 2));
        if (IsLowSurrogate(unit) || (IsHighSurrogate(unit) && !isPair))
            return std::nullopt;
        characters += isPair ? 0x10000 + ((unit - 0xD800) << 10U) + (unitAt(at + 2) - 0xDC00) : unit;
        at += isPair ? 2 : 0;
    }
    return characters;
}

std::string ToUTF16(const std::u32string& characters, std::size_t high)
{
    std::string bytes;
    const auto add = [&](char32_t unit)
    {
        const char both[2] = {static_cast<char>(unit >> 8U), static_cast<char>(unit & 0xFFU)};
        bytes += {both[high], both[1 - high]};
    };
    for (const char32_t character : characters)
    {
        if (character < 0x10000)
        {
            add(character);
            continue;
        }
        add(0xD800 + ((character - 0x10000) >> 10U));
        add(0xDC00 + ((character - 0x10000) & 0x3FFU));
    }
    return bytes;
}

// The character of each byte, for the encodings of a byte each.
bool MapOf(std::string_view encoding, int (&map)[256])
{
    if (!CATXMLIsEncoding(encoding, "US-ASCII"))
        return CATXMLSingleByteMap(encoding, map);
    for (int byte = 0; byte < 256; ++byte)
        map[byte] = byte < 128 ? byte : -1;
    return true;
}

Characters FromSingleBytes(std::string_view bytes, const int (&map)[256])
{
    std::u32string characters;
    for (const char byte : bytes)
    {
        const int character = map[static_cast<unsigned char>(byte)];
        if (character < 0)
            return std::nullopt;
        characters += static_cast<char32_t>(character);
    }
    return characters;
}

std::optional<std::string> ToSingleBytes(const std::u32string& characters, const int (&map)[256])
{
    std::string bytes;
    for (const char32_t character : characters)
    {
        const int* found = std::find(std::begin(map), std::end(map), static_cast<int>(character));
        if (found == std::end(map))
            return std::nullopt;
        bytes += static_cast<char>(found - std::begin(map));
    }
    return bytes;
}

constexpr std::size_t firstByte = 0;
constexpr std::size_t secondByte = 1;

Characters Decoded(std::string_view bytes, std::string_view encoding)
{
    int map[256];
    if (CATXMLIsEncoding(encoding, "UTF-8"))
        return FromUTF8(bytes);
    if (CATXMLIsEncoding(encoding, "UTF-16BE"))
        return FromUTF16(bytes, firstByte);
    if (CATXMLIsEncoding(encoding, "UTF-16LE"))
        return FromUTF16(bytes, secondByte);
    return MapOf(encoding, map) ? FromSingleBytes(bytes, map) : std::nullopt;
}

} // namespace

std::optional<std::string> CATToUTF8(std::string_view bytes, std::string_view encoding)
{
    const Characters characters = Decoded(bytes, encoding);
    return characters ? std::optional(ToUTF8(*characters)) : std::nullopt;
}

std::optional<std::string> CATFromUTF8(std::string_view utf8, std::string_view encoding)
{
    int map[256];
    const Characters characters = FromUTF8(utf8);
    if (!characters)
        return std::nullopt;
    if (CATXMLIsEncoding(encoding, "UTF-8"))
        return std::string(utf8);
    if (CATXMLIsEncoding(encoding, "UTF-16BE"))
        return ToUTF16(*characters, firstByte);
    if (CATXMLIsEncoding(encoding, "UTF-16LE"))
        return ToUTF16(*characters, secondByte);
    return MapOf(encoding, map) ? ToSingleBytes(*characters, map) : std::nullopt;
}
