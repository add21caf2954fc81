// VEXMELKNumberPlatesConfig: the limits of the areas of the number plates, from "OVA\NumberPlates.xml".
//
//     <standard name="..."><category name="default"
//         FrontLowerLimit="200mm" BackLowerLimit="300mm" FrontUpperLimit="1200mm" BackUpperLimit="1500mm"
//         FrontRightLimit="260mm" FrontLeftLimit="260mm" BackRightLimit="260mm" BackLeftLimit="260mm"/></standard>
//
// Values are texts with their unit ("120mm", "30deg") unless stated. A value is taken from the category, else from the
// category "default" of the same standard.
#ifndef VEXMELKNumberPlatesConfig_H
#define VEXMELKNumberPlatesConfig_H

#include "VEXMELKCheckConfig.h"

// Lengths. A missing value is empty.
struct VEXMELKNumberPlatesDefinition
{
    CATUnicodeString FrontLowerLimit;
    CATUnicodeString BackLowerLimit;
    CATUnicodeString FrontUpperLimit;
    CATUnicodeString BackUpperLimit;
    CATUnicodeString FrontRightLimit;
    CATUnicodeString FrontLeftLimit;
    CATUnicodeString BackRightLimit;
    CATUnicodeString BackLeftLimit;
};

class ExportedByVEXMELKConfiguration VEXMELKNumberPlatesConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKNumberPlatesConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKNumberPlatesDefinition& definition);
};

#endif
