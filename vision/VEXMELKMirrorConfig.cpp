#include "VEXMELKMirrorConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

constexpr const char* instructionField = "InstructionField";
constexpr const char* positionType = "PositionType";

VEXMELKMirrorPointDefinition PointOf(const CATIDOMElement_var& element, bool planeIsRoad)
{
    VEXMELKMirrorPointDefinition point;
    CATUnicodeString targetOnRoad;
    ReadFields(element, NULL_var, {{"TargetOnRoad", "", targetOnRoad}});
    const bool onRoad = planeIsRoad || targetOnRoad == "true";
    ReadFields(element, NULL_var,
        {
            {onRoad ? "X" : "Z", "mm", point.Coordinate1},
            {onRoad ? "XREL" : "ZREL", "", point.Coordinate1REL},
            {"Y", "mm", point.Y},
            {"YREL", "", point.YREL},
            {"R", "mm", point.R},
        });
    return point;
}

} // namespace

VEXMELKMirrorConfig::VEXMELKMirrorConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Vision") + "\\" + "Mirror.xml")
{
}

unsigned char VEXMELKMirrorConfig::GetIFNamesList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element == NULL_var)
                return 0;
            ChildAttributeValues(element, instructionField, positionType, names);
            return 1;
        });
}

CATUnicodeString VEXMELKMirrorConfig::GetPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, const CATUnicodeString& position)
{
    return Answer(
        [&]() -> CATUnicodeString
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (FindChild(element, instructionField, positionType, position) != NULL_var)
                return position;
            const std::optional<VEXMELKNodeText> first = FirstChildAttribute(element, instructionField, positionType);
            return CATUnicodeString(first.value_or(VEXMELKNodeText()));
        });
}

unsigned char VEXMELKMirrorConfig::GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
    const CATUnicodeString& position, VEXMELKMirrorDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var standardElement = GetStandardElement(standard);
            ReadFields(AttributesOf(standardElement), NULL_var,
                {
                    {"infinite_size", "mm", definition.infinite_size},
                    {"USBackLineDistance", "mm", definition.USBackLineDistance},
                    {"USAngle", "deg", definition.USAngle},
                });
            const CATIDOMElement_var categoryElement = GetCategoryElement(standard, category);
            if (categoryElement == NULL_var)
                return 0;
            const CATIDOMElement_var element = FindChild(categoryElement, instructionField, positionType, position);
            if (element == NULL_var)
                return 1;
            ReadFields(element, NULL_var,
                {
                    {"Plane", "", definition.Plane},
                    {positionType, "", definition.PositionType},
                    {"X", "mm", definition.X},
                    {"XREL", "", definition.XREL},
                    {"ReqTotalCoverage", "", definition.ReqTotalCoverage},
                });
            definition.Plane.ToLower();
            const bool planeIsRoad = definition.Plane == "road";
            ForEachElement(element, "Point", definition.Points,
                [&](const CATIDOMElement_var& point) { definition.Points.add(PointOf(point, planeIsRoad)); });
            return 1;
        });
}
