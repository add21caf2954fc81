// VEXMELKEyePointsConfig: the driver's eye points, from "Manikin\EyePoints.xml".
//
//     <standard name="...">
//       <eye_points_type name="single_pair"/>
//       <back_line length="635mm"/><vertical_line length="600mm"/>
//       <category name="default">
//         <point name="left eye" dx="0mm" dy="-32.5mm" dz="635mm"/>
//         <top_v_point dx="68mm" dy="-5mm" dz="665mm"/> ... <right_point .../>
//         <back_angle value="25deg" horizontal="0mm" vertical="0mm"/>
//         <hpoint_travel value="110mm" horizontal="-13mm"/>
//       </category>
//     </standard>
//
// A category that is missing is replaced by "default". Back angles come in as radians; lengths are handed out as
// millimetres unless they are texts. Results of type unsigned char are 1 or 0; an output that a query does not reach
// keeps the caller's value.
#ifndef VEXMELKEyePointsConfig_H
#define VEXMELKEyePointsConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKInterfaces.h"

// One "point": offsets as texts with unit, or the keyword "steering_wheel_center"; a missing one is empty.
struct VEXMELKEyePointDefinition
{
    CATUnicodeString name;
    CATUnicodeString dx;
    CATUnicodeString dy;
    CATUnicodeString dz;
    VEXIMELKEyePoints::PointCoordType dx_type = VEXIMELKEyePoints::Length;
    VEXIMELKEyePoints::PointCoordType dy_type = VEXIMELKEyePoints::Length;
    VEXIMELKEyePoints::PointCoordType dz_type = VEXIMELKEyePoints::Length;
};

// One characteristic point, in millimetres.
struct VEXMELKEyePointPosition
{
    // Left as the caller set them.
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    // The offset.
    double dx = 0.0;
    double dy = 0.0;
    double dz = 0.0;
};

class ExportedByVEXMELKConfiguration VEXMELKEyePointsConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKEyePointsConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the array by the category's points. False, with the array empty, when there are none.
    unsigned char GetEyePoints(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXArray<VEXMELKEyePointDefinition>& points);

    // The offset of a characteristic point; a missing coordinate is 0. False, with the position untouched, when the
    // category does not have the point.
    unsigned char GetTopVEyePointPosition(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position);
    unsigned char GetBottomVEyePointPosition(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position);
    unsigned char GetLeftPEyePointPosition(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position);
    unsigned char GetRightPEyePointPosition(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position);
    unsigned char GetLeftEyePointPosition(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position);
    unsigned char GetRightEyePointPosition(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKEyePointPosition& position);

    // The correction of the "back_angle" nearest to the angle; a missing length is 0. False, with the outputs
    // untouched, when there is none.
    unsigned char GetBackAngleCorrection(const CATUnicodeString& standard, const CATUnicodeString& category,
        double backAngle, double& horizontal, double& vertical);

    // The correction of the "hpoint_travel" with the largest value not above the travel. The travel is in metres,
    // unlike all other travels, because the check that asks holds it so. False, with the output untouched, when there
    // is none.
    unsigned char GetHPointTravelCorrection(
        const CATUnicodeString& standard, const CATUnicodeString& category, double hPointTravel, double& horizontal);

    // The lengths of the auxiliary lines; 635 and 600 when the standard does not give them.
    double GetBackLineLength(const CATUnicodeString& standard);
    double GetVertLineLength(const CATUnicodeString& standard);

    // How many eye points are used.
    VEXIMELKEyes::EyesType GetEyesType(const CATUnicodeString& standard);

private:
    static unsigned char IsKeyWord(const CATUnicodeString& text);
    static VEXIMELKEyePoints::PointCoordType GetPointCoordType(const CATUnicodeString& text);
    static void GetEyePointConfigPosition(const CATIDOMElement_var& element, VEXMELKEyePointPosition& position);
    unsigned char GetPosition(const CATUnicodeString& standard, const CATUnicodeString& category,
        const VEXMELKElement& described, VEXMELKEyePointPosition& position);
};

#endif
