// VEXMELKDirectViewConfig: the limits and target points of the direct-vision check, from "Vision\DirectView.xml".
//
//     <standard name="..."><category name="default"
//         MaxTopAngle="..." MaxBottomAngle="..." MPAzimuth="..." MPElevation="...">
//       <Point X="0.5m" Y="-600mm" Z="1.2" name="P1" reference="CarFront"/>
//     </category></standard>
//
// A category that is missing is replaced by "default".
#ifndef VEXMELKDirectViewConfig_H
#define VEXMELKDirectViewConfig_H

#include "CATMathDef.h"
#include "VEXMELKUnderfloorConfig.h"

// The lists run in parallel: the i-th entries describe the i-th "Point".
struct VEXMELKDirectViewCFG
{
    // Texts; empty when missing. A bare number comes back with "mm", as existing files expect: write "deg".
    CATUnicodeString MaxTopAngle;
    CATUnicodeString MaxBottomAngle;
    CATUnicodeString MPAzimuth;
    CATUnicodeString MPElevation;
    CATListValCATMathPoint Points;         // millimetres; a missing coordinate is 0
    CATListValCATUnicodeString PointNames; // empty when missing
    CATRawCollint PointReferences;         // 1 "CarFront", 2 "CarBack", 3 "EyesMidpoint", 0 any other
};

class ExportedByVEXMELKConfiguration VEXMELKDirectViewConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKDirectViewConfig(const CATUnicodeString& configurationDirectory);

    // Fills the record from the category itself; "default" does not fill in for single values. The points are replaced,
    // but names and references are appended to what is there, so callers pass a fresh record. Bare coordinates count as
    // metres. Always true, also when nothing was found and the record is untouched.
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKDirectViewCFG& definition);
};

#endif
