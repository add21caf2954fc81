// The grid of the windscreen, for the two configurations that derive from this one. The manager has no object of it:
// its creator names the file and keeps it.
#include "VEXMELKOpticalPropsOfWSConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKOpticalPropsOfWSConfigDef;

constexpr VEXMELKTable table{
    Length<&Record::gridOriginX>("gridOriginX", "origin of the grid"),
    Length<&Record::gridOriginY>("gridOriginY", "origin of the grid"),
    Length<&Record::gridOriginZ>("gridOriginZ", "origin of the grid"),
    Length<&Record::gridXSpace>("gridXSpace", "its spacing", NotNegative),
    Length<&Record::gridYSpace>("gridYSpace", "its spacing", NotNegative),
    Flag<&Record::fromInside>("fromInside", "seen from inside", Else(true)),
    Angle<&Record::reqValue>("reqValue", "required values"),
    Angle<&Record::AreqValue>("AreqValue", "required values"),
    Angle<&Record::BreqValue>("BreqValue", "required values"),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKOpticalPropsOfWSConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKOpticalPropsOfWSConfig::description{
    .name = "OpticalPropsOfWS",
    .meaning = "The grid of the windscreen.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKOpticalPropsOfWSConfig::VEXMELKOpticalPropsOfWSConfig(
    const CATUnicodeString& configurationDirectory, const CATUnicodeString& fileName)
    : VEXMELKUnderfloorConfig(configurationDirectory, fileName)
{
}

unsigned char VEXMELKOpticalPropsOfWSConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKOpticalPropsOfWSConfigDef& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
