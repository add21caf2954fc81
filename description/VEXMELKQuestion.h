// Query operations as data: their names, parameters and results, and a way to ask them without knowing their types.
#ifndef VEXMELKQuestion_H
#define VEXMELKQuestion_H

#include "VEXMELKRow.h"

#include <array>
#include <memory>
#include <tuple>

class VEXMELKConfig;
struct VEXMELKElement;

// What an argument chooses.
enum class VEXMELKRole : unsigned char
{
    Standard,
    Category,
    Settings, // the name of default settings
    Key,      // an element, by its key attribute
    Tag,      // an element, by its tag
    Travel,   // a row, by a length
    BackAngle,
    CutOff,
    Choice, // one of a few numbers, from 0 on
    Switch,
    Word,  // a text that stands for a value
    Level, // the highest priority level
    Output
};

struct VEXMELKParameter
{
    std::string_view name = {};
    VEXMELKRole role = VEXMELKRole::Output;
    std::string_view unit = {}; // see UnitShown
    const VEXMELKElement* element =
        nullptr;           // of a key, a tag, a travel, a back angle or a cut-off: what it chooses among
    int choices = 0;       // how many there are; of an output, for its first integer, which is read too
    bool isSecret = false; // never shown without being asked for

    constexpr bool IsOutput() const { return role == VEXMELKRole::Output; }
};

// One operation with values for its parameters.
class VEXMELKQuestion
{
public:
    virtual ~VEXMELKQuestion() = default;
    // The parameters, in the order of the operation: what an output holds is what the caller's variable holds.
    virtual VEXMELKValue Parameter(std::size_t position) = 0;
    // What the last "Ask" returned; nothing for an operation without a result.
    virtual VEXMELKValue Result() = 0;
    // Asks the object, which must be of the operation's class.
    virtual void Ask(VEXMELKConfig& object) = 0;
};

class VEXMELKOperation
{
public:
    constexpr std::string_view Name() const { return m_Name; }
    constexpr std::span<const VEXMELKParameter> Parameters() const { return {m_Parameters.data(), m_Count}; }
    constexpr std::string_view ResultUnit() const { return m_ResultUnit; }
    std::unique_ptr<VEXMELKQuestion> NewQuestion() const { return m_NewQuestion(); }

private:
    template <auto Method, class... Parts>
    friend constexpr VEXMELKOperation VEXMELKDescribe(std::string_view name, const Parts&... parts);

    static constexpr std::size_t mostParameters = 12;
    std::string_view m_Name;
    std::string_view m_ResultUnit;
    std::array<VEXMELKParameter, mostParameters> m_Parameters{};
    std::size_t m_Count = 0;
    std::unique_ptr<VEXMELKQuestion> (*m_NewQuestion)() = nullptr;
};

// Describing operations --------------------------------------------------------------------------------------------

// The unit of a number that an operation returns.
struct VEXMELKResultUnit
{
    std::string_view unit = {};
};

namespace VEXMELKQuestionDetail {

// What holds the value of a parameter during a question.
template <class Argument> struct Holder
{
    using Type = std::remove_cvref_t<Argument>;
};
template <> struct Holder<CATListValVEXMELKCFGAttributeStr&>
{
    using Type = VEXMELKAttributeValues;
};

template <class Method> struct MethodTraits;
template <class OfConfig, class OfResult, class... Arguments> struct MethodTraits<OfResult (OfConfig::*)(Arguments...)>
{
    using Config = OfConfig;
    using Result = OfResult;
    using Values = std::tuple<typename Holder<Arguments>::Type...>;
    static constexpr std::size_t arity = sizeof...(Arguments);
};

template <auto Method> class QuestionOf : public VEXMELKQuestion
{
public:
    using Traits = MethodTraits<decltype(Method)>;
    typename Traits::Values& Values() { return m_Values; }

private:
    using Returned = typename Traits::Result;
    static constexpr bool hasResult = !std::is_void_v<Returned>;

public:
    VEXMELKValue Parameter(std::size_t position) override
    {
        VEXMELKValue found;
        std::size_t current = 0;
        std::apply([&](auto&... values)
            { ((current++ == position ? void(found = VEXMELKValueOf(values)) : void()), ...); },
            m_Values);
        return found;
    }
    VEXMELKValue Result() override
    {
        if constexpr (hasResult)
            return VEXMELKValueOf(m_Result);
        else
            return {};
    }
    void Ask(VEXMELKConfig& object) override
    {
        auto& config = static_cast<typename Traits::Config&>(object);
        const auto ask = [&](auto&... values) { return (config.*Method)(values...); };
        if constexpr (hasResult)
            m_Result = std::apply(ask, m_Values);
        else
            std::apply(ask, m_Values);
    }

private:
    typename Traits::Values m_Values{};
    [[no_unique_address]] std::conditional_t<hasResult, Returned, std::monostate> m_Result{};
};

template <class Part> inline constexpr std::size_t parametersIn = 0;
template <> inline constexpr std::size_t parametersIn<VEXMELKParameter> = 1;
template <class... Outputs>
inline constexpr std::size_t parametersIn<VEXMELKOutputTable<Outputs...>> = sizeof...(Outputs);

} // namespace VEXMELKQuestionDetail

// An operation by its member function. The parts are its parameters in their order; a table of outputs stands for as
// many, which have the names that its rows give them.
template <auto Method, class... Parts>
constexpr VEXMELKOperation VEXMELKDescribe(std::string_view name, const Parts&... parts)
{
    using namespace VEXMELKQuestionDetail;
    static_assert((parametersIn<Parts> + ... + 0) == MethodTraits<decltype(Method)>::arity,
        "the operation has another number of parameters");
    VEXMELKOperation operation;
    operation.m_Name = name;
    const auto append = [&](const auto& part)
    {
        if constexpr (requires { part.rows; })
            for (const VEXMELKRow& row : part.rows)
                operation.m_Parameters[operation.m_Count++] = {
                    .name = row.field, .unit = UnitShown(row), .isSecret = row.isSecret};
        else if constexpr (requires { part.role; })
            operation.m_Parameters[operation.m_Count++] = part;
        else
            operation.m_ResultUnit = part.unit;
    };
    (append(parts), ...);
    operation.m_NewQuestion = []() -> std::unique_ptr<VEXMELKQuestion>
    { return std::make_unique<QuestionOf<Method>>(); };
    return operation;
}

// The usual parameters.
namespace VEXMELKParameters {

inline constexpr VEXMELKParameter standardArgument{.name = "standard", .role = VEXMELKRole::Standard};
inline constexpr VEXMELKParameter categoryArgument{.name = "category", .role = VEXMELKRole::Category};
constexpr VEXMELKParameter Output(std::string_view name, std::string_view unit = {})
{
    return {.name = name, .unit = unit};
}

} // namespace VEXMELKParameters

#endif
