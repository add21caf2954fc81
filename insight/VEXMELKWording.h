// How messages and documents word names and texts.
#ifndef VEXMELKWording_H
#define VEXMELKWording_H

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

// What stands between words, in files as in comments.
inline constexpr std::string_view VEXMELKBlanks = " \t\r\n";

// A text of a file as a message shows it: in quotes, shortened, without characters that a terminal acts upon.
std::string VEXMELKQuoted(std::string_view text);
// As Markdown shows what is written in files: in backticks.
std::string VEXMELKInBackticks(std::string_view text);
// "a, b, c".
std::string VEXMELKJoined(const std::vector<std::string>& texts);

// Those that settings may be given by.
std::vector<std::string> VEXMELKColourNames();

inline bool VEXMELKContains(const std::vector<std::string>& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

#endif
