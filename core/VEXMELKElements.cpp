// The walks that are too long for the header.
#include "VEXMELKElements.h"

#include <algorithm>
#include <unordered_set>

void AppendMissing(CATListValCATUnicodeString& list, const CATListValCATUnicodeString& names)
{
    if (names.Size() == 0)
        return;
    std::unordered_set<CATUnicodeString> held(list.begin(), list.end());
    for (const CATUnicodeString& name : names)
        if (held.insert(name).second)
            list.Append(name);
}

CATIDOMElement_var FirstBelow(const CATIDOMElement_var& parent, const std::vector<CATIDOMElement_var>& elements)
{
    const auto found = std::lower_bound(elements.begin(), elements.end(), parent,
        [](const CATIDOMElement_var& element, const CATIDOMElement_var& after) { return !after->IsBefore(element); });
    return found != elements.end() && parent->Contains(*found) ? *found : CATIDOMElement_var();
}
