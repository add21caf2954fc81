// VEXMELKFieldsOfViewConfig: the angular limits of the driver's fields of view A, B and C, from
// "Vision\FieldsOfView.xml".
//
//     <standard name="..."><category name="default" threshold1="..." threshold2="..." threshold3="..."
//     threshold4="...">
//       <field type="A" offset="12mm">
//         <interval index="0" top_angle="3deg" bottom_angle="-1deg" driver_angle="-13deg" passenger_angle="20deg"/>
//       </field>
//     </category></standard>
//
// Values are texts with their unit. The fields of "default" are read first, those of the category over them.
#ifndef VEXMELKFieldsOfViewConfig_H
#define VEXMELKFieldsOfViewConfig_H

#include "VEXMELKUnderfloorConfig.h"

#include <array>

// Angles. A missing value is empty.
struct VEXMELKFOVInterval
{
    CATUnicodeString top_angle;
    CATUnicodeString bottom_angle;
    CATUnicodeString driver_angle;
    CATUnicodeString passenger_angle;
    unsigned char present = 0; // set when the file has this interval; never cleared
};

struct VEXMELKFOVField
{
    CATUnicodeString offset;                     // length; empty when missing
    std::array<VEXMELKFOVInterval, 5> intervals; // by their "index"
    unsigned char present = 0;                   // set when the file has this field; never cleared
};

struct VEXMELKFieldsOfViewConfigDefinition
{
    // Lengths of the category, else of "default", else empty.
    CATUnicodeString threshold1;
    CATUnicodeString threshold2;
    CATUnicodeString threshold3;
    CATUnicodeString threshold4;
    std::array<VEXMELKFOVField, 3> fields; // "A", "B", "C"
};

class ExportedByVEXMELKConfiguration VEXMELKFieldsOfViewConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKFieldsOfViewConfig(const CATUnicodeString& configurationDirectory);

    // Fills the record as far as the file goes; fields and intervals that it does not mention stay as they are, so
    // callers pass a fresh record. Fields of another type and intervals whose index is not 0 to 4 are skipped. False,
    // with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKFieldsOfViewConfigDefinition& definition);
};

#endif
