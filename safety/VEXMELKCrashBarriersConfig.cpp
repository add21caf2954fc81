// The barriers of a standard and their shapes. A barrier without "Overlapping" repeats the fraction of the one before
// it. Shapes are children of the root and serve the standards of both files.
#include "VEXMELKCrashBarriersConfig.h"

#include "VEXMELKReader.h"

namespace {

using Barrier = VEXMELKBarrierDefinition;
using Shape = VEXMELKShapeDefinition;
using Crash = VEXIMELKCrashBarrier;

constexpr VEXMELKWord shapeTypes[] = {
    {"RCAR 2004 Front", Crash::RCAR2004Front}, {"RCAR 2004 Rear", Crash::RCAR2004Rear}, {"RCAR 2006", Crash::RCAR2006}};
constexpr VEXMELKWords shapeWords{shapeTypes, Crash::RCAR2004Front};
constexpr VEXMELKWord positionTypes[] = {
    {"front", Crash::Front}, {"rear", Crash::Rear}, {"left", Crash::Left}, {"right", Crash::Right}};
constexpr VEXMELKWords positionWords{positionTypes, Crash::Front};
// The front counts as the left side and the rear as the right one: a fixed rule.
constexpr VEXMELKWord overlappingSides[] = {
    {"left", Crash::LeftSide}, {"front", Crash::LeftSide}, {"right", Crash::RightSide}, {"rear", Crash::RightSide}};
constexpr VEXMELKWords sideWords{overlappingSides, Crash::LeftSide};

constexpr VEXMELKRow shapeName = Word("name", shapeWords,
    "exactly `RCAR 2004 Front` (type 0), `RCAR 2004 Rear` (1) or `RCAR 2006` (2)", AsWritten(), Skip);
constexpr VEXMELKTable shapeTable{
    NumberText<&Shape::MinRelWidth>("MinRelWidth", "smallest relative width", Else("0.5"), NotNegative),
    Length<&Shape::MinWidth>("MinWidth", "smallest width", Else("1200mm"), NotNegative),
    Length<&Shape::Width>("Width", "dimensions", Keep, NotNegative),
    Length<&Shape::Depth>("Depth", "dimensions", Keep, NotNegative),
    Length<&Shape::Height>("Height", "dimensions", Keep, NotNegative),
    Length<&Shape::Radius>("Radius", "dimensions", Keep, NotNegative),
    Length<&Shape::HeightAboveRoad>("HeightAboveRoad", "dimensions", Keep, NotNegative),
    Length<&Shape::Radius2>("Radius2", "dimensions", Keep, NotNegative),
    Length<&Shape::BaseRadius>("BaseRadius", "of the base", Keep, NotNegative),
    Length<&Shape::BaseDepth>("BaseDepth", "of the base", Keep, NotNegative),
    Length<&Shape::BaseHeight>("BaseHeight", "of the base", Keep, NotNegative),
    Length<&Shape::BaseFPDepth>("BaseFPDepth", "of the base", Keep, NotNegative),
    Length<&Shape::BaseFPMainRadius>("BaseFPMainRadius", "of the base", Keep, NotNegative),
    Length<&Shape::BaseFPSideRadius>("BaseFPSideRadius", "of the base", Keep, NotNegative),
    Length<&Shape::TriangleHeight>("TriangleHeight", "of the triangle", Keep, NotNegative),
    Length<&Shape::TriangleToFP>("TriangleToFP", "of the triangle", Keep),
    Length<&Shape::TriangleSideDepth>("TriangleSideDepth", "of the triangle", Keep, NotNegative),
    Text<&Shape::ReferencePart>("ReferencePart", "name of the reference part", Keep),
    Angle<&Shape::Alpha>("Alpha", "angle", Else("10deg")),
};
constexpr VEXMELKElement shapeElements{.tag = "shape",
    .choice = VEXMELKChoice::ByKey,
    .key = &shapeName,
    .tables = {shapeTable.rows},
    .meaning = "a shape, for the standards of both files; one of the Customer file comes first",
    .whenMissing = "fails"};

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);
constexpr VEXMELKWord middlePosition[] = {{"mid_position"}};
constexpr VEXMELKRow overlapping{.attribute = "Overlapping",
    .meaning = "Percentage of the vehicle's width, with or without `%`; handed out as a fraction (`40` as 0.4). "
               "`mid_position` is the middle position, with the fraction 1. A text that is no number is 0.",
    .kind = VEXMELKKind::Percentage,
    .form = VEXMELKForm::Fraction,
    .whenMissing = {.rule = VEXMELKWhenMissing::Repeats},
    .words = {middlePosition},
    .field = "Overlapping",
    .sensible = Share};
