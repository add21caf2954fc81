// The data of the occupants' head contours. What a seat lacks is taken from the seat "general". Each query that names a
// standard and a category sets the pair that GetCurrentCutoffList speaks of.
#include "VEXMELKHeadContourConfig.h"

#include "VEXMELKOccupantRules.h"

namespace {

constexpr const char* generalSeat = "general";

constexpr VEXMELKOutputTable<CATUnicodeString> ellipsesTable{
    Name("eye_ellipses_ref_standard", "standard of EyeEllipses.xml",
        "the standard of `EyeEllipses.xml` that belongs to it", AsWritten(), Fills{"ellipsesStandard"})};
constexpr VEXMELKElement standardElements = VEXMELKCommon::StandardWith(ellipsesTable.rows);

constexpr VEXMELKRow stripeWidth = Millimetres("width", "its width", Skip, NotNegative);
constexpr VEXMELKElement stripeElement{.tag = "middle_stripe",
    .below = &VEXMELKCommon::standards,
    .key = &stripeWidth,
    .meaning = "the first with a `width` counts",
    .whenMissing = "fails"};

constexpr VEXMELKElement categoryElements = CategoryWith({}, VEXMELKFallBack::WholeCategory);

constexpr VEXMELKElement radiiElement{.tag = "radii",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .meaning = "the first counts",
    .whenMissing = "fails"};
constexpr VEXMELKRow cutOffValue = Text("value", "the percentile, exactly as a number: `95`", AsWritten(), Skip, Share);
constexpr VEXMELKElement cutOffElements{.tag = "cutoff",
    .below = &radiiElement,
    .choice = VEXMELKChoice::ByKey,
    .key = &cutOffValue,
    .meaning = "the rows of one cut-off",
    .whenMissing = "fails"};
constexpr VEXMELKRow radiiTravel = Millimetres("value", "the row's travel", Skip);
constexpr VEXMELKOutputTable<double, double, double> radiiTable{
    Millimetres("x_radius", "radii", Fail, Fills{"xRadius"}, NotNegative),
    Millimetres("y_radius", "radii", Fail, Fills{"yRadius"}, NotNegative),
    Millimetres("z_radius", "radii", Fail, Fills{"zRadius"}, NotNegative),
};
constexpr VEXMELKElement radiiRows{.tag = "h_point_travel",
    .below = &cutOffElements,
    .choice = VEXMELKChoice::HeadContour,
    .key = &radiiTravel,
    .tables = {radiiTable.rows},
    .meaning = "rows, chosen by H-point travel",
    .whenMissing = "fails"};

constexpr VEXMELKWord seatPositions[] = {{"driver"}, {"front"}, {"back"}, {generalSeat}};
constexpr VEXMELKRow seatPosition =
    Word("position", {seatPositions}, "`driver`, `front`, `back` or `general`", AsWritten(), Skip);
constexpr VEXMELKElement seatElements{.tag = "seat",
    .below = &categoryElements,
    .choice = VEXMELKChoice::ByKey,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .key = &seatPosition,
    .meaning = "the data of a seat",
    .whenMissing = "those of the seat `general`"};

constexpr VEXMELKElement RowsOfSeat(const char* tag, VEXMELKRows rows)
{
    return {.tag = tag,
        .below = &seatElements,
        .choice = VEXMELKChoice::HeadContour,
        .fallBack = VEXMELKFallBack::Other,
        .key = &rowTravel,
        .tables = {rows},
        .meaning = "rows, chosen by H-point travel",
        .whenMissing = "those of `general`, else fails"};
}
constexpr VEXMELKOutputTable<double, double, double, double, double, double> coefficientTable{
    Number("ax", "coefficients", Fail),
    Number("bx", "coefficients", Fail),
    Number("cx", "coefficients", Fail),
    Number("az", "coefficients", Fail),
    Number("bz", "coefficients", Fail),
    Number("cz", "coefficients", Fail),
};
constexpr VEXMELKElement coefficientRows = RowsOfSeat("coeficients", coefficientTable.rows);

// In metres, unlike all other lengths of this class: the formula that takes them is in metres.
constexpr VEXMELKOutputTable<double, double, double, double, double, double> nonDriverTable{
    Metres("ax", "lengths", Fail),
    Metres("bx", "lengths", Fail),
    Metres("cx", "lengths", Fail),
    Metres("dx", "lengths", Fail),
    Metres("az", "lengths", Fail),
    Metres("bz", "lengths", Fail),
};
constexpr VEXMELKElement nonDriverRows = RowsOfSeat("coeficients2002nonDriver", nonDriverTable.rows);
// The same tag anywhere below a category tells whether its standard is one of 2002.
constexpr VEXMELKElement anyNonDriver{.tag = nonDriverRows.tag,
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::WholeElement,
    .meaning = "tells that the standard is one of 2002",
    .whenMissing = "it is not"};

constexpr VEXMELKOutputTable<double, double, double> deltaTable{
    Millimetres("delta_x", "offsets of the contour", Fail, Fills{"deltaX"}),
    Millimetres("delta_y", "offsets of the contour", Fail, Fills{"deltaY"}),
    Millimetres("delta_z", "offsets of the contour", Fail, Fills{"deltaZ"}),
};
constexpr VEXMELKElement deltaRows = RowsOfSeat("deltas", deltaTable.rows);

constexpr VEXMELKOutputTable<double, double, double> clearanceTable{
    Radians("angle", "angle", Keep),
    Metres("req_diagonal", "lengths", Keep, Fills{"reqDiagonal"}, NotNegative),
    Metres("req_vertical", "lengths", Keep, Fills{"reqVertical"}, NotNegative),
};
constexpr VEXMELKElement clearanceElement{.tag = "head_clearance",
    .below = &seatElements,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::Other,
    .tables = {clearanceTable.rows},
    .meaning = "the first counts",
    .whenMissing = "that of `general`, else fails"};

constexpr VEXMELKElement tipAngles = TipAnglesBelow(categoryElements);

constexpr const VEXMELKElement* elements[] = {&standardElements, &stripeElement, &categoryElements, &radiiElement,
    &cutOffElements, &radiiRows, &seatElements, &coefficientRows, &nonDriverRows, &anyNonDriver, &deltaRows,
    &clearanceElement, &tipAngles};

constexpr VEXMELKParameter seatNameArgument{.name = "seatName", .role = VEXMELKRole::Key, .element = &seatElements};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetMiddleStripeWitdh>(
        "GetMiddleStripeWitdh", standardArgument, Output("width", "mm")),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetEllipsesStandard>(
        "GetEllipsesStandard", standardArgument, ellipsesTable),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetSeatName>("GetSeatName",
        VEXMELKParameter{.name = "isFront", .role = VEXMELKRole::Switch},
        VEXMELKParameter{.name = "isDriver", .role = VEXMELKRole::Switch}, Output("name")),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetRadii>("GetRadii", standardArgument, categoryArgument,
        Travel(radiiRows),
        VEXMELKParameter{.name = "cutoff", .role = VEXMELKRole::CutOff, .unit = "%", .element = &cutOffElements},
        radiiTable),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetCutoffList>(
        "GetCutoffList", standardArgument, categoryArgument, Output("cutoffs")),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetCurrentCutoffList>("GetCurrentCutoffList", Output("cutoffs")),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetCoeficients>("GetCoeficients", standardArgument, categoryArgument,
        seatNameArgument, Travel(coefficientRows), coefficientTable),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::Get2002NonDriverCoeficients>("Get2002NonDriverCoeficients",
        standardArgument, categoryArgument, seatNameArgument, Travel(nonDriverRows), nonDriverTable),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetDeltas>(
        "GetDeltas", standardArgument, categoryArgument, seatNameArgument, Travel(deltaRows), deltaTable),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetHeadClearance>(
        "GetHeadClearance", standardArgument, categoryArgument, seatNameArgument, clearanceTable),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::GetTipAngles>(
        "GetTipAngles", standardArgument, categoryArgument, tipAngleTable),
    VEXMELKDescribe<&VEXMELKHeadContourConfig::IsStandard2002Used>(
        "IsStandard2002Used", standardArgument, categoryArgument),
};

