// The target zones of head impact. They belong to the standard as a whole: there are no categories, and each zone is a
// child of the standard.
#include "VEXMELKHeadImpactConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr VEXMELKElement Zone(const char* tag, VEXMELKRows rows)
{
    return {.tag = tag,
        .below = &VEXMELKCommon::standards,
        .tables = {rows},
        .meaning = "a zone; the first counts",
        .whenMissing = "fails"};
}

constexpr VEXMELKTable headGravityCenterTable{
    Length<&VEXMELKHeadGravityCenterDefinition::CG_FX_Offset>("CG_FX_Offset", "offsets"),
    Length<&VEXMELKHeadGravityCenterDefinition::CG_FZ_Offset>("CG_FZ_Offset", "offsets"),
    Length<&VEXMELKHeadGravityCenterDefinition::CG_RX_Offset>("CG_RX_Offset", "offsets"),
    Length<&VEXMELKHeadGravityCenterDefinition::CG_RZ_Offset>("CG_RZ_Offset", "offsets"),
};
constexpr VEXMELKElement headGravityCenter = Zone("HeadGravityCenter", headGravityCenterTable.rows);

constexpr VEXMELKTable upperRoofTable{
    Length<&VEXMELKUpperRoofDefinition::RoofSectionOffset>("RoofSectionOffset", "offsets"),
    NumberText<&VEXMELKUpperRoofDefinition::ActiveRoofRatio>("ActiveRoofRatio", "ratio", NotNegative),
    Angle<&VEXMELKUpperRoofDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKUpperRoofDefinition::MaxVAngle>("MaxVAngle", "angles"),
};
constexpr VEXMELKElement upperRoof = Zone("UpperRoof", upperRoofTable.rows);

constexpr VEXMELKWord measurementMethods[] = {{"0", 0}, {"1", 1}, {"2", 2}};
constexpr VEXMELKTable aPillarTable{
    Length<&VEXMELKAPillarDefinition::AP2_Offset>("AP2_Offset", "offsets"),
    Length<&VEXMELKAPillarDefinition::PT1_Offset>("PT1_Offset", "offsets"),
    Length<&VEXMELKAPillarDefinition::PT2_Offset>("PT2_Offset", "offsets"),
    Angle<&VEXMELKAPillarDefinition::MaxHLeftAngle>("MaxHLeftAngle", "angles"),
    Angle<&VEXMELKAPillarDefinition::MaxHRightAngle>("MaxHRightAngle", "angles"),
    Angle<&VEXMELKAPillarDefinition::MaxVAngle>("MaxVAngle", "angles"),
    Angle<&VEXMELKAPillarDefinition::MinHLeftAngle>("MinHLeftAngle", "angles"),
    Angle<&VEXMELKAPillarDefinition::MinHRightAngle>("MinHRightAngle", "angles"),
    Angle<&VEXMELKAPillarDefinition::MinVAngle>("MinVAngle", "angles"),
    Word<&VEXMELKAPillarDefinition::MeasurementMethod>(
        "MeasurementMethod", {measurementMethods, 2}, "exactly `0` or `1`; anything else (`01`) is 2", Else(2)),
    Fraction<&VEXMELKAPillarDefinition::MaxMeasurementDeviation>("MaxMeasurementDeviation",
        "percentage, with or without `%`; handed out as a fraction (`5%` as 0.05)", Else(0.05), Share),
};
constexpr VEXMELKElement aPillar = Zone("APillar", aPillarTable.rows);

constexpr VEXMELKTable bPillarTable{
    Angle<&VEXMELKBPillarDefinition::MinHLeftAngle>("MinHLeftAngle", "angles"),
    Angle<&VEXMELKBPillarDefinition::MaxHLeftAngle>("MaxHLeftAngle", "angles"),
    Angle<&VEXMELKBPillarDefinition::MinHRightAngle>("MinHRightAngle", "angles"),
    Angle<&VEXMELKBPillarDefinition::MaxHRightAngle>("MaxHRightAngle", "angles"),
    Angle<&VEXMELKBPillarDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKBPillarDefinition::MaxVAngle>("MaxVAngle", "angles"),
};
constexpr VEXMELKElement bPillar = Zone("BPillar", bPillarTable.rows);

