// The main query of every configuration that can be reached, over the sample configuration, beside the same look-up by
// hand over pugixml. Before anything is timed, the two answers are compared, text by text and number by number.
#include "Bench.h"
#include "ByHand.h"
#include "Registry.h"
#include "Trees.h"

#include "VEXMELKAPillarConfig.h"
#include "VEXMELKBaseDataConfig.h"
#include "VEXMELKBumpersConfig.h"
#include "VEXMELKCRVConfig.h"
#include "VEXMELKChildProtectionConfig.h"
#include "VEXMELKCrashBarriersConfig.h"
#include "VEXMELKDBAccessConfig.h"
#include "VEXMELKDirectView3DConfig.h"
#include "VEXMELKDirectViewConfig.h"
#include "VEXMELKERFieldsOfViewConfig.h"
#include "VEXMELKExtendedEyePointsConfig.h"
#include "VEXMELKEyeEllipsesConfig.h"
#include "VEXMELKEyePointsConfig.h"
#include "VEXMELKFieldsOfViewConfig.h"
#include "VEXMELKFreeSpaceConfig.h"
#include "VEXMELKHeadContourConfig.h"
#include "VEXMELKHeadImpactConfig.h"
#include "VEXMELKLampPositionsConfig.h"
#include "VEXMELKManikinTemplateConfig.h"
#include "VEXMELKMirrorConfig.h"
#include "VEXMELKMultipleReflectionConfig.h"
#include "VEXMELKNumberPlatesConfig.h"
#include "VEXMELKOpticalDistortionConfig.h"
#include "VEXMELKPPOffsetConfig.h"
#include "VEXMELKPedestrianProtectionConfig.h"
#include "VEXMELKPyramidConfig.h"
#include "VEXMELKReportGenConfig.h"
#include "VEXMELKSRPLocationCurvesConfig.h"
#include "VEXMELKSeatingBeltsConfig.h"
#include "VEXMELKUFCompleteConfig.h"
#include "VEXMELKUFCurbConfig.h"
#include "VEXMELKUFDynamicCurbConfig.h"
#include "VEXMELKUFInnerAngleConfig.h"
#include "VEXMELKUFOilTubConfig.h"
#include "VEXMELKUFSlopeAngleConfig.h"
#include "VEXMELKUFSpaceToRoadConfig.h"
#include "VEXMELKUFWheelFixingConfig.h"
#include "VEXMELKVisionConeConfig.h"
#include "VEXMELKVisionPointsConfig.h"
#include "VEXMELKWheelCoveringConfig.h"
#include "VEXMELKWipersConfig.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>
#include <set>

