#include "VEXMELKMultipleReflectionConfig.h"

#include "VEXMELKField.h"

namespace {

VEXMELKRayDirection RayDirectionFromText(const CATUnicodeString& text)
{
    return text.Compare("XDirection") ? RayXDirection : RayStandard;
}

} // namespace

VEXMELKMultipleReflectionConfig::VEXMELKMultipleReflectionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKOpticalPropsOfWSConfig(
          configurationDirectory, CATUnicodeString("Vision") + "\\" + "MultipleReflection.xml")
{
}

unsigned char VEXMELKMultipleReflectionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKMultipleReflectionConfigDef& definition)
{
    return ReadCategory(
        standard, category, {{"rayDirection", "", definition.rayDirection, As<RayDirectionFromText>, RayStandard}});
}
