// What melkcfg can ask: the configurations, and the query operations of each.
//
// An operation is registered in one line: its name, its parameters, its member function. The parameters are written in
// the order of the function, separated by commas; an output has ">" before its name; ">*" marks a secret; a number has
// its unit behind ":". Types come from the function.
#ifndef MELKCFG_Registry_H
#define MELKCFG_Registry_H

#include "Attributes.h"
#include "Codec.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKUnderfloorConfig.h"

#include <concepts>
#include <functional>
#include <string>
#include <vector>

struct Parameter
{
    std::string name;
    std::string type;
    std::string unit; // of a number; else empty
    bool isOutput = false;
    bool isSecret = false;
};

struct Answered
{
    Json result; // null when the operation has none
    Json outputs = Json::object();
};

class Operation
{
public:
    using Call = std::function<Answered(VEXMELKConfig& object)>;
    using Preparation =
        std::function<Call(const std::vector<Parameter>& parameters, const Json& arguments, const Json& outputs)>;
    using TypeName = std::string (*)();
    using TypeNames = std::vector<std::string> (*)();

    Operation(std::string_view operationName, std::string_view parameterText, TypeName resultType,
        TypeNames parameterTypes, Preparation preparation)
        : name(operationName),
          m_ParameterText(parameterText),
          m_ResultType(resultType),
          m_ParameterTypes(parameterTypes),
          m_Preparation(std::move(preparation))
    {
    }

    std::string_view name;
    std::string ResultType() const { return m_ResultType(); } // empty when the operation has no result
    // Worked out when they are first asked for: there are hundreds of operations, and most runs ask for one.
    const std::vector<Parameter>& Parameters() const;
    // Reads the arguments by name (a missing one is "", 0 or false) and what the outputs hold before, and returns what
    // is then to be run. So a request that cannot be understood does not touch the library.
    Call Prepare(const Json& arguments, const Json& outputs) const
    {
        return m_Preparation(Parameters(), arguments, outputs);
    }

private:
    std::string_view m_ParameterText;
    TypeName m_ResultType;
    TypeNames m_ParameterTypes;
    Preparation m_Preparation;
    mutable std::vector<Parameter> m_Parameters;
};

struct Configuration
{
    std::string name;              // "UFCurb"
    std::vector<std::string> keys; // of VEXMELKConfigManager::GetConfig
    std::string file;              // below the directory; empty when its creator gives it
    bool isSingle = false;         // the folders "Default" and "Customer" play no part
    VEXMELKConfig* (*get)(VEXMELKConfigManager& manager);
    std::vector<Operation> operations;

    std::string ClassName() const { return "VEXMELK" + name + "Config"; }
    const Operation& FindOperation(const std::string& operation) const; // throws RequestError
};

// All configurations, in the order of the manager's getters.
const std::vector<Configuration>& AllConfigurations();

// By name, class name or key; throws RequestError.
const Configuration& FindConfiguration(const std::string& name);

// The configurations of each folder of the library.
std::vector<Configuration> UnderfloorConfigurations();
std::vector<Configuration> OccupantConfigurations();
std::vector<Configuration> VisionConfigurations();
std::vector<Configuration> SafetyConfigurations();

// Registering -----------------------------------------------------------------------------------------------------

namespace RegistryDetail {

// What holds the value of a parameter during a call.
template <class Argument> struct Holder
{
    using Type = std::remove_cvref_t<Argument>;
};
template <> struct Holder<CATListValVEXMELKCFGAttributeStr&>
{
    using Type = AttributeList;
};

template <class Value> void ReadMember(const Json& json, const Parameter& parameter, Value& value)
{
    const auto found = json.find(parameter.name);
    if (found != json.end())
        Codec<Value>::Read(*found, value, parameter.name);
}

template <class Config, class Result, class... Arguments, std::size_t... Index>
Operation::Call Prepare(Result (Config::*method)(Arguments...), const std::vector<Parameter>& parameters,
    const Json& arguments, const Json& outputs, std::index_sequence<Index...> /*indices*/)
{
    auto values = std::make_shared<std::tuple<typename Holder<Arguments>::Type...>>();
    (ReadMember(parameters[Index].isOutput ? outputs : arguments, parameters[Index], std::get<Index>(*values)), ...);
    return [=](VEXMELKConfig& object)
    {
        Answered answered;
        Config& config = static_cast<Config&>(object);
        if constexpr (std::is_void_v<Result>)
            (config.*method)(std::get<Index>(*values)...);
        else
            answered.result = Codec<Result>::Write((config.*method)(std::get<Index>(*values)...));
        const auto write = [&](const Parameter& parameter, const auto& value)
        {
            if (parameter.isOutput)
                answered.outputs[parameter.name] = Codec<std::remove_cvref_t<decltype(value)>>::Write(value);
        };
        (write(parameters[Index], std::get<Index>(*values)), ...);
        return answered;
    };
}

template <class Result> std::string TypeOf()
{
    if constexpr (std::is_void_v<Result>)
        return {};
    else
        return Codec<Result>::Type();
}

template <class... Arguments> std::vector<std::string> TypesOf()
{
    return {TypeOf<typename Holder<Arguments>::Type>()...};
}

} // namespace RegistryDetail

template <class Config, class Result, class... Arguments>
Operation Query(const char* name, const char* parameterText, Result (Config::*method)(Arguments...))
{
    const auto prepare = [method](const std::vector<Parameter>& parameters, const Json& arguments, const Json& outputs)
    {
        return RegistryDetail::Prepare(method, parameters, arguments, outputs, std::index_sequence_for<Arguments...>());
    };
    return {name, parameterText, RegistryDetail::TypeOf<Result>, RegistryDetail::TypesOf<Arguments...>, prepare};
}

// The operations of the bases of a class.
std::vector<Operation> ConfigOperations();
std::vector<Operation> CheckOperations();
std::vector<Operation> UnderfloorOperations();

template <auto Getter> VEXMELKConfig* GetObject(VEXMELKConfigManager& manager) { return (manager.*Getter)(); }

// A configuration with the operations of its class; those of its bases are added. An operation of a base that the class
// has under the same name is the class's own.
template <auto Getter>
Configuration Describe(
    const char* name, std::vector<std::string> keys, const char* file, std::vector<Operation> operations)
{
    using Config = std::remove_pointer_t<decltype((std::declval<VEXMELKConfigManager&>().*Getter)())>;
    Configuration configuration{name, std::move(keys), file, false, GetObject<Getter>, std::move(operations)};
    const auto addInherited = [&](const std::vector<Operation>& inherited)
    {
        for (const Operation& operation : inherited)
            if (std::none_of(configuration.operations.begin(), configuration.operations.end(),
                    [&](const Operation& own) { return own.name == operation.name; }))
                configuration.operations.push_back(operation);
    };
    if constexpr (std::derived_from<Config, VEXMELKUnderfloorConfig>)
        addInherited(UnderfloorOperations());
    if constexpr (std::derived_from<Config, VEXMELKCheckConfig>)
        addInherited(CheckOperations());
    addInherited(ConfigOperations());
    return configuration;
}

#endif
