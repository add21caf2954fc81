// VEXMELKUFSpaceToRoadConfig: the space between underfloor and road, from "OVA\UFSpaceToRoad.xml".
//
//     <standard name="..."><category name="default"
//         offset="120mm" WholeLength="true" CalcUnderAxis="false" OffsetUnderAxes="110mm"
//         CircUnderAxis="false" extension="50mm" WheelRadius="true" GeneralSurface="true"/></standard>
//
// Values are texts with their unit ("120mm", "30deg"). A value is taken from the category, else from the category
// "default" of the same standard.
#ifndef VEXMELKUFSpaceToRoadConfig_H
#define VEXMELKUFSpaceToRoadConfig_H

#include "VEXMELKUnderfloorConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKUFSpaceToRoadConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKUFSpaceToRoadConfig(const CATUnicodeString& configurationDirectory);

    // Three lengths and five flags. A missing length is empty; missing flags are false, but WheelRadius and
    // GeneralSurface true.
    // False, with the outputs untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        CATUnicodeString& offset, unsigned char& wholeLength, unsigned char& calcUnderAxis,
        CATUnicodeString& offsetUnderAxes, unsigned char& circUnderAxis, CATUnicodeString& extension,
        unsigned char& wheelRadius, unsigned char& generalSurface);
};

#endif
