// VEXMELKUFInnerAngleConfig: the ramp angle between the axles, from "OVA\UFInnerAngle.xml".
//
//     <standard name="..."><category name="default"
//         inner_angle="14deg" calculation="..."/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKUFInnerAngleConfig_H
#define VEXMELKUFInnerAngleConfig_H

#include "VEXMELKUnderfloorConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKUFInnerAngleConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFInnerAngleConfig(const CATUnicodeString& configurationDirectory);

    // The angle and the name of its calculation. A missing value is empty.
    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        CATUnicodeString& innerAngle, CATUnicodeString& calculation);
};

#endif
