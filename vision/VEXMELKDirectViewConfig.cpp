// The limits of the direct view and its target points. The four angles get the unit "mm", which is a rule of the format
// (docs/format.md, DirectView); names and references of points are appended to those that the caller has.
#include "VEXMELKDirectViewConfig.h"

#include "VEXMELKReader.h"

namespace {

using Record = VEXMELKDirectViewCFG;

constexpr const char* angleMeaning = "Greatest angles, as texts. A bare number gets `mm`: write `deg`.";
constexpr const char* directionMeaning = "direction, likewise";
constexpr VEXMELKTable table{
    Angle<&Record::MaxTopAngle>("MaxTopAngle", angleMeaning, Unit{"mm"}),
    Angle<&Record::MaxBottomAngle>("MaxBottomAngle", angleMeaning, Unit{"mm"}),
    Angle<&Record::MPAzimuth>("MPAzimuth", directionMeaning, Unit{"mm"}),
    Angle<&Record::MPElevation>("MPElevation", directionMeaning, Unit{"mm"}),
};
constexpr VEXMELKElement categoryElements = CategoryWith(table.rows, VEXMELKFallBack::WholeCategory);

constexpr VEXMELKWord references[] = {{"CarFront", 1}, {"CarBack", 2}, {"EyesMidpoint", 3}};
// One point on its way into the three lists of the record.
struct Point
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    CATUnicodeString name;
    int reference = 0;
};
constexpr const char* coordinateMeaning = "coordinates; a bare number counts as **metres**";
constexpr VEXMELKTable pointTable{
    Millimetres<&Point::x>("X", coordinateMeaning, Unit{"m"}),
    Millimetres<&Point::y>("Y", coordinateMeaning, Unit{"m"}),
    Millimetres<&Point::z>("Z", coordinateMeaning, Unit{"m"}),
    Text<&Point::name>("name", "its name"),
    Word<&Point::reference>(
        "reference", {references}, "exactly `CarFront` (1), `CarBack` (2) or `EyesMidpoint` (3); anything else is 0"),
};
constexpr VEXMELKElement pointElements{.tag = "Point",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {pointTable.rows},
    .meaning = "a target point",
    .whenMissing = "no points"};

constexpr const VEXMELKElement* elements[] = {&categoryElements, &pointElements};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table, VEXMELKNested<&Record::Points>(),
    VEXMELKNested<&Record::PointNames>(), VEXMELKNested<&Record::PointReferences>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKDirectViewConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKDirectViewConfig::description{
    .name = "DirectView",
    .file = "Vision\\DirectView.xml",
    .meaning = "The limits of the driver's direct view and the points that he has to see.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKDirectViewConfig::VEXMELKDirectViewConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKDirectViewConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKDirectViewCFG& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element == NULL_var)
                return 1;
            ReadFields(Decimals(), element, table, definition);
            definition.Points.RemoveAll(); // names and references stay: callers collect those of several queries
            ForEach(element, pointElements,
                [&](const CATIDOMElement_var& pointElement)
                {
                    Point point;
                    ReadFields(Decimals(), pointElement, pointTable, point);
                    definition.Points.Append(CATMathPoint(point.x, point.y, point.z));
                    definition.PointNames.Append(point.name);
                    definition.PointReferences.Append(point.reference);
                });
            return 1; // always
        });
}