constexpr VEXMELKTable rearmostPillarTable{
    Length<&VEXMELKRearmostPillarDefinition::RP2_Offset>("RP2_Offset", "offsets"),
    NumberText<&VEXMELKRearmostPillarDefinition::RP1_Ratio>("RP1_Ratio", "ratio", NotNegative),
    Angle<&VEXMELKRearmostPillarDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKRearmostPillarDefinition::MaxVAngle>("MaxVAngle", "angles"),
    Angle<&VEXMELKRearmostPillarDefinition::MinHLeftAngle>("MinHLeftAngle", "angles"),
    Angle<&VEXMELKRearmostPillarDefinition::MaxHLeftAngle>("MaxHLeftAngle", "angles"),
    Angle<&VEXMELKRearmostPillarDefinition::MinHRightAngle>("MinHRightAngle", "angles"),
    Angle<&VEXMELKRearmostPillarDefinition::MaxHRightAngle>("MaxHRightAngle", "angles"),
};
constexpr VEXMELKElement rearmostPillar = Zone("RearmostPillar", rearmostPillarTable.rows);

constexpr VEXMELKTable otherPillarTable{
    Angle<&VEXMELKOtherPillarDefinition::HLeftAngle>("HLeftAngle", "angles"),
    Angle<&VEXMELKOtherPillarDefinition::HRightAngle>("HRightAngle", "angles"),
    Angle<&VEXMELKOtherPillarDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKOtherPillarDefinition::MaxVAngle>("MaxVAngle", "angles"),
};
constexpr VEXMELKElement otherPillar = Zone("OtherPillar", otherPillarTable.rows);

constexpr VEXMELKTable frontHeaderTable{
    Length<&VEXMELKFrontHeaderDefinition::FH1_Offset>("FH1_Offset", "offsets"),
    Length<&VEXMELKFrontHeaderDefinition::FH2_Offset>("FH2_Offset", "offsets"),
    Angle<&VEXMELKFrontHeaderDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKFrontHeaderDefinition::MaxVAngle>("MaxVAngle", "angles"),
    Angle<&VEXMELKFrontHeaderDefinition::HAngle>("HAngle", "angles"),
};
constexpr VEXMELKElement frontHeader = Zone("FrontHeader", frontHeaderTable.rows);

constexpr VEXMELKTable rearHeaderTable{
    Length<&VEXMELKRearHeaderDefinition::RH_Offset>("RH_Offset", "offsets"),
    Angle<&VEXMELKRearHeaderDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKRearHeaderDefinition::MaxVAngle>("MaxVAngle", "angles"),
    Angle<&VEXMELKRearHeaderDefinition::HAngle>("HAngle", "angles"),
};
constexpr VEXMELKElement rearHeader = Zone("RearHeader", rearHeaderTable.rows);

constexpr VEXMELKTable sideRailTable{
    Length<&VEXMELKSideRailDefinition::SR1_Offset>("SR1_Offset", "offsets"),
    Length<&VEXMELKSideRailDefinition::SR2_Offset>("SR2_Offset", "offsets"),
    Length<&VEXMELKSideRailDefinition::SR3_Offset>("SR3_Offset", "offsets"),
    Angle<&VEXMELKSideRailDefinition::HLeftAngle>("HLeftAngle", "angles"),
    Angle<&VEXMELKSideRailDefinition::HRightAngle>("HRightAngle", "angles"),
    Angle<&VEXMELKSideRailDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKSideRailDefinition::MaxVAngle>("MaxVAngle", "angles"),
};
constexpr VEXMELKElement sideRail = Zone("SideRail", sideRailTable.rows);

constexpr VEXMELKTable slidingDoorTrackTable{
    Angle<&VEXMELKSlidingDoorTrackDefinition::HLeftAngle>("HLeftAngle", "angles"),
    Angle<&VEXMELKSlidingDoorTrackDefinition::HRightAngle>("HRightAngle", "angles"),
    Angle<&VEXMELKSlidingDoorTrackDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKSlidingDoorTrackDefinition::MaxVAngle>("MaxVAngle", "angles"),
};
constexpr VEXMELKElement slidingDoorTrack = Zone("SlidingDoorTrack", slidingDoorTrackTable.rows);

