// Looks for texts that no answer depends on: each is replaced, and the questions that read it are asked first.
#include "VEXMELKAnswers.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using Place = VEXMELKTrial::Place;

class UnusedFinder
{
public:
    UnusedFinder(const VEXMELKConfigManager::Configuration& configuration, const CATUnicodeString& directory)
        : m_Configuration(configuration), m_Directory(directory.ConvertToChar()), m_Trial(configuration, directory)
    {
    }

    std::vector<VEXMELKUnusedText> Find()
    {
        const VEXMELKSilence silence;
        AskAll();
        FindCustomerStandards();
        for (std::size_t document = 0; document < m_Trial.Documents().size(); ++document)
        {
            m_File = VEXMELKWrittenFile::Read(m_Directory + "/" + m_Trial.Files()[document].name);
            FindIn(document);
        }
        return std::move(m_Unused);
    }

private:
    void AskAll()
    {
        std::vector<const VEXMELKDocumentText*> documents;
        for (const VEXMELKDocumentText& document : m_Trial.Documents())
            documents.push_back(&document);
        m_Questions = VEXMELKAllQuestions(*m_Configuration.description, documents);
        for (std::size_t question = 0; question < m_Questions.size(); ++question)
        {
            std::vector<VEXMELKTrial::Read> reads;
            m_Answers.push_back(m_Trial.Ask(m_Questions[question], &reads));
            for (const VEXMELKTrial::Read& read : reads)
            {
                std::vector<std::size_t>& readers = m_Readers[read.place];
                if (readers.empty() || readers.back() != question)
                    readers.push_back(question);
                m_Rows[read.place].insert(read.row);
            }
        }
    }

    void FindCustomerStandards()
    {
        if (m_Trial.Documents().size() < 2)
            return;
        const VEXMELKDocumentText& customer = m_Trial.Documents().back();
        for (std::size_t element = 0; element < customer.Elements().size(); ++element)
            if (customer.Elements()[element].node->GetTagName() == "standard")
                m_CustomerStandards.insert(customer.TextOf(element, "name"));
    }

    // Elements whole, where nothing in them is used.
    void FindIn(std::size_t number)
    {
        const VEXMELKDocumentText& document = m_Trial.Documents()[number];
        const std::size_t count = document.Elements().size();
        std::vector<bool> isUsed(count, false);
        std::vector<Place> unusedTexts;
        for (std::size_t slot = 0; slot < document.Slots().size(); ++slot)
            if (IsUsed({number, slot}))
                isUsed[document.Slots()[slot].element] = true;
            else
                unusedTexts.push_back({number, slot});
        for (std::size_t element = count; element-- > 1;)
        {
            isUsed[element] = isUsed[element] || ChangesAnswers(number, element);
            if (isUsed[element])
                isUsed[document.Elements()[element].parent] = true;
        }
        isUsed[0] = true;
        for (std::size_t element = 1; element < count; ++element)
            if (!isUsed[element] && isUsed[document.Elements()[element].parent])
                AddElement(number, element);
        for (const Place place : unusedTexts)
            if (isUsed[document.Slots()[place.slot].element])
                AddText(place);
    }

    bool IsUsed(Place place)
    {
        std::set<std::string> texts = {m_Trial.UnknownWord()};
        for (const VEXMELKRow* row : m_Rows[place])
            for (const std::string& text : m_Trial.OtherTexts(*row))
                texts.insert(text);
        return std::any_of(texts.begin(), texts.end(),
            [&](const std::string& text)
            {
                const VEXMELKTrial::Replacement replacement(m_Trial, place, text);
                return AnyAnswerChanges(m_Readers[place]);
            });
    }
    bool ChangesAnswers(std::size_t document, std::size_t element)
    {
        const VEXMELKTrial::Replacement replacement(m_Trial, document, element);
        return AnyAnswerChanges({});
    }

    bool AnyAnswerChanges(const std::vector<std::size_t>& likeliest) const
    {
        return VEXMELKAnyAnswerChanges(m_Configuration, m_Trial, m_Questions, m_Answers, likeliest);
    }

