// The known name that somebody may have meant.
#ifndef VEXMELKSuggestions_H
#define VEXMELKSuggestions_H

#include <string>
#include <string_view>
#include <vector>

// Those of the known names that are nearest, letter case left aside: three at most. None when none is known, or the
// name is too long to compare.
std::vector<std::string> VEXMELKNearest(std::string_view name, std::vector<std::string> known);

// The one of the known names that is so near that it must have been meant; empty when there is none, or several.
std::string VEXMELKMeant(std::string_view name, const std::vector<std::string>& known);

#endif
