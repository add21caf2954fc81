// What is said about a command line that cannot be understood.
#ifndef MELKCFG_UsageErrors_H
#define MELKCFG_UsageErrors_H

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

// The commands that people are told of.
std::vector<const CLI::App*> CommandsOf(const CLI::App& application);
// "--level", "-h": of the application, or of a command with those of all commands.
std::vector<std::string> OptionNamesOf(const CLI::App& parser);

// The message for people, with the nearest known names where a command or an option is not known.
std::string UsageError(const CLI::App* application, const CLI::Error& error);

#endif
