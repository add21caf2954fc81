// Schemas in XML Schema 1.0. It cannot say all that RELAX NG can:
//
//     tags of roots         only those that are named
//     free tags             any element; those that are named have attributes that are looked at
//     at most one element   only where no element may be repeated
//     attributes by type    every type has all of them
//
// On the other hand it says which elements differ by a name.
#ifndef VEXMELKXmlSchema_H
#define VEXMELKXmlSchema_H

#include "VEXMELKGrammar.h"

#include <set>

// The tags that may be chosen freely, as far as somebody has chosen.
struct VEXMELKFreeTags
{
    std::set<std::string> roots;
    std::set<std::string> others;
};

// The usual tag of the root, and what the files in the directory have.
VEXMELKFreeTags VEXMELKFreeTagsOf(const VEXMELKGrammar& grammar, const CATUnicodeString& directory);

std::string VEXMELKXmlSchema(const VEXMELKGrammar& grammar, const VEXMELKFreeTags& tags);

#endif
