#include "VEXMELKPPOffsetConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

VEXMELKPPOffsetConfig::VEXMELKPPOffsetConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("Safety") + "\\" + "PedestrianProtectionOffset.xml")
{
}

unsigned char VEXMELKPPOffsetConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKPPOffsetDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            // Set before anything can fail.
            definition.offset = 0.0;
            definition.x_step = 0.0;
            definition.y_step = 0.0;
            CATIDOMNamedNodeMap_var map;
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMElement_var element = GetCategoryElement(standard, category, map, defaultMap);
            const CATIDOMElement_var defaultElement = GetCategoryElement(standard, defaultCategory);
            if (map == NULL_var && defaultMap == NULL_var)
                return 0;
            ReadFields(map, defaultMap,
                {
                    {"calculation_type", "", definition.calculation_type},
                    {"offset", "mm", definition.offset, InMetres, 0.0},
                });

            const CATIDOMElement_var section = FirstChildOfEither(element, defaultElement, "section_based");
            if (section == NULL_var)
                return 1;
            ReadFields(section, NULL_var,
                {
                    {"definition_type", "", definition.definition_type},
                    {"profile_type", "", definition.profile_type},
                    {"x_step", "mm", definition.x_step, InMetres, 0.0},
                    {"y_step", "mm", definition.y_step, InMetres, 0.0},
                    {"ref_part", "", definition.ref_part},
                });
            GetCurves(section, definition.curves);
            GetOuterRegion(section, definition.outerRegion);
            return 1;
        });
}

unsigned char VEXMELKPPOffsetConfig::GetCurves(
    const CATIDOMElement_var& sectionElement, VEXArray<VEXPPOffsetCurveDefinition>& curves)
{
    curves.reset();
    ForEachElement(sectionElement, "curve", curves,
        [&](const CATIDOMElement_var& element)
        {
            VEXPPOffsetCurveDefinition curve;
            ReadFields(element, NULL_var,
                {
                    {"type", "", curve.type},
                    {"inner_offset", "mm", curve.inner_offset, InMetres, 0.0},
                    {"outer_offset", "mm", curve.outer_offset, InMetres, 0.0},
                });
            curves.add(curve);
        });
    return sectionElement != NULL_var;
}

unsigned char VEXMELKPPOffsetConfig::GetOuterRegion(
    const CATIDOMElement_var& sectionElement, VEXPPOffsetOuterRegionDefinition& outerRegion)
{
    const CATIDOMElement_var element = FirstChild(sectionElement, "outer_region");
    ReadFields(AttributesOf(element), NULL_var,
        {
            {"measurement_type", "", outerRegion.measurement_type},
            {"param_x", "", outerRegion.param_x, InMetres, 0.0},
        });
    return element != NULL_var;
}
