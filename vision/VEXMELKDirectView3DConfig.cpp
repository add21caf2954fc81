// The three-dimensional direct view. The attributes fall back to "default" one by one; the target does not.
#include "VEXMELKDirectView3DConfig.h"

#include "VEXMELKReader.h"

#include "CATMathDef.h"

namespace {

using Record = VEXMELKDirectView3DCFG;

constexpr VEXMELKWord computationTypes[] = {{"Ambinocular", DV3DAmbinocular}, {"Monocular", DV3DMonocular}};
constexpr VEXMELKWords computationWords{computationTypes, DV3DMonocular};
constexpr VEXMELKWord directions[] = {{"", DV3DFrontward}, {"frontward", DV3DFrontward}, {"backward", DV3DBackward},
    {"left", DV3DLeft}, {"right", DV3DRight}};
constexpr VEXMELKWords directionWords{directions, DV3DAngle};
constexpr VEXMELKWord targetTypes[] = {
    {"Parallel", DV3DParallel}, {"Perpendicular", DV3DPerpendicular}, {"Spherical", DV3DSpherical}};
constexpr VEXMELKWords targetWords{targetTypes, DV3DPerpendicular};

constexpr VEXMELKTable table{
    Word<&Record::ComputationTypeText>(
        "ComputationType", computationWords, "exactly `Ambinocular` (1); anything else is monocular (0)"),
    Radians<&Record::ViewRange>("ViewRange", "angle"),
    Angle<&Record::DirectionText>("Direction",
        "exactly `frontward` (0), `backward` (1), `left` (2) or `right` (3); any other text is an angle (4) in "
        "degrees, handed out in radians; a missing one is frontward",
        Unit{""}, CountsAs{"deg"}, Or{directionWords}),
};
constexpr VEXMELKElement categoryElements = CategoryWith(table.rows);

constexpr VEXMELKTable targetTable{
    Millimetres<&Record::TargetDistance>("Distance", "its distance", NotNegative),
    Word<&Record::TargetTypeText>("type", targetWords,
        "exactly `Parallel` (0), `Perpendicular` (1) or `Spherical` (2); anything else is perpendicular"),
};
constexpr VEXMELKElement targetElement{.tag = "Target",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {targetTable.rows},
    .meaning = "the target; the first counts",
    .whenMissing = "all of it kept"};

constexpr const VEXMELKElement* elements[] = {&categoryElements, &targetElement};
constexpr VEXMELKParameter textArgument{.name = "text", .role = VEXMELKRole::Word};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table, targetTable,
    VEXMELKComputed<&Record::ComputationType>(), VEXMELKComputed<&Record::TargetType>(),
    VEXMELKComputed<&Record::Orientation>(), VEXMELKComputed<&Record::DirectionAngle>{"rad"});

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKDirectView3DConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKDirectView3DConfig::DirectionFromString>(
        "DirectionFromString", textArgument, Output("orientation")),
    VEXMELKDescribe<&VEXMELKDirectView3DConfig::ComputationTypeFromString>("ComputationTypeFromString", textArgument),
    VEXMELKDescribe<&VEXMELKDirectView3DConfig::TargetTypeFromString>("TargetTypeFromString", textArgument),
};

constinit const VEXMELKDescription VEXMELKDirectView3DConfig::description{
    .name = "DirectView3D",
    .file = "Vision\\DirectView3D.xml",
    .meaning = "How a three-dimensional direct view is computed.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKDirectView3DConfig::VEXMELKDirectView3DConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

double VEXMELKDirectView3DConfig::DirectionFromString(CATUnicodeString& text, VEXMELKDV3DOrientation& orientation)
{
    return Answer(*this,
        [&]
        {
            orientation = static_cast<VEXMELKDV3DOrientation>(ValueOfWord(directionWords, text));
            return orientation == DV3DAngle ? NumberFromText(text) * CATDegreeToRadian : 0.0;
        });
}

VEXMELKDV3DComputationType VEXMELKDirectView3DConfig::ComputationTypeFromString(CATUnicodeString& text)
{
    return static_cast<VEXMELKDV3DComputationType>(ValueOfWord(computationWords, text));
}

VEXMELKDV3DTargetType VEXMELKDirectView3DConfig::TargetTypeFromString(CATUnicodeString& text)
{
    return static_cast<VEXMELKDV3DTargetType>(ValueOfWord(targetWords, text));
}

unsigned char VEXMELKDirectView3DConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKDirectView3DCFG& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            CATIDOMNamedNodeMap_var map;
            CATIDOMNamedNodeMap_var defaultMap;
            const CATIDOMElement_var element = GetCategoryElement(standard, category, map, defaultMap);
            if (element == NULL_var)
                return 1;
            ReadFields(Decimals(), map, defaultMap, table, definition);
            definition.ComputationType = ComputationTypeFromString(definition.ComputationTypeText);
            definition.DirectionAngle = DirectionFromString(definition.DirectionText, definition.Orientation);

            const CATIDOMElement_var target = Find(element, targetElement);
            if (target == NULL_var)
                return 1;
            ReadFields(Decimals(), target, targetTable, definition);
            definition.TargetType = TargetTypeFromString(definition.TargetTypeText);
            return 1; // always
        });
}
