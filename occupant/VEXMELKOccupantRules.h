// Rules that several readers of this folder share.
#ifndef VEXMELKOccupantRules_H
#define VEXMELKOccupantRules_H

#include "VEXMELKReader.h"

// Chooses a row of a table by H-point travel. Rows and travel are in millimetres; the rows are shown in document order.
// The rules differ because each standard was written for its own:
//
//     rule             rows are written  the row chosen                     else           below the last row
//     Coeficients1997  decreasing        first below the travel - 1e-10     the last row   fails (less than it - 1e-10)
//     Radii1997        decreasing        first below the travel             the last row   fails (less than it - 1e-10)
//     Radii2002        decreasing        first not above the travel         the last row   fails (less than it)
//     HeadContour      increasing        last below the travel              the first row  never fails
class VEXMELKTravelChoice
{
public:
    VEXMELKTravelChoice(VEXMELKChoice rule, double travel) : m_Rule(rule), m_Travel(travel) {}

    // Shows the next row. True when it is, as far as has been shown, the row chosen.
    bool Show(double row);
    // Whether the travel lies below all rows, in a rule that fails then.
    bool Fails() const;

private:
    bool Qualifies(double row) const;

    VEXMELKChoice m_Rule;
    double m_Travel;
    double m_LastRow = 0.0;
    bool m_HasRows = false;
    bool m_HasQualified = false;
};

struct VEXMELKChosenRow
{
    bool fails = false;
    bool found = false;
    VEXMELKNodeText travelText; // the row's travel as it is written
    double travel = 0.0;        // in millimetres
};

// Chooses among the children that are described, by the rule of their description and by their key; children without it
// are no rows.
VEXMELKChosenRow ChooseRow(const CATIDOMElement_var& parent, const VEXMELKElement& described, double travel);

// The travel of a row, and the argument that chooses by it.
inline constexpr VEXMELKRow rowTravel = Millimetres("h_point_travel", "the row's travel", Skip);
constexpr VEXMELKParameter Travel(const VEXMELKElement& rows)
{
    return {.name = "hPointTravel", .role = VEXMELKRole::Travel, .unit = "mm", .element = &rows};
}

// The angles of "tip_angles", which is taken whole from the category, else from "default".
inline constexpr VEXMELKOutputTable<double, double> tipAngleTable{
    Radians("side_view_angle", "angles", Fills{"sideViewAngle"}),
    Radians("plan_view_angle", "angles", Fills{"planViewAngle"}),
};
constexpr VEXMELKElement TipAnglesBelow(const VEXMELKElement& category)
{
    return {.tag = "tip_angles",
        .below = &category,
        .place = VEXMELKPlace::AnyDepth,
        .fallBack = VEXMELKFallBack::WholeElement,
        .tables = {tipAngleTable.rows},
        .meaning = "of the category, else of `default`; the first counts",
        .whenMissing = "fails"};
}
// False, with the outputs untouched, when neither category has any.
bool ReadTipAngles(VEXMELKDecimals decimals, const CATIDOMElement_var& category,
    const CATIDOMElement_var& defaultCategory, const VEXMELKElement& tipAngles, double& sideViewAngle,
    double& planViewAngle);

// The rows "back_angle", found by an angle.
inline constexpr VEXMELKRow backAngleValue = Radians("value", "the angle", Skip);
inline constexpr VEXMELKOutputTable<double, double> backAngleTable{
    Millimetres("horizontal", "the correction"),
    Millimetres("vertical", "the correction"),
};
constexpr VEXMELKElement BackAnglesBelow(const VEXMELKElement& parent)
{
    return {.tag = "back_angle",
        .below = &parent,
        .place = VEXMELKPlace::AnyDepth,
        .choice = VEXMELKChoice::NearestAngle,
        .key = &backAngleValue,
        .tables = {backAngleTable.rows},
        .meaning = "a [correction](#manikin) for a back angle",
        .whenMissing = "fails"};
}
constexpr VEXMELKParameter BackAngle(const VEXMELKElement& rows)
{
    return {.name = "backAngle", .role = VEXMELKRole::BackAngle, .unit = "rad", .element = &rows};
}
// False, with the outputs untouched, when there is none.
bool ReadBackAngleCorrection(VEXMELKDecimals decimals, const CATIDOMElement_var& parent,
    const VEXMELKElement& backAngles, double backAngle, double& horizontal, double& vertical);

// Children of the standard with a "length"; the first that has one counts.
inline constexpr VEXMELKRow backLineLength = Millimetres("length", "the length", Else(635.0), NotNegative);
inline constexpr VEXMELKRow verticalLineLength = Millimetres("length", "the length", Else(600.0), NotNegative);
constexpr VEXMELKElement LineBelowStandard(const char* tag, const VEXMELKRow& length)
{
    return {.tag = tag,
        .below = &VEXMELKCommon::standards,
        .key = &length,
        .meaning = "auxiliary line; the first with a `length` counts"};
}
inline constexpr VEXMELKElement backLine = LineBelowStandard("back_line", backLineLength);
inline constexpr VEXMELKElement verticalLine = LineBelowStandard("vertical_line", verticalLineLength);
// In millimetres.
double LineLength(const CATIDOMElement_var& standard, const VEXMELKElement& line);

#endif
