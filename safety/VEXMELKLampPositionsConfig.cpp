#include "VEXMELKLampPositionsConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

VEXMELKLampPositionsDefinition LampOf(const CATIDOMElement_var& element)
{
    VEXMELKLampPositionsDefinition lamp;
    ReadFields(element, NULL_var,
        {
            {"Abbr", "", lamp.Abbr},
            {"Descr", "", lamp.Descr},
            {"IsFront", "", lamp.IsFront, AsFlag, false},
            {"IsBack", "", lamp.IsBack, AsFlag, false},
            {"IsSide", "", lamp.IsSide, AsFlag, false},
            {"MinVerticalSpace", "mm", lamp.MinVerticalSpace},
            {"MaxVerticalSpace", "mm", lamp.MaxVerticalSpace},
            {"MinInnerSpace", "mm", lamp.MinInnerSpace},
            {"MinInnerSpace2", "mm", lamp.MinInnerSpace2},
            {"MaxOuterSpace", "mm", lamp.MaxOuterSpace},
            {"MaxOuterSpace2", "mm", lamp.MaxOuterSpace2},
            {"MaxFrontSpace", "mm", lamp.MaxFrontSpace},
            {"MaxFrontSpace2", "mm", lamp.MaxFrontSpace2},
            {"MaxBackSpace", "mm", lamp.MaxBackSpace},
            {"MaxBackSpace2", "mm", lamp.MaxBackSpace2},
            {"LampColor", "", lamp.LampColor},
            {"LampVisibility", "", lamp.LampVisibility},
            {"WidthThreshold", "mm", lamp.WidthThreshold},
            {"LengthThreshold", "mm", lamp.LengthThreshold},
        });
    return lamp;
}

} // namespace

VEXMELKLampPositionsConfig::VEXMELKLampPositionsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "LampPositions.xml")
{
}

unsigned char VEXMELKLampPositionsConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXArray<VEXMELKLampPositionsDefinition>& lamps)
{
    return Answer(
        [&]() -> unsigned char
        {
            lamps.reset();
            ForEachElement(GetCategoryElement(standard, category), "Lamp", lamps,
                [&](const CATIDOMElement_var& element) { lamps.add(LampOf(element)); });
            return 1; // always
        });
}

unsigned char VEXMELKLampPositionsConfig::GetStatusOfLimits(
    const CATUnicodeString& standard, const CATUnicodeString& /*category*/)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element == NULL_var)
                return 0;
            CATUnicodeString text("true");
            AssignAttribute(element, "UseLampLimits", text);
            return BooleanFromString(text);
        });
}
