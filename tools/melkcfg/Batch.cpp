// One request, one answer: a line that is not understood is answered with an error, and the next one goes on.
#include "Batch.h"

#include "Console.h"
#include "Explain.h"
#include "JsonText.h"
#include "VEXMELKUtilities.h"
#include "Values.h"

#include <istream>
#include <new>
#include <ostream>

namespace {

void CheckNames(const char* kind, const Json& given, const std::vector<std::string>& known)
{
    if (!given.is_object())
        throw WrongType(std::string(kind) + "s", "an object", given);
    for (const auto& [name, value] : given.get_ref<const Json::object_t&>())
        if (std::find(known.begin(), known.end(), name) == known.end())
            throw UnknownName(kind, name, known);
}

// The arguments, or the outputs, of an operation.
void CheckParameters(const char* kind, const Json& given, const Operation& operation, bool areOutputs)
{
    const std::vector<Parameter>& parameters = operation.Parameters();
    const auto isOne = [&](const std::string& name)
    {
        return std::any_of(parameters.begin(), parameters.end(),
            [&](const Parameter& one) { return one.isOutput == areOutputs && one.name == name; });
    };
    if (given.is_object())
    {
        const auto& members = given.get_ref<const Json::object_t&>();
        if (std::all_of(members.begin(), members.end(), [&](const auto& member) { return isOne(member.first); }))
            return;
    }
    std::vector<std::string> names;
    for (const Parameter& parameter : parameters)
        if (parameter.isOutput == areOutputs)
            names.push_back(parameter.name);
    CheckNames(kind, given, names);
}

const Json& Text(const Json& request, const char* name)
{
    const auto found = request.find(name);
    if (found == request.end())
        throw RequestError(std::string("\"") + name + "\" is missing");
    if (!found->is_string())
        throw WrongType(name, "a text", *found);
    return *found;
}

template <class Value> Value Setting(const Json& settings, const char* name)
{
    return ValueFromJson<Value>(settings.at(name), name);
}

const Json& Member(const Json& request, const char* name)
{
    static const Json none = Json::object();
    const auto found = request.find(name);
    return found == request.end() ? none : *found;
}

// Writes the answer of an operation as members of the line.
void Ask(const Json& request, bool showSecrets, std::string& line)
{
    const Configuration& configuration = FindConfiguration(Text(request, "config").get_ref<const std::string&>());
    const Operation& operation = configuration.FindOperation(Text(request, "operation").get_ref<const std::string&>());
    const Json& arguments = Member(request, "arguments");
    const Json& outputs = Member(request, "outputs");
    const std::unique_ptr<VEXMELKQuestion> question = AskQuestion(configuration, operation, arguments, outputs);
    AppendJsonName(line, "result");
    AppendJson(line, question->Result());
    AppendJsonName(line, "outputs");
    line += '{';
    const std::vector<Parameter>& parameters = operation.Parameters();
    for (std::size_t position = 0; position < parameters.size(); ++position)
    {
        if (!parameters[position].isOutput)
            continue;
        AppendJsonName(line, parameters[position].name);
        if (parameters[position].isSecret && !showSecrets)
            AppendJsonText(line, hiddenSecret);
        else
            AppendJson(line, question->Parameter(position));
    }
    line += '}';
    if (request.contains("explain") && Setting<unsigned char>(request, "explain") != 0)
    {
        const AskedByJson askable(operation, arguments, outputs);
        const VEXMELKExplanation explanation = VEXMELKExplain(*configuration.entry, askable, CurrentDirectory());
        AppendJsonName(line, "reason");
        AppendJson(line, explanation.reason.empty() ? Json() : Json(explanation.reason));
        AppendJsonName(line, "origins");
        AppendJson(line, FieldsToJson(explanation, showSecrets));
    }
}

void Apply(const Json& settings, Host& host)
{
    CheckNames("setting", settings, {"config", "test_path", "mode", "comma", "log_level"});
    if (settings.contains("config") && settings["config"].is_null())
        host.SetConfigurationDirectory(std::nullopt);
    else if (settings.contains("config"))
        host.SetConfigurationDirectory(Setting<CATUnicodeString>(settings, "config").ConvertToChar());
    if (settings.contains("test_path"))
        host.SetTestPath(Setting<CATUnicodeString>(settings, "test_path").ConvertToChar());
    if (settings.contains("mode"))
        VEXMELKUtilities::SetAppMode(Setting<VEXMELKAppMode>(settings, "mode"));
    if (settings.contains("comma"))
        VEXMELKUtilities::SetCommaDelimeter(Setting<unsigned char>(settings, "comma"));
    if (settings.contains("log_level"))
        VEXMELKLog::SetLevel(Setting<int>(settings, "log_level"));
}

void Manage(const Json& command)
{
    if (command == "reload")
        VEXMELKUtilities::SetReloadConfigurationFlag(1);
    else if (command == "release")
        VEXMELKConfigManager::ReleaseConfigManager();
    else
        throw UnknownName("manager request", command.is_string() ? command.get<std::string>() : command.dump(),
            {"reload", "release"});
}

void Answer(const Json& request, Host& host, bool showSecrets, std::string& line)
{
    static const std::vector<std::string> members = {
        "id", "config", "operation", "arguments", "outputs", "explain", "settings", "manager"};
    CheckNames("request member", request, members);
    if (!request.contains("settings") && !request.contains("manager"))
        return Ask(request, showSecrets, line);
    const char* kind = request.contains("settings") ? "settings" : "manager";
    for (const auto& member : request.items())
        if (member.key() != "id" && member.key() != kind)
            throw RequestError("\"" + member.key() + "\" beside \"" + kind + "\"");
    if (request.contains("settings"))
        Apply(request["settings"], host);
    else
        Manage(request["manager"]);
    AppendJsonName(line, "result");
    line += "null";
    AppendJsonName(line, "outputs");
    line += "{}";
}

// The line that answers a request; tells whether it could be understood.
bool AppendAnswer(const std::string& request, Host& host, bool showSecrets, std::string& line)
{
    line = "{";
    std::string error;
    try
    {
        const Json parsed = ParseJson(request);
        if (parsed.is_object() && parsed.contains("id"))
        {
            AppendJsonName(line, "id");
            AppendJson(line, parsed["id"]);
        }
        const std::size_t begin = line.size();
        try
        {
            Answer(parsed, host, showSecrets, line);
            AppendJsonName(line, "messages");
            AppendJson(line, host.Messages());
            AppendJsonName(line, "log");
            AppendJson(line, host.Log());
        }
        catch (const RequestError&)
        {
            line.resize(begin);
            throw;
        }
    }
    catch (const RequestError& failure)
    {
        error = failure.what();
        AppendJsonName(line, "error");
        AppendJsonText(line, error);
    }
    host.Forget(); // messages of a request that failed belong to no other
    line += "}\n";
    return error.empty();
}

} // namespace

