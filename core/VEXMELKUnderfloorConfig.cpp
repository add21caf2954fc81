#include "VEXMELKUnderfloorConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

enum EyesTypes : int
{
    EyePoints,
    EyeEllipses,
    ExtendedEyePoints
};

constexpr const char* eyesElements[] = {"eye_points", "eye_ellipses", "eye_extended_points"};

} // namespace

VEXMELKUnderfloorConfig::VEXMELKUnderfloorConfig(CATUnicodeString path, CATUnicodeString fileName)
    : VEXMELKCheckConfig(std::move(path), std::move(fileName))
{
}

unsigned char VEXMELKUnderfloorConfig::GetEyes(const CATUnicodeString& standard, VEXMELKEyesConfigDefinition& eyes)
{
    return Answer(
        [&]() -> unsigned char
        {
            VEXMELKRootDOMElementsDefinition roots;
            if (!GetRootDOMElements(roots))
                return 0;
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element == NULL_var)
                return 1;

            CATIDOMElement_var eyesElement;
            for (int type = EyePoints; type <= ExtendedEyePoints && eyesElement == NULL_var; ++type)
            {
                eyesElement = FirstElement(element, eyesElements[type]);
                eyes.EyesType = type;
            }
            if (eyesElement == NULL_var)
                return 1;
            AssignAttribute(eyesElement, "standard", eyes.Standard);
            if (eyes.EyesType == EyeEllipses)
                AssignAttribute(eyesElement, "percentil", eyes.Percentil);
            return 1;
        });
}

unsigned char VEXMELKUnderfloorConfig::GetPointToPick(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATUnicodeString& point)
{
    return ReadCategory(standard, category, {{"point_to_pick", "", point}});
}

unsigned char VEXMELKUnderfloorConfig::UseStaticRadius(const CATUnicodeString& standard, unsigned char& use)
{
    return Answer(
        [&]() -> unsigned char
        {
            VEXMELKRootDOMElementsDefinition roots;
            if (!GetRootDOMElements(roots))
                return 0;
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element == NULL_var)
                return 1;
            CATUnicodeString text("true");
            AssignAttribute(element, "static_radius", text);
            use = BooleanFromString(text);
            return 1;
        });
}
