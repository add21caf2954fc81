// What every reader includes: tables, descriptions, look-ups, and the frame of its operations.
#ifndef VEXMELKReader_H
#define VEXMELKReader_H

#include "VEXMELKAnswer.h"
#include "VEXMELKCommonElements.h"
#include "VEXMELKLookUp.h"
#include "VEXMELKReadFields.h"
#include "VEXMELKValues.h"

using namespace VEXMELKRowKinds;
using namespace VEXMELKParameters;
using VEXMELKCommon::CategoryWith;

template <class Table, class... Fields>
unsigned char VEXMELKConfig::ReadCategory(
    const CATUnicodeString& standard, const CATUnicodeString& category, const Table& table, Fields&... fields)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMNamedNodeMap_var map = GetCategoryAttributeMap(standard, category, defaultMap);
            if (map == NULL_var && defaultMap == NULL_var)
                return 0;
            ReadFields(Decimals(), map, defaultMap, table, fields...);
            return 1;
        });
}

#endif
