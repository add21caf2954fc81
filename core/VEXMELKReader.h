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

// Reads a table from a category of a standard, and from its "default" what the category leaves out. False, with the
// fields untouched, when the standard has no data for it.
template <class Table, class... Fields>
unsigned char ReadCategory(VEXMELKConfig& config, const CATUnicodeString& standard, const CATUnicodeString& category,
    VEXMELKDecimals decimals, const Table& table, Fields&... fields)
{
    return Answer(config,
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMNamedNodeMap_var map =
                VEXMELKQuery::CategoryAttributes(config, standard, category, defaultMap);
            if (map == NULL_var && defaultMap == NULL_var)
                return 0;
            ReadFields(decimals, map, defaultMap, table, fields...);
            return 1;
        });
}

#endif
