// Asks all questions of each standard for its own categories. What a category does not have is told by the categories
// that have it: a report repeats no answer.
#include "VEXMELKReportData.h"

#include "VEXMELKAnswers.h"
#include "VEXMELKPictures.h"
#include "VEXMELKPlacedAnswers.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace {

class Reporter
{
public:
    Reporter(const VEXMELKConfigManager::Configuration& configuration, const CATUnicodeString& directory,
        VEXMELKPictures& pictures)
        : m_Directory(directory),
          m_Pictures(pictures),
          m_Asker(configuration, directory),
          m_Places(directory.ConvertToChar())
    {
        m_Made.configuration = &configuration;
        m_Made.files = VEXMELKLoadFiles(*configuration.description, directory);
        for (const VEXMELKSourceFile& file : m_Made.files)
            m_Documents.emplace_back(file.root, 1);
    }

    VEXMELKReportConfiguration Make()
    {
        FindStandards();
        std::vector<const VEXMELKDocumentText*> documents;
        for (const VEXMELKDocumentText& document : m_Documents)
            documents.push_back(&document);
        m_Questions = VEXMELKAllQuestions(*m_Made.configuration->description, documents);
        SortQuestions();
        for (const VEXMELKReportStandard& standard : m_Made.standards)
        {
            m_Trial.emplace(*m_Made.configuration, m_Directory, standard.name, largeDocument);
            for (const std::string& category : standard.categories)
                AddCell(standard, category);
        }
        return std::move(m_Made);
    }

private:
    struct Asked
    {
        const VEXMELKPreparedQuestion* question;
        bool isOfStandard;
        std::optional<std::string> category;
    };

    bool HasTag(const VEXMELKDocumentText& document, std::size_t element, std::string_view tag) const
    {
        return std::string_view(document.Elements()[element].node->GetTagName()) == tag;
    }

    void AddCategory(VEXMELKReportStandard& standard, const std::string& name)
    {
        for (std::vector<std::string>* list : {&standard.categories, &m_Made.categories})
            if (std::find(list->begin(), list->end(), name) == list->end())
                list->push_back(name);
    }

    // Customer's first: a standard that stands there counts.
    void FindStandards()
    {
        VEXMELKReportStandard whole; // of files without standards
        for (std::size_t file = m_Documents.size(); file-- > 0;)
        {
            const VEXMELKDocumentText& document = m_Documents[file];
            const bool isCustomers = m_Made.files[file].name.starts_with("Customer/");
            for (std::size_t element = 1; element < document.Elements().size(); ++element)
            {
                if (document.Elements()[element].parent != 0)
                    continue;
                const std::string name(document.TextOf(element, "name"));
                if (HasTag(document, element, "category"))
                    AddCategory(whole, name);
                else if (HasTag(document, element, "standard"))
                    AddStandard(document, element, name, isCustomers);
            }
        }
        if (m_Made.standards.empty())
        {
            if (whole.categories.empty())
                AddCategory(whole, "");
            m_Made.standards.push_back(whole);
        }
    }

    void AddStandard(
        const VEXMELKDocumentText& document, std::size_t element, const std::string& name, bool isCustomers)
    {
        const auto known = std::find_if(m_Made.standards.begin(), m_Made.standards.end(),
            [&](const VEXMELKReportStandard& standard) { return standard.name == name; });
        if (known != m_Made.standards.end())
        {
            known->isReplaced = known->isReplaced || (known->isCustomers && !isCustomers);
            return;
        }
        VEXMELKReportStandard standard{name, isCustomers, false, {}};
        for (std::size_t child = element + 1; child < document.Elements().size(); ++child)
            if (document.Elements()[child].parent == element && HasTag(document, child, "category"))
                AddCategory(standard, std::string(document.TextOf(child, "name")));
        m_Made.standards.push_back(std::move(standard));
    }

    // Those of the configuration's own operations, by the standard that they ask for; under nothing if for none.
    void SortQuestions()
    {
        const auto& own = m_Made.configuration->description->operations;
        for (const VEXMELKPreparedQuestion& question : m_Questions)
            if (std::any_of(own.begin(), own.end(),
                    [&](const VEXMELKOperation& operation) { return operation.Name() == question.Operation().Name(); }))
            {
                const auto standard = VEXMELKArgumentOf(question, VEXMELKRole::Standard);
                m_ByStandard[standard].push_back(
                    {&question, standard.has_value(), VEXMELKArgumentOf(question, VEXMELKRole::Category)});
            }
    }

