#include "VEXMELKPedestrianProtectionConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

VEXMELKPedestrianProtectionConfig::VEXMELKPedestrianProtectionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Safety") + "\\" + "PedestrianProtection.xml")
{
}

unsigned char VEXMELKPedestrianProtectionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, PedestrianProtectionDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var map;
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMElement_var element = GetCategoryElement(standard, category, map, defaultMap);
            const CATIDOMElement_var defaultElement = GetCategoryElement(standard, defaultCategory);
            if (element == NULL_var && defaultElement == NULL_var)
                return 0;
            ReadFields(map, defaultMap,
                {
                    {"CuttingStep", "mm", definition.cuttingStep},
                    {"WrapAroundUseWindshield", "", definition.wrapAroundUseWindshield, AsFlag, false},
                });
            const std::pair<const char*, TraceCurveDefinition*> curves[] = {
                {"UpperBumper", &definition.upperBumper},
                {"LowerBumper", &definition.lowerBumper},
                {"CornerOfBumper", &definition.cornerOfBumper},
                {"BonnetLeadingEdge", &definition.bonnetLeadingEdge},
                {"BonnetSide", &definition.bonnetSide},
                {"WrapAround1", &definition.wrapAround1},
                {"WrapAround2", &definition.wrapAround2},
                {"WrapAround3", &definition.wrapAround3},
                {"BonnetRear", &definition.bonnetRear},
            };
            for (const auto& [type, curve] : curves)
                GetTraceCurveDef(type, element, defaultElement, *curve);
            GetPPBonnetTopDef("bonnetTop1", element, defaultElement, definition.bonnetTop1);
            GetPPBonnetTopDef("bonnetTop2", element, defaultElement, definition.bonnetTop2);
            GetPPBonnetRearTemplateDef("bonnetRearTemplate", element, defaultElement, definition.bonnetRearTemplate);
            return 1;
        });
}

void VEXMELKPedestrianProtectionConfig::GetTraceCurveDef(const CATUnicodeString& curveType,
    const CATIDOMElement_var& categoryElement, const CATIDOMElement_var& defaultElement, TraceCurveDefinition& curve)
{
    curve = TraceCurveDefinition();
    CATIDOMElement_var element = FindChild(categoryElement, "curve", "type", curveType);
    if (element == NULL_var)
        element = FindChild(defaultElement, "curve", "type", curveType);
    if (element == NULL_var)
        return;
    curve.defined = 1;
    ReadFields(element, NULL_var,
        {
            {"angle", "deg", curve.angle},
            {"length", "mm", curve.length},
            {"offset", "mm", curve.offset, "0.0mm"},
            {"radiusLower", "mm", curve.radiusLower},
            {"radiusUpper", "mm", curve.radiusUpper},
            {"threshold", "mm", curve.threshold},
            {"tangent_selection", "", curve.tangent_selection, "lowest"},
            {"use_upper_end", "", curve.use_upper_end, AsFlag, false},
            {"use_lower_end", "", curve.use_lower_end, AsFlag, false},
            {"use_left", "", curve.use_left, AsFlag, false},
            {"use_right", "", curve.use_right, AsFlag, false},
            {"curve_offset_type", "", curve.curve_offset_type, "WrapAround"},
            {"curve_offset", "mm", curve.curve_offset, "0.0mm"},
            {"warning", "", curve.warning, AsFlag, false},
            {"alternative_angle", "deg", curve.alternative_angle, "40.0deg"},
        });
}

void VEXMELKPedestrianProtectionConfig::GetPPBonnetTopDef(const CATUnicodeString& elementName,
    const CATIDOMElement_var& categoryElement, const CATIDOMElement_var& defaultElement, PPBonnetTopDefinition& area)
{
    area = PPBonnetTopDefinition();
    const CATIDOMElement_var element = FirstChildOfEither(categoryElement, defaultElement, elementName);
    if (element == NULL_var)
        return;
    ReadFields(element, NULL_var,
        {
            {"name", "", area.name},
            {"detail", "", area.detail, AsFlag, false},
        });
    area.splitM = GetOptionalIntValue(element->GetAttributes(), "splitM", 0);
    area.splitN = GetOptionalIntValue(element->GetAttributes(), "splitN", 0);

    // Only the front has a second limit and a check distance, on purpose.
    ReadFields(AttributesOf(FirstChild(element, "side")), NULL_var,
        {
            {"limit", "", area.side.limit},
            {"offset", "mm", area.side.offset},
            {"offset_type", "", area.side.offset_type},
        });
    ReadFields(AttributesOf(FirstChild(element, "front")), NULL_var,
        {
            {"limit", "", area.front.limit},
            {"checkDist", "mm", area.front.checkDist},
            {"limit2", "", area.front.limit2},
            {"offset", "mm", area.front.offset},
            {"offset_type", "", area.front.offset_type},
        });
    ReadFields(AttributesOf(FirstChild(element, "rear")), NULL_var,
        {
            {"limit", "", area.rear.limit},
            {"offset", "mm", area.rear.offset},
            {"offset_type", "", area.rear.offset_type},
        });
}

void VEXMELKPedestrianProtectionConfig::GetPPBonnetRearTemplateDef(const CATUnicodeString& elementName,
    const CATIDOMElement_var& categoryElement, const CATIDOMElement_var& defaultElement,
    PPBonnetRearTemplateDefinition& rearTemplate)
{
    ReadFields(AttributesOf(FirstChildOfEither(categoryElement, defaultElement, elementName)), NULL_var,
        {
            {"startradius", "", rearTemplate.startradius},
            {"step", "", rearTemplate.step},
        });
}

CATUnicodeString VEXMELKPedestrianProtectionConfig::GetOptionalStringValue(const CATIDOMNamedNodeMap_var& attributes,
    const CATUnicodeString& name, const CATUnicodeString& unit, const CATUnicodeString& defaultValue)
{
    CATUnicodeString value;
    ReadFields(attributes, NULL_var, {{name, unit, value, defaultValue}});
    return value;
}

int VEXMELKPedestrianProtectionConfig::GetOptionalIntValue(
    const CATIDOMNamedNodeMap_var& attributes, const CATUnicodeString& name, int defaultValue)
{
    CATUnicodeString text;
    int value = 0;
    const bool converts = ReadFields(attributes, NULL_var, {{name, "", text}}) && text.ConvertToNum(&value, "%d");
    return converts ? value : defaultValue;
}

unsigned char VEXMELKPedestrianProtectionConfig::GetOptionalBooleanValue(
    const CATIDOMNamedNodeMap_var& attributes, const CATUnicodeString& name, unsigned char defaultValue)
{
    unsigned char value = 0;
    ReadFields(attributes, NULL_var, {{name, "", value, AsFlag, static_cast<double>(defaultValue)}});
    return value;
}
