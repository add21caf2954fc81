// A text is the same one in both directories when it has the same path, and there the same number among its equals.
#include "VEXMELKTextChanges.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using Place = VEXMELKTrial::Place;
using Configuration = VEXMELKConfigManager::Configuration;

// Each asks all questions once more.
constexpr std::size_t mostTried = 200;

// One of the two directories.
class ComparedDirectory
{
public:
    ComparedDirectory(const Configuration& configuration, const VEXMELKSource& source,
        const std::vector<VEXMELKPreparedQuestion>& questions)
        : m_Configuration(configuration),
          m_Trial(configuration, source),
          m_Places(source.directory.ConvertToChar()),
          m_Questions(questions)
    {
    }

    bool IsSameAs(const ComparedDirectory& other) const
    {
        const auto isSame = [](const VEXMELKDocumentText& left, const VEXMELKDocumentText& right)
        { return left.Text() == right.Text(); };
        const auto& left = m_Trial.Documents();
        const auto& right = other.m_Trial.Documents();
        return std::equal(left.begin(), left.end(), right.begin(), right.end(), isSame);
    }

    // By file, path, attribute, and number among those that have these in common.
    using Key = std::tuple<std::string, std::string, std::string_view, std::size_t>;
    std::map<Key, Place> Texts() const
    {
        std::map<Key, Place> texts;
        for (std::size_t document = 0; document < m_Trial.Documents().size(); ++document)
        {
            const VEXMELKDocumentText& written = m_Trial.Documents()[document];
            std::map<std::pair<std::string, std::string_view>, std::size_t> numbers;
            for (std::size_t slot = 0; slot < written.Slots().size(); ++slot)
            {
                const std::string path = written.PathOf(written.Slots()[slot].element);
                const std::string_view attribute = written.Slots()[slot].attribute;
                const std::size_t number = numbers[{path, attribute}]++;
                texts[{m_Trial.Files()[document].name, path, attribute, number}] = {document, slot};
            }
        }
        return texts;
    }
    std::string_view TextAt(Place place) const { return m_Trial.At(place).text; }

    VEXMELKChangedSide Describe(Place place)
    {
        const VEXMELKSlot& slot = m_Trial.At(place);
        const VEXMELKDocumentText& written = m_Trial.Documents()[place.document];
        const VEXMELKFilePlaces::Found found =
            m_Places.Find(m_Trial.Files()[place.document].name, written.Elements()[slot.element].node, slot.attribute);
        VEXMELKChangedSide side;
        side.value = std::string(slot.text);
        side.file = found.file;
        side.position = found.position;
        side.text = slot.text;
        side.category = written.TextOf(written.Around(slot.element, "category"), "name");
        return side;
    }

    // Whether an answer changes with another text there, or with none.
    bool ChangesAnswers(Place place, std::optional<std::string_view> text)
    {
        if (m_Answers.empty())
            AskAll();
        std::optional<VEXMELKTrial::Replacement> replacement;
        if (text)
            replacement.emplace(m_Trial, place, *text);
        else
            replacement.emplace(m_Trial, place);
        return VEXMELKAnyAnswerChanges(m_Configuration, m_Trial, m_Questions, m_Answers);
    }

private:
    void AskAll()
    {
        const VEXMELKAsker asker(m_Configuration, m_Trial.Directory());
        for (const VEXMELKPreparedQuestion& question : m_Questions)
            m_Answers.push_back(asker.Ask(question));
    }

    const Configuration& m_Configuration;
    VEXMELKTrial m_Trial;
    VEXMELKFilePlaces m_Places;
    const std::vector<VEXMELKPreparedQuestion>& m_Questions;
    std::vector<VEXMELKFlatAnswer> m_Answers; // with the documents as they are
};

using ToldPlaces = std::set<std::pair<std::string, VEXMELKPosition>>;

class TextChangeFinder
{
public:
    TextChangeFinder(const Configuration& configuration, ComparedDirectory& before, ComparedDirectory& after,
        std::span<const VEXMELKChange> told)
        : m_Configuration(configuration), m_Before(before), m_After(after)
    {
        for (const VEXMELKChange& change : told)
        {
            if (change.before.HasPlace())
                m_ToldBefore.emplace(change.before.file, change.before.position);
            if (change.after.HasPlace())
                m_ToldAfter.emplace(change.after.file, change.after.position);
        }
    }

    std::vector<VEXMELKChange> Find(std::size_t& leftOut)
    {
        const auto before = m_Before.Texts();
        const auto after = m_After.Texts();
        for (const auto& [key, place] : before)
        {
            const auto same = after.find(key);
            if (same == after.end())
                Consider(key, place, std::nullopt);
            else if (m_Before.TextAt(place) != m_After.TextAt(same->second))
                Consider(key, place, same->second);
        }
        for (const auto& [key, place] : after)
            if (!before.contains(key))
                Consider(key, std::nullopt, place);
        std::sort(m_Changes.begin(), m_Changes.end(),
            [](const VEXMELKChange& left, const VEXMELKChange& right) { return PlaceOf(left) < PlaceOf(right); });
        leftOut += m_LeftOut;
        return std::move(m_Changes);
    }

private:
    static std::pair<std::string_view, VEXMELKPosition> PlaceOf(const VEXMELKChange& change)
    {
        const VEXMELKChangedSide& side = change.after.HasPlace() ? change.after : change.before;
        return {side.file, side.position};
    }

    void Consider(const ComparedDirectory::Key& key, std::optional<Place> before, std::optional<Place> after)
    {
        VEXMELKChange change;
        if (before)
            change.before = m_Before.Describe(*before);
        if (after)
            change.after = m_After.Describe(*after);
        if (m_ToldBefore.contains({change.before.file, change.before.position}) ||
            m_ToldAfter.contains({change.after.file, change.after.position}))
            return;
        if (++m_Tried > mostTried)
        {
            ++m_LeftOut;
            return;
        }
        if (after ? m_After.ChangesAnswers(*after, before ? std::optional(m_Before.TextAt(*before)) : std::nullopt)
                  : m_Before.ChangesAnswers(*before, std::nullopt))
            return;
        const auto& [file, path, attribute, number] = key;
        change.configuration = &m_Configuration;
        change.field = attribute.empty() ? path : path + "/@" + std::string(attribute);
        change.kind = VEXMELKChangeKind::Written;
        change.isSecret = VEXMELKHasSecrets(*m_Configuration.description);
        m_Changes.push_back(std::move(change));
    }

    const Configuration& m_Configuration;
    ComparedDirectory& m_Before;
    ComparedDirectory& m_After;
    ToldPlaces m_ToldBefore;
    ToldPlaces m_ToldAfter;
    std::vector<VEXMELKChange> m_Changes;
    std::size_t m_Tried = 0;
    std::size_t m_LeftOut = 0;
};

} // namespace

std::vector<VEXMELKChange> VEXMELKTextChanges(const Configuration& configuration, const VEXMELKSource& before,
    const VEXMELKSource& after, const std::vector<VEXMELKPreparedQuestion>& questions,
    std::span<const VEXMELKChange> told, std::size_t& leftOut)
{
    ComparedDirectory sideBefore(configuration, before, questions);
    ComparedDirectory sideAfter(configuration, after, questions);
    if (sideBefore.IsSameAs(sideAfter))
        return {};
    return TextChangeFinder(configuration, sideBefore, sideAfter, told).Find(leftOut);
}
