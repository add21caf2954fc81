// The page needs no network and no other file, runs only the script whose digest it names, and is the same bytes for
// the same files.
#include "ReportPage.h"

#include "ChangeOutput.h"
#include "Digest.h"
#include "Json.h"
#include "ReportStyle.h"
#include "VEXMELKCheck.h"
#include "VEXMELKComparison.h"
#include "VEXMELKSvg.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

namespace {

std::string Escaped(std::string_view text) { return VEXMELKMarkupText(text); }

std::string BytesOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// The date that SOURCE_DATE_EPOCH gives; empty without it: a report is the same whenever it is made.
std::string DateOfReport()
{
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (!epoch || !*epoch)
        return {};
    const std::string_view text = epoch;
    long long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    constexpr long long endOfYear9999 = 253402300799;
    if (error != std::errc() || end != text.data() + text.size() || number < 0 || number > endOfYear9999)
        throw RequestError("SOURCE_DATE_EPOCH is no number of seconds: " + Shown(text));
    const std::chrono::sys_seconds seconds{std::chrono::seconds(number)};
    const auto days = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day day(days);
    const std::chrono::hh_mm_ss time(seconds - days);
    char date[64];
    const int length = std::snprintf(date, sizeof date, "%04d-%02u-%02u %02lld:%02lld:%02lld UTC",
        static_cast<int>(day.year()), static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
        static_cast<long long>(time.hours().count()), static_cast<long long>(time.minutes().count()),
        static_cast<long long>(time.seconds().count()));
    return {date, static_cast<std::size_t>(length)};
}

std::string PlaceText(const std::string& file, VEXMELKPosition position)
{
    return file + ":" + std::to_string(position.line) + ":" + std::to_string(position.column);
}

class ReportPage
{
public:
    ReportPage(const CATUnicodeString& directory, std::vector<VEXMELKReportConfiguration> configurations)
        : m_Directory(directory), m_Configurations(std::move(configurations))
    {
    }

    std::string Text()
    {
        WriteHead();
        WriteBar();
        m_Text += "<main id=\"main\">\n";
        WriteContents();
        WriteFiles();
        WriteVerdicts();
        WriteOverrides();
        for (std::size_t number = 0; number < m_Configurations.size(); ++number)
            WriteConfiguration(number);
        m_Text += "</main>\n<footer><p class=\"faint\">Written by melkcfg " MELKCFG_VERSION
                  ". Pictures are to scale when they are printed at their own size; what is grey in them is schematic."
                  "</p></footer>\n<script>" +
                  std::string(ReportScript()) + "</script>\n</body>\n</html>\n";
        return std::move(m_Text);
    }

private:
    void WriteHead()
    {
        const std::string style = ReportStyle();
        const std::string date = DateOfReport();
        m_Text +=
            "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'sha256-" +
            Sha256Base64(style) + "'; script-src 'sha256-" + Sha256Base64(ReportScript()) +
            "'; base-uri 'none'; form-action 'none'\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<meta name=\"color-scheme\" content=\"light dark\">\n<meta name=\"referrer\" content=\"no-referrer\">\n"
            "<title>Configuration report</title>\n<style>" +
            style +
            "</style>\n</head>\n<body>\n<a class=\"skip\" href=\"#main\">To the report</a>\n"
            "<header>\n<h1>Configuration report</h1>\n<p class=\"faint\">melkcfg " MELKCFG_VERSION +
            (date.empty() ? "" : " · " + date) + "</p>\n</header>\n";
    }

    void WriteBar()
    {
        m_Text += "<div class=\"bar\"><form id=\"filter\" role=\"search\" aria-label=\"Filter the report\">\n"
                  "<label for=\"words\">Search</label><input id=\"words\" type=\"search\" autocomplete=\"off\" "
                  "placeholder=\"words of names, values, files\">\n"
                  "<label for=\"which\">Configuration</label><select id=\"which\"><option value=\"\">all</option>";
        for (std::size_t number = 0; number < m_Configurations.size(); ++number)
            m_Text += "<option value=\"" + IdOf(number) + "\">" + Escaped(NameOf(number)) + "</option>";
        m_Text += "</select>\n<label><input id=\"customers\" type=\"checkbox\"> only standards of Customer</label>\n"
                  "<output id=\"found\" aria-live=\"polite\"></output>\n</form></div>\n";
    }

