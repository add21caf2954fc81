// Rows and columns come in the order in which the questions bring them, which is that of the files.
#include "VEXMELKMatrix.h"

#include "CATQuantity.h"

#include <algorithm>

namespace {

using Matrix = VEXMELKMatrix;

class Collector
{
public:
    Collector(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKMatrixScope& scope)
        : m_Configuration(configuration), m_Scope(scope)
    {
    }

    void Add(const VEXMELKPreparedQuestion& question, const VEXMELKPlacedAnswer& answer)
    {
        std::string standard;
        std::string category;
        std::string arguments;
        for (const VEXMELKPreparedQuestion::Input& input : question.Inputs())
        {
            const VEXMELKParameter& parameter = question.Operation().Parameters()[input.parameter];
            if (parameter.role == VEXMELKRole::Standard)
                standard = VEXMELKTextOf(input.value);
            else if (parameter.role == VEXMELKRole::Category)
                category = VEXMELKTextOf(input.value);
            else if (!parameter.IsOutput() || std::holds_alternative<long>(input.value))
                arguments +=
                    (arguments.empty() ? "" : " ") + std::string(parameter.name) + "=" + VEXMELKTextOf(input.value);
        }
        const std::pair group(std::string(question.Operation().Name()), arguments);
        m_Asked[group].emplace_back(standard, category);
        for (const VEXMELKPlacedValue& value : answer.values)
            if (IsWanted(value.named.field))
                MatrixFor(group, value.named.field).values[{standard, category}] = value;
    }

    // Every question of a group has its cell, answered or not.
    std::vector<Matrix> Take()
    {
        for (Growing& growing : m_Growing)
        {
            Matrix& matrix = growing.matrix;
            for (const auto& [standard, category] : m_Asked[{matrix.operation, matrix.arguments}])
            {
                AddName(matrix.standards, growing.standards, standard);
                AddName(matrix.categories, growing.categories, category);
            }
            for (const std::string& standard : matrix.standards)
            {
                matrix.cells.emplace_back();
                for (const std::string& category : matrix.categories)
                {
                    const auto found = growing.values.find({standard, category});
                    matrix.cells.back().push_back(
                        found == growing.values.end() ? std::nullopt : std::optional(found->second));
                }
            }
        }
        std::vector<Matrix> matrices;
        for (Growing& growing : m_Growing)
            matrices.push_back(std::move(growing.matrix));
        return matrices;
    }

private:
    struct Growing
    {
        Matrix matrix;
        std::map<std::pair<std::string, std::string>, VEXMELKPlacedValue> values;
        std::set<std::string> standards = {};
        std::set<std::string> categories = {};
    };

    static void AddName(std::vector<std::string>& names, std::set<std::string>& known, const std::string& name)
    {
        if (known.insert(name).second)
            names.push_back(name);
    }
    bool IsWanted(const std::string& field) const
    {
        const std::string last = field.substr(field.rfind('.') + 1);
        const auto fits = [&](const std::string& wanted) { return wanted == field || wanted == last; };
        return m_Scope.fields.empty() ? field != "result"
                                      : std::any_of(m_Scope.fields.begin(), m_Scope.fields.end(), fits);
    }
    Growing& MatrixFor(const std::pair<std::string, std::string>& group, const std::string& field)
    {
        const auto [place, isNew] = m_Places.try_emplace({group, field}, m_Growing.size());
        if (isNew)
            m_Growing.push_back({{&m_Configuration, group.first, group.second, field, {}, {}, {}}, {}});
        return m_Growing[place->second];
    }

    const VEXMELKConfigManager::Configuration& m_Configuration;
    const VEXMELKMatrixScope& m_Scope;
    std::vector<Growing> m_Growing;
    std::map<std::pair<std::pair<std::string, std::string>, std::string>, std::size_t> m_Places;
    std::map<std::pair<std::string, std::string>, std::vector<std::pair<std::string, std::string>>> m_Asked;
};

bool IsAboutStandards(const VEXMELKOperation& operation)
{
    const auto parameters = operation.Parameters();
    return std::any_of(parameters.begin(), parameters.end(),
        [](const VEXMELKParameter& parameter) { return parameter.role == VEXMELKRole::Standard; });
}

} // namespace

std::vector<Matrix> VEXMELKMatrices(const VEXMELKConfigManager::Configuration& configuration,
    const VEXMELKSource& source, const VEXMELKMatrixScope& scope)
{
    VEXMELKPlacedAsker asker(configuration, source);
    const VEXMELKSilence silence;
    Collector collector(configuration, scope);
    const std::vector<VEXMELKPreparedQuestion> questions = VEXMELKAllQuestions({&asker});
    std::size_t number = 0;
    for (const VEXMELKPreparedQuestion& question : questions)
    {
        if (scope.onQuestion)
            scope.onQuestion(++number, questions.size(), std::string(configuration.description->name));
        const bool isWanted = scope.operation.empty() || question.Operation().Name() == scope.operation;
        if (isWanted && IsAboutStandards(question.Operation()))
            collector.Add(question, asker.Ask(question));
    }
    return collector.Take();
}

char VEXMELKMarkOf(const std::optional<VEXMELKPlacedValue>& cell)
{
    if (!cell)
        return '-';
    switch (cell->level)
    {
    case VEXMELKPlacedValue::Customer:
        return 'C';
    case VEXMELKPlacedValue::FallBack:
        return 'f';
    case VEXMELKPlacedValue::BuiltIn:
        return 'b';
    default:
        return ' ';
    }
}

std::optional<double> VEXMELKAmountInUnit(const VEXMELKAmount& amount, std::string_view unit)
{
    double one = 0.0;
    const std::string text = "1" + std::string(unit);
    const bool fits =
        amount.unit == "m" ? CATLengthFromText(text, one) : amount.unit == "rad" && CATAngleFromText(text, one);
    if (!fits || unit.empty())
        return std::nullopt;
    // Millimetres are a thousand to the metre, whereas a thousandth of one is no exact number.
    return unit == "mm" ? amount.number * 1000.0 : amount.number / one;
}
