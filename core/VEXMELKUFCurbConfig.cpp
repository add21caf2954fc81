// The clearance over a curb: one table of the category.
#include "VEXMELKUFCurbConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKUFCurbConfigDefinition;

constexpr VEXMELKTable table{
    Length<&Record::FrontOffset>("front_offset", "offsets in front and behind"),
    Angle<&Record::FrontAngle>("front_angle", "angles in front and behind"),
    Angle<&Record::BackAngle>("back_angle", "angles in front and behind"),
    Length<&Record::BackOffset>("back_offset", "offsets in front and behind"),
};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFCurbConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKUFCurbConfig::description{
    .name = "UFCurb",
    .file = "OVA\\UFCurb.xml",
    .meaning = "The clearance of the vehicle's ends over a curb.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFCurbConfig::VEXMELKUFCurbConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFCurbConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKUFCurbConfigDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
