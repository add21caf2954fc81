#include "VEXMELKBumpersConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

// By type.
constexpr const char* pendulumElements[] = {"MiddlePendulum", "RotatedPendulum", "ShiftedPendulum"};

unsigned char IsFront(const CATUnicodeString& text) { return text == "front"; }

// Width, Height, Extension, Depth and FilletRadius are not reset, on purpose: they repeat until a profile sets them.
void ResetProfile(VEXMELKBumpersDefinition& bumper)
{
    bumper.NoseRadius = "";
    bumper.SideRadius = "";
    bumper.NoseAngle = "";
    bumper.SideAngle = "";
    bumper.NoseHeight = "";
    bumper.NoseLength = "";
    bumper.RenderHeight = "";
    bumper.RenderDepth = "";
    bumper.RenderDistance = "";
    bumper.CenterLineLength = "";
}

} // namespace

VEXMELKBumpersConfig::VEXMELKBumpersConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "Bumpers.xml")
{
}

unsigned char VEXMELKBumpersConfig::GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
    BumperType type, VEXArray<VEXMELKBumpersDefinition>& bumpers)
{
    return Answer(
        [&]() -> unsigned char
        {
            bumpers.reset();
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element == NULL_var)
                return 0;
            if (type >= MiddlePendulum && type <= ShiftedPendulum)
                GetPendulumData(pendulumElements[type], element, bumpers);
            return 1;
        });
}

unsigned char VEXMELKBumpersConfig::GetPendulumData(const CATUnicodeString& pendulumElementName,
    const CATIDOMElement_var& categoryElement, VEXArray<VEXMELKBumpersDefinition>& bumpers)
{
    const CATIDOMElement_var pendulum = FirstElement(categoryElement, pendulumElementName);
    VEXMELKBumpersDefinition bumper; // one for all
    ForEachElement(pendulum, "bumper", bumpers,
        [&](const CATIDOMElement_var& element)
        {
            CATUnicodeString profile;
            ResetProfile(bumper);
            ReadFields(element, NULL_var,
                {
                    {"loading", "", bumper.loading},
                    {"Limit", "mm", bumper.Limit},
                    {"Position", "", bumper.Position, As<IsFront>, false},
                    {"Offset", "mm", bumper.Offset},
                    {"Angle", "deg", bumper.Angle, "30.0deg"},
                });
            if (ReadFields(element, NULL_var, {{"Profile", "", profile}}))
                GetProfileData(profile, bumper);
            bumpers.add(bumper);
        });
    return pendulum != NULL_var;
}

unsigned char VEXMELKBumpersConfig::GetProfileData(
    const CATUnicodeString& profileName, VEXMELKBumpersDefinition& bumper)
{
    const CATIDOMElement_var profile = GetRootChildElement("Profile", profileName);
    if (profile == NULL_var)
        return 0;
    ReadFields(profile, NULL_var,
        {
            {"NoseRadius", "mm", bumper.NoseRadius, Keep},
            {"SideRadius", "mm", bumper.SideRadius, Keep},
            {"NoseAngle", "deg", bumper.NoseAngle, Keep},
            {"SideAngle", "deg", bumper.SideAngle, Keep},
            {"NoseHeight", "mm", bumper.NoseHeight, Keep},
            {"NoseLength", "mm", bumper.NoseLength, Keep},
            {"Width", "mm", bumper.Width, Keep},
            {"Height", "mm", bumper.Height, Keep},
            {"Extension", "mm", bumper.Extension, Keep},
            {"Depth", "mm", bumper.Depth, Keep},
            {"FilletRadius", "mm", bumper.FilletRadius, Keep},
            {"RenderDepth", "mm", bumper.RenderDepth, Keep},
            {"RenderHeight", "mm", bumper.RenderHeight, Keep},
            {"RenderDistance", "mm", bumper.RenderDistance, Keep},
            {"CenterLineLength", "mm", bumper.CenterLineLength, Keep},
        });
    return 1;
}
