// The clearance over a curb in motion: one table of the category.
#include "VEXMELKUFDynamicCurbConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr VEXMELKOutputTable<CATUnicodeString, CATUnicodeString, CATUnicodeString, CATUnicodeString> table{
    Length("out_offset", "offsets outside and inside"), Length("in_offset", "offsets outside and inside"),
    Length("in_length", "length inside", NotNegative), Text("calculation", "name of the calculation")};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFDynamicCurbConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, table),
};

constinit const VEXMELKDescription VEXMELKUFDynamicCurbConfig::description{
    .name = "UFDynamicCurb",
    .file = "OVA\\UFDynamicCurb.xml",
    .meaning = "The clearance over a curb while the vehicle moves.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFDynamicCurbConfig::VEXMELKUFDynamicCurbConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFDynamicCurbConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& outOffset, CATUnicodeString& inOffset,
    CATUnicodeString& inLength, CATUnicodeString& calculation)
{
    return ReadCategory(*this, standard, category, Decimals(), table, outOffset, inOffset, inLength, calculation);
}
