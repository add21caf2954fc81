// The shares that the wipers cover: one table of the category, handed out as plain numbers.
#include "VEXMELKWipersConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKWipersDefinition;

constexpr VEXMELKTable table{
    Number<&Record::a_field>("a_field",
        "share of each field; what follows the number (`98%`) is ignored, and a text that is none is 0", Else(-1.0),
        Share),
    Number<&Record::b_field>("b_field",
        "share of each field; what follows the number (`98%`) is ignored, and a text that is none is 0", Else(-1.0),
        Share),
    Number<&Record::c_field>("c_field",
        "share of each field; what follows the number (`98%`) is ignored, and a text that is none is 0", Else(-1.0),
        Share),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKWipersConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKWipersConfig::description{
    .name = "Wipers",
    .file = "Toolbox\\Wipers.xml",
    .meaning = "The shares of the fields of view that the wipers have to cover.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKWipersConfig::VEXMELKWipersConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKWipersConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKWipersDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
