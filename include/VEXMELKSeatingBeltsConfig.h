// VEXMELKSeatingBeltsConfig: the data of the seat-belt anchorage checks, from "OVA\SeatingBelts.xml".
//
//     <standard name="..."><category name="default" EUApproach="true" USLowXShift="20mm" PlaneDistP="100mm" ...>
//       <front PA1="30deg" PA2="80deg" .../><back PA1="30deg" .../>
//       <ShAnchor SMin="140mm" ShL1a="..." ShMulti1a="1.2" .../>
//     </category></standard>
//
// Values are texts with their unit unless stated. A category that is missing is replaced by "default".
#ifndef VEXMELKSeatingBeltsConfig_H
#define VEXMELKSeatingBeltsConfig_H

#include "VEXMELKCheckConfig.h"

// Of the category, else of "default". A missing flag is false, but BackAngleEditAble true; a missing length is empty.
struct VEXMELKSBTandardCfgDefinition
{
    unsigned char EUApproach = 0;
    unsigned char BackAngleEditAble = 0;
    unsigned char Trans1IsSpecial = 0;
    unsigned char Trans2IsSpecial = 0;
    unsigned char Trans3IsSpecial = 0;
    // Lengths.
    CATUnicodeString USLowShiftThreshold;
    CATUnicodeString USLowXShift;
    CATUnicodeString USLowZShift;
    CATUnicodeString PlaneDistP;
    CATUnicodeString PlaneDistQ;
    CATUnicodeString PlaneDistR;
};

// Angles; empty when missing.
struct VEXMELKSBAnglesCfgDefinition
{
    CATUnicodeString PA1;
    CATUnicodeString PA2;
    CATUnicodeString PA1X;
    CATUnicodeString PA2X;
    CATUnicodeString QA1;
    CATUnicodeString QA2;
    CATUnicodeString QA1X;
    CATUnicodeString QA2X;
};

struct VEXMELKSBShAnchorCfgDefinition
{
    // Lengths; empty when missing.
    CATUnicodeString SMin;
    CATUnicodeString SMax;
    CATUnicodeString ShL1a;
    CATUnicodeString ShL2;
    CATUnicodeString ShL3a;
    CATUnicodeString ShL3b;
    CATUnicodeString ShL4;
    CATUnicodeString ShL1b;
    CATUnicodeString ShThrA;
    CATUnicodeString ShThrB;
    CATUnicodeString ShA1;
    CATUnicodeString ShA2;
    CATUnicodeString ShA2RearAlt;
    // Plain numbers; 0 when missing. A text that is no number leaves the caller's value.
    double ShMulti1a = 0.0;
    double ShMulti2a = 0.0;
    double ShMulti1b = 0.0;
    double ShMulti2b = 0.0;
};

class ExportedByVEXMELKConfiguration VEXMELKSeatingBeltsConfig : public VEXMELKCheckConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKSeatingBeltsConfig(const CATUnicodeString& configurationDirectory);

    // False, with the record untouched, when the standard has neither the category nor "default".
    unsigned char GetStandardData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKSBTandardCfgDefinition& definition);

    // The belt angles of the first "front" or "back". Always true, also when there is none and the record is untouched.
    unsigned char GetSBAnglesData(const CATUnicodeString& standard, const CATUnicodeString& category,
        unsigned char front, VEXMELKSBAnglesCfgDefinition& definition);

    // The first "ShAnchor". Always true, also when there is none and the record is untouched.
    unsigned char GetSBShAnchorData(
        const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKSBShAnchorCfgDefinition& definition);

private:
    // The number that the text stands for; E_FAIL, with the value untouched, when it is none. The delimiters are not
    // used.
    static long str2double(double& value, const char* text, char* delimiters);
};

#endif