constinit const VEXMELKDescription VEXMELKHeadContourConfig::description{
    .name = "HeadContour",
    .file = "Manikin\\HeadContour.xml",
    .meaning = "The data from which the occupants' head contours are built.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKHeadContourConfig::VEXMELKHeadContourConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
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
    return Answer(*this,
        [&]() -> unsigned char
        {
            const std::optional<VEXMELKNodeText> text = FirstKey(GetStandardElement(standard), stripeElement);
            if (!text)
                return 0;
            width = MillimetresFromText(*text);
            return 1;
        });
}

unsigned char VEXMELKHeadContourConfig::GetEllipsesStandard(
    const CATUnicodeString& standard, CATUnicodeString& ellipsesStandard)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = GetStandardElement(standard);
            if (element == NULL_var)
                return 0;
            ReadFields(Decimals(), element, ellipsesTable, ellipsesStandard);
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
    seat = FindByKey(GetCategoryElement(standard, category), seatElements, seatName);
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
    return Answer(*this,
        [&]() -> unsigned char
        {
            Init(standard, category);
            CATUnicodeString cutoffText;
            cutoffText.BuildFromNum(cutoff);
            const CATIDOMElement_var radii = Find(GetCategoryElement(standard, category), radiiElement);
            const CATIDOMElement_var rows = FindByKey(radii, cutOffElements, cutoffText);
            const VEXMELKChosenRow chosen = ChooseRow(rows, radiiRows, hPointTravel);
            if (!chosen.found)
                return 0;
            const CATIDOMElement_var row = FindNearest(Decimals(), rows, radiiRows, chosen.travel);
            if (row == NULL_var)
                return 0;
            return ReadFields(Decimals(), row, radiiTable, xRadius, yRadius, zRadius);
        });
}

