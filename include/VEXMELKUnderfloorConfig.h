// VEXMELKUnderfloorConfig: the base of the checks that work from the occupant's eyes.
#ifndef VEXMELKUnderfloorConfig_H
#define VEXMELKUnderfloorConfig_H

#include "VEXMELKCheckConfig.h"

// The eyes that a standard uses. The texts are as written in the file.
struct VEXMELKEyesConfigDefinition
{
    int EyesType = 0;           // 0 eye points, 1 eye ellipses, 2 extended eye points
    CATUnicodeString Standard;  // the eye standard to use
    CATUnicodeString Percentil; // of the eye ellipses; filled only for type 1
};

class ExportedByVEXMELKConfiguration VEXMELKUnderfloorConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    VEXMELKUnderfloorConfig(CATUnicodeString path, CATUnicodeString fileName);

    // The first of the elements "eye_points", "eye_ellipses", "eye_extended_points" below the standard. Without any of
    // them the type is 2 and the texts stay; an attribute that is missing leaves its text. True when the documents
    // loaded, also for an unknown standard, which leaves the record as it is.
    unsigned char GetEyes(const CATUnicodeString& standard, VEXMELKEyesConfigDefinition& eyes);

    // The point that the user is to pick: "point_to_pick" of the category, else of "default", else "". False, with the
    // point untouched, when the standard has no data for the category.
    unsigned char GetPointToPick(
        const CATUnicodeString& standard, const CATUnicodeString& category, CATUnicodeString& point);

    // Whether the static wheel radius applies: "static_radius" of the standard, true when that is missing. True when
    // the documents loaded, also for an unknown standard, which leaves "use" as it is.
    unsigned char UseStaticRadius(const CATUnicodeString& standard, unsigned char& use);
};

#endif
