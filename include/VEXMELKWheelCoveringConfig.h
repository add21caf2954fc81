// VEXMELKWheelCoveringConfig: how far the body has to cover the wheels, from "OVA\WheelCovering.xml".
//
//     <standard name="..."><category name="default" FrontAlpha="30deg" FrontBeta="50deg" BackAlpha="30deg"
//         BackBeta="50deg" BottomOffset="150mm" TriangleHeight="30mm" LineHeight="20mm" HasSpecialBack="false"
//         AlgorithmType="..." Tolerance="0.1mm"/></standard>
//
// Texts carry their unit. A value is taken from the category, else from the category "default" of the same standard.
#ifndef VEXMELKWheelCoveringConfig_H
#define VEXMELKWheelCoveringConfig_H

#include "VEXMELKCheckConfig.h"

// A missing value is empty unless stated.
struct VEXMELKWheelCoveringDefinition
{
    CATUnicodeString FrontAlpha;      // angle
    CATUnicodeString FrontBeta;       // angle
    CATUnicodeString BackAlpha;       // angle
    CATUnicodeString BackBeta;        // angle
    CATUnicodeString BottomOffset;    // length; a missing one keeps the caller's, so that a check can have a default
    CATUnicodeString TriangleHeight;  // length
    CATUnicodeString LineHeight;      // length
    unsigned char HasSpecialBack = 0; // false when missing
    CATUnicodeString AlgorithmType;   // as written
    CATUnicodeString Tolerance;       // as written; "0.0m" when missing
};

class ExportedByVEXMELKConfiguration VEXMELKWheelCoveringConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKWheelCoveringConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKWheelCoveringDefinition& definition);
};

#endif
