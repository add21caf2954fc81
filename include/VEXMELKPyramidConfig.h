// VEXMELKPyramidConfig: the planes that bound the field of vision, from "Vision\VisionPlanes.xml".
//
//     <standard name="..."><category name="default"
//         front_angle="4deg" driver_angle="18deg" passenger_angle="26deg" middle_plane_angle="0deg"/></standard>
//
// Values are texts with their unit ("120mm", "30deg") unless stated. A value is taken from the category, else from the
// category "default" of the same standard.
#ifndef VEXMELKPyramidConfig_H
#define VEXMELKPyramidConfig_H

#include "VEXMELKUnderfloorConfig.h"

// Angles. A missing value is empty.
struct VEXMELKPyramidConfigDefinition
{
    CATUnicodeString front_angle;
    CATUnicodeString driver_angle;
    CATUnicodeString passenger_angle;
    CATUnicodeString middle_plane_angle;
};

class ExportedByVEXMELKConfiguration VEXMELKPyramidConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKPyramidConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKPyramidConfigDefinition& definition);
};

#endif
