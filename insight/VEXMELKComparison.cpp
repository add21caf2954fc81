// Answers are compared value by value.
#include "VEXMELKComparison.h"

#include "VEXMELKTextChanges.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <span>

namespace {

using Configuration = VEXMELKConfigManager::Configuration;
using Kind = VEXMELKChangeKind;

// Choices are looked for in this many questions; with more changes than that, nobody reads them one by one.
constexpr std::size_t mostExplained = 200;

// In the same unit for both sides; nothing for what is no number or quantity.
std::optional<double> PercentOf(const VEXMELKChange& change)
{
    if (!change.before.amount || !change.after.amount || change.before.amount->unit != change.after.amount->unit)
        return std::nullopt;
    const double before = change.before.amount->number;
    const double percent = (change.after.amount->number - before) / std::fabs(before) * 100.0;
    // Rounded to thousandths: the unit's conversion leaves its traces behind them.
    return std::isfinite(percent) ? std::optional(std::round(percent * 1e3) / 1e3) : std::nullopt;
}

std::string CategoryAround(CATIDOMElement_var element)
{
    while (element != NULL_var && element->GetTagName() != "category")
        element = CATIDOMElement_var(element->GetParentNode());
    return element == NULL_var ? "" : std::string(element->GetAttributes()->GetNamedItemValue("name").value_or(""));
}

VEXMELKChangedSide SideOf(const VEXMELKPlacedValue* value)
{
    VEXMELKChangedSide side;
    if (!value)
        return side;
    side.value = value->named.value;
    side.amount = VEXMELKAmountIn(*value);
    if (value->HasPlace())
    {
        side.file = value->file;
        side.position = value->position;
        side.text = value->Text();
        side.category = CategoryAround(value->element);
    }
    return side;
}

class Comparer
{
public:
    Comparer(const VEXMELKSource& before, const VEXMELKSource& after, const VEXMELKComparisonScope& scope)
        : m_Before(before), m_After(after), m_Scope(scope)
    {
    }

    VEXMELKComparison Compare()
    {
        const VEXMELKSilence silence;
        for (const Configuration* configuration : VEXMELKAskedConfigurations(m_Scope.configurations))
            CompareConfiguration(*configuration);
        return std::move(m_Comparison);
    }

private:
    void CompareConfiguration(const Configuration& configuration)
    {
        VEXMELKPlacedAsker before(configuration, m_Before);
        VEXMELKPlacedAsker after(configuration, m_After);
        const std::vector<VEXMELKPreparedQuestion> questions =
            VEXMELKAllQuestions({&before, &after}, &m_Comparison.leftOut);
        const std::size_t first = m_Comparison.changes.size();
        std::size_t number = 0;
        for (const VEXMELKPreparedQuestion& question : questions)
        {
            if (m_Scope.onQuestion)
                m_Scope.onQuestion(++number, questions.size(), std::string(configuration.description->name));
            CompareAnswers(configuration, question, before.Ask(question), after.Ask(question));
        }
        m_Comparison.questions += questions.size();
        if (!m_Scope.hasMoves || before.Files().empty() || after.Files().empty())
            return;
        std::vector<VEXMELKChange>& changes = m_Comparison.changes;
        const auto told = std::span(changes).subspan(first);
        for (VEXMELKChange& change :
            VEXMELKTextChanges(configuration, m_Before, m_After, questions, told, m_Comparison.textsLeftOut))
            changes.push_back(std::move(change));
    }

    // Every value by its field, also those that are no answer: whoever asks sees them all the same.
    struct Both
    {
        const VEXMELKPlacedValue* before = nullptr;
        const VEXMELKPlacedValue* after = nullptr;
        const VEXMELKNamedValue* leftBefore = nullptr;
        const VEXMELKNamedValue* leftAfter = nullptr;

        const VEXMELKNamedValue* OldValue() const { return before ? &before->named : leftBefore; }
        const VEXMELKNamedValue* NewValue() const { return after ? &after->named : leftAfter; }
    };

    void CompareAnswers(const Configuration& configuration, const VEXMELKPreparedQuestion& question,
        const VEXMELKPlacedAnswer& before, const VEXMELKPlacedAnswer& after)
    {
        std::vector<std::pair<std::string_view, Both>> fields;
        std::unordered_map<std::string_view, std::size_t> known;
        const auto at = [&](const std::string& field) -> Both&
        {
            const auto [place, isNew] = known.try_emplace(field, fields.size());
            if (isNew)
                fields.push_back({field, {}});
            return fields[place->second].second;
        };
        for (const VEXMELKPlacedValue& value : before.values)
            at(value.named.field).before = &value;
        for (const VEXMELKNamedValue& value : before.left)
            at(value.field).leftBefore = &value;
        for (const VEXMELKPlacedValue& value : after.values)
            at(value.named.field).after = &value;
        for (const VEXMELKNamedValue& value : after.left)
            at(value.field).leftAfter = &value;
        const std::size_t first = m_Comparison.changes.size();
        for (const auto& [field, both] : fields)
            if (const auto kind = KindOf(both, before, after))
                Add(configuration, question, field, both, *kind);
        if (m_Scope.hasChoices && m_Comparison.changes.size() > first && ++m_Explained <= mostExplained)
            AddChoices(configuration, question, first);
    }

