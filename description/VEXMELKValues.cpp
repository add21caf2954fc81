// Numbers, lengths, angles and flags out of texts, each in one place. Usual texts are read as they stand in the file;
// what is unusual about others shows only in the text that they are handed out as.
#include "VEXMELKValues.h"

#include "CATNumberText.h"
#include "CATQuantity.h"
#include "VEXMELKUtilities.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

// What is past a double's range in millimetres is no number there, and so reads 0.
double MillimetresFromMetres(double metres)
{
    const double millimetres = metres * 1000.0;
    return std::isinf(millimetres) ? 0.0 : millimetres;
}

double NumberOfText(VEXMELKForm form, std::string_view text)
{
    switch (form)
    {
    case VEXMELKForm::Fraction:
        return NumberFromText(text) / 100.0;
    case VEXMELKForm::Millimetres:
        return MillimetresFromText(text);
    case VEXMELKForm::Metres:
        return MetresFromText(text);
    case VEXMELKForm::Radians:
        return RadiansFromText(text);
    default:
        return NumberFromText(text);
    }
}

// The number of a text without commas, where neither the unit that a bare number gets nor the application's separator
// makes a difference; none when that cannot be told.
std::optional<double> PlainNumber(VEXMELKForm form, std::string_view unit, std::string_view text)
{
    double number = 0.0;
    // The unit that a bare number counts as anyway makes no difference to it.
    const bool isBare = !text.empty() && CATIsDigit(text.back());
    const auto countsAs = [&](std::string_view usual) { return !isBare || unit.empty() || CATTextEqual(unit, usual); };
    switch (form)
    {
    case VEXMELKForm::Millimetres:
    case VEXMELKForm::Metres:
        if (!countsAs("mm") || !CATPlainLengthFromText(text, number))
            return std::nullopt;
        return form == VEXMELKForm::Metres ? number : MillimetresFromMetres(number);
    case VEXMELKForm::Radians:
        if (!countsAs("deg") || !CATPlainAngleFromText(text, number))
            return std::nullopt;
        return number;
    default:
        // What follows the number is not read, but a comma is a point, and "%" is taken out where it is the unit.
        if (!CATTakeNumber(text, number) || text.starts_with(',') || (unit == "%" && !text.empty() && text != unit))
            return std::nullopt;
        return form == VEXMELKForm::Fraction ? number / 100.0 : number;
    }
}

} // namespace

double NumberFromText(std::string_view text)
{
    double number = 0.0;
    CATUnicodeString pointed(text);
    VEXMELKUtilities::AlterStringBecauseOfDelimeter(pointed);
    pointed.ConvertToNum(&number, "%le");
    return number;
}

double MetresFromText(std::string_view text)
{
    double metres = 0.0;
    CATLengthFromText(text, metres);
    return metres;
}

double MillimetresFromText(std::string_view text) { return MillimetresFromMetres(MetresFromText(text)); }

double RadiansFromText(std::string_view text)
{
    double radians = 0.0;
    CATAngleFromText(text, radians);
    return radians;
}

bool FlagFromText(std::string_view text)
{
    // Letters outside of ASCII have none of these as their upper case.
    constexpr std::string_view word = "TRUE";
    const auto isSame = [](char letter, char upper) { return letter == upper || letter == upper - 'A' + 'a'; };
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), isSame);
}

double NumberOfForm(VEXMELKForm form, std::string_view unit, bool writesCommas, std::string_view written)
{
    if (const std::optional<double> number = PlainNumber(form, unit, CATStripped(written)))
        return *number;
    return NumberOfText(form, NormalizedValue(unit, writesCommas, written));
}

CATUnicodeString NormalizedValue(std::string_view unit, bool writesCommas, std::string_view text)
{
    CATUnicodeString value;
    AssignNormalized(unit, writesCommas, text, value);
    return value;
}

// The unit goes behind the separator's change and "%" away at last: "%" as a unit is appended to be removed.
void AssignNormalized(std::string_view unit, bool writesCommas, std::string_view text, CATUnicodeString& value)
{
    const std::string_view stripped = CATStripped(text);
    const bool isBare = !stripped.empty() && CATIsDigit(stripped.back());
    value = stripped;
    if (writesCommas)
        value.ReplaceAll('.', ',');
    if (isBare)
        value.Append(unit);
    if (unit == "%")
        value.RemoveAll('%');
}
