// VEXMELKUFSlopeAngleConfig: the slope angles at the vehicle's ends, from "OVA\UFSlopeAngle.xml".
//
//     <standard name="..."><category name="default"
//         front_angle="14deg" back_angle="16deg"/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKUFSlopeAngleConfig_H
#define VEXMELKUFSlopeAngleConfig_H

#include "VEXMELKUnderfloorConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKUFSlopeAngleConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFSlopeAngleConfig(const CATUnicodeString& configurationDirectory);

    // The two angles. A missing value is empty.
    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        CATUnicodeString& frontAngle, CATUnicodeString& backAngle);
};

#endif
