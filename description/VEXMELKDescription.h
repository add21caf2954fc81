// What a configuration's file consists of: its elements with the rows that are read from them, and the operations that
// read them.
#ifndef VEXMELKDescription_H
#define VEXMELKDescription_H

#include "VEXMELKQuestion.h"
#include "VEXMELKRow.h"

// Where an element stands below another.
enum class VEXMELKPlace : unsigned char
{
    Child, // its parent has the tag of the other: see VEXMELKElements.h
    AnyDepth
};

// Which of several elements count.
enum class VEXMELKChoice : unsigned char
{
    First,
    Last,
    Each,
    Single,          // the only one; several count as none
    ByKey,           // the first with the key
    NearestAngle,    // that with the angle nearest to one given
    LengthBelow,     // that with the largest length not above one given
    NearestTravel,   // that with the travel nearest to one given
    Coeficients1997, // the row rules: see VEXMELKTravelChoice
    Radii1997,
    Radii2002,
    HeadContour
};

// What stands in for what a category does not have.
enum class VEXMELKFallBack : unsigned char
{
    None,
    ValueByValue,  // each attribute that is missing is that of "default"
    WholeElement,  // a missing element is that of "default", whole
    WholeCategory, // only a category that does not exist is replaced by "default"
    Overlay,       // elements of "default" are read first, those of the category over them
    Other          // as the reader's own rules say
};

struct VEXMELKElement
{
    std::string_view tag = {};             // "*": any
    const VEXMELKElement* below = nullptr; // null: the root of the document
    VEXMELKPlace place = VEXMELKPlace::Child;
    VEXMELKChoice choice = VEXMELKChoice::First;
    VEXMELKFallBack fallBack = VEXMELKFallBack::None;
    const VEXMELKRow* key = nullptr; // what it is found by
    std::array<VEXMELKRows, 4> tables{};
    std::string_view meaning = {}; // for people
    std::string_view whenMissing = {};
    bool hasText = false; // its text is read
};

enum class VEXMELKLayout : unsigned char
{
    Parts, // in the folders "Default" and "Customer", or in the directory itself
    Single // always in the directory itself
};

struct VEXMELKDescription
{
    std::string_view name = {};    // "UFCurb"
    std::string_view file = {};    // below the configuration directory, with "\"; empty when its creator gives it
    std::string_view meaning = {}; // for people
    std::span<const VEXMELKElement* const> elements = {}; // in the order in which people read of them
    std::span<const VEXMELKOperation> operations = {};
    const VEXMELKDescription* base = nullptr; // what the class inherits
    VEXMELKLayout layout = VEXMELKLayout::Parts;
    std::string_view root = "configuration"; // the usual tag of the root; any other is read as well
};

#endif
