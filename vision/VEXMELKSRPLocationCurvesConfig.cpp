#include "VEXMELKSRPLocationCurvesConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

#include <unordered_set>

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
            std::unordered_set<CATUnicodeString> names;
            ForEachElement(element, "curve", curves,
                [&](const CATIDOMElement_var& curveElement)
                {
                    const VEXMELKSRPLocationCurveDefinition curve = CurveOf(curveElement);
                    if (names.insert(curve.name).second)
                        curves.add(curve);
                });
            return element != NULL_var;
        });
}
