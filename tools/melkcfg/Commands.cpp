// Each command: what it asks the library, and how it prints the answer as text or JSON.
#include "Batch.h"
#include "CommandLine.h"
#include "Explain.h"
#include "NamesThere.h"
#include "Table.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKOperations.h"
#include "VEXMELKSuggestions.h"
#include "VEXMELKUtilities.h"
#include "Values.h"

#include <algorithm>
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

} // namespace

ExitStatus StatusOf(const Configuration& configuration, const Host& host, bool answeredFalse)
{
    if (!configuration.file.empty() && Inspector(CurrentDirectory(), configuration).Documents().empty())
        return NothingThere;
    if (host.HasErrors())
        return NotDone;
    return answeredFalse ? AnsweredFalse : Done;
}

namespace {

std::string Joined(const std::vector<std::string>& texts)
{
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : ", ") + text;
    return joined;
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

// The value of NAME=VALUE: JSON, or the text itself where a text or a number with its unit is wanted.
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
        if (!parameter.unit.empty())
            return text;
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
            assigned[name] = InUnitOf(parameter, AssignedValue(parameter, assignment.substr(equals + 1)));
            return;
        }
    }
    throw UnknownName("argument", name, names);
}

ExitStatus RunList(const CommandOptions& options, const Host& host)
{
    const CATUnicodeString directory = CurrentDirectory();
    bool found = false;
    Json json = Json::array();
    Rows rows = {{"CONFIG", "FILE", "DOCUMENTS", "STANDARDS", "KEYS"}};
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
    if (options.AsJson())
        PrintJson(json);
    else
        PrintTable(rows);
    if (!found)
        return NothingThere;
    return host.HasErrors() ? NotDone : Done;
}

void PrintReason(const std::string& reason)
{
    if (!reason.empty())
        std::cerr << reason << '\n';
}

// A category that no standard has, but that is nearly one of those that are there.
std::string ReasonForCategory(const Configuration& configuration, const std::string& category)
{
    const std::vector<std::string> known = NamesThere(configuration).Categories("");
    const std::string meant = VEXMELKMeant(category, known);
    if (meant.empty() || std::find(known.begin(), known.end(), category) != known.end())
        return {};
    return "no standard has a category \"" + Shown(category) + "\" (did you mean \"" + meant + "\"?)";
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
        if (options.AsJson())
            json.push_back({{"name", name.ConvertToChar()}, {"level", level}});
        else
            std::cout << level << "  " << name.ConvertToChar() << '\n';
    }
    if (options.AsJson())
        PrintJson(json);
    if (!host.HasErrors())
        PrintReason(ReasonForCategory(configuration, options.category));
    if (names.Size() == 0 && !host.HasErrors())
        PrintReason("no standard up to level " + std::to_string(options.maxLevel) + " has a category " +
                    Shown(options.category) + " or \"default\"");
    return StatusOf(configuration, host, false);
}

ExitStatus RunCategories(const CommandOptions& options, const Host& host)
{
    const Configuration& configuration = FindConfiguration(options.configuration);
    Inspector inspector(CurrentDirectory(), configuration);
    CATListValCATUnicodeString names;
    const bool known = inspector.Categories(CATUnicodeString(options.standard), names);
    if (options.AsJson())
        PrintJson(ToJson(VEXMELKValueOf(names)));
    else
        for (const CATUnicodeString& name : names)
            std::cout << name.ConvertToChar() << '\n';
    // Any query for a standard has the same reason.
    if (!known)
        PrintReason(ReasonFor(configuration,
            AskedByJson(configuration.FindOperation("GetLoading"), {{"standard", options.standard}}, Json::object())));
    return StatusOf(configuration, host, !known);
}

ExitStatus RunOperations(const CommandOptions& options)
{
    Json json = Json::object();
    for (const Configuration& configuration : AllConfigurations())
    {
        if (!options.configuration.empty() && &configuration != &FindConfiguration(options.configuration))
            continue;
        if (!options.AsJson())
            std::cout << configuration.name << '\n';
        for (const Operation& operation : configuration.operations)
            if (options.AsJson())
                json[configuration.name].push_back(OperationJson(operation));
            else
                std::cout << "  " << OperationText(operation) << '\n';
    }
    if (options.AsJson())
        PrintJson(json);
    return Done;
}

