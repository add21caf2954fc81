// Rules that several readers of this folder share.
#ifndef VEXMELKOccupantRules_H
#define VEXMELKOccupantRules_H

#include "VEXMELKElements.h"

// Chooses a row of a table by H-point travel. Rows and travel are in millimetres; the rows are shown in document order.
// The rules differ on purpose:
//
//     rule             rows are meant    the row chosen                     else           below the last row
//     Coeficients1997  decreasing        first below the travel - 1e-10     the last row   fails (less than it - 1e-10)
//     Radii1997        decreasing        first below the travel             the last row   fails (less than it - 1e-10)
//     Radii2002        decreasing        first not above the travel         the last row   fails (less than it)
//     HeadContour      increasing        last below the travel              the first row  never fails
class VEXMELKTravelChoice
{
public:
    enum Rule
    {
        Coeficients1997,
        Radii1997,
        Radii2002,
        HeadContour
    };
    VEXMELKTravelChoice(Rule rule, double travel) : m_Rule(rule), m_Travel(travel) {}

    // Shows the next row. True when it is, as far as has been shown, the row chosen.
    bool Show(double row);
    // Whether the travel lies below all rows, in a rule that fails then.
    bool Fails() const;

private:
    bool Qualifies(double row) const;

    Rule m_Rule;
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

// Chooses among the children with the tag by their attribute; children without it are no rows.
VEXMELKChosenRow ChooseRow(VEXMELKTravelChoice::Rule rule, const CATIDOMElement_var& parent, std::string_view tag,
    std::string_view attribute, double travel);

// The angles (radians) of the first "tip_angles" below the category, else below "default"; either may be null. A
// missing angle is 0. False, with the outputs untouched, when there is none.
bool ReadTipAngles(const CATIDOMElement_var& category, const CATIDOMElement_var& defaultCategory, double& sideViewAngle,
    double& planViewAngle);

// The correction (millimetres) of the "back_angle" below the parent that is nearest to the angle (radians). A missing
// length is 0. False, with the outputs untouched, when there is none.
bool ReadBackAngleCorrection(const CATIDOMElement_var& parent, double backAngle, double& horizontal, double& vertical);

// The lengths "dx", "dy", "dz" of an element, in millimetres; a missing one is 0.
void ReadOffsets(const CATIDOMElement_var& element, double& dx, double& dy, double& dz);

// The first "length" (millimetres) of the children with the tag, or the length given when there is none.
double LineLength(const CATIDOMElement_var& standard, std::string_view tag, double whenNone);
constexpr double usualBackLineLength = 635.0;
constexpr double usualVerticalLineLength = 600.0;

#endif
