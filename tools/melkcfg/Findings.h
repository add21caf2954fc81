// Findings as people and programs read them.
#ifndef MELKCFG_Findings_H
#define MELKCFG_Findings_H

#include "Json.h"
#include "VEXMELKCheck.h"

#include <iosfwd>

// Text as compilers print it, with the line and what the checks get now. In colours for a terminal; lines are cut to
// its width, 0 for none.
struct TextStyle
{
    bool isColoured = false;
    std::size_t width = 0;
};
void PrintFindings(
    std::ostream& stream, const VEXMELKCheckResult& result, const std::string& directory, const TextStyle& style);

Json FindingsToJson(const VEXMELKCheckResult& result);
// SARIF 2.1.0.
Json FindingsToSarif(const VEXMELKCheckResult& result, const std::string& version);
// Workflow commands, with paths that begin with the directory.
void PrintForGitHub(std::ostream& stream, const VEXMELKCheckResult& result, const std::string& directory);
// A test case for each file.
void PrintForJUnit(std::ostream& stream, const VEXMELKCheckResult& result);

// Without characters that a terminal acts upon; each of them becomes one that stands for it.
std::string Printable(std::string_view text);

#endif
