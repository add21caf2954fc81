// One request, one answer: a line that is not understood is answered with an error, and the next one goes on.
#include "Batch.h"

#include "Explain.h"
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
    for (const auto& item : given.items())
        if (std::find(known.begin(), known.end(), item.key()) == known.end())
            throw UnknownName(kind, item.key(), known);
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

Json Ask(const Json& request, bool showSecrets)
{
    const Configuration& configuration = FindConfiguration(Text(request, "config").get<std::string>());
    const Operation& operation = configuration.FindOperation(Text(request, "operation").get<std::string>());
    const Json arguments = request.value("arguments", Json::object());
    const Json outputs = request.value("outputs", Json::object());
    const Answered answered = RunOperation(configuration, operation, arguments, outputs, showSecrets);
    Json answer = {{"result", answered.result}, {"outputs", answered.outputs}};
    if (request.contains("explain") && Setting<unsigned char>(request, "explain") != 0)
    {
        const AskedByJson askable(operation, arguments, outputs);
        const VEXMELKExplanation explanation = VEXMELKExplain(*configuration.entry, askable, CurrentDirectory());
        answer["reason"] = explanation.reason.empty() ? Json() : Json(explanation.reason);
        answer["origins"] = FieldsToJson(explanation, showSecrets);
    }
    return answer;
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

Json Answer(const Json& request, Host& host, bool showSecrets)
{
    CheckNames("request member", request,
        {"id", "config", "operation", "arguments", "outputs", "explain", "settings", "manager"});
    if (!request.contains("settings") && !request.contains("manager"))
        return Ask(request, showSecrets);
    const char* kind = request.contains("settings") ? "settings" : "manager";
    for (const auto& member : request.items())
        if (member.key() != "id" && member.key() != kind)
            throw RequestError("\"" + member.key() + "\" beside \"" + kind + "\"");
    if (request.contains("settings"))
        Apply(request["settings"], host);
    else
        Manage(request["manager"]);
    return {{"result", nullptr}, {"outputs", Json::object()}};
}

} // namespace

Answered RunOperation(const Configuration& configuration, const Operation& operation, const Json& arguments,
    const Json& outputs, bool showSecrets)
{
    std::vector<std::string> argumentNames;
    std::vector<std::string> outputNames;
    for (const Parameter& parameter : operation.Parameters())
        (parameter.isOutput ? outputNames : argumentNames).push_back(parameter.name);
    CheckNames("argument", arguments, argumentNames);
    CheckNames("output", outputs, outputNames);

    const Operation::Call call = operation.Prepare(arguments, outputs);

    VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
    VEXMELKConfig* object = manager ? configuration.get(*manager) : nullptr;
    if (!object)
        throw RequestError("no configuration object");
    Answered answered = call(*object);
    for (const Parameter& parameter : operation.Parameters())
        if (parameter.isSecret && !showSecrets)
            answered.outputs[parameter.name] = hiddenSecret;
    return answered;
}

namespace {

// The line that answers a request; tells whether it could be understood.
std::string AnswerLine(const std::string& line, Host& host, bool showSecrets, bool& understood)
{
    Json answer = Json::object();
    try
    {
        const Json request = ParseJson(line);
        if (request.is_object() && request.contains("id"))
            answer["id"] = request["id"];
        answer.update(Answer(request, host, showSecrets));
        answer["messages"] = host.TakeMessages();
        answer["log"] = host.TakeLog();
    }
    catch (const RequestError& error)
    {
        answer["error"] = error.what();
    }
    host.TakeMessages(); // those of a request that failed belong to no other
    host.TakeLog();
    understood = understood && !answer.contains("error");
    return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace

bool RunBatch(std::istream& input, std::ostream& output, Host& host, bool showSecrets)
{
    bool understood = true;
    for (std::string line; std::getline(input, line);)
    {
        try
        {
            output << AnswerLine(line, host, showSecrets, understood) << std::endl;
        }
        catch (const std::bad_alloc&)
        {
            output << "{\"error\":\"out of memory\"}" << std::endl;
            understood = false;
        }
        if (!output)
            throw RequestError("an answer cannot be written");
    }
    if (input.bad())
        throw RequestError("a request cannot be read");
    return understood;
}
