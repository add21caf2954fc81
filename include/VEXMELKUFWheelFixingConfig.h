// VEXMELKUFWheelFixingConfig: the free space around the wheel fixing, from "OVA\UFWheelFixing.xml".
//
//     <standard name="..."><category name="default"
//         radius="80mm" offset="25mm"/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKUFWheelFixingConfig_H
#define VEXMELKUFWheelFixingConfig_H

#include "VEXMELKUnderfloorConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKUFWheelFixingConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFWheelFixingConfig(const CATUnicodeString& configurationDirectory);

    // Two lengths. A missing value is empty.
    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        CATUnicodeString& radius, CATUnicodeString& offset);
};

#endif
