// Every answer of every question. Rows are printed as they come, so that a dump of any size needs little memory.
#include "CommandLine.h"
#include "Csv.h"
#include "Explain.h"
#include "Progress.h"
#include "Table.h"
#include "VEXMELKDump.h"

#include <algorithm>
#include <iostream>

namespace {

// What a row is printed as.
struct DumpCells
{
    explicit DumpCells(const VEXMELKDumpRow& row, bool showSecrets)
        : isMasked(row.value.named.isSecret && !showSecrets), amount(VEXMELKAmountIn(row.value))
    {
    }
    bool isMasked;
    std::optional<VEXMELKAmount> amount;
};

void PrintDumpAsJson(const VEXMELKDumpRow& row, bool showSecrets)
{
    const DumpCells cells(row, showSecrets);
    const VEXMELKPlacedValue& value = row.value;
    Json json = QuestionToJson(row.configuration, row.question);
    json["field"] = value.named.field;
    json["value"] = cells.isMasked ? Json(hiddenSecret) : ToJson(value.named.value);
    json["si"] = cells.amount ? Json(cells.amount->number) : Json();
    json["unit"] = cells.amount && !cells.amount->unit.empty() ? Json(cells.amount->unit) : Json();
    json["level"] = VEXMELKNameOf(value.level);
    json["file"] = value.HasPlace() ? Json(value.file) : Json();
    json["line"] = value.HasPlace() ? Json(value.position.line) : Json();
    json["column"] = value.HasPlace() ? Json(value.position.column) : Json();
    std::cout << json.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

void PrintDumpAsCsv(const VEXMELKDumpRow& row, bool showSecrets)
{
    const DumpCells cells(row, showSecrets);
    const VEXMELKPlacedValue& value = row.value;
    const bool isText = std::holds_alternative<std::string>(value.named.value);
    const std::string text =
        std::holds_alternative<std::monostate>(value.named.value) ? "" : VEXMELKTextOf(value.named.value);
    WriteCsv(
        std::cout, {std::string(row.configuration.description->name), std::string(row.question.Operation().Name()),
                       HarmlessInSpreadsheet(row.question.ArgumentText()), value.named.field,
                       cells.isMasked ? hiddenSecret
                       : isText       ? HarmlessInSpreadsheet(text)
                                      : text,
                       cells.amount ? VEXMELKTextOf(cells.amount->number) : "",
                       cells.amount ? std::string(cells.amount->unit) : "", std::string(VEXMELKNameOf(value.level)),
                       value.file, value.HasPlace() ? std::to_string(value.position.line) : "",
                       value.HasPlace() ? std::to_string(value.position.column) : ""});
}

// Whether a text of the files is more than ASCII. Spreadsheets then need a byte-order mark to know that it is UTF-8.
bool HasMoreThanAscii(const std::vector<const VEXMELKConfigManager::Configuration*>& configurations)
{
    const VEXMELKSilence silence;
    const auto isMore = [](std::string_view text) {
        return std::any_of(
            text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) > 0x7FU; });
    };
    for (const VEXMELKConfigManager::Configuration* configuration : VEXMELKAskedConfigurations(configurations))
        if (VEXMELKHasFile(*configuration->description, CurrentDirectory()))
            for (const VEXMELKSourceFile& file : VEXMELKLoadFiles(*configuration->description, CurrentDirectory()))
                if (isMore(VEXMELKDocumentText(file.root, 1).Text()))
                    return true;
    return false;
}

// Text: the values of each question below it.
class DumpForPeople
{
public:
    explicit DumpForPeople(bool showSecrets) : m_ShowSecrets(showSecrets) {}
    DumpForPeople(const DumpForPeople&) = delete;
    DumpForPeople& operator=(const DumpForPeople&) = delete;
    ~DumpForPeople() { Flush(); }

    void Add(const VEXMELKDumpRow& row)
    {
        const VEXMELKPlacedValue& value = row.value;
        if (&value == &row.answer.values.front())
        {
            Flush();
            m_Heading = std::string(row.configuration.description->name) + "  " +
                        std::string(row.question.Operation().Name()) + "  " + row.question.ArgumentText();
        }
        const bool isMasked = value.named.isSecret && !m_ShowSecrets;
        m_Rows.push_back({"  " + value.named.field, isMasked ? hiddenSecret : VEXMELKTextOf(value.named.value),
            std::string(VEXMELKNameOf(value.level)),
            value.HasPlace()
                ? value.file + ":" + std::to_string(value.position.line) + ":" + std::to_string(value.position.column)
                : ""});
    }

private:
    void Flush()
    {
        if (!m_Rows.empty())
            PrintTable({{m_Heading}});
        PrintTable(m_Rows);
        m_Rows.clear();
    }

    const bool m_ShowSecrets;
    std::string m_Heading;
    Rows m_Rows;
};

ExitStatus RunDump(const Host& host, const CommandOptions& options)
{
    VEXMELKDumpScope scope;
    for (const std::string& name : options.assignments)
        scope.configurations.push_back(FindConfiguration(name).entry);
    const bool showSecrets = options.showSecrets;
    DumpForPeople text(showSecrets);
    if (options.AsJson())
        scope.onRow = [&](const VEXMELKDumpRow& row) { PrintDumpAsJson(row, showSecrets); };
    else if (options.format == "csv")
        scope.onRow = [&](const VEXMELKDumpRow& row) { PrintDumpAsCsv(row, showSecrets); };
    else
        scope.onRow = [&](const VEXMELKDumpRow& row) { text.Add(row); };
    if (options.format == "csv")
    {
        std::cout << (HasMoreThanAscii(scope.configurations) ? "\xEF\xBB\xBF" : "");
        WriteCsv(std::cout,
            {"config", "operation", "arguments", "field", "value", "si", "unit", "level", "file", "line", "column"});
    }
    Progress progress;
    scope.onQuestion = [&](std::size_t number, std::size_t count, const std::string& name)
    { progress.Show(number, count, name); };
    const VEXMELKDumpCounts counts = VEXMELKDump(CurrentDirectory(), scope);
    TellLeftOut(counts.leftOut);
    if (host.HasErrors())
        return NotDone;
    if (counts.configurations > 0)
        return Done;
    std::cerr << "melkcfg: there is no configuration file to dump" << std::endl;
    return NothingThere;
}

} // namespace

void AddDumpCommands(CommandLine& line)
{
    CommandOptions& options = line.options;
    line.Add("dump", "Every answer of every question, with the text that decides it",
            [&](const Host& host) { return RunDump(host, options); }, {"text", "json", "csv"})
        ->add_option("CONFIG", options.assignments, "Only these configurations");
}
