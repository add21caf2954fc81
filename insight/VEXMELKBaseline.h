// The Default values that the values of Customer files were made against, kept in a file of their own beside these.
//
// Each line is the way to a Customer value, a tab, and the Default value; no tab where the Default file has none. A
// line
// "[OVA/UFCurb.xml]" says to which file those below it belong, and "#" begins a comment. In texts "\t", "\n" and "\\"
// stand for a tab, a line end and a backslash.
#ifndef VEXMELKBaseline_H
#define VEXMELKBaseline_H

#include <map>
#include <optional>
#include <string>

class CATUnicodeString;

inline constexpr const char* VEXMELKBaselineFile = "Customer/accepted-defaults.txt";

// By the file's name below Default, and by the way: "/standard[S]/category[suv] front_offset".
using VEXMELKBaseline = std::map<std::string, std::map<std::string, std::optional<std::string>>>;

// What Customer values replace now.
VEXMELKBaseline VEXMELKCurrentBaseline(const CATUnicodeString& directory);

std::string VEXMELKBaselineText(const VEXMELKBaseline& baseline);
// Lines that are none of these forms are left out.
VEXMELKBaseline VEXMELKReadBaseline(const std::string& text);
// The one of a directory; nothing when it has none.
std::optional<VEXMELKBaseline> VEXMELKLoadBaseline(const std::string& directory);

#endif
