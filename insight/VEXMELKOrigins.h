// Where the values of an answer come from: the places in the files that decide them, and what they hide.
//
// VEXMELKCall.h is the way for a check that has asked; the functions here are for questions of any kind.
//
// Origins are proven, not guessed: each text that the question read is replaced in memory, a fresh object is asked
// again, and what changes the answer decides it. The files are read anew for that. Neither they nor the objects of the
// host are touched, and queries that nobody explains pay nothing for it.
#ifndef VEXMELKOrigins_H
#define VEXMELKOrigins_H

#include "VEXMELKFilePlaces.h"
#include "VEXMELKTrial.h"

#include <set>

struct VEXMELKOriginPlace
{
    enum Role
    {
        Value,  // the text that the value is made of
        Choice, // a text that chooses it: a name that was matched, the key of a row
        Hidden  // a text that would count if another did not stand before it
    };
    Role role = Value;
    // Which rule brought it there: "own", "default", "overlay", "element", "customer", "root", "dtd", "carried";
    // without a place "kept" (the caller's value) or "builtin" (the reader's own default).
    std::string how;
    std::string file;         // below the configuration directory, with "/"; empty without a place
    VEXMELKPosition position; // of the text's first character
    CATIDOMElement_var element;
    std::string path;      // of the element
    std::string attribute; // empty for the text of an element
    std::string text;      // as written
    bool isSecret = false; // the text is not to be shown
    std::string why;       // the rule in words
};

struct VEXMELKOrigin
{
    VEXMELKNamedValue value;
    std::vector<VEXMELKOriginPlace> places;
};

struct VEXMELKExplanation
{
    VEXMELKPlainValue result;
    std::string reason; // why the answer is false, or not that of the names that were asked for; else empty
    std::vector<VEXMELKOrigin> fields;
    // Texts that were not looked at, because the files are too large for all of them.
    std::size_t leftOut = 0;
    // The files no longer give the answer that was got: no places are told.
    bool filesHaveChanged = false;

    // By the name of a field ("definition.FrontOffset"); null when there is none.
    const VEXMELKOrigin* OriginOf(std::string_view field) const;
    // Compares with an answer that was got before the files were read for this.
    void CompareWith(const VEXMELKFlatAnswer& answer);
};

VEXMELKExplanation VEXMELKExplain(const VEXMELKConfigManager::Configuration& configuration,
    const VEXMELKAskable& askable, const CATUnicodeString& directory);

// The same for one of many questions, which share the trial and the places of the files.
VEXMELKExplanation VEXMELKExplain(const VEXMELKDescription& description, const VEXMELKAskable& askable,
    VEXMELKTrial& trial, VEXMELKFilePlaces& places);

// The values of some fields alone, for many questions over one trial: only texts that the question read are tried, and
// where these do not decide a field, the keys around them. Neither choices are told, nor a reason, nor which values are
// the caller's.
VEXMELKExplanation VEXMELKExplainByReads(const VEXMELKDescription& description, const VEXMELKAskable& askable,
    VEXMELKTrial& trial, VEXMELKFilePlaces& places, const std::set<std::string>& fields);

// The text of the first argument with the role; nothing when the question has none.
std::optional<std::string> VEXMELKArgumentOf(const VEXMELKAskable& askable, VEXMELKRole role);

// A look-up on the way to an answer.
struct VEXMELKStep
{
    std::string what; // "<category> below /configuration/standard[name='S']", "front_offset of /configuration/..."
    bool isHit = false;
    std::string file; // of a hit, with the place of the element or text that was found
    VEXMELKPosition position;
    std::string text; // of an attribute
};

// Every look-up of a question, in the order in which they are tried. Those by the name of a standard or category go by
// an index and are not among them.
std::vector<VEXMELKStep> VEXMELKSteps(const VEXMELKConfigManager::Configuration& configuration,
    const VEXMELKAskable& askable, const CATUnicodeString& directory);

// Why a question is answered with false, or by another category than was asked for; empty when there is nothing to say.
std::string VEXMELKReason(const VEXMELKTrial& trial, const VEXMELKAskable& askable, const VEXMELKFlatAnswer& answer);

#endif
