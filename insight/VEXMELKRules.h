// The rules by which files are checked.
#ifndef VEXMELKRules_H
#define VEXMELKRules_H

#include <span>
#include <string>
#include <string_view>

enum class VEXMELKLevel : unsigned char
{
    Error,   // the file does not say what it was meant to say
    Warning, // it hardly can be meant so
    Note     // worth a look
};

struct VEXMELKRule
{
    std::string_view id;
    VEXMELKLevel level; // findings may be milder
    std::string_view title;
    std::string_view text; // what is wrong and what comes of it
    std::string_view bad;  // an example, and how it is written right
    std::string_view good;
};

// "error", "warning", "note".
std::string_view VEXMELKNameOf(VEXMELKLevel level);

// In the order in which people read of them.
std::span<const VEXMELKRule> VEXMELKRules();
// Null when there is none.
const VEXMELKRule* VEXMELKFindRule(std::string_view id);
// The page of a rule, in Markdown.
std::string VEXMELKPageOf(const VEXMELKRule& rule);

#endif