    void AddElement(std::size_t number, std::size_t element)
    {
        const VEXMELKDocumentText& document = m_Trial.Documents()[number];
        const CATIDOMElement_var node = document.Elements()[element].node;
        m_Unused.push_back({m_Trial.Files()[number].name, {node->GetLineNumber(), node->GetColumnNumber()},
            document.PathOf(element), {}, ReasonOf(number, element)});
    }
    void AddText(Place place)
    {
        const VEXMELKDocumentText& document = m_Trial.Documents()[place.document];
        const VEXMELKSlot& slot = document.Slots()[place.slot];
        const CATIDOMElement_var node = document.Elements()[slot.element].node;
        const VEXMELKPosition tag{node->GetLineNumber(), node->GetColumnNumber()};
        const auto written = !m_File                  ? std::nullopt
                             : slot.attribute.empty() ? m_File->TextOf(tag)
                                                      : m_File->ValueOf(tag, slot.attribute);
        if (!written)
            return; // a default of the document type is written elsewhere
        std::string reason = IsDescribed(slot, node->GetTagName()) ? readReason : unreadReason;
        if (IsHidden(place.document, slot.element))
            reason = ReasonOf(place.document, slot.element);
        m_Unused.push_back({m_Trial.Files()[place.document].name, *written, document.PathOf(slot.element),
            std::string(slot.attribute), reason});
    }

    static constexpr const char* readReason = "it is read, but changes no answer";
    static constexpr const char* unreadReason = "nothing reads it";

    template <class Wanted> bool AnyElement(Wanted isWanted) const
    {
        const std::vector<const VEXMELKElement*> elements = VEXMELKElementsOf(*m_Configuration.description);
        return std::any_of(elements.begin(), elements.end(), isWanted);
    }
    bool IsDescribed(const VEXMELKSlot& slot, std::string_view tag) const
    {
        const auto is = [&](const VEXMELKRow& row) { return row.attribute == slot.attribute; };
        return AnyElement(
            [&](const VEXMELKElement* element)
            {
                if (element->tag != tag && element->tag != "*")
                    return false;
                return (element->key && is(*element->key)) ||
                       std::any_of(element->tables.begin(), element->tables.end(),
                           [&](VEXMELKRows rows) { return std::any_of(rows.begin(), rows.end(), is); });
            });
    }

    // Whether it stands in a standard of the Default file that the Customer file has too.
    bool IsHidden(std::size_t number, std::size_t element) const
    {
        if (number + 1 == m_Trial.Documents().size())
            return false;
        return m_CustomerStandards.count(StandardAround(m_Trial.Documents()[number], element)) != 0;
    }
    static std::string_view StandardAround(const VEXMELKDocumentText& document, std::size_t element)
    {
        return document.TextOf(document.Around(element, "standard"), "name");
    }

    std::string ReasonOf(std::size_t number, std::size_t element) const
    {
        if (IsHidden(number, element))
            return "hidden: Customer replaces the standard wholly";
        const VEXMELKDocumentText& document = m_Trial.Documents()[number];
        const std::string_view tag = document.Elements()[element].node->GetTagName();
        if (!AnyElement([&](const VEXMELKElement* described) { return described->tag == tag; }))
            return unreadReason;
        return HasEarlierTwin(document, element) ? "the first of the name counts" : readReason;
    }
    // Whether an element of the same tag and name stands before it.
    static bool HasEarlierTwin(const VEXMELKDocumentText& document, std::size_t element)
    {
        const auto nameOf = [&](std::size_t of) { return document.TextOf(of, "name"); };
        const auto& late = document.Elements()[element];
        for (std::size_t early = late.parent; early < element; ++early)
            if (document.Elements()[early].parent == late.parent && !nameOf(element).empty() &&
                document.Elements()[early].node->GetTagName() == late.node->GetTagName() &&
                nameOf(early) == nameOf(element))
                return true;
        return false;
    }

    const VEXMELKConfigManager::Configuration& m_Configuration;
    const std::string m_Directory;
    VEXMELKTrial m_Trial;
    std::set<std::string_view> m_CustomerStandards;
    std::vector<VEXMELKPreparedQuestion> m_Questions;
    std::vector<VEXMELKFlatAnswer> m_Answers;
    std::map<Place, std::vector<std::size_t>> m_Readers;
    std::map<Place, std::set<const VEXMELKRow*>> m_Rows;
    std::optional<VEXMELKWrittenFile> m_File;
    std::vector<VEXMELKUnusedText> m_Unused;
};

} // namespace

std::vector<VEXMELKUnusedText> VEXMELKUnused(
    const VEXMELKConfigManager::Configuration& configuration, const CATUnicodeString& directory)
{
    return UnusedFinder(configuration, directory).Find();
}
