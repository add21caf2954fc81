// VEXMELKChildProtectionConfig: the dimensions of the child test body, from "OVA\ChildProtection.xml".
//
//     <standard name="..."><category name="default"
//         CPShDist="550mm" CPShRadius="200mm" CPBackDist="250mm" CPTopAngle="10deg" CPShCShift="50mm"
//         CPVolVertAngle="25deg" CPVolHorizAngle="30deg" CPVolHorizOffset="120mm" CPAustralianNormOffset="80mm"
//         CPUseCShift="true" CPAustralianNorm="false"/></standard>
//
// Values are texts with their unit ("120mm", "30deg") unless stated. A value is taken from the category, else from the
// category "default" of the same standard.
#ifndef VEXMELKChildProtectionConfig_H
#define VEXMELKChildProtectionConfig_H

#include "VEXMELKCheckConfig.h"

// A missing value is empty.
struct VEXMELKChildProtectionDefinition
{
    CATUnicodeString CPShDist;               // length
    CATUnicodeString CPShRadius;             // length
    CATUnicodeString CPBackDist;             // length
    CATUnicodeString CPTopAngle;             // angle
    CATUnicodeString CPShCShift;             // length
    CATUnicodeString CPVolVertAngle;         // angle
    CATUnicodeString CPVolHorizAngle;        // angle
    CATUnicodeString CPVolHorizOffset;       // length
    CATUnicodeString CPAustralianNormOffset; // length
    unsigned char CPUseCShift = 0;
    unsigned char CPAustralianNorm = 0;
};

class ExportedByVEXMELKConfiguration VEXMELKChildProtectionConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKChildProtectionConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKChildProtectionDefinition& definition);
};

#endif
