// The areas of the number plates: one table of the category.
#include "VEXMELKNumberPlatesConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKNumberPlatesDefinition;

constexpr VEXMELKTable table{
    Length<&Record::FrontLowerLimit>("FrontLowerLimit", "lower and upper limit of the front plate's area"),
    Length<&Record::FrontUpperLimit>("FrontUpperLimit", "lower and upper limit of the front plate's area"),
    Length<&Record::FrontRightLimit>("FrontRightLimit", "its left and right limit"),
    Length<&Record::FrontLeftLimit>("FrontLeftLimit", "its left and right limit"),
    Length<&Record::BackLowerLimit>("BackLowerLimit", "lower and upper limit of the back plate's area"),
    Length<&Record::BackUpperLimit>("BackUpperLimit", "lower and upper limit of the back plate's area"),
    Length<&Record::BackRightLimit>("BackRightLimit", "its left and right limit"),
    Length<&Record::BackLeftLimit>("BackLeftLimit", "its left and right limit"),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKNumberPlatesConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKNumberPlatesConfig::description{
    .name = "NumberPlates",
    .file = "OVA\\NumberPlates.xml",
    .meaning = "The limits of the areas of the number plates.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKNumberPlatesConfig::VEXMELKNumberPlatesConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKNumberPlatesConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKNumberPlatesDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
