// Quantities: numbers with a unit, as the knowledge parameters read them. Every conversion of a text into metres,
// radians or a plain number goes through here, so that a length read twice is the same number twice.
//
// The grammar: blanks, an optional sign, a decimal number with "." or "," and an optional exponent ("5." and ".5"
// are numbers), blanks, an optional unit, blanks, nothing else. Letter case matters in units. Each function returns
// false, with the output untouched, for any other text, for a unit of another dimension, and for a value past a
// double's range, as it is written or in the unit that it is held in.
#ifndef CATQuantity_H
#define CATQuantity_H

#include "VEXMELKConfigurationExport.h"

#include <string_view>
#include <vector>

// Units "mm", "cm", "dm", "m", "km", "in", "ft", "mic" (micrometre); a bare number counts as millimetres.
ExportedByVEXMELKConfiguration bool CATLengthFromText(std::string_view text, double& metres);

// Units "deg", "rad", "grad", "turn"; a bare number counts as degrees.
ExportedByVEXMELKConfiguration bool CATAngleFromText(std::string_view text, double& radians);

// The same, as long as no comma is in the text: the quicker question where most texts have none.
bool CATPlainLengthFromText(std::string_view text, double& metres);
bool CATPlainAngleFromText(std::string_view text, double& radians);

// The symbols of these units.
ExportedByVEXMELKConfiguration std::vector<std::string_view> CATLengthUnits();
ExportedByVEXMELKConfiguration std::vector<std::string_view> CATAngleUnits();

// No unit.
ExportedByVEXMELKConfiguration bool CATRealFromText(std::string_view text, double& value);

#endif
