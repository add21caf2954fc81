// VEXMELKUFOilTubConfig: the clearance below the oil tub, from "OVA\UFOilTub.xml".
//
//     <standard name="..."><category name="default"
//         out_offset="140mm" out_angle="10deg" in_offset="120mm" in_angle="8deg"/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKUFOilTubConfig_H
#define VEXMELKUFOilTubConfig_H

#include "VEXMELKUnderfloorConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKUFOilTubConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFOilTubConfig(const CATUnicodeString& configurationDirectory);

    // Offsets and angles outside and inside. A missing value is empty.
    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        CATUnicodeString& outOffset, CATUnicodeString& outAngle, CATUnicodeString& inOffset, CATUnicodeString& inAngle);
};

#endif
