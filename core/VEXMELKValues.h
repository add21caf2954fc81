// Turning the texts of files into numbers.
#ifndef VEXMELKValues_H
#define VEXMELKValues_H

#include "CATUnicodeString.h"

// The number that a text without a unit begins with, in either comma setting; 0 when there is none.
double NumberFromText(CATUnicodeString text);

// Quantities as the application's utilities read them; 0 for a text that is none, and past the range of a double.
double MetresFromText(const CATUnicodeString& text);
double MillimetresFromText(const CATUnicodeString& text);
double RadiansFromText(const CATUnicodeString& text);

// Quantities as the platform's knowledge parameters read them; 0 for a text that is none, and past the range of a
// double.
double ParameterMillimetres(const CATUnicodeString& text, const char* parameterName = "volatile_length");
double ParameterRadians(const CATUnicodeString& text, const char* parameterName = "volatile_angle");

#endif
