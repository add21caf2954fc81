// Texts of files are printed with care: they may hold anything.
#include "Findings.h"

#include "VEXMELKDocumentText.h"

#include <algorithm>
#include <map>
#include <ostream>

namespace {

constexpr const char* standIn = "\xEF\xBF\xBD"; // U+FFFD

std::size_t LengthOfCharacter(unsigned char first)
{
    return first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

// Controls of a terminal (C0, C1, delete) and of the direction of writing.
bool IsControl(std::string_view character)
{
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1)
        return first < ' ' || first == 0x7F;
    const auto second = static_cast<unsigned char>(character[1]);
    if (first == 0xC2)
        return second < 0xA0;
    const bool isMark = first == 0xE2 && second == 0x80 && character.size() == 3;
    const auto third = character.size() == 3 ? static_cast<unsigned char>(character[2]) : 0U;
    return (isMark && (third == 0x8E || third == 0x8F || (third >= 0xA8 && third <= 0xAE))) ||
           (first == 0xE2 && second == 0x81 && third >= 0xA6 && third <= 0xA9);
}

std::vector<std::string_view> CharactersOf(std::string_view text)
{
    std::vector<std::string_view> characters;
    while (!text.empty())
    {
        const std::size_t length = std::min(LengthOfCharacter(static_cast<unsigned char>(text[0])), text.size());
        characters.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return characters;
}

std::string MessageOf(const VEXMELKFinding& finding)
{
    return finding.suggestion.empty() ? finding.message
                                      : finding.message + "; did you mean " + "\"" + finding.suggestion + "\"?";
}

class TextPrinter
{
public:
    TextPrinter(std::ostream& stream, std::string directory, const TextStyle& style)
        : m_Stream(stream), m_Directory(std::move(directory)), m_Style(style)
    {
    }

    void Print(const VEXMELKFinding& finding)
    {
        const char* levels[] = {"\x1b[1;31m", "\x1b[1;35m", "\x1b[1;36m"};
        m_Stream << Coloured("\x1b[1m", finding.file + ":" + std::to_string(finding.begin.line) + ":" +
                                            std::to_string(finding.begin.column) + ":")
                 << " "
                 << Coloured(levels[static_cast<int>(finding.level)], std::string(VEXMELKNameOf(finding.level)) + ":")
                 << " " << Printable(MessageOf(finding)) << " [" << finding.rule->id << "]\n";
        PrintLine(finding);
        if (!finding.effect.empty())
            m_Stream << "  effect: " << Printable(finding.effect) << "\n";
    }

private:
    std::string Coloured(const char* colour, const std::string& text) const
    {
        const std::string printable = Printable(text);
        return m_Style.isColoured ? colour + printable + "\x1b[0m" : printable;
    }

    const VEXMELKWrittenFile* FileOf(const std::string& name)
    {
        if (m_Name != name)
        {
            m_Name = name;
            m_File = VEXMELKWrittenFile::Read(m_Directory + "/" + name);
        }
        return m_File ? &*m_File : nullptr;
    }

    // The part of the line around the finding, when it is too long to be shown whole.
    void PrintLine(const VEXMELKFinding& finding)
    {
        constexpr std::size_t longest = 160;
        const VEXMELKWrittenFile* file =
            finding.begin < finding.end && VEXMELKMayShow(finding) ? FileOf(finding.file) : nullptr;
        const std::vector<std::string_view> line =
            file ? CharactersOf(file->Line(finding.begin.line)) : std::vector<std::string_view>();
        const auto begin = static_cast<std::size_t>(finding.begin.column) - 1;
        if (line.empty() || begin > line.size())
            return;
        const std::size_t width = m_Style.width > 20 ? m_Style.width - 1 : longest;
        const std::size_t end = finding.end.line != finding.begin.line
                                    ? line.size()
                                    : std::min(static_cast<std::size_t>(finding.end.column) - 1, line.size());
        const std::size_t length = std::max<std::size_t>(std::min(end - begin, width), 1);
        const std::size_t room = (width - length) / 2;
        const std::size_t first = line.size() <= width || begin <= room ? 0 : begin - room;
        std::string shown;
        for (std::size_t at = first; at < std::min(line.size(), first + width); ++at)
            shown += line[at] == "\t" ? " " : Printable(line[at]);
        m_Stream << shown << "\n"
                 << std::string(begin - first, ' ')
                 << Coloured("\x1b[1;32m", "^" + std::string(std::min(length, first + width - begin) - 1, '~')) << "\n";
    }

    std::ostream& m_Stream;
    std::string m_Directory;
    TextStyle m_Style;
    std::string m_Name;
    std::optional<VEXMELKWrittenFile> m_File;
};

std::string Count(std::size_t count, const char* noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// Percent signs stand for what a property or message of a workflow command may not hold.
std::string ForCommand(std::string_view text, bool isProperty)
{
    std::string escaped;
    for (const char character : text)
        if (character == '%')
            escaped += "%25";
        else if (character == '\r')
            escaped += "%0D";
        else if (character == '\n')
            escaped += "%0A";
        else if (isProperty && character == ':')
            escaped += "%3A";
        else if (isProperty && character == ',')
            escaped += "%2C";
        else
            escaped += character;
    return escaped;
}

std::string ForUri(std::string_view path)
{
    constexpr const char* digits = "0123456789ABCDEF";
    std::string uri;
    for (const char character : path)
    {
        const auto byte = static_cast<unsigned char>(character);
        if (std::isalnum(byte) || std::string_view("-._~/").find(character) != std::string_view::npos)
            uri += character;
        else
            uri += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
    }
    return uri;
}

Json Region(const VEXMELKFinding& finding)
{
    return {{"startLine", finding.begin.line}, {"startColumn", finding.begin.column}, {"endLine", finding.end.line},
        {"endColumn", finding.end.column}};
}

Json OrNull(const std::string& text) { return text.empty() ? Json() : Json(text); }

Json RulesForSarif()
{
    Json rules = Json::array();
    for (const VEXMELKRule& rule : VEXMELKRules())
        rules.push_back(
            {{"id", rule.id}, {"shortDescription", {{"text", rule.title}}}, {"fullDescription", {{"text", rule.text}}},
                {"help", {{"text", std::string(rule.text)}, {"markdown", VEXMELKPageOf(rule)}}},
                {"defaultConfiguration", {{"level", VEXMELKNameOf(rule.level)}}}});
    return rules;
}

} // namespace

std::string Printable(std::string_view text)
{
    std::string printable;
    for (const std::string_view character : CharactersOf(text))
        printable += IsControl(character) ? standIn : std::string(character);
    return printable;
}

void PrintFindings(
    std::ostream& stream, const VEXMELKCheckResult& result, const std::string& directory, const TextStyle& style)
{
    TextPrinter printer(stream, directory, style);
    std::map<VEXMELKLevel, std::size_t> counts;
    for (const VEXMELKFinding& finding : result.findings)
    {
        ++counts[finding.level];
        printer.Print(finding);
    }
    stream << Count(result.files.size(), "file") << ", " << Count(result.standards, "standard") << ", "
           << Count(result.values, "value") << ", " << Count(VEXMELKRules().size(), "rule") << ": ";
    std::string found;
    for (const auto& [level, count] : counts)
        found += (found.empty() ? "" : ", ") + Count(count, VEXMELKNameOf(level).data());
    stream << (found.empty() ? "nothing found" : found) << "\n";
}

Json FindingsToJson(const VEXMELKCheckResult& result)
{
    Json findings = Json::array();
    for (const VEXMELKFinding& finding : result.findings)
        findings.push_back({{"rule", finding.rule->id}, {"level", VEXMELKNameOf(finding.level)}, {"file", finding.file},
            {"line", finding.begin.line}, {"column", finding.begin.column}, {"endLine", finding.end.line},
            {"endColumn", finding.end.column}, {"message", finding.message}, {"suggestion", OrNull(finding.suggestion)},
            {"effect", OrNull(finding.effect)}, {"fixable", !finding.edits.empty() || !finding.renamed.empty()}});
    return {{"version", 1},
        {"checked", {{"files", result.files.size()}, {"standards", result.standards}, {"values", result.values},
                        {"rules", VEXMELKRules().size()}}},
        {"findings", findings}};
}

Json FindingsToSarif(const VEXMELKCheckResult& result, const std::string& version)
{
    Json results = Json::array();
    for (const VEXMELKFinding& finding : result.findings)
    {
        std::string text = MessageOf(finding);
        if (!finding.effect.empty())
            text += "\nEffect: " + finding.effect;
        results.push_back({{"ruleId", finding.rule->id}, {"ruleIndex", finding.rule - VEXMELKRules().data()},
            {"level", VEXMELKNameOf(finding.level)}, {"message", {{"text", text}}},
            {"locations", Json::array({{{"physicalLocation",
                              {{"artifactLocation", {{"uri", ForUri(finding.file)}, {"uriBaseId", "CONFIGURATION"}}},
                                  {"region", Region(finding)}}}}})}});
    }
    const Json driver = {{"name", "melkcfg"}, {"version", version}, {"rules", RulesForSarif()}};
    return {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"}, {"version", "2.1.0"},
        {"runs", Json::array(
                     {{{"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", results}}})}};
}

void PrintForGitHub(std::ostream& stream, const VEXMELKCheckResult& result, const std::string& directory)
{
    for (const VEXMELKFinding& finding : result.findings)
    {
        const char* commands[] = {"error", "warning", "notice"};
        std::string text = Printable(MessageOf(finding));
        if (!finding.effect.empty())
            text += "\neffect: " + Printable(finding.effect);
        stream << "::" << commands[static_cast<int>(finding.level)]
               << " file=" << ForCommand(Printable(directory + "/" + finding.file), true)
               << ",line=" << finding.begin.line << ",col=" << finding.begin.column << ",endLine=" << finding.end.line
               << ",endColumn=" << finding.end.column << ",title=" << finding.rule->id
               << "::" << ForCommand(text, false) << "\n";
    }
}

void PrintForJUnit(std::ostream& stream, const VEXMELKCheckResult& result)
{
    std::map<std::string, std::vector<const VEXMELKFinding*>> files;
    for (const std::string& file : result.files)
        files[file];
    for (const VEXMELKFinding& finding : result.findings)
        files[finding.file].push_back(&finding);
    const auto failures =
        std::count_if(files.begin(), files.end(), [](const auto& file) { return !file.second.empty(); });
    stream << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n<testsuite name=\"melkcfg check\" tests=\""
           << files.size() << "\" failures=\"" << failures << "\" errors=\"0\">\n";
    for (const auto& [file, findings] : files)
    {
        stream << "<testcase classname=\"melkcfg\" name=\"" << VEXMELKEscaped(Printable(file)) << "\"";
        if (findings.empty())
        {
            stream << "/>\n";
            continue;
        }
        std::string text;
        for (const VEXMELKFinding* finding : findings)
            text += std::to_string(finding->begin.line) + ":" + std::to_string(finding->begin.column) + ": " +
                    std::string(VEXMELKNameOf(finding->level)) + ": " + Printable(MessageOf(*finding)) + " [" +
                    std::string(finding->rule->id) + "]\n";
        stream << "><failure message=\"" << VEXMELKEscaped(Count(findings.size(), "finding")) << "\">"
               << VEXMELKEscaped(text) << "</failure></testcase>\n";
    }
    stream << "</testsuite>\n</testsuites>\n";
}
