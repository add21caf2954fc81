// VEXMELKHeadContourConfig: the data from which the occupants' head contours are built, from
// "Manikin\HeadContour.xml".
//
//     <standard name="..." eye_ellipses_ref_standard="...">
//       <middle_stripe width="100mm"/>
//       <category name="default">
//         <radii><cutoff value="95">
//           <h_point_travel value="133mm" x_radius="210mm" y_radius="145mm" z_radius="135mm"/>
//         </cutoff></radii>
//         <seat position="driver">
//           <coeficients h_point_travel="133mm" ax="..." bx="..." cx="..." az="..." bz="..." cz="..."/>
//           <coeficients2002nonDriver h_point_travel="..." ax="..." bx="..." cx="..." dx="..." az="..." bz="..."/>
//           <deltas h_point_travel="..." delta_x="..." delta_y="..." delta_z="..."/>
//           <head_clearance angle="30deg" req_diagonal="25mm" req_vertical="20mm"/>
//         </seat>
//         <seat position="general">...</seat>
//         <tip_angles side_view_angle="..." plan_view_angle="..."/>
//       </category>
//     </standard>
//
// Seats are "driver", "front" and "back"; what a seat lacks is taken from the seat "general". A category that is
// missing is replaced by "default". Rows are chosen by H-point travel (millimetres): the last row whose travel lies
// below it, or else the first. Lengths are handed out as millimetres unless stated, angles as radians. Results of type
// unsigned char are 1 or 0; an output that a query does not reach keeps the caller's value, and so does the output of
// a missing attribute, which makes the result 0. A text that is no number or quantity reads as 0.
#ifndef VEXMELKHeadContourConfig_H
#define VEXMELKHeadContourConfig_H

#include "VEXMELKCheckConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKHeadContourConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKHeadContourConfig(const CATUnicodeString& configurationDirectory);

    // The width of the standard's first "middle_stripe" that has one.
    unsigned char GetMiddleStripeWitdh(const CATUnicodeString& standard, double& width);

    // The name of the eye-ellipse standard used with this one, as written. False when it is missing or empty; the
    // output is then empty, or untouched for an unknown standard.
    unsigned char GetEllipsesStandard(const CATUnicodeString& standard, CATUnicodeString& ellipsesStandard);

    // "back", or "driver" or "front" for the front seats.
    void GetSeatName(unsigned char isFront, unsigned char isDriver, CATUnicodeString& name);

    // The contour radii of a cut-off percentile.
    unsigned char GetRadii(const CATUnicodeString& standard, const CATUnicodeString& category, double hPointTravel,
        int cutoff, double& xRadius, double& yRadius, double& zRadius);

    // Replaces the list by the cut-off percentiles, each once; returns how many. A category without "radii" leaves the
    // list and gives 0.
    int GetCutoffList(
        const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& cutoffs);
    // The same for the standard and category of the query before this one, with duplicates.
    int GetCurrentCutoffList(CATListValCATUnicodeString& cutoffs);

    // Regression coefficients: plain numbers.
    unsigned char GetCoeficients(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& seatName, double hPointTravel, double& ax, double& bx, double& cx, double& az,
        double& bz, double& cz);
    // Regression coefficients of 2002 for other seats than the driver's: lengths in metres, unlike all other lengths of
    // this class.
    unsigned char Get2002NonDriverCoeficients(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& seatName, double hPointTravel, double& ax, double& bx, double& cx, double& dx,
        double& az, double& bz);

    // The offsets of the contour.
    unsigned char GetDeltas(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& seatName, double hPointTravel, double& deltaX, double& deltaY, double& deltaZ);

    // The head clearance required: an angle, and two lengths in metres. A missing attribute does not change the result.
    unsigned char GetHeadClearance(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& seatName, double& angle, double& reqDiagonal, double& reqVertical);

    // The tip angles of the category, else of "default"; a missing angle is 0.
    unsigned char GetTipAngles(const CATUnicodeString& standard, const CATUnicodeString& category,
        double& sideViewAngle, double& planViewAngle);

    // Whether the category or "default" holds coefficients of 2002 for other seats than the driver's.
    unsigned char IsStandard2002Used(const CATUnicodeString& standard, const CATUnicodeString& category);

private:
    // A seat and the seat "general"; either may be null.
    struct Seats
    {
        CATIDOMElement_var seat;
        CATIDOMElement_var general;
    };

    unsigned char Init(const CATUnicodeString& standard, const CATUnicodeString& category);
    unsigned char GetSeatElement(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& seatName, CATIDOMElement_var& seat);
    Seats FindSeats(
        const CATUnicodeString& standard, const CATUnicodeString& category, const CATUnicodeString& seatName);
    static CATIDOMElement_var CoeficientsRow(const Seats& seats, const VEXMELKElement& rows, double hPointTravel);
    int ReadCutoffs(
        const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& cutoffs);

    // The pair of the last query that named one.
    CATUnicodeString m_Standard;
    CATUnicodeString m_Category;
};

#endif