constexpr VEXMELKTable barrierTable{
    Flag<&Barrier::AllowMovingAroundX>("AllowMovingAroundX", "may move around X"),
    Length<&Barrier::DeltaZLeft>("DeltaZLeft", "height shifts: write the unit", Unit{""}, Else("0mm")),
    Length<&Barrier::DeltaZRight>("DeltaZRight", "height shifts: write the unit", Unit{""}, Else("0mm")),
    Word<&Barrier::shape>(
        "shape", shapeWords, "name of a shape; an unknown one counts as `RCAR 2004 Front`", Refers{"shape"}),
    Name<&Barrier::loading>("loading", "loading", "loading state"),
    Word<&Barrier::Position>(
        "Position", positionWords, "`front`, `rear`, `left` or `right`; an unknown one counts as `front`"),
    Angle<&Barrier::Rotation>("Rotation", "rotation", Else("0deg")),
    Word<&Barrier::OverlappingSide>("OverlappingSide", sideWords,
        "`left` or `front` is left, `right` or `rear` is right; an unknown one counts as left"),
    Flag<&Barrier::PositionToGeometry>("PositionToGeometry", "position to the geometry"),
    Flag<&Barrier::EnableAdditionalShift>("EnableAdditionalShift", "additional shift enabled"),
    Length<&Barrier::AdditionalShift>("AdditionalShift", "additional shift", Else("0mm")),
    Flag<&Barrier::ReferencePart>("ReferencePart", "reference part"),
    Length<&Barrier::HeightAboveRoad>("HeightAboveRoad", "height above the road", NotNegative),
};
constexpr VEXMELKElement barrierElements{.tag = "barrier",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {barrierTable.rows, VEXMELKRows(&overlapping, 1)},
    .meaning = "one barrier",
    .whenMissing = "no barriers"};

constexpr const VEXMELKElement* elements[] = {&shapeElements, &categoryElements, &barrierElements};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Barrier> = VEXMELKFieldList<Barrier>(
    barrierTable, VEXMELKComputed<&Barrier::Overlapping>{"1"}, VEXMELKComputed<&Barrier::midPosition>());
template <>
constexpr auto VEXMELKFieldsOf<Shape> = VEXMELKFieldList<Shape>(shapeTable, VEXMELKComputed<&Shape::type>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKCrashBarriersConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("barriers")),
    VEXMELKDescribe<&VEXMELKCrashBarriersConfig::GetShapeData>(
        "GetShapeData", VEXMELKParameter{.name = "shape", .choices = 3}),
};

constinit const VEXMELKDescription VEXMELKCrashBarriersConfig::description{
    .name = "CrashBarriers",
    .file = "OVA\\CrashBarriers.xml",
    .meaning = "The barriers that a standard places against the vehicle, and their shapes.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKCrashBarriersConfig::VEXMELKCrashBarriersConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

CATUnicodeString VEXMELKCrashBarriersConfig::GetShapeNameFromType(VEXIMELKCrashBarrier::ShapeType type) const
{
    for (const VEXMELKWord& word : shapeTypes)
        if (word.value == type)
            return {word.text};
    return {};
}

VEXIMELKCrashBarrier::ShapeType VEXMELKCrashBarriersConfig::GetShapeTypeFromName(const CATUnicodeString& name) const
{
    return static_cast<VEXIMELKCrashBarrier::ShapeType>(ValueOfWord(shapeWords, name));
}

VEXIMELKCrashBarrier::PositionType VEXMELKCrashBarriersConfig::GetPosTypeFromName(const CATUnicodeString& name) const
{
    return static_cast<VEXIMELKCrashBarrier::PositionType>(ValueOfWord(positionWords, name));
}

VEXIMELKCrashBarrier::OverlappingSide VEXMELKCrashBarriersConfig::GetSideTypeFromName(
    const CATUnicodeString& name) const
{
    return static_cast<VEXIMELKCrashBarrier::OverlappingSide>(ValueOfWord(sideWords, name));
}

void VEXMELKCrashBarriersConfig::ReadBarrier(const CATIDOMElement_var& element, VEXMELKBarrierDefinition& barrier) const
{
    ReadFields(Decimals(), element, barrierTable, barrier);
    CATUnicodeString text;
    const bool overlaps = ReadText(Decimals(), element, overlapping, text);
    barrier.midPosition = text == middlePosition[0].text;
    if (overlaps)
        barrier.Overlapping = barrier.midPosition ? 1.0 : NumberFromText(text) / 100.0;
}

unsigned char VEXMELKCrashBarriersConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXArray<VEXMELKBarrierDefinition>& barriers)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            barriers.reset();                 // not before: a name may be a text of the array
            VEXMELKBarrierDefinition barrier; // one for all
            ForEach(element, barrierElements, barriers,
                [&](const CATIDOMElement_var& barrierElement)
                {
                    ReadBarrier(barrierElement, barrier);
                    barriers.add(barrier);
                });
            return element != NULL_var;
        });
}

unsigned char VEXMELKCrashBarriersConfig::GetShapeData(VEXMELKShapeDefinition& shape)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATUnicodeString name = GetShapeNameFromType(shape.type);
            const CATIDOMElement_var element =
                name.IsEmpty() ? CATIDOMElement_var() : GetRootChildElement(shapeElements, name);
            if (element == NULL_var)
                return 0;
            ReadFields(Decimals(), element, shapeTable, shape);
            return 1;
        });
}
