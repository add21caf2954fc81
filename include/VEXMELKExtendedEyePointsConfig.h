// VEXMELKExtendedEyePointsConfig: eye points with the movements that they may make, from
// "Manikin\ExtendedEyePoints.xml".
//
//     <standard name="...">
//       <back_line length="635mm"/>
//       <category name="default">
//         <E1 dx="0mm" dy="-32.5mm" dz="635mm"/>
//         <movements type="free_movements"/>
//         <free_movements><down_up min="-20mm" max="20mm"/><left_right .../><forward_backward .../></free_movements>
//         <standard_movements used_eye_position="forward_most">
//           <ext_up dx="0mm" dy="0mm" dz="30mm"/><ext_front .../><ext_side .../>
//         </standard_movements>
//         <back_angle value="25deg" horizontal="0mm" vertical="0mm"/>
//       </category>
//     </standard>
//
// A category that is missing is replaced by "default". Lengths are handed out as millimetres, angles come and go as
// radians. Results of type unsigned char are 1 or 0; an output that a query does not reach keeps the caller's value.
#ifndef VEXMELKExtendedEyePointsConfig_H
#define VEXMELKExtendedEyePointsConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"

// The offset of a named eye point, in millimetres.
struct VEXMELKExtendedEyePointPosition
{
    double dx = 0.0;
    double dy = 0.0;
    double dz = 0.0;
};

// One row "back_angle".
struct VEXMELKBackAngleCorrection
{
    double back_angle = 0.0; // radians
    double horizontal = 0.0; // millimetres
    double vertical = 0.0;   // millimetres
};

// The movements that the eye point may make. Lengths are millimetres, 0 when missing.
struct VEXMELKExtendedEyePointMovements
{
    CATUnicodeString type; // "standard_movements" when not given
    double down_up_min = 0.0;
    double down_up_max = 0.0;
    double left_right_min = 0.0;
    double left_right_max = 0.0;
    double forward_backward_min = 0.0;
    double forward_backward_max = 0.0;
    int used_eye_position = 0; // 1 fix_standard_point, 2 forward_most, 3 sideward_most, 4 upward_most, 0 any other
    double ext_up_dx = 0.0;
    double ext_up_dy = 0.0;
    double ext_up_dz = 0.0;
    double ext_front_dx = 0.0;
    double ext_front_dy = 0.0;
    double ext_front_dz = 0.0;
    double ext_side_dx = 0.0;
    double ext_side_dy = 0.0;
    double ext_side_dz = 0.0;
};

class ExportedByVEXMELKConfiguration VEXMELKExtendedEyePointsConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKExtendedEyePointsConfig(const CATUnicodeString& configurationDirectory);

    // The offset of the first element named after the point; a missing coordinate is 0. False, with the position
    // untouched, when there is none.
    unsigned char GetExtendedEyePointPosition(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& pointName, VEXMELKExtendedEyePointPosition& position);

    // Clears the record, then fills it: "movements", "standard_movements" and "free_movements", each of the category
    // or else of "default". True when either of the last two was found.
    unsigned char GetExtendedEyePointMovements(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKExtendedEyePointMovements& movements);

    // Replaces the array by the rows "back_angle" in document order; a missing value is 0. False, with the array
    // empty, for an unknown category.
    unsigned char GetExtendedBackAngleCorrectionList(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXArray<VEXMELKBackAngleCorrection>& corrections);

    // The correction of the "back_angle" nearest to the angle (radians); a missing length is 0. False, with the outputs
    // untouched, when there is none.
    unsigned char GetExtendedBackAngleCorrection(const CATUnicodeString& standard, const CATUnicodeString& category,
        double backAngle, double& horizontal, double& vertical);

    // The length of the auxiliary back line; 635 when the standard does not give it.
    double GetBackLineLength_mm(const CATUnicodeString& standard);

private:
    static void GetExtendedEyePointConfigPosition(
        const CATIDOMElement_var& element, VEXMELKExtendedEyePointPosition& position);
    static void GetExtendedEyePointStandardMovementsAttrs(
        CATIDOMElement_var& element, const CATUnicodeString& childName, double& dx, double& dy, double& dz);
    static void GetExtendedEyePointFreeMovementsAttrs(
        CATIDOMElement_var& element, const CATUnicodeString& childName, double& min, double& max);
};

#endif
