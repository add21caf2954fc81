// VEXMELKCRVConfig: close-range visibility around the vehicle, from "Vision\CloseRangeVisibility.xml".
//
//     <standard name="..."><category name="default">
//       <cylinder radius="150" height="1000" visibleRayCount="5"/>
//       <area type="front_view" front_offset="2000mm" driver_side_extension="700mm" passenger_side_extension="900mm"/>
//       <death_zone param1="..." param2="..."/>
//     </category></standard>
//
// Values are texts. Each element is taken whole from the category, else from "default".
#ifndef VEXMELKCRVConfig_H
#define VEXMELKCRVConfig_H

#include "VEXMELKUnderfloorConfig.h"

// A missing value is left as the caller had it, but for the three lengths of the area.
struct VEXMELKCRVConfigDefinition
{
    // Of "cylinder", as written.
    CATUnicodeString radius;
    CATUnicodeString height;
    CATUnicodeString visibleRayCount;
    // Of "area". The lengths are read for the type "front_view" only.
    CATUnicodeString type;
    CATUnicodeString front_offset;             // length; "2000mm" when missing
    CATUnicodeString driver_side_extension;    // length; "700mm" when missing
    CATUnicodeString passenger_side_extension; // length; "900mm" when missing
    // Of "death_zone", as written.
    CATUnicodeString param1;
    CATUnicodeString param2;
};

class ExportedByVEXMELKConfiguration VEXMELKCRVConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKCRVConfig(const CATUnicodeString& configurationDirectory);

    // False, with only the three lengths set to their defaults, when the standard has neither the category nor
    // "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKCRVConfigDefinition& definition);
};

#endif