    static std::string IdOf(std::size_t number) { return "c" + std::to_string(number); }
    static std::string IdOf(std::size_t number, std::size_t cell) { return IdOf(number) + "-" + std::to_string(cell); }
    std::string NameOf(std::size_t number) const
    {
        return std::string(m_Configurations[number].configuration->description->name);
    }

    void WriteContents()
    {
        m_Text +=
            "<nav aria-label=\"Contents\"><h2>Contents</h2>\n<ul>\n<li><a href=\"#files\">Files</a></li>\n"
            "<li><a href=\"#verdicts\">Check</a></li>\n<li><a href=\"#overrides\">What Customer changes</a></li>\n";
        for (std::size_t number = 0; number < m_Configurations.size(); ++number)
            m_Text += "<li><a href=\"#" + IdOf(number) + "\">" + Escaped(NameOf(number)) + "</a></li>\n";
        m_Text += "</ul></nav>\n";
    }

    void BeginTable(const std::string& caption, std::initializer_list<const char*> columns)
    {
        m_Text += "<div class=\"scroll\"><table><caption>" + Escaped(caption) + "</caption><thead><tr>";
        for (const char* column : columns)
            m_Text += std::string("<th scope=\"col\">") + column + "</th>";
        m_Text += "</tr></thead><tbody>\n";
    }
    void EndTable() { m_Text += "</tbody></table></div>\n"; }

    void WriteFiles()
    {
        std::map<std::string, std::string> paths; // by name: several configurations may read a file
        for (const VEXMELKReportConfiguration& configuration : m_Configurations)
            for (const VEXMELKSourceFile& file : configuration.files)
                paths.emplace(file.name, file.path);
        m_Text += "<section id=\"files\"><h2>Files</h2>\n";
        BeginTable(std::to_string(paths.size()) + " files", {"File", "Bytes", "SHA-256"});
        for (const auto& [name, path] : paths)
        {
            const std::string bytes = BytesOf(path);
            m_Text += "<tr><th scope=\"row\">" + Escaped(name) + "</th><td class=\"n\">" +
                      std::to_string(bytes.size()) + "</td><td class=\"hash\">" + Sha256Hex(bytes) + "</td></tr>\n";
        }
        EndTable();
        m_Text += "</section>\n";
    }

    void WriteVerdicts()
    {
        const VEXMELKCheckResult result = VEXMELKCheck(m_Directory);
        m_Text += "<section id=\"verdicts\"><h2>Check</h2>\n<p>" + std::to_string(result.files.size()) + " files, " +
                  std::to_string(result.standards) + " standards and " + std::to_string(result.values) +
                  " values were looked at by " + std::to_string(VEXMELKRules().size()) + " rules.</p>\n";
        WriteFindings(result, VEXMELKLevel::Error);
        WriteFindings(result, VEXMELKLevel::Warning);
        WriteFindings(result, VEXMELKLevel::Note);
        m_Text += "</section>\n";
    }

    // Notes are behind a line that opens them.
    void WriteFindings(const VEXMELKCheckResult& result, VEXMELKLevel level)
    {
        const std::string name(VEXMELKNameOf(level));
        const auto isOfLevel = [&](const VEXMELKFinding& finding) { return finding.level == level; };
        const auto count = std::count_if(result.findings.begin(), result.findings.end(), isOfLevel);
        const std::string title = std::to_string(count) + " " + name + (count == 1 ? "" : "s");
        if (count == 0)
        {
            m_Text += "<p>" + title + "</p>\n";
            return;
        }
        m_Text += "<details" + std::string(level == VEXMELKLevel::Note ? "" : " open") + "><summary class=\"" + name +
                  "\">" + title + "</summary>\n";
        BeginTable(title, {"Place", "What is wrong", "What comes of it", "Rule"});
        for (const VEXMELKFinding& finding : result.findings)
            if (isOfLevel(finding))
                m_Text += "<tr><td><code>" + Escaped(PlaceText(finding.file, finding.begin)) + "</code></td><td>" +
                          Escaped(finding.message) +
                          (finding.suggestion.empty() ? "" : "; did you mean " + Escaped(finding.suggestion) + "?") +
                          "</td><td>" + Escaped(finding.effect) + "</td><td><code>" +
                          (finding.rule ? Escaped(finding.rule->id) : "") + "</code></td></tr>\n";
        EndTable();
        m_Text += "</details>\n";
    }

