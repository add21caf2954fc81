// The two-dimensional manikin template. Four sources are applied one over the other: the percentile, its seat, the
// positioning, its seat. An attribute may fill a role and a value at once.
#include "VEXMELKManikinTemplateConfig.h"

#include "VEXMELKReader.h"

namespace {

using Definition = VEXMELKManikinTemplateDefinition;

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);

constexpr VEXMELKWord roleWords[] = {{"unused", MTUsageUnused}, {"base_data", MTUsageBaseData}, {"input", MTUsageInput},
    {"selection", MTUsageInput}, {"output", MTUsageOutput}};
constexpr VEXMELKWords roles{roleWords, MTUsageValue};
constexpr VEXMELKTable table{
    Word<&Definition::torso_length_usage>("torso_length", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::torso_length>("torso_length", "role and value", Keep, NotNegative),
    Word<&Definition::torso_angle_usage>("torso_angle", roles, "role and value", Unit{"deg"}, Keep),
    Angle<&Definition::torso_angle>("torso_angle", "role and value", Keep),
    Word<&Definition::seat_point_usage>("seat_point", roles, "role", Keep),
    Word<&Definition::hip_angle_usage>("hip_angle", roles, "role and value", Unit{"deg"}, Keep),
    Angle<&Definition::hip_angle>("hip_angle", "role and value", Keep),
    Word<&Definition::rump_length_usage>("rump_length", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::rump_length>("rump_length", "role and value", Keep, NotNegative),
    Word<&Definition::knee_angle_usage>("knee_angle", roles, "role and value", Unit{"deg"}, Keep),
    Angle<&Definition::knee_angle>("knee_angle", "role and value", Keep),
    Word<&Definition::leg_room_usage>("leg_room", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::leg_room>("leg_room", "role and value", Keep, NotNegative),
    Word<&Definition::leg_length_usage>("leg_length", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::leg_length>("leg_length", "role and value", Keep, NotNegative),
    Word<&Definition::foot_angle_usage>("foot_angle", roles, "role and value", Unit{"deg"}, Keep),
    Angle<&Definition::foot_angle>("foot_angle", "role and value", Keep),
    Angle<&Definition::max_foot_angle>("max_foot_angle", "value", Keep),
    Angle<&Definition::min_foot_angle>("min_foot_angle", "value", Keep),
    Word<&Definition::foot_length_usage>("foot_length", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::foot_length>("foot_length", "role and value", Keep, NotNegative),
    Word<&Definition::foot_flesh_angle_usage>("foot_flesh_angle", roles, "role and value", Unit{"deg"}, Keep),
    Angle<&Definition::foot_flesh_angle>("foot_flesh_angle", "role and value", Keep),
    Word<&Definition::foot_hoffset_usage>("foot_hoffset", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::foot_hoffset>("foot_hoffset", "role and value", Keep),
    Word<&Definition::foot_voffset_usage>("foot_voffset", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::foot_voffset>("foot_voffset", "role and value", Keep),
    Word<&Definition::bof_point_usage>("bof_point", roles, "role", Keep),
    Word<&Definition::ankle_point_usage>("ankle_point", roles, "role", Keep),
    Word<&Definition::lift_usage>("lift", roles, "role and value", Unit{"mm"}, Keep),
    Length<&Definition::lift>("lift", "role and value", Keep),
    Word<&Definition::heel_point_usage>("heel_point", roles, "role", Keep),
    Word<&Definition::pedal_usage>("pedal", roles, "role", Keep),
    Word<&Definition::floor_usage>("floor", roles, "role", Keep),
    Word<&Definition::interior_usage>("interior", roles, "role", Keep),
    Length<&Definition::interior_interval>("interior_interval", "value", Keep, NotNegative),
    Flag<&Definition::foot_on_floor>("foot_on_floor", "the foot is on the floor", Keep),
};

constexpr VEXMELKRow percentilValue = Text("value", "the percentile's name", AsWritten(), Skip);
constexpr VEXMELKElement percentilElements{.tag = "percentil",
    .below = &categoryElements,
    .choice = VEXMELKChoice::ByKey,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .key = &percentilValue,
    .tables = {table.rows},
    .meaning = "a template by percentile; the first of a value counts",
    .whenMissing = "plays no part"};
constexpr VEXMELKRow positioningName = Text("name", "its name", AsWritten(), Skip);
constexpr VEXMELKElement positioningElements{.tag = "positioning",
    .below = &categoryElements,
    .choice = VEXMELKChoice::ByKey,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .key = &positioningName,
    .tables = {table.rows},
    .meaning = "a template by positioning; the first of a name counts",
    .whenMissing = "plays no part"};

constexpr VEXMELKElement SeatOf(const VEXMELKElement& parent, const char* tag)
{
    return {.tag = tag,
        .below = &parent,
        .place = VEXMELKPlace::AnyDepth,
        .tables = {table.rows},
        .meaning = "refine the template for a seat; the first of each counts",
        .whenMissing = "plays no part"};
}
// By the number of the seat.
constexpr VEXMELKElement percentilSeats[] = {SeatOf(percentilElements, "driver_seat"),
    SeatOf(percentilElements, "front_seat"), SeatOf(percentilElements, "back_seat")};
constexpr VEXMELKElement positioningSeats[] = {SeatOf(positioningElements, "driver_seat"),
    SeatOf(positioningElements, "front_seat"), SeatOf(positioningElements, "back_seat")};
// Whether a positioning names any seat is told by any element in it.
constexpr VEXMELKElement anyInPositioning{.tag = "*",
    .below = &positioningElements,
    .place = VEXMELKPlace::AnyDepth,
    .meaning = "with any element in it, a positioning supports only the seats that are named",
    .whenMissing = "every seat"};

constexpr const VEXMELKElement* elements[] = {&categoryElements, &percentilElements, &percentilSeats[0],
    &percentilSeats[1], &percentilSeats[2], &positioningElements, &positioningSeats[0], &positioningSeats[1],
    &positioningSeats[2], &anyInPositioning};

constexpr VEXMELKParameter positioningParameter{
    .name = "positioning", .role = VEXMELKRole::Key, .element = &positioningElements};
constexpr VEXMELKParameter seatParameter{.name = "seat", .role = VEXMELKRole::Choice, .choices = 3};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Definition> = VEXMELKFieldList<Definition>(table);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKManikinTemplateConfig::GetRole>(
        "GetRole", VEXMELKParameter{.name = "text", .role = VEXMELKRole::Word}),
    VEXMELKDescribe<&VEXMELKManikinTemplateConfig::GetPercentilList>(
        "GetPercentilList", standardArgument, categoryArgument, Output("names")),
    VEXMELKDescribe<&VEXMELKManikinTemplateConfig::GetPositioningList>(
        "GetPositioningList", standardArgument, categoryArgument, Output("names")),
    VEXMELKDescribe<&VEXMELKManikinTemplateConfig::IsSeatSupported>(
        "IsSeatSupported", standardArgument, categoryArgument, positioningParameter, seatParameter),
    VEXMELKDescribe<&VEXMELKManikinTemplateConfig::GetStandardData>("GetStandardData", standardArgument,
        categoryArgument,
        VEXMELKParameter{.name = "percentil", .role = VEXMELKRole::Key, .element = &percentilElements},
        positioningParameter, seatParameter, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKManikinTemplateConfig::description{
    .name = "ManikinTemplate",
    .file = "Manikin\\ManikinTemplate.xml",
    .meaning = "The two-dimensional template that positions an occupant.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKManikinTemplateConfig::VEXMELKManikinTemplateConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

VEXMELKMTElementUsage VEXMELKManikinTemplateConfig::GetRole(CATUnicodeString& text)
{
    return static_cast<VEXMELKMTElementUsage>(ValueOfWord(roles, text));
}

unsigned char VEXMELKManikinTemplateConfig::GetPercentilList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element != NULL_var)
                CollectKeys(element, percentilElements, names);
            return element != NULL_var;
        });
}

unsigned char VEXMELKManikinTemplateConfig::GetPositioningList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            if (element != NULL_var)
                CollectKeys(element, positioningElements, names);
            return element != NULL_var;
        });
}

unsigned char VEXMELKManikinTemplateConfig::IsSeatSupported(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& positioning, const VEXMELKManikinTemplateSeatEnum& seat)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            CATIDOMElement_var element =
                FindByKey(GetCategoryElement(standard, category), positioningElements, positioning);
            if (element == NULL_var)
                return 0;
            CATIDOMElement_var seatElement;
            return Find(element, anyInPositioning) == NULL_var || GetMTSeatElement(element, seat, seatElement);
        });
}

unsigned char VEXMELKManikinTemplateConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& percentil, const CATUnicodeString& positioning,
    const VEXMELKManikinTemplateSeatEnum& seat, VEXMELKManikinTemplateDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetCategoryElement(standard, category);
            const CATIDOMElement_var percentilElement = FindByKey(element, percentilElements, percentil);
            const CATIDOMElement_var positioningElement = FindByKey(element, positioningElements, positioning);
            definition = VEXMELKManikinTemplateDefinition(); // not before: a name may be one of its texts
            for (const auto& access : table.accesses)
                if (access.text)
                    definition.*access.text = "0.0";
            ApplyTemplate(percentilElement, seat, definition);
            ApplyTemplate(positioningElement, seat, definition);
            return 1; // always
        });
}

void VEXMELKManikinTemplateConfig::ApplyTemplate(CATIDOMElement_var element, const VEXMELKManikinTemplateSeatEnum& seat,
    VEXMELKManikinTemplateDefinition& definition)
{
    CATIDOMElement_var seatElement;
    GetMTElementAttributesAndValues(element, definition);
    if (GetMTSeatElement(element, seat, seatElement))
        GetMTElementAttributesAndValues(seatElement, definition);
}

unsigned char VEXMELKManikinTemplateConfig::GetMTElementAttributesAndValues(
    CATIDOMElement_var& element, VEXMELKManikinTemplateDefinition& definition)
{
    if (element == NULL_var || !HasAttributes(element))
        return 0;
    ReadFields(Decimals(), element, table, definition);
    return 1;
}

unsigned char VEXMELKManikinTemplateConfig::GetMTSeatElement(
    CATIDOMElement_var& parent, const VEXMELKManikinTemplateSeatEnum& seat, CATIDOMElement_var& seatElement)
{
    seatElement = NULL_var;
    if (parent != NULL_var && seat >= MTDriverSeat && seat <= MTBackSeat)
        seatElement =
            Find(parent, parent->GetTagName() == percentilElements.tag ? percentilSeats[seat] : positioningSeats[seat]);
    return seatElement != NULL_var;
}
