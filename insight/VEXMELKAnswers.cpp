// Compares all answers of two directories.
#include "VEXMELKAnswers.h"

#include "VEXMELKUtilities.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>

namespace {

// Origins are looked for in this many questions; with more changes than that, nobody reads them one by one.
constexpr std::size_t mostExplained = 200;

// In the same unit for both values that are compared; not a number for what is no quantity.
double AmountOf(const std::optional<VEXMELKPlainValue>& value)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (!value)
        return none;
    if (const auto* number = std::get_if<double>(&*value))
        return *number;
    if (const auto* integer = std::get_if<long>(&*value))
        return static_cast<double>(*integer);
    const auto* text = std::get_if<std::string>(&*value);
    if (!text)
        return none;
    double number = 0.0;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
    if (error == std::errc() && end == text->data() + text->size())
        return number;
    const double metres = VEXMELKUtilities::GetValueInMeters(CATUnicodeString(*text));
    const double radians = VEXMELKUtilities::GetValueInRadians(CATUnicodeString(*text));
    return metres != 0.0 ? metres : radians != 0.0 ? radians : none;
}

std::optional<double> PercentOf(const VEXMELKChange& change)
{
    const double before = AmountOf(change.before);
    const double percent = (AmountOf(change.after) - before) / std::fabs(before) * 100.0;
    // Rounded to thousandths: the unit's conversion leaves its traces behind them.
    return std::isfinite(percent) ? std::optional(std::round(percent * 1e3) / 1e3) : std::nullopt;
}

std::optional<VEXMELKOriginPlace> DecidingPlace(const VEXMELKExplanation& explanation, const std::string& field)
{
    const VEXMELKOrigin* origin = explanation.OriginOf(field);
    if (origin)
        for (const VEXMELKOriginPlace& place : origin->places)
            if (!place.file.empty() && place.role != VEXMELKOriginPlace::Hidden)
                return place;
    return std::nullopt;
}

class Comparer
{
public:
    Comparer(const CATUnicodeString& before, const CATUnicodeString& after) : m_Before(before), m_After(after) {}

    VEXMELKComparison Compare()
    {
        const VEXMELKSilence silence;
        for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
            if (configuration.create)
                CompareConfiguration(configuration);
        return std::move(m_Comparison);
    }

private:
    void CompareConfiguration(const VEXMELKConfigManager::Configuration& configuration)
    {
        const VEXMELKTrial before(configuration, m_Before);
        const VEXMELKTrial after(configuration, m_After);
        std::vector<const VEXMELKDocumentText*> documents;
        for (const VEXMELKTrial* trial : {&before, &after})
            for (const VEXMELKDocumentText& document : trial->Documents())
                documents.push_back(&document);
        if (documents.empty())
            return;
        const VEXMELKAsker askBefore(configuration, m_Before);
        const VEXMELKAsker askAfter(configuration, m_After);
        for (const VEXMELKPreparedQuestion& question : VEXMELKAllQuestions(*configuration.description, documents))
        {
            ++m_Comparison.questions;
            const VEXMELKFlatAnswer answerBefore = askBefore.Ask(question);
            const VEXMELKFlatAnswer answerAfter = askAfter.Ask(question);
            if (!(answerBefore == answerAfter))
                AddChanges(configuration, question, answerBefore, answerAfter);
        }
    }

    // The fields that differ, in the order of the first answer; the result among them.
    void AddChanges(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKPreparedQuestion& question,
        const VEXMELKFlatAnswer& before, const VEXMELKFlatAnswer& after)
    {
        std::vector<VEXMELKNamedValue> fields = before.outputs;
        fields.insert(fields.begin(), VEXMELKNamedValue{"result", before.result, {}, {}});
        std::vector<VEXMELKNamedValue> others = after.outputs;
        others.push_back({"result", after.result, {}, {}});
        std::map<std::string_view, const VEXMELKNamedValue*> rest;
        for (const VEXMELKNamedValue& other : others)
            rest.emplace(other.field, &other);
        std::vector<VEXMELKChange> changes;
        const auto add = [&](const VEXMELKNamedValue& named, std::optional<VEXMELKPlainValue> old,
                             std::optional<VEXMELKPlainValue> now)
        {
            VEXMELKChange change{
                &configuration, question, named.field, std::move(old), std::move(now), named.unit, {}, {}, {}};
            change.percent = PercentOf(change);
            changes.push_back(std::move(change));
        };
        for (const VEXMELKNamedValue& field : fields)
        {
            const auto found = rest.find(field.field);
            if (found == rest.end())
                add(field, field.value, std::nullopt);
            else if (found->second->value != field.value)
                add(field, field.value, found->second->value);
            rest.erase(field.field);
        }
        for (const VEXMELKNamedValue& other : others)
            if (rest.count(other.field) != 0)
                add(other, std::nullopt, other.value);
        if (++m_Explained <= mostExplained)
            AddPlaces(configuration, question, changes);
        std::move(changes.begin(), changes.end(), std::back_inserter(m_Comparison.changes));
    }

    void AddPlaces(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKPreparedQuestion& question,
        std::vector<VEXMELKChange>& changes) const
    {
        const VEXMELKExplanation before = VEXMELKExplain(configuration, question, m_Before);
        const VEXMELKExplanation after = VEXMELKExplain(configuration, question, m_After);
        for (VEXMELKChange& change : changes)
        {
            change.placeBefore = DecidingPlace(before, change.field);
            change.placeAfter = DecidingPlace(after, change.field);
        }
    }

    CATUnicodeString m_Before;
    CATUnicodeString m_After;
    VEXMELKComparison m_Comparison;
    std::size_t m_Explained = 0;
};

} // namespace

VEXMELKAsker::VEXMELKAsker(const VEXMELKConfigManager::Configuration& configuration, const CATUnicodeString& directory)
    : m_Configuration(configuration),
      m_Directory(directory),
      m_Loaded(CATHandle<VEXMELKConfig>::Adopt(configuration.create(directory)))
{
    if (m_Loaded != NULL_var)
        m_Loaded->FindStandardLevel(""); // loads the documents
}

VEXMELKFlatAnswer VEXMELKAsker::Ask(const VEXMELKAskable& askable) const
{
    const auto object = CATHandle<VEXMELKConfig>::Adopt(m_Configuration.create(m_Directory));
    const std::unique_ptr<VEXMELKQuestion> question = askable.New();
    if (object != NULL_var && m_Loaded != NULL_var)
    {
        *object.Get() = *m_Loaded.Get(); // shares the documents
        question->Ask(*object.Get());
    }
    return VEXMELKFlatAnswer::Of(*question, askable.Operation());
}

VEXMELKComparison VEXMELKCompare(const CATUnicodeString& before, const CATUnicodeString& after)
{
    return Comparer(before, after).Compare();
}
