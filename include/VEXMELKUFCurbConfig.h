// VEXMELKUFCurbConfig: the clearance of the vehicle's ends over a curb, from "OVA\UFCurb.xml".
//
//     <standard name="..."><category name="default"
//         front_offset="120mm" front_angle="12deg" back_angle="15deg" back_offset="150mm"/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKUFCurbConfig_H
#define VEXMELKUFCurbConfig_H

#include "VEXMELKUnderfloorConfig.h"

// A missing value is empty.
struct VEXMELKUFCurbConfigDefinition
{
    CATUnicodeString FrontOffset; // length
    CATUnicodeString FrontAngle;  // angle
    CATUnicodeString BackAngle;   // angle
    CATUnicodeString BackOffset;  // length
};

class ExportedByVEXMELKConfiguration VEXMELKUFCurbConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFCurbConfig(const CATUnicodeString& configurationDirectory);

    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKUFCurbConfigDefinition& definition);
};

#endif
