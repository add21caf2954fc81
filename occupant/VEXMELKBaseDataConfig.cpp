#include "VEXMELKBaseDataConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

void ReadDeltas(const CATIDOMElement_var& element, VEXMELKLoadingDefinition& loading)
{
    ReadFields(element, NULL_var,
        {
            {"front_delta", "mm", loading.front_delta},
            {"back_delta", "mm", loading.back_delta},
        });
}

VEXMELKSeatDefinition SeatOf(const CATIDOMElement_var& element)
{
    VEXMELKSeatDefinition seat;
    ReadFields(element, NULL_var,
        {
            {"name", "", seat.name},
            {"IsFront", "", seat.IsFront, AsFlag, false},
            {"BackAngle", "deg", seat.BackAngle},
            {"HPointTravel", "mm", seat.HPointTravel},
            {"RefPointX", "mm", seat.RefPointX},
            {"RefPointY", "mm", seat.RefPointY},
            {"RefPointZ", "mm", seat.RefPointZ},
            {"HeelRPX", "mm", seat.HeelRPX},
            {"HeelRPY", "mm", seat.HeelRPY},
            {"HeelRPZ", "mm", seat.HeelRPZ},
            {"PedalRPX", "mm", seat.PedalRPX},
            {"PedalRPY", "mm", seat.PedalRPY},
            {"PedalRPZ", "mm", seat.PedalRPZ},
            {"SteerRPX", "mm", seat.SteerRPX},
            {"SteerRPY", "mm", seat.SteerRPY},
            {"SteerRPZ", "mm", seat.SteerRPZ},
        });
    return seat;
}

void ReadWheel(const CATIDOMElement_var& element, VEXMELKWheelsDefinition& wheel)
{
    ReadFields(element, NULL_var,
        {
            {"CenterPointX", "mm", wheel.CenterPointX},
            {"CenterPointY", "mm", wheel.CenterPointY},
            {"CenterPointZ", "mm", wheel.CenterPointZ},
            {"StaticRadius", "mm", wheel.StaticRadius},
            {"Diameter", "mm", wheel.Diameter},
            {"Width", "mm", wheel.Width},
            {"Sturz", "deg", wheel.Sturz},
            {"Spur", "deg", wheel.Spur},
        });
}

} // namespace

VEXMELKBaseDataConfig::VEXMELKBaseDataConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "BaseData.xml")
{
}

unsigned char VEXMELKBaseDataConfig::GetLoadingDataForBaseDataCategory(
    const CATUnicodeString& category, VEXArray<VEXMELKLoadingDefinition>& loadings)
{
    return Answer(
        [&]() -> unsigned char
        {
            loadings.reset();
            const auto append = [&](const CATIDOMElement_var& element)
            {
                VEXMELKLoadingDefinition loading;
                if (!ReadFields(element, NULL_var, {{"name", "", loading.name}}))
                    return;
                if (!loading.name.IsEmpty())
                    ReadDeltas(element, loading);
                loadings.add(loading);
            };
            // Both always, also when "default" itself is asked for: its loadings then come twice.
            ForEachElement(GetRootChildElement("category", category), "loading", loadings, append);
            ForEachElement(GetRootChildElement("category", defaultCategory), "loading", loadings, append);
            return 0; // always
        });
}

unsigned char VEXMELKBaseDataConfig::GetOverallDataForCategory(const CATUnicodeString& category,
    CATUnicodeString& carWidth, CATUnicodeString& forwardDistance, CATUnicodeString& backwardDistance)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetRootChildElement("category", category);
            if (element == NULL_var)
                return 0;
            ReadFields(element, NULL_var,
                {
                    {"car_width", "mm", carWidth},
                    {"forward_distance", "mm", forwardDistance},
                    {"backward_distance", "mm", backwardDistance},
                });
            return 1;
        });
}

unsigned char VEXMELKBaseDataConfig::GetSeatDataForBaseDataCategory(
    const CATUnicodeString& category, VEXArray<VEXMELKSeatDefinition>& seats)
{
    return Answer(
        [&]() -> unsigned char
        {
            seats.reset();
            ForEachElement(GetRootChildElement("category", category), "seat", seats,
                [&](const CATIDOMElement_var& element) { seats.add(SeatOf(element)); });
            if (seats.size() == 0 && category != defaultCategory)
                GetSeatDataForBaseDataCategory(defaultCategory, seats);
            return 0; // always
        });
}

unsigned char VEXMELKBaseDataConfig::GetWheelsDataForBaseDataCategory(
    const CATUnicodeString& category, const CATUnicodeString& wheel, VEXMELKWheelsDefinition& data)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var wheels = FirstElement(GetRootChildElement("category", category), "wheels");
            const CATIDOMElement_var element = FirstElement(wheels, wheel);
            if (element != NULL_var)
                ReadWheel(element, data);
            else if (category != defaultCategory)
                return GetWheelsDataForBaseDataCategory(defaultCategory, wheel, data);
            return element != NULL_var;
        });
}

void VEXMELKBaseDataConfig::GetBaseDataCategories(CATListValCATUnicodeString& categories)
{
    Answer([&] { GetRootChildNames("category", categories); });
}
