// Prints explanations. A choice that decides all fields is printed once, above them.
#include "Explain.h"

#include "Table.h"
#include "VEXMELKUtilities.h"
#include "Values.h"

#include <algorithm>
#include <iostream>

namespace {

constexpr const char* roles[] = {"value", "choice", "hidden"};

bool IsWanted(const VEXMELKOrigin& origin, const std::string& onlyField)
{
    return onlyField.empty() || origin.value.field == onlyField;
}

std::string TextFor(const VEXMELKOriginPlace& place, bool showSecrets)
{
    return place.isSecret && !showSecrets ? hiddenSecret : place.text;
}

std::string PlaceText(const VEXMELKOriginPlace& place)
{
    if (place.file.empty())
        return {};
    return place.file + ":" + std::to_string(place.position.line) + ":" + std::to_string(place.position.column);
}

bool IsSamePlace(const VEXMELKOriginPlace& left, const VEXMELKOriginPlace& right)
{
    return left.role == right.role && PlaceText(left) == PlaceText(right);
}

// The choices that every field has.
std::vector<VEXMELKOriginPlace> CommonChoices(const std::vector<VEXMELKOrigin>& fields)
{
    std::vector<VEXMELKOriginPlace> common;
    if (fields.size() < 2)
        return common;
    for (const VEXMELKOriginPlace& place : fields.front().places)
    {
        const auto has = [&](const VEXMELKOrigin& origin)
        {
            return std::any_of(origin.places.begin(), origin.places.end(),
                [&](const VEXMELKOriginPlace& other) { return IsSamePlace(place, other); });
        };
        if (place.role == VEXMELKOriginPlace::Choice && std::all_of(fields.begin(), fields.end(), has))
            common.push_back(place);
    }
    return common;
}

Json PlaceToJson(const VEXMELKOriginPlace& place, bool showSecrets)
{
    Json json = {{"role", roles[place.role]}, {"how", place.how}};
    if (!place.file.empty())
        json.update(Json{{"file", place.file}, {"line", place.position.line}, {"column", place.position.column},
            {"path", place.path}, {"attribute", place.attribute.empty() ? Json() : Json(place.attribute)},
            {"text", TextFor(place, showSecrets)}});
    json["why"] = place.why;
    return json;
}

} // namespace

Json ToJson(const VEXMELKPlainValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* integer = std::get_if<long>(&value))
        return *integer;
    return nullptr;
}

Json QuestionToJson(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKPreparedQuestion& question)
{
    const auto parameters = question.Operation().Parameters();
    const std::unique_ptr<VEXMELKQuestion> asked = question.New();
    Json arguments = Json::object();
    Json outputs = Json::object();
    for (const VEXMELKPreparedQuestion::Input& input : question.Inputs())
    {
        const std::string name(parameters[input.parameter].name);
        if (parameters[input.parameter].IsOutput())
            outputs[name] = ::ToJson(asked->Parameter(input.parameter));
        else
            arguments[name] = ::ToJson(input.value);
    }
    Json json = {{"config", configuration.description->name}, {"operation", question.Operation().Name()},
        {"arguments", std::move(arguments)}};
    if (!outputs.empty())
        json["outputs"] = std::move(outputs);
    return json;
}

CATUnicodeString CurrentDirectory()
{
    if (VEXMELKUtilities::GetAppMode() == VEXMELKTestMode)
        return VEXMELKConfigManager::GetTestPath() + "\\Configuration";
    CATUnicodeString directory;
    VEXMELKConfigManager::GetConfigManager()->GetCFGDir(directory);
    return directory;
}

