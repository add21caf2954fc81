// The cone of vision: one table of the category.
#include "VEXMELKVisionConeConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKVisionConeConfigDefinition;

constexpr VEXMELKTable table{
    Angle<&Record::cone_angle>("cone_angle", "angle of the cone"),
    Angle<&Record::horizontal_axis_angle>("horizontal_axis_angle", "direction of its axis"),
    Angle<&Record::vertical_axis_angle>("vertical_axis_angle", "direction of its axis"),
    Length<&Record::cone_length>("cone_length", "its length", NotNegative),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKVisionConeConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKVisionConeConfig::description{
    .name = "VisionCone",
    .file = "Vision\\VisionCone.xml",
    .meaning = "The cone in which the driver sees sharply.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKVisionConeConfig::VEXMELKVisionConeConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKVisionConeConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKVisionConeConfigDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
