// Texts as Windows takes them: UTF-16, made of the UTF-8 that everything here is in.
#ifndef CATWide_H
#define CATWide_H
#ifdef _WIN32

#include <windows.h>

#include <string>
#include <string_view>

inline std::wstring CATWide(std::string_view utf8)
{
    const int size = static_cast<int>(utf8.size());
    std::wstring wide(utf8.size(), L'\0'); // never more units than bytes
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

inline std::string CATNarrow(std::wstring_view wide)
{
    const int size = static_cast<int>(wide.size());
    std::string utf8(wide.size() * 3, '\0'); // never more bytes for a unit
    utf8.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, wide.data(), size, utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}

#endif
#endif
