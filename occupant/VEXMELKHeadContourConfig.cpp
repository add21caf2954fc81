#include "VEXMELKHeadContourConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"
#include "VEXMELKOccupantRules.h"

namespace {

constexpr const char* generalSeat = "general";
constexpr auto rowRule = VEXMELKTravelChoice::HeadContour;

} // namespace

VEXMELKHeadContourConfig::VEXMELKHeadContourConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("Manikin") + "\\" + "HeadContour.xml")
{
}

unsigned char VEXMELKHeadContourConfig::Init(const CATUnicodeString& standard, const CATUnicodeString& category)
{
    if (standard == m_Standard && category == m_Category)
        return 1;
    m_Standard = standard;
    m_Category = category;
    // Only for the messages that a first look-up gives.
    GetCategoryElement(standard, category);
    return 1;
}

unsigned char VEXMELKHeadContourConfig::GetMiddleStripeWitdh(const CATUnicodeString& standard, double& width)
{
    return Answer(
        [&]() -> unsigned char
        {
            const std::optional<VEXMELKNodeText> text =
                FirstChildAttribute(GetStandardElement(standard), "middle_stripe", "width");
            if (!text)
                return 0;
            width = MillimetresFromText(CATUnicodeString(*text));
            return 1;
        });
}

unsigned char VEXMELKHeadContourConfig::GetEllipsesStandard(
    const CATUnicodeString& standard, CATUnicodeString& ellipsesStandard)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element == NULL_var)
                return 0;
            ellipsesStandard = "";
            AssignAttribute(element, "eye_ellipses_ref_standard", ellipsesStandard);
            return !ellipsesStandard.IsEmpty();
        });
}

void VEXMELKHeadContourConfig::GetSeatName(unsigned char isFront, unsigned char isDriver, CATUnicodeString& name)
{
    if (isFront)
        name = isDriver ? "driver" : "front";
    else
        name = "back";
}

unsigned char VEXMELKHeadContourConfig::GetSeatElement(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& seatName, CATIDOMElement_var& seat)
{
    seat = FindChild(GetCategoryElement(standard, category), "seat", "position", seatName);
    return seat != NULL_var;
}

VEXMELKHeadContourConfig::Seats VEXMELKHeadContourConfig::FindSeats(
    const CATUnicodeString& standard, const CATUnicodeString& category, const CATUnicodeString& seatName)
{
    Init(standard, category);
    Seats seats;
    GetSeatElement(standard, category, seatName, seats.seat);
    GetSeatElement(standard, category, generalSeat, seats.general);
    return seats;
}

unsigned char VEXMELKHeadContourConfig::GetRadii(const CATUnicodeString& standard, const CATUnicodeString& category,
    double hPointTravel, int cutoff, double& xRadius, double& yRadius, double& zRadius)
{
    return Answer(
        [&]() -> unsigned char
        {
            Init(standard, category);
            CATUnicodeString cutoffText;
            cutoffText.BuildFromNum(cutoff);
            const CATIDOMElement_var radii = FirstElement(GetCategoryElement(standard, category), "radii");
            const CATIDOMElement_var rows = FindChild(radii, "cutoff", "value", cutoffText);
            const VEXMELKChosenRow chosen = ChooseRow(rowRule, rows, "h_point_travel", "value", hPointTravel);
            if (!chosen.found)
                return 0;
            const CATIDOMElement_var row = NearestLengthBelow(rows, "h_point_travel", "value", chosen.travel);
            if (row == NULL_var)
                return 0;
            return ReadFields(row, NULL_var,
                {
                    {"x_radius", "mm", xRadius, InMillimetres, Keep},
                    {"y_radius", "mm", yRadius, InMillimetres, Keep},
                    {"z_radius", "mm", zRadius, InMillimetres, Keep},
                });
        });
}

int VEXMELKHeadContourConfig::ReadCutoffs(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& cutoffs)
{
    const CATIDOMElement_var radii = FirstElement(GetCategoryElement(standard, category), "radii");
    if (radii == NULL_var)
        return 0;
    ChildAttributeValues(radii, "cutoff", "value", cutoffs);
    return cutoffs.Size();
}

int VEXMELKHeadContourConfig::GetCutoffList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& cutoffs)
{
    return Answer(
        [&]
        {
            Init(standard, category);
            if (ReadCutoffs(standard, category, cutoffs) == 0)
                return 0;
            cutoffs.RemoveDuplicates();
            return cutoffs.Size();
        });
}

int VEXMELKHeadContourConfig::GetCurrentCutoffList(CATListValCATUnicodeString& cutoffs)
{
    return Answer([&] { return ReadCutoffs(m_Standard, m_Category, cutoffs); });
}

