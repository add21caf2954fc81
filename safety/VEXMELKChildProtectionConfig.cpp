// The child test body: one table of the category.
#include "VEXMELKChildProtectionConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKChildProtectionDefinition;

constexpr VEXMELKTable table{
    Length<&Record::CPShDist>("CPShDist", "shoulder: distance, radius", NotNegative),
    Length<&Record::CPShRadius>("CPShRadius", "shoulder: distance, radius", NotNegative),
    Length<&Record::CPBackDist>("CPBackDist", "distance of the back", NotNegative),
    Angle<&Record::CPTopAngle>("CPTopAngle", "top angle"),
    Length<&Record::CPShCShift>("CPShCShift", "centre shift"),
    Angle<&Record::CPVolVertAngle>("CPVolVertAngle", "the volume's angles"),
    Angle<&Record::CPVolHorizAngle>("CPVolHorizAngle", "the volume's angles"),
    Length<&Record::CPVolHorizOffset>("CPVolHorizOffset", "the volume's horizontal offset"),
    Flag<&Record::CPUseCShift>("CPUseCShift", "whether the centre is shifted"),
    Length<&Record::CPAustralianNormOffset>("CPAustralianNormOffset", "its offset"),
    Flag<&Record::CPAustralianNorm>("CPAustralianNorm", "the Australian variant"),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKChildProtectionConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKChildProtectionConfig::description{
    .name = "ChildProtection",
    .file = "OVA\\ChildProtection.xml",
    .meaning = "The dimensions of the child test body.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKChildProtectionConfig::VEXMELKChildProtectionConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKChildProtectionConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKChildProtectionDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
