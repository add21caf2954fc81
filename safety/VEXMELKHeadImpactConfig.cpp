#include "VEXMELKHeadImpactConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

namespace {

int MeasurementMethodFromText(const CATUnicodeString& text)
{
    if (text == "0")
        return 0;
    return text == "1" ? 1 : 2;
}

double FractionFromPercent(const CATUnicodeString& text) { return NumberFromText(text) / 100.0; }

} // namespace

VEXMELKHeadImpactConfig::VEXMELKHeadImpactConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("Safety") + "\\" + "HeadImpact.xml")
{
}

unsigned char VEXMELKHeadImpactConfig::ReadZone(
    const CATUnicodeString& standard, std::string_view tag, std::initializer_list<VEXMELKField> fields)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = FirstChild(GetStandardElement(standard), tag);
            if (element == NULL_var)
                return 0;
            ReadFields(element, NULL_var, fields);
            return 1;
        });
}

unsigned char VEXMELKHeadImpactConfig::GetHeadGravityCenterSData(
    const CATUnicodeString& standard, VEXMELKHeadGravityCenterDefinition& definition)
{
    return ReadZone(standard, "HeadGravityCenter",
        {
            {"CG_FX_Offset", "mm", definition.CG_FX_Offset},
            {"CG_FZ_Offset", "mm", definition.CG_FZ_Offset},
            {"CG_RX_Offset", "mm", definition.CG_RX_Offset},
            {"CG_RZ_Offset", "mm", definition.CG_RZ_Offset},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetUpperRoofSData(
    const CATUnicodeString& standard, VEXMELKUpperRoofDefinition& definition)
{
    return ReadZone(standard, "UpperRoof",
        {
            {"RoofSectionOffset", "mm", definition.RoofSectionOffset},
            {"ActiveRoofRatio", "", definition.ActiveRoofRatio},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetAPillarSData(
    const CATUnicodeString& standard, VEXMELKAPillarDefinition& definition)
{
    return ReadZone(standard, "APillar",
        {
            {"AP2_Offset", "mm", definition.AP2_Offset},
            {"PT1_Offset", "mm", definition.PT1_Offset},
            {"PT2_Offset", "mm", definition.PT2_Offset},
            {"MaxHLeftAngle", "deg", definition.MaxHLeftAngle},
            {"MaxHRightAngle", "deg", definition.MaxHRightAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
            {"MinHLeftAngle", "deg", definition.MinHLeftAngle},
            {"MinHRightAngle", "deg", definition.MinHRightAngle},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MeasurementMethod", "", definition.MeasurementMethod, As<MeasurementMethodFromText>, 2},
            {"MaxMeasurementDeviation", "%", definition.MaxMeasurementDeviation, As<FractionFromPercent>, 0.05},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetBPillarSData(
    const CATUnicodeString& standard, VEXMELKBPillarDefinition& definition)
{
    return ReadZone(standard, "BPillar",
        {
            {"MinHLeftAngle", "deg", definition.MinHLeftAngle},
            {"MaxHLeftAngle", "deg", definition.MaxHLeftAngle},
            {"MinHRightAngle", "deg", definition.MinHRightAngle},
            {"MaxHRightAngle", "deg", definition.MaxHRightAngle},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetRearmostPillarSData(
    const CATUnicodeString& standard, VEXMELKRearmostPillarDefinition& definition)
{
    return ReadZone(standard, "RearmostPillar",
        {
            {"RP2_Offset", "mm", definition.RP2_Offset},
            {"RP1_Ratio", "", definition.RP1_Ratio},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
            {"MinHLeftAngle", "deg", definition.MinHLeftAngle},
            {"MaxHLeftAngle", "deg", definition.MaxHLeftAngle},
            {"MinHRightAngle", "deg", definition.MinHRightAngle},
            {"MaxHRightAngle", "deg", definition.MaxHRightAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetOtherPillarSData(
    const CATUnicodeString& standard, VEXMELKOtherPillarDefinition& definition)
{
    return ReadZone(standard, "OtherPillar",
        {
            {"HLeftAngle", "deg", definition.HLeftAngle},
            {"HRightAngle", "deg", definition.HRightAngle},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetFrontHeaderSData(
    const CATUnicodeString& standard, VEXMELKFrontHeaderDefinition& definition)
{
    return ReadZone(standard, "FrontHeader",
        {
            {"FH1_Offset", "mm", definition.FH1_Offset},
            {"FH2_Offset", "mm", definition.FH2_Offset},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
            {"HAngle", "deg", definition.HAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetRearHeaderSData(
    const CATUnicodeString& standard, VEXMELKRearHeaderDefinition& definition)
{
    return ReadZone(standard, "RearHeader",
        {
            {"RH_Offset", "mm", definition.RH_Offset},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
            {"HAngle", "deg", definition.HAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetSideRailSData(
    const CATUnicodeString& standard, VEXMELKSideRailDefinition& definition)
{
    return ReadZone(standard, "SideRail",
        {
            {"SR1_Offset", "mm", definition.SR1_Offset},
            {"SR2_Offset", "mm", definition.SR2_Offset},
            {"SR3_Offset", "mm", definition.SR3_Offset},
            {"HLeftAngle", "deg", definition.HLeftAngle},
            {"HRightAngle", "deg", definition.HRightAngle},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetSlidingDoorTrackSData(
    const CATUnicodeString& standard, VEXMELKSlidingDoorTrackDefinition& definition)
{
    return ReadZone(standard, "SlidingDoorTrack",
        {
            {"HLeftAngle", "deg", definition.HLeftAngle},
            {"HRightAngle", "deg", definition.HRightAngle},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetRollBarSData(
    const CATUnicodeString& standard, VEXMELKRollBarDefinition& definition)
{
    return ReadZone(standard, "RollBar",
        {
            {"HAngle", "deg", definition.HAngle},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetStiffenerBraceSData(
    const CATUnicodeString& standard, VEXMELKStiffenerBraceDefinition& definition)
{
    return ReadZone(standard, "StiffenerBrace",
        {
            {"HLeftAngle", "deg", definition.HLeftAngle},
            {"HRightAngle", "deg", definition.HRightAngle},
            {"MinVAngle", "deg", definition.MinVAngle},
            {"MaxVAngle", "deg", definition.MaxVAngle},
        });
}

unsigned char VEXMELKHeadImpactConfig::GetStandardData(
    const CATUnicodeString& standard, VEXMELKHeadImpactDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            return GetHeadGravityCenterSData(standard, definition.HeadGravityCenter) &&
                   GetUpperRoofSData(standard, definition.UpperRoof) && GetAPillarSData(standard, definition.APillar) &&
                   GetBPillarSData(standard, definition.BPillar) &&
                   GetRearmostPillarSData(standard, definition.RearmostPillar) &&
                   GetOtherPillarSData(standard, definition.OtherPillar) &&
                   GetFrontHeaderSData(standard, definition.FrontHeader) &&
                   GetRearHeaderSData(standard, definition.RearHeader) &&
                   GetSideRailSData(standard, definition.SideRail) &&
                   GetSlidingDoorTrackSData(standard, definition.SlidingDoorTrack) &&
                   GetRollBarSData(standard, definition.RollBar) &&
                   GetStiffenerBraceSData(standard, definition.StiffenerBrace);
        });
}

void VEXMELKHeadImpactConfig::GetStandardNames(CATListValCATUnicodeString& names)
{
    Answer([&] { GetRootChildNames("standard", names); });
}
