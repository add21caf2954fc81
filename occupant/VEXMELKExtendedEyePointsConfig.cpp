// Eye points with the movements that they may make. A point is any element of the category: the check asks for it by
// its tag. "movements", "standard_movements" and "free_movements" are taken whole from the category, else "default".
#include "VEXMELKExtendedEyePointsConfig.h"

#include "VEXMELKOccupantRules.h"

namespace {

using Position = VEXMELKExtendedEyePointPosition;
using Movements = VEXMELKExtendedEyePointMovements;
using Correction = VEXMELKBackAngleCorrection;

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);

constexpr VEXMELKTable positionTable{
    Millimetres<&Position::dx>("dx", "its offset"),
    Millimetres<&Position::dy>("dy", "its offset"),
    Millimetres<&Position::dz>("dz", "its offset"),
};
constexpr VEXMELKElement pointElement{.tag = "*",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {positionTable.rows},
    .meaning = "a point; the check asks for it by its tag, and the first of the tag counts",
    .whenMissing = "fails"};

constexpr VEXMELKElement MovementsBelowCategory(
    const char* tag, VEXMELKRows rows, const char* meaning, const char* whenMissing)
{
    return {.tag = tag,
        .below = &categoryElements,
        .fallBack = VEXMELKFallBack::WholeElement,
        .tables = {rows},
        .meaning = meaning,
        .whenMissing = whenMissing};
}
constexpr VEXMELKElement OneOf(const VEXMELKElement& movements, const char* tag, VEXMELKRows rows, const char* meaning)
{
    return {.tag = tag, .below = &movements, .tables = {rows}, .meaning = meaning, .whenMissing = "0"};
}

constexpr VEXMELKWord movementTypes[] = {{"free_movements"}, {"standard_movements"}};
constexpr VEXMELKTable typeTable{
    Text<&Movements::type>("type", "kind of movement: a text", Keep, Or{{movementTypes}}),
};
constexpr VEXMELKElement typeElement =
    MovementsBelowCategory("movements", typeTable.rows, "kind of movement", "`standard_movements`");

constexpr VEXMELKTable downUpTable{
    Millimetres<&Movements::down_up_min>("min", "the range"),
    Millimetres<&Movements::down_up_max>("max", "the range"),
};
constexpr VEXMELKTable leftRightTable{
    Millimetres<&Movements::left_right_min>("min", "the range"),
    Millimetres<&Movements::left_right_max>("max", "the range"),
};
constexpr VEXMELKTable forwardBackwardTable{
    Millimetres<&Movements::forward_backward_min>("min", "the range"),
    Millimetres<&Movements::forward_backward_max>("max", "the range"),
};
constexpr VEXMELKElement freeElement = MovementsBelowCategory("free_movements", {}, "ranges", "all 0");
constexpr VEXMELKElement freeElements[] = {
    OneOf(freeElement, "down_up", downUpTable.rows, "one range each"),
    OneOf(freeElement, "left_right", leftRightTable.rows, "one range each"),
    OneOf(freeElement, "forward_backward", forwardBackwardTable.rows, "one range each"),
};

constexpr VEXMELKWord eyePositions[] = {
    {"fix_standard_point", 1}, {"forward_most", 2}, {"sideward_most", 3}, {"upward_most", 4}};
constexpr VEXMELKTable usedPositionTable{
    Word<&Movements::used_eye_position>("used_eye_position", {eyePositions},
        "exactly `fix_standard_point` (1), `forward_most` (2), `sideward_most` (3) or `upward_most` (4); anything else "
        "is 0",
        AsWritten()),
};
constexpr VEXMELKTable upTable{
    Millimetres<&Movements::ext_up_dx>("dx", "the offset"),
    Millimetres<&Movements::ext_up_dy>("dy", "the offset"),
    Millimetres<&Movements::ext_up_dz>("dz", "the offset"),
};
constexpr VEXMELKTable frontTable{
    Millimetres<&Movements::ext_front_dx>("dx", "the offset"),
    Millimetres<&Movements::ext_front_dy>("dy", "the offset"),
    Millimetres<&Movements::ext_front_dz>("dz", "the offset"),
};
constexpr VEXMELKTable sideTable{
    Millimetres<&Movements::ext_side_dx>("dx", "the offset"),
    Millimetres<&Movements::ext_side_dy>("dy", "the offset"),
    Millimetres<&Movements::ext_side_dz>("dz", "the offset"),
};
constexpr VEXMELKElement fixedElement =
    MovementsBelowCategory("standard_movements", usedPositionTable.rows, "offsets", "all 0");
