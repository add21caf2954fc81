// The space to the road: one table of the category.
#include "VEXMELKUFSpaceToRoadConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr VEXMELKOutputTable<CATUnicodeString, unsigned char, unsigned char, CATUnicodeString, unsigned char,
    CATUnicodeString, unsigned char, unsigned char>
    table{Length("offset", "offset"), Flag("WholeLength", "whole length"),
        Flag("CalcUnderAxis", "calculate under the axles"), Length("OffsetUnderAxes", "offset under the axles"),
        Flag("CircUnderAxis", "circles under the axles"), Length("extension", "extension"),
        Flag("WheelRadius", "wheel radius", Else(true)), Flag("GeneralSurface", "general surface", Else(true))};

constexpr VEXMELKElement categories = CategoryWith(table.rows);
constexpr const VEXMELKElement* elements[] = {&categories};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKUFSpaceToRoadConfig::GetStandardData>(
        "GetStandardData", standardArgument, categoryArgument, table),
};

constinit const VEXMELKDescription VEXMELKUFSpaceToRoadConfig::description{
    .name = "UFSpaceToRoad",
    .file = "OVA\\UFSpaceToRoad.xml",
    .meaning = "The space between the underfloor and the road.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKUnderfloorConfig::description,
};

VEXMELKUFSpaceToRoadConfig::VEXMELKUFSpaceToRoadConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKUnderfloorConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKUFSpaceToRoadConfig::GetStandardData(const CATUnicodeString& standard,
    const CATUnicodeString& category, CATUnicodeString& offset, unsigned char& wholeLength,
    unsigned char& calcUnderAxis, CATUnicodeString& offsetUnderAxes, unsigned char& circUnderAxis,
    CATUnicodeString& extension, unsigned char& wheelRadius, unsigned char& generalSurface)
{
    return ReadCategory(*this, standard, category, Decimals(), table, offset, wholeLength, calcUnderAxis,
        offsetUnderAxes, circUnderAxis, extension, wheelRadius, generalSurface);
}
