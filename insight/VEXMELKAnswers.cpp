// Fresh objects share the documents of one that has loaded them.
#include "VEXMELKAnswers.h"

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