    // Compared with the Default files alone.
    void WriteOverrides()
    {
        m_Text += "<section id=\"overrides\"><h2>What Customer changes</h2>\n";
        const VEXMELKComparison comparison = VEXMELKCompare({m_Directory, true}, m_Directory);
        if (comparison.changes.empty())
            m_Text += "<p>Nothing: the answers are those of the Default files alone.</p>\n";
        else
            WriteChanges(comparison);
        m_Text += "</section>\n";
    }

    void WriteChanges(const VEXMELKComparison& comparison)
    {
        const std::string count = std::to_string(comparison.changes.size());
        m_Text += "<details><summary>" + count + " values of " + std::to_string(comparison.questions) +
                  " questions</summary>\n";
        BeginTable("against the Default files alone",
            {"Configuration", "Question", "Field", "Default and Customer", "Change", "Written in"});
        for (const VEXMELKChange& change : comparison.changes)
        {
            m_Text +=
                "<tr><td>" + Escaped(change.configuration->description->name) + "</td><td>" +
                Escaped(std::string(change.question->Operation().Name()) + " " + change.question->ArgumentText()) +
                "</td><td>" + Escaped(change.field) + "</td><td class=\"customer\">" +
                Escaped(ValuesText(change, false)) + "</td><td class=\"n\">" + Escaped(PercentText(change)) +
                "</td><td><code>" + Escaped(PlaceText(change.after)) + "</code></td></tr>\n";
        }
        EndTable();
        m_Text += "</details>\n";
    }

    void WriteConfiguration(std::size_t number)
    {
        const VEXMELKReportConfiguration& made = m_Configurations[number];
        const VEXMELKDescription& description = *made.configuration->description;
        std::string files;
        for (const VEXMELKSourceFile& file : made.files)
            files += (files.empty() ? "" : ", ") + file.name;
        m_Text += "<section class=\"configuration\" id=\"" + IdOf(number) + "\" data-about=\"" +
                  Escaped(std::string(description.meaning) + " " + files) + "\"><h2>" + Escaped(description.name) +
                  "</h2>\n<p>" + Escaped(description.meaning) + " <span class=\"faint\">" + Escaped(files) +
                  "</span></p>\n";
        if (!made.standards.front().name.empty())
            WriteMatrix(number);
        for (std::size_t cell = 0; cell < made.cells.size(); ++cell)
            WriteCell(number, cell);
        m_Text += "</section>\n";
    }

    // Standards down, categories across; each cell leads to what is said there.
    void WriteMatrix(std::size_t number)
    {
        const VEXMELKReportConfiguration& made = m_Configurations[number];
        m_Text += "<div class=\"scroll\"><table class=\"matrix\"><caption>who answers: C Customer, D Default, f what "
                  "“default” says, – nobody</caption><thead><tr><th scope=\"col\">Standard</th>";
        for (const std::string& category : made.categories)
            m_Text += "<th scope=\"col\">" + Escaped(category) + "</th>";
        m_Text += "</tr></thead><tbody>\n";
        for (const VEXMELKReportStandard& standard : made.standards)
        {
            m_Text += "<tr><th scope=\"row\"" + std::string(standard.isCustomers ? " class=\"customer\"" : "") + ">" +
                      Escaped(standard.name) +
                      (standard.isReplaced ? " <span class=\"faint\">(replaces Default’s)</span>" : "") + "</th>";
            for (const std::string& category : made.categories)
                WriteMatrixCell(number, standard, category);
            m_Text += "</tr>\n";
        }
        EndTable();
    }