constexpr VEXMELKElement fixedElements[] = {
    OneOf(fixedElement, "ext_up", upTable.rows, "one offset each"),
    OneOf(fixedElement, "ext_front", frontTable.rows, "one offset each"),
    OneOf(fixedElement, "ext_side", sideTable.rows, "one offset each"),
};

constexpr VEXMELKElement backAngles = BackAnglesBelow(categoryElements);
// The list of all corrections: a row without "value" is the angle 0 here.
constexpr VEXMELKTable correctionTable{
    Radians<&Correction::back_angle>("value", "the angle"),
    Millimetres<&Correction::horizontal>("horizontal", "the correction"),
    Millimetres<&Correction::vertical>("vertical", "the correction"),
};
constexpr VEXMELKElement correctionRows{.tag = "back_angle",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {correctionTable.rows},
    .meaning = "a row of the list of all corrections",
    .whenMissing = "an empty list"};

constexpr const VEXMELKElement* elements[] = {&backLine, &categoryElements, &pointElement, &typeElement, &freeElement,
    &freeElements[0], &freeElements[1], &freeElements[2], &fixedElement, &fixedElements[0], &fixedElements[1],
    &fixedElements[2], &backAngles, &correctionRows};

// The one of these that has the tag.
template <std::size_t Size> const VEXMELKElement& WithTag(const VEXMELKElement (&described)[Size], std::string_view tag)
{
    return *std::find_if(std::begin(described), std::end(described) - 1,
        [&](const VEXMELKElement& element) { return element.tag == tag; });
}

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Position> = VEXMELKFieldList<Position>(positionTable);
template <> constexpr auto VEXMELKFieldsOf<Correction> = VEXMELKFieldList<Correction>(correctionTable);
template <>
constexpr auto VEXMELKFieldsOf<Movements> = VEXMELKFieldList<Movements>(
    typeTable, downUpTable, leftRightTable, forwardBackwardTable, usedPositionTable, upTable, frontTable, sideTable);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKExtendedEyePointsConfig::GetExtendedEyePointPosition>("GetExtendedEyePointPosition",
        standardArgument, categoryArgument,
        VEXMELKParameter{.name = "pointName", .role = VEXMELKRole::Tag, .element = &pointElement}, Output("position")),
    VEXMELKDescribe<&VEXMELKExtendedEyePointsConfig::GetExtendedEyePointMovements>(
        "GetExtendedEyePointMovements", standardArgument, categoryArgument, Output("movements")),
    VEXMELKDescribe<&VEXMELKExtendedEyePointsConfig::GetExtendedBackAngleCorrectionList>(
        "GetExtendedBackAngleCorrectionList", standardArgument, categoryArgument, Output("corrections")),
    VEXMELKDescribe<&VEXMELKExtendedEyePointsConfig::GetExtendedBackAngleCorrection>(
        "GetExtendedBackAngleCorrection", standardArgument, categoryArgument, BackAngle(backAngles), backAngleTable),
    VEXMELKDescribe<&VEXMELKExtendedEyePointsConfig::GetBackLineLength_mm>("GetBackLineLength_mm", standardArgument),
};

