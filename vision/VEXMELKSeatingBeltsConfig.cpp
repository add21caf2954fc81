// The seat-belt anchorages. The attributes of the category fall back one by one, its elements not at all. The
// multipliers are numbers alone: a text with anything else keeps what the check had.
#include "VEXMELKSeatingBeltsConfig.h"

#include "VEXMELKReader.h"

#include "CATCkeGlobalFunctions.h"

namespace {

using Record = VEXMELKSBTandardCfgDefinition;
using Angles = VEXMELKSBAnglesCfgDefinition;
using Anchor = VEXMELKSBShAnchorCfgDefinition;

constexpr VEXMELKTable table{
    Flag<&Record::EUApproach>("EUApproach", "the European approach"),
    Flag<&Record::BackAngleEditAble>("BackAngleEditAble", "the back angle can be edited", Else(true)),
    Flag<&Record::Trans1IsSpecial>("Trans1IsSpecial", "the transition is special"),
    Flag<&Record::Trans2IsSpecial>("Trans2IsSpecial", "the transition is special"),
    Flag<&Record::Trans3IsSpecial>("Trans3IsSpecial", "the transition is special"),
    Length<&Record::USLowShiftThreshold>("USLowShiftThreshold", "shift of the low anchorage", NotNegative),
    Length<&Record::USLowXShift>("USLowXShift", "shift of the low anchorage"),
    Length<&Record::USLowZShift>("USLowZShift", "shift of the low anchorage"),
    Length<&Record::PlaneDistP>("PlaneDistP", "distances of planes"),
    Length<&Record::PlaneDistQ>("PlaneDistQ", "distances of planes"),
    Length<&Record::PlaneDistR>("PlaneDistR", "distances of planes"),
};
constexpr VEXMELKElement categoryElements = CategoryWith(table.rows);

constexpr VEXMELKTable anglesTable{
    Angle<&Angles::PA1>("PA1", "angles"),
    Angle<&Angles::PA2>("PA2", "angles"),
    Angle<&Angles::PA1X>("PA1X", "angles"),
    Angle<&Angles::PA2X>("PA2X", "angles"),
    Angle<&Angles::QA1>("QA1", "angles"),
    Angle<&Angles::QA2>("QA2", "angles"),
    Angle<&Angles::QA1X>("QA1X", "angles"),
    Angle<&Angles::QA2X>("QA2X", "angles"),
};
constexpr VEXMELKElement AnglesOf(const char* tag)
{
    return {.tag = tag,
        .below = &categoryElements,
        .place = VEXMELKPlace::AnyDepth,
        .fallBack = VEXMELKFallBack::WholeCategory,
        .tables = {anglesTable.rows},
        .meaning = "belt angles of front and back seats; the first of each counts",
        .whenMissing = "all kept"};
}
constexpr VEXMELKElement frontElement = AnglesOf("front");
constexpr VEXMELKElement backElement = AnglesOf("back");

constexpr VEXMELKTable anchorTable{
    Length<&Anchor::SMin>("SMin", "limits", NotNegative),
    Length<&Anchor::SMax>("SMax", "limits", NotNegative),
    Length<&Anchor::ShL1a>("ShL1a", "lengths", NotNegative),
    Length<&Anchor::ShL2>("ShL2", "lengths", NotNegative),
    Length<&Anchor::ShL3a>("ShL3a", "lengths", NotNegative),
    Length<&Anchor::ShL3b>("ShL3b", "lengths", NotNegative),
    Length<&Anchor::ShL4>("ShL4", "lengths", NotNegative),
    Length<&Anchor::ShL1b>("ShL1b", "lengths", NotNegative),
    Length<&Anchor::ShThrA>("ShThrA", "thresholds", NotNegative),
    Length<&Anchor::ShThrB>("ShThrB", "thresholds", NotNegative),
    Length<&Anchor::ShA1>("ShA1", "a bare number gets `mm`"),
    Length<&Anchor::ShA2>("ShA2", "a bare number gets `mm`"),
    Length<&Anchor::ShA2RearAlt>("ShA2RearAlt", "a bare number gets `mm`"),
};
constexpr const char* multiplierMeaning = "multipliers";
constexpr VEXMELKTable multiplierTable{
    Number<&Anchor::ShMulti1a>("ShMulti1a", multiplierMeaning),
    Number<&Anchor::ShMulti2a>("ShMulti2a", multiplierMeaning),
    Number<&Anchor::ShMulti1b>("ShMulti1b", multiplierMeaning),
    Number<&Anchor::ShMulti2b>("ShMulti2b", multiplierMeaning),
};
constexpr VEXMELKElement anchorElement{.tag = "ShAnchor",
    .below = &categoryElements,
    .place = VEXMELKPlace::AnyDepth,
    .fallBack = VEXMELKFallBack::WholeCategory,
    .tables = {anchorTable.rows, multiplierTable.rows},
    .meaning = "shoulder anchorage; the first counts",
    .whenMissing = "all kept"};

constexpr const VEXMELKElement* elements[] = {&categoryElements, &frontElement, &backElement, &anchorElement};

} // namespace