// The row is found again by the text of its travel.
CATIDOMElement_var VEXMELKHeadContourConfig::CoeficientsRow(
    const Seats& seats, std::string_view tag, double hPointTravel)
{
    VEXMELKChosenRow chosen = ChooseRow(rowRule, seats.seat, tag, "h_point_travel", hPointTravel);
    if (chosen.found)
        return FindChild(seats.seat, tag, "h_point_travel", chosen.travelText);
    chosen = ChooseRow(rowRule, seats.general, tag, "h_point_travel", hPointTravel);
    return chosen.found ? FindChild(seats.general, tag, "h_point_travel", chosen.travelText) : CATIDOMElement_var();
}

unsigned char VEXMELKHeadContourConfig::GetCoeficients(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& seatName, double hPointTravel, double& ax, double& bx,
    double& cx, double& az, double& bz, double& cz)
{
    return Answer(
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            const CATIDOMElement_var row = CoeficientsRow(seats, "coeficients", hPointTravel);
            if (row == NULL_var)
                return 0;
            return ReadFields(row, NULL_var,
                {
                    {"ax", "", ax, AsNumber, Keep},
                    {"bx", "", bx, AsNumber, Keep},
                    {"cx", "", cx, AsNumber, Keep},
                    {"az", "", az, AsNumber, Keep},
                    {"bz", "", bz, AsNumber, Keep},
                    {"cz", "", cz, AsNumber, Keep},
                });
        });
}

unsigned char VEXMELKHeadContourConfig::Get2002NonDriverCoeficients(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& seatName, double hPointTravel, double& ax, double& bx,
    double& cx, double& dx, double& az, double& bz)
{
    return Answer(
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            const CATIDOMElement_var row = CoeficientsRow(seats, "coeficients2002nonDriver", hPointTravel);
            if (row == NULL_var)
                return 0;
            // In metres, unlike all other lengths of this class: on purpose.
            return ReadFields(row, NULL_var,
                {
                    {"ax", "mm", ax, InMetres, Keep},
                    {"bx", "mm", bx, InMetres, Keep},
                    {"cx", "mm", cx, InMetres, Keep},
                    {"dx", "mm", dx, InMetres, Keep},
                    {"az", "mm", az, InMetres, Keep},
                    {"bz", "mm", bz, InMetres, Keep},
                });
        });
}

unsigned char VEXMELKHeadContourConfig::GetDeltas(const CATUnicodeString& standard, const CATUnicodeString& category,
    const CATUnicodeString& seatName, double hPointTravel, double& deltaX, double& deltaY, double& deltaZ)
{
    return Answer(
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            VEXMELKChosenRow chosen = ChooseRow(rowRule, seats.seat, "deltas", "h_point_travel", hPointTravel);
            if (!chosen.found)
                chosen = ChooseRow(rowRule, seats.general, "deltas", "h_point_travel", hPointTravel);
            if (!chosen.found)
                return 0;
            // Looked for in the seat first, wherever the travel came from.
            CATIDOMElement_var row = NearestLengthBelow(seats.seat, "deltas", "h_point_travel", chosen.travel);
            if (row == NULL_var)
                row = NearestLengthBelow(seats.general, "deltas", "h_point_travel", chosen.travel);
            if (row == NULL_var)
                return 0;
            return ReadFields(row, NULL_var,
                {
                    {"delta_x", "mm", deltaX, InMillimetres, Keep},
                    {"delta_y", "mm", deltaY, InMillimetres, Keep},
                    {"delta_z", "mm", deltaZ, InMillimetres, Keep},
                });
        });
}

unsigned char VEXMELKHeadContourConfig::GetHeadClearance(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& seatName, double& angle, double& reqDiagonal,
    double& reqVertical)
{
    return Answer(
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            CATIDOMElement_var clearance = FirstElement(seats.seat, "head_clearance");
            if (clearance == NULL_var)
                clearance = FirstElement(seats.general, "head_clearance");
            if (clearance == NULL_var)
                return 0;
            ReadFields(clearance, NULL_var,
                {
                    {"angle", "deg", angle, InRadians, Keep},
                    {"req_diagonal", "mm", reqDiagonal, InMetres, Keep},
                    {"req_vertical", "mm", reqVertical, InMetres, Keep},
                });
            return 1;
        });
}

unsigned char VEXMELKHeadContourConfig::GetTipAngles(
    const CATUnicodeString& standard, const CATUnicodeString& category, double& sideViewAngle, double& planViewAngle)
{
    return Answer(
        [&]() -> unsigned char
        {
            Init(standard, category);
            return ReadTipAngles(GetCategoryElement(standard, category), GetCategoryElement(standard, defaultCategory),
                sideViewAngle, planViewAngle);
        });
}

unsigned char VEXMELKHeadContourConfig::IsStandard2002Used(
    const CATUnicodeString& standard, const CATUnicodeString& category)
{
    return Answer(
        [&]() -> unsigned char
        {
            Init(standard, category);
            const StandardData data = FindStandardData(standard, category);
            return FirstElement(data.defaultCategory, "coeficients2002nonDriver") != NULL_var ||
                   FirstElement(data.category, "coeficients2002nonDriver") != NULL_var;
        });
}
