// Every query operation of a configuration, asked for what stands in its document.
#ifndef FUZZ_Questions_H
#define FUZZ_Questions_H

#include "CATIXMLDOMDocumentBuilder.h"
#include "Registry.h"

#include <set>

// Below the directory, with "/"; empty when there is none.
inline std::string FileOf(const Configuration& configuration)
{
    CATUnicodeString file(configuration.file);
    file.ReplaceAll('\\', '/');
    return file.ConvertToChar();
}

struct Question
{
    const Operation* operation;
    Json arguments;
};

// The texts of a document that arguments are taken from; each kind has one at least.
class Vocabulary
{
public:
    explicit Vocabulary(std::string_view text)
    {
        CATIDOMDocument_var document;
        if (SUCCEEDED(CATIXMLDOMDocumentBuilder().ParseMemory(text, NULL_var, document)))
        {
            const CATIDOMNodeList_var elements = document->GetDocumentElement()->GetElementsByTagName("*");
            for (int position = 0; position < elements->GetLength(); ++position)
                for (const char* attribute : {"name", "type", "positioning", "percentil"})
                    Add(elements->Item(position), attribute);
        }
        for (auto* words : {&m_Standards, &m_Categories, &m_Others})
            words->emplace_back("default");
    }

    // Other arguments in each round; in the first ones, every standard once.
    Json Argument(const Parameter& parameter, std::size_t round, std::size_t position) const
    {
        const auto of = [](const auto& words, std::size_t number) { return words[number % words.size()]; };
        if (parameter.name == "standard")
            return of(m_Standards, round);
        if (parameter.name == "category")
            return of(m_Categories, round + round / m_Standards.size());
        if (parameter.type == "text")
            return of(m_Others, round + position * round);
        if (parameter.type == "flag")
            return (round + position) % 2 == 0;
        if (parameter.type == "integer")
            return of(std::vector{95, 3, 99, 0}, round);
        return of(std::vector{0.0, 22.5, 0.4, 1e300}, round);
    }

private:
    void Add(const CATIDOMElement_var& element, const char* attribute)
    {
        const auto value = element->GetAttributes()->GetNamedItemValue(attribute);
        const std::string_view tag = element->GetTagName();
        if (value && m_Known.emplace(tag, *value).second)
            (tag == "standard" ? m_Standards : tag == "category" ? m_Categories : m_Others).emplace_back(*value);
    }

    std::set<std::pair<std::string, std::string>> m_Known;
    std::vector<std::string> m_Standards;
    std::vector<std::string> m_Categories;
    std::vector<std::string> m_Others;
};

inline std::vector<Question> QuestionsFor(
    const Configuration& configuration, std::string_view document, std::size_t rounds)
{
    const Vocabulary words(document);
    std::vector<Question> questions;
    for (std::size_t round = 0; round < rounds; ++round)
        for (const Operation& operation : configuration.operations)
        {
            Json arguments = Json::object();
            for (const Parameter& parameter : operation.Parameters())
                if (!parameter.isOutput)
                    arguments[parameter.name] = words.Argument(parameter, round, arguments.size());
            questions.push_back({&operation, arguments});
        }
    return questions;
}

// The answers of the configuration's object in the current manager: a list of {result, outputs}.
inline Json Ask(const Configuration& configuration, const std::vector<Question>& questions)
{
    Json answers = Json::array();
    for (const Question& question : questions)
    {
        VEXMELKConfig& object = *configuration.get(*VEXMELKConfigManager::GetConfigManager());
        const Answered answered = question.operation->Prepare(question.arguments, Json::object())(object);
        answers.push_back({{"result", answered.result}, {"outputs", answered.outputs}});
    }
    return answers;
}

#endif
