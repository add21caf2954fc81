// VEXMELKPPOffsetConfig: how the offsets between the outer skin and the parts beneath it are measured, from
// "Safety\PedestrianProtectionOffset.xml".
//
//     <standard name="..."><category name="default" calculation_type="section_based" offset="25mm">
//       <section_based ref_part="..." definition_type="..." profile_type="..." x_step="50mm" y_step="50mm">
//         <curve type="..." inner_offset="60mm" outer_offset="80mm"/>
//         <outer_region measurement_type="..." param_x="100mm"/>
//       </section_based>
//     </category></standard>
//
// Lengths are handed out in metres. The element "section_based" is taken whole from the category, else from "default".
#ifndef VEXMELKPPOffsetConfig_H
#define VEXMELKPPOffsetConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"

// One offset curve.
struct VEXPPOffsetCurveDefinition
{
    CATUnicodeString type;     // empty when missing
    double inner_offset = 0.0; // metres; 0 when missing
    double outer_offset = 0.0; // metres; 0 when missing
};

struct VEXPPOffsetOuterRegionDefinition
{
    CATUnicodeString measurement_type; // empty when missing
    double param_x = 0.0;              // metres; 0 when missing
};

struct VEXMELKPPOffsetDefinition
{
    CATUnicodeString calculation_type; // of the category, else of "default", else empty
    // Of "section_based"; empty when missing.
    CATUnicodeString ref_part;
    CATUnicodeString definition_type;
    CATUnicodeString profile_type;
    double x_step = 0.0; // metres; 0 when missing
    double y_step = 0.0; // metres; 0 when missing
    VEXArray<VEXPPOffsetCurveDefinition> curves;
    VEXPPOffsetOuterRegionDefinition outerRegion;
    double offset = 0.0; // metres; of the category, else of "default", else 0
};

class ExportedByVEXMELKConfiguration VEXMELKPPOffsetConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKPPOffsetConfig(const CATUnicodeString& configurationDirectory);

    // Sets the three lengths to 0, then fills the record. Without "section_based" the fields of that element stay as
    // they are. False, with only the three lengths changed, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKPPOffsetDefinition& definition);

private:
    unsigned char GetCurves(const CATIDOMElement_var& section, VEXArray<VEXPPOffsetCurveDefinition>& curves);
    unsigned char GetOuterRegion(const CATIDOMElement_var& section, VEXPPOffsetOuterRegionDefinition& outerRegion);
};

#endif
