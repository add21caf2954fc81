// Schemas in RELAX NG, in its XML syntax and in its compact one.
#ifndef VEXMELKRelaxNG_H
#define VEXMELKRelaxNG_H

#include "VEXMELKGrammar.h"

std::string VEXMELKRelaxNG(const VEXMELKGrammar& grammar);
std::string VEXMELKRelaxNGCompact(const VEXMELKGrammar& grammar);

#endif
