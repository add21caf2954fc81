#include "VEXMELKSRPLocationCurvesConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

VEXMELKSRPLocationCurveDefinition CurveOf(const CATIDOMElement_var& element)
{
    VEXMELKSRPLocationCurveDefinition curve;
    ReadFields(element, NULL_var,
        {
            {"name", "", curve.name},
            {"a", "mm", curve.a, InMillimetres, 0.0},
            {"b", "mm", curve.b, InMillimetres, 0.0},
            {"c", "mm", curve.c, InMillimetres, 0.0},
            {"z_max", "mm", curve.z_max, InMillimetres, 0.0},
            {"z_min", "mm", curve.z_min, InMillimetres, 0.0},
        });
    return curve;
}

} // namespace

VEXMELKSRPLocationCurvesConfig::VEXMELKSRPLocationCurvesConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("Manikin") + "\\" + "SRPLocationCurves.xml")
{
}

unsigned char VEXMELKSRPLocationCurvesConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, VEXArray<VEXMELKSRPLocationCurveDefinition>& curves)
{
    return Answer(
        [&]() -> unsigned char
        {
            curves.reset();
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            ForEachElement(element, "curve",
                [&](const CATIDOMElement_var& curveElement)
                {
                    const VEXMELKSRPLocationCurveDefinition curve = CurveOf(curveElement);
                    const bool isKnown = std::any_of(curves.begin(), curves.end(),
                        [&](const VEXMELKSRPLocationCurveDefinition& known) { return known.name == curve.name; });
                    if (!isKnown)
                        curves.add(curve);
                });
            return element != NULL_var;
        });
}