constexpr VEXMELKTable rollBarTable{
    Angle<&VEXMELKRollBarDefinition::HAngle>("HAngle", "angles"),
    Angle<&VEXMELKRollBarDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKRollBarDefinition::MaxVAngle>("MaxVAngle", "angles"),
};
constexpr VEXMELKElement rollBar = Zone("RollBar", rollBarTable.rows);

constexpr VEXMELKTable stiffenerBraceTable{
    Angle<&VEXMELKStiffenerBraceDefinition::HLeftAngle>("HLeftAngle", "angles"),
    Angle<&VEXMELKStiffenerBraceDefinition::HRightAngle>("HRightAngle", "angles"),
    Angle<&VEXMELKStiffenerBraceDefinition::MinVAngle>("MinVAngle", "angles"),
    Angle<&VEXMELKStiffenerBraceDefinition::MaxVAngle>("MaxVAngle", "angles"),
};
constexpr VEXMELKElement stiffenerBrace = Zone("StiffenerBrace", stiffenerBraceTable.rows);

constexpr const VEXMELKElement* elements[] = {&headGravityCenter, &upperRoof, &aPillar, &bPillar, &rearmostPillar,
    &otherPillar, &frontHeader, &rearHeader, &sideRail, &slidingDoorTrack, &rollBar, &stiffenerBrace};

} // namespace

