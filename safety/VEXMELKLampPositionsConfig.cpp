// The lamps that a standard regulates. A query never fails: what is not known has no lamps.
#include "VEXMELKLampPositionsConfig.h"

#include "VEXMELKReader.h"

namespace {

using Lamp = VEXMELKLampPositionsDefinition;

constexpr VEXMELKOutputTable<unsigned char> limitsTable{
    Flag("UseLampLimits", "whether the limits apply; an unknown standard: no", AsWritten(), Else(true))};
constexpr VEXMELKElement standardElements = VEXMELKCommon::StandardWith(limitsTable.rows);
constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);

constexpr VEXMELKTable lampTable{
    Text<&Lamp::Abbr>("Abbr", "short name, description"),
    Text<&Lamp::Descr>("Descr", "short name, description"),
    Flag<&Lamp::IsFront>("IsFront", "where the lamp is"),
    Flag<&Lamp::IsBack>("IsBack", "where the lamp is"),
    Flag<&Lamp::IsSide>("IsSide", "where the lamp is"),
    Length<&Lamp::MinVerticalSpace>("MinVerticalSpace", "vertical spacing", NotNegative),
    Length<&Lamp::MaxVerticalSpace>("MaxVerticalSpace", "vertical spacing", NotNegative),
    Length<&Lamp::MinInnerSpace>("MinInnerSpace", "inner spacing", NotNegative),
    Length<&Lamp::MinInnerSpace2>("MinInnerSpace2", "inner spacing", NotNegative),
    Length<&Lamp::MaxOuterSpace>("MaxOuterSpace", "outer spacing", NotNegative),
    Length<&Lamp::MaxOuterSpace2>("MaxOuterSpace2", "outer spacing", NotNegative),
    Length<&Lamp::MaxFrontSpace>("MaxFrontSpace", "front spacing", NotNegative),
    Length<&Lamp::MaxFrontSpace2>("MaxFrontSpace2", "front spacing", NotNegative),
    Length<&Lamp::MaxBackSpace>("MaxBackSpace", "back spacing", NotNegative),
    Length<&Lamp::MaxBackSpace2>("MaxBackSpace2", "back spacing", NotNegative),
    Text<&Lamp::LampColor>("LampColor", "colour, visibility: texts"),
    Text<&Lamp::LampVisibility>("LampVisibility", "colour, visibility: texts"),
    Length<&Lamp::WidthThreshold>("WidthThreshold", "thresholds of width and length", NotNegative),
    Length<&Lamp::LengthThreshold>("LengthThreshold", "thresholds of width and length", NotNegative),
};
constexpr VEXMELKElement lampElements{.tag = "Lamp",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {lampTable.rows},
    .meaning = "one lamp",
    .whenMissing = "no lamps"};
constexpr const VEXMELKElement* elements[] = {&standardElements, &categoryElements, &lampElements};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Lamp> = VEXMELKFieldList<Lamp>(lampTable);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKLampPositionsConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("lamps")),
    VEXMELKDescribe<&VEXMELKLampPositionsConfig::GetStatusOfLimits>(
        "GetStatusOfLimits", standardArgument, categoryArgument),
};

constinit const VEXMELKDescription VEXMELKLampPositionsConfig::description{
    .name = "LampPositions",
    .file = "OVA\\LampPositions.xml",
    .meaning = "The lamps that a standard regulates, and the limits of their places.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKLampPositionsConfig::VEXMELKLampPositionsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKLampPositionsConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXArray<VEXMELKLampPositionsDefinition>& lamps)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            lamps.reset(); // not before: a name may be a text of the array
            ForEach(element, lampElements, lamps,
                [&](const CATIDOMElement_var& lampElement)
                {
                    Lamp lamp;
                    ReadFields(Decimals(), lampElement, lampTable, lamp);
                    lamps.add(lamp);
                });
            return 1; // always
        });
}

unsigned char VEXMELKLampPositionsConfig::GetStatusOfLimits(
    const CATUnicodeString& standard, const CATUnicodeString& /*category*/)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetStandardElement(standard);
            unsigned char apply = 0;
            if (element != NULL_var)
                ReadFields(Decimals(), element, limitsTable, apply);
            return apply;
        });
}
