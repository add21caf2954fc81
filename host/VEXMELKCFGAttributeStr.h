// One editable attribute of a check, and the list of them.
#ifndef VEXMELKCFGAttributeStr_H
#define VEXMELKCFGAttributeStr_H

#include "CATListOf.h"
#include "VEXMELKAttrAccessBase.h"

#include <cstdint>

// The access objects belong to the caller; each may be null.
struct VEXMELKCFGAttributeStr
{
    enum Kind : std::int32_t
    {
        SimpleValue = 0,
        ListValue = 1,
        ColorRanges = 2
    };

    std::int32_t kind = SimpleValue;
    CATUnicodeString name; // matched against the "name" of a "parameter" element
    // Simple: holds the value; list: holds the list; colour ranges: receives the ranges.
    VEXMELKAttrAccessBase* firstAccess = nullptr;
    // Colour ranges only: the companion handed to each added range.
    VEXMELKAttrAccessBase* secondAccess = nullptr;
    // Colour ranges only: holds the "useInterpolation" switch.
    VEXMELKAttrAccessBase* thirdAccess = nullptr;
};

using CATListValVEXMELKCFGAttributeStr = CATListOf<VEXMELKCFGAttributeStr>;

#endif
