// VEXMELKBaseDataConfig: the vehicle's loading states, overall dimensions, seats and wheels, from "OVA\BaseData.xml".
//
//     <category name="default" car_width="1800mm" forward_distance="900mm" backward_distance="1000mm">
//       <loading name="empty" front_delta="0mm" back_delta="0mm"/>
//       <seat name="driver" IsFront="true" BackAngle="25deg" HPointTravel="240mm" RefPointX="1350mm" .../>
//       <wheels><front CenterPointX="0mm" StaticRadius="305mm" .../><rear .../></wheels>
//     </category>
//
// The file knows no standards: its categories stand below the root. A category is taken from the customer document,
// else from the base document. All values are texts with their unit; a missing one is empty.
#ifndef VEXMELKBaseDataConfig_H
#define VEXMELKBaseDataConfig_H

#include "VEXArray.h"
#include "VEXMELKConfig.h"

// One loading state.
struct VEXMELKLoadingDefinition
{
    CATUnicodeString name;
    CATUnicodeString spare1;      // never filled
    CATUnicodeString spare2;      // never filled
    CATUnicodeString front_delta; // length
    CATUnicodeString back_delta;  // length
};

// One seat. Points are lengths in the vehicle's system.
struct VEXMELKSeatDefinition
{
    CATUnicodeString name;
    unsigned char IsFront = 0;
    CATUnicodeString RefPointX;
    CATUnicodeString RefPointY;
    CATUnicodeString RefPointZ;
    CATUnicodeString BackAngle;    // angle
    CATUnicodeString HPointTravel; // length
    CATUnicodeString HeelRPX;
    CATUnicodeString HeelRPY;
    CATUnicodeString HeelRPZ;
    CATUnicodeString PedalRPX;
    CATUnicodeString PedalRPY;
    CATUnicodeString PedalRPZ;
    CATUnicodeString SteerRPX;
    CATUnicodeString SteerRPY;
    CATUnicodeString SteerRPZ;
};

// One wheel: lengths, and the angles of camber (Sturz) and toe (Spur).
struct VEXMELKWheelsDefinition
{
    CATUnicodeString CenterPointX;
    CATUnicodeString CenterPointY;
    CATUnicodeString CenterPointZ;
    CATUnicodeString StaticRadius;
    CATUnicodeString Diameter;
    CATUnicodeString Width;
    CATUnicodeString Sturz; // angle
    CATUnicodeString Spur;  // angle
};

class ExportedByVEXMELKConfiguration VEXMELKBaseDataConfig : public VEXMELKConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKBaseDataConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the array by the category's loadings, followed by those of "default" (which are thus delivered twice
    // for the category "default" itself). A loading without a name is skipped; one with an empty name has no deltas.
    // Always false: callers judge by the array's size.
    unsigned char GetLoadingDataForBaseDataCategory(
        const CATUnicodeString& category, VEXArray<VEXMELKLoadingDefinition>& loadings);

    // The lengths of the category itself; there is no fall-back. False, with the outputs untouched, for an unknown
    // category.
    unsigned char GetOverallDataForCategory(const CATUnicodeString& category, CATUnicodeString& carWidth,
        CATUnicodeString& forwardDistance, CATUnicodeString& backwardDistance);

    // Replaces the array by the category's seats, or by those of "default" when it has none. Always false: callers
    // judge by the array's size.
    unsigned char GetSeatDataForBaseDataCategory(
        const CATUnicodeString& category, VEXArray<VEXMELKSeatDefinition>& seats);

    // The wheel whose tag is given, of the category, or else of "default". False, with the data untouched, when neither
    // has it.
    unsigned char GetWheelsDataForBaseDataCategory(
        const CATUnicodeString& category, const CATUnicodeString& wheel, VEXMELKWheelsDefinition& data);

    // Replaces the list by the names of the categories: those of the customer document, then those that only the base
    // document has.
    void GetBaseDataCategories(CATListValCATUnicodeString& categories);
};

#endif
