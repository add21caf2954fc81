// VEXMELKFreeSpaceConfig: the angles and dimensions of the free-space test body, from "OVA\FreeSpace.xml".
//
//     <standard name="..."><category name="default"
//         FSFrontAngle="30deg" FSMidAngle="15deg" FSBackAngle="20deg" FSSideAngle="10deg" FSNoseLength="300mm"
//         FSHoleDistance="120mm" FSHoleHight="80mm" FSHoleLength="150mm" FSBottomHight="60mm" FSNoseHight="90mm"
//         FSBodyHight="400mm" FSMidLength="500mm" FSNoseWidth="200mm" FSBodyWidth="350mm"/></standard>
//
// Values are texts with their unit ("120mm", "30deg") unless stated. A value is taken from the category, else from the
// category "default" of the same standard.
#ifndef VEXMELKFreeSpaceConfig_H
#define VEXMELKFreeSpaceConfig_H

#include "VEXMELKCheckConfig.h"

// A missing value is empty.
struct VEXMELKFreeSpaceDefinition
{
    CATUnicodeString FSFrontAngle;   // angle
    CATUnicodeString FSMidAngle;     // angle
    CATUnicodeString FSBackAngle;    // angle
    CATUnicodeString FSSideAngle;    // angle
    CATUnicodeString FSNoseLength;   // length
    CATUnicodeString FSHoleDistance; // length
    CATUnicodeString FSHoleHight;    // length
    CATUnicodeString FSHoleLength;   // length
    CATUnicodeString FSBottomHight;  // length
    CATUnicodeString FSNoseHight;    // length
    CATUnicodeString FSBodyHight;    // length
    CATUnicodeString FSMidLength;    // length
    CATUnicodeString FSNoseWidth;    // length
    CATUnicodeString FSBodyWidth;    // length
};

class ExportedByVEXMELKConfiguration VEXMELKFreeSpaceConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKFreeSpaceConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKFreeSpaceDefinition& definition);
};

#endif
