#include "VEXMELKSeatingBeltsConfig.h"

#include "CATCkeGlobalFunctions.h"
#include "VEXMELKAnswer.h"
#include "VEXMELKElements.h"
#include "VEXMELKField.h"

VEXMELKSeatingBeltsConfig::VEXMELKSeatingBeltsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, CATUnicodeString("OVA") + "\\" + "SeatingBelts.xml")
{
}

unsigned char VEXMELKSeatingBeltsConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKSBTandardCfgDefinition& definition)
{
    return ReadCategory(standard, category,
        {
            {"EUApproach", "", definition.EUApproach, AsFlag, false},
            {"BackAngleEditAble", "", definition.BackAngleEditAble, AsFlag, true},
            {"Trans1IsSpecial", "", definition.Trans1IsSpecial, AsFlag, false},
            {"Trans2IsSpecial", "", definition.Trans2IsSpecial, AsFlag, false},
            {"Trans3IsSpecial", "", definition.Trans3IsSpecial, AsFlag, false},
            {"USLowShiftThreshold", "mm", definition.USLowShiftThreshold},
            {"USLowXShift", "mm", definition.USLowXShift},
            {"USLowZShift", "mm", definition.USLowZShift},
            {"PlaneDistP", "mm", definition.PlaneDistP},
            {"PlaneDistQ", "mm", definition.PlaneDistQ},
            {"PlaneDistR", "mm", definition.PlaneDistR},
        });
}

unsigned char VEXMELKSeatingBeltsConfig::GetSBAnglesData(const CATUnicodeString& standard,
    const CATUnicodeString& category, unsigned char front, VEXMELKSBAnglesCfgDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element =
                FirstElement(GetCategoryElement(standard, category), front ? "front" : "back");
            if (element == NULL_var)
                return 1;
            ReadFields(element, NULL_var,
                {
                    {"PA1", "deg", definition.PA1},
                    {"PA2", "deg", definition.PA2},
                    {"PA1X", "deg", definition.PA1X},
                    {"PA2X", "deg", definition.PA2X},
                    {"QA1", "deg", definition.QA1},
                    {"QA2", "deg", definition.QA2},
                    {"QA1X", "deg", definition.QA1X},
                    {"QA2X", "deg", definition.QA2X},
                });
            return 1; // always
        });
}

unsigned char VEXMELKSeatingBeltsConfig::GetSBShAnchorData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKSBShAnchorCfgDefinition& definition)
{
    return Answer(
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = FirstElement(GetCategoryElement(standard, category), "ShAnchor");
            if (element == NULL_var)
                return 1;
            ReadFields(element, NULL_var,
                {
                    {"SMin", "mm", definition.SMin},
                    {"SMax", "mm", definition.SMax},
                    {"ShL1a", "mm", definition.ShL1a},
                    {"ShL2", "mm", definition.ShL2},
                    {"ShL3a", "mm", definition.ShL3a},
                    {"ShL3b", "mm", definition.ShL3b},
                    {"ShL4", "mm", definition.ShL4},
                    {"ShL1b", "mm", definition.ShL1b},
                    {"ShThrA", "mm", definition.ShThrA},
                    {"ShThrB", "mm", definition.ShThrB},
                    {"ShA1", "mm", definition.ShA1},
                    {"ShA2", "mm", definition.ShA2},
                    {"ShA2RearAlt", "mm", definition.ShA2RearAlt},
                });
            const std::pair<const char*, double*> multipliers[] = {
                {"ShMulti1a", &definition.ShMulti1a},
                {"ShMulti2a", &definition.ShMulti2a},
                {"ShMulti1b", &definition.ShMulti1b},
                {"ShMulti2b", &definition.ShMulti2b},
            };
            for (const auto& [attribute, value] : multipliers)
            {
                CATUnicodeString text;
                if (ReadFields(element, NULL_var, {{attribute, "", text}}))
                    str2double(*value, text.ConvertToChar(), ",."); // a failure keeps the caller's value
                else
                    *value = 0.0;
            }
            return 1; // always
        });
}

long VEXMELKSeatingBeltsConfig::str2double(double& value, const char* text, const char* /*delimiters*/)
{
    CATICkeParm_var parameter = CATCkeGlobalFunctions::GetVolatileFactory()->CreateReal("real", 0.0);
    parameter->Valuate(text);
    if (!parameter->HasValue())
        return E_FAIL;
    value = parameter->AsReal();
    return S_OK;
}
