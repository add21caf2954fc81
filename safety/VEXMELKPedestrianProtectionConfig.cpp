// The reference lines and test areas of the front end. Each element is taken whole from the category, else from
// "default". A line that is not defined has only empty texts; the defaults belong to lines that are.
#include "VEXMELKPedestrianProtectionConfig.h"

#include "VEXMELKReader.h"

#include <algorithm>

namespace {

using Record = PedestrianProtectionDefinition;
using Curve = TraceCurveDefinition;
using Boundary = PPBonnetTopBoundary;
using Area = PPBonnetTopDefinition;
using RearTemplate = PPBonnetRearTemplateDefinition;

constexpr VEXMELKTable table{
    Length<&Record::cuttingStep>("CuttingStep", "step of the cuts", NotNegative),
    Flag<&Record::wrapAroundUseWindshield>("WrapAroundUseWindshield", "whether the wrap-around uses the windshield"),
};
constexpr VEXMELKElement categoryElements = CategoryWith(table.rows);

constexpr VEXMELKElement Whole(const VEXMELKElement& parent, const char* tag, VEXMELKRows rows, const char* meaning)
{
    return {.tag = tag,
        .below = &parent,
        .fallBack = VEXMELKFallBack::WholeElement,
        .tables = {rows},
        .meaning = meaning,
        .whenMissing = "empty"};
}

constexpr VEXMELKWord curveTypes[] = {{"UpperBumper"}, {"LowerBumper"}, {"CornerOfBumper"}, {"BonnetLeadingEdge"},
    {"BonnetSide"}, {"WrapAround1"}, {"WrapAround2"}, {"WrapAround3"}, {"BonnetRear"}};
constexpr VEXMELKRow curveTypeRow = Word("type", {curveTypes},
    "`UpperBumper`, `LowerBumper`, `CornerOfBumper`, `BonnetLeadingEdge`, `BonnetSide`, `WrapAround1`, `WrapAround2`, "
    "`WrapAround3` or `BonnetRear`",
    AsWritten(), Skip);
constexpr VEXMELKWord tangents[] = {{"lowest"}, {"highest"}};
constexpr VEXMELKWord offsetTypes[] = {{"WrapAround"}, {"Horizontal"}};
constexpr VEXMELKTable curveTable{
    Angle<&Curve::angle>("angle", "angle"),
    Length<&Curve::length>("length", "length", NotNegative),
    Length<&Curve::offset>("offset", "offset", Else("0.0mm")),
    Length<&Curve::radiusLower>("radiusLower", "radii, threshold", NotNegative),
    Length<&Curve::radiusUpper>("radiusUpper", "radii, threshold", NotNegative),
    Length<&Curve::threshold>("threshold", "radii, threshold", NotNegative),
    Text<&Curve::tangent_selection>("tangent_selection", "which tangent", Else("lowest"), Or{{tangents}}),
    Flag<&Curve::use_upper_end>("use_upper_end", "use this end"),
    Flag<&Curve::use_lower_end>("use_lower_end", "use this end"),
    Flag<&Curve::use_left>("use_left", "use this side"),
    Flag<&Curve::use_right>("use_right", "use this side"),
    Text<&Curve::curve_offset_type>(
        "curve_offset_type", "how the curve is offset", Else("WrapAround"), Or{{offsetTypes}}),
    Length<&Curve::curve_offset>("curve_offset", "offset of the curve", Else("0.0mm")),
    Flag<&Curve::warning>("warning", "warn"),
    Angle<&Curve::alternative_angle>("alternative_angle", "other angle", Else("40.0deg")),
};
constexpr VEXMELKElement curveElements{.tag = "curve",
    .below = &categoryElements,
    .choice = VEXMELKChoice::ByKey,
    .fallBack = VEXMELKFallBack::WholeElement,
    .key = &curveTypeRow,
    .tables = {curveTable.rows},
    .meaning = "a reference line; the first of a type counts",
    .whenMissing = "not defined"};

constexpr VEXMELKTable areaTable{
    Text<&Area::name>("name", "name of the area"),
    Flag<&Area::detail>("detail", "in detail"),
    Integer<&Area::splitM>("splitM", "divisions", NotNegative),
    Integer<&Area::splitN>("splitN", "divisions", NotNegative),
};
constexpr VEXMELKTable boundaryTable{
    Text<&Boundary::limit>("limit", "what bounds it", Or{{curveTypes}}),
    Length<&Boundary::offset>("offset", "offset"),
    Text<&Boundary::offset_type>("offset_type", "kind of offset", Or{{offsetTypes}}),
};
// Only the front has a second limit and a check distance: the other boundaries do not meet the windscreen.
constexpr VEXMELKTable frontTable{
    Length<&Boundary::checkDist>("checkDist", "check distance, of `front` **only**", NotNegative),
    Text<&Boundary::limit2>("limit2", "second limit, of `front` **only**", Or{{curveTypes}}),
};
constexpr const char* areaMeaning = "the test areas; the first of each counts";
constexpr const char* boundaryMeaning = "its boundaries";
// An area with its boundaries.
struct AreaElements
{
    VEXMELKElement area;
    VEXMELKElement side;
    VEXMELKElement front;
    VEXMELKElement rear;
};
constexpr VEXMELKElement FrontOf(const VEXMELKElement& area)
{
    VEXMELKElement front = Whole(area, "front", boundaryTable.rows, boundaryMeaning);
    front.tables[1] = frontTable.rows;
    return front;
}
constexpr AreaElements AreaOf(const AreaElements& itself, const char* tag)
{
    return {Whole(categoryElements, tag, areaTable.rows, areaMeaning),
        Whole(itself.area, "side", boundaryTable.rows, boundaryMeaning), FrontOf(itself.area),
        Whole(itself.area, "rear", boundaryTable.rows, boundaryMeaning)};
}
constexpr AreaElements bonnetTop1 = AreaOf(bonnetTop1, "bonnetTop1");
constexpr AreaElements bonnetTop2 = AreaOf(bonnetTop2, "bonnetTop2");

constexpr VEXMELKTable rearTemplateTable{
    Text<&RearTemplate::startradius>("startradius", "as written"),
    Text<&RearTemplate::step>("step", "as written"),
};
constexpr VEXMELKElement rearTemplateElement =
    Whole(categoryElements, "bonnetRearTemplate", rearTemplateTable.rows, "template along the rear of the bonnet");

constexpr const VEXMELKElement* elements[] = {&categoryElements, &curveElements, &bonnetTop1.area, &bonnetTop1.side,
    &bonnetTop1.front, &bonnetTop1.rear, &bonnetTop2.area, &bonnetTop2.side, &bonnetTop2.front, &bonnetTop2.rear,
    &rearTemplateElement};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Curve> = VEXMELKFieldList<Curve>(curveTable, VEXMELKComputed<&Curve::defined>());
template <> constexpr auto VEXMELKFieldsOf<Boundary> = VEXMELKFieldList<Boundary>(boundaryTable, frontTable);
template <>
constexpr auto VEXMELKFieldsOf<Area> = VEXMELKFieldList<Area>(
    areaTable, VEXMELKNested<&Area::side>(), VEXMELKNested<&Area::front>(), VEXMELKNested<&Area::rear>());
template <> constexpr auto VEXMELKFieldsOf<RearTemplate> = VEXMELKFieldList<RearTemplate>(rearTemplateTable);
template <>
constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table, VEXMELKNested<&Record::upperBumper>(),
    VEXMELKNested<&Record::lowerBumper>(), VEXMELKNested<&Record::cornerOfBumper>(),
    VEXMELKNested<&Record::bonnetLeadingEdge>(), VEXMELKNested<&Record::bonnetSide>(),
    VEXMELKNested<&Record::wrapAround1>(), VEXMELKNested<&Record::wrapAround2>(), VEXMELKNested<&Record::wrapAround3>(),
    VEXMELKNested<&Record::bonnetRear>(), VEXMELKNested<&Record::bonnetTop1>(), VEXMELKNested<&Record::bonnetTop2>(),
    VEXMELKNested<&Record::bonnetRearTemplate>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKPedestrianProtectionConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKPedestrianProtectionConfig::description{
    .name = "PedestrianProtection",
    .file = "Safety\\PedestrianProtection.xml",
    .meaning = "The reference lines and test areas of the vehicle's front end.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKPedestrianProtectionConfig::VEXMELKPedestrianProtectionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKPedestrianProtectionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, PedestrianProtectionDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var map;
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMElement_var element = GetCategoryElement(standard, category, map, defaultMap);
            const CATIDOMElement_var defaultElement = GetCategoryElement(standard, defaultCategory);
            if (element == NULL_var && defaultElement == NULL_var)
                return 0;
            ReadFields(Decimals(), map, defaultMap, table, definition);
            // In the order of their types.
            TraceCurveDefinition* const curves[] = {&definition.upperBumper, &definition.lowerBumper,
                &definition.cornerOfBumper, &definition.bonnetLeadingEdge, &definition.bonnetSide,
                &definition.wrapAround1, &definition.wrapAround2, &definition.wrapAround3, &definition.bonnetRear};
            for (std::size_t type = 0; type < std::size(curves); ++type)
                GetTraceCurveDef(curveTypes[type].text, element, defaultElement, *curves[type]);
            GetPPBonnetTopDef(bonnetTop1.area.tag, element, defaultElement, definition.bonnetTop1);
            GetPPBonnetTopDef(bonnetTop2.area.tag, element, defaultElement, definition.bonnetTop2);
            GetPPBonnetRearTemplateDef(rearTemplateElement.tag, element, defaultElement, definition.bonnetRearTemplate);
            return 1;
        });
}

