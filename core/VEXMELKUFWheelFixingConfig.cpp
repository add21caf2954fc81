// The space around the wheel fixing: one table of the category.
#include "VEXMELKUFWheelFixingConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr VEXMELKOutputTable<CATUnicodeString, CATUnicodeString> table{
    Length("radius", "radius", NotNegative), Length("offset", "offset")};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFWheelFixingConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, table),
};

constinit const VEXMELKDescription VEXMELKUFWheelFixingConfig::description{
    .name = "UFWheelFixing",
    .file = "OVA\\UFWheelFixing.xml",
    .meaning = "The free space around the wheel fixing.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFWheelFixingConfig::VEXMELKUFWheelFixingConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFWheelFixingConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& radius, CATUnicodeString& offset)
{
    return ReadCategory(*this, standard, category, Decimals(), table, radius, offset);
}
