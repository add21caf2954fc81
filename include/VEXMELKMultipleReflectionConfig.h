// VEXMELKMultipleReflectionConfig: the multiple reflections in the windscreen, from "Vision\MultipleReflection.xml".
//
//     <standard name="..."><category name="default" rayDirection="XDirection"/></standard>
//
// A value is taken from the category, else from the category "default" of the same standard.
#ifndef VEXMELKMultipleReflectionConfig_H
#define VEXMELKMultipleReflectionConfig_H

#include "VEXMELKOpticalPropsOfWSConfig.h"

enum VEXMELKRayDirection : int
{
    RayStandard = 0,  // "standard", when missing, or any text that is not known
    RayXDirection = 1 // "XDirection"
};

struct VEXMELKMultipleReflectionConfigDef
{
    VEXMELKRayDirection rayDirection = RayStandard;
};

class ExportedByVEXMELKConfiguration VEXMELKMultipleReflectionConfig : public VEXMELKOpticalPropsOfWSConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKMultipleReflectionConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKMultipleReflectionConfigDef& definition);
};

#endif
