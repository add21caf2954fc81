// Reads rows: finds the attribute, adapts its text, converts it. The comma setting is asked for only once a value is
// there, because asking may create a manager.
#include "VEXMELKReadFields.h"

#include "CATNumberText.h"
#include "VEXMELKValues.h"

namespace {

bool LeavesField(const VEXMELKRow& row) { return row.whenMissing.rule != VEXMELKWhenMissing::Gives; }

bool TakeAsItIs(std::optional<std::string_view> written, const VEXMELKRow& row, CATUnicodeString& text)
{
    if (written)
        text = *written;
    else if (!LeavesField(row))
        text = row.whenMissing.text;
    return written.has_value();
}

} // namespace

bool VEXMELKAttributeReader::TakeUnusual(
    std::optional<std::string_view> written, const VEXMELKRow& row, CATUnicodeString& text)
{
    if (!written || row.isAsWritten)
        return TakeAsItIs(written, row, text);
    AssignNormalized(row.unit, WritesCommas(), *written, text);
    return true;
}

bool VEXMELKAttributeReader::Read(std::size_t position, Output output)
{
    const VEXMELKRow& row = m_Rows[position];
    if (row.form == VEXMELKForm::Text)
        return ReadText(position, VEXMELKTextEnd(row), *output.text);
    const std::optional<std::string_view> written = m_Texts.At(position);
    if (!written && LeavesField(row))
        return false;
    if (!written && row.form == VEXMELKForm::Flag)
        *output.flag = row.whenMissing.flag;
    else if (!written)
        *output.number = row.whenMissing.number;
    else if (row.form == VEXMELKForm::Flag)
        *output.flag = FlagFromText(row.isAsWritten ? *written : CATStripped(*written));
    else
        *output.number = row.isAsWritten ? NumberOfForm(row.form, {}, false, *written)
                                         : NumberOfForm(row.form, row.unit, WritesCommas(), *written);
    return written.has_value();
}

bool VEXMELKAttributeReader::Read(std::size_t position, std::optional<int>& value)
{
    const VEXMELKRow& row = m_Rows[position];
    CATUnicodeString text;
    const std::optional<std::string_view> written = m_Texts.At(position);
    if (written)
        ReadText(position, VEXMELKTextEnd(row), text);
    int integer = 0;
    if (written && row.form == VEXMELKForm::Word)
        value = ValueOfWord(row.words, text);
    else if (written && text.ConvertToNum(&integer, "%d"))
        value = integer;
    else if (!LeavesField(row))
        value = row.whenMissing.integer; // also for a text that is no integer
    return written.has_value();
}

bool ReadText(
    VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const VEXMELKRow& row, CATUnicodeString& text)
{
    if (VEXMELKWatch* watch = VEXMELKWatch::Installed()) [[unlikely]]
        watch->OnRows(map, NULL_var, VEXMELKRows(&row, 1));
    std::optional<std::string_view> written;
    if (map != NULL_var)
        written = map->GetNamedItemValue(row.attribute);
    if (!written || row.isAsWritten)
        return TakeAsItIs(written, row, text);
    AssignNormalized(row.unit, decimals.WritesCommas(), *written, text);
    return true;
}

bool ReadNamedText(VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map,
    const CATIDOMNamedNodeMap_var& defaultMap, std::string_view name, std::string_view unit, CATUnicodeString& value)
{
    for (const CATIDOMNamedNodeMap_var* attributes : {&map, &defaultMap})
        if (*attributes != NULL_var)
            if (const std::optional<std::string_view> written = (*attributes)->GetNamedItemValue(name))
            {
                value = NormalizedValue(unit, decimals.WritesCommas(), *written);
                return true;
            }
    return false;
}

int ReadWord(VEXMELKDecimals decimals, const CATIDOMElement_var& element, const VEXMELKRow& row)
{
    CATUnicodeString text;
    ReadText(decimals, element, row, text);
    return ValueOfWord(row.words, text);
}

int ValueOfWord(const VEXMELKWords& words, std::string_view text)
{
    for (const VEXMELKWord& word : words.list)
        if (CATTextEqual(word.text, text))
            return word.value;
    return words.otherwise;
}