std::unique_ptr<VEXMELKQuestion> AskQuestion(
    const Configuration& configuration, const Operation& operation, const Json& arguments, const Json& outputs)
{
    CheckParameters("argument", arguments, operation, false);
    CheckParameters("output", outputs, operation, true);
    std::unique_ptr<VEXMELKQuestion> question = operation.NewQuestion(arguments, outputs);
    VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
    VEXMELKConfig* object = manager ? configuration.get(*manager) : nullptr;
    if (!object)
        throw RequestError("no configuration object");
    question->Ask(*object);
    return question;
}

Answered RunOperation(const Configuration& configuration, const Operation& operation, const Json& arguments,
    const Json& outputs, bool showSecrets)
{
    Answered answered = operation.AnswerOf(*AskQuestion(configuration, operation, arguments, outputs));
    for (const Parameter& parameter : operation.Parameters())
        if (parameter.isSecret && !showSecrets)
            answered.outputs[parameter.name] = hiddenSecret;
    return answered;
}

BatchInput::int_type BatchInput::underflow()
{
    m_Output.flush();
    const long size = ReadStandardInput(m_Bytes.data(), m_Bytes.size());
    m_HasFailed = size < 0;
    if (size <= 0)
        return traits_type::eof();
    setg(m_Bytes.data(), m_Bytes.data(), m_Bytes.data() + size);
    return traits_type::to_int_type(*gptr());
}

bool RunBatch(std::istream& input, std::ostream& output, Host& host, bool showSecrets)
{
    bool understood = true;
    std::string answer;
    for (std::string line; std::getline(input, line);)
    {
        try
        {
            understood = AppendAnswer(line, host, showSecrets, answer) && understood;
            output << answer;
        }
        catch (const std::bad_alloc&)
        {
            output << "{\"error\":\"out of memory\"}\n";
            understood = false;
        }
        if (!output)
            throw RequestError("an answer cannot be written");
    }
    output.flush();
    if (!output)
        throw RequestError("an answer cannot be written");
    if (input.bad())
        throw RequestError("a request cannot be read");
    return understood;
}