template <> constexpr auto VEXMELKFieldsOf<Record> = VEXMELKFieldList<Record>(table);
template <> constexpr auto VEXMELKFieldsOf<Angles> = VEXMELKFieldList<Angles>(anglesTable);
template <> constexpr auto VEXMELKFieldsOf<Anchor> = VEXMELKFieldList<Anchor>(anchorTable, multiplierTable);

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKSeatingBeltsConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, Output("definition")),
    VEXMELKDescribe<&VEXMELKSeatingBeltsConfig::GetSBAnglesData>("GetSBAnglesData", standardArgument, categoryArgument,
        VEXMELKParameter{.name = "front", .role = VEXMELKRole::Switch}, Output("definition")),
    VEXMELKDescribe<&VEXMELKSeatingBeltsConfig::GetSBShAnchorData>(
        "GetSBShAnchorData", standardArgument, categoryArgument, Output("definition")),
};

constinit const VEXMELKDescription VEXMELKSeatingBeltsConfig::description{
    .name = "SeatingBelts",
    .file = "OVA\\SeatingBelts.xml",
    .meaning = "The seat-belt anchorages.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKCheckConfig::description,
};

VEXMELKSeatingBeltsConfig::VEXMELKSeatingBeltsConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKCheckConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKSeatingBeltsConfig::GetStandardData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKSBTandardCfgDefinition& definition)
{
    return ReadCategory(*this, standard, category, Decimals(), table, definition);
}

unsigned char VEXMELKSeatingBeltsConfig::GetSBAnglesData(const CATUnicodeString& standard,
    const CATUnicodeString& category, unsigned char front, VEXMELKSBAnglesCfgDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element =
                Find(GetCategoryElement(standard, category), front ? frontElement : backElement);
            if (element != NULL_var && HasAttributes(element))
                ReadFields(Decimals(), element, anglesTable, definition);
            return 1; // always
        });
}

unsigned char VEXMELKSeatingBeltsConfig::GetSBShAnchorData(
    const CATUnicodeString& standard, const CATUnicodeString& category, VEXMELKSBShAnchorCfgDefinition& definition)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var element = Find(GetCategoryElement(standard, category), anchorElement);
            if (element == NULL_var || !HasAttributes(element))
                return 1;
            ReadFields(Decimals(), element, anchorTable, definition);
            char delimiters[] = ",.";
            for (std::size_t position = 0; position < multiplierTable.rows.size(); ++position)
            {
                CATUnicodeString text;
                double& multiplier = definition.*multiplierTable.accesses[position].number;
                if (ReadText(Decimals(), element, multiplierTable.rows[position], text))
                    str2double(multiplier, text.ConvertToChar(), delimiters); // a failure keeps the caller's value
                else
                    multiplier = 0.0;
            }
            return 1; // always
        });
}

long VEXMELKSeatingBeltsConfig::str2double(double& value, const char* text, char* /*delimiters*/)
{
    CATICkeParm_var parameter = CATCkeGlobalFunctions::GetVolatileFactory()->CreateReal("real", 0.0);
    parameter->Valuate(text);
    if (!parameter->HasValue())
        return E_FAIL;
    value = parameter->AsReal();
    return S_OK;
}
