// What the checks that work from the occupant's eyes have in common. An unknown standard answers true and leaves the
// outputs as they are.
#include "VEXMELKUnderfloorConfig.h"

#include "VEXMELKReader.h"

namespace {

using Eyes = VEXMELKEyesConfigDefinition;

constexpr const char* referredStandard = "name of the standard in `EyePoints.xml`, `EyeEllipses.xml` or "
                                         "`ExtendedEyePoints.xml`";
constexpr auto EyesOf(const char* standards)
{
    return VEXMELKTable{Name<&Eyes::Standard>("standard", standards, referredStandard, AsWritten(), Keep)};
}
// By type.
constexpr decltype(EyesOf("")) eyesTables[] = {EyesOf("standard of EyePoints.xml"),
    EyesOf("standard of EyeEllipses.xml"), EyesOf("standard of ExtendedEyePoints.xml")};
constexpr VEXMELKTable percentilTable{
    Text<&Eyes::Percentil>("percentil", "the percentile", AsWritten(), Keep, Share),
};
constexpr VEXMELKOutputTable<CATUnicodeString> pointTable{
    Text("point_to_pick", "the point that the user is to pick", Fills{"point"})};
constexpr VEXMELKOutputTable<unsigned char> radiusTable{
    Flag("static_radius", "whether the static wheel radius is used", AsWritten(), Else(true), Fills{"use"})};

constexpr VEXMELKElement standardElements = VEXMELKCommon::StandardWith(radiusTable.rows);
constexpr VEXMELKElement categoryElements = CategoryWith(pointTable.rows);

constexpr VEXMELKElement EyesWith(const char* tag, VEXMELKRows rows, const char* meaning, VEXMELKRows others = {})
{
    return {.tag = tag,
        .below = &VEXMELKCommon::standards,
        .place = VEXMELKPlace::AnyDepth,
        .tables = {rows, others},
        .meaning = meaning};
}
// By type.
constexpr VEXMELKElement eyesElements[] = {
    EyesWith("eye_points", eyesTables[0].rows, "the standard uses eye points (type 0)"),
    EyesWith("eye_ellipses", eyesTables[1].rows, "the standard uses eye ellipses (type 1)", percentilTable.rows),
    EyesWith("eye_extended_points", eyesTables[2].rows, "the standard uses extended eye points (type 2)"),
};
constexpr int eyeEllipses = 1;

constexpr const VEXMELKElement* elements[] = {
    &standardElements, &eyesElements[0], &eyesElements[1], &eyesElements[2], &categoryElements};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Eyes> = VEXMELKFieldList<Eyes>(
    eyesTables[0], percentilTable, VEXMELKComputed<&Eyes::EyesType>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUnderfloorConfig::GetEyes>("GetEyes", standardArgument, Output("eyes")),
    VEXMELKDescribe<&VEXMELKUnderfloorConfig::GetPointToPick>(
        "GetPointToPick", standardArgument, categoryArgument, pointTable),
    VEXMELKDescribe<&VEXMELKUnderfloorConfig::UseStaticRadius>("UseStaticRadius", standardArgument, radiusTable),
};

constinit const VEXMELKDescription VEXMELKUnderfloorConfig::description{
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKUnderfloorConfig::VEXMELKUnderfloorConfig(CATUnicodeString path, CATUnicodeString fileName)
    : VEXMELKCheckConfig(std::move(path), std::move(fileName))
{
}

unsigned char VEXMELKUnderfloorConfig::GetEyes(const CATUnicodeString& standard, VEXMELKEyesConfigDefinition& eyes)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            VEXMELKRootDOMElementsDefinition roots;
            if (!GetRootDOMElements(roots))
                return 0;
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element == NULL_var)
                return 1;

            CATIDOMElement_var found;
            int type = -1;
            for (const VEXMELKElement& eyesElement : eyesElements)
            {
                found = Find(element, eyesElement);
                ++type;
                if (found != NULL_var)
                    break;
            }
            eyes.EyesType = type;
            if (found == NULL_var)
                return 1;
            ReadFields(Decimals(), found, eyesTables[type], eyes);
            if (type == eyeEllipses)
                ReadFields(Decimals(), found, percentilTable, eyes);
            return 1;
        });
}

unsigned char VEXMELKUnderfloorConfig::GetPointToPick(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATUnicodeString& point)
{
    return ReadCategory(*this, standard, category, Decimals(), pointTable, point);
}

unsigned char VEXMELKUnderfloorConfig::UseStaticRadius(const CATUnicodeString& standard, unsigned char& use)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            VEXMELKRootDOMElementsDefinition roots;
            if (!GetRootDOMElements(roots))
                return 0;
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element == NULL_var)
                return 1;
            ReadFields(Decimals(), element, radiusTable, use);
            return 1;
        });
}
