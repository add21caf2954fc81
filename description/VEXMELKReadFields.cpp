// Reads rows: finds the attribute, adapts its text, converts it. The comma setting is asked for only once a value is
// there, because asking may create a manager.
#include "VEXMELKReadFields.h"

#include "CATNumberText.h"
#include "VEXMELKValues.h"

namespace {

// The unit goes behind the separator's change and "%" away at last: "%" as a unit is appended to be removed.
inline void Normalize(std::string_view unit, bool writesCommas, std::string_view text, CATUnicodeString& value)
{
    const std::string_view stripped = CATStripped(text);
    value = stripped;
    if (writesCommas)
        value.ReplaceAll('.', ',');
    if (!unit.empty() && !stripped.empty() && CATIsDigit(stripped.back()))
        value.Append(unit);
    if (unit == "%")
        value.RemoveAll('%');
}

double NumberOf(VEXMELKForm form, const CATUnicodeString& text)
{
    switch (form)
    {
    case VEXMELKForm::Fraction:
        return NumberFromText(text) / 100.0;
    case VEXMELKForm::Millimetres:
        return MillimetresFromText(text);
    case VEXMELKForm::Metres:
        return MetresFromText(text);
    case VEXMELKForm::Radians:
        return RadiansFromText(text);
    default:
        return NumberFromText(text);
    }
}

bool LeavesField(const VEXMELKRow& row) { return row.whenMissing.rule != VEXMELKWhenMissing::Gives; }

} // namespace

const CATUnicodeString* VEXMELKAttributeReader::Find(const VEXMELKRow& row, CATUnicodeString& text)
{
    std::optional<std::string_view> item;
    if (m_Map != NULL_var)
        item = m_Map->GetNamedItemValue(row.attribute);
    if (!item && m_DefaultMap != NULL_var)
        item = m_DefaultMap->GetNamedItemValue(row.attribute);
    if (!item)
        return nullptr;
    if (row.isAsWritten)
    {
        text = *item;
        return &text;
    }
    if (!m_WritesCommas)
        m_WritesCommas = m_Decimals.WritesCommas();
    Normalize(row.unit, *m_WritesCommas, *item, text);
    return &text;
}

bool VEXMELKAttributeReader::ReadText(const VEXMELKRow& row, CATUnicodeString& text)
{
    const bool found = Find(row, text);
    if (!found && !LeavesField(row))
        text = row.whenMissing.text;
    return found;
}

bool VEXMELKAttributeReader::Read(const VEXMELKRow& row, Output output)
{
    if (row.form == VEXMELKForm::Text)
        return ReadText(row, *output.text);
    const CATUnicodeString* text = Find(row, m_Text);
    if (!text && LeavesField(row))
        return false;
    if (row.form == VEXMELKForm::Flag)
        *output.flag = text ? FlagFromText(*text) : row.whenMissing.flag;
    else
        *output.number = text ? NumberOf(row.form, *text) : row.whenMissing.number;
    return text;
}

bool VEXMELKAttributeReader::Read(const VEXMELKRow& row, std::optional<int>& value)
{
    const CATUnicodeString* text = Find(row, m_Text);
    int integer = 0;
    if (text && row.form == VEXMELKForm::Word)
        value = ValueOfWord(row.words, *text);
    else if (text && text->ConvertToNum(&integer, "%d"))
        value = integer;
    else if (!LeavesField(row))
        value = row.whenMissing.integer; // also for a text that is no integer
    return text;
}

bool ReadText(
    VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const VEXMELKRow& row, CATUnicodeString& text)
{
    const CATIDOMNamedNodeMap_var noDefault;
    VEXMELKAttributeReader reader(decimals, map, noDefault);
    reader.Announce(VEXMELKRows(&row, 1));
    return reader.ReadText(row, text);
}

int ReadWord(VEXMELKDecimals decimals, const CATIDOMElement_var& element, const VEXMELKRow& row)
{
    CATUnicodeString text;
    ReadText(decimals, element, row, text);
    return ValueOfWord(row.words, text);
}

CATUnicodeString NormalizedValue(std::string_view unit, bool writesCommas, std::string_view text)
{
    CATUnicodeString value;
    Normalize(unit, writesCommas, text, value);
    return value;
}

int ValueOfWord(const VEXMELKWords& words, std::string_view text)
{
    for (const VEXMELKWord& word : words.list)
        if (CATTextEqual(word.text, text))
            return word.value;
    return words.otherwise;
}
