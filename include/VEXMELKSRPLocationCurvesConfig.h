// VEXMELKSRPLocationCurvesConfig: the curves that locate the seating reference point, from
// "Manikin\SRPLocationCurves.xml".
//
//     <standard name="..."><category name="default">
//       <curve name="95%" a="913.7mm" b="0.672" c="-0.0019" z_min="127mm" z_max="405mm"/>
//     </category></standard>
//
// A category that is missing is replaced by "default".
#ifndef VEXMELKSRPLocationCurvesConfig_H
#define VEXMELKSRPLocationCurvesConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"

// One curve: its coefficients and its vertical range, all in millimetres; 0 when missing.
struct VEXMELKSRPLocationCurveDefinition
{
    CATUnicodeString name; // empty when missing
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double z_min = 0.0;
    double z_max = 0.0;
};

class ExportedByVEXMELKConfiguration VEXMELKSRPLocationCurvesConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKSRPLocationCurvesConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the array by the category's curves in document order, of each name (the empty one too) the first. False,
    // with the array empty, when the standard has no data for the category.
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXArray<VEXMELKSRPLocationCurveDefinition>& curves);
};

#endif
