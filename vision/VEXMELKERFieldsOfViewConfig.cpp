// The extended field A and the reduced field B. The elements of "default" are read first and those of the category over
// them; each kind of area reads only its own attributes.
#include "VEXMELKERFieldsOfViewConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKERFieldsOfViewConfigDefinition;
using Field = VEXMELKERFOVField;
using Area = VEXMELKERFOVSubtractArea;

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::Overlay);

// By their place in the record.
enum FieldType : int
{
    ExtendedA,
    ReducedB,
    NoField
};
constexpr VEXMELKWord fieldTypes[] = {{"extended A", ExtendedA}, {"reduced B", ReducedB}};
constexpr VEXMELKRow fieldType = Word("type", {fieldTypes, NoField}, "exactly `extended A` or `reduced B`", Skip);
constexpr VEXMELKTable fieldTable{
    Angle<&Field::top_angle>("top_angle", "limits"),
    Angle<&Field::bottom_angle>("bottom_angle", "limits"),
    Angle<&Field::driver_angle>("driver_angle", "limits"),
    Length<&Field::offset>("offset", "offset", Else("0mm")),
};
constexpr VEXMELKElement fieldElements{.tag = "field",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::Overlay,
    .key = &fieldType,
    .tables = {fieldTable.rows},
    .meaning = "one field",
    .whenMissing = "kept"};

constexpr VEXMELKWord switches[] = {{"on"}, {"off"}};
constexpr VEXMELKTable upperTable{
    Text<&Area::upper_area_default>("upper_area_default", "of an `upper area`", OnlyFor{"upper area"}, Or{{switches}}),
    Angle<&Area::bottom_angle>("bottom_angle", "of an `upper area` or a `lower area`", OnlyFor{"upper area"}),
    Angle<&Area::A1_driver_angle>("A1_driver_angle", "of an `upper area`", OnlyFor{"upper area"}),
    Length<&Area::A2_area_width>("A2_area_width", "of an `upper area`", OnlyFor{"upper area"}, NotNegative),
};
constexpr VEXMELKTable sideTable{
    Text<&Area::side_area_default>("side_area_default", "of a `side area`", OnlyFor{"side area"}, Or{{switches}}),
    Angle<&Area::driver_angle>("driver_angle", "of a `side area`", OnlyFor{"side area"}),
};
constexpr VEXMELKTable lowerTable{
    Text<&Area::lower_area_default>("lower_area_default", "of a `lower area`", OnlyFor{"lower area"}, Or{{switches}}),
    Angle<&Area::bottom_angle>("bottom_angle", "of an `upper area` or a `lower area`", OnlyFor{"lower area"}),
    Length<&Area::cut_out_width>("cut_out_width", "of a `lower area`", OnlyFor{"lower area"}, NotNegative),
};
constexpr VEXMELKTable extendedTable{
    Text<&Area::extended_a_field_default>(
        "extended_a_field_default", "of an `extended a-field`", OnlyFor{"extended a-field"}, Or{{switches}}),
};
enum AreaType : int
{
    UpperArea,
    SideArea,
    LowerArea,
    ExtendedAField,
    NoArea
};
constexpr VEXMELKWord areaTypes[] = {{"upper area", UpperArea}, {"side area", SideArea}, {"lower area", LowerArea},
    {"extended a-field", ExtendedAField}};
constexpr VEXMELKRow areaType =
    Word("type", {areaTypes, NoArea}, "`upper area`, `side area`, `lower area` or `extended a-field`, exactly", Skip);
constexpr VEXMELKElement areaElements{.tag = "subtract",
    .below = &fieldElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::Overlay,
    .key = &areaType,
    .tables = {upperTable.rows, sideTable.rows, lowerTable.rows, extendedTable.rows},
    .meaning = "an area that is cut out, of a field `reduced B` only",
    .whenMissing = "kept"};

constexpr const VEXMELKElement* elements[] = {&categoryElements, &fieldElements, &areaElements};

void ReadArea(VEXMELKDecimals decimals, const CATIDOMElement_var& element, Field& field)
{
    const auto read = [&](Area& area, const auto& table)
    {
        area.present = 1;
        ReadFields(decimals, element, table, area);
    };
    switch (ReadWord(decimals, element, areaType))
    {
    case UpperArea:
        return read(field.upper_area, upperTable);
    case SideArea:
        return read(field.side_area, sideTable);
    case LowerArea:
        return read(field.lower_area, lowerTable);
    case ExtendedAField:
        return read(field.extended_a_field, extendedTable);
    default:
        return;
    }
}

void ReadField(VEXMELKDecimals decimals, const CATIDOMElement_var& element, Record& definition)
{
    const int type = ReadWord(decimals, element, fieldType);
    if (type == NoField)
        return;
    Field& field = definition.fields[static_cast<std::size_t>(type)];
    field.present = 1;
    ReadFields(decimals, element, fieldTable, field);
    if (type == ReducedB)
        ForEachNotReplaced(
            element, areaElements,
            [&](const CATIDOMElement_var& nested) { return ReadWord(decimals, nested, fieldType) == type; },
            [&](const CATIDOMElement_var& area) { ReadArea(decimals, area, field); });
}

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Area> = VEXMELKFieldList<Area>(
    upperTable, sideTable, lowerTable, extendedTable, VEXMELKComputed<&Area::present>());
template <>
constexpr auto VEXMELKFieldsOf<Field> = VEXMELKFieldList<Field>(fieldTable, VEXMELKNested<&Field::upper_area>(),
    VEXMELKNested<&Field::side_area>(), VEXMELKNested<&Field::lower_area>(), VEXMELKNested<&Field::extended_a_field>(),
    VEXMELKComputed<&Field::present>());
template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(VEXMELKNested<&Record::fields>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKERFieldsOfViewConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKERFieldsOfViewConfig::description{
    .name = "ERFieldsOfView",
    .file = "Vision\\ERFieldsOfView.xml",
    .meaning = "The extended field of view A and the reduced field B.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKERFieldsOfViewConfig::VEXMELKERFieldsOfViewConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKERFieldsOfViewConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, VEXMELKERFieldsOfViewConfigDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const StandardData data = FindStandardData(standard, category);
            const CATIDOMElement_var& element = data.category != NULL_var ? data.category : data.defaultCategory;
            if (element == NULL_var)
                return 0;
            for (const CATIDOMElement_var* pass : {&data.defaultCategory, &element})
                ForEach(*pass, fieldElements,
                    [&](const CATIDOMElement_var& field) { ReadField(Decimals(), field, definition); });
            return 1;
        });
}
