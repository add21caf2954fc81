// The ramp angle: one table of the category.
#include "VEXMELKUFInnerAngleConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr VEXMELKOutputTable<CATUnicodeString, CATUnicodeString> table{
    Angle("inner_angle", "angle"), Text("calculation", "name of the calculation")};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFInnerAngleConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, table),
};

constinit const VEXMELKDescription VEXMELKUFInnerAngleConfig::description{
    .name = "UFInnerAngle",
    .file = "OVA\\UFInnerAngle.xml",
    .meaning = "The ramp angle between the axles.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFInnerAngleConfig::VEXMELKUFInnerAngleConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFInnerAngleConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& innerAngle, CATUnicodeString& calculation)
{
    return ReadCategory(*this, standard, category, Decimals(), table, innerAngle, calculation);
}
