// Fresh objects share the documents of one that has loaded them.
#include "VEXMELKAnswers.h"

#include <algorithm>

VEXMELKAsker::VEXMELKAsker(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKSource& source)
    : m_Configuration(configuration),
      m_Directory(source.directory),
      m_Loaded(VEXMELKLoad(*configuration.description, source))
{
}

VEXMELKFlatAnswer VEXMELKAsker::Ask(const VEXMELKAskable& askable) const
{
    const auto object = CATHandle<VEXMELKConfig>::Adopt(m_Configuration.create(m_Directory));
    const std::unique_ptr<VEXMELKQuestion> question = askable.New();
    if (object != NULL_var)
    {
        *object.Get() = *m_Loaded.object.Get(); // shares the documents
        question->Ask(*object.Get());
    }
    return VEXMELKFlatAnswer::Of(*question, askable.Operation());
}

bool VEXMELKAnyAnswerChanges(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKTrial& trial,
    const std::vector<VEXMELKPreparedQuestion>& questions, const std::vector<VEXMELKFlatAnswer>& answers,
    const std::vector<std::size_t>& likeliest)
{
    const VEXMELKAsker asker(configuration, trial.Directory());
    const auto changes = [&](std::size_t question) { return !(asker.Ask(questions[question]) == answers[question]); };
    if (std::any_of(likeliest.begin(), likeliest.end(), changes))
        return true;
    for (std::size_t question = 0; question < questions.size(); ++question)
        if (changes(question))
            return true;
    return false;
}
