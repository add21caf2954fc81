// VEXMELKEyeEllipsesConfig: the numbers from which the driver's eye ellipses are built, from "Manikin\EyeEllipses.xml".
//
//     <standard name="...">
//       <coeficients2002>                    or <coeficients1997>, which tells the standard's generation
//         <cutOff value="95"/>
//         <coef_L1 value="0.664"/> ...        1997: <coef_L40X h_point_travel="133mm" value="-0.01"/> ...
//         <radii h_point_travel="240mm" radiusX_95="103mm" radiusX_99="143mm" .../>
//       </coeficients2002>
//       <back_angle value="25deg" horizontal="0mm" vertical="0mm"/>
//       <category name="default" Y_Displacement_W7="..." Y_Displacement_W3="...">
//         <hpoint value="133mm" xmean="..." zmean="..." ymean_left="..." ymean_right="..." cutoff95="..."/>
//         <side_view cutoff90="77mm" .../><plan_view .../>
//         <tip_angles side_view_angle="-6.4deg" plan_view_angle="5.4deg"/>
//       </category>
//     </standard>
//
// Travels come in as millimetres, cut-offs as the percentiles 90, 95 and 99, back angles as radians. Lengths are handed
// out in millimetres, angles in radians, coefficients as they stand. Results of type unsigned char are 1 or 0; an
// output that a query does not reach keeps the caller's value.
#ifndef VEXMELKEyeEllipsesConfig_H
#define VEXMELKEyeEllipsesConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"

// One row "hpoint": texts of lengths, with their unit; a missing one is empty.
struct VEXMELKEyeEllipsesHPointData
{
    CATUnicodeString value; // the H-point travel
    CATUnicodeString xmean;
    CATUnicodeString zmean;
    CATUnicodeString ymean_left;
    CATUnicodeString ymean_right;
    CATUnicodeString cutoff90;
    CATUnicodeString cutoff95;
    CATUnicodeString cutoff99;
};

// Three numbers without a settled meaning.
struct VEXMELKEyeEllipsesNumbers
{
    double First = 0.0;
    double Second = 0.0;
    double Third = 0.0;
};

class ExportedByVEXMELKConfiguration VEXMELKEyeEllipsesConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKEyeEllipsesConfig(const CATUnicodeString& configurationDirectory);

    // Whether the standard holds an element of that name, at any depth.
    unsigned char IsStandard(const CATUnicodeString& standard, const CATUnicodeString& elementName);
    unsigned char IsStandard2002(const CATUnicodeString& standard);
    unsigned char IsStandard1997(const CATUnicodeString& standard);

    // Replaces the list by the cut-off percentiles of the standard's coefficients (2002 before 1997); a text that is no
    // integer gives 0. A standard of neither generation has 90, 95, 99. False when the coefficients name none.
    unsigned char GetCutOffList(const CATUnicodeString& standard, CATRawCollint& cutoffs);

    // The regression coefficients of 1997 for an H-point travel. Each kind has rows of its own; its value is that of
    // the first row below the travel, or of the last row. False at once, with this and the later outputs untouched,
    // for a travel below the last row of a kind; also false when a kind has no row, but the other kinds are read. A
    // row without a value leaves its output.
    unsigned char GetCoeficients1997(const CATUnicodeString& standard, double hPointTravel, double& L40X,
        double& L40XP2, double& L40Z, double& L40ZP2, double& x, double& y, double& z);

    // The coefficients of 2002. A missing one leaves its output. False when the standard is not of 2002.
    unsigned char GetCoeficients2002(const CATUnicodeString& standard, double& L1, double& L6, double& H30, double& T,
        double& x, double& y, double& z);

    // The radii of the row for an H-point travel: the first row below it (1997), the first not above it (2002), or the
    // last row. False, with the outputs untouched, for a travel below the last row and for a standard without rows.
    // The radii of 99 are read for the cut-off 99, those of 95 for any other; a missing one is -1. True only for the
    // cut-offs 95 and 99.
    unsigned char GetRadii1997(const CATUnicodeString& standard, double hPointTravel, int cutoff, double& radiusX,
        double& radiusY, double& radiusZ);
    unsigned char GetRadii2002(const CATUnicodeString& standard, double hPointTravel, int cutoff, double& radiusX,
        double& radiusY, double& radiusZ);

    // The centres of the ellipses and the length of the cut-off axis, of the row "hpoint" nearest to the travel; the
    // first of several. For a cut-off that is not 90, 95 or 99 the length repeats zmean. A value that is missing or no
    // length is 0. False, with the outputs untouched, without rows.
    unsigned char GetHPointTravelData(const CATUnicodeString& standard, const CATUnicodeString& category,
        double hPointTravel, int cutoff, double& xmean, double& ymeanLeft, double& ymeanRight, double& zmean,
        double& cutoffLength);

    // The minor axes; 0 for a cut-off that is not 90, 95 or 99, or has no length. Always true.
    unsigned char GetSideViewMinorAxis(
        const CATUnicodeString& standard, const CATUnicodeString& category, int cutoff, double& axis);
    unsigned char GetPlanViewMinorAxis(
        const CATUnicodeString& standard, const CATUnicodeString& category, int cutoff, double& axis);

    // The tip angles of the category, else of "default"; a missing angle is 0. False, with the outputs untouched, when
    // neither has any.
    unsigned char GetTipAngles(const CATUnicodeString& standard, const CATUnicodeString& category,
        double& sideViewAngle, double& planViewAngle);

    // The correction of the "back_angle" nearest to the angle; a missing length is 0. False, with the outputs
    // untouched, when there is none.
    unsigned char GetBackAngleCorrection(
        const CATUnicodeString& standard, double backAngle, double& horizontal, double& vertical);

    // The lateral displacements of the eyes, of the category or of "default". A missing W7 leaves both outputs, a
    // missing W3 its own. Always true.
    unsigned char GetUSADisplacement(const CATUnicodeString& standard, const CATUnicodeString& category,
        double& displacementW7, double& displacementW3);

private:
    // Minor axes: texts with unit.
    struct MinorAxes
    {
        CATUnicodeString cutoff90;
        CATUnicodeString cutoff95;
        CATUnicodeString cutoff99;
    };

    unsigned char Init(const CATUnicodeString& standard, const CATUnicodeString& category);
    CATIDOMElement_var GenerationElement(const CATUnicodeString& standard, const VEXMELKElement& generation);
    static double AxisLength(const MinorAxes& axes, int cutoff);

    // The pair of the last query by category, and its data.
    CATUnicodeString m_Standard;
    CATUnicodeString m_Category;
    VEXArray<VEXMELKEyeEllipsesHPointData> m_HPointData;
    VEXArray<VEXMELKEyeEllipsesNumbers> m_Numbers; // never filled
    MinorAxes m_SideView;
    MinorAxes m_PlanView;
};

#endif
