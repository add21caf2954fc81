// Turning the texts of files into numbers.
#ifndef VEXMELKValues_H
#define VEXMELKValues_H

#include "CATUnicodeString.h"

// The number that a text without a unit begins with, in either comma setting; 0 when there is none.
double NumberFromText(CATUnicodeString text);

// Lengths and angles; 0 for a text that is none, and past the range of a double.
double MetresFromText(const CATUnicodeString& text);
double MillimetresFromText(const CATUnicodeString& text);
double RadiansFromText(const CATUnicodeString& text);

// True exactly for "TRUE" in any letter case.
bool FlagFromText(const CATUnicodeString& text);

#endif
