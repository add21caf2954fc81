#include "VEXMELKExtendedEyePointsConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"
#include "VEXMELKOccupantRules.h"

#include <array>

namespace {

constexpr const char* standardMovements = "standard_movements";

// The eye positions by their number; 0 is none of them.
constexpr std::array<std::string_view, 5> eyePositions = {
    "", "fix_standard_point", "forward_most", "sideward_most", "upward_most"};

int EyePositionFromName(std::string_view name)
{
    for (std::size_t position = 1; position < eyePositions.size(); ++position)
        if (eyePositions[position] == name)
            return static_cast<int>(position);
    return 0;
}

} // namespace

VEXMELKExtendedEyePointsConfig::VEXMELKExtendedEyePointsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("Manikin") + "\\" + "ExtendedEyePoints.xml")
{
}

void VEXMELKExtendedEyePointsConfig::GetExtendedEyePointConfigPosition(
    const CATIDOMElement_var& element, VEXMELKExtendedEyePointPosition& position)
{
    ReadOffsets(element, position.dx, position.dy, position.dz);
}

void VEXMELKExtendedEyePointsConfig::GetExtendedEyePointStandardMovementsAttrs(
    CATIDOMElement_var& element, const CATUnicodeString& childName, double& dx, double& dy, double& dz)
{
    dx = dy = dz = 0.0;
    const CATIDOMElement_var child = FirstChild(element, childName);
    if (child != NULL_var)
        ReadOffsets(child, dx, dy, dz);
}

void VEXMELKExtendedEyePointsConfig::GetExtendedEyePointFreeMovementsAttrs(
    CATIDOMElement_var& element, const CATUnicodeString& childName, double& min, double& max)
{
    min = max = 0.0;
    const CATIDOMElement_var child = FirstChild(element, childName);
    if (child == NULL_var)
        return;
    ReadFields(child, NULL_var,
        {
            {"min", "mm", min, ByLengthParameter, 0.0},
            {"max", "mm", max, ByLengthParameter, 0.0},
        });
}

unsigned char VEXMELKExtendedEyePointsConfig::GetExtendedEyePointPosition(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& pointName, VEXMELKExtendedEyePointPosition& position)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = FirstElement(GetCategoryElement(standard, category), pointName);
            if (element == NULL_var)
                return 0;
            GetExtendedEyePointConfigPosition(element, position);
            return 1;
        });
}

unsigned char VEXMELKExtendedEyePointsConfig::GetExtendedEyePointMovements(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKExtendedEyePointMovements& movements)
{
    return Answer(
        [&]() -> unsigned char
        {
            movements = VEXMELKExtendedEyePointMovements();
            movements.type = standardMovements;
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            const CATIDOMElement_var defaultElement = GetCategoryElement(standard, defaultCategory);

            const CATIDOMElement_var type = FirstChildOfEither(element, defaultElement, "movements");
            if (type != NULL_var)
                ReadFields(type, NULL_var, {{"type", "", movements.type, Keep}});

            CATIDOMElement_var fixed = FirstChildOfEither(element, defaultElement, standardMovements);
            if (fixed != NULL_var)
            {
                const std::optional<VEXMELKNodeText> position = AttributeText(fixed, "used_eye_position");
                if (position)
                    movements.used_eye_position = EyePositionFromName(*position);
                GetExtendedEyePointStandardMovementsAttrs(
                    fixed, "ext_up", movements.ext_up_dx, movements.ext_up_dy, movements.ext_up_dz);
                GetExtendedEyePointStandardMovementsAttrs(
                    fixed, "ext_front", movements.ext_front_dx, movements.ext_front_dy, movements.ext_front_dz);
                GetExtendedEyePointStandardMovementsAttrs(
                    fixed, "ext_side", movements.ext_side_dx, movements.ext_side_dy, movements.ext_side_dz);
            }

            CATIDOMElement_var free = FirstChildOfEither(element, defaultElement, "free_movements");
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
    return Answer(
        [&]() -> unsigned char
        {
            corrections.reset();
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            ForEachElement(element, "back_angle", corrections,
                [&](const CATIDOMElement_var& row)
                {
                    VEXMELKBackAngleCorrection correction;
                    ReadFields(row, NULL_var,
                        {
                            {"value", "deg", correction.back_angle, ByAngleParameter, 0.0},
                            {"horizontal", "mm", correction.horizontal, ByLengthParameter, 0.0},
                            {"vertical", "mm", correction.vertical, ByLengthParameter, 0.0},
                        });
                    corrections.add(correction);
                });
            return element != NULL_var;
        });
}

unsigned char VEXMELKExtendedEyePointsConfig::GetExtendedBackAngleCorrection(const CATUnicodeString& standard,
    const CATUnicodeString& category, double backAngle, double& horizontal, double& vertical)
{
    return Answer([&]() -> unsigned char
        { return ReadBackAngleCorrection(GetCategoryElement(standard, category), backAngle, horizontal, vertical); });
}

double VEXMELKExtendedEyePointsConfig::GetBackLineLength_mm(const CATUnicodeString& standard)
{
    return Answer([&] { return LineLength(GetStandardElement(standard), "back_line", usualBackLineLength); });
}
