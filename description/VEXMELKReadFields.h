// Reading the rows of a table from the attributes of an element.
//
// A table is resolved once for each layout of an element (CATXMLPlaces.h), and its texts and numbers are made straight
// from the text of the document.
#ifndef VEXMELKReadFields_H
#define VEXMELKReadFields_H

#include "CATIDOM.h"
#include "VEXMELKRow.h"
#include "VEXMELKValues.h"
#include "VEXMELKWatch.h"

#include <optional>

// How the application writes numbers. Asked for with the first value that is there, once for each table.
class VEXMELKDecimals
{
public:
    explicit VEXMELKDecimals(bool (*writesCommas)()) : m_WritesCommas(writesCommas) {}
    bool WritesCommas() const { return m_WritesCommas(); }

private:
    bool (*m_WritesCommas)();
};

// Reads rows from the attributes of an element, with those of "default" that stand in for missing ones; either may be
// null. The rows stay where they are for good.
class VEXMELKAttributeReader
{
public:
    VEXMELKAttributeReader(VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map,
        const CATIDOMNamedNodeMap_var& defaultMap, VEXMELKRows rows)
        : m_Decimals(decimals), m_Rows(rows), m_Texts(map, defaultMap, NamesOf(rows))
    {
        // Tells the watch, if there is one, of the rows that are going to be read.
        if (VEXMELKWatch* watch = VEXMELKWatch::Installed()) [[unlikely]]
            watch->OnRows(map, defaultMap, rows);
    }
    // The reader refers to the maps, so that a temporary one would be gone when it reads.
    VEXMELKAttributeReader(
        VEXMELKDecimals, const CATIDOMNamedNodeMap_var&, CATIDOMNamedNodeMap_var&&, VEXMELKRows) = delete;

    // Where a row's value goes.
    union Output
    {
        Output(CATUnicodeString* output) : text(output) {}
        Output(double* output) : number(output) {}
        Output(unsigned char* output) : flag(output) {}
        CATUnicodeString* text;
        double* number;
        unsigned char* flag;
    };
    // Read the row at that position; each is true when the attribute was found. A missing one gives what the row
    // states.
    bool Read(std::size_t position, Output output);
    bool Read(std::size_t position, std::optional<int>& value);
    // The text of the row, whatever form it has.
    bool ReadText(std::size_t position, const VEXMELKTextEnd& end, CATUnicodeString& text)
    {
        const std::optional<std::string_view> written = m_Texts.At(position);
        if (written && TakeShort(*written, end, text)) [[likely]]
            return true;
        return TakeUnusual(written, m_Rows[position], text);
    }

private:
    static CATXMLPlaces::List NamesOf(VEXMELKRows rows)
    {
        return {&rows.data()->attribute, sizeof(VEXMELKRow), rows.size()};
    }
    enum class Separator : unsigned char
    {
        Point,
        Comma,
        NotAsked
    };
    bool WritesCommas()
    {
        if (m_Separator == Separator::NotAsked)
            m_Separator = m_Decimals.WritesCommas() ? Separator::Comma : Separator::Point;
        return m_Separator == Separator::Comma;
    }
    bool TakeUnusual(std::optional<std::string_view> written, const VEXMELKRow& row, CATUnicodeString& text);
    // As NormalizedValue gives it (VEXMELKValues.h), for the usual texts: short ones without blanks at their ends.
    bool TakeShort(std::string_view written, const VEXMELKTextEnd& end, CATUnicodeString& text)
    {
        const auto isBlank = [](char character) { return static_cast<unsigned char>(character) <= ' '; };
        if (!end.isUsual || written.empty() || !m_Texts.HasBytes(written, CATUnicodeString::shortBytes) ||
            isBlank(written.front()) || isBlank(written.back()))
            return false;
        const bool isBare = static_cast<unsigned char>(written.back() - '0') < 10;
        if (!text.AssignShort(written, isBare ? end.unit : CATUnicodeString::End()))
            return false;
        if (m_Separator != Separator::Point && WritesCommas()) [[unlikely]]
            text.ReplaceAll('.', ',');
        return true;
    }

    VEXMELKDecimals m_Decimals;
    VEXMELKRows m_Rows;
    CATAttributeTexts m_Texts;
    Separator m_Separator = Separator::NotAsked;
};

// Each attribute of "map" before "defaultMap" goes into its field; a missing one gives what its row states. True when
// every attribute was found.
template <class Record, std::size_t Size>
bool ReadFields(VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap,
    const VEXMELKTable<Record, Size>& table, Record& record)
{
    VEXMELKAttributeReader reader(decimals, map, defaultMap, table.rows);
    bool complete = true;
    for (std::size_t position = 0; position < Size; ++position)
    {
        const VEXMELKFieldAccess<Record>& access = table.accesses[position];
        bool found = false;
        if (access.text)
            found = reader.ReadText(position, table.ends[position], record.*access.text);
        else if (access.number)
            found = reader.Read(position, &(record.*access.number));
        else if (access.flag)
            found = reader.Read(position, &(record.*access.flag));
        else
        {
            std::optional<int> value;
            found = reader.Read(position, value);
            if (value)
                access.assign(record, *value);
        }
        complete = complete && found;
    }
    return complete;
}

// Each attribute goes into the output at the place of its row.
template <class... Outputs>
bool ReadOutputs(VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map,
    const CATIDOMNamedNodeMap_var& defaultMap, VEXMELKRows rows, Outputs&... outputs)
{
    VEXMELKAttributeReader reader(decimals, map, defaultMap, rows);
    bool complete = true;
    std::size_t position = 0;
    ((complete = reader.Read(position++, &outputs) && complete), ...);
    return complete;
}

template <class... Outputs>
bool ReadFields(VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap,
    const VEXMELKOutputTable<Outputs...>& table, Outputs&... outputs)
{
    return ReadOutputs(decimals, map, defaultMap, table.rows, outputs...);
}

// The same for the attributes of an element alone.
template <class Table, class... Fields>
bool ReadFields(VEXMELKDecimals decimals, const CATIDOMElement_var& element, const Table& table, Fields&... fields)
{
    return ReadFields(decimals, element->GetAttributes(), NULL_var, table, fields...);
}

template <class... Outputs>
bool ReadOutputs(VEXMELKDecimals decimals, const CATIDOMElement_var& element, VEXMELKRows rows, Outputs&... outputs)
{
    return ReadOutputs(decimals, element->GetAttributes(), NULL_var, rows, outputs...);
}

// One attribute by the name of its row, as a text whatever form the row has. False, and what the row states, when it is
// missing.
bool ReadText(
    VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const VEXMELKRow& row, CATUnicodeString& text);
inline bool ReadText(
    VEXMELKDecimals decimals, const CATIDOMElement_var& element, const VEXMELKRow& row, CATUnicodeString& text)
{
    return ReadText(decimals, element->GetAttributes(), row, text);
}

// The value that belongs to the element's word; that of no word when it has none.
int ReadWord(VEXMELKDecimals decimals, const CATIDOMElement_var& element, const VEXMELKRow& row);

// One attribute by its name alone, of "map" before "defaultMap": adapted in the same way. False, and the value
// untouched, when neither has it.
bool ReadNamedText(VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map,
    const CATIDOMNamedNodeMap_var& defaultMap, std::string_view name, std::string_view unit, CATUnicodeString& value);

// The value that belongs to a word of the list.
int ValueOfWord(const VEXMELKWords& words, std::string_view text);

#endif
