// The A-pillars: one table of the category.
#include "VEXMELKAPillarConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKAPillarConfigDefinition;

constexpr VEXMELKTable table{
    Angle<&Record::top_angle>("top_angle", "angles"),
    Angle<&Record::bottom_angle>("bottom_angle", "angles"),
    Angle<&Record::driver_angle>("driver_angle", "angles"),
    Angle<&Record::passenger_angle>("passenger_angle", "angles"),
    Length<&Record::eye_triangle_side>("eye_triangle_side", "the eye triangle", NotNegative),
    Length<&Record::eye_triangle_base>("eye_triangle_base", "the eye triangle", NotNegative),
    Angle<&Record::touch_line_angle>("touch_line_angle", "angle of the touch line"),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKAPillarConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKAPillarConfig::description{
    .name = "APillar",
    .file = "Vision\\APillar.xml",
    .meaning = "How far the A-pillars may obstruct the view.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKAPillarConfig::VEXMELKAPillarConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKAPillarConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKAPillarConfigDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
