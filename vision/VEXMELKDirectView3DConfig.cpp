#include "VEXMELKDirectView3DConfig.h"

#include "CATMathDef.h"
#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

VEXMELKDirectView3DConfig::VEXMELKDirectView3DConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "DirectView3D.xml")
{
}

double VEXMELKDirectView3DConfig::DirectionFromString(CATUnicodeString& text, VEXMELKDV3DOrientation& orientation)
{
    return Answer(
        [&]
        {
            double degrees = 0.0;
            if (text.IsEmpty() || text.Compare("frontward"))
                orientation = DV3DFrontward;
            else if (text.Compare("backward"))
                orientation = DV3DBackward;
            else if (text.Compare("left"))
                orientation = DV3DLeft;
            else if (text.Compare("right"))
                orientation = DV3DRight;
            else
            {
                orientation = DV3DAngle;
                degrees = NumberFromText(text);
            }
            return degrees * CATDegreeToRadian;
        });
}

VEXMELKDV3DComputationType VEXMELKDirectView3DConfig::ComputationTypeFromString(CATUnicodeString& text)
{
    return text.Compare("Ambinocular") ? DV3DAmbinocular : DV3DMonocular;
}

VEXMELKDV3DTargetType VEXMELKDirectView3DConfig::TargetTypeFromString(CATUnicodeString& text)
{
    if (text.Compare("Parallel"))
        return DV3DParallel;
    return text.Compare("Spherical") ? DV3DSpherical : DV3DPerpendicular;
}

unsigned char VEXMELKDirectView3DConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKDirectView3DCFG& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var map;
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMElement_var element = GetCategoryElement(standard, category, map, defaultMap);
            if (element == NULL_var)
                return 1;
            ReadFields(map, defaultMap,
                {
                    {"ComputationType", "", definition.ComputationTypeText},
                    {"ViewRange", "deg", definition.ViewRange, ByAngleParameter, 0.0},
                    {"Direction", "", definition.DirectionText},
                });
            definition.ComputationType = ComputationTypeFromString(definition.ComputationTypeText);
            definition.DirectionAngle = DirectionFromString(definition.DirectionText, definition.Orientation);

            const CATIDOMElement_var target = FirstElement(element, "Target");
            if (target == NULL_var)
                return 1;
            ReadFields(target, NULL_var,
                {
                    {"Distance", "mm", definition.TargetDistance, ByLengthParameter, 0.0},
                    {"type", "", definition.TargetTypeText},
                });
            definition.TargetType = TargetTypeFromString(definition.TargetTypeText);
            return 1; // always
        });
}
