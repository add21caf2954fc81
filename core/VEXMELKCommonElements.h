// The elements that all files have in common.
#ifndef VEXMELKCommonElements_H
#define VEXMELKCommonElements_H

#include "VEXMELKDescription.h"

namespace VEXMELKCommon {

using namespace VEXMELKRowKinds;

inline constexpr VEXMELKRow standardName = Text("name", "the name of the standard", AsWritten(), Skip);
inline constexpr VEXMELKRow categoryName = Text("name", "the name of the category", AsWritten(), Skip);

// The standards, with the rows that a configuration reads from them.
constexpr VEXMELKElement StandardWith(VEXMELKRows rows, VEXMELKRows others = {})
{
    return {.tag = "standard",
        .choice = VEXMELKChoice::ByKey,
        .key = &standardName,
        .tables = {rows, others},
        .meaning = "a standard"};
}
inline constexpr VEXMELKElement standards = StandardWith({});

// The categories of the standards, with the rows that a configuration reads from them.
constexpr VEXMELKElement CategoryWith(
    VEXMELKRows rows, VEXMELKFallBack fallBack = VEXMELKFallBack::ValueByValue, VEXMELKRows others = {})
{
    return {.tag = "category",
        .below = &standards,
        .choice = VEXMELKChoice::ByKey,
        .fallBack = fallBack,
        .key = &categoryName,
        .tables = {rows, others},
        .meaning = "a vehicle category"};
}
inline constexpr VEXMELKElement categories = CategoryWith({});

} // namespace VEXMELKCommon

#endif