    void WriteMatrixCell(std::size_t number, const VEXMELKReportStandard& standard, const std::string& category)
    {
        const auto cellOf = [&](const std::string& wanted)
        {
            const std::vector<VEXMELKReportCell>& cells = m_Configurations[number].cells;
            const auto found = std::find_if(cells.begin(), cells.end(),
                [&](const VEXMELKReportCell& cell)
                { return cell.standard == standard.name && cell.category == wanted; });
            return found == cells.end() ? std::string() : IdOf(number, static_cast<std::size_t>(found - cells.begin()));
        };
        const std::string own = cellOf(category);
        const std::string fallBack = own.empty() ? cellOf("default") : std::string();
        if (own.empty() && fallBack.empty())
        {
            m_Text += "<td>–</td>";
            return;
        }
        const std::string whose = standard.isCustomers ? "C" : "D";
        const std::string meaning = standard.name + ", " + category +
                                    (standard.isCustomers ? ": Customer" : ": Default") +
                                    (own.empty() ? ", falls back to default" : "");
        m_Text += "<td><a href=\"#" + (own.empty() ? fallBack : own) + "\" aria-label=\"" + Escaped(meaning) + "\">" +
                  whose + (own.empty() ? "&nbsp;f" : "") + "</a></td>";
    }

    void WriteCell(std::size_t number, std::size_t position)
    {
        const VEXMELKReportConfiguration& made = m_Configurations[number];
        const VEXMELKReportCell& cell = made.cells[position];
        const std::string id = IdOf(number, position);
        const auto standard = std::find_if(made.standards.begin(), made.standards.end(),
            [&](const VEXMELKReportStandard& entry) { return entry.name == cell.standard; });
        const bool isCustomers = standard != made.standards.end() && standard->isCustomers;
        std::string title =
            cell.standard + (cell.standard.empty() || cell.category.empty() ? "" : " · ") + cell.category;
        if (title.empty())
            title = "all";
        m_Text += "<details class=\"cell" + std::string(isCustomers ? " by-customer" : "") + "\" id=\"" + id +
                  "\"><summary" + (isCustomers ? " class=\"customer\"" : "") + ">" + Escaped(title) + "</summary>\n";
        if (!cell.drawing.panels.empty())
            m_Text += VEXMELKSvgText(cell.drawing, VEXMELKSvgUse::Page, "p" + id);
        if (!cell.answers.empty())
            WriteAnswers(cell);
        m_Text += "</details>\n";
    }

    void WriteAnswers(const VEXMELKReportCell& cell)
    {
        m_Text += "<details><summary>Answers and where they come from</summary>\n";
        BeginTable("each value as it is handed out", {"Field", "Value", "Origin"});
        for (const VEXMELKReportAnswer& answer : cell.answers)
        {
            const bool isFalse = answer.explanation.result == VEXMELKPlainValue(false);
            m_Text += "<tr><th scope=\"rowgroup\" colspan=\"3\">" +
                      Escaped(answer.operation + (answer.arguments.empty() ? "" : " (" + answer.arguments + ")")) +
                      (isFalse ? " <span class=\"faint\">answers false</span>" : "") + "</th></tr>\n";
            for (const VEXMELKOrigin& origin : answer.explanation.fields)
                WriteValue(origin);
        }
        EndTable();
        m_Text += "</details>\n";
    }

    void WriteValue(const VEXMELKOrigin& origin)
    {
        const VEXMELKNamedValue& value = origin.value;
        const std::string text = value.isSecret ? "********" : VEXMELKTextOf(value.value);
        m_Text += "<tr><td>" + Escaped(value.field) + "</td><td>" + Escaped(text) +
                  (value.unit.empty() || value.unit == "1" ? "" : " " + Escaped(value.unit)) + "</td><td>";
        std::string others;
        bool isFirst = true;
        for (const VEXMELKOriginPlace& place : origin.places)
        {
            const std::string where = place.file.empty() ? place.how : PlaceText(place.file, place.position);
            const bool isCustomers = place.file.starts_with("Customer/");
            const std::string line = "<code" + std::string(isCustomers ? " class=\"customer\"" : "") + ">" +
                                     Escaped(where) + "</code> <span class=\"faint\">" +
                                     Escaped(place.why.empty() ? place.how : place.why) + "</span>";
            if (isFirst)
                m_Text += line;
            else
                others += "<br>" + line;
            isFirst = false;
        }
        if (!others.empty())
            m_Text += "<details><summary>more</summary>" + others.substr(4) + "</details>";
        m_Text += "</td></tr>\n";
    }

    const CATUnicodeString m_Directory;
    const std::vector<VEXMELKReportConfiguration> m_Configurations;
    std::string m_Text;
};

} // namespace

std::string ReportPageOn(const CATUnicodeString& directory, std::vector<VEXMELKReportConfiguration> configurations)
{
    return ReportPage(directory, std::move(configurations)).Text();
}
