// The fields of view of the mirrors. Three values stand in the standard itself. A point lies on the road, or stands
// upright; that decides which of its attributes count.
#include "VEXMELKMirrorConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKMirrorDefinition;
using Point = VEXMELKMirrorPointDefinition;

constexpr VEXMELKTable standardTable{
    Length<&Record::infinite_size>("infinite_size", "infinite size", NotNegative),
    Length<&Record::USBackLineDistance>("USBackLineDistance", "distance of the back line", NotNegative),
    Angle<&Record::USAngle>("USAngle", "angle"),
};
constexpr VEXMELKElement standardElements = VEXMELKCommon::StandardWith(standardTable.rows);
constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);

constexpr VEXMELKWord planes[] = {{"road"}, {"Road"}, {"ROAD"}}; // in any letter case
constexpr VEXMELKWord references[] = {{"Eyes"}, {"CarFront"}, {"CarBack"}, {"CarMiddle"}, {"CarSide"}};
constexpr VEXMELKRow positionName = Text("PositionType", "its name", AsWritten(), Skip);
constexpr VEXMELKTable fieldTable{
    Text<&Record::Plane>("Plane", "the measuring plane, handed out in lower case", Or{{planes}}),
    Text<&Record::PositionType>("PositionType", "its name"),
    Length<&Record::X>("X", "distance of the plane"),
    Text<&Record::XREL>("XREL", "what it is measured from", Or{{references}}),
    NumberText<&Record::ReqTotalCoverage>("ReqTotalCoverage", "required coverage", Share),
};
constexpr VEXMELKElement instructionFields{.tag = "InstructionField",
    .below = &categoryElements,
    .choice = VEXMELKChoice::ByKey,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .key = &positionName,
    .tables = {fieldTable.rows},
    .meaning = "a mirror position; the first of a name counts"};

constexpr VEXMELKRow targetOnRoad =
    Flag("TargetOnRoad", "exactly `true` says that the point lies on the road", Exact());
constexpr const char* onRoadMeaning = "coordinate and reference of a point **on the road**";
constexpr const char* otherMeaning = "coordinate and reference of **any other** point";
constexpr const char* lateralMeaning = "lateral coordinate and reference";
constexpr VEXMELKTable onRoadTable{
    Length<&Point::Coordinate1>("X", onRoadMeaning),
    Text<&Point::Coordinate1REL>("XREL", onRoadMeaning, Or{{references}}),
};
constexpr VEXMELKTable otherTable{
    Length<&Point::Coordinate1>("Z", otherMeaning),
    Text<&Point::Coordinate1REL>("ZREL", otherMeaning, Or{{references}}),
};
constexpr VEXMELKTable pointTable{
    Length<&Point::Y>("Y", lateralMeaning),
    Text<&Point::YREL>("YREL", lateralMeaning, Or{{references}}),
    Length<&Point::R>("R", "radius about the point", NotNegative),
};
constexpr VEXMELKElement pointElements{.tag = "Point",
    .below = &instructionFields,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {VEXMELKRows(&targetOnRoad, 1), onRoadTable.rows, otherTable.rows, pointTable.rows},
    .meaning = "a point that the mirror must show",
    .whenMissing = "no points"};

constexpr const VEXMELKElement* elements[] = {&standardElements, &categoryElements, &instructionFields, &pointElements};
constexpr VEXMELKParameter positionParameter{
    .name = "position", .role = VEXMELKRole::Key, .element = &instructionFields};

void ReadPoint(VEXMELKDecimals decimals, const CATIDOMElement_var& element, bool planeIsRoad, Point& point)
{
    CATUnicodeString onRoad;
    ReadText(decimals, element, targetOnRoad, onRoad);
    ReadFields(decimals, element, planeIsRoad || onRoad == "true" ? onRoadTable : otherTable, point);
    ReadFields(decimals, element, pointTable, point);
}

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Point> = VEXMELKFieldList<Point>(onRoadTable, otherTable, pointTable);
template <>
constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(
    standardTable, fieldTable, VEXMELKNested<&Record::Points>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKMirrorConfig::GetIFNamesList>(
        "GetIFNamesList", standardArgument, categoryArgument, Output("names")),
    VEXMELKDescribe<&VEXMELKMirrorConfig::GetPosition>(
        "GetPosition", standardArgument, categoryArgument, positionParameter),
    VEXMELKDescribe<&VEXMELKMirrorConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, positionParameter, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKMirrorConfig::description{
    .name = "Mirror",
    .file = "Vision\\Mirror.xml",
    .meaning = "How the field of view of each rear-view mirror is checked.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKMirrorConfig::VEXMELKMirrorConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKMirrorConfig::GetIFNamesList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element == NULL_var)
                return 0;
            CollectKeys(element, instructionFields, names);
            return 1;
        });
}

CATUnicodeString VEXMELKMirrorConfig::GetPosition(
    const CATUnicodeString& standard, const CATUnicodeString& category, const CATUnicodeString& position)
{
    return Answer(*this,
        [&]() -> CATUnicodeString
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (FindByKey(element, instructionFields, position) != NULL_var)
                return position;
            const std::optional<VEXMELKNodeText> first = FirstKey(element, instructionFields);
            return CATUnicodeString(first.value_or(VEXMELKNodeText()));
        });
}

unsigned char VEXMELKMirrorConfig::GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
    const CATUnicodeString& position, VEXMELKMirrorDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var standardElement = GetStandardElement(standard);
            const CATIDOMElement_var categoryElement = GetCategoryElement(standard, category);
            const CATIDOMElement_var element = FindByKey(categoryElement, instructionFields, position);
            // Not before: a name may be a text of the record.
            ReadFields(Decimals(), AttributesOf(standardElement), NULL_var, standardTable, definition);
            if (categoryElement == NULL_var)
                return 0;
            if (element == NULL_var)
                return 1;
            ReadFields(Decimals(), element, fieldTable, definition);
            definition.Plane.ToLower();
            const bool planeIsRoad = definition.Plane == "road";
            ForEach(element, pointElements, definition.Points,
                [&](const CATIDOMElement_var& pointElement)
                {
                    Point point;
                    ReadPoint(Decimals(), pointElement, planeIsRoad, point);
                    definition.Points.add(point);
                });
            return 1;
        });
}
