// Multiple reflections in the windscreen. The grid is read by the base class.
#include "VEXMELKMultipleReflectionConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKMultipleReflectionConfigDef;

constexpr VEXMELKWord rayDirections[] = {{"XDirection", RayXDirection}, {"standard", RayStandard}};
constexpr VEXMELKTable table{
    Word<&Record::rayDirection>("rayDirection", {rayDirections, RayStandard},
        "exactly `XDirection` (1); anything else is the standard direction (0)", Else(RayStandard)),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKMultipleReflectionConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKMultipleReflectionConfig::description{
    .name = "MultipleReflection",
    .file = "Vision\\MultipleReflection.xml",
    .meaning = "Multiple reflections in the windscreen.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKOpticalPropsOfWSConfig::description,
};

VEXMELKMultipleReflectionConfig::VEXMELKMultipleReflectionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKOpticalPropsOfWSConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKMultipleReflectionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKMultipleReflectionConfigDef& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
