#include "VEXMELKCrashBarriersConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

// The values of an enumeration by their names.
struct NamedValue
{
    std::string_view name;
    int value;
};

constexpr NamedValue shapeTypes[] = {
    {"RCAR 2004 Front", VEXIMELKCrashBarrier::RCAR2004Front},
    {"RCAR 2004 Rear", VEXIMELKCrashBarrier::RCAR2004Rear},
    {"RCAR 2006", VEXIMELKCrashBarrier::RCAR2006},
};

constexpr NamedValue positionTypes[] = {
    {"front", VEXIMELKCrashBarrier::Front},
    {"rear", VEXIMELKCrashBarrier::Rear},
    {"left", VEXIMELKCrashBarrier::Left},
    {"right", VEXIMELKCrashBarrier::Right},
};

// The front counts as the left side and the rear as the right one: a fixed rule.
constexpr NamedValue overlappingSides[] = {
    {"left", VEXIMELKCrashBarrier::LeftSide},
    {"front", VEXIMELKCrashBarrier::LeftSide},
    {"right", VEXIMELKCrashBarrier::RightSide},
    {"rear", VEXIMELKCrashBarrier::RightSide},
};

template <class Value, std::size_t Size>
Value ValueOfName(const NamedValue (&values)[Size], const CATUnicodeString& name)
{
    for (const NamedValue& entry : values)
        if (name == entry.name)
            return static_cast<Value>(entry.value);
    return static_cast<Value>(0);
}

} // namespace

VEXMELKCrashBarriersConfig::VEXMELKCrashBarriersConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "CrashBarriers.xml")
{
}

CATUnicodeString VEXMELKCrashBarriersConfig::GetShapeNameFromType(VEXIMELKCrashBarrier::ShapeType type) const
{
    for (const NamedValue& entry : shapeTypes)
        if (entry.value == type)
            return {entry.name};
    return {};
}

VEXIMELKCrashBarrier::ShapeType VEXMELKCrashBarriersConfig::GetShapeTypeFromName(const CATUnicodeString& name) const
{
    return ValueOfName<VEXIMELKCrashBarrier::ShapeType>(shapeTypes, name);
}

VEXIMELKCrashBarrier::PositionType VEXMELKCrashBarriersConfig::GetPosTypeFromName(const CATUnicodeString& name) const
{
    return ValueOfName<VEXIMELKCrashBarrier::PositionType>(positionTypes, name);
}

VEXIMELKCrashBarrier::OverlappingSide VEXMELKCrashBarriersConfig::GetSideTypeFromName(
    const CATUnicodeString& name) const
{
    return ValueOfName<VEXIMELKCrashBarrier::OverlappingSide>(overlappingSides, name);
}

void VEXMELKCrashBarriersConfig::ReadBarrier(const CATIDOMElement_var& element, VEXMELKBarrierDefinition& barrier) const
{
    CATUnicodeString shape;
    CATUnicodeString position;
    CATUnicodeString side;
    CATUnicodeString overlapping;
    ReadFields(element, NULL_var,
        {
            {"AllowMovingAroundX", "", barrier.AllowMovingAroundX, AsFlag, false},
            {"DeltaZLeft", "", barrier.DeltaZLeft, "0mm"},
            {"DeltaZRight", "", barrier.DeltaZRight, "0mm"},
            {"shape", "", shape},
            {"loading", "", barrier.loading},
            {"Position", "", position},
            {"Rotation", "deg", barrier.Rotation, "0deg"},
            {"OverlappingSide", "", side},
            {"PositionToGeometry", "", barrier.PositionToGeometry, AsFlag, false},
            {"EnableAdditionalShift", "", barrier.EnableAdditionalShift, AsFlag, false},
            {"AdditionalShift", "mm", barrier.AdditionalShift, "0mm"},
            {"ReferencePart", "", barrier.ReferencePart, AsFlag, false},
            {"HeightAboveRoad", "mm", barrier.HeightAboveRoad},
        });
    barrier.shape = GetShapeTypeFromName(shape);
    barrier.Position = GetPosTypeFromName(position);
    barrier.OverlappingSide = GetSideTypeFromName(side);

    // A missing one keeps the fraction of the barrier before it, on purpose.
    const bool overlaps = ReadFields(element, NULL_var, {{"Overlapping", "", overlapping}});
    barrier.midPosition = overlapping == "mid_position";
    if (overlaps)
        barrier.Overlapping = barrier.midPosition ? 1.0 : NumberFromText(overlapping) / 100.0;
}

unsigned char VEXMELKCrashBarriersConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXArray<VEXMELKBarrierDefinition>& barriers)
{
    return Answer(
        [&]() -> unsigned char
        {
            barriers.reset();
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            VEXMELKBarrierDefinition barrier; // one for all
            ForEachElement(element, "barrier", barriers,
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
    return Answer(
        [&]() -> unsigned char
        {
            const CATUnicodeString name = GetShapeNameFromType(shape.type);
            const CATIDOMElement_var element =
                name.IsEmpty() ? CATIDOMElement_var() : GetRootChildElement("shape", name);
            if (element == NULL_var)
                return 0;
            ReadFields(element, NULL_var,
                {
                    {"MinRelWidth", "", shape.MinRelWidth, "0.5"},
                    {"MinWidth", "mm", shape.MinWidth, "1200mm"},
                    {"Width", "mm", shape.Width, Keep},
                    {"Depth", "mm", shape.Depth, Keep},
                    {"Height", "mm", shape.Height, Keep},
                    {"Radius", "mm", shape.Radius, Keep},
                    {"HeightAboveRoad", "mm", shape.HeightAboveRoad, Keep},
                    {"Radius2", "mm", shape.Radius2, Keep},
                    {"BaseRadius", "mm", shape.BaseRadius, Keep},
                    {"BaseDepth", "mm", shape.BaseDepth, Keep},
                    {"HeightAboveRoad", "mm", shape.HeightAboveRoad, Keep}, // read twice, on purpose
                    {"BaseHeight", "mm", shape.BaseHeight, Keep},
                    {"BaseFPDepth", "mm", shape.BaseFPDepth, Keep},
                    {"BaseFPMainRadius", "mm", shape.BaseFPMainRadius, Keep},
                    {"BaseFPSideRadius", "mm", shape.BaseFPSideRadius, Keep},
                    {"TriangleHeight", "mm", shape.TriangleHeight, Keep},
                    {"TriangleToFP", "mm", shape.TriangleToFP, Keep},
                    {"TriangleSideDepth", "mm", shape.TriangleSideDepth, Keep},
                    {"ReferencePart", "", shape.ReferencePart, Keep},
                    {"Alpha", "deg", shape.Alpha, "10deg"},
                });
            return 1;
        });
}
