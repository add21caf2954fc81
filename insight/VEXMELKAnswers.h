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
    VEXMELKAsker(const VEXMELKConfigManager::Configuration& configuration, const CATUnicodeString& directory);
    VEXMELKFlatAnswer Ask(const VEXMELKAskable& askable) const;

private:
    const VEXMELKConfigManager::Configuration& m_Configuration;
    CATUnicodeString m_Directory;
    CATHandle<VEXMELKConfig> m_Loaded;
};

// A value of an answer that is another one in the other directory.
struct VEXMELKChange
{
    const VEXMELKConfigManager::Configuration* configuration = nullptr;
    VEXMELKPreparedQuestion question;
    std::string field;
    std::optional<VEXMELKPlainValue> before; // nothing when there is no such field
    std::optional<VEXMELKPlainValue> after;
    std::string unit;              // see UnitShown
    std::optional<double> percent; // by which a number or quantity has grown
    // What decides the value; nothing for values that no file decides, and after the first changes of many.
    std::optional<VEXMELKOriginPlace> placeBefore;
    std::optional<VEXMELKOriginPlace> placeAfter;
};

struct VEXMELKComparison
{
    std::size_t questions = 0;
    std::vector<VEXMELKChange> changes;
};

// Asks both directories all questions that the files of either make meaningful.
VEXMELKComparison VEXMELKCompare(const CATUnicodeString& before, const CATUnicodeString& after);

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
