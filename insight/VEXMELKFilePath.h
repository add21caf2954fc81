// Paths of the standard library, which takes plain texts in the code page of the system: UTF-8 has to be called so.
#ifndef VEXMELKFilePath_H
#define VEXMELKFilePath_H

#include <filesystem>
#include <string>
#include <string_view>

inline std::filesystem::path VEXMELKFilePath(std::string_view utf8)
{
    return {std::u8string(utf8.begin(), utf8.end())};
}

// With "/", as UTF-8.
inline std::string VEXMELKTextOf(const std::filesystem::path& path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

#endif
