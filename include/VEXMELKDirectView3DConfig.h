// VEXMELKDirectView3DConfig: how a three-dimensional direct view is computed, from "Vision\DirectView3D.xml".
//
//     <standard name="..."><category name="default" ComputationType="Ambinocular" ViewRange="120deg" Direction="left">
//       <Target type="Spherical" Distance="1500mm"/>
//     </category></standard>
//
// A category that is missing is replaced by "default".
#ifndef VEXMELKDirectView3DConfig_H
#define VEXMELKDirectView3DConfig_H

#include "VEXMELKUnderfloorConfig.h"

enum VEXMELKDV3DOrientation : int
{
    DV3DFrontward = 0, // "frontward", or no text
    DV3DBackward = 1,  // "backward"
    DV3DLeft = 2,      // "left"
    DV3DRight = 3,     // "right"
    DV3DAngle = 4      // any other text: an angle in degrees
};

enum VEXMELKDV3DComputationType : int
{
    DV3DMonocular = 0,  // "Monocular", or any text that is not known
    DV3DAmbinocular = 1 // "Ambinocular"
};

enum VEXMELKDV3DTargetType : int
{
    DV3DParallel = 0,      // "Parallel"
    DV3DPerpendicular = 1, // "Perpendicular", or any text that is not known
    DV3DSpherical = 2      // "Spherical"
};

struct VEXMELKDirectView3DCFG
{
    // The texts of the file; empty when missing.
    CATUnicodeString ComputationTypeText;
    CATUnicodeString TargetTypeText;
    CATUnicodeString DirectionText;
    VEXMELKDV3DComputationType ComputationType = DV3DMonocular;
    VEXMELKDV3DTargetType TargetType = DV3DParallel;
    double ViewRange = 0.0;      // radians; 0 when missing
    double TargetDistance = 0.0; // millimetres; 0 when missing
    VEXMELKDV3DOrientation Orientation = DV3DFrontward;
    double DirectionAngle = 0.0; // radians; 0 unless the direction is an angle
};

class ExportedByVEXMELKConfiguration VEXMELKDirectView3DConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKDirectView3DConfig(const CATUnicodeString& configurationDirectory);

    // Fills the record from the category, values that it leaves out from "default", and from its first "Target";
    // without one the fields of the target stay. Always true, also when nothing was found and the record is untouched.
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKDirectView3DCFG& definition);

    // The orientation of a direction text, and its angle in radians: that of a number of degrees, 0 for a keyword or a
    // text that is no number.
    double DirectionFromString(CATUnicodeString& text, VEXMELKDV3DOrientation& orientation);
    VEXMELKDV3DComputationType ComputationTypeFromString(CATUnicodeString& text);
    VEXMELKDV3DTargetType TargetTypeFromString(CATUnicodeString& text);
};

#endif
