#include "VEXMELKValues.h"

#include "CATCkeGlobalFunctions.h"
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

double ParameterMillimetres(const CATUnicodeString& text, const char* parameterName)
{
    CATICkeParm_var parameter = CATCkeGlobalFunctions::GetVolatileFactory()->CreateLength(parameterName, 0.0);
    parameter->Valuate(text);
    return parameter->AsReal() * millimetresPerMetre;
}

double ParameterRadians(const CATUnicodeString& text, const char* parameterName)
{
    CATICkeParm_var parameter = CATCkeGlobalFunctions::GetVolatileFactory()->CreateAngle(parameterName, 0.0);
    parameter->Valuate(text);
    return parameter->AsReal();
}