namespace {

using Ask = std::function<int()>;

struct Case
{
    std::string configuration;
    std::string operation;
    Ask library;
    Json arguments; // the same question for the registry of operations
    Plan plan;
};

Json ToJson(const CATUnicodeString& text) { return text.ConvertToChar(); }
template <class Value> Json ToJson(Value value) { return value; }

// Two records gather more with every query, unless their caller empties them.
template <class Value> void Empty(Value& /*value*/) {}
void Empty(VEXMELKMirrorDefinition& mirror) { mirror.Points.reset(); }
void Empty(VEXMELKDirectViewCFG& view)
{
    view.PointNames.RemoveAll();
    view.PointReferences.RemoveAll();
}

// A query that is asked again and again, with outputs that stay.
template <auto Getter, class Config, class Result, class... Arguments, class... Inputs>
Case Main(const char* operation, Result (Config::*query)(Arguments...), Plan plan, const Inputs&... inputs)
{
    using Values = std::tuple<std::remove_cvref_t<Arguments>...>;
    const auto values = std::make_shared<Values>();
    const auto given = std::make_tuple(inputs...);
    using Owner = std::remove_pointer_t<decltype((std::declval<VEXMELKConfigManager&>().*Getter)())>;
    Case main{std::string(Owner::description.name), operation, {}, Json::object(), std::move(plan)};
    const auto& parameters = FindConfiguration(main.configuration).FindOperation(operation).Parameters();
    const auto set = [&]<std::size_t... Index>(std::index_sequence<Index...>)
    {
        ((std::get<Index>(*values) = std::tuple_element_t<Index, Values>(std::get<Index>(given))), ...);
        ((main.arguments[parameters[Index].name] = ToJson(std::get<Index>(*values))), ...);
    };
    set(std::index_sequence_for<Inputs...>());
    main.library = [query, values]
    {
        Config* config = (VEXMELKConfigManager::GetConfigManager()->*Getter)();
        return std::apply(
            [&](auto&... value)
            {
                (Empty(value), ...);
                return static_cast<int>((config->*query)(value...));
            },
            *values);
    };
    return main;
}

Wanted WantedOf(const VEXMELKRow& row)
{
    const std::string attribute(row.attribute);
    switch (row.form)
    {
    case VEXMELKForm::Text:
        return {attribute, Kind::Text, std::string(row.unit), 1.0, std::string(row.whenMissing.text)};
    case VEXMELKForm::Flag:
        return {attribute, Kind::Flag};
    case VEXMELKForm::Number:
        return {attribute, Kind::Number};
    case VEXMELKForm::Millimetres:
        return {attribute, row.unit == "m" ? Kind::Code : Kind::Number};
    case VEXMELKForm::Metres:
        return {attribute, Kind::Number, "", 0.001};
    case VEXMELKForm::Radians:
        return {attribute, Kind::Number, "", std::numbers::pi / 180.0};
    default:
        return {attribute, Kind::Code};
    }
}

void Append(std::vector<Wanted>& attributes, const VEXMELKRow& row)
{
    const auto isSame = [&](const Wanted& other) { return other.attribute == row.attribute; };
    if (std::none_of(attributes.begin(), attributes.end(), isSame))
        attributes.push_back(WantedOf(row));
}

// The plans of a configuration: elements and attributes are those of its description.
class Planner
{
public:
    explicit Planner(const VEXMELKDescription& description) : m_Description(description) {}