// The question that a command line asks.
struct CommandLineQuestion
{
    const Configuration& configuration;
    const Operation& operation;
    Json arguments = Json::object();
    Json outputs = Json::object();

    CommandLineQuestion(const CommandOptions& options, const std::string& operationName)
        : configuration(FindConfiguration(options.configuration)), operation(configuration.FindOperation(operationName))
    {
    }
    AskedByJson Askable() const { return {operation, arguments, outputs}; }
};

CommandLineQuestion QuestionOf(const CommandOptions& options)
{
    CommandLineQuestion question(options, options.operation);
    for (const std::string& assignment : options.assignments)
        Assign(question.operation, assignment, question.arguments, question.outputs);
    return question;
}

bool HasRole(const Operation& operation, VEXMELKRole role)
{
    return VEXMELKParameterWith(operation.Described(), role) != nullptr;
}

// The main query of a configuration for a standard and a category.
CommandLineQuestion MainQuestionOf(const CommandOptions& options)
{
    const Configuration& configuration = FindConfiguration(options.configuration);
    if (options.assignments.size() != 1)
        throw RequestError("explain needs CONFIG OPERATION NAME=VALUE..., or CONFIG STANDARD CATEGORY");
    const VEXMELKOperation* main = VEXMELKMainOperationOf(*configuration.entry->description);
    if (!main)
        throw RequestError(configuration.name + " has no query for a standard");
    CommandLineQuestion question(options, std::string(main->Name()));
    question.arguments["standard"] = options.operation;
    if (HasRole(question.operation, VEXMELKRole::Category))
        question.arguments["category"] = options.assignments.front();
    return question;
}

bool IsOperation(const CommandOptions& options)
{
    const auto& operations = FindConfiguration(options.configuration).operations;
    return std::any_of(operations.begin(), operations.end(),
               [&](const Operation& operation) { return operation.name == options.operation; }) ||
           std::all_of(options.assignments.begin(), options.assignments.end(),
               [](const std::string& text) { return text.find('=') != std::string::npos; });
}

ExitStatus RunExplain(const CommandOptions& options, const Host& host)
{
    const CommandLineQuestion question = IsOperation(options) ? QuestionOf(options) : MainQuestionOf(options);
    if (!question.configuration.entry->create)
        throw RequestError("no configuration object");
    const AskedByJson askable = question.Askable();
    const CATUnicodeString directory = CurrentDirectory();
    const VEXMELKExplanation explanation = VEXMELKExplain(*question.configuration.entry, askable, directory);
    std::vector<VEXMELKStep> steps;
    if (options.steps)
        steps = VEXMELKSteps(*question.configuration.entry, askable, directory);
    if (!options.field.empty() && !explanation.OriginOf(options.field))
    {
        std::vector<std::string> known;
        for (const VEXMELKOrigin& origin : explanation.fields)
            known.push_back(origin.value.field);
        throw UnknownName("field", options.field, known);
    }
    if (options.AsJson())
    {
        Json json = {{"version", 1}, {"config", question.configuration.name}, {"operation", question.operation.name},
            {"arguments", question.arguments}, {"result", ToJson(explanation.result)},
            {"reason", explanation.reason.empty() ? Json() : Json(explanation.reason)},
            {"fields", FieldsToJson(explanation, options.showSecrets, options.field)},
            {"leftOut", explanation.leftOut}};
        if (options.steps)
            json["steps"] = StepsToJson(steps);
        PrintJson(json);
    }
    else
    {
        PrintExplanation(explanation, options.showSecrets, options.field);
        PrintSteps(steps);
    }
    PrintReason(explanation.reason);
    return StatusOf(question.configuration, host, explanation.result == VEXMELKPlainValue(false));
}

// Only then is it looked for why the category does not answer itself, which takes longer than the question.
bool MayFallBack(const CommandLineQuestion& question)
{
    const std::string category = question.arguments.value("category", "default");
    if (!HasRole(question.operation, VEXMELKRole::Category) || category == "default")
        return false;
    const VEXMELKConfig* object = question.configuration.get(*VEXMELKConfigManager::GetConfigManager());
    return !object || !VEXMELKHasCategory(*object, CATUnicodeString(question.arguments.value("standard", "")),
                          CATUnicodeString(category));
}

