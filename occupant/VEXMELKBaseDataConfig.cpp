// Vehicle base data. The file has no standards: its categories are children of the root, and each query has a rule of
// its own for what "default" supplies.
#include "VEXMELKBaseDataConfig.h"

#include "VEXMELKReader.h"

namespace {

using Loading = VEXMELKLoadingDefinition;
using Seat = VEXMELKSeatDefinition;
using Wheels = VEXMELKWheelsDefinition;

constexpr VEXMELKRow baseCategoryName = Text("name", "its name", AsWritten(), Skip);
constexpr VEXMELKOutputTable<CATUnicodeString, CATUnicodeString, CATUnicodeString> overallTable{
    Length("car_width", "width of the vehicle", Fills{"carWidth"}, NotNegative),
    Length("forward_distance", "distance to the front", Fills{"forwardDistance"}, NotNegative),
    Length("backward_distance", "distance to the rear", Fills{"backwardDistance"}, NotNegative),
};
constexpr VEXMELKElement baseCategories{.tag = "category",
    .choice = VEXMELKChoice::ByKey,
    .fallBack = VEXMELKFallBack::Other,
    .key = &baseCategoryName,
    .tables = {overallTable.rows},
    .meaning = "a vehicle category",
    .whenMissing = "the overall dimensions fail, all else is that of `default`"};

constexpr VEXMELKTable loadingTable{
    Text<&Loading::name>("name", "its name", Skip),
};
constexpr VEXMELKTable deltaTable{
    Length<&Loading::front_delta>("front_delta", "differences in front and behind"),
    Length<&Loading::back_delta>("back_delta", "differences in front and behind"),
};
constexpr VEXMELKElement loadingElements{.tag = "loading",
    .below = &baseCategories,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::Other,
    .tables = {loadingTable.rows, deltaTable.rows},
    .meaning = "a loading state",
    .whenMissing = "no loadings"};

constexpr VEXMELKTable seatTable{
    Text<&Seat::name>("name", "its name"),
    Flag<&Seat::IsFront>("IsFront", "a front seat"),
    Angle<&Seat::BackAngle>("BackAngle", "back angle"),
    Length<&Seat::HPointTravel>("HPointTravel", "H-point travel"),
    Length<&Seat::RefPointX>("RefPointX", "reference point of the seat"),
    Length<&Seat::RefPointY>("RefPointY", "reference point of the seat"),
    Length<&Seat::RefPointZ>("RefPointZ", "reference point of the seat"),
    Length<&Seat::HeelRPX>("HeelRPX", "heel reference point"),
    Length<&Seat::HeelRPY>("HeelRPY", "heel reference point"),
    Length<&Seat::HeelRPZ>("HeelRPZ", "heel reference point"),
    Length<&Seat::PedalRPX>("PedalRPX", "pedal reference point"),
    Length<&Seat::PedalRPY>("PedalRPY", "pedal reference point"),
    Length<&Seat::PedalRPZ>("PedalRPZ", "pedal reference point"),
    Length<&Seat::SteerRPX>("SteerRPX", "steering reference point"),
    Length<&Seat::SteerRPY>("SteerRPY", "steering reference point"),
    Length<&Seat::SteerRPZ>("SteerRPZ", "steering reference point"),
};
constexpr VEXMELKElement seatElements{.tag = "seat",
    .below = &baseCategories,
    .place = VEXMELKPlace::AnyDepth,
    .choice = VEXMELKChoice::Each,
    .fallBack = VEXMELKFallBack::Other,
    .tables = {seatTable.rows},
    .meaning = "a seat",
    .whenMissing = "those of `default`"};

constexpr VEXMELKTable wheelTable{
    Length<&Wheels::CenterPointX>("CenterPointX", "centre of the wheel"),
    Length<&Wheels::CenterPointY>("CenterPointY", "centre of the wheel"),
    Length<&Wheels::CenterPointZ>("CenterPointZ", "centre of the wheel"),
    Length<&Wheels::StaticRadius>("StaticRadius", "of the wheel", NotNegative),
    Length<&Wheels::Diameter>("Diameter", "of the wheel", NotNegative),
    Length<&Wheels::Width>("Width", "of the wheel", NotNegative),
    Angle<&Wheels::Sturz>("Sturz", "camber"),
    Angle<&Wheels::Spur>("Spur", "toe"),
};
constexpr VEXMELKElement wheelsElement{.tag = "wheels",
    .below = &baseCategories,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::Other,
    .meaning = "the wheels; the first counts",
    .whenMissing = "those of `default`"};
constexpr VEXMELKElement wheelElement{.tag = "*",
    .below = &wheelsElement,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::Other,
    .tables = {wheelTable.rows},
    .meaning = "a wheel; its tag is the wheel's name, and the first of the tag counts",
    .whenMissing = "that of `default`"};

constexpr const VEXMELKElement* elements[] = {
    &baseCategories, &loadingElements, &seatElements, &wheelsElement, &wheelElement};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<Loading> = VEXMELKFieldList<Loading>(
    loadingTable, deltaTable, VEXMELKComputed<&Loading::spare1>(), VEXMELKComputed<&Loading::spare2>());
template <> constexpr auto VEXMELKFieldsOf<Seat> = VEXMELKFieldList<Seat>(seatTable);
template <> constexpr auto VEXMELKFieldsOf<Wheels> = VEXMELKFieldList<Wheels>(wheelTable);

static constexpr VEXMELKParameter baseCategory{
    .name = "category", .role = VEXMELKRole::Key, .element = &baseCategories};
static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKBaseDataConfig::GetLoadingDataForBaseDataCategory>(
        "GetLoadingDataForBaseDataCategory", baseCategory, Output("loadings")),
    VEXMELKDescribe<&VEXMELKBaseDataConfig::GetOverallDataForCategory>(
        "GetOverallDataForCategory", baseCategory, overallTable),
    VEXMELKDescribe<&VEXMELKBaseDataConfig::GetSeatDataForBaseDataCategory>(
        "GetSeatDataForBaseDataCategory", baseCategory, Output("seats")),
    VEXMELKDescribe<&VEXMELKBaseDataConfig::GetWheelsDataForBaseDataCategory>("GetWheelsDataForBaseDataCategory",
        baseCategory, VEXMELKParameter{.name = "wheel", .role = VEXMELKRole::Tag, .element = &wheelElement},
        Output("data")),
    VEXMELKDescribe<&VEXMELKBaseDataConfig::GetBaseDataCategories>("GetBaseDataCategories", Output("categories")),
};