template <>
constexpr auto VEXMELKFieldsOf<VEXMELKHeadGravityCenterDefinition> =
    VEXMELKFieldList<VEXMELKHeadGravityCenterDefinition>(headGravityCenterTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKUpperRoofDefinition> = VEXMELKFieldList<VEXMELKUpperRoofDefinition>(
    upperRoofTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKAPillarDefinition> = VEXMELKFieldList<VEXMELKAPillarDefinition>(aPillarTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKBPillarDefinition> = VEXMELKFieldList<VEXMELKBPillarDefinition>(bPillarTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKRearmostPillarDefinition> = VEXMELKFieldList<VEXMELKRearmostPillarDefinition>(
    rearmostPillarTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKOtherPillarDefinition> = VEXMELKFieldList<VEXMELKOtherPillarDefinition>(
    otherPillarTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKFrontHeaderDefinition> = VEXMELKFieldList<VEXMELKFrontHeaderDefinition>(
    frontHeaderTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKRearHeaderDefinition> = VEXMELKFieldList<VEXMELKRearHeaderDefinition>(
    rearHeaderTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKSideRailDefinition> = VEXMELKFieldList<VEXMELKSideRailDefinition>(sideRailTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKSlidingDoorTrackDefinition> = VEXMELKFieldList<VEXMELKSlidingDoorTrackDefinition>(
    slidingDoorTrackTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKRollBarDefinition> = VEXMELKFieldList<VEXMELKRollBarDefinition>(rollBarTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKStiffenerBraceDefinition> = VEXMELKFieldList<VEXMELKStiffenerBraceDefinition>(
    stiffenerBraceTable);
template <>
constexpr auto VEXMELKFieldsOf<VEXMELKHeadImpactDefinition> = VEXMELKFieldList<VEXMELKHeadImpactDefinition>(
    VEXMELKNested<&VEXMELKHeadImpactDefinition::HeadGravityCenter>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::UpperRoof>(), VEXMELKNested<&VEXMELKHeadImpactDefinition::APillar>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::BPillar>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::RearmostPillar>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::OtherPillar>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::FrontHeader>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::RearHeader>(), VEXMELKNested<&VEXMELKHeadImpactDefinition::SideRail>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::SlidingDoorTrack>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::RollBar>(),
    VEXMELKNested<&VEXMELKHeadImpactDefinition::StiffenerBrace>());

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetHeadGravityCenterSData>(
        "GetHeadGravityCenterSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetUpperRoofSData>(
        "GetUpperRoofSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetAPillarSData>(
        "GetAPillarSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetBPillarSData>(
        "GetBPillarSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetRearmostPillarSData>(
        "GetRearmostPillarSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetOtherPillarSData>(
        "GetOtherPillarSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetFrontHeaderSData>(
        "GetFrontHeaderSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetRearHeaderSData>(
        "GetRearHeaderSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetSideRailSData>(
        "GetSideRailSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetSlidingDoorTrackSData>(
        "GetSlidingDoorTrackSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetRollBarSData>(
        "GetRollBarSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetStiffenerBraceSData>(
        "GetStiffenerBraceSData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetStandardData>(
        "GetStandardData", standardArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKHeadImpactConfig::GetStandardNames>("GetStandardNames", Output("names")),
};

constinit const VEXMELKDescription VEXMELKHeadImpactConfig::description{
    .name = "HeadImpact",
    .file = "Safety\\HeadImpact.xml",
    .meaning = "The target zones of the interior head-impact check.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKHeadImpactConfig::VEXMELKHeadImpactConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

template <class Table, class Record>
unsigned char VEXMELKHeadImpactConfig::ReadZone(
    const CATUnicodeString& standard, const VEXMELKElement& zone, const Table& table, Record& record)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = Find(GetStandardElement(standard), zone);
            if (element == NULL_var)
                return 0;
            ReadFields(Decimals(), element, table, record);
            return 1;
        });
}

unsigned char VEXMELKHeadImpactConfig::GetHeadGravityCenterSData(
    const CATUnicodeString& standard, VEXMELKHeadGravityCenterDefinition& definition)
{
    return ReadZone(standard, headGravityCenter, headGravityCenterTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetUpperRoofSData(
    const CATUnicodeString& standard, VEXMELKUpperRoofDefinition& definition)
{
    return ReadZone(standard, upperRoof, upperRoofTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetAPillarSData(
    const CATUnicodeString& standard, VEXMELKAPillarDefinition& definition)
{
    return ReadZone(standard, aPillar, aPillarTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetBPillarSData(
    const CATUnicodeString& standard, VEXMELKBPillarDefinition& definition)
{
    return ReadZone(standard, bPillar, bPillarTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetRearmostPillarSData(
    const CATUnicodeString& standard, VEXMELKRearmostPillarDefinition& definition)
{
    return ReadZone(standard, rearmostPillar, rearmostPillarTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetOtherPillarSData(
    const CATUnicodeString& standard, VEXMELKOtherPillarDefinition& definition)
{
    return ReadZone(standard, otherPillar, otherPillarTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetFrontHeaderSData(
    const CATUnicodeString& standard, VEXMELKFrontHeaderDefinition& definition)
{
    return ReadZone(standard, frontHeader, frontHeaderTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetRearHeaderSData(
    const CATUnicodeString& standard, VEXMELKRearHeaderDefinition& definition)
{
    return ReadZone(standard, rearHeader, rearHeaderTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetSideRailSData(
    const CATUnicodeString& standard, VEXMELKSideRailDefinition& definition)
{
    return ReadZone(standard, sideRail, sideRailTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetSlidingDoorTrackSData(
    const CATUnicodeString& standard, VEXMELKSlidingDoorTrackDefinition& definition)
{
    return ReadZone(standard, slidingDoorTrack, slidingDoorTrackTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetRollBarSData(
    const CATUnicodeString& standard, VEXMELKRollBarDefinition& definition)
{
    return ReadZone(standard, rollBar, rollBarTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetStiffenerBraceSData(
    const CATUnicodeString& standard, VEXMELKStiffenerBraceDefinition& definition)
{
    return ReadZone(standard, stiffenerBrace, stiffenerBraceTable, definition);
}

unsigned char VEXMELKHeadImpactConfig::GetStandardData(
    const CATUnicodeString& standard, VEXMELKHeadImpactDefinition& definition)
{
    return Answer(*this,
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
    Answer(*this, [&] { GetRootChildNames(VEXMELKCommon::standards, names); });
}
