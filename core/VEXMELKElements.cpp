#include "VEXMELKElements.h"

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
