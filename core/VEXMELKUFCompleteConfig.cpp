// The standards of the seven underfloor checks: names only, and whether they exist is not looked at.
#include "VEXMELKUFCompleteConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKUFCompleteConfigDefinition;

constexpr VEXMELKTable table{
    Name<&Record::Curb>("Curb", "standard of UFCurb.xml", "the standard of `UFCurb.xml`"),
    Name<&Record::DynCurb>("DynCurb", "standard of UFDynamicCurb.xml", "the standard of `UFDynamicCurb.xml`"),
    Name<&Record::InnerAngle>("InnerAngle", "standard of UFInnerAngle.xml", "the standard of `UFInnerAngle.xml`"),
    Name<&Record::OilTub>("OilTub", "standard of UFOilTub.xml", "the standard of `UFOilTub.xml`"),
    Name<&Record::SlopeAngle>("SlopeAngle", "standard of UFSlopeAngle.xml", "the standard of `UFSlopeAngle.xml`"),
    Name<&Record::SpaceToRoad>("SpaceToRoad", "standard of UFSpaceToRoad.xml", "the standard of `UFSpaceToRoad.xml`"),
    Name<&Record::WheelFixing>("WheelFixing", "standard of UFWheelFixing.xml", "the standard of `UFWheelFixing.xml`"),
};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFCompleteConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKUFCompleteConfig::description{
    .name = "UFComplete",
    .file = "OVA\\UFComplete.xml",
    .meaning = "Which standards the seven underfloor checks use when they run together.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFCompleteConfig::VEXMELKUFCompleteConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFCompleteConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKUFCompleteConfigDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
