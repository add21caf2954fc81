// The test body for free space: one table of the category. The attributes are spelt "Hight".
#include "VEXMELKFreeSpaceConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKFreeSpaceDefinition;

constexpr VEXMELKTable table{
    Angle<&Record::FSFrontAngle>("FSFrontAngle", "angles"),
    Angle<&Record::FSMidAngle>("FSMidAngle", "angles"),
    Angle<&Record::FSBackAngle>("FSBackAngle", "angles"),
    Angle<&Record::FSSideAngle>("FSSideAngle", "angles"),
    Length<&Record::FSNoseLength>("FSNoseLength", "the nose", NotNegative),
    Length<&Record::FSHoleDistance>("FSHoleDistance", "the hole", NotNegative),
    Length<&Record::FSHoleHight>("FSHoleHight", "the hole", NotNegative),
    Length<&Record::FSHoleLength>("FSHoleLength", "the hole", NotNegative),
    Length<&Record::FSBottomHight>("FSBottomHight", "bottom and middle", NotNegative),
    Length<&Record::FSNoseHight>("FSNoseHight", "the nose", NotNegative),
    Length<&Record::FSBodyHight>("FSBodyHight", "the body", NotNegative),
    Length<&Record::FSMidLength>("FSMidLength", "bottom and middle", NotNegative),
    Length<&Record::FSNoseWidth>("FSNoseWidth", "the nose", NotNegative),
    Length<&Record::FSBodyWidth>("FSBodyWidth", "the body", NotNegative),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKFreeSpaceConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKFreeSpaceConfig::description{
    .name = "FreeSpace",
    .file = "OVA\\FreeSpace.xml",
    .meaning = "The test body that has to find room.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKFreeSpaceConfig::VEXMELKFreeSpaceConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKFreeSpaceConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKFreeSpaceDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
