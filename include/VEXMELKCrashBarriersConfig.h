// VEXMELKCrashBarriersConfig: the crash barriers that a standard places against the vehicle, and their shapes, from
// "OVA\CrashBarriers.xml".
//
//     <shape name="RCAR 2006" Width="1500mm" Depth="..." .../>              below the root, shared by all standards
//     <standard name="..."><category name="default">
//       <barrier shape="RCAR 2006" Position="front" Overlapping="40" OverlappingSide="left" Rotation="10deg" .../>
//     </category></standard>
//
// Texts carry their unit. A category that is missing is replaced by "default".
#ifndef VEXMELKCrashBarriersConfig_H
#define VEXMELKCrashBarriersConfig_H

#include "VEXArray.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKInterfaces.h"

// One barrier. The comments tell what a missing attribute gives; missing flags are false. A name of an enumeration that
// is not known is its value 0.
struct VEXMELKBarrierDefinition
{
    unsigned char AllowMovingAroundX = 0;
    CATUnicodeString DeltaZLeft;  // as written; "0mm"
    CATUnicodeString DeltaZRight; // as written; "0mm"
    VEXIMELKCrashBarrier::ShapeType shape = VEXIMELKCrashBarrier::RCAR2004Front;
    unsigned char ReferencePart = 0;
    CATUnicodeString loading; // as written; empty
    VEXIMELKCrashBarrier::PositionType Position = VEXIMELKCrashBarrier::Front;
    // A fraction of the vehicle's width, 1.0 is full: the file's percentage / 100. A missing one repeats that of the
    // barrier before it, 0 for the first.
    double Overlapping = 0.0;
    CATUnicodeString Rotation;     // angle; "0deg"
    unsigned char midPosition = 0; // whether "Overlapping" is "mid_position"; Overlapping is 1.0 then
    VEXIMELKCrashBarrier::OverlappingSide OverlappingSide = VEXIMELKCrashBarrier::LeftSide;
    unsigned char PositionToGeometry = 0;
    unsigned char EnableAdditionalShift = 0;
    CATUnicodeString AdditionalShift; // length; "0mm"
    CATUnicodeString HeightAboveRoad; // length; empty
};

// The dimensions of one shape. What has no default is left as the caller had it when missing, so callers pass a fresh
// record.
struct VEXMELKShapeDefinition
{
    VEXIMELKCrashBarrier::ShapeType type = VEXIMELKCrashBarrier::RCAR2004Front; // set by the caller
    CATUnicodeString MinRelWidth;                                               // as written; "0.5" when missing
    CATUnicodeString MinWidth;                                                  // length; "1200mm" when missing
    // Lengths.
    CATUnicodeString Width;
    CATUnicodeString Depth;
    CATUnicodeString Height;
    CATUnicodeString Radius;
    CATUnicodeString HeightAboveRoad;
    CATUnicodeString Radius2;
    CATUnicodeString BaseRadius;
    CATUnicodeString BaseDepth;
    CATUnicodeString BaseHeight;
    CATUnicodeString BaseFPDepth;
    CATUnicodeString BaseFPMainRadius;
    CATUnicodeString BaseFPSideRadius;
    CATUnicodeString TriangleHeight;
    CATUnicodeString TriangleToFP;
    CATUnicodeString TriangleSideDepth;
    CATUnicodeString ReferencePart; // as written
    CATUnicodeString Alpha;         // angle; "10deg" when missing
};

class ExportedByVEXMELKConfiguration VEXMELKCrashBarriersConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKCrashBarriersConfig(const CATUnicodeString& configurationDirectory);

    // Replaces the array by the category's barriers in document order. False, with the array empty, when the standard
    // has no data for the category.
    unsigned char GetStandardData(const CATUnicodeString& standard, const CATUnicodeString& category,
        VEXArray<VEXMELKBarrierDefinition>& barriers);

    // Fills the dimensions of the shape whose type the caller set; a shape is taken from the customer document, else
    // from the base document. False, with the record untouched, when there is none.
    unsigned char GetShapeData(VEXMELKShapeDefinition& shape);

private:
    CATUnicodeString GetShapeNameFromType(VEXIMELKCrashBarrier::ShapeType type) const;
    VEXIMELKCrashBarrier::ShapeType GetShapeTypeFromName(const CATUnicodeString& name) const;
    VEXIMELKCrashBarrier::PositionType GetPosTypeFromName(const CATUnicodeString& name) const;
    VEXIMELKCrashBarrier::OverlappingSide GetSideTypeFromName(const CATUnicodeString& name) const;
    void ReadBarrier(const CATIDOMElement_var& element, VEXMELKBarrierDefinition& barrier) const;
};

#endif
