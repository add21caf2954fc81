// The main query of every configuration that can be reached, over the sample configuration, beside the same look-up
// written by hand over pugixml. Before anything is timed, the two answers are compared, field by field.
#include "Bench.h"
#include "ByHandRecords.h"
#include "Registry.h"
#include "Trees.h"

#include "VEXMELKDBAccessConfig.h"
#include "VEXMELKExtendedEyePointsConfig.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKHeadContourConfig.h"
#include "VEXMELKMultipleReflectionConfig.h"
#include "VEXMELKReportGenConfig.h"
#include "VEXMELKUFDynamicCurbConfig.h"
#include "VEXMELKUFInnerAngleConfig.h"
#include "VEXMELKUFOilTubConfig.h"
#include "VEXMELKUFSlopeAngleConfig.h"
#include "VEXMELKUFSpaceToRoadConfig.h"
#include "VEXMELKUFWheelFixingConfig.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>
#include <set>

namespace {

using namespace ByHand;
using M = VEXMELKConfigManager;
using Text = CATUnicodeString;
using Ask = std::function<int()>;

struct Case
{
    std::string configuration;
    std::string operation;
    Ask library;
    Ask byHand;
    std::function<Json()> libraryAnswer; // of the last time
    std::function<Json()> byHandAnswer;
};

// Two records gather more with every query, unless their caller empties them.
template <class Value> void Empty(Value& /*value*/) {}
void Empty(VEXMELKMirrorDefinition& mirror) { mirror.Points.reset(); }
void Empty(VEXMELKDirectViewCFG& view)
{
    view.PointNames.RemoveAll();
    view.PointReferences.RemoveAll();
}

// A query that is asked again and again, with outputs that stay; "hand" is the same one, over the file.
template <auto Getter, auto Method, class Hand, class... Inputs>
Case Main(const char* operation, Hand hand, const Inputs&... inputs)
{
    using Question = VEXMELKQuestionDetail::QuestionOf<Method>;
    using Values = typename Question::Traits::Values;
    using Owner = std::remove_pointer_t<decltype((std::declval<M&>().*Getter)())>;
    std::string file(Owner::description.file);
    std::replace(file.begin(), file.end(), '\\', '/');
    Case main{std::string(Owner::description.name), operation, {}, {}, {}, {}};
    const Operation& described = FindConfiguration(main.configuration).FindOperation(operation);
    const auto question = [&] { return std::shared_ptr<VEXMELKQuestion>(described.Described().NewQuestion()); };
    const auto values = [](VEXMELKQuestion& one) -> Values& { return static_cast<Question&>(one).Values(); };
    const auto asked = question();
    const auto written = question();
    const auto given = std::make_tuple(inputs...);
    const auto set = [&]<std::size_t... Index>(std::index_sequence<Index...>, Values & into)
    {
        ((std::get<Index>(into) = std::tuple_element_t<Index, Values>(std::get<Index>(given))), ...);
    };
    set(std::index_sequence_for<Inputs...>(), values(*asked));
    set(std::index_sequence_for<Inputs...>(), values(*written));
    main.library = [asked, &own = values(*asked)]
    {
        auto* config = (M::GetConfigManager()->*Getter)();
        return std::apply(
            [&](auto&... value)
            {
                (Empty(value), ...);
                return static_cast<int>((config->*Method)(value...));
            },
            own);
    };
    main.byHand = [written, &own = values(*written), hand, over = std::make_shared<File>(file)]
    {
        return std::apply(
            [&](auto&... value)
            {
                (Empty(value), ...);
                return static_cast<int>(hand(*over, value...));
            },
            own);
    };
    main.libraryAnswer = [&described, asked] { return described.AnswerOf(*asked).outputs; };
    main.byHandAnswer = [&described, written] { return described.AnswerOf(*written).outputs; };
    return main;
}

constexpr const char* sample = "EU Passenger Car";
constexpr const char* asked = "suv";

// A record of the attributes of a category, asked for by standard and category.
template <auto Getter, auto Method, auto Read> Case Table(const char* category = asked)
{
    return Main<Getter, Method>(
        "GetStandardData",
        [](const File& file, const Text& standard, const Text& name, auto& record)
        {
            const File::Found found = file.Find(standard, name);
            if (found)
                Read(found.own, found.other, record);
            return static_cast<bool>(found);
        },
        sample, category);
}

// The same for attributes that are outputs themselves.
template <auto Getter, auto Method, class Read> Case Outputs(Read read)
{
    return Main<Getter, Method>(
        "GetStandardData",
        [read](const File& file, const Text& standard, const Text& name, auto&... outputs)
        {
            const File::Found found = file.Find(standard, name);
            if (found)
                read(found.own, found.other, outputs...);
            return static_cast<bool>(found);
        },
        sample, asked);
}

std::vector<Case> UnderfloorCases()
{
    return {
        Outputs<&M::GetUFSlopeAngleConfig, &VEXMELKUFSlopeAngleConfig::GetStandardData>(
            [](Node own, Node other, Text& front, Text& back)
            {
                ReadText(At(own, other, "front_angle"), "deg", front);
                ReadText(At(own, other, "back_angle"), "deg", back);
            }),
        Outputs<&M::GetUFInnerAngleConfig, &VEXMELKUFInnerAngleConfig::GetStandardData>(
            [](Node own, Node other, Text& angle, Text& calculation)
            {
                ReadText(At(own, other, "inner_angle"), "deg", angle);
                ReadText(At(own, other, "calculation"), calculation);
            }),
        Table<&M::GetUFCurbConfig, &VEXMELKUFCurbConfig::GetStandardData, ReadUFCurb>(),
        Outputs<&M::GetUFDynamicCurbConfig, &VEXMELKUFDynamicCurbConfig::GetStandardData>(
            [](Node own, Node other, Text& outOffset, Text& inOffset, Text& inLength, Text& calculation)
            {
                ReadText(At(own, other, "out_offset"), "mm", outOffset);
                ReadText(At(own, other, "in_offset"), "mm", inOffset);
                ReadText(At(own, other, "in_length"), "mm", inLength);
                ReadText(At(own, other, "calculation"), calculation);
            }),
        Outputs<&M::GetUFSpaceToRoadConfig, &VEXMELKUFSpaceToRoadConfig::GetStandardData>(
            [](Node own, Node other, Text& offset, unsigned char& wholeLength, unsigned char& calcUnderAxis,
                Text& offsetUnderAxes, unsigned char& circUnderAxis, Text& extension, unsigned char& wheelRadius,
                unsigned char& generalSurface)
            {
                ReadText(At(own, other, "offset"), "mm", offset);
                ReadFlag(At(own, other, "WholeLength"), wholeLength);
                ReadFlag(At(own, other, "CalcUnderAxis"), calcUnderAxis);
                ReadText(At(own, other, "OffsetUnderAxes"), "mm", offsetUnderAxes);
                ReadFlag(At(own, other, "CircUnderAxis"), circUnderAxis);
                ReadText(At(own, other, "extension"), "mm", extension);
                ReadFlag(At(own, other, "WheelRadius"), wheelRadius, true);
                ReadFlag(At(own, other, "GeneralSurface"), generalSurface, true);
            }),
        Outputs<&M::GetUFOilTubConfig, &VEXMELKUFOilTubConfig::GetStandardData>(
            [](Node own, Node other, Text& outOffset, Text& outAngle, Text& inOffset, Text& inAngle)
            {
                ReadText(At(own, other, "out_offset"), "mm", outOffset);
                ReadText(At(own, other, "out_angle"), "deg", outAngle);
                ReadText(At(own, other, "in_offset"), "mm", inOffset);
                ReadText(At(own, other, "in_angle"), "deg", inAngle);
            }),
        Outputs<&M::GetUFWheelFixingConfig, &VEXMELKUFWheelFixingConfig::GetStandardData>(
            [](Node own, Node other, Text& radius, Text& offset)
            {
                ReadText(At(own, other, "radius"), "mm", radius);
                ReadText(At(own, other, "offset"), "mm", offset);
            }),
        Table<&M::GetUFCompleteConfig, &VEXMELKUFCompleteConfig::GetStandardData, ReadUFComplete>(),
    };
}

bool EyeEllipsesRadii(
    const File& file, const Text& standard, double hPointTravel, int cutoff, double& x, double& y, double& z)
{
    const Node coeficients = file.Find(standard, "").standard.child("coeficients2002");
    Node row;
    for (Node radii = coeficients.child("radii"); radii; radii = radii.next_sibling("radii"))
    {
        const char* travel = At(radii, "h_point_travel");
        if (!travel)
            continue;
        row = radii;
        if (MillimetresOf(travel) <= hPointTravel)
            break;
    }
    if (!row)
        return false;
    const bool is99 = cutoff == 99;
    ReadMillimetres(At(row, is99 ? "radiusX_99" : "radiusX_95"), x, -1.0);
    ReadMillimetres(At(row, is99 ? "radiusY_99" : "radiusY_95"), y, -1.0);
    ReadMillimetres(At(row, is99 ? "radiusZ_99" : "radiusZ_95"), z, -1.0);
    return true;
}

bool HeadContourRadii(const File& file, const Text& standard, const Text& category, double hPointTravel, int cutoff,
    double& x, double& y, double& z)
{
    char digits[16];
    const char* end = std::to_chars(std::begin(digits), std::end(digits), cutoff).ptr;
    const Node radii = file.Find(standard, category).Whole().child("radii");
    const Node rows = Child(radii, "cutoff", "value", {digits, static_cast<std::size_t>(end - digits)});
    Node chosen;
    for (Node row = rows.child("h_point_travel"); row; row = row.next_sibling("h_point_travel"))
        if (const char* travel = At(row, "value"))
            if (!chosen || MillimetresOf(travel) < hPointTravel)
                chosen = row;
    if (!chosen)
        return false;
    ReadMillimetres(At(chosen, "x_radius"), x);
    ReadMillimetres(At(chosen, "y_radius"), y);
    ReadMillimetres(At(chosen, "z_radius"), z);
    return true;
}

constexpr Word eyePositions[] = {
    {"fix_standard_point", 1}, {"forward_most", 2}, {"sideward_most", 3}, {"upward_most", 4}};

bool EyePointMovements(
    const File& file, const Text& standard, const Text& category, VEXMELKExtendedEyePointMovements& movements)
{
    const File::Found found = file.Find(standard, category);
    movements = VEXMELKExtendedEyePointMovements();
    movements.type = "standard_movements";
    KeepText(At(found.Either("movements"), "type"), movements.type);
    const Node fixed = found.Either("standard_movements");
    ReadWord(At(fixed, "used_eye_position"), eyePositions, 0, movements.used_eye_position);
    const auto offset = [&](const char* tag, double& dx, double& dy, double& dz)
    {
        const Node child = fixed.child(tag);
        ReadMillimetres(At(child, "dx"), dx);
        ReadMillimetres(At(child, "dy"), dy);
        ReadMillimetres(At(child, "dz"), dz);
    };
    offset("ext_up", movements.ext_up_dx, movements.ext_up_dy, movements.ext_up_dz);
    offset("ext_front", movements.ext_front_dx, movements.ext_front_dy, movements.ext_front_dz);
    offset("ext_side", movements.ext_side_dx, movements.ext_side_dy, movements.ext_side_dz);
    const Node free = found.Either("free_movements");
    const auto range = [&](const char* tag, double& minimum, double& maximum)
    {
        const Node child = free.child(tag);
        ReadMillimetres(At(child, "min"), minimum);
        ReadMillimetres(At(child, "max"), maximum);
    };
    range("down_up", movements.down_up_min, movements.down_up_max);
    range("left_right", movements.left_right_min, movements.left_right_max);
    range("forward_backward", movements.forward_backward_min, movements.forward_backward_max);
    return fixed || free;
}

// All elements with the tag below the parent, each as a record.
template <class Record, class Read> void ReadAll(Node parent, const char* tag, VEXArray<Record>& records, Read read)
{
    records.reset();
    for (Node element = parent.child(tag); element; element = element.next_sibling(tag))
    {
        Record record;
        read(element, record);
        records.add(record);
    }
}

std::vector<Case> OccupantCases()
{
    return {
        Main<&M::GetBaseDataConfig, &VEXMELKBaseDataConfig::GetSeatDataForBaseDataCategory>(
            "GetSeatDataForBaseDataCategory",
            [](const File& file, const Text& category, VEXArray<VEXMELKSeatDefinition>& seats)
            {
                ReadAll(file.RootChild("category", category), "seat", seats,
                    [](Node element, VEXMELKSeatDefinition& seat) { ReadBaseDataSeat(element, {}, seat); });
                return 0;
            },
            "default"),
        Main<&M::GetEyeEllipsesConfig, &VEXMELKEyeEllipsesConfig::GetRadii2002>(
            "GetRadii2002", EyeEllipsesRadii, "Eye Ellipses 2002", 110.0, 95),
        Main<&M::GetEyePointsConfig, &VEXMELKEyePointsConfig::GetEyePoints>(
            "GetEyePoints",
            [](const File& file, const Text& standard, const Text& category,
                VEXArray<VEXMELKEyePointDefinition>& points)
            {
                const auto typeOf = [](const Text& text) {
                    return text == "steering_wheel_center" ? VEXIMELKEyePoints::SteeringWheelCenter
                                                           : VEXIMELKEyePoints::Length;
                };
                ReadAll(file.Find(standard, category).Whole(), "point", points,
                    [&](Node element, VEXMELKEyePointDefinition& point)
                    {
                        ReadEyePointsPoint(element, {}, point);
                        point.dx_type = typeOf(point.dx);
                        point.dy_type = typeOf(point.dy);
                        point.dz_type = typeOf(point.dz);
                    });
                return points.size() > 0;
            },
            "V and P Points", asked),
        Main<&M::GetExtendedEyePointsConfig, &VEXMELKExtendedEyePointsConfig::GetExtendedEyePointMovements>(
            "GetExtendedEyePointMovements", EyePointMovements, "In-house Extended Eyes", asked),
        Main<&M::GetHeadContourConfig, &VEXMELKHeadContourConfig::GetRadii>(
            "GetRadii", HeadContourRadii, "Head Contour 2002", asked, 110.0, 95),
        Main<&M::GetSRPLocationCurvesConfig, &VEXMELKSRPLocationCurvesConfig::GetStandardData>(
            "GetStandardData",
            [](const File& file, const Text& standard, const Text& category,
                VEXArray<VEXMELKSRPLocationCurveDefinition>& curves)
            {
                std::set<std::string_view> names;
                curves.reset();
                const Node parent = file.Find(standard, category).Whole();
                for (Node element = parent.child("curve"); element; element = element.next_sibling("curve"))
                {
                    VEXMELKSRPLocationCurveDefinition curve;
                    ReadSRPLocationCurvesCurve(element, {}, curve);
                    if (names.insert(element.attribute("name").value()).second)
                        curves.add(curve);
                }
                return static_cast<bool>(parent);
            },
            "Seat Location", asked),
        Main<&M::GetManikinTemplateConfig, &VEXMELKManikinTemplateConfig::GetStandardData>(
            "GetStandardData",
            [](const File& file, const Text& standard, const Text& category, const Text& percentil,
                const Text& positioning, VEXMELKManikinTemplateSeatEnum seat,
                VEXMELKManikinTemplateDefinition& definition)
            {
                constexpr const char* seats[] = {"driver_seat", "front_seat", "back_seat"};
                const Node parent = file.Find(standard, category).Whole();
                definition = VEXMELKManikinTemplateDefinition();
                for (Text* text : {&definition.torso_length, &definition.torso_angle, &definition.hip_angle,
                         &definition.rump_length, &definition.knee_angle, &definition.leg_room, &definition.leg_length,
                         &definition.foot_angle, &definition.max_foot_angle, &definition.min_foot_angle,
                         &definition.foot_length, &definition.foot_flesh_angle, &definition.foot_hoffset,
                         &definition.foot_voffset, &definition.lift, &definition.interior_interval})
                    *text = "0.0";
                for (const Node element :
                    {Child(parent, "percentil", "value", percentil), Child(parent, "positioning", "name", positioning)})
                {
                    ReadManikinTemplate(element, {}, definition);
                    ReadManikinTemplate(element.child(seats[seat]), {}, definition);
                }
                return 1;
            },
            "Two-dimensional Template", asked, "95", "heel point", MTDriverSeat),
    };
}

constexpr Word fieldTypes[] = {{"A", 0}, {"B", 1}, {"C", 2}};
constexpr Word reducedFieldTypes[] = {{"extended A", 0}, {"reduced B", 1}};
constexpr Word areaTypes[] = {{"upper area", 0}, {"side area", 1}, {"lower area", 2}, {"extended a-field", 3}};

bool FieldsOfView(
    const File& file, const Text& standard, const Text& category, VEXMELKFieldsOfViewConfigDefinition& definition)
{
    const File::Found found = file.Find(standard, category);
    if (!found)
        return false;
    ReadFieldsOfView(found.own, found.other, definition);
    for (const Node pass : {found.other, found.Whole()})
        for (Node element = pass.child("field"); element; element = element.next_sibling("field"))
        {
            const char* type = At(element, "type");
            const int number = type ? ValueOf(type, fieldTypes, -1) : -1;
            if (number < 0)
                continue;
            VEXMELKFOVField& field = definition.fields[static_cast<std::size_t>(number)];
            field.present = 1;
            ReadFieldsOfViewField(element, {}, field);
            for (Node child = element.child("interval"); child; child = child.next_sibling("interval"))
            {
                int index = -1;
                ReadInteger(At(child, "index"), index, -1);
                if (index < 0 || index > 4)
                    continue;
                VEXMELKFOVInterval& interval = field.intervals[static_cast<std::size_t>(index)];
                ReadFieldsOfViewInterval(child, {}, interval);
                interval.present = 1;
            }
        }
    return true;
}

void ReadArea(Node element, VEXMELKERFOVField& field)
{
    const char* type = At(element, "type");
    switch (type ? ValueOf(type, areaTypes, -1) : -1)
    {
    case 0:
        field.upper_area.present = 1;
        return ReadERFieldsOfViewUpper(element, {}, field.upper_area);
    case 1:
        field.side_area.present = 1;
        return ReadERFieldsOfViewSide(element, {}, field.side_area);
    case 2:
        field.lower_area.present = 1;
        return ReadERFieldsOfViewLower(element, {}, field.lower_area);
    case 3:
        field.extended_a_field.present = 1;
        return ReadText(At(element, "extended_a_field_default"), field.extended_a_field.extended_a_field_default);
    default:
        return;
    }
}

bool ReducedFieldsOfView(
    const File& file, const Text& standard, const Text& category, VEXMELKERFieldsOfViewConfigDefinition& definition)
{
    const File::Found found = file.Find(standard, category);
    for (const Node pass : {found.other, found.Whole()})
        for (Node element = pass.child("field"); element; element = element.next_sibling("field"))
        {
            const char* type = At(element, "type");
            const int number = type ? ValueOf(type, reducedFieldTypes, -1) : -1;
            if (number < 0)
                continue;
            VEXMELKERFOVField& field = definition.fields[static_cast<std::size_t>(number)];
            field.present = 1;
            ReadERFieldsOfViewField(element, {}, field);
            if (number == 1)
                for (Node child = element.child("subtract"); child; child = child.next_sibling("subtract"))
                    ReadArea(child, field);
        }
    return static_cast<bool>(found);
}

bool CloseRangeVisibility(
    const File& file, const Text& standard, const Text& category, VEXMELKCRVConfigDefinition& definition)
{
    ReadCRVFrontView({}, {}, definition); // the defaults
    const File::Found found = file.Find(standard, category);
    ReadCRVCylinder(found.Either("cylinder"), {}, definition);
    const Node area = found.Either("area");
    KeepText(At(area, "type"), definition.type);
    if (definition.type == "front_view")
        ReadCRVFrontView(area, {}, definition);
    ReadCRVZone(found.Either("death_zone"), {}, definition);
    return static_cast<bool>(found);
}

bool Mirrors(const File& file, const Text& standard, const Text& category, const Text& position,
    VEXMELKMirrorDefinition& definition)
{
    const File::Found found = file.Find(standard, category);
    ReadMirrorStandard(found.standard, {}, definition);
    const Node element = Child(found.Whole(), "InstructionField", "PositionType", position);
    ReadMirrorField(element, {}, definition);
    definition.Plane.ToLower();
    const bool planeIsRoad = definition.Plane == "road";
    for (Node child = element.child("Point"); child; child = child.next_sibling("Point"))
    {
        VEXMELKMirrorPointDefinition point;
        if (planeIsRoad || child.attribute("TargetOnRoad").value() == std::string_view("true"))
            ReadMirrorOnRoad(child, {}, point);
        else
            ReadMirrorOther(child, {}, point);
        ReadMirrorPoint(child, {}, point);
        definition.Points.add(point);
    }
    return static_cast<bool>(found);
}

// In metres where no unit says otherwise.
double CoordinateOf(const char* text)
{
    if (!text)
        return 0.0;
    const auto [number, unit] = NumberOf(text);
    return unit.empty() ? number * 1000.0 : MillimetresOf(text);
}

constexpr Word references[] = {{"CarFront", 1}, {"CarBack", 2}, {"EyesMidpoint", 3}};

bool DirectView(const File& file, const Text& standard, const Text& category, VEXMELKDirectViewCFG& definition)
{
    const Node element = file.Find(standard, category).Whole();
    ReadDirectView(element, {}, definition);
    definition.Points.RemoveAll();
    for (Node child = element.child("Point"); child; child = child.next_sibling("Point"))
    {
        definition.Points.Append(
            CATMathPoint(CoordinateOf(At(child, "X")), CoordinateOf(At(child, "Y")), CoordinateOf(At(child, "Z"))));
        Text name;
        ReadText(At(child, "name"), name);
        definition.PointNames.Append(name);
        int reference = 0;
        ReadWord(At(child, "reference"), references, 0, reference);
        definition.PointReferences.Append(reference);
    }
    return true;
}

constexpr Word directions[] = {{"", DV3DFrontward}, {"frontward", DV3DFrontward}, {"backward", DV3DBackward},
    {"left", DV3DLeft}, {"right", DV3DRight}};
constexpr Word targets[] = {
    {"Parallel", DV3DParallel}, {"Perpendicular", DV3DPerpendicular}, {"Spherical", DV3DSpherical}};

bool DirectView3D(const File& file, const Text& standard, const Text& category, VEXMELKDirectView3DCFG& definition)
{
    const File::Found found = file.Find(standard, category);
    ReadDirectView3D(found.own, found.other, definition);
    definition.ComputationType = definition.ComputationTypeText == "Ambinocular" ? DV3DAmbinocular : DV3DMonocular;
    const char* direction = definition.DirectionText.ConvertToChar();
    definition.Orientation = static_cast<VEXMELKDV3DOrientation>(ValueOf(direction, directions, DV3DAngle));
    definition.DirectionAngle =
        definition.Orientation == DV3DAngle ? NumberOf(direction).first * std::numbers::pi / 180.0 : 0.0;
    if (const Node target = found.Whole().child("Target"))
    {
        ReadDirectView3DTarget(target, {}, definition);
        definition.TargetType = static_cast<VEXMELKDV3DTargetType>(
            ValueOf(definition.TargetTypeText.ConvertToChar(), targets, DV3DPerpendicular));
    }
    return true;
}

std::vector<Case> VisionCases()
{
    return {
        Table<&M::GetSeatingBeltsConfig, &VEXMELKSeatingBeltsConfig::GetStandardData, ReadSeatingBelts>("van"),
        Main<&M::GetFieldsOfViewConfig, &VEXMELKFieldsOfViewConfig::GetStandardData>(
            "GetStandardData", FieldsOfView, sample, asked),
        Main<&M::GetERFieldsOfViewConfig, &VEXMELKERFieldsOfViewConfig::GetStandardData>(
            "GetStandardData", ReducedFieldsOfView, sample, asked),
        Main<&M::GetCRVConfig, &VEXMELKCRVConfig::GetStandardData>(
            "GetStandardData", CloseRangeVisibility, sample, asked),
        Table<&M::GetVisionPointsConfig, &VEXMELKVisionPointsConfig::GetStandardData, ReadVisionPoints>("van"),
        Table<&M::GetVisionConeConfig, &VEXMELKVisionConeConfig::GetStandardData, ReadVisionCone>("van"),
        Table<&M::GetPyramidConfig, &VEXMELKPyramidConfig::GetStandardData, ReadPyramid>("van"),
        Table<&M::GetAPillarConfig, &VEXMELKAPillarConfig::GetStandardData, ReadAPillar>("van"),
        Main<&M::GetMirrorConfig, &VEXMELKMirrorConfig::GetStandardData>(
            "GetStandardData", Mirrors, sample, asked, "Interior"),
        Table<&M::GetOpticalDistortionConfig, &VEXMELKOpticalDistortionConfig::GetStandardData, ReadOpticalDistortion>(
            "van"),
        Main<&M::GetMultipleReflectionConfig, &VEXMELKMultipleReflectionConfig::GetStandardData>(
            "GetStandardData",
            [](const File& file, const Text& standard, const Text& category, auto& definition)
            {
                const File::Found found = file.Find(standard, category);
                const char* direction = At(found.own, found.other, "rayDirection");
                const bool isX = direction && Stripped(direction) == "XDirection";
                definition.rayDirection = isX ? RayXDirection : RayStandard;
                return static_cast<bool>(found);
            },
            sample, "van"),
        Main<&M::GetDirectViewConfig, &VEXMELKDirectViewConfig::GetStandardData>(
            "GetStandardData", DirectView, sample, asked),
        Main<&M::GetDirectView3DConfig, &VEXMELKDirectView3DConfig::GetStandardData>(
            "GetStandardData", DirectView3D, sample, asked),
        Table<&M::GetWipersConfig, &VEXMELKWipersConfig::GetStandardData, ReadWipers>(),
        Main<&M::GetDBAccessConfig, &VEXMELKDBAccessConfig::GetDBAccessParameters>("GetDBAccessParameters",
            [](File& file, Text& host, Text& user, Text& password, Text& dbName)
            {
                file.Load();
                ReadText(At(file.Root(), "host"), host);
                ReadText(At(file.Root(), "user"), user);
                ReadText(At(file.Root(), "password"), password);
                ReadText(At(file.Root(), "db_name"), dbName);
                return true;
            }),
        Main<&M::GetReportGenConfig, &VEXMELKReportGenConfig::GetTemplateHeaderData>(
            "GetTemplateHeaderData",
            [](const File& file, const Text& name, Text& text)
            {
                text = std::string_view(file.RootChild("template", name).child("header").first_child().value());
                return true;
            },
            "Standard"),
    };
}

bool Bumpers(const File& file, const Text& standard, const Text& category, BumperType type,
    VEXArray<VEXMELKBumpersDefinition>& bumpers)
{
    const Node element = file.Find(standard, category).Whole();
    bumpers.reset();
    VEXMELKBumpersDefinition bumper; // one for all
    if (type != MiddlePendulum)
        return static_cast<bool>(element);
    const Node pendulum = element.child("MiddlePendulum");
    for (Node child = pendulum.child("bumper"); child; child = child.next_sibling("bumper"))
    {
        ReadBumpersProfile({}, {}, bumper); // empties them
        ReadBumpersBumper(child, {}, bumper);
        if (const char* name = At(child, "Profile"))
            if (const Node profile = file.RootChild("Profile", Stripped(name)))
            {
                ReadBumpersProfile(profile, {}, bumper);
                ReadBumpersRepeated(profile, {}, bumper);
            }
        bumpers.add(bumper);
    }
    return static_cast<bool>(element);
}

bool CrashBarriers(
    const File& file, const Text& standard, const Text& category, VEXArray<VEXMELKBarrierDefinition>& barriers)
{
    const Node parent = file.Find(standard, category).Whole();
    barriers.reset();
    VEXMELKBarrierDefinition barrier; // one for all
    for (Node element = parent.child("barrier"); element; element = element.next_sibling("barrier"))
    {
        ReadCrashBarriersBarrier(element, {}, barrier);
        const char* overlapping = At(element, "Overlapping");
        barrier.midPosition = overlapping && Stripped(overlapping) == "mid_position";
        if (overlapping)
            barrier.Overlapping = barrier.midPosition ? 1.0 : NumberOf(overlapping).first / 100.0;
        barriers.add(barrier);
    }
    return static_cast<bool>(parent);
}

void ReadCurve(const File::Found& found, const char* type, TraceCurveDefinition& curve)
{
    curve = TraceCurveDefinition();
    Node element = Child(found.Whole(), "curve", "type", type);
    if (!element)
        element = Child(found.other, "curve", "type", type);
    if (!element)
        return;
    curve.defined = 1;
    ReadPedestrianProtectionCurve(element, {}, curve);
}

void ReadBonnetTop(const File::Found& found, const char* tag, PPBonnetTopDefinition& area)
{
    area = PPBonnetTopDefinition();
    const Node element = found.Either(tag);
    if (!element)
        return;
    ReadPedestrianProtectionArea(element, {}, area);
    ReadPedestrianProtectionBoundary(element.child("side"), {}, area.side);
    ReadPedestrianProtectionBoundary(element.child("front"), {}, area.front);
    ReadPedestrianProtectionFront(element.child("front"), {}, area.front);
    ReadPedestrianProtectionBoundary(element.child("rear"), {}, area.rear);
}

bool PedestrianProtection(
    const File& file, const Text& standard, const Text& category, PedestrianProtectionDefinition& definition)
{
    const File::Found found = file.Find(standard, category);
    if (!found)
        return false;
    ReadPedestrianProtection(found.own, found.other, definition);
    ReadCurve(found, "UpperBumper", definition.upperBumper);
    ReadCurve(found, "LowerBumper", definition.lowerBumper);
    ReadCurve(found, "CornerOfBumper", definition.cornerOfBumper);
    ReadCurve(found, "BonnetLeadingEdge", definition.bonnetLeadingEdge);
    ReadCurve(found, "BonnetSide", definition.bonnetSide);
    ReadCurve(found, "WrapAround1", definition.wrapAround1);
    ReadCurve(found, "WrapAround2", definition.wrapAround2);
    ReadCurve(found, "WrapAround3", definition.wrapAround3);
    ReadCurve(found, "BonnetRear", definition.bonnetRear);
    ReadBonnetTop(found, "bonnetTop1", definition.bonnetTop1);
    ReadBonnetTop(found, "bonnetTop2", definition.bonnetTop2);
    ReadPedestrianProtectionRearTemplate(found.Either("bonnetRearTemplate"), {}, definition.bonnetRearTemplate);
    return true;
}

bool HeadImpact(const File& file, const Text& name, VEXMELKHeadImpactDefinition& definition)
{
    const Node standard = file.Find(name, "").standard;
    const auto read = [&](const char* tag, auto reader, auto& zone)
    {
        const Node element = standard.child(tag);
        if (element)
            reader(element, Node(), zone);
        return static_cast<bool>(element);
    };
    return read("HeadGravityCenter", ReadHeadImpactHeadGravityCenter, definition.HeadGravityCenter) &&
           read("UpperRoof", ReadHeadImpactUpperRoof, definition.UpperRoof) &&
           read("APillar", ReadHeadImpactAPillar, definition.APillar) &&
           read("BPillar", ReadHeadImpactBPillar, definition.BPillar) &&
           read("RearmostPillar", ReadHeadImpactRearmostPillar, definition.RearmostPillar) &&
           read("OtherPillar", ReadHeadImpactOtherPillar, definition.OtherPillar) &&
           read("FrontHeader", ReadHeadImpactFrontHeader, definition.FrontHeader) &&
           read("RearHeader", ReadHeadImpactRearHeader, definition.RearHeader) &&
           read("SideRail", ReadHeadImpactSideRail, definition.SideRail) &&
           read("SlidingDoorTrack", ReadHeadImpactSlidingDoorTrack, definition.SlidingDoorTrack) &&
           read("RollBar", ReadHeadImpactRollBar, definition.RollBar) &&
           read("StiffenerBrace", ReadHeadImpactStiffenerBrace, definition.StiffenerBrace);
}

bool Offsets(const File& file, const Text& standard, const Text& category, VEXMELKPPOffsetDefinition& definition)
{
    const File::Found found = file.Find(standard, category);
    ReadPPOffset(found.own, found.other, definition);
    if (const Node section = found.Either("section_based"))
    {
        ReadPPOffsetSection(section, {}, definition);
        ReadAll(section, "curve", definition.curves,
            [](Node element, VEXPPOffsetCurveDefinition& curve) { ReadPPOffsetCurve(element, {}, curve); });
        ReadPPOffsetRegion(section.child("outer_region"), {}, definition.outerRegion);
    }
    return static_cast<bool>(found);
}

std::vector<Case> SafetyCases()
{
    return {
        Table<&M::GetNumberPlatesConfig, &VEXMELKNumberPlatesConfig::GetStandardData, ReadNumberPlates>(),
        Main<&M::GetLampPositionsConfig, &VEXMELKLampPositionsConfig::GetStandardData>(
            "GetStandardData",
            [](const File& file, const Text& standard, const Text& category,
                VEXArray<VEXMELKLampPositionsDefinition>& lamps)
            {
                ReadAll(file.Find(standard, category).Whole(), "Lamp", lamps,
                    [](Node element, VEXMELKLampPositionsDefinition& lamp)
                    { ReadLampPositionsLamp(element, {}, lamp); });
                return true;
            },
            sample, asked),
        Main<&M::GetBumpersConfig, &VEXMELKBumpersConfig::GetStandardData>(
            "GetStandardData", Bumpers, sample, asked, MiddlePendulum),
        Table<&M::GetWheelCoveringConfig, &VEXMELKWheelCoveringConfig::GetStandardData, ReadWheelCovering>(),
        Table<&M::GetChildProtectionConfig, &VEXMELKChildProtectionConfig::GetStandardData, ReadChildProtection>("van"),
        Table<&M::GetFreeSpaceConfig, &VEXMELKFreeSpaceConfig::GetStandardData, ReadFreeSpace>(),
        Main<&M::GetCrashBarriersConfig, &VEXMELKCrashBarriersConfig::GetStandardData>(
            "GetStandardData", CrashBarriers, "In-house 2024", asked),
        Main<&M::GetPedestrianProtectionConfig, &VEXMELKPedestrianProtectionConfig::GetStandardData>(
            "GetStandardData", PedestrianProtection, sample, asked),
        Main<&M::GetHeadImpactConfig, static_cast<unsigned char (VEXMELKHeadImpactConfig::*)(const CATUnicodeString&,
                                          VEXMELKHeadImpactDefinition&)>(&VEXMELKHeadImpactConfig::GetStandardData)>(
            "GetStandardData", HeadImpact, "US Passenger Car"),
        Main<&M::GetPPOffsetConfig, &VEXMELKPPOffsetConfig::GetStandardData>("GetStandardData", Offsets, sample, asked),
    };
}

// Numbers by hand may be rounded differently in the last place.
void Compare(const Json& library, const Json& byHand, const std::string& where)
{
    if (library.is_number_float())
    {
        const double number = library.get<double>();
        Require(byHand.is_number() && std::fabs(number - byHand.get<double>()) <= 1e-12 * std::fabs(number), where);
    }
    else if (library.is_structured())
    {
        Require(library.size() == byHand.size(), where + ": size");
        const auto& other = byHand.items();
        auto at = other.begin();
        for (const auto& member : library.items())
        {
            Compare(member.value(), at.value(), where + "." + member.key());
            ++at;
        }
    }
    else
        Require(library == byHand, where + ": " + library.dump() + ", by hand " + byHand.dump());
}

void Check(const Case& one)
{
    UseDirectory(SampleDirectory(), false);
    Require(one.library() == one.byHand(), one.configuration + ": result");
    Compare(one.libraryAnswer(), one.byHandAnswer(), one.configuration);
}

void Time(benchmark::State& state, const Ask& ask)
{
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(ask());
        benchmark::ClobberMemory();
    }
}

} // namespace

void RegisterConfigurations()
{
    for (const auto& cases : {UnderfloorCases(), OccupantCases(), VisionCases(), SafetyCases()})
        for (const Case& one : cases)
        {
            const auto add = [&](const char* who, const Ask& ask)
            {
                benchmark::RegisterBenchmark(("configurations/" + one.configuration + "/" + who).c_str(),
                    [=](benchmark::State& state)
                    {
                        Check(one);
                        Time(state, ask);
                    });
            };
            add("library", one.library);
            add("pugixml", one.byHand);
        }
}
