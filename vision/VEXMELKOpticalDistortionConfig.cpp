// The optical distortion of the windscreen. The grid is read by the base class.
#include "VEXMELKOpticalDistortionConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKOpticalDistortionConfigDef;

constexpr VEXMELKTable table{
    Length<&Record::dcRadius>("dcRadius", "radius", NotNegative),
    NumberText<&Record::dcDensity>("dcDensity", "density", NotNegative),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKOpticalDistortionConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKOpticalDistortionConfig::description{
    .name = "OpticalDistortion",
    .file = "Vision\\OpticalDistortion.xml",
    .meaning = "The optical distortion of the windscreen.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKOpticalPropsOfWSConfig::description,
};

VEXMELKOpticalDistortionConfig::VEXMELKOpticalDistortionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKOpticalPropsOfWSConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKOpticalDistortionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKOpticalDistortionConfigDef& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
