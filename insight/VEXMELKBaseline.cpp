// Reads and writes the baseline line by line; the same baseline always has the same bytes.
#include "VEXMELKBaseline.h"

#include <fstream>
#include <sstream>

namespace {

std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (const char character : text)
        escaped += character == '\\'   ? "\\\\"
                   : character == '\t' ? "\\t"
                   : character == '\n' ? "\\n"
                   : character == '\r' ? "\\r"
                                       : std::string(1, character);
    return escaped;
}

std::string Unescaped(const std::string& text)
{
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at)
    {
        if (text[at] != '\\' || at + 1 == text.size())
        {
            plain += text[at];
            continue;
        }
        const char character = text[++at];
        plain += character == 't' ? '\t' : character == 'n' ? '\n' : character == 'r' ? '\r' : character;
    }
    return plain;
}

} // namespace

std::string VEXMELKBaselineText(const VEXMELKBaseline& baseline)
{
    std::string text = "# The Default values that the values of the Customer files were made against.\n"
                       "# \"melkcfg accept\" writes this file; \"melkcfg check\" compares it with the Default files.\n";
    for (const auto& [file, values] : baseline)
    {
        text += "\n[" + file + "]\n";
        for (const auto& [way, value] : values)
            text += Escaped(way) + (value ? "\t" + Escaped(*value) : "") + "\n";
    }
    return text;
}

VEXMELKBaseline VEXMELKReadBaseline(const std::string& text)
{
    VEXMELKBaseline baseline;
    std::string file;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
    {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const std::size_t tab = line.find('\t');
        if (line.size() > 2 && line.front() == '[' && line.back() == ']')
            file = line.substr(1, line.size() - 2);
        else if (line.starts_with("/") && !file.empty())
            baseline[file].emplace(Unescaped(line.substr(0, tab)),
                tab == std::string::npos ? std::nullopt : std::optional(Unescaped(line.substr(tab + 1))));
    }
    return baseline;
}

std::optional<VEXMELKBaseline> VEXMELKLoadBaseline(const std::string& directory)
{
    std::ifstream stream(directory + "/" + VEXMELKBaselineFile, std::ios::binary);
    if (!stream)
        return std::nullopt;
    std::ostringstream text;
    text << stream.rdbuf();
    return VEXMELKReadBaseline(text.str());
}
