// The fields of view A, B and C. The elements of "default" are read first and those of the category over them; the
// thresholds fall back one by one.
#include "VEXMELKFieldsOfViewConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKFieldsOfViewConfigDefinition;
using Field = VEXMELKFOVField;
using Interval = VEXMELKFOVInterval;

constexpr VEXMELKTable table{
    Length<&Record::threshold1>("threshold1", "thresholds", NotNegative),
    Length<&Record::threshold2>("threshold2", "thresholds", NotNegative),
    Length<&Record::threshold3>("threshold3", "thresholds", NotNegative),
    Length<&Record::threshold4>("threshold4", "thresholds", NotNegative),
};
constexpr VEXMELKElement categoryElements = CategoryWith(table.rows);

// By their place in the record.
constexpr int noField = -1;
constexpr VEXMELKWord fieldTypes[] = {{"A", 0}, {"B", 1}, {"C", 2}};
constexpr VEXMELKRow fieldType = Word("type", {fieldTypes, noField}, "exactly `A`, `B` or `C`", Skip);
constexpr VEXMELKTable fieldTable{
    Length<&Field::offset>("offset", "offset"),
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

constexpr VEXMELKRow intervalIndex =
    Integer("index", "integer 0 to 4; another number is skipped", Skip, VEXMELKRange{.isNotNegative = true, .upTo = 4});
constexpr VEXMELKTable intervalTable{
    Angle<&Interval::top_angle>("top_angle", "limits"),
    Angle<&Interval::bottom_angle>("bottom_angle", "limits"),
    Angle<&Interval::driver_angle>("driver_angle", "limits"),
    Angle<&Interval::passenger_angle>("passenger_angle", "limits"),
};
constexpr VEXMELKElement intervalElements{.tag = "interval",
    .below = &fieldElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::Overlay,
    .key = &intervalIndex,
    .tables = {intervalTable.rows},
    .meaning = "one interval",
    .whenMissing = "kept"};

constexpr const VEXMELKElement* elements[] = {&categoryElements, &fieldElements, &intervalElements};

void ReadInterval(VEXMELKDecimals decimals, const CATIDOMElement_var& element, Field& field)
{
    CATUnicodeString indexText;
    int index = 0;
    if (!ReadText(decimals, element, intervalIndex, indexText) || !indexText.ConvertToNum(&index, "%d") || index < 0 ||
        index >= static_cast<int>(field.intervals.size()))
        return;
    Interval& interval = field.intervals[static_cast<std::size_t>(index)];
    ReadFields(decimals, element, intervalTable, interval);
    interval.present = 1;
}

void ReadField(VEXMELKDecimals decimals, const CATIDOMElement_var& element, Record& definition)
{
    const int type = ReadWord(decimals, element, fieldType);
    if (type == noField)
        return;
    Field& field = definition.fields[static_cast<std::size_t>(type)];
    field.present = 1;
    ReadFields(decimals, element, fieldTable, field);
    ForEachNotReplaced(
        element, intervalElements,
        [&](const CATIDOMElement_var& nested) { return ReadWord(decimals, nested, fieldType) == type; },
        [&](const CATIDOMElement_var& interval) { ReadInterval(decimals, interval, field); });
}

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Interval> = VEXMELKFieldList<Interval>(
    intervalTable, VEXMELKComputed<&Interval::present>());
template <>
constexpr auto VEXMELKFieldsOf<Field> = VEXMELKFieldList<Field>(
    fieldTable, VEXMELKNested<&Field::intervals>(), VEXMELKComputed<&Field::present>());
template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table, VEXMELKNested<&Record::fields>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKFieldsOfViewConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKFieldsOfViewConfig::description{
    .name = "FieldsOfView",
    .file = "Vision\\FieldsOfView.xml",
    .meaning = "The fields of view A, B and C, each in up to five intervals.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKFieldsOfViewConfig::VEXMELKFieldsOfViewConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKFieldsOfViewConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKFieldsOfViewConfigDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const StandardData data = FindStandardData(standard, category);
            const CATIDOMElement_var& element = data.category != NULL_var ? data.category : data.defaultCategory;
            if (element == NULL_var)
                return 0;
            ReadFields(Decimals(), AttributesOf(element), AttributesOf(data.defaultCategory), table, definition);
            for (const CATIDOMElement_var* pass : {&data.defaultCategory, &element})
                ForEach(*pass, fieldElements,
                    [&](const CATIDOMElement_var& field) { ReadField(Decimals(), field, definition); });
            return 1;
        });
}
