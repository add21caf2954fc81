// The texts that an attribute may have, as words and a regular expression: what schemas say of it. A text that the
// rules of check call a mistake is refused as far as an expression can tell; one that they let pass is never refused.
#ifndef VEXMELKValueType_H
#define VEXMELKValueType_H

#include "VEXMELKRow.h"

#include <string>
#include <vector>

struct VEXMELKValueType
{
    std::string name;               // "lengthNotNegative"
    std::vector<std::string> words; // that may stand as they are
    std::string pattern;            // other texts, as XML Schema writes expressions; empty when there are none
    bool isAnyText = false;         // there is no pattern: every text may stand
    bool isAsWritten = false;       // blanks around it are a part of it

    bool IsSame(const VEXMELKValueType& other) const;
};

// Several rows may read the attribute; what one of them takes may stand.
VEXMELKValueType VEXMELKValueTypeOf(const std::vector<const VEXMELKRow*>& rows);

// The units of a length or an angle.
std::vector<std::string> VEXMELKUnitsOf(VEXMELKKind kind);
// Whether a length or an angle may stand without a unit.
bool VEXMELKMayBeBare(const VEXMELKRow& row);
bool VEXMELKIsQuantity(VEXMELKKind kind);

#endif
