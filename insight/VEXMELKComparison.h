// What changes in the answers of one directory when it becomes another one.
#ifndef VEXMELKComparison_H
#define VEXMELKComparison_H

#include "VEXMELKPlacedAnswers.h"

enum class VEXMELKChangeKind : unsigned char
{
    Changed, // another value
    Added,   // there was no answer, or no such value in it
    Removed,
    Moved,  // the same value, written elsewhere
    Written // written otherwise, without effect
};

// "changed", "added", "removed", "moved", "written".
std::string_view VEXMELKNameOf(VEXMELKChangeKind kind);

// A place with who answers there: the category's name, or else that of the file's folder.
struct VEXMELKChangedSide
{
    std::optional<VEXMELKPlainValue> value; // nothing when there is no such value
    std::optional<VEXMELKAmount> amount;    // of a number or quantity
    std::string file;                       // empty without a place
    VEXMELKPosition position;
    std::string text; // as it is written there
    std::string category;

    bool HasPlace() const { return !file.empty(); }
};

struct VEXMELKChange
{
    const VEXMELKConfigManager::Configuration* configuration = nullptr;
    // Nothing for a text that no answer depends on: "field" is then its path, and the values are the texts.
    std::optional<VEXMELKPreparedQuestion> question;
    std::string field; // "result" when the result itself changes
    VEXMELKChangeKind kind = VEXMELKChangeKind::Changed;
    VEXMELKChangedSide before;
    VEXMELKChangedSide after;
    std::optional<double> percent; // by which a number or quantity has grown
    bool isSecret = false;
};

struct VEXMELKComparison
{
    std::size_t questions = 0;
    std::size_t leftOut = 0; // questions: see VEXMELKAllQuestions
    // Texts that differ and were not tried, because there are too many: see VEXMELKTextChanges.
    std::size_t textsLeftOut = 0;
    std::vector<VEXMELKChange> changes;
};

struct VEXMELKComparisonScope
{
    std::vector<const VEXMELKConfigManager::Configuration*> configurations = {}; // all when empty
    // Values that stay are told too when they are moved or written otherwise, and texts that no answer depends on.
    bool hasMoves = false;
    // Where no single text holds a value, such as a result, the text that chooses it is looked for by trials, for the
    // first changes of many.
    bool hasChoices = false;
    std::function<void(std::size_t, std::size_t, const std::string&)> onQuestion = {};
};

// Asks both all questions that the files of either make meaningful.
VEXMELKComparison VEXMELKCompare(
    const VEXMELKSource& before, const VEXMELKSource& after, const VEXMELKComparisonScope& scope = {});

#endif