    std::optional<Kind> KindOf(
        const Both& both, const VEXMELKPlacedAnswer& before, const VEXMELKPlacedAnswer& after) const
    {
        const VEXMELKNamedValue* oldValue = both.OldValue();
        const VEXMELKNamedValue* newValue = both.NewValue();
        const bool isSame = oldValue && newValue && oldValue->value == newValue->value;
        if (!isSame && (!oldValue || (before.IsFalse() && !after.IsFalse())))
            return Kind::Added;
        if (!isSame && (!newValue || (after.IsFalse() && !before.IsFalse())))
            return Kind::Removed;
        if (!isSame)
            return Kind::Changed;
        return m_Scope.hasMoves && both.before && both.after ? MoveOf(*both.before, *both.after) : std::nullopt;
    }
    // Lines and columns shift with every edit above: a place is an attribute of an element of a file.
    static std::optional<Kind> MoveOf(const VEXMELKPlacedValue& before, const VEXMELKPlacedValue& after)
    {
        if (before.HasPlace() != after.HasPlace())
            return Kind::Written;
        if (!before.HasPlace())
            return std::nullopt;
        const bool isSameAttribute = before.file == after.file && before.attribute == after.attribute;
        if (!isSameAttribute ||
            (before.position != after.position && VEXMELKPathOf(before.element) != VEXMELKPathOf(after.element)))
            return Kind::Moved;
        return before.Text() == after.Text() ? std::nullopt : std::optional(Kind::Written);
    }

    void Add(const Configuration& configuration, const VEXMELKPreparedQuestion& question, std::string_view field,
        const Both& both, Kind kind)
    {
        VEXMELKChange change;
        change.configuration = &configuration;
        change.question = question;
        change.field = field;
        change.kind = kind;
        change.before = SideOf(both.before);
        change.after = SideOf(both.after);
        if (both.leftBefore)
            change.before.value = both.leftBefore->value;
        if (both.leftAfter)
            change.after.value = both.leftAfter->value;
        if (kind == Kind::Changed)
            change.percent = PercentOf(change);
        change.isSecret = both.OldValue() ? both.OldValue()->isSecret : both.NewValue()->isSecret;
        m_Comparison.changes.push_back(std::move(change));
    }

    void AddChoices(const Configuration& configuration, const VEXMELKPreparedQuestion& question, std::size_t first)
    {
        const auto begin = m_Comparison.changes.begin() + static_cast<std::ptrdiff_t>(first);
        const auto isOpen = [](const VEXMELKChange& change)
        { return !change.before.HasPlace() || !change.after.HasPlace(); };
        if (std::none_of(begin, m_Comparison.changes.end(), isOpen))
            return;
        const VEXMELKExplanation before = VEXMELKExplain(configuration, question, m_Before.directory);
        const VEXMELKExplanation after = VEXMELKExplain(configuration, question, m_After.directory);
        for (auto change = begin; change != m_Comparison.changes.end(); ++change)
        {
            AddChoice(before, change->field, change->before);
            AddChoice(after, change->field, change->after);
        }
    }
    static void AddChoice(const VEXMELKExplanation& explanation, const std::string& field, VEXMELKChangedSide& side)
    {
        const VEXMELKOrigin* origin = side.HasPlace() ? nullptr : explanation.OriginOf(field);
        if (!origin)
            return;
        const auto place = std::find_if(origin->places.begin(), origin->places.end(),
            [](const VEXMELKOriginPlace& one) { return !one.file.empty() && one.role != VEXMELKOriginPlace::Hidden; });
        if (place == origin->places.end())
            return;
        side.file = place->file;
        side.position = place->position;
        side.text = place->text;
        side.category = CategoryAround(place->element);
    }

    VEXMELKSource m_Before;
    VEXMELKSource m_After;
    const VEXMELKComparisonScope& m_Scope;
    VEXMELKComparison m_Comparison;
    std::size_t m_Explained = 0;
};

} // namespace

std::string_view VEXMELKNameOf(VEXMELKChangeKind kind)
{
    constexpr std::string_view names[] = {"changed", "added", "removed", "moved", "written"};
    return names[static_cast<std::size_t>(kind)];
}

VEXMELKComparison VEXMELKCompare(
    const VEXMELKSource& before, const VEXMELKSource& after, const VEXMELKComparisonScope& scope)
{
    return Comparer(before, after, scope).Compare();
}
