// The mends of findings, as a patch or in place.
#ifndef MELKCFG_Patch_H
#define MELKCFG_Patch_H

#include "Json.h"
#include "VEXMELKCheck.h"

#include <iosfwd>

// Both give the number of findings that are mended, and throw RequestError when a file cannot be read or written. Of
// mends that overlap the first is taken; the others are found again afterwards.
std::size_t PrintFixes(std::ostream& stream, const std::vector<VEXMELKFinding>& findings, const std::string& directory);
std::size_t WriteFixes(const std::vector<VEXMELKFinding>& findings, const std::string& directory);

// The same as data: of each file its edits, by lines and columns, and its other name.
Json FixesToJson(const std::vector<VEXMELKFinding>& findings, const std::string& directory);

#endif
