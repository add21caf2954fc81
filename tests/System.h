// What the tests ask of the system, and systems do in their own ways.
#ifndef TESTS_System_H
#define TESTS_System_H

#include <cstddef>
#include <optional>
#include <string>

// Sets a variable of the environment; an empty value takes it away.
void SetVariable(const char* name, const std::string& value);

// These make what not every system or user can make; false then.
bool MakePipe(const std::string& path);
bool MakeLink(const std::string& target, const std::string& path);

// Whether names of files that differ in the case of letters are two files.
#ifdef _WIN32
constexpr bool lettersHaveCase = false;
#else
constexpr bool lettersHaveCase = true;
#endif

// What the allocator has handed out; always 0 where it cannot be told.
std::size_t AllocatedBytes();

// What the system's converter makes of the text; nothing when a character has no place in the other encoding.
std::optional<std::string> Converted(std::string text, const std::string& from, const std::string& to);

#endif
