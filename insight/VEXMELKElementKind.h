// What descriptions say of the elements at one place of a file: their attributes, and which of several elements count.
#ifndef VEXMELKElementKind_H
#define VEXMELKElementKind_H

#include "VEXMELKDescription.h"

#include <vector>

// How much a description says about which of several elements counts, from little to much.
enum class VEXMELKTwins
{
    Nothing, // the root, and what only counts elements
    One,     // one of them
    Each,
    Overlay, // each, those of one key over each other
    ByKey,   // the first of a key
    ByRow    // rows: the first of an amount
};
VEXMELKTwins VEXMELKTwinsOf(const VEXMELKElement& element);

// Elements that stand at the same place of a description: all that is said of them.
struct VEXMELKElementKind
{
    struct Attribute
    {
        std::string_view name;
        std::vector<const VEXMELKRow*> rows; // several may read it
    };
    std::vector<const VEXMELKElement*> described;
    std::vector<Attribute> attributes;
    // False when it is only among elements whose tags are free and nothing is read from them.
    bool isKnown = false;

    VEXMELKElementKind() = default;
    explicit VEXMELKElementKind(std::vector<const VEXMELKElement*> elements);

    const Attribute* Find(std::string_view attribute) const;
    // The described element with the tag, at any depth or not; null when it is none.
    const VEXMELKElement* As(std::string_view tag) const;
    // The one that says most about which of several counts; null when none does.
    const VEXMELKElement* Ruling() const;
    // Whether an element without the attribute is never found.
    bool IsFoundBy(const Attribute& attribute) const;
    // Whether an element is of no use without the attribute.
    bool Needs(const Attribute& attribute) const;
};

#endif
