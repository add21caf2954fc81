// The library's descriptions as the tool uses them.
#include "Registry.h"

#include "Values.h"

#include <algorithm>

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
        const std::string parameter(parameters[position].name);
        const auto found = given.find(parameter);
        if (found != given.end())
            FromJson(*found, question->Parameter(position), parameter);
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
            for (const VEXMELKDescription* level = &description; level; level = level->base)
                for (const VEXMELKOperation& operation : level->operations)
                    if (std::none_of(configuration.operations.begin(), configuration.operations.end(),
                            [&](const Operation& own) { return own.name == operation.Name(); }))
                        configuration.operations.emplace_back(operation);
            configurations.push_back(std::move(configuration));
        }
        return configurations;
    }();
    return all;
}

const Configuration& FindConfiguration(const std::string& name)
{
    // Nearly always it is the name itself.
    for (const Configuration& configuration : AllConfigurations())
        if (configuration.name == name)
            return configuration;
    std::vector<std::string> names;
    for (const Configuration& configuration : AllConfigurations())
    {
        if (configuration.ClassName() == name ||
            std::find(configuration.keys.begin(), configuration.keys.end(), name) != configuration.keys.end())
            return configuration;
        names.push_back(configuration.name);
    }
    throw UnknownName("configuration", name, names);
}
