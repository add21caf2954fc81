// Answers with the places of the texts that they are made of, for whoever asks very many questions.
//
// The places come from watching the look-ups: what a row reads into a field is where the field's value stands. Where
// that leaves a doubt, the texts that the question read are tried one by one, as VEXMELKOrigins does.
#ifndef VEXMELKPlacedAnswers_H
#define VEXMELKPlacedAnswers_H

#include "VEXMELKAllQuestions.h"
#include "VEXMELKAnswers.h"

#include <map>
#include <set>
#include <unordered_map>

struct VEXMELKPlacedValue
{
    enum Level
    {
        Customer,
        Default,
        FallBack, // a category "default", in whatever file, stands in for the one that was asked for
        BuiltIn,  // the reader's own, or the caller's
        Single    // of a file that is neither in Default nor in Customer
    };
    VEXMELKNamedValue named;
    const VEXMELKRow* row = nullptr; // that reads it; null when none does
    Level level = BuiltIn;
    // The text: without a place all of these are empty.
    std::string file; // below the directory, with "/"
    VEXMELKPosition position;
    CATIDOMElement_var element;
    std::string_view attribute; // empty for the text of an element
    bool isTried = false;       // the place was found by trials

    bool HasPlace() const { return element != NULL_var; }
    // As it is written: of the attribute, or of the element.
    std::string Text() const;
};

// "Customer", "Default", "default", "builtin", "single".
std::string_view VEXMELKNameOf(VEXMELKPlacedValue::Level level);

// The value in metres, radians or as a plain number; nothing for words, names, flags and other texts.
struct VEXMELKAmount
{
    double number = 0.0;
    std::string_view unit = {}; // "m", "rad", or empty
};
std::optional<VEXMELKAmount> VEXMELKAmountIn(const VEXMELKPlacedValue& value);

struct VEXMELKPlacedAnswer
{
    VEXMELKPlainValue result;
    // The result, and the outputs.
    std::vector<VEXMELKPlacedValue> values;
    // The outputs that are no answer: the question answered false and left them as they were.
    std::vector<VEXMELKNamedValue> left;

    bool IsFalse() const { return result == VEXMELKPlainValue(false); }
    // Null when there is none.
    const VEXMELKPlacedValue* Find(std::string_view field) const;
};

class VEXMELKPlacedAsker
{
public:
    VEXMELKPlacedAsker(const VEXMELKConfigManager::Configuration& configuration, const VEXMELKSource& source);

    const VEXMELKConfigManager::Configuration& Configuration() const { return m_Configuration; }
    // None when they do not load.
    const std::vector<VEXMELKSourceFile>& Files() const { return m_Asker.Files(); }
    VEXMELKPlacedAnswer Ask(const VEXMELKAskable& askable);

private:
    class Watcher;
    class Matcher;

    void FindInFile(VEXMELKPlacedValue& value, const std::vector<VEXMELKSourceFile>& files,
        const std::optional<std::string>& category);
    void TryFor(const VEXMELKAskable& askable, const Watcher& watcher, VEXMELKPlacedAnswer& answer,
        const std::set<std::size_t>& unplaced);
    std::pair<CATIDOMElement_var, std::string_view> PlaceIn(
        const VEXMELKExplanation& explanation, const std::string& field) const;
    VEXMELKTrial& TrialFor(const std::optional<std::string>& standard);

    static constexpr std::size_t mostTried = 10000;

    const VEXMELKConfigManager::Configuration& m_Configuration;
    VEXMELKSource m_Source;
    VEXMELKLastingRows m_Rows;
    VEXMELKAsker m_Asker;
    VEXMELKFilePlaces m_Places;
    std::unordered_map<std::string_view, CATIDOMElement_var> m_Standards; // those that count, by name
    // The last one: questions about a standard mostly follow each other.
    std::unique_ptr<VEXMELKTrial> m_Trial;
    std::optional<std::string> m_TrialStandard;
    // What trials have found, by what was read: element and attribute of each value that was in doubt.
    std::map<std::vector<std::uintptr_t>, std::vector<std::pair<CATIDOMElement_var, std::string_view>>> m_Tried;
};

// All questions that the files of these askers of one configuration make meaningful.
std::vector<VEXMELKPreparedQuestion> VEXMELKAllQuestions(
    const std::vector<const VEXMELKPlacedAsker*>& askers, std::size_t* leftOut = nullptr);

// Whether the configuration has a file there, whatever is in it.
bool VEXMELKHasFile(const VEXMELKDescription& description, const CATUnicodeString& directory);

// The configurations that can be asked, of these, or of all when there are none.
std::vector<const VEXMELKConfigManager::Configuration*> VEXMELKAskedConfigurations(
    const std::vector<const VEXMELKConfigManager::Configuration*>& wanted);

#endif
