// Numbers, lengths, angles and flags out of texts, each in one place.
#include "VEXMELKValues.h"

#include "VEXMELKUtilities.h"

namespace {

constexpr double millimetresPerMetre = 1000.0;

} // namespace

double NumberFromText(CATUnicodeString text)
{
    double number = 0.0;
    VEXMELKUtilities::AlterStringBecauseOfDelimeter(text);
    text.ConvertToNum(&number, "%le");
    return number;
}

double MetresFromText(const CATUnicodeString& text) { return VEXMELKUtilities::GetValueInMeters(text); }

double MillimetresFromText(const CATUnicodeString& text) { return MetresFromText(text) * millimetresPerMetre; }

double RadiansFromText(const CATUnicodeString& text) { return VEXMELKUtilities::GetValueInRadians(text); }

bool FlagFromText(const CATUnicodeString& text)
{
    CATUnicodeString upper = text;
    upper.ToUpper();
    return upper == "TRUE";
}
