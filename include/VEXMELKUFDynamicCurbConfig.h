// VEXMELKUFDynamicCurbConfig: the clearance over a curb while the vehicle moves, from "OVA\UFDynamicCurb.xml".
//
//     <standard name="..."><category name="default"
//         out_offset="150mm" in_offset="130mm" in_length="300mm" calculation="..."/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKUFDynamicCurbConfig_H
#define VEXMELKUFDynamicCurbConfig_H

#include "VEXMELKUnderfloorConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKUFDynamicCurbConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFDynamicCurbConfig(const CATUnicodeString& configurationDirectory);

    // Two offsets and a length, and the name of the calculation. A missing value is empty.
    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        CATUnicodeString& outOffset, CATUnicodeString& inOffset, CATUnicodeString& inLength,
        CATUnicodeString& calculation);
};

#endif
