#include "Registry.h"

#include "Records.h"

template <> constexpr auto FieldsOf<VEXMELKEyesConfigDefinition>()
{
    using R = VEXMELKEyesConfigDefinition;
    return Fields<none, &R::EyesType, &R::Standard, &R::Percentil>();
}

namespace {

std::string Stripped(std::string_view text)
{
    CATUnicodeString stripped(text);
    stripped.Strip();
    return stripped.ConvertToChar();
}

std::vector<Parameter> ParseParameters(std::string_view text)
{
    std::vector<Parameter> parameters;
    while (!text.empty())
    {
        const std::size_t comma = std::min(text.find(','), text.size());
        std::string item = Stripped(text.substr(0, comma));
        text.remove_prefix(std::min(comma + 1, text.size()));
        Parameter parameter;
        parameter.isOutput = item.starts_with('>');
        parameter.isSecret = item.starts_with(">*");
        item.erase(0, item.find_first_not_of(">*"));
        const std::size_t colon = std::min(item.find(':'), item.size());
        parameter.name = item.substr(0, colon);
        parameter.unit = item.substr(std::min(colon + 1, item.size()));
        parameters.push_back(parameter);
    }
    return parameters;
}

} // namespace

const std::vector<Parameter>& Operation::Parameters() const
{
    if (m_Parameters.empty())
    {
        m_Parameters = ParseParameters(m_ParameterText);
        const std::vector<std::string> types = m_ParameterTypes();
        for (std::size_t index = 0; index < m_Parameters.size(); ++index)
            m_Parameters[index].type = types[index];
    }
    return m_Parameters;
}

std::vector<Operation> ConfigOperations()
{
    using Name = unsigned char (VEXMELKConfig::*)(const CATUnicodeString&, CATUnicodeString&);
    return {
        Query("GetLoading", "standard, >loading, category, rear", &VEXMELKConfig::GetLoading),
        Query("GetDefaultSettingsName", "standard, >name", static_cast<Name>(&VEXMELKConfig::GetDefaultSettingsName)),
        Query("FindStandardLevel", "standard", &VEXMELKConfig::FindStandardLevel),
        Query("InitStandardData", "standard, >attributes", &VEXMELKConfig::InitStandardData),
        Query("FillCFGAttributes", "settings, >attributes", &VEXMELKConfig::FillCFGAttributes),
    };
}

std::vector<Operation> CheckOperations()
{
    return {
        Query("GetStandardNames", ">names, category, unordered, maxLevel", &VEXMELKCheckConfig::GetStandardNames),
    };
}

std::vector<Operation> UnderfloorOperations()
{
    return {
        Query("GetEyes", "standard, >eyes", &VEXMELKUnderfloorConfig::GetEyes),
        Query("GetPointToPick", "standard, category, >point", &VEXMELKUnderfloorConfig::GetPointToPick),
        Query("UseStaticRadius", "standard, >use", &VEXMELKUnderfloorConfig::UseStaticRadius),
    };
}

const Operation& Configuration::FindOperation(const std::string& operation) const
{
    std::vector<std::string> names;
    for (const Operation& known : operations)
    {
        if (known.name == operation)
            return known;
        names.emplace_back(known.name);
    }
    throw UnknownName("operation", operation, names);
}

const std::vector<Configuration>& AllConfigurations()
{
    static const std::vector<Configuration> all = []
    {
        std::vector<Configuration> configurations;
        for (const auto& folder :
            {OccupantConfigurations, UnderfloorConfigurations, VisionConfigurations, SafetyConfigurations})
            std::ranges::move(folder(), std::back_inserter(configurations));
        return configurations;
    }();
    return all;
}

const Configuration& FindConfiguration(const std::string& name)
{
    std::vector<std::string> names;
    for (const Configuration& configuration : AllConfigurations())
    {
        if (configuration.name == name || configuration.ClassName() == name ||
            std::find(configuration.keys.begin(), configuration.keys.end(), name) != configuration.keys.end())
            return configuration;
        names.push_back(configuration.name);
    }
    throw UnknownName("configuration", name, names);
}
