// Turning the texts of files into numbers.
#ifndef VEXMELKValues_H
#define VEXMELKValues_H

#include "CATUnicodeString.h"
#include "VEXMELKRow.h"

// The number that a text without a unit begins with, in either comma setting; 0 when there is none.
double NumberFromText(std::string_view text);

// Lengths and angles; 0 for a text that is none, and past the range of a double.
double MetresFromText(std::string_view text);
double MillimetresFromText(std::string_view text);
double RadiansFromText(std::string_view text);

// True exactly for "TRUE" in any letter case.
bool FlagFromText(std::string_view text);

// What a text becomes, in the form that a row hands out: a number as it is written in a file, where a bare one gets the
// unit. The same number as of the text that NormalizedValue gives.
double NumberOfForm(VEXMELKForm form, std::string_view unit, bool writesCommas, std::string_view written);

// The text without blanks at its ends, with "," for "." when the application writes commas, with the unit when it ends
// in a digit, and without "%" when the unit is "%".
CATUnicodeString NormalizedValue(std::string_view unit, bool writesCommas, std::string_view text);
void AssignNormalized(std::string_view unit, bool writesCommas, std::string_view text, CATUnicodeString& value);

#endif
