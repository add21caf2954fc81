// VEXMELKBumpersConfig: the test bumpers (pendulum faces) that are applied to the vehicle, from "OVA\Bumpers.xml".
//
//     <Profile name="ECE" NoseRadius="..." Width="..." .../>                below the root, shared by all standards
//     <standard name="..."><category name="default">
//       <MiddlePendulum>
//         <bumper loading="..." Position="front" Limit="445mm" Offset="0mm" Angle="30deg" Profile="ECE"/>
//       </MiddlePendulum>
//     </category></standard>
//
// Texts carry their unit. A category that is missing is replaced by "default".
#ifndef VEXMELKBumpersConfig_H
#define VEXMELKBumpersConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKInterfaces.h"

// One test bumper.
struct VEXMELKBumpersDefinition
{
    // Of the profile; empty when missing, but the five that are marked: a missing one of those repeats that of the
    // bumper before it.
    CATUnicodeString NoseRadius;       // length
    CATUnicodeString SideRadius;       // length
    CATUnicodeString NoseAngle;        // angle
    CATUnicodeString SideAngle;        // angle
    CATUnicodeString NoseHeight;       // length
    CATUnicodeString NoseLength;       // length
    CATUnicodeString Width;            // length, repeated
    CATUnicodeString Height;           // length, repeated
    CATUnicodeString Extension;        // length, repeated
    CATUnicodeString Depth;            // length, repeated
    CATUnicodeString FilletRadius;     // length, repeated
    CATUnicodeString RenderHeight;     // length
    CATUnicodeString RenderDepth;      // length
    CATUnicodeString RenderDistance;   // length
    CATUnicodeString CenterLineLength; // length
    // Of the bumper.
    CATUnicodeString loading;   // as written; empty when missing
    unsigned char Position = 0; // whether it is exactly "front"
    CATUnicodeString Limit;     // length; empty when missing
    CATUnicodeString Offset;    // length; empty when missing
    CATUnicodeString Angle;     // angle; "30.0deg" when missing
};

class ExportedByVEXMELKConfiguration VEXMELKBumpersConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKBumpersConfig(const CATUnicodeString& configurationDirectory);
    VEXMELKBumpersConfig(const VEXMELKBumpersConfig& other);

    // Replaces the array by the bumpers of the category's first pendulum of the type. A missing pendulum and an unknown
    // type give an empty array; an unknown profile gives a bumper without one. False, with the array empty, when the
    // standard has no data for the category.
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category, BumperType type,
        VEXArray<VEXMELKBumpersDefinition>& bumpers);

private:
    unsigned char GetPendulumData(const CATUnicodeString& pendulumElementName,
        const CATIDOMElement_var& categoryElement, VEXArray<VEXMELKBumpersDefinition>& bumpers);
    unsigned char GetProfileData(const CATUnicodeString& profileName, VEXMELKBumpersDefinition& bumper);
};

#endif
