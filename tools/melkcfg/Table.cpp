// Widths count characters, not bytes.
#include "Table.h"

#include <algorithm>
#include <iostream>

namespace {

std::size_t WidthOf(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

// Texts of files may hold line ends and tabs, which would break the columns.
std::string InOneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char byte) { return byte < ' ' || byte == 0x7F; }, ' ');
    return text;
}

} // namespace

void PrintTable(const Rows& rows)
{
    std::vector<std::size_t> widths;
    for (const auto& row : rows)
    {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], WidthOf(row[column]));
    }
    for (const auto& row : rows)
    {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column)
            line += InOneLine(row[column]) + std::string(widths[column] + 2 - WidthOf(row[column]), ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        std::cout << line << '\n';
    }
}

void PrintJson(const Json& json) { std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << std::endl; }
