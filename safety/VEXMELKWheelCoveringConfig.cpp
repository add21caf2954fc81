// How the wheels are covered: one table of the category. A missing "BottomOffset" keeps what the check had, because it
// may have set it from the model.
#include "VEXMELKWheelCoveringConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKWheelCoveringDefinition;

constexpr VEXMELKTable table{
    Angle<&Record::FrontAlpha>("FrontAlpha", "covering angles in front"),
    Angle<&Record::FrontBeta>("FrontBeta", "covering angles in front"),
    Angle<&Record::BackAlpha>("BackAlpha", "covering angles behind"),
    Angle<&Record::BackBeta>("BackBeta", "covering angles behind"),
    Length<&Record::BottomOffset>("BottomOffset", "offset of the bottom", Keep),
    Length<&Record::TriangleHeight>("TriangleHeight", "heights", NotNegative),
    Length<&Record::LineHeight>("LineHeight", "heights", NotNegative),
    Flag<&Record::HasSpecialBack>("HasSpecialBack", "special back"),
    Text<&Record::AlgorithmType>("AlgorithmType", "name of the algorithm"),
    Length<&Record::Tolerance>("Tolerance", "tolerance: write the unit", Unit{""}, Else("0.0m"), NotNegative),
};
constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKWheelCoveringConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKWheelCoveringConfig::description{
    .name = "WheelCovering",
    .file = "OVA\\WheelCovering.xml",
    .meaning = "How far the body has to cover the wheels.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKWheelCoveringConfig::VEXMELKWheelCoveringConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKWheelCoveringConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKWheelCoveringDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}