void VEXMELKPedestrianProtectionConfig::GetTraceCurveDef(const CATUnicodeString& curveType,
    const CATIDOMElement_var& categoryElement, const CATIDOMElement_var& defaultElement, TraceCurveDefinition& curve)
{
    curve = TraceCurveDefinition();
    CATIDOMElement_var element = FindByKey(categoryElement, curveElements, curveType);
    if (element == NULL_var)
        element = FindByKey(defaultElement, curveElements, curveType);
    if (element == NULL_var)
        return;
    curve.defined = 1;
    ReadFields(Decimals(), element, curveTable, curve);
}

void VEXMELKPedestrianProtectionConfig::GetPPBonnetTopDef(const CATUnicodeString& elementName,
    const CATIDOMElement_var& categoryElement, const CATIDOMElement_var& defaultElement, PPBonnetTopDefinition& area)
{
    area = PPBonnetTopDefinition();
    const AreaElements& described = elementName == bonnetTop1.area.tag ? bonnetTop1 : bonnetTop2;
    const CATIDOMElement_var element = FindInEither(categoryElement, defaultElement, described.area);
    if (element == NULL_var)
        return;
    const CATIDOMNamedNodeMap_var attributes = element->GetAttributes();
    const auto& [name, detail, splitM, splitN] = areaTable.rows;
    area.name = GetOptionalStringValue(attributes, name.attribute, name.unit, name.whenMissing.text);
    area.detail = GetOptionalBooleanValue(attributes, detail.attribute, detail.whenMissing.flag);
    area.splitM = GetOptionalIntValue(attributes, splitM.attribute, splitM.whenMissing.integer);
    area.splitN = GetOptionalIntValue(attributes, splitN.attribute, splitN.whenMissing.integer);
    const auto readBoundary = [&](const VEXMELKElement& boundaryElement, const auto& boundaryRows, Boundary& boundary)
    { ReadFields(Decimals(), AttributesOf(Find(element, boundaryElement)), NULL_var, boundaryRows, boundary); };
    readBoundary(described.side, boundaryTable, area.side);
    readBoundary(described.front, boundaryTable, area.front);
    readBoundary(described.front, frontTable, area.front);
    readBoundary(described.rear, boundaryTable, area.rear);
}

