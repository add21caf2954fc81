// Comma-separated values as spreadsheets take them: RFC 4180, in UTF-8.
#ifndef MELKCFG_Csv_H
#define MELKCFG_Csv_H

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

// A text that a spreadsheet would take for a formula gets an apostrophe in front, which spreadsheets know: one that
// begins with = + - @, a tab or a carriage return. Numbers and quantities with a sign, such as "-5" and "-5mm", are no
// formulas and stay.
std::string HarmlessInSpreadsheet(std::string_view text);

// One record with its line end: cells are quoted where they have to be.
void WriteCsv(std::ostream& stream, const std::vector<std::string>& cells);

#endif
