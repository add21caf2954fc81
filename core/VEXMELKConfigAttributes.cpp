// VEXMELKConfig: filling a check's editable attributes from the default settings of a standard.
//
//     <DefaultSettings>
//       <Settings name="Display">
//         <parameter name="Offset" value="12.5mm" access="readOnly"/>
//         <parameter name="Scale" type="colorRanges" useInterpolation="true">
//           <range minValue="0" maxValue="1.5" minColor="red" maxColor="0x00FF00" isCritical="true"/>
//         </parameter>
//       </Settings>
//     </DefaultSettings>
//
// Nothing here shows a message box: what does not fit is logged, and leaves the attribute as it was.

#include "VEXMELKConfig.h"
#include "VEXMELKLog.h"
#include "VEXMELKReader.h"
#include "VEXMELKSettings.h"
#include "VEXMELKUtilities.h"

namespace {

constexpr const char* kindNames[] = {"simple", "list", "colorRanges"};

void Trace(const CATUnicodeString& text) { VEXMELKLog::Trace("Config", text); }

void LogError(const CATUnicodeString& text) { VEXMELKLog::Error("Config", text); }

// Traces a value of the file and what it was read as.
void TraceValue(const char* label, const CATUnicodeString& text, const CATUnicodeString& meaning)
{
    Trace(CATUnicodeString(label) + "(" + text + ") " + meaning);
}

CATUnicodeString TextOfNumber(double number)
{
    CATUnicodeString text;
    text.BuildFromNum(number);
    return text;
}

bool IsOfKind(const VEXMELKCFGAttributeStr& attribute, VEXMELKCFGAttributeStr::Kind kind)
{
    if (attribute.kind == kind)
        return true;
    if (attribute.kind >= VEXMELKCFGAttributeStr::SimpleValue && attribute.kind <= VEXMELKCFGAttributeStr::ColorRanges)
        Trace(CATUnicodeString("Wrong CFG attribute value type: ") + attribute.name + " Found '" + kindNames[kind] +
              "' expected '" + kindNames[attribute.kind] + "'");
    return false;
}

} // namespace

unsigned char VEXMELKConfig::InitStandardData(
    const CATUnicodeString& standard, CATListValVEXMELKCFGAttributeStr& attributes)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            Trace(CATUnicodeString("InitStandardData - Begin for Standard: ") + standard);
            ClearCFGAttributes(attributes);
            CATUnicodeString settingsName;
            const unsigned char filled =
                GetDefaultSettingsName(standard, settingsName) && FillCFGAttributes(settingsName, attributes);
            Trace("InitStandardData - End");
            return filled;
        });
}

unsigned char VEXMELKConfig::FillCFGAttributes(
    const CATUnicodeString& settingsName, CATListValVEXMELKCFGAttributeStr& attributes)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            const CATIDOMElement_var settings = GetDefaultSettingsElement(settingsName);
            for (int position = 1; settings != NULL_var && position <= attributes.Size(); ++position)
            {
                VEXMELKCFGAttributeStr& attribute = attributes[position];
                const CATIDOMElement_var element = FindByKey(settings, VEXMELKSettings::parameter, attribute.name);
                if (element == NULL_var)
                    continue;
                const CATIDOMNamedNodeMap_var parameter = element->GetAttributes();
                CATUnicodeString type;
                CATUnicodeString access;
                ReadText(Decimals(), element, VEXMELKSettings::type, type);
                if (type == "simple")
                    CFGAttributeSetSimpleValue(attribute, parameter);
                else if (type == "list")
                    CFGAttributeSetListValues(attribute, parameter);
                else if (type == "colorRanges")
                    CFGAttributeSetColorRanges(attribute, parameter, element);

                if (ReadText(Decimals(), element, VEXMELKSettings::access, access))
                    Trace(CATUnicodeString(" Access: ") + access);
                CFGAttributeSetReadOnly(attribute, access == "readOnly");
            }
            return 1;
        });
}

void VEXMELKConfig::ClearCFGAttributes(CATListValVEXMELKCFGAttributeStr& attributes)
{
    for (int position = 1; position <= attributes.Size(); ++position)
        CFGAttributeSetReadOnly(attributes[position], 0);
}

void VEXMELKConfig::CFGAttributeSetSimpleValue(
    VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& parameter)
{
    CATUnicodeString value;
    if (!IsOfKind(attribute, VEXMELKCFGAttributeStr::SimpleValue) || !attribute.firstAccess ||
        !ReadText(Decimals(), parameter, VEXMELKSettings::value, value))
        return;
    attribute.firstAccess->SetValueFromText(value);
    Trace(attribute.name + " value = " + value);
}

