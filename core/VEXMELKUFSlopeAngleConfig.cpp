// The slope angles: one table of the category.
#include "VEXMELKUFSlopeAngleConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr VEXMELKOutputTable<CATUnicodeString, CATUnicodeString> table{
    Angle("front_angle", "angles in front and behind"), Angle("back_angle", "angles in front and behind")};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFSlopeAngleConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, table),
};

constinit const VEXMELKDescription VEXMELKUFSlopeAngleConfig::description{
    .name = "UFSlopeAngle",
    .file = "OVA\\UFSlopeAngle.xml",
    .meaning = "The slope angles at the vehicle's ends.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFSlopeAngleConfig::VEXMELKUFSlopeAngleConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFSlopeAngleConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& frontAngle, CATUnicodeString& backAngle)
{
    return ReadCategory(*this, standard, category, Decimals(), table, frontAngle, backAngle);
}
