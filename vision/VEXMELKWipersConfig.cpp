#include "VEXMELKWipersConfig.h"

#include "VEXMELKField.h"

VEXMELKWipersConfig::VEXMELKWipersConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("Toolbox") + "\\" + "Wipers.xml")
{
}

unsigned char VEXMELKWipersConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKWipersDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"a_field", "", definition.a_field, AsNumber, -1.0},
            {"b_field", "", definition.b_field, AsNumber, -1.0},
            {"c_field", "", definition.c_field, AsNumber, -1.0},
        });
}
