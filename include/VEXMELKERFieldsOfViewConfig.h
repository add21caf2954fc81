// VEXMELKERFieldsOfViewConfig: the angular limits of the extended field of view A and the reduced field B, from
// "Vision\ERFieldsOfView.xml".
//
//     <standard name="..."><category name="default">
//       <field type="extended A" top_angle="3deg" bottom_angle="-1deg" driver_angle="-13deg" offset="0mm"/>
//       <field type="reduced B" top_angle="7deg" bottom_angle="-5deg" driver_angle="-17deg" offset="25mm">
//         <subtract type="upper area" upper_area_default="..." bottom_angle="4deg" A1_driver_angle="..." .../>
//         <subtract type="side area" .../><subtract type="lower area" .../><subtract type="extended a-field" .../>
//       </field>
//     </category></standard>
//
// Values are texts with their unit. The fields of "default" are read first, those of the category over them.
#ifndef VEXMELKERFieldsOfViewConfig_H
#define VEXMELKERFieldsOfViewConfig_H

#include "VEXMELKUnderfloorConfig.h"

#include <array>

// An area that is cut out of the reduced field B. Each area fills only its own members; a missing value of those is
// empty.
struct VEXMELKERFOVSubtractArea
{
    CATUnicodeString bottom_angle;             // angle; upper and lower area
    CATUnicodeString A1_driver_angle;          // angle; upper area
    CATUnicodeString A2_area_width;            // length; upper area
    CATUnicodeString driver_angle;             // angle; side area
    CATUnicodeString cut_out_width;            // length; lower area
    CATUnicodeString upper_area_default;       // upper area
    CATUnicodeString lower_area_default;       // lower area
    CATUnicodeString side_area_default;        // side area
    CATUnicodeString extended_a_field_default; // extended a-field
    unsigned char present = 0;                 // set when the file has this area; never cleared
};

struct VEXMELKERFOVField
{
    // Angles; empty when missing.
    CATUnicodeString top_angle;
    CATUnicodeString bottom_angle;
    CATUnicodeString driver_angle;
    CATUnicodeString offset; // length; "0mm" when missing
    // Filled for "reduced B" only.
    VEXMELKERFOVSubtractArea upper_area;
    VEXMELKERFOVSubtractArea side_area;
    VEXMELKERFOVSubtractArea lower_area;
    VEXMELKERFOVSubtractArea extended_a_field;
    unsigned char present = 0; // set when the file has this field; never cleared
};

struct VEXMELKERFieldsOfViewConfigDefinition
{
    std::array<VEXMELKERFOVField, 2> fields; // "extended A", "reduced B"
};

class ExportedByVEXMELKConfiguration VEXMELKERFieldsOfViewConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKERFieldsOfViewConfig(const CATUnicodeString& configurationDirectory);

    // Fills the record as far as the file goes; what it does not mention stays as it is, so callers pass a fresh
    // record. Fields and areas of other types are skipped. False, with the record untouched, when the standard has
    // neither the category nor "default".
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXMELKERFieldsOfViewConfigDefinition& definition);
};

#endif