ExitStatus RunCall(const CommandOptions& options, const Host& host)
{
    const CommandLineQuestion question = QuestionOf(options);
    const Answered answered = RunOperation(
        question.configuration, question.operation, question.arguments, question.outputs, options.showSecrets);
    if (options.AsJson())
        PrintJson({{"result", answered.result}, {"outputs", answered.outputs}});
    else
    {
        if (!question.operation.ResultType().empty())
            PrintValues("result", answered.result);
        for (const auto& output : answered.outputs.items())
            PrintValues(output.key(), output.value());
    }
    if (!host.HasErrors() && (answered.result == false || MayFallBack(question)))
        PrintReason(ReasonFor(question.configuration, question.Askable()));
    return StatusOf(question.configuration, host, answered.result == false);
}

ExitStatus RunCallOrBatch(const CommandOptions& options, Host& host)
{
    if (!options.batch)
    {
        if (options.operation.empty())
            throw RequestError("call needs CONFIG and OPERATION, or --batch");
        return RunCall(options, host);
    }
    if (!options.configuration.empty())
        throw RequestError("--batch takes its requests from standard input, and no CONFIG");
    BatchInput standardInput(std::cout);
    std::istream requests(&standardInput);
    const bool understood = RunBatch(requests, std::cout, host, options.showSecrets);
    if (standardInput.HasFailed())
        throw RequestError("standard input cannot be read");
    return understood ? Done : NotDone;
}

} // namespace

void AddQuestionCommands(CommandLine& line)
{
    CommandOptions& options = line.options;
    line.Add("list", "Every configuration, with its file and number of standards",
        [&](const Host& host) { return RunList(options, host); });

    CLI::App* standards = line.Add("standards", "The standards of a category, with their priority levels",
        [&](const Host& host) { return RunStandards(options, host); });
    standards->add_option("CONFIG", options.configuration, "The configuration")->required();
    standards->add_option("--category", options.category, "The vehicle category")->capture_default_str();
    standards->add_option("--max-level", options.maxLevel, "The highest priority level")->capture_default_str();
    standards->add_flag("--unordered", options.unordered, "In the order of the files, whatever the level");

    CLI::App* categories = line.Add(
        "categories", "The categories of a standard", [&](const Host& host) { return RunCategories(options, host); });
    categories->add_option("CONFIG", options.configuration, "The configuration")->required();
    categories->add_option("STANDARD", options.standard, "The standard")->required();

    CLI::App* operations = line.Add("operations", "Every query operation, with its arguments and outputs",
        [&](const Host&) { return RunOperations(options); });
    operations->add_option("CONFIG", options.configuration, "Only those of this configuration");

    CLI::App* explain = line.Add("explain", "Where each value of an answer comes from, and what it hides",
        [&](const Host& host) { return RunExplain(options, host); });
    explain->add_option("CONFIG", options.configuration, "The configuration")->required();
    explain->add_option("OPERATION", options.operation, "The operation, or the standard of the main query")->required();
    explain->add_option("NAME=VALUE", options.assignments, "The operation's arguments, or the category");
    explain->add_option("--field", options.field, "Only this field, such as definition.FrontOffset");
    explain->add_flag("--steps", options.steps, "Every look-up, in the order in which it is tried");
    explain->footer("For example: melkcfg explain UFCurb \"EU Passenger Car\" suv --field definition.FrontOffset");

    CLI::App* call = line.Add("call", "Run one query operation, or a batch of them",
        [&](Host& host) { return RunCallOrBatch(options, host); });
    call->add_option("CONFIG", options.configuration, "The configuration");
    call->add_option("OPERATION", options.operation, "The operation");
    call->add_option("NAME=VALUE", options.assignments, "Its arguments; an output's value before the call as JSON");
    call->add_flag("--batch", options.batch, "JSON Lines on standard input, one answer a line on standard output");
    call->footer("For example: melkcfg call UFCurb GetStandardData standard=\"EU Passenger Car\" category=suv\n"
                 "             melkcfg call EyeEllipses GetRadii2002 standard=S hPointTravel=133mm cutoff=95");
}
