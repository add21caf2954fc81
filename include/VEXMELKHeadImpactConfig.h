// VEXMELKHeadImpactConfig: the target zones of the interior head-impact check, from "Safety\HeadImpact.xml".
//
//     <standard name="...">
//       <HeadGravityCenter CG_FX_Offset="160mm" .../>
//       <APillar PT1_Offset="..." MinVAngle="-5deg" ... MeasurementMethod="0" MaxMeasurementDeviation="5%"/>
//       ... one element a zone
//     </standard>
//
// The zones belong to the standard as a whole: there are no categories. Offsets and angles are texts with their unit,
// ratios texts as written; a missing value is empty. A standard is taken whole from the customer document, else from
// the base document.
#ifndef VEXMELKHeadImpactConfig_H
#define VEXMELKHeadImpactConfig_H

#include "VEXMELKUnderfloorConfig.h"

struct VEXMELKHeadGravityCenterDefinition
{
    CATUnicodeString CG_FX_Offset;
    CATUnicodeString CG_FZ_Offset;
    CATUnicodeString CG_RX_Offset;
    CATUnicodeString CG_RZ_Offset;
};

struct VEXMELKUpperRoofDefinition
{
    CATUnicodeString RoofSectionOffset;
    CATUnicodeString ActiveRoofRatio;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
};

struct VEXMELKAPillarDefinition
{
    CATUnicodeString PT1_Offset;
    CATUnicodeString PT2_Offset;
    CATUnicodeString AP2_Offset;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
    CATUnicodeString MinHLeftAngle;
    CATUnicodeString MaxHLeftAngle;
    CATUnicodeString MinHRightAngle;
    CATUnicodeString MaxHRightAngle;
    int MeasurementMethod = 0;            // 0 or 1 for exactly "0" or "1", 2 for all else and when missing
    double MaxMeasurementDeviation = 0.0; // a fraction: the file's percentage / 100; 0.05 when missing
};

struct VEXMELKBPillarDefinition
{
    CATUnicodeString MinHLeftAngle;
    CATUnicodeString MaxHLeftAngle;
    CATUnicodeString MinHRightAngle;
    CATUnicodeString MaxHRightAngle;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
};

struct VEXMELKRearmostPillarDefinition
{
    CATUnicodeString RP2_Offset;
    CATUnicodeString RP1_Ratio;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
    CATUnicodeString MinHLeftAngle;
    CATUnicodeString MaxHLeftAngle;
    CATUnicodeString MinHRightAngle;
    CATUnicodeString MaxHRightAngle;
};

struct VEXMELKOtherPillarDefinition
{
    CATUnicodeString HLeftAngle;
    CATUnicodeString HRightAngle;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
};

struct VEXMELKFrontHeaderDefinition
{
    CATUnicodeString FH1_Offset;
    CATUnicodeString FH2_Offset;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
    CATUnicodeString HAngle;
};

struct VEXMELKRearHeaderDefinition
{
    CATUnicodeString RH_Offset;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
    CATUnicodeString HAngle;
};

struct VEXMELKSideRailDefinition
{
    CATUnicodeString SR1_Offset;
    CATUnicodeString SR2_Offset;
    CATUnicodeString SR3_Offset;
    CATUnicodeString HLeftAngle;
    CATUnicodeString HRightAngle;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
};

struct VEXMELKSlidingDoorTrackDefinition
{
    CATUnicodeString HLeftAngle;
    CATUnicodeString HRightAngle;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
};

struct VEXMELKRollBarDefinition
{
    CATUnicodeString HAngle;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
};

struct VEXMELKStiffenerBraceDefinition
{
    CATUnicodeString HLeftAngle;
    CATUnicodeString HRightAngle;
    CATUnicodeString MinVAngle;
    CATUnicodeString MaxVAngle;
};

struct VEXMELKHeadImpactDefinition
{
    VEXMELKHeadGravityCenterDefinition HeadGravityCenter;
    VEXMELKUpperRoofDefinition UpperRoof;
    VEXMELKAPillarDefinition APillar;
    VEXMELKBPillarDefinition BPillar;
    VEXMELKRearmostPillarDefinition RearmostPillar;
    VEXMELKOtherPillarDefinition OtherPillar;
    VEXMELKFrontHeaderDefinition FrontHeader;
    VEXMELKRearHeaderDefinition RearHeader;
    VEXMELKSideRailDefinition SideRail;
    VEXMELKSlidingDoorTrackDefinition SlidingDoorTrack;
    VEXMELKRollBarDefinition RollBar;
    VEXMELKStiffenerBraceDefinition StiffenerBrace;
};

class ExportedByVEXMELKConfiguration VEXMELKHeadImpactConfig : public VEXMELKUnderfloorConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKHeadImpactConfig(const CATUnicodeString& configurationDirectory);

    // Each fills one zone. False, with the record untouched, when the standard does not have it.
    unsigned char GetHeadGravityCenterSData(
        const CATUnicodeString& standard, VEXMELKHeadGravityCenterDefinition& definition);
    unsigned char GetUpperRoofSData(const CATUnicodeString& standard, VEXMELKUpperRoofDefinition& definition);
    unsigned char GetAPillarSData(const CATUnicodeString& standard, VEXMELKAPillarDefinition& definition);
    unsigned char GetBPillarSData(const CATUnicodeString& standard, VEXMELKBPillarDefinition& definition);
    unsigned char GetRearmostPillarSData(const CATUnicodeString& standard, VEXMELKRearmostPillarDefinition& definition);
    unsigned char GetOtherPillarSData(const CATUnicodeString& standard, VEXMELKOtherPillarDefinition& definition);
    unsigned char GetFrontHeaderSData(const CATUnicodeString& standard, VEXMELKFrontHeaderDefinition& definition);
    unsigned char GetRearHeaderSData(const CATUnicodeString& standard, VEXMELKRearHeaderDefinition& definition);
    unsigned char GetSideRailSData(const CATUnicodeString& standard, VEXMELKSideRailDefinition& definition);
    unsigned char GetSlidingDoorTrackSData(
        const CATUnicodeString& standard, VEXMELKSlidingDoorTrackDefinition& definition);
    unsigned char GetRollBarSData(const CATUnicodeString& standard, VEXMELKRollBarDefinition& definition);
    unsigned char GetStiffenerBraceSData(const CATUnicodeString& standard, VEXMELKStiffenerBraceDefinition& definition);

    // Fills the zones in their order, up to the first that the standard does not have: false then, with that and the
    // later ones untouched.
    unsigned char GetStandardData(const CATUnicodeString& standard, VEXMELKHeadImpactDefinition& definition);

    // Replaces the list by the names of the standards: those of the customer document, then those that only the base
    // document has.
    void GetStandardNames(CATListValCATUnicodeString& names);

private:
    template <class Table, class Record>
    unsigned char ReadZone(
        const CATUnicodeString& standard, const VEXMELKElement& zone, const Table& table, Record& record);
};

#endif
