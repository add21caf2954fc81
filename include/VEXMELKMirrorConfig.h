// VEXMELKMirrorConfig: how the field of view of each rear-view mirror is checked, from "Vision\Mirror.xml".
//
//     <standard name="..." USBackLineDistance="10700mm" USAngle="..." infinite_size="100000mm"><category
//     name="default">
//       <InstructionField PositionType="Interior" Plane="road" X="60000mm" XREL="..." ReqTotalCoverage="...">
//         <Point TargetOnRoad="true" X="..." XREL="..." Z="..." ZREL="..." Y="..." YREL="..." R="..."/>
//       </InstructionField>
//     </category></standard>
//
// Values are texts with their unit; a missing one is empty. A category that is missing is replaced by "default".
#ifndef VEXMELKMirrorConfig_H
#define VEXMELKMirrorConfig_H

#include "VEXArray.h"
#include "VEXMELKUnderfloorConfig.h"

// A point that the mirror must show. It lies on the road when the plane is "road" or its "TargetOnRoad" is "true".
struct VEXMELKMirrorPointDefinition
{
    CATUnicodeString Coordinate1;    // length: "X" of a point on the road, else "Z"
    CATUnicodeString Coordinate1REL; // what it is measured from: "XREL" or "ZREL"
    CATUnicodeString Y;              // length
    CATUnicodeString YREL;
    CATUnicodeString R; // length: the radius about the point
};

struct VEXMELKMirrorDefinition
{
    // Of the standard.
    CATUnicodeString USBackLineDistance; // length
    CATUnicodeString USAngle;            // angle
    CATUnicodeString infinite_size;      // length
    // Of the position.
    CATUnicodeString PositionType;
    CATUnicodeString Plane; // in lower case
    CATUnicodeString X;     // length
    CATUnicodeString XREL;
    VEXArray<VEXMELKMirrorPointDefinition> Points;
    CATUnicodeString ReqTotalCoverage;
};

class ExportedByVEXMELKConfiguration VEXMELKMirrorConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKMirrorConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the list by the names of the category's positions. False, with the list untouched, when the standard has
    // no data for the category.
    unsigned char GetIFNamesList(
        const CATUnicodeString& standard, const CATUnicodeString& category, CATListValCATUnicodeString& names);

    // The wanted position when the category has it, else its first position, else empty.
    CATUnicodeString GetPosition(
        const CATUnicodeString& standard, const CATUnicodeString& category, const CATUnicodeString& position);

    // The data of the standard, then those of the first position of that name. Points are appended, so callers pass a
    // fresh record. True, with only the standard's data filled, when there is no such position; false, likewise, when
    // the standard has no data for the category.
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        const CATUnicodeString& position, VEXMELKMirrorDefinition& definition);
};

#endif
