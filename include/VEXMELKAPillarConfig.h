// VEXMELKAPillarConfig: how far the A-pillars may obstruct the view, from "Vision\APillar.xml".
//
//     <standard name="..."><category name="default"
//         top_angle="2deg" bottom_angle="-5deg" driver_angle="6deg" passenger_angle="6deg"
//         eye_triangle_side="104mm" eye_triangle_base="65mm" touch_line_angle="0deg"/></standard>
//
// Values are texts with their unit ("120mm", "30deg") unless stated. A value is taken from the category, else from the
// category "default" of the same standard.
#ifndef VEXMELKAPillarConfig_H
#define VEXMELKAPillarConfig_H

#include "VEXMELKUnderfloorConfig.h"

// A missing value is empty.
struct VEXMELKAPillarConfigDefinition
{
    CATUnicodeString top_angle;         // angle
    CATUnicodeString bottom_angle;      // angle
    CATUnicodeString driver_angle;      // angle
    CATUnicodeString passenger_angle;   // angle
    CATUnicodeString eye_triangle_side; // length
    CATUnicodeString eye_triangle_base; // length
    CATUnicodeString touch_line_angle;  // angle
};

class ExportedByVEXMELKConfiguration VEXMELKAPillarConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKAPillarConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKAPillarConfigDefinition& definition);
};

#endif
