// The curves that locate the seating reference point. Of several curves with one name the first counts.
#include "VEXMELKSRPLocationCurvesConfig.h"

#include "VEXMELKReader.h"

#include <unordered_set>

namespace {

using Curve = VEXMELKSRPLocationCurveDefinition;

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);
constexpr const char* coefficientMeaning =
    "coefficients, all read as lengths: a bare number is handed out as it stands";
constexpr VEXMELKTable curveTable{
    Text<&Curve::name>("name", "name of the curve"),
    Millimetres<&Curve::a>("a", coefficientMeaning),
    Millimetres<&Curve::b>("b", coefficientMeaning),
    Millimetres<&Curve::c>("c", coefficientMeaning),
    Millimetres<&Curve::z_max>("z_max", "vertical range"),
    Millimetres<&Curve::z_min>("z_min", "vertical range"),
};
constexpr VEXMELKElement curveElements{.tag = "curve",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::ByKey,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .key = curveTable.rows.data(),
    .tables = {curveTable.rows},
    .meaning = "a curve; one without any attribute is skipped",
    .whenMissing = "no curves"};
constexpr const VEXMELKElement* elements[] = {&categoryElements, &curveElements};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Curve> = VEXMELKFieldList<Curve>(curveTable);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKSRPLocationCurvesConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("curves")),
};

constinit const VEXMELKDescription VEXMELKSRPLocationCurvesConfig::description{
    .name = "SRPLocationCurves",
    .file = "Manikin\\SRPLocationCurves.xml",
    .meaning = "The curves that locate the seating reference point.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKSRPLocationCurvesConfig::VEXMELKSRPLocationCurvesConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKSRPLocationCurvesConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, VEXArray<VEXMELKSRPLocationCurveDefinition>& curves)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            curves.reset(); // not before: a name may be a text of the array
            std::unordered_set<CATUnicodeString> names;
            ForEach(element, curveElements, curves,
                [&](const CATIDOMElement_var& curveElement)
                {
                    if (!HasAttributes(curveElement))
                        return;
                    Curve curve;
                    ReadFields(Decimals(), curveElement, curveTable, curve);
                    if (names.insert(curve.name).second)
                        curves.add(curve);
                });
            return element != NULL_var;
        });
}
