// Line ends are CR LF, inside of quotes they stay as they are.
#include "Csv.h"

#include "CATQuantity.h"

#include <ostream>
#include <utility>

std::string HarmlessInSpreadsheet(std::string_view text)
{
    double number = 0.0;
    const bool isDangerous = !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
    const bool isQuantity =
        CATRealFromText(text, number) || CATLengthFromText(text, number) || CATAngleFromText(text, number);
    const bool begins = isDangerous && (text.front() == '\t' || text.front() == '\r' || !isQuantity);
    return (begins ? "'" : "") + std::string(text);
}

void WriteCsv(std::ostream& stream, const std::vector<std::string>& cells)
{
    const char* before = "";
    for (const std::string& cell : cells)
    {
        stream << std::exchange(before, ",");
        if (cell.find_first_of(",\"\r\n") == std::string::npos)
        {
            stream << cell;
            continue;
        }
        stream << '"';
        for (const char character : cell)
            stream << (character == '"' ? "\"\"" : std::string(1, character));
        stream << '"';
    }
    stream << "\r\n";
}
