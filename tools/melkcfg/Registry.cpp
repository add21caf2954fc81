// The library's descriptions as the tool uses them.
#include "Registry.h"

#include "VEXMELKOperations.h"
#include "VEXMELKUnits.h"
#include "Values.h"

#include <algorithm>
#include <cmath>

Json InUnitOf(const Parameter& parameter, const Json& given)
{
    const bool isInteger = parameter.type == "integer";
    if (!given.is_string() || parameter.isOutput || (!isInteger && parameter.type != "number") ||
        !VEXMELKHasDimension(parameter.unit))
        return given;
    const VEXMELKConverted converted = VEXMELKInUnit(given.get_ref<const std::string&>(), parameter.unit);
    if (!converted.number)
        throw RequestError(parameter.name + ": " + Shown(converted.fault));
    const double number = *converted.number;
    const bool isWhole = isInteger && std::fabs(number) < 1e9 && number == std::trunc(number);
    return isWhole ? Json(static_cast<int>(number)) : Json(number); // what is no integer is said so where it is read
}

std::string Operation::ResultType() const { return VEXMELKTypeText(m_Described->NewQuestion()->Result()); }

const std::vector<Parameter>& Operation::Parameters() const
{
    if (!m_Parameters.empty())
        return m_Parameters;
    const auto question = m_Described->NewQuestion();
    for (const VEXMELKParameter& parameter : m_Described->Parameters())
        m_Parameters.push_back({std::string(parameter.name), VEXMELKTypeText(question->Parameter(m_Parameters.size())),
            std::string(parameter.unit), parameter.IsOutput(), parameter.isSecret});
    return m_Parameters;
}

std::unique_ptr<VEXMELKQuestion> Operation::NewQuestion(const Json& arguments, const Json& outputs) const
{
    std::unique_ptr<VEXMELKQuestion> question = m_Described->NewQuestion();
    const auto parameters = m_Described->Parameters();
    for (std::size_t position = 0; position < parameters.size(); ++position)
    {
        const Json& given = parameters[position].IsOutput() ? outputs : arguments;
        const Parameter& parameter = Parameters()[position];
        const auto found = given.find(parameter.name);
        if (found != given.end())
            FromJson(InUnitOf(parameter, *found), question->Parameter(position), parameter.name);
    }
    return question;
}

Operation::Call Operation::Prepare(const Json& arguments, const Json& outputs) const
{
    const std::shared_ptr<VEXMELKQuestion> question = NewQuestion(arguments, outputs);
    return [this, question](VEXMELKConfig& object)
    {
        question->Ask(object);
        return AnswerOf(*question);
    };
}

Answered Operation::AnswerOf(VEXMELKQuestion& question) const
{
    Answered answered;
    answered.result = ToJson(question.Result());
    const auto parameters = m_Described->Parameters();
    for (std::size_t position = 0; position < parameters.size(); ++position)
        if (parameters[position].IsOutput())
            answered.outputs[std::string(parameters[position].name)] = ToJson(question.Parameter(position));
    return answered;
}

const Operation& Configuration::FindOperation(const std::string& operation) const
{
    for (const Operation& known : operations)
        if (known.name == operation)
            return known;
    std::vector<std::string> names;
    for (const Operation& known : operations)
        names.emplace_back(known.name);
    throw UnknownName("operation", operation, names);
}

const std::vector<Configuration>& AllConfigurations()
{
    static const std::vector<Configuration> all = []
    {
        std::vector<Configuration> configurations;
        for (const VEXMELKConfigManager::Configuration& entry : VEXMELKConfigManager::GetConfigurations())
        {
            const VEXMELKDescription& description = *entry.description;
            Configuration configuration{std::string(description.name), {}, std::string(description.file),
                description.layout == VEXMELKLayout::Single, &entry, entry.get};
            for (const std::string_view key : entry.keys)
                if (!key.empty())
                    configuration.keys.emplace_back(key);
            for (const VEXMELKOperation* operation : VEXMELKOperationsOf(description))
                configuration.operations.emplace_back(*operation);
            configurations.push_back(std::move(configuration));
        }
        return configurations;
    }();
    return all;
}

namespace {

// A path without ".xml" and without separators: a shell takes "\" away.
std::string BareFileName(std::string path)
{
    if (path.ends_with(".xml"))
        path.erase(path.size() - 4);
    std::erase_if(path, [](char character) { return character == '/' || character == '\\'; });
    return path;
}

std::string FileStem(const Configuration& configuration)
{
    return BareFileName(configuration.file.substr(configuration.file.rfind('\\') + 1));
}

bool IsNamedByFile(const Configuration& configuration, const std::string& name)
{
    if (configuration.file.empty())
        return false;
    const std::string bare = BareFileName(name);
    const std::string file = BareFileName(configuration.file);
    return bare == FileStem(configuration) || bare == file || bare == "Default" + file || bare == "Customer" + file;
}

bool IsNamed(const Configuration& configuration, const std::string& name)
{
    return configuration.name == name || configuration.ClassName() == name ||
           std::find(configuration.keys.begin(), configuration.keys.end(), name) != configuration.keys.end();
}

} // namespace

const Configuration* LookForConfiguration(const std::string& name)
{
    for (const auto isMeant : {IsNamed, IsNamedByFile}) // the name of one may be another's file
        for (const Configuration& configuration : AllConfigurations())
            if (isMeant(configuration, name))
                return &configuration;
    return nullptr;
}

const Configuration& FindConfiguration(const std::string& name)
{
    // Nearly always it is the name itself.
    for (const Configuration& configuration : AllConfigurations())
        if (configuration.name == name)
            return configuration;
    if (const Configuration* found = LookForConfiguration(name))
        return *found;
    std::vector<std::string> names;
    for (const Configuration& configuration : AllConfigurations())
    {
        names.push_back(configuration.name);
        if (const std::string stem = FileStem(configuration); !stem.empty() && stem != configuration.name)
            names.push_back(stem);
    }
    throw UnknownName("configuration", name, names);
}