    std::string File() const
    {
        std::string file(m_Description.file);
        std::replace(file.begin(), file.end(), '\\', '/');
        return file;
    }
    std::vector<Wanted> Attributes(std::string_view tag, bool withKey = false) const
    {
        std::vector<Wanted> attributes;
        for (const VEXMELKElement* element : m_Description.elements)
            if (element->tag == tag && attributes.empty())
            {
                if (withKey && element->key)
                    attributes.push_back({std::string(element->key->attribute), Kind::Code});
                if (element->hasText)
                    attributes.push_back({"."});
                for (const VEXMELKRows rows : element->tables)
                    for (const VEXMELKRow& row : rows)
                        Append(attributes, row);
            }
        return attributes;
    }
    Elements All(const char* tag, std::vector<Elements> inner = {}) const
    {
        return {tag, Attributes(tag, true), Which::All, "", "", 0.0, std::move(inner)};
    }
    Elements First(const char* tag, std::vector<Elements> inner = {}) const
    {
        return {tag, Attributes(tag), Which::First, "", "", 0.0, std::move(inner)};
    }
    Elements Keyed(const char* tag, const char* attribute, const char* key, std::vector<Elements> inner) const
    {
        return {tag, Attributes(tag), Which::First, attribute, key, 0.0, std::move(inner)};
    }
    Elements Row(const char* tag, const char* attribute, Which which, double travel) const
    {
        return {tag, Attributes(tag), which, attribute, "", travel};
    }

private:
    const VEXMELKDescription& m_Description;
};

Elements Over(Elements elements)
{
    elements.intoLast = true;
    return elements;
}

constexpr const char* sample = "EU Passenger Car";
constexpr const char* asked = "suv";

template <auto Getter> const VEXMELKDescription& DescriptionOf()
{
    using Owner = std::remove_pointer_t<decltype((std::declval<VEXMELKConfigManager&>().*Getter)())>;
    return Owner::description;
}

// The attributes of a category, asked for by standard and category.
template <auto Getter, class Query> Case Table(Query query, const char* category = asked)
{
    const Planner planner(DescriptionOf<Getter>());
    return Main<Getter>("GetStandardData", query,
        {planner.File(), sample, category, planner.Attributes("category"), {}}, sample, category);
}

Plan BumpersPlan()
{
    const Planner planner(VEXMELKBumpersConfig::description);
    Elements bumper = planner.All("bumper");
    std::erase_if(bumper.wanted, [](const Wanted& wanted) { return wanted.attribute == "Profile"; });
    bumper.reference = "Profile";
    bumper.referencedTag = "Profile";
    bumper.referencedWanted = planner.Attributes("Profile");
    return {planner.File(), sample, asked, {}, {planner.First("MiddlePendulum", {bumper})}, Plan::WholeCategory};
}

Plan PedestrianPlan()
{
    const Planner planner(VEXMELKPedestrianProtectionConfig::description);
    Plan plan{planner.File(), sample, asked, planner.Attributes("category"), {}, Plan::ElementByElement};
    for (const char* type : {"UpperBumper", "LowerBumper", "CornerOfBumper", "BonnetLeadingEdge", "BonnetSide",
             "WrapAround1", "WrapAround2", "WrapAround3", "BonnetRear"})
        plan.elements.push_back(planner.Keyed("curve", "type", type, {}));
    for (const char* area : {"bonnetTop1", "bonnetTop2"})
        plan.elements.push_back(
            planner.First(area, {planner.First("side"), planner.First("front"), planner.First("rear")}));
    plan.elements.push_back(planner.First("bonnetRearTemplate"));
    return plan;
}

Plan HeadImpactPlan()
{
    const Planner planner(VEXMELKHeadImpactConfig::description);
    Plan plan{planner.File(), "US Passenger Car", "", {}, {}};
    for (const VEXMELKElement* zone : VEXMELKHeadImpactConfig::description.elements)
        plan.elements.push_back(planner.First(zone->tag.data()));
    return plan;
}

Plan ManikinPlan()
{
    const Planner planner(VEXMELKManikinTemplateConfig::description);
    const Elements seat = Over(planner.First("driver_seat"));
    return {planner.File(), "Two-dimensional Template", asked, {},
        {planner.Keyed("percentil", "value", "95", {seat}),
            Over(planner.Keyed("positioning", "name", "heel point", {seat}))},
        Plan::WholeCategory};
}

Plan RadiiPlan()
{
    const Planner planner(VEXMELKEyeEllipsesConfig::description);
    Elements radii = planner.Row("radii", "h_point_travel", Which::FirstNotAbove, 110.0);
    std::erase_if(radii.wanted, [](const Wanted& wanted) { return !wanted.attribute.ends_with("_95"); });
    return {planner.File(), "Eye Ellipses 2002", "", {}, {planner.First("coeficients2002", {radii})}};
}

Plan MirrorPlan()
{
    const Planner planner(VEXMELKMirrorConfig::description);
    Elements point = planner.All("Point");
    std::erase_if(point.wanted, [](const Wanted& wanted) { return wanted.attribute.starts_with("Z"); }); // on the road
    point.wanted.front().kind = Kind::Code; // says so, and is not handed out
    return {planner.File(), sample, asked, {}, {planner.Keyed("InstructionField", "PositionType", "Interior", {point})},
        Plan::WholeCategory, "standard", planner.Attributes("standard")};
}

std::vector<Case> UnderfloorCases()
{
    using M = VEXMELKConfigManager;
    return {
        Table<&M::GetUFSlopeAngleConfig>(&VEXMELKUFSlopeAngleConfig::GetStandardData),
        Table<&M::GetUFInnerAngleConfig>(&VEXMELKUFInnerAngleConfig::GetStandardData),
        Table<&M::GetUFCurbConfig>(&VEXMELKUFCurbConfig::GetStandardData),
        Table<&M::GetUFDynamicCurbConfig>(&VEXMELKUFDynamicCurbConfig::GetStandardData),
        Table<&M::GetUFSpaceToRoadConfig>(&VEXMELKUFSpaceToRoadConfig::GetStandardData),
        Table<&M::GetUFOilTubConfig>(&VEXMELKUFOilTubConfig::GetStandardData),
        Table<&M::GetUFWheelFixingConfig>(&VEXMELKUFWheelFixingConfig::GetStandardData),
        Table<&M::GetUFCompleteConfig>(&VEXMELKUFCompleteConfig::GetStandardData),
    };
}

std::vector<Case> OccupantCases()
{
    using M = VEXMELKConfigManager;
    const Planner baseData(VEXMELKBaseDataConfig::description);
    const Planner eyePoints(VEXMELKEyePointsConfig::description);
    const Planner extended(VEXMELKExtendedEyePointsConfig::description);
    const Planner headContour(VEXMELKHeadContourConfig::description);
    const Planner curves(VEXMELKSRPLocationCurvesConfig::description);
    const Elements radii = headContour.Row("h_point_travel", "value", Which::LastBelow, 110.0);
    return {
        Main<&M::GetBaseDataConfig>("GetSeatDataForBaseDataCategory",
            &VEXMELKBaseDataConfig::GetSeatDataForBaseDataCategory,
            {baseData.File(), "default", "", {}, {baseData.All("seat")}, Plan::WholeCategory, "category"}, "default"),
        Main<&M::GetEyeEllipsesConfig>(
            "GetRadii2002", &VEXMELKEyeEllipsesConfig::GetRadii2002, RadiiPlan(), "Eye Ellipses 2002", 110.0, 95),
        Main<&M::GetEyePointsConfig>("GetEyePoints", &VEXMELKEyePointsConfig::GetEyePoints,
            {eyePoints.File(), "V and P Points", asked, {}, {eyePoints.All("point")}, Plan::WholeCategory},
            "V and P Points", asked),
        Main<&M::GetExtendedEyePointsConfig>("GetExtendedEyePointMovements",
            &VEXMELKExtendedEyePointsConfig::GetExtendedEyePointMovements,
            {extended.File(), "In-house Extended Eyes", asked, {},
                {extended.First("movements"),
                    extended.First("standard_movements",
                        {extended.First("ext_up"), extended.First("ext_front"), extended.First("ext_side")}),
                    extended.First("free_movements",
                        {extended.First("down_up"), extended.First("left_right"), extended.First("forward_backward")})},
                Plan::ElementByElement},
            "In-house Extended Eyes", asked),
        Main<&M::GetHeadContourConfig>("GetRadii", &VEXMELKHeadContourConfig::GetRadii,
            {headContour.File(), "Head Contour 2002", asked, {},
                {headContour.First("radii", {headContour.Keyed("cutoff", "value", "95", {radii})})},
                Plan::WholeCategory},
            "Head Contour 2002", asked, 110.0, 95),
        Main<&M::GetSRPLocationCurvesConfig>("GetStandardData", &VEXMELKSRPLocationCurvesConfig::GetStandardData,
            {curves.File(), "Seat Location", asked, {}, {curves.All("curve")}, Plan::WholeCategory}, "Seat Location",
            asked),
        Main<&M::GetManikinTemplateConfig>("GetStandardData", &VEXMELKManikinTemplateConfig::GetStandardData,
            ManikinPlan(), "Two-dimensional Template", asked, "95", "heel point", MTDriverSeat),
    };
}

std::vector<Case> VisionCases()
{
    using M = VEXMELKConfigManager;
    const Planner fields(VEXMELKFieldsOfViewConfig::description);
    const Planner otherFields(VEXMELKERFieldsOfViewConfig::description);
    const Planner closeRange(VEXMELKCRVConfig::description);
    const Planner directView(VEXMELKDirectViewConfig::description);
    const Planner directView3D(VEXMELKDirectView3DConfig::description);
    const Planner access(VEXMELKDBAccessConfig::description);
    const Planner reports(VEXMELKReportGenConfig::description);
    return {
        Table<&M::GetSeatingBeltsConfig>(&VEXMELKSeatingBeltsConfig::GetStandardData, "van"),
        Main<&M::GetFieldsOfViewConfig>("GetStandardData", &VEXMELKFieldsOfViewConfig::GetStandardData,
            {fields.File(), sample, asked, fields.Attributes("category"),
                {fields.All("field", {fields.All("interval")})}, Plan::Overlay},
            sample, asked),
        Main<&M::GetERFieldsOfViewConfig>("GetStandardData", &VEXMELKERFieldsOfViewConfig::GetStandardData,
            {otherFields.File(), sample, asked, {}, {otherFields.All("field", {otherFields.All("subtract")})},
                Plan::Overlay},
            sample, asked),
        Main<&M::GetCRVConfig>("GetStandardData", &VEXMELKCRVConfig::GetStandardData,
            {closeRange.File(), sample, asked, {},
                {closeRange.First("cylinder"), closeRange.First("area"), closeRange.First("death_zone")},
                Plan::ElementByElement},
            sample, asked),
        Table<&M::GetVisionPointsConfig>(&VEXMELKVisionPointsConfig::GetStandardData, "van"),
        Table<&M::GetVisionConeConfig>(&VEXMELKVisionConeConfig::GetStandardData, "van"),
        Table<&M::GetPyramidConfig>(&VEXMELKPyramidConfig::GetStandardData, "van"),
        Table<&M::GetAPillarConfig>(&VEXMELKAPillarConfig::GetStandardData, "van"),
        Main<&M::GetMirrorConfig>(
            "GetStandardData", &VEXMELKMirrorConfig::GetStandardData, MirrorPlan(), sample, asked, "Interior"),
        Table<&M::GetOpticalDistortionConfig>(&VEXMELKOpticalDistortionConfig::GetStandardData, "van"),
        Table<&M::GetMultipleReflectionConfig>(&VEXMELKMultipleReflectionConfig::GetStandardData, "van"),
        Main<&M::GetDirectViewConfig>("GetStandardData", &VEXMELKDirectViewConfig::GetStandardData,
            {directView.File(), sample, asked, directView.Attributes("category"), {directView.All("Point")},
                Plan::WholeCategory},
            sample, asked),
        Main<&M::GetDirectView3DConfig>("GetStandardData", &VEXMELKDirectView3DConfig::GetStandardData,
            {directView3D.File(), sample, asked, directView3D.Attributes("category"), {directView3D.First("Target")}},
            sample, asked),
        Table<&M::GetWipersConfig>(&VEXMELKWipersConfig::GetStandardData),
        Main<&M::GetDBAccessConfig>("GetDBAccessParameters", &VEXMELKDBAccessConfig::GetDBAccessParameters,
            {access.File(), "", "", access.Attributes("*"), {}, Plan::WholeCategory, "", {}, true}),
        Main<&M::GetReportGenConfig>("GetTemplateHeaderData", &VEXMELKReportGenConfig::GetTemplateHeaderData,
            {reports.File(), "Standard", "", {}, {reports.First("header")}, Plan::WholeCategory, "template"},
            "Standard"),
    };
}

std::vector<Case> SafetyCases()
{
    using M = VEXMELKConfigManager;
    const Planner lamps(VEXMELKLampPositionsConfig::description);
    const Planner barriers(VEXMELKCrashBarriersConfig::description);
    const Planner offsets(VEXMELKPPOffsetConfig::description);
    return {
        Table<&M::GetNumberPlatesConfig>(&VEXMELKNumberPlatesConfig::GetStandardData),
        Main<&M::GetLampPositionsConfig>("GetStandardData", &VEXMELKLampPositionsConfig::GetStandardData,
            {lamps.File(), sample, asked, {}, {lamps.All("Lamp")}, Plan::WholeCategory}, sample, asked),
        Main<&M::GetBumpersConfig>(
            "GetStandardData", &VEXMELKBumpersConfig::GetStandardData, BumpersPlan(), sample, asked, MiddlePendulum),
        Table<&M::GetWheelCoveringConfig>(&VEXMELKWheelCoveringConfig::GetStandardData),
        Table<&M::GetChildProtectionConfig>(&VEXMELKChildProtectionConfig::GetStandardData, "van"),
        Table<&M::GetFreeSpaceConfig>(&VEXMELKFreeSpaceConfig::GetStandardData),
        Main<&M::GetCrashBarriersConfig>("GetStandardData", &VEXMELKCrashBarriersConfig::GetStandardData,
            {barriers.File(), "In-house 2024", asked, {}, {barriers.All("barrier")}, Plan::WholeCategory},
            "In-house 2024", asked),
        Main<&M::GetPedestrianProtectionConfig>(
            "GetStandardData", &VEXMELKPedestrianProtectionConfig::GetStandardData, PedestrianPlan(), sample, asked),
        Main<&M::GetHeadImpactConfig>("GetStandardData",
            static_cast<unsigned char (VEXMELKHeadImpactConfig::*)(
                const CATUnicodeString&, VEXMELKHeadImpactDefinition&)>(&VEXMELKHeadImpactConfig::GetStandardData),
            HeadImpactPlan(), "US Passenger Car"),
        Main<&M::GetPPOffsetConfig>("GetStandardData", &VEXMELKPPOffsetConfig::GetStandardData,
            {offsets.File(), sample, asked, offsets.Attributes("category"),
                {offsets.First("section_based", {offsets.All("curve"), offsets.First("outer_region")})},
                Plan::ElementByElement},
            sample, asked),
    };
}

// The texts and numbers of an answer, wherever they stand in it.
void Collect(const Json& json, std::set<std::string>& texts, std::vector<double>& numbers)
{
    if (json.is_structured())
        for (const Json& member : json)
            Collect(member, texts, numbers);
    else if (json.is_string() && !json.get<std::string>().empty())
        texts.insert(json.get<std::string>());
    else if (json.is_number())
        numbers.push_back(json.get<double>());
    else if (json.is_boolean())
        numbers.push_back(json.get<bool>() ? 1.0 : 0.0);
}

// Every text that the library answers was read by hand too, and everything read by hand is in the library's answer.
void Compare(const Case& one, const Json& answer, const ByHand& byHand)
{
    std::set<std::string> texts;
    std::vector<double> numbers;
    Collect(answer, texts, numbers);
    std::set<std::string> read;
    for (std::size_t record = 0; record < byHand.RecordCount(); ++record)
        for (const Value& value : byHand.Records()[record])
        {
            const std::string where = one.configuration + ": " + value.wanted->attribute + " = ";
            const bool isText = value.wanted->kind == Kind::Text;
            if (isText || value.wanted->kind == Kind::Code)
                read.insert(value.text);
            if (isText && !value.text.empty())
                Require(texts.count(value.text) == 1, where + value.text);
            if (value.isFound && !isText && value.wanted->kind != Kind::Code)
                Require(
                    std::any_of(numbers.begin(), numbers.end(),
                        [&](double number) { return std::fabs(number - value.number) <= 1e-9 * std::fabs(number); }),
                    where + std::to_string(value.number));
        }
    Require(byHand.RecordCount() > 0, one.configuration + ": nothing read by hand");
    for (const std::string& text : texts)
        Require(read.count(text) == 1, one.configuration + ": not read by hand: " + text);
}

void Time(benchmark::State& state, const Ask& ask)
{
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(ask());
        benchmark::ClobberMemory();
    }
}