constinit const VEXMELKDescription VEXMELKBaseDataConfig::description{
    .name = "BaseData",
    .file = "OVA\\BaseData.xml",
    .meaning = "Vehicle base data: loading states, overall dimensions, seats, wheels.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKConfig::description,
    .root = "basedata",
};

VEXMELKBaseDataConfig::VEXMELKBaseDataConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKBaseDataConfig::GetLoadingDataForBaseDataCategory(
    const CATUnicodeString& category, VEXArray<VEXMELKLoadingDefinition>& loadings)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetRootChildElement(baseCategories, category);
            const CATIDOMElement_var defaultElement = GetRootChildElement(baseCategories, defaultCategory);
            loadings.reset(); // not before: the category may be a text of the array
            const auto append = [&](const CATIDOMElement_var& loadingElement)
            {
                Loading loading;
                if (!ReadFields(Decimals(), loadingElement, loadingTable, loading))
                    return;
                if (!loading.name.IsEmpty())
                    ReadFields(Decimals(), loadingElement, deltaTable, loading);
                loadings.add(loading);
            };
            // Both always, also when "default" itself is asked for: its loadings then come twice.
            ForEach(element, loadingElements, loadings, append);
            ForEach(defaultElement, loadingElements, loadings, append);
            return 0; // always
        });
}

unsigned char VEXMELKBaseDataConfig::GetOverallDataForCategory(const CATUnicodeString& category,
    CATUnicodeString& carWidth, CATUnicodeString& forwardDistance, CATUnicodeString& backwardDistance)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetRootChildElement(baseCategories, category);
            if (element == NULL_var)
                return 0;
            ReadFields(Decimals(), element, overallTable, carWidth, forwardDistance, backwardDistance);
            return 1;
        });
}

unsigned char VEXMELKBaseDataConfig::GetSeatDataForBaseDataCategory(
    const CATUnicodeString& category, VEXArray<VEXMELKSeatDefinition>& seats)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetRootChildElement(baseCategories, category);
            const bool isDefault = category == defaultCategory;
            seats.reset(); // not before: the category may be a text of the array
            ForEach(element, seatElements, seats,
                [&](const CATIDOMElement_var& seatElement)
                {
                    Seat seat;
                    ReadFields(Decimals(), seatElement, seatTable, seat);
                    seats.add(seat);
                });
            if (seats.size() == 0 && !isDefault)
                GetSeatDataForBaseDataCategory(defaultCategory, seats);
            return 0; // always
        });
}

unsigned char VEXMELKBaseDataConfig::GetWheelsDataForBaseDataCategory(
    const CATUnicodeString& category, const CATUnicodeString& wheel, VEXMELKWheelsDefinition& data)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var wheels = Find(GetRootChildElement(baseCategories, category), wheelsElement);
            const CATIDOMElement_var element = FindTagged(wheels, wheelElement, wheel);
            if (element != NULL_var)
                ReadFields(Decimals(), element, wheelTable, data);
            else if (category != defaultCategory)
                return GetWheelsDataForBaseDataCategory(defaultCategory, wheel, data);
            return element != NULL_var;
        });
}

void VEXMELKBaseDataConfig::GetBaseDataCategories(CATListValCATUnicodeString& categories)
{
    Answer(*this, [&] { GetRootChildNames(baseCategories, categories); });
}
