// How offsets to the parts beneath the outer skin are measured. "section_based" is taken whole from the category, else
// from "default"; the offset falls back by itself.
#include "VEXMELKPPOffsetConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKPPOffsetDefinition;
using Curve = VEXPPOffsetCurveDefinition;
using Region = VEXPPOffsetOuterRegionDefinition;

constexpr VEXMELKTable table{
    Text<&Record::calculation_type>("calculation_type", "kind of calculation"),
    Metres<&Record::offset>("offset", "offset"),
};
constexpr VEXMELKElement categoryElements = CategoryWith(table.rows);

constexpr const char* kindMeaning = "reference part, kinds of definition and profile";
constexpr VEXMELKTable sectionTable{
    Text<&Record::definition_type>("definition_type", kindMeaning),
    Text<&Record::profile_type>("profile_type", kindMeaning),
    Metres<&Record::x_step>("x_step", "steps of the grid", NotNegative),
    Metres<&Record::y_step>("y_step", "steps of the grid", NotNegative),
    Text<&Record::ref_part>("ref_part", kindMeaning),
};
constexpr VEXMELKElement sectionElement{.tag = "section_based",
    .below = &categoryElements,
    .fallBack = VEXMELKFallBack::WholeElement,
    .tables = {sectionTable.rows},
    .meaning = "settings of the sections",
    .whenMissing = "texts, curves and outer region kept; steps 0"};

constexpr VEXMELKTable curveTable{
    Text<&Curve::type>("type", "its name"),
    Metres<&Curve::inner_offset>("inner_offset", "offsets"),
    Metres<&Curve::outer_offset>("outer_offset", "offsets"),
};
constexpr VEXMELKElement curveElements{.tag = "curve",
    .below = &sectionElement,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .tables = {curveTable.rows},
    .meaning = "an offset curve",
    .whenMissing = "no curves"};

constexpr VEXMELKTable regionTable{
    Text<&Region::measurement_type>("measurement_type", "how it is measured"),
    Metres<&Region::param_x>("param_x", "parameter; a bare number counts as millimetres", Unit{""}, CountsAs{"mm"}),
};
constexpr VEXMELKElement regionElement{.tag = "outer_region",
    .below = &sectionElement,
    .tables = {regionTable.rows},
    .meaning = "the outer region; the first counts",
    .whenMissing = "empty, 0"};

constexpr const VEXMELKElement* elements[] = {&categoryElements, &sectionElement, &curveElements, &regionElement};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Curve> = VEXMELKFieldList<Curve>(curveTable);
template <> constexpr auto VEXMELKFieldsOf<Region> = VEXMELKFieldList<Region>(regionTable);
template <>
constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(
    table, sectionTable, VEXMELKNested<&Record::curves>(), VEXMELKNested<&Record::outerRegion>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKPPOffsetConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKPPOffsetConfig::description{
    .name = "PPOffset",
    .file = "Safety\\PedestrianProtectionOffset.xml",
    .meaning = "How the offsets between the outer skin and the parts beneath it are measured.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKPPOffsetConfig::VEXMELKPPOffsetConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKPPOffsetConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKPPOffsetDefinition& definition)
{
    return Answer(*this,
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
            ReadFields(Decimals(), map, defaultMap, table, definition);

            const CATIDOMElement_var section = FindInEither(element, defaultElement, sectionElement);
            if (section == NULL_var)
                return 1;
            ReadFields(Decimals(), section, sectionTable, definition);
            GetCurves(section, definition.curves);
            GetOuterRegion(section, definition.outerRegion);
            return 1;
        });
}

unsigned char VEXMELKPPOffsetConfig::GetCurves(
    const CATIDOMElement_var& section, VEXArray<VEXPPOffsetCurveDefinition>& curves)
{
    curves.reset();
    ForEach(section, curveElements, curves,
        [&](const CATIDOMElement_var& element)
        {
            Curve curve;
            ReadFields(Decimals(), element, curveTable, curve);
            curves.add(curve);
        });
    return section != NULL_var;
}

unsigned char VEXMELKPPOffsetConfig::GetOuterRegion(
    const CATIDOMElement_var& section, VEXPPOffsetOuterRegionDefinition& outerRegion)
{
    const CATIDOMElement_var element = Find(section, regionElement);
    ReadFields(Decimals(), AttributesOf(element), NULL_var, regionTable, outerRegion);
    return element != NULL_var;
}