// Files have no form for the values of a list (docs/format.md, Default settings).
void VEXMELKConfig::CFGAttributeSetListValues(
    VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& /*parameter*/)
{
    if (IsOfKind(attribute, VEXMELKCFGAttributeStr::ListValue))
        LogError("Initialization of List attributes is not implemented yet!");
}

void VEXMELKConfig::CFGAttributeSetColorRanges(
    VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& parameter, const CATIDOMElement_var& element)
{
    if (!IsOfKind(attribute, VEXMELKCFGAttributeStr::ColorRanges) || parameter == NULL_var || element == NULL_var ||
        !attribute.firstAccess || !attribute.secondAccess || !attribute.thirdAccess)
        return;
    Trace(CATUnicodeString("Color range: ") + attribute.name);
    attribute.firstAccess->ClearRanges();
    attribute.secondAccess->ClearRanges();

    CATUnicodeString useInterpolation;
    if (ReadText(Decimals(), parameter, VEXMELKSettings::useInterpolation, useInterpolation))
    {
        attribute.thirdAccess->SetValueFromText(useInterpolation);
        TraceValue("    UseInterpolation: ", useInterpolation, attribute.thirdAccess->AsBoolean(0) ? "true" : "false");
    }

    int number = 0;
    ForEach(element, VEXMELKSettings::range,
        [&](const CATIDOMElement_var& range)
        {
            Trace(CATUnicodeString("    Range: ") + TextOfNumber(++number));
            CFGAttributeAddColorRange(attribute, range->GetAttributes());
        });
}

void VEXMELKConfig::CFGAttributeAddColorRange(VEXMELKCFGAttributeStr& attribute, const CATIDOMNamedNodeMap_var& range)
{
    if (range == NULL_var || !attribute.firstAccess || !attribute.secondAccess)
        return;
    CATUnicodeString text;
    const auto read = [&](const VEXMELKRow& row, const char* complaint)
    {
        const bool found = ReadText(Decimals(), range, row, text);
        if (!found && complaint)
            LogError(complaint);
        return found;
    };

    if (!read(VEXMELKSettings::minValue, "Missing min range value"))
        return;
    const double minimum = NumberFromText(text);
    TraceValue("      Min: ", text, TextOfNumber(minimum));

    if (!read(VEXMELKSettings::minColor, "Missing min color"))
        return;
    const unsigned int minimumColor = CFGAttributeColor(text);
    TraceValue("      Min color: ", text, VEXMELKUtilities::ConvertColorToColorString(minimumColor));

    if (!read(VEXMELKSettings::maxValue, "Missing max range value"))
        return;
    const double maximum = NumberFromText(text);
    TraceValue("      Max: ", text, TextOfNumber(maximum));

    if (!read(VEXMELKSettings::maxColor, "Missing max color"))
        return;
    const unsigned int maximumColor = CFGAttributeColor(text);
    TraceValue("      Max color: ", text, VEXMELKUtilities::ConvertColorToColorString(maximumColor));

    bool critical = false;
    if (read(VEXMELKSettings::isCritical, nullptr))
    {
        critical = text == "true" || text == "1";
        TraceValue("      Is Critical: ", text, critical ? "1" : "0");
    }
    attribute.firstAccess->AddColorRange(
        minimum, maximum, minimumColor, maximumColor, critical, attribute.secondAccess);
}

void VEXMELKConfig::CFGAttributeSetReadOnly(VEXMELKCFGAttributeStr& attribute, unsigned char readOnly)
{
    const bool withCompanions = attribute.kind == VEXMELKCFGAttributeStr::ColorRanges;
    if (!withCompanions && attribute.kind != VEXMELKCFGAttributeStr::SimpleValue &&
        attribute.kind != VEXMELKCFGAttributeStr::ListValue)
        return;
    if (attribute.firstAccess)
        attribute.firstAccess->SetReadOnly(readOnly != 0);
    if (withCompanions && attribute.secondAccess)
        attribute.secondAccess->SetReadOnly(readOnly != 0);
    if (withCompanions && attribute.thirdAccess)
        attribute.thirdAccess->SetReadOnly(readOnly != 0);
}

unsigned int VEXMELKConfig::CFGAttributeColor(const CATUnicodeString& text)
{
    if (text.SearchSubString("0x") >= 0)
    {
        unsigned int color = 0;
        text.ConvertToNum(&color, "%X");
        return VEXMELKUtilities::ConvertColorToVGAColor(color);
    }
    int number = 0; // numbers of colours count from 1 in files
    text.ConvertToNum(&number, "%d");
    if (number >= 1 && number <= VEXMELKUtilities::GetNumberOfVGAColors())
        return VEXMELKUtilities::VGAColor(number - 1);
    return VEXMELKUtilities::VGAColor(text);
}
