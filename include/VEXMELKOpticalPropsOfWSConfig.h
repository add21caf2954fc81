// VEXMELKOpticalPropsOfWSConfig: the optical properties of the windscreen. Its file is given by its creator; two
// configurations with files of their own derive from it.
//
//     <standard name="..."><category name="default" gridOriginX="0mm" gridOriginY="0mm" gridOriginZ="0mm"
//         gridXSpace="50mm" gridYSpace="50mm" fromInside="true" reqValue="..." AreqValue="..."
//         BreqValue="..."/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKOpticalPropsOfWSConfig_H
#define VEXMELKOpticalPropsOfWSConfig_H

#include "VEXMELKUnderfloorConfig.h"

// A missing value is empty.
struct VEXMELKOpticalPropsOfWSConfigDef
{
    CATUnicodeString gridOriginX; // length
    CATUnicodeString gridOriginY; // length
    CATUnicodeString gridOriginZ; // length
    CATUnicodeString gridXSpace;  // length
    CATUnicodeString gridYSpace;  // length
    unsigned char fromInside = 0; // true when missing
    CATUnicodeString reqValue;    // angle
    CATUnicodeString AreqValue;   // angle
    CATUnicodeString BreqValue;   // angle
};

class ExportedByVEXMELKConfiguration VEXMELKOpticalPropsOfWSConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    // "fileName" carries the sub-folder.
    VEXMELKOpticalPropsOfWSConfig(const CATUnicodeString& configurationDirectory, const CATUnicodeString& fileName);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKOpticalPropsOfWSConfigDef& definition);
};

#endif