int VEXMELKHeadContourConfig::ReadCutoffs(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& cutoffs)
{
    const CATIDOMElement_var radii = Find(GetCategoryElement(standard, category), radiiElement);
    if (radii == NULL_var)
        return 0;
    CollectKeys(radii, cutOffElements, cutoffs);
    return cutoffs.Size();
}

int VEXMELKHeadContourConfig::GetCutoffList(
    const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& cutoffs)
{
    return Answer(*this,
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
    return Answer(*this, [&] { return ReadCutoffs(m_Standard, m_Category, cutoffs); });
}

// The row is found again by the text of its travel.
CATIDOMElement_var VEXMELKHeadContourConfig::CoeficientsRow(
    const Seats& seats, const VEXMELKElement& rows, double hPointTravel)
{
    for (const CATIDOMElement_var* seat : {&seats.seat, &seats.general})
    {
        const VEXMELKChosenRow chosen = ChooseRow(*seat, rows, hPointTravel);
        if (chosen.found)
            return FindByKey(*seat, rows, chosen.travelText);
    }
    return NULL_var;
}

unsigned char VEXMELKHeadContourConfig::GetCoeficients(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& seatName, double hPointTravel, double& ax, double& bx,
    double& cx, double& az, double& bz, double& cz)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            const CATIDOMElement_var row = CoeficientsRow(seats, coefficientRows, hPointTravel);
            if (row == NULL_var)
                return 0;
            return ReadFields(Decimals(), row, coefficientTable, ax, bx, cx, az, bz, cz);
        });
}

unsigned char VEXMELKHeadContourConfig::Get2002NonDriverCoeficients(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& seatName, double hPointTravel, double& ax, double& bx,
    double& cx, double& dx, double& az, double& bz)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            const CATIDOMElement_var row = CoeficientsRow(seats, nonDriverRows, hPointTravel);
            if (row == NULL_var)
                return 0;
            return ReadFields(Decimals(), row, nonDriverTable, ax, bx, cx, dx, az, bz);
        });
}

unsigned char VEXMELKHeadContourConfig::GetDeltas(const CATUnicodeString& standard, const CATUnicodeString& category,
    const CATUnicodeString& seatName, double hPointTravel, double& deltaX, double& deltaY, double& deltaZ)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            VEXMELKChosenRow chosen = ChooseRow(seats.seat, deltaRows, hPointTravel);
            if (!chosen.found)
                chosen = ChooseRow(seats.general, deltaRows, hPointTravel);
            if (!chosen.found)
                return 0;
            // Looked for in the seat first, wherever the travel came from.
            CATIDOMElement_var row = FindNearest(Decimals(), seats.seat, deltaRows, chosen.travel);
            if (row == NULL_var)
                row = FindNearest(Decimals(), seats.general, deltaRows, chosen.travel);
            if (row == NULL_var)
                return 0;
            return ReadFields(Decimals(), row, deltaTable, deltaX, deltaY, deltaZ);
        });
}

unsigned char VEXMELKHeadContourConfig::GetHeadClearance(const CATUnicodeString& standard,
    const CATUnicodeString& category, const CATUnicodeString& seatName, double& angle, double& reqDiagonal,
    double& reqVertical)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const Seats seats = FindSeats(standard, category, seatName);
            const CATIDOMElement_var clearance = FindInEither(seats.seat, seats.general, clearanceElement);
            if (clearance == NULL_var)
                return 0;
            ReadFields(Decimals(), clearance, clearanceTable, angle, reqDiagonal, reqVertical);
            return 1;
        });
}

unsigned char VEXMELKHeadContourConfig::GetTipAngles(
    const CATUnicodeString& standard, const CATUnicodeString& category, double& sideViewAngle, double& planViewAngle)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            Init(standard, category);
            return ReadTipAngles(Decimals(), GetCategoryElement(standard, category),
                GetCategoryElement(standard, defaultCategory), tipAngles, sideViewAngle, planViewAngle);
        });
}

unsigned char VEXMELKHeadContourConfig::IsStandard2002Used(
    const CATUnicodeString& standard, const CATUnicodeString& category)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            Init(standard, category);
            const StandardData data = FindStandardData(standard, category);
            return FindInEither(data.defaultCategory, data.category, anyNonDriver) != NULL_var;
        });
}
