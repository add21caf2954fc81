// The vision points: one table of the category.
#include "VEXMELKVisionPointsConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKVisionPointsConfigDefinition;

constexpr VEXMELKTable table{
    Angle<&Record::top_angle>("top_angle", "angles"),
    Angle<&Record::bottom_angle>("bottom_angle", "angles"),
    Angle<&Record::horizontal_angle>("horizontal_angle", "angles"),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKVisionPointsConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKVisionPointsConfig::description{
    .name = "VisionPoints",
    .file = "Vision\\VisionPoints.xml",
    .meaning = "The angles under which the vision points are seen.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKVisionPointsConfig::VEXMELKVisionPointsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKVisionPointsConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKVisionPointsConfigDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