void VEXMELKPedestrianProtectionConfig::GetPPBonnetRearTemplateDef(const CATUnicodeString& /*elementName*/,
    const CATIDOMElement_var& categoryElement, const CATIDOMElement_var& defaultElement,
    PPBonnetRearTemplateDefinition& rearTemplate)
{
    ReadFields(Decimals(), AttributesOf(FindInEither(categoryElement, defaultElement, rearTemplateElement)), NULL_var,
        rearTemplateTable, rearTemplate);
}

namespace {

// The row of an area's attribute as it is described: whoever watches keeps it, so it has to live on.
const VEXMELKRow& DescribedRow(const VEXMELKRow& other)
{
    const auto* const known = std::find_if(areaTable.rows.begin(), areaTable.rows.end(),
        [&](const VEXMELKRow& row) { return row.attribute == other.attribute; });
    return known == areaTable.rows.end() ? other : *known;
}

} // namespace

CATUnicodeString VEXMELKPedestrianProtectionConfig::GetOptionalStringValue(const CATIDOMNamedNodeMap_var& attributes,
    const CATUnicodeString& name, const CATUnicodeString& unit, const CATUnicodeString& defaultValue)
{
    CATUnicodeString value;
    const VEXMELKRow other{.attribute = name, .unit = unit, .whenMissing = {.text = defaultValue}};
    ReadText(Decimals(), attributes, DescribedRow(other), value);
    return value;
}

int VEXMELKPedestrianProtectionConfig::GetOptionalIntValue(
    const CATIDOMNamedNodeMap_var& attributes, const CATUnicodeString& name, int defaultValue)
{
    const VEXMELKRow other{.attribute = name,
        .kind = VEXMELKKind::Integer,
        .form = VEXMELKForm::Integer,
        .whenMissing = {.integer = defaultValue}};
    CATUnicodeString text;
    int value = 0;
    const bool converts =
        ReadText(Decimals(), attributes, DescribedRow(other), text) && text.ConvertToNum(&value, "%d");
    return converts ? value : defaultValue;
}

unsigned char VEXMELKPedestrianProtectionConfig::GetOptionalBooleanValue(
    const CATIDOMNamedNodeMap_var& attributes, const CATUnicodeString& name, unsigned char defaultValue)
{
    const VEXMELKRow other{.attribute = name,
        .kind = VEXMELKKind::Flag,
        .form = VEXMELKForm::Flag,
        .whenMissing = {.flag = defaultValue != 0}};
    CATUnicodeString text;
    return ReadText(Decimals(), attributes, DescribedRow(other), text) ? FlagFromText(text) : defaultValue;
}
