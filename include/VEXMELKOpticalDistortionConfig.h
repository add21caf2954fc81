// VEXMELKOpticalDistortionConfig: the optical distortion of the windscreen, from "Vision\OpticalDistortion.xml".
//
//     <standard name="..."><category name="default" dcRadius="4mm" dcDensity="..."/></standard>
//
// A value is taken from the category, else from the category "default" of the same standard.
#ifndef VEXMELKOpticalDistortionConfig_H
#define VEXMELKOpticalDistortionConfig_H

#include "VEXMELKOpticalPropsOfWSConfig.h"

// A missing value is empty.
struct VEXMELKOpticalDistortionConfigDef
{
    CATUnicodeString dcRadius;  // length, with unit
    CATUnicodeString dcDensity; // without unit
};

class ExportedByVEXMELKConfiguration VEXMELKOpticalDistortionConfig : public VEXMELKOpticalPropsOfWSConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKOpticalDistortionConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKOpticalDistortionConfigDef& definition);
};

#endif
