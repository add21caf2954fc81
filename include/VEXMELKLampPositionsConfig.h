// VEXMELKLampPositionsConfig: the lamps that a standard regulates, with the limits of their places, from
// "OVA\LampPositions.xml".
//
//     <standard name="..." UseLampLimits="true"><category name="default">
//       <Lamp Abbr="LB" Descr="Low beam" IsFront="true" MinVerticalSpace="500mm" MaxVerticalSpace="1200mm" .../>
//     </category></standard>
//
// Texts carry their unit. A category that is missing is replaced by "default".
#ifndef VEXMELKLampPositionsConfig_H
#define VEXMELKLampPositionsConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"

// One lamp. A missing text is empty, a missing flag false.
struct VEXMELKLampPositionsDefinition
{
    CATUnicodeString Abbr;
    CATUnicodeString Descr;
    unsigned char IsFront = 0;
    unsigned char IsBack = 0;
    unsigned char IsSide = 0;
    CATUnicodeString MinVerticalSpace; // length
    CATUnicodeString MaxVerticalSpace; // length
    CATUnicodeString MinInnerSpace;    // length
    CATUnicodeString MinInnerSpace2;   // length
    CATUnicodeString MaxOuterSpace;    // length
    CATUnicodeString MaxOuterSpace2;   // length
    CATUnicodeString MaxFrontSpace;    // length
    CATUnicodeString MaxFrontSpace2;   // length
    CATUnicodeString MaxBackSpace;     // length
    CATUnicodeString MaxBackSpace2;    // length
    CATUnicodeString LampColor;
    CATUnicodeString LampVisibility;
    CATUnicodeString WidthThreshold;  // length
    CATUnicodeString LengthThreshold; // length
};

class ExportedByVEXMELKConfiguration VEXMELKLampPositionsConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKLampPositionsConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the array by the category's lamps in document order. Always true: an unknown standard or category is one
    // without lamps.
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXArray<VEXMELKLampPositionsDefinition>& lamps);

    // Whether the limits of the standard apply: its "UseLampLimits", true when that is missing. False for an unknown
    // standard. The category is not used.
    unsigned char GetStatusOfLimits(const CATUnicodeString& standard, const CATUnicodeString& category);
};

#endif
