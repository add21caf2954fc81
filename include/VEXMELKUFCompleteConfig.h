// VEXMELKUFCompleteConfig: the standards that the complete check combines, from "OVA\UFComplete.xml".
//
//     <standard name="..."><category name="default"
//         Curb="..." DynCurb="..." InnerAngle="..." OilTub="..." SlopeAngle="..."
//         SpaceToRoad="..." WheelFixing="..."/></standard>
//
// Values are names of standards in the files of the seven checks. A name is taken from the category, else from the
// category "default" of the same standard. Whether a standard of that name exists is not checked.
#ifndef VEXMELKUFCompleteConfig_H
#define VEXMELKUFCompleteConfig_H

#include "VEXMELKUnderfloorConfig.h"

// Each names the standard to use for one part of the check; a missing one is empty.
struct VEXMELKUFCompleteConfigDefinition
{
    CATUnicodeString Curb;
    CATUnicodeString DynCurb;
    CATUnicodeString InnerAngle;
    CATUnicodeString OilTub;
    CATUnicodeString SlopeAngle;
    CATUnicodeString SpaceToRoad;
    CATUnicodeString WheelFixing;
};

class ExportedByVEXMELKConfiguration VEXMELKUFCompleteConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFCompleteConfig(const CATUnicodeString& configurationDirectory);

    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKUFCompleteConfigDefinition& definition);
};

#endif
