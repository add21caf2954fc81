#include "VEXMELKUFCompleteConfig.h"

#include "VEXMELKField.h"

VEXMELKUFCompleteConfig::VEXMELKUFCompleteConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "UFComplete.xml")
{
}

unsigned char VEXMELKUFCompleteConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKUFCompleteConfigDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"Curb", "", definition.Curb},
            {"DynCurb", "", definition.DynCurb},
            {"InnerAngle", "", definition.InnerAngle},
            {"OilTub", "", definition.OilTub},
            {"SlopeAngle", "", definition.SlopeAngle},
            {"SpaceToRoad", "", definition.SpaceToRoad},
            {"WheelFixing", "", definition.WheelFixing},
        });
}
