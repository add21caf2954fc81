// Tables and JSON on standard output.
#ifndef MELKCFG_Table_H
#define MELKCFG_Table_H

#include "Json.h"

using Rows = std::vector<std::vector<std::string>>;

// Columns, each as wide as its widest cell.
void PrintTable(const Rows& rows);
void PrintJson(const Json& json);

#endif
