// The planes of vision: one table of the category. The file is called VisionPlanes.xml.
#include "VEXMELKPyramidConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKPyramidConfigDefinition;

constexpr VEXMELKTable table{
    Angle<&Record::front_angle>("front_angle", "angles of the planes"),
    Angle<&Record::driver_angle>("driver_angle", "angles of the planes"),
    Angle<&Record::passenger_angle>("passenger_angle", "angles of the planes"),
    Angle<&Record::middle_plane_angle>("middle_plane_angle", "angles of the planes"),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKPyramidConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKPyramidConfig::description{
    .name = "Pyramid",
    .file = "Vision\\VisionPlanes.xml",
    .meaning = "The planes that bound the field of vision.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKPyramidConfig::VEXMELKPyramidConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKPyramidConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKPyramidConfigDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
