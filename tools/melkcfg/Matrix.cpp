// One value of all standards and categories: standards go down, categories across.
#include "Batch.h"
#include "CATQuantity.h"
#include "CommandLine.h"
#include "Csv.h"
#include "Explain.h"
#include "Progress.h"
#include "Table.h"
#include "VEXMELKMatrix.h"
#include "VEXMELKSvg.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>

namespace {

struct MatrixOptions
{
    std::vector<std::string> names; // CONFIG FIELD...
    std::string operation;
    std::string unit;
};

using Cell = std::optional<VEXMELKPlacedValue>;

bool IsUnit(const std::string& unit)
{
    for (const auto& known : {CATLengthUnits(), CATAngleUnits()})
        if (std::find(known.begin(), known.end(), unit) != known.end())
            return true;
    return false;
}

std::string MarkOf(const Cell& cell)
{
    const char mark = VEXMELKMarkOf(cell);
    return mark == '-' ? "–" : mark == ' ' ? "" : std::string(1, mark);
}

// In the unit when there is one and the value is a quantity of its dimension.
std::string TextOfCell(const VEXMELKPlacedValue& value, const std::string& unit, bool showSecrets)
{
    if (value.named.isSecret && !showSecrets)
        return hiddenSecret;
    const std::optional<VEXMELKAmount> amount = unit.empty() ? std::nullopt : VEXMELKAmountIn(value);
    const std::optional<double> number = amount ? VEXMELKAmountInUnit(*amount, unit) : std::nullopt;
    if (!number)
        return VEXMELKTextOf(value.named.value);
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.12g", *number);
    return digits;
}

std::string TitleOf(const VEXMELKMatrix& matrix, const std::string& unit)
{
    std::string title =
        std::string(matrix.configuration->description->name) + "  " + matrix.operation + "  " + matrix.field;
    title += matrix.arguments.empty() ? "" : "  " + matrix.arguments;
    return title + (unit.empty() ? "" : "  in " + unit);
}

void PrintAsText(const std::vector<VEXMELKMatrix>& matrices, const std::string& unit, bool showSecrets)
{
    for (const VEXMELKMatrix& matrix : matrices)
    {
        Rows rows = {{"standard"}};
        rows.front().insert(rows.front().end(), matrix.categories.begin(), matrix.categories.end());
        for (std::size_t standard = 0; standard < matrix.standards.size(); ++standard)
        {
            rows.push_back({matrix.standards[standard]});
            for (const Cell& cell : matrix.cells[standard])
            {
                const std::string text = cell ? TextOfCell(*cell, unit, showSecrets) : "";
                rows.back().push_back(text + (text.empty() || MarkOf(cell).empty() ? "" : " ") + MarkOf(cell));
            }
        }
        PrintTable({{TitleOf(matrix, unit)}});
        PrintTable(rows);
        std::cout << '\n';
    }
    std::cout << "C: of the Customer file, f: a fall-back, b: built in, –: no answer\n";
}

void PrintAsCsv(const std::vector<VEXMELKMatrix>& matrices, const std::string& unit, bool showSecrets)
{
    for (const VEXMELKMatrix& matrix : matrices)
    {
        std::vector<std::string> head = {"operation", "arguments", "field", "standard"};
        for (const std::string& category : matrix.categories)
        {
            head.push_back(HarmlessInSpreadsheet(category));
            head.push_back(category + " (who)");
        }
        WriteCsv(std::cout, head);
        for (std::size_t standard = 0; standard < matrix.standards.size(); ++standard)
        {
            std::vector<std::string> record = {matrix.operation, HarmlessInSpreadsheet(matrix.arguments), matrix.field,
                HarmlessInSpreadsheet(matrix.standards[standard])};
            for (const Cell& cell : matrix.cells[standard])
            {
                record.push_back(cell ? HarmlessInSpreadsheet(TextOfCell(*cell, unit, showSecrets)) : "");
                record.push_back(cell ? MarkOf(cell) : "-");
            }
            WriteCsv(std::cout, record);
        }
    }
}

// One page without scripts that fetches nothing.
void PrintAsHtml(const std::vector<VEXMELKMatrix>& matrices, const std::string& unit, bool showSecrets)
{
    const std::string title = std::string(matrices.front().configuration->description->name);
    std::cout
        << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
           "'unsafe-inline'\">\n<title>"
        << VEXMELKMarkupText(title)
        << "</title>\n<style>\n:root { color-scheme: light dark; }\nbody { font: 1rem sans-serif; margin: 1rem; }\n"
           "table { border-collapse: collapse; margin: 0 0 2rem; }\ncaption { font-weight: bold; text-align: left; "
           "padding: .5rem 0; }\nth, td { border: 1px solid; padding: .2rem .5rem; text-align: left; }\ntd { "
           "white-space: nowrap; }\nsmall { opacity: .7; }\n</style>\n</head>\n<body>\n";
    for (const VEXMELKMatrix& matrix : matrices)
    {
        std::cout << "<table>\n<caption>" << VEXMELKMarkupText(TitleOf(matrix, unit))
                  << "</caption>\n<thead><tr><th scope=\"col\">standard</th>";
        for (const std::string& category : matrix.categories)
            std::cout << "<th scope=\"col\">" << VEXMELKMarkupText(category) << "</th>";
        std::cout << "</tr></thead>\n<tbody>\n";
        for (std::size_t standard = 0; standard < matrix.standards.size(); ++standard)
        {
            std::cout << "<tr><th scope=\"row\">" << VEXMELKMarkupText(matrix.standards[standard]) << "</th>";
            for (const Cell& cell : matrix.cells[standard])
            {
                const std::string place =
                    cell && cell->HasPlace() ? cell->file + ":" + std::to_string(cell->position.line) : "";
                std::cout << "<td" << (place.empty() ? "" : " title=\"" + VEXMELKMarkupText(place) + "\"") << ">"
                          << (cell ? VEXMELKMarkupText(TextOfCell(*cell, unit, showSecrets)) : "");
                if (!MarkOf(cell).empty())
                    std::cout << " <small>" << MarkOf(cell) << "</small>";
                std::cout << "</td>";
            }
            std::cout << "</tr>\n";
        }
        std::cout << "</tbody>\n</table>\n";
    }
    std::cout << "<p>C: of the Customer file, f: a fall-back, b: built in, –: no answer</p>\n</body>\n</html>\n";
}

Json MatrixToJson(const VEXMELKMatrix& matrix, const std::string& unit, bool showSecrets)
{
    Json rows = Json::array();
    for (const std::vector<Cell>& cells : matrix.cells)
    {
        Json row = Json::array();
        for (const Cell& cell : cells)
        {
            if (!cell)
            {
                row.push_back(nullptr);
                continue;
            }
            const std::optional<VEXMELKAmount> amount = VEXMELKAmountIn(*cell);
            const std::optional<double> number =
                amount && !unit.empty() ? VEXMELKAmountInUnit(*amount, unit) : std::nullopt;
            Json json = {
                {"value", cell->named.isSecret && !showSecrets ? Json(hiddenSecret) : ToJson(cell->named.value)},
                {"level", VEXMELKNameOf(cell->level)}};
            if (number)
                json["number"] = *number;
            if (cell->HasPlace())
                json.update(
                    Json{{"file", cell->file}, {"line", cell->position.line}, {"column", cell->position.column}});
            row.push_back(std::move(json));
        }
        rows.push_back(std::move(row));
    }
    return {{"config", matrix.configuration->description->name}, {"operation", matrix.operation},
        {"arguments", matrix.arguments}, {"field", matrix.field}, {"unit", unit.empty() ? Json() : Json(unit)},
        {"standards", matrix.standards}, {"categories", matrix.categories}, {"cells", std::move(rows)}};
}

// The names of all fields that a table can be made of.
RequestError UnknownField(const Configuration& configuration, const std::string& field, const std::string& operation)
{
    VEXMELKMatrixScope scope;
    scope.operation = operation;
    std::vector<std::string> known;
    for (const VEXMELKMatrix& matrix : VEXMELKMatrices(*configuration.entry, CurrentDirectory(), scope))
        if (std::find(known.begin(), known.end(), matrix.field) == known.end())
            known.push_back(matrix.field);
    return UnknownName("field", field, known);
}

ExitStatus RunMatrix(const CommandOptions& common, const MatrixOptions& options)
{
    if (options.names.size() < 2)
        throw RequestError("table needs CONFIG FIELD...");
    if (!options.unit.empty() && !IsUnit(options.unit))
        throw RequestError("unknown unit " + Shown(options.unit) +
                           "; units are those of lengths and angles: mm, cm, dm, m, "
                           "km, in, ft, mic, deg, rad, grad, turn");
    const Configuration& configuration = FindConfiguration(options.names.front());
    if (!options.operation.empty())
        configuration.FindOperation(options.operation);
    if (!RequireFiles(CurrentDirectory(), {configuration.entry}))
        return NothingThere;
    Progress progress;
    VEXMELKMatrixScope scope;
    scope.fields.assign(options.names.begin() + 1, options.names.end());
    scope.operation = options.operation;
    scope.onQuestion = [&](std::size_t number, std::size_t count, const std::string& name)
    { progress.Show(number, count, name); };
    const std::vector<VEXMELKMatrix> matrices = VEXMELKMatrices(*configuration.entry, CurrentDirectory(), scope);
    for (const std::string& field : scope.fields)
        if (std::none_of(matrices.begin(), matrices.end(),
                [&](const VEXMELKMatrix& matrix)
                { return matrix.field == field || matrix.field.ends_with("." + field); }))
            throw UnknownField(configuration, field, options.operation);
    if (common.format == "csv")
        PrintAsCsv(matrices, options.unit, common.showSecrets);
    else if (common.format == "html")
        PrintAsHtml(matrices, options.unit, common.showSecrets);
    else if (common.AsJson())
    {
        Json tables = Json::array();
        for (const VEXMELKMatrix& matrix : matrices)
            tables.push_back(MatrixToJson(matrix, options.unit, common.showSecrets));
        PrintJson({{"version", 1}, {"tables", std::move(tables)}});
    }
    else
        PrintAsText(matrices, options.unit, common.showSecrets);
    return Done;
}

} // namespace

void AddMatrixCommands(CommandLine& line)
{
    const auto options = std::make_shared<MatrixOptions>();
    CLI::App* table = line.Add("table", "Values of all standards and categories side by side, and who answers",
        [&line, options](const Host&) { return RunMatrix(line.options, *options); }, {"text", "json", "csv", "html"});
    table->add_option(
        "CONFIG FIELD", options->names, "A configuration, and its fields: definition.FrontOffset, or FrontOffset");
    table->add_option("--unit", options->unit, "Quantities in this unit, without it")->type_name("UNIT");
    table->add_option("--operation", options->operation, "Only of this operation")->type_name("OPERATION");
}
