// The answers of a directory to all questions, and what changes when its files do.
#ifndef VEXMELKAnswers_H
#define VEXMELKAnswers_H

#include "VEXMELKAllQuestions.h"
#include "VEXMELKOrigins.h"

#include <functional>

// Asks one configuration over a directory. The files are read once; each question has a fresh object all the same, so
// that no answer depends on those before it.
class VEXMELKAsker
{
public:
    VEXMELKAsker(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKSource& source);
    VEXMELKFlatAnswer Ask(const VEXMELKAskable& askable) const;
    // None when they do not load.
    const std::vector<VEXMELKSourceFile>& Files() const { return m_Loaded.files; }

private:
    const VEXMELKConfigManager::Configuration& m_Configuration;
    CATUnicodeString m_Directory;
    VEXMELKLoaded m_Loaded;
};

// Whether any question has another answer than the one in its place, as the documents of the trial are now. Those
// questions that are the likeliest, given by their numbers, are asked first.
bool VEXMELKAnyAnswerChanges(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKTrial& trial,
    const std::vector<VEXMELKPreparedQuestion>& questions, const std::vector<VEXMELKFlatAnswer>& answers,
    const std::vector<std::size_t>& likeliest = {});

// A text or an element of a file that no answer depends on.
struct VEXMELKUnusedText
{
    std::string file;
    VEXMELKPosition position; // of the attribute's value, or of the element's tag
    std::string path;
    std::string attribute; // empty for a whole element
    std::string reason;
};

std::vector<VEXMELKUnusedText> VEXMELKUnused(
    const VEXMELKConfigManager::Configuration& configuration, const CATUnicodeString& directory);

#endif