constinit const VEXMELKDescription VEXMELKExtendedEyePointsConfig::description{
    .name = "ExtendedEyePoints",
    .file = "Manikin\\ExtendedEyePoints.xml",
    .meaning = "Eye points with the movements that they may make.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKExtendedEyePointsConfig::VEXMELKExtendedEyePointsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

void VEXMELKExtendedEyePointsConfig::GetExtendedEyePointConfigPosition(
    const CATIDOMElement_var& element, VEXMELKExtendedEyePointPosition& position)
{
    ReadFields(Decimals(), element, positionTable, position);
}

void VEXMELKExtendedEyePointsConfig::GetExtendedEyePointStandardMovementsAttrs(
    CATIDOMElement_var& element, const CATUnicodeString& childName, double& dx, double& dy, double& dz)
{
    dx = dy = dz = 0.0;
    const VEXMELKElement& described = WithTag(fixedElements, childName);
    const CATIDOMElement_var child = Find(element, described);
    if (child != NULL_var)
        ReadOutputs(Decimals(), child, described.tables[0], dx, dy, dz);
}

void VEXMELKExtendedEyePointsConfig::GetExtendedEyePointFreeMovementsAttrs(
    CATIDOMElement_var& element, const CATUnicodeString& childName, double& min, double& max)
{
    min = max = 0.0;
    const VEXMELKElement& described = WithTag(freeElements, childName);
    const CATIDOMElement_var child = Find(element, described);
    if (child != NULL_var)
        ReadOutputs(Decimals(), child, described.tables[0], min, max);
}

unsigned char VEXMELKExtendedEyePointsConfig::GetExtendedEyePointPosition(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& pointName, VEXMELKExtendedEyePointPosition& position)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element =
                FindTagged(GetCategoryElement(standard, category), pointElement, pointName);
            if (element == NULL_var)
                return 0;
            GetExtendedEyePointConfigPosition(element, position);
            return 1;
        });
}

unsigned char VEXMELKExtendedEyePointsConfig::GetExtendedEyePointMovements(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKExtendedEyePointMovements& movements)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            const CATIDOMElement_var defaultElement = GetCategoryElement(standard, defaultCategory);
            movements = VEXMELKExtendedEyePointMovements(); // not before: a name may be its type
            movements.type = fixedElement.tag;

            const CATIDOMElement_var type = FindInEither(element, defaultElement, typeElement);
            if (type != NULL_var)
                ReadFields(Decimals(), type, typeTable, movements);

            CATIDOMElement_var fixed = FindInEither(element, defaultElement, fixedElement);
            if (fixed != NULL_var)
            {
                ReadFields(Decimals(), fixed, usedPositionTable, movements);
                GetExtendedEyePointStandardMovementsAttrs(
                    fixed, "ext_up", movements.ext_up_dx, movements.ext_up_dy, movements.ext_up_dz);
                GetExtendedEyePointStandardMovementsAttrs(
                    fixed, "ext_front", movements.ext_front_dx, movements.ext_front_dy, movements.ext_front_dz);
                GetExtendedEyePointStandardMovementsAttrs(
                    fixed, "ext_side", movements.ext_side_dx, movements.ext_side_dy, movements.ext_side_dz);
            }

            CATIDOMElement_var free = FindInEither(element, defaultElement, freeElement);
            if (free != NULL_var)
            {
                GetExtendedEyePointFreeMovementsAttrs(free, "down_up", movements.down_up_min, movements.down_up_max);
                GetExtendedEyePointFreeMovementsAttrs(
                    free, "left_right", movements.left_right_min, movements.left_right_max);
                GetExtendedEyePointFreeMovementsAttrs(
                    free, "forward_backward", movements.forward_backward_min, movements.forward_backward_max);
            }
            return fixed != NULL_var || free != NULL_var;
        });
}

unsigned char VEXMELKExtendedEyePointsConfig::GetExtendedBackAngleCorrectionList(const CATUnicodeString& standard,
    const CATUnicodeString& category, VEXArray<VEXMELKBackAngleCorrection>& corrections)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            corrections.reset();
            ForEach(element, correctionRows, corrections,
                [&](const CATIDOMElement_var& row)
                {
                    Correction correction;
                    ReadFields(Decimals(), row, correctionTable, correction);
                    corrections.add(correction);
                });
            return element != NULL_var;
        });
}

unsigned char VEXMELKExtendedEyePointsConfig::GetExtendedBackAngleCorrection(const CATUnicodeString& standard,
    const CATUnicodeString& category, double backAngle, double& horizontal, double& vertical)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            return ReadBackAngleCorrection(
                Decimals(), GetCategoryElement(standard, category), backAngles, backAngle, horizontal, vertical);
        });
}

double VEXMELKExtendedEyePointsConfig::GetBackLineLength_mm(const CATUnicodeString& standard)
{
    return Answer(*this, [&] { return LineLength(GetStandardElement(standard), backLine); });
}
