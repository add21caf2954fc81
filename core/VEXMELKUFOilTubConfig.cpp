// The clearance below the oil tub: one table of the category.
#include "VEXMELKUFOilTubConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr VEXMELKOutputTable<CATUnicodeString, CATUnicodeString, CATUnicodeString, CATUnicodeString> table{
    Length("out_offset", "offsets outside and inside"), Angle("out_angle", "angles outside and inside"),
    Length("in_offset", "offsets outside and inside"), Angle("in_angle", "angles outside and inside")};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFOilTubConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, table),
};

constinit const VEXMELKDescription VEXMELKUFOilTubConfig::description{
    .name = "UFOilTub",
    .file = "OVA\\UFOilTub.xml",
    .meaning = "The clearance below the oil tub.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFOilTubConfig::VEXMELKUFOilTubConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFOilTubConfig::GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
    CATUnicodeString& outOffset, CATUnicodeString& outAngle, CATUnicodeString& inOffset, CATUnicodeString& inAngle)
{
    return ReadCategory(*this, standard, category, Decimals(), table, outOffset, outAngle, inOffset, inAngle);
}
