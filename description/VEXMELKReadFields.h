// Reading the rows of a table from the attributes of an element.
#ifndef VEXMELKReadFields_H
#define VEXMELKReadFields_H

#include "CATIDOM.h"
#include "VEXMELKRow.h"
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

// The attributes of an element, with those of "default" that stand in for missing ones; either may be null.
class VEXMELKAttributeReader
{
public:
    VEXMELKAttributeReader(
        VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap)
        : m_Decimals(decimals), m_Map(map), m_DefaultMap(defaultMap)
    {
    }
    // The reader refers to the maps, so that a temporary one would be gone when it reads.
    VEXMELKAttributeReader(VEXMELKDecimals, const CATIDOMNamedNodeMap_var&, CATIDOMNamedNodeMap_var&&) = delete;

    // Tells the watch, if there is one, of the rows that are going to be read.
    void Announce(VEXMELKRows rows) const
    {
        if (VEXMELKWatch* watch = VEXMELKWatch::Installed()) [[unlikely]]
            watch->OnRows(m_Map, m_DefaultMap, rows);
    }

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
    // Read the row; each is true when the attribute was found. A missing one gives what the row states.
    bool Read(const VEXMELKRow& row, Output output);
    bool Read(const VEXMELKRow& row, std::optional<int>& value);
    // The text of the row, whatever form it has.
    bool ReadText(const VEXMELKRow& row, CATUnicodeString& text);

private:
    // The adapted text of the row; null when it is missing.
    const CATUnicodeString* Find(const VEXMELKRow& row, CATUnicodeString& text);

    VEXMELKDecimals m_Decimals;
    const CATIDOMNamedNodeMap_var& m_Map;
    const CATIDOMNamedNodeMap_var& m_DefaultMap;
    std::optional<bool> m_WritesCommas;
    CATUnicodeString m_Text; // of what is converted
};

// Each attribute of "map" before "defaultMap" goes into its field; a missing one gives what its row states. True when
// every attribute was found.
template <class Record, std::size_t Size>
bool ReadFields(VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap,
    const VEXMELKTable<Record, Size>& table, Record& record)
{
    VEXMELKAttributeReader reader(decimals, map, defaultMap);
    reader.Announce(table.rows);
    bool complete = true;
    for (std::size_t position = 0; position < Size; ++position)
    {
        const VEXMELKRow& row = table.rows[position];
        const VEXMELKFieldAccess<Record>& access = table.accesses[position];
        bool found = false;
        if (access.text)
            found = reader.Read(row, &(record.*access.text));
        else if (access.number)
            found = reader.Read(row, &(record.*access.number));
        else if (access.flag)
            found = reader.Read(row, &(record.*access.flag));
        else
        {
            std::optional<int> value;
            found = reader.Read(row, value);
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
    VEXMELKAttributeReader reader(decimals, map, defaultMap);
    reader.Announce(rows);
    bool complete = true;
    const VEXMELKRow* row = rows.data();
    ((complete = reader.Read(*row++, &outputs) && complete), ...);
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

// One attribute, as a text whatever form its row has. False, and what the row states, when it is missing.
bool ReadText(
    VEXMELKDecimals decimals, const CATIDOMNamedNodeMap_var& map, const VEXMELKRow& row, CATUnicodeString& text);
inline bool ReadText(
    VEXMELKDecimals decimals, const CATIDOMElement_var& element, const VEXMELKRow& row, CATUnicodeString& text)
{
    return ReadText(decimals, element->GetAttributes(), row, text);
}

// The value that belongs to the element's word; that of no word when it has none.
int ReadWord(VEXMELKDecimals decimals, const CATIDOMElement_var& element, const VEXMELKRow& row);

// The text without blanks at its ends, with "," for "." when the application writes commas, with the unit when it ends
// in a digit, and without "%" when the unit is "%".
CATUnicodeString NormalizedValue(std::string_view unit, bool writesCommas, std::string_view text);

// The value that belongs to a word of the list.
int ValueOfWord(const VEXMELKWords& words, std::string_view text);

#endif
