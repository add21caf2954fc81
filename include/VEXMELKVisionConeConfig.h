// VEXMELKVisionConeConfig: the cone in which the driver sees sharply, from "Vision\VisionCone.xml".
//
//     <standard name="..."><category name="default"
//         cone_angle="30deg" horizontal_axis_angle="0deg" vertical_axis_angle="-5deg" cone_length="1500mm"/></standard>
//
// Values are texts with their unit ("120mm", "30deg") unless stated. A value is taken from the category, else from the
// category "default" of the same standard.
#ifndef VEXMELKVisionConeConfig_H
#define VEXMELKVisionConeConfig_H

#include "VEXMELKUnderfloorConfig.h"

// A missing value is empty.
struct VEXMELKVisionConeConfigDefinition
{
    CATUnicodeString cone_angle;            // angle
    CATUnicodeString horizontal_axis_angle; // angle
    CATUnicodeString vertical_axis_angle;   // angle
    CATUnicodeString cone_length;           // length
};

class ExportedByVEXMELKConfiguration VEXMELKVisionConeConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKVisionConeConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKVisionConeConfigDefinition& definition);
};

#endif
