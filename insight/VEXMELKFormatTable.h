// The reference of a configuration's file for people, from its description.
#ifndef VEXMELKFormatTable_H
#define VEXMELKFormatTable_H

#include "VEXMELKDescription.h"

#include <string>

// A table in Markdown: the elements and attributes that the configuration's own operations read, with units, meanings,
// and what a missing one gives. What all files have in common is not in it. Ends with a new line.
std::string VEXMELKFormatTable(const VEXMELKDescription& description);

#endif
