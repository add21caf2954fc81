// Each command: what it asks the library, and how it prints the answer as text or JSON.
#include "Commands.h"

#include "Batch.h"
#include "Registry.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKFormatTable.h"
#include "VEXMELKUtilities.h"
#include "Values.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <unordered_set>

namespace {

// Looks into a configuration's documents beyond what its class answers.
class Inspector : public VEXMELKConfig
{
public:
    Inspector(const CATUnicodeString& directory, const Configuration& configuration)
        : VEXMELKConfig(directory, CATUnicodeString(configuration.file)),
          m_Configuration(configuration),
          m_Directory(directory)
    {
    }

    // Which of its files exist.
    std::vector<std::string> Documents() const
    {
        const auto exists = [&](const CATUnicodeString& folder)
        { return VEXMELKUtilities::FileExists(m_Directory + folder + "\\" + m_Configuration.file) != 0; };
        std::vector<std::string> documents;
        if (m_Configuration.file.empty())
            return documents;
        if (!m_Configuration.isSingle && exists("\\Default"))
        {
            documents.emplace_back("Default");
            if (exists("\\Customer"))
                documents.emplace_back("Customer");
        }
        else if (exists(""))
            documents.emplace_back("single");
        return documents;
    }

    // How many standards the documents have between them; -1 when they do not load.
    int CountStandards()
    {
        CATIDOMElement_var root;
        VEXMELKRootDOMElementsDefinition roots;
        if (m_Configuration.isSingle ? !GetRootDOMElement(root) : !GetRootDOMElements(roots))
            return -1;
        CATListValCATUnicodeString names;
        if (!m_Configuration.isSingle)
            GetRootChildNames(standards, names);
        names.RemoveDuplicates();
        return names.Size();
    }

    // The categories that the standard's winning element holds; false for an unknown standard.
    bool Categories(const CATUnicodeString& standard, CATListValCATUnicodeString& names)
    {
        CATIDOMElement_var element = GetStandardElement(standard);
        if (element != NULL_var)
            GetChildElementAttributeValues(element, "category", "name", names);
        return element != NULL_var;
    }

private:
    static constexpr VEXMELKRow name{.attribute = "name"};
    static constexpr VEXMELKElement standards{.tag = "standard", .key = &name};

    const Configuration& m_Configuration;
    CATUnicodeString m_Directory;
};

CATUnicodeString CurrentDirectory()
{
    if (VEXMELKUtilities::GetAppMode() == VEXMELKTestMode)
        return VEXMELKConfigManager::GetTestPath() + "\\Configuration";
    CATUnicodeString directory;
    VEXMELKConfigManager::GetConfigManager()->GetCFGDir(directory);
    return directory;
}

// What a command that has run amounts to, given the answer of its query.
ExitStatus StatusOf(const Configuration& configuration, const Host& host, bool answeredFalse)
{
    if (!configuration.file.empty() && Inspector(CurrentDirectory(), configuration).Documents().empty())
        return NothingThere;
    if (host.HasErrors())
        return NotDone;
    return answeredFalse ? AnsweredFalse : Done;
}

std::string Joined(const std::vector<std::string>& texts)
{
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

void PrintJson(const Json& json) { std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << std::endl; }

// Prints rows as columns, each as wide as its widest cell.
void PrintTable(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::size_t> widths;
    for (const auto& row : rows)
    {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], row[column].size());
    }
    for (const auto& row : rows)
    {
        for (std::size_t column = 0; column + 1 < row.size(); ++column)
            std::cout << std::left << std::setw(static_cast<int>(widths[column] + 2)) << row[column];
        std::cout << row.back() << '\n';
    }
}

// One line a value: its path and the value.
void PrintValues(const std::string& path, const Json& json)
{
    if (json.is_structured() && !json.empty())
        for (const auto& item : json.items())
            PrintValues(json.is_array() ? path + "[" + item.key() + "]" : path + "." + item.key(), item.value());
    else if (json.is_string())
        std::cout << path << ": " << json.get_ref<const std::string&>() << '\n';
    else
        std::cout << path << ": " << json.dump() << '\n';
}

std::string ParameterText(const Parameter& parameter)
{
    return parameter.name + ": " + parameter.type + (parameter.unit.empty() ? "" : " [" + parameter.unit + "]");
}

std::string OperationText(const Operation& operation)
{
    std::vector<std::string> arguments;
    std::vector<std::string> outputs;
    for (const Parameter& parameter : operation.Parameters())
        (parameter.isOutput ? outputs : arguments).push_back(ParameterText(parameter));
    if (!operation.ResultType().empty())
        outputs.insert(outputs.begin(), operation.ResultType());
    return std::string(operation.name) + "(" + Joined(arguments) + ") -> " + Joined(outputs);
}

Json OperationJson(const Operation& operation)
{
    Json json = {{"name", operation.name}, {"arguments", Json::array()}, {"outputs", Json::array()},
        {"result", operation.ResultType().empty() ? Json() : Json(operation.ResultType())}};
    for (const Parameter& parameter : operation.Parameters())
        json[parameter.isOutput ? "outputs" : "arguments"].push_back(
            {{"name", parameter.name}, {"type", parameter.type}, {"unit", parameter.unit}});
    return json;
}

