// The manual page of the tool.
#ifndef MELKCFG_Manual_H
#define MELKCFG_Manual_H

#include <CLI/CLI.hpp>
#include <string>

// In the language of man(7), from the commands' own description.
std::string ManualOf(const CLI::App& application);

#endif
