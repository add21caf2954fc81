#include "VEXMELKDirectViewConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

enum PointReference : int
{
    NoReference,
    CarFront,
    CarBack,
    EyesMidpoint
};

PointReference ReferenceFromName(const CATUnicodeString& name)
{
    if (name == "CarFront")
        return CarFront;
    if (name == "CarBack")
        return CarBack;
    return name == "EyesMidpoint" ? EyesMidpoint : NoReference;
}

void AppendPoint(const CATIDOMElement_var& element, VEXMELKDirectViewCFG& definition)
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    CATUnicodeString name;
    int reference = NoReference;
    ReadFields(element, NULL_var,
        {
            {"X", "m", x, ByLengthParameter, 0.0},
            {"Y", "m", y, ByLengthParameter, 0.0},
            {"Z", "m", z, ByLengthParameter, 0.0},
            {"name", "", name},
            {"reference", "", reference, As<ReferenceFromName>, NoReference},
        });
    definition.Points.Append(CATMathPoint(x, y, z));
    definition.PointNames.Append(name);
    definition.PointReferences.Append(reference);
}

} // namespace

VEXMELKDirectViewConfig::VEXMELKDirectViewConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "DirectView.xml")
{
}

unsigned char VEXMELKDirectViewConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKDirectViewCFG& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element == NULL_var)
                return 1;
            // The unit of these four angles is "mm", on purpose.
            ReadFields(element, NULL_var,
                {
                    {"MaxTopAngle", "mm", definition.MaxTopAngle},
                    {"MaxBottomAngle", "mm", definition.MaxBottomAngle},
                    {"MPAzimuth", "mm", definition.MPAzimuth},
                    {"MPElevation", "mm", definition.MPElevation},
                });
            definition.Points.RemoveAll(); // names and references stay, on purpose
            ForEachElement(element, "Point", [&](const CATIDOMElement_var& point) { AppendPoint(point, definition); });
            return 1; // always
        });
}