// The value of NAME=VALUE: JSON, or the text itself where a text is wanted.
Json AssignedValue(const Parameter& parameter, const std::string& text)
{
    if (parameter.type == "text")
        return text;
    try
    {
        return ParseJson(text);
    }
    catch (const RequestError&) // said in the terms of the argument
    {
        throw WrongType(parameter.name, parameter.type.c_str(), text);
    }
}

void Assign(const Operation& operation, const std::string& assignment, Json& arguments, Json& outputs)
{
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos)
        throw RequestError("expected NAME=VALUE, got " + Shown(assignment));
    const std::string name = assignment.substr(0, equals);
    std::vector<std::string> names;
    for (const Parameter& parameter : operation.Parameters())
    {
        names.push_back(parameter.name);
        if (parameter.name == name)
        {
            Json& assigned = parameter.isOutput ? outputs : arguments;
            if (assigned.contains(name))
                throw RequestError("the argument " + name + " is given twice");
            assigned[name] = AssignedValue(parameter, assignment.substr(equals + 1));
            return;
        }
    }
    throw UnknownName("argument", name, names);
}

} // namespace

ExitStatus RunList(const CommandOptions& options, const Host& host)
{
    const CATUnicodeString directory = CurrentDirectory();
    bool found = false;
    Json json = Json::array();
    std::vector<std::vector<std::string>> rows = {{"CONFIG", "FILE", "DOCUMENTS", "STANDARDS", "KEYS"}};
    for (const Configuration& configuration : AllConfigurations())
    {
        Inspector inspector(directory, configuration);
        const std::vector<std::string> documents = inspector.Documents();
        const int standards = documents.empty() ? 0 : inspector.CountStandards();
        found = found || !documents.empty();
        json.push_back({{"name", configuration.name}, {"keys", configuration.keys}, {"file", configuration.file},
            {"documents", documents}, {"standards", standards < 0 ? Json() : Json(standards)}});
        rows.push_back({configuration.name, configuration.file.empty() ? "-" : configuration.file,
            documents.empty() ? "-" : Joined(documents), standards < 0 ? "broken" : std::to_string(standards),
            configuration.keys.empty() ? "-" : Joined(configuration.keys)});
    }
    if (options.asJson)
        PrintJson(json);
    else
        PrintTable(rows);
    if (!found)
        return NothingThere;
    return host.HasErrors() ? NotDone : Done;
}

ExitStatus RunStandards(const CommandOptions& options, const Host& host)
{
    const Configuration& configuration = FindConfiguration(options.configuration);
    VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
    auto* check = dynamic_cast<VEXMELKCheckConfig*>(configuration.get(*manager));
    if (!check)
        throw RequestError(configuration.name + " has no standards");
    CATListValCATUnicodeString names;
    check->GetStandardNames(names, CATUnicodeString(options.category), options.unordered, options.maxLevel);
    Json json = Json::array();
    for (const CATUnicodeString& name : names)
    {
        const int level = check->FindStandardLevel(name);
        if (options.asJson)
            json.push_back({{"name", name.ConvertToChar()}, {"level", level}});
        else
            std::cout << level << "  " << name.ConvertToChar() << '\n';
    }
    if (options.asJson)
        PrintJson(json);
    return StatusOf(configuration, host, false);
}

ExitStatus RunCategories(const CommandOptions& options, const Host& host)
{
    const Configuration& configuration = FindConfiguration(options.configuration);
    Inspector inspector(CurrentDirectory(), configuration);
    CATListValCATUnicodeString names;
    const bool known = inspector.Categories(CATUnicodeString(options.standard), names);
    if (options.asJson)
        PrintJson(ToJson(VEXMELKValueOf(names)));
    else
        for (const CATUnicodeString& name : names)
            std::cout << name.ConvertToChar() << '\n';
    return StatusOf(configuration, host, !known);
}

ExitStatus RunOperations(const CommandOptions& options)
{
    Json json = Json::object();
    for (const Configuration& configuration : AllConfigurations())
    {
        if (!options.configuration.empty() && &configuration != &FindConfiguration(options.configuration))
            continue;
        if (!options.asJson)
            std::cout << configuration.name << '\n';
        for (const Operation& operation : configuration.operations)
            if (options.asJson)
                json[configuration.name].push_back(OperationJson(operation));
            else
                std::cout << "  " << OperationText(operation) << '\n';
    }
    if (options.asJson)
        PrintJson(json);
    return Done;
}

ExitStatus RunSchema(const CommandOptions& options)
{
    const std::string only = options.configuration.empty() ? "" : FindConfiguration(options.configuration).name;
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
        if (only.empty() || configuration.description->name == only)
            std::cout << "## " << configuration.description->name << "\n\n"
                      << VEXMELKFormatTable(*configuration.description) << '\n';
    return Done;
}

ExitStatus RunCall(const CommandOptions& options, const Host& host)
{
    const Configuration& configuration = FindConfiguration(options.configuration);
    const Operation& operation = configuration.FindOperation(options.operation);
    Json arguments = Json::object();
    Json outputs = Json::object();
    for (const std::string& assignment : options.assignments)
        Assign(operation, assignment, arguments, outputs);
    const Answered answered = RunOperation(configuration, operation, arguments, outputs, options.showSecrets);
    if (options.asJson)
        PrintJson({{"result", answered.result}, {"outputs", answered.outputs}});
    else
    {
        if (!operation.ResultType().empty())
            PrintValues("result", answered.result);
        for (const auto& output : answered.outputs.items())
            PrintValues(output.key(), output.value());
    }
    return StatusOf(configuration, host, answered.result == false);
}