void Check(const Case& one, const std::shared_ptr<ByHand>& byHand)
{
    UseDirectory(SampleDirectory(), false);
    const Configuration& configuration = FindConfiguration(one.configuration);
    VEXMELKConfig& object = *configuration.get(*VEXMELKConfigManager::GetConfigManager());
    const Operation& operation = configuration.FindOperation(one.operation);
    const Answered answered = operation.Prepare(one.arguments, Json::object())(object);
    const Json& result = answered.result;
    Require(one.library() == (result.is_boolean() ? static_cast<int>(result.get<bool>()) : result.get<int>()),
        one.configuration + ": result");
    Require((*byHand)() == 1, one.configuration + ": not found by hand");
    Compare(one, answered.outputs, *byHand);
}

} // namespace

void RegisterConfigurations()
{
    for (const auto& cases : {UnderfloorCases(), OccupantCases(), VisionCases(), SafetyCases()})
        for (const Case& one : cases)
        {
            const auto byHand = std::make_shared<ByHand>(one.plan);
            const std::string name = "configurations/" + one.configuration + "/";
            benchmark::RegisterBenchmark((name + "library").c_str(),
                [=](benchmark::State& state)
                {
                    Check(one, byHand);
                    Time(state, one.library);
                });
            benchmark::RegisterBenchmark((name + "pugixml").c_str(),
                [=](benchmark::State& state)
                {
                    Check(one, byHand);
                    Time(state, [&] { return (*byHand)(); });
                });
        }
}
