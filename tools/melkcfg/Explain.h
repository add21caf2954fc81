// Where answers come from, as text and JSON.
#ifndef MELKCFG_Explain_H
#define MELKCFG_Explain_H

#include "Batch.h"
#include "VEXMELKPlacedAnswers.h"

// A question by its arguments in JSON.
class AskedByJson : public VEXMELKAskable
{
public:
    AskedByJson(const ::Operation& operation, Json arguments, Json outputs)
        : m_Operation(operation), m_Arguments(std::move(arguments)), m_Outputs(std::move(outputs))
    {
    }
    const VEXMELKOperation& Operation() const override { return m_Operation.Described(); }
    std::unique_ptr<VEXMELKQuestion> New() const override { return m_Operation.NewQuestion(m_Arguments, m_Outputs); }

private:
    const ::Operation& m_Operation;
    Json m_Arguments;
    Json m_Outputs;
};

Json ToJson(const VEXMELKPlainValue& value);

// The members "config", "operation" and "arguments" of a question, as a batch takes them; with "outputs" where it
// matters what the caller's variables hold.
Json QuestionToJson(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKPreparedQuestion& question);

// The configuration directory of the current mode.
CATUnicodeString CurrentDirectory();
// The same as the file system takes it.
std::string DirectoryPath();

// Whether one of the configurations (all when there are none) has a file there that can be read. Throws RequestError
// when one that is there cannot be read; the boxes have told why.
bool RequireFiles(const VEXMELKSource& source, const std::vector<const VEXMELKConfigManager::Configuration*>& wanted);

// Tells on standard error of questions that were too many.
void TellLeftOut(std::size_t questions);

// The list "fields" of an explanation, only that of one field when a name is given.
Json FieldsToJson(const VEXMELKExplanation& explanation, bool showSecrets, const std::string& onlyField = {});
// Columns: field, value, place, why; below each what it hides.
void PrintExplanation(const VEXMELKExplanation& explanation, bool showSecrets, const std::string& onlyField);
void PrintSteps(const std::vector<VEXMELKStep>& steps);
Json StepsToJson(const std::vector<VEXMELKStep>& steps);

// What is said of a question on standard error; empty when there is nothing to say.
std::string ReasonFor(const Configuration& configuration, const VEXMELKAskable& askable);

#endif
