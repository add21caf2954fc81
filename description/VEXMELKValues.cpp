// Numbers, lengths, angles and flags out of texts, each in one place.
#include "VEXMELKValues.h"

#include "VEXMELKUtilities.h"

#include <cmath>

namespace {

// What is past a double's range in millimetres is no number there, and so reads 0.
double MillimetresFromMetres(double metres)
{
    const double millimetres = metres * 1000.0;
    return std::isinf(millimetres) ? 0.0 : millimetres;
}

} // namespace

double NumberFromText(CATUnicodeString text)
{
    double number = 0.0;
    VEXMELKUtilities::AlterStringBecauseOfDelimeter(text);
    text.ConvertToNum(&number, "%le");
    return number;
}

double MetresFromText(const CATUnicodeString& text) { return VEXMELKUtilities::GetValueInMeters(text); }

double MillimetresFromText(const CATUnicodeString& text) { return MillimetresFromMetres(MetresFromText(text)); }

double RadiansFromText(const CATUnicodeString& text) { return VEXMELKUtilities::GetValueInRadians(text); }

bool FlagFromText(const CATUnicodeString& text)
{
    CATUnicodeString upper = text;
    upper.ToUpper();
    return upper == "TRUE";
}
