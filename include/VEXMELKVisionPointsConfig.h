// VEXMELKVisionPointsConfig: the angles under which the vision points are seen, from "Vision\VisionPoints.xml".
//
//     <standard name="..."><category name="default"
//         top_angle="7deg" bottom_angle="-5deg" horizontal_angle="17deg"/></standard>
//
// Values are texts with their unit ("120mm", "30deg") unless stated. A value is taken from the category, else from the
// category "default" of the same standard.
#ifndef VEXMELKVisionPointsConfig_H
#define VEXMELKVisionPointsConfig_H

#include "VEXMELKUnderfloorConfig.h"

// Angles. A missing value is empty.
struct VEXMELKVisionPointsConfigDefinition
{
    CATUnicodeString top_angle;
    CATUnicodeString bottom_angle;
    CATUnicodeString horizontal_angle;
};

class ExportedByVEXMELKConfiguration VEXMELKVisionPointsConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKVisionPointsConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKVisionPointsConfigDefinition& definition);
};

#endif