    // What does not ask for a category is told in the first one of the standard, and what does not ask for a standard
    // in the first one that has the category.
    bool IsToldIn(const Asked& asked, const VEXMELKReportCell& cell, bool isFirst) const
    {
        if (asked.category && *asked.category != cell.category)
            return false;
        if (asked.isOfStandard)
            return asked.category || isFirst;
        return asked.category ? !m_Reported.contains(*asked.category) : m_Reported.empty();
    }

    // The arguments beside standard and category.
    static std::string FurtherArguments(const VEXMELKPreparedQuestion& question)
    {
        std::string others;
        for (const VEXMELKPreparedQuestion::Input& input : question.Inputs())
        {
            const VEXMELKParameter& parameter = question.Operation().Parameters()[input.parameter];
            if (parameter.role != VEXMELKRole::Standard && parameter.role != VEXMELKRole::Category)
                others += (others.empty() ? "" : " ") + std::string(parameter.name) + "=" + VEXMELKTextOf(input.value);
        }
        return others;
    }

    void AddCell(const VEXMELKReportStandard& standard, const std::string& category)
    {
        VEXMELKReportCell cell{standard.name, category, {}, {}};
        cell.drawing =
            m_Pictures.Draw(*m_Made.configuration, CATUnicodeString(standard.name), CATUnicodeString(category));
        std::vector<Asked> questions = m_ByStandard[std::nullopt];
        const auto& ofStandard = m_ByStandard[standard.name];
        questions.insert(questions.end(), ofStandard.begin(), ofStandard.end());
        std::sort(questions.begin(), questions.end(), // as all questions are
            [](const Asked& left, const Asked& right) { return left.question < right.question; });
        const bool isFirst = category == standard.categories.front();
        for (const Asked& asked : questions)
            if (IsToldIn(asked, cell, isFirst))
                AddAnswer(cell, asked);
        m_Reported.insert(category);
        m_Made.cells.push_back(std::move(cell));
    }

    void AddAnswer(VEXMELKReportCell& cell, const Asked& asked)
    {
        const VEXMELKPreparedQuestion& question = *asked.question;
        const std::string operation(question.Operation().Name());
        const bool isKnown = std::any_of(cell.answers.begin(), cell.answers.end(),
            [&](const VEXMELKReportAnswer& answer) { return answer.operation == operation; });
        // What asks for no standard depends on those too that are left out.
        const bool isTried = asked.isOfStandard || !IsLarge();
        VEXMELKReportAnswer answer{operation, FurtherArguments(question), {}};
        if (!isKnown && isTried)
            answer.explanation = VEXMELKExplain(*m_Made.configuration->description, question, *m_Trial, m_Places);
        else
        {
            const VEXMELKFlatAnswer flat = m_Asker.Ask(question);
            answer.explanation.result = flat.result;
            for (VEXMELKNamedValue& value : flat.Fields())
                answer.explanation.fields.push_back({std::move(value), {}});
        }
        cell.answers.push_back(std::move(answer));
    }

    bool IsLarge() const
    {
        return std::any_of(m_Documents.begin(), m_Documents.end(),
            [](const VEXMELKDocumentText& document)
            { return static_cast<int>(document.Elements().size()) > largeDocument; });
    }

    // Of larger documents only the cell's standard is tried, so that a report takes as long as its directory is large.
    static constexpr int largeDocument = 200; // elements

    const CATUnicodeString& m_Directory;
    VEXMELKPictures& m_Pictures;
    VEXMELKAsker m_Asker;
    VEXMELKFilePlaces m_Places;
    std::optional<VEXMELKTrial> m_Trial; // of the standard that is reported on
    std::vector<VEXMELKDocumentText> m_Documents;
    std::vector<VEXMELKPreparedQuestion> m_Questions;
    std::map<std::optional<std::string>, std::vector<Asked>> m_ByStandard;
    std::set<std::string> m_Reported; // categories
    VEXMELKReportConfiguration m_Made;
};

} // namespace

std::vector<VEXMELKReportConfiguration> VEXMELKReportOn(
    const CATUnicodeString& directory, const VEXMELKReportProgress& onConfiguration)
{
    const auto all = VEXMELKConfigManager::GetConfigurations();
    VEXMELKPictures pictures(directory);
    std::vector<VEXMELKReportConfiguration> made;
    for (std::size_t number = 0; number < all.size(); ++number)
    {
        const std::string name(all[number].description->name);
        if (onConfiguration)
            onConfiguration(number + 1, all.size(), name);
        if (!all[number].create || !VEXMELKHasFile(*all[number].description, directory))
            continue;
        VEXMELKReportConfiguration configuration = Reporter(all[number], directory, pictures).Make();
        if (!configuration.files.empty())
            made.push_back(std::move(configuration));
    }
    return made;
}