std::string DirectoryPath()
{
    std::string path = CurrentDirectory().ConvertToChar();
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

bool RequireFiles(const VEXMELKSource& source, const std::vector<const VEXMELKConfigManager::Configuration*>& wanted)
{
    bool isAnyThere = false;
    bool isAnyBroken = false;
    for (const VEXMELKConfigManager::Configuration* configuration : VEXMELKAskedConfigurations(wanted))
        if (VEXMELKHasFile(*configuration->description, source.directory))
        {
            isAnyThere = true;
            isAnyBroken = VEXMELKLoadFiles(*configuration->description, source).empty() || isAnyBroken;
        }
    if (isAnyBroken)
        throw RequestError("files cannot be read");
    return isAnyThere;
}

void TellLeftOut(std::size_t questions)
{
    if (questions > 0)
        std::cerr << "melkcfg: " << questions << " questions past the first 200000 of an operation were left out"
                  << std::endl;
}

Json FieldsToJson(const VEXMELKExplanation& explanation, bool showSecrets, const std::string& onlyField)
{
    Json fields = Json::array();
    for (const VEXMELKOrigin& origin : explanation.fields)
    {
        if (!IsWanted(origin, onlyField))
            continue;
        Json places = Json::array();
        for (const VEXMELKOriginPlace& place : origin.places)
            places.push_back(PlaceToJson(place, showSecrets));
        const bool isMasked = origin.value.isSecret && !showSecrets;
        fields.push_back({{"field", origin.value.field},
            {"value", isMasked ? Json(hiddenSecret) : ToJson(origin.value.value)}, {"places", places}});
    }
    return fields;
}

void PrintExplanation(const VEXMELKExplanation& explanation, bool showSecrets, const std::string& onlyField)
{
    const std::vector<VEXMELKOriginPlace> common = CommonChoices(explanation.fields);
    const auto isCommon = [&](const VEXMELKOriginPlace& place)
    {
        return std::any_of(
            common.begin(), common.end(), [&](const VEXMELKOriginPlace& other) { return IsSamePlace(place, other); });
    };
    Rows rows;
    for (const VEXMELKOriginPlace& place : common)
        rows.push_back({"(" + place.attribute + ")", TextFor(place, showSecrets), PlaceText(place), place.why});
    for (const VEXMELKOrigin& origin : explanation.fields)
    {
        std::string field = origin.value.field;
        if (!IsWanted(origin, onlyField))
            continue;
        const bool isMasked = origin.value.isSecret && !showSecrets;
        for (const VEXMELKOriginPlace& place : origin.places)
        {
            if (isCommon(place))
                continue;
            const bool isFirst = !field.empty();
            const std::string value = isMasked ? hiddenSecret : VEXMELKTextOf(origin.value.value);
            const std::string text = isFirst ? value : TextFor(place, showSecrets);
            rows.push_back({std::exchange(field, ""), (place.role == VEXMELKOriginPlace::Value ? "" : "  ") + text,
                PlaceText(place), place.why});
        }
    }
    PrintTable(rows);
    if (explanation.leftOut > 0)
        std::cout << explanation.leftOut << " texts of these files were not tried: the files are too large\n";
}

void PrintSteps(const std::vector<VEXMELKStep>& steps)
{
    Rows rows;
    for (const VEXMELKStep& step : steps)
        rows.push_back({step.isHit ? "hit" : "miss", step.what, step.text,
            step.isHit
                ? step.file + ":" + std::to_string(step.position.line) + ":" + std::to_string(step.position.column)
                : ""});
    PrintTable(rows);
}

Json StepsToJson(const std::vector<VEXMELKStep>& steps)
{
    Json json = Json::array();
    for (const VEXMELKStep& step : steps)
    {
        json.push_back({{"hit", step.isHit}, {"what", step.what}});
        if (step.isHit)
            json.back().update(Json{{"text", step.text}, {"file", step.file}, {"line", step.position.line},
                {"column", step.position.column}});
    }
    return json;
}

std::string ReasonFor(const Configuration& configuration, const VEXMELKAskable& askable)
{
    if (!configuration.entry->create)
        return {};
    const VEXMELKSilence silence;
    const VEXMELKTrial trial(*configuration.entry, CurrentDirectory());
    if (trial.Documents().empty())
        return configuration.file + " is missing or cannot be read";
    return VEXMELKReason(trial, askable, trial.Ask(askable));
}
