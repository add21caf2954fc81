// What the driver has to see close around the vehicle. Each element is taken whole from the category, else from
// "default"; the three lengths of the area have defaults that are set before anything can fail.
#include "VEXMELKCRVConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKCRVConfigDefinition;

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeElement);

constexpr VEXMELKElement OfCategory(
    const char* tag, VEXMELKRows rows, const char* meaning, const char* whenMissing, VEXMELKRows others = {})
{
    return {.tag = tag,
        .below = &categoryElements,
        .fallBack = VEXMELKFallBack::WholeElement,
        .tables = {rows, others},
        .meaning = meaning,
        .whenMissing = whenMissing};
}

constexpr const char* cylinderMeaning = "its dimensions and the number of rays: write the unit";
constexpr VEXMELKTable cylinderTable{
    Length<&Record::radius>("radius", cylinderMeaning, Unit{""}, Keep, NotNegative),
    Length<&Record::height>("height", cylinderMeaning, Unit{""}, Keep, NotNegative),
    NumberText<&Record::visibleRayCount>("visibleRayCount", cylinderMeaning, Keep, NotNegative),
};
constexpr VEXMELKElement cylinder = OfCategory("cylinder", cylinderTable.rows, "the object to be seen", "all kept");

constexpr const char* frontView = "front_view";
constexpr VEXMELKWord areaTypes[] = {{frontView}};
constexpr VEXMELKTable typeTable{
    Text<&Record::type>("type", "`front_view`, or another text", Or{{areaTypes}}, Keep),
};
constexpr VEXMELKTable frontViewTable{
    Length<&Record::front_offset>("front_offset", "read for `front_view` only", OnlyFor{frontView}, Else("2000mm")),
    Length<&Record::driver_side_extension>(
        "driver_side_extension", "read for `front_view` only", OnlyFor{frontView}, Else("700mm")),
    Length<&Record::passenger_side_extension>(
        "passenger_side_extension", "read for `front_view` only", OnlyFor{frontView}, Else("900mm")),
};
constexpr VEXMELKElement area =
    OfCategory("area", typeTable.rows, "where it may stand", "the defaults below; `type` kept", frontViewTable.rows);

constexpr VEXMELKTable zoneTable{
    Text<&Record::param1>("param1", "parameters", Keep),
    Text<&Record::param2>("param2", "parameters", Keep),
};
constexpr VEXMELKElement deathZone = OfCategory("death_zone", zoneTable.rows, "the zone that is left out", "all kept");

constexpr const VEXMELKElement* elements[] = {&categoryElements, &cylinder, &area, &deathZone};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(cylinderTable, typeTable, frontViewTable, zoneTable);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKCRVConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKCRVConfig::description{
    .name = "CRV",
    .file = "Vision\\CloseRangeVisibility.xml",
    .meaning = "What the driver has to see close around the vehicle.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKCRVConfig::VEXMELKCRVConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKCRVConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKCRVConfigDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            ReadFields(Decimals(), CATIDOMNamedNodeMap_var(), NULL_var, frontViewTable, definition); // the defaults
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            const CATIDOMElement_var defaultElement = GetCategoryElement(standard, defaultCategory);
            if (element == NULL_var && defaultElement == NULL_var)
                return 0;
            const auto attributesOf = [&](const VEXMELKElement& described)
            { return AttributesOf(FindInEither(element, defaultElement, described)); };

            ReadFields(Decimals(), attributesOf(cylinder), NULL_var, cylinderTable, definition);
            const CATIDOMNamedNodeMap_var areaAttributes = attributesOf(area);
            ReadFields(Decimals(), areaAttributes, NULL_var, typeTable, definition);
            if (definition.type == frontView)
                ReadFields(Decimals(), areaAttributes, NULL_var, frontViewTable, definition);
            ReadFields(Decimals(), attributesOf(deathZone), NULL_var, zoneTable, definition);
            return 1;
        });
}
