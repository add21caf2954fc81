// The rows of a reader's table: each names an attribute, says what it is and means, and how its text becomes a value.
//
//     constexpr VEXMELKTable rows{
//         Length<&Record::FrontOffset>("front_offset", "offset in front"),               a text; "" when missing
//         Angle<&Record::Rotation>("Rotation", "rotation", Else("0deg")),                a text with its own default
//         Flag<&Record::WheelRadius>("WheelRadius", "wheel radius", Else(true)),         converted
//         Millimetres<&Record::a>("a", "coefficient"),                                   a number; 0 when missing
//         Length<&Record::BottomOffset>("BottomOffset", "offset of the bottom", Keep),   keeps the caller's value
//     };
//
// The tables are data: readers walk them (VEXMELKReadFields.h), and whatever tells people about the files is made from
// them. Rows without a field describe attributes that a reader looks at by itself, such as names.
#ifndef VEXMELKRow_H
#define VEXMELKRow_H

#include "CATUnicodeString.h"
#include "VEXMELKValue.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>

// What an attribute is to the people who write it.
enum class VEXMELKKind : unsigned char
{
    Text,
    Name, // of something else
    Word, // one of a list
    Flag,
    Number,
    Integer,
    Percentage,
    Length,
    Angle
};

// What its text is handed out as.
enum class VEXMELKForm : unsigned char
{
    Text,
    Flag,
    Number, // what the text begins with
    Fraction,
    Millimetres,
    Metres,
    Radians,
    Integer,
    Word // the value that belongs to it
};

struct VEXMELKWhenMissing
{
    enum Rule : unsigned char
    {
        Gives,   // the value below
        Keeps,   // the field stays as it is: the caller's value
        Repeats, // the field stays as it is: that of the record before
        Skips,   // the element plays no part
        Fails    // the query answers false; a field stays as it is
    };
    Rule rule = Gives;
    bool flag = false;
    int integer = 0; // of an integer or a word
    double number = 0.0;
    std::string_view text = {};
};

// The words of a list with their values. In files that hand out the text itself the values play no part.
struct VEXMELKWord
{
    std::string_view text = {};
    int value = 0;
};
struct VEXMELKWords
{
    std::span<const VEXMELKWord> list = {};
    int otherwise = 0; // the value of any other text
};

// The sign and the size that make sense, as far as that does not depend on the unit.
struct VEXMELKRange
{
    bool isNotNegative = false;
    int upTo = 0; // 0: no bound
};

struct VEXMELKRow
{
    std::string_view attribute = {};
    std::string_view meaning = {}; // for people
    VEXMELKKind kind = VEXMELKKind::Text;
    VEXMELKForm form = VEXMELKForm::Text;
    std::string_view unit = {}; // what a bare number gets
    VEXMELKWhenMissing whenMissing = {};
    // What it is the name of. A tag of the same file; "standard of FILE"; "settings"; "loading"; "colour".
    std::string_view names = {};
    VEXMELKWords words = {};        // of a word; of another kind, texts that mean something else there
    std::string_view field = {};    // what it fills, by name; empty when nothing
    bool isAsWritten = false;       // the text is taken as it stands, not adapted as NormalizedValue does
    bool isExact = false;           // of a flag: letter case counts
    std::string_view countsAs = {}; // the unit that a bare number counts as where none is put behind it
    std::string_view onlyFor = {};  // it is read only when the element's "type" is this
    VEXMELKRange sensible = {};     // numbers outside of it are mistakes; they are read all the same
    bool isSecret = false;          // never shown without being asked for
};

// What most texts get: nothing, or a unit when they end in a digit.
struct VEXMELKTextEnd
{
    constexpr VEXMELKTextEnd() = default;
    explicit constexpr VEXMELKTextEnd(const VEXMELKRow& row)
        : isUsual(!row.isAsWritten && row.unit != "%" && row.unit.size() <= CATUnicodeString::longestEnd),
          unit(isUsual ? row.unit : std::string_view())
    {
    }
    bool isUsual = false;
    CATUnicodeString::End unit;
};

// The unit of the number that a row hands out, empty for anything else.
constexpr std::string_view UnitHandedOut(VEXMELKForm form)
{
    switch (form)
    {
    case VEXMELKForm::Millimetres:
        return "mm";
    case VEXMELKForm::Metres:
        return "m";
    case VEXMELKForm::Radians:
        return "rad";
    case VEXMELKForm::Fraction:
        return "1";
    default:
        return {};
    }
}

// How a row reaches its field; the one of these that fits the row's form is set.
template <class Record> struct VEXMELKFieldAccess
{
    CATUnicodeString Record::*text = nullptr;
    double Record::*number = nullptr;
    unsigned char Record::*flag = nullptr;
    void (*assign)(Record& record, int value) = nullptr; // an integer or a word
};

// The unit that tells people what a value is: of a number that it is handed out in, of a text the one that the text
// gets where the file has a bare number.
constexpr std::string_view UnitShown(const VEXMELKRow& row)
{
    return row.form == VEXMELKForm::Text ? row.unit : UnitHandedOut(row.form);
}

// A row that fills a field of a record, as a table takes it.
template <class Record> struct VEXMELKRowOf
{
    VEXMELKRow row;
    VEXMELKFieldAccess<Record> access;
    VEXMELKField<Record> field;
};

namespace VEXMELKRowDetail {

// Not constexpr: a description that comes here is not a constant, and its compilation ends with this call.
inline void DoesNotCompile(const char* /*why*/) {}

} // namespace VEXMELKRowDetail

// The rows that are read from one element into one record.
template <class Record, std::size_t Size> class VEXMELKTable
{
public:
    template <class... Rows>
    explicit constexpr VEXMELKTable(const Rows&... rowsOf)
        : rows{rowsOf.row...}, accesses{rowsOf.access...}, fields{rowsOf.field...}, ends{VEXMELKTextEnd(rowsOf.row)...}
    {
    }

    std::array<VEXMELKRow, Size> rows;
    std::array<VEXMELKFieldAccess<Record>, Size> accesses;
    std::array<VEXMELKField<Record>, Size> fields;
    std::array<VEXMELKTextEnd, Size> ends;
};
template <class Record, class... Others>
VEXMELKTable(VEXMELKRowOf<Record>, Others...) -> VEXMELKTable<Record, sizeof...(Others) + 1>;

// The rows that are read from one element into outputs of an operation, in their order. The outputs have these types.
template <class... Outputs> class VEXMELKOutputTable
{
public:
    template <class... Rows>
    requires(sizeof...(Rows) == sizeof...(Outputs)) explicit constexpr VEXMELKOutputTable(const Rows&... outputRows)
        : rows{outputRows...}
    {
        (Check<Outputs>(outputRows), ...);
    }

    std::array<VEXMELKRow, sizeof...(Outputs)> rows;

private:
    template <class Output> static constexpr void Check(const VEXMELKRow& row)
    {
        const bool isText = row.form == VEXMELKForm::Text;
        const bool isFlag = row.form == VEXMELKForm::Flag;
        if (isText != std::is_same_v<Output, CATUnicodeString> || isFlag != std::is_same_v<Output, unsigned char>)
            VEXMELKRowDetail::DoesNotCompile("the output has another type than its row");
    }
};

// Rows of whatever table.
using VEXMELKRows = std::span<const VEXMELKRow>;

// Making rows ------------------------------------------------------------------------------------------------------

namespace VEXMELKRowDetail {

template <class Member> struct MemberTraits;
template <class OfRecord, class OfValue> struct MemberTraits<OfValue OfRecord::*>
{
    using Record = OfRecord;
    using Value = OfValue;
};
template <auto Field> using RecordOf = typename MemberTraits<decltype(Field)>::Record;
template <auto Field> using ValueOf = typename MemberTraits<decltype(Field)>::Value;

// Whether a row without more said hands out a text: there is no field, or the field is one.
template <auto Field> inline constexpr bool isText = std::is_same_v<ValueOf<Field>, CATUnicodeString>;
template <> inline constexpr bool isText<nullptr> = true;

// The name of a member, as the compiler writes it into the name of this function.
template <auto Field> constexpr std::string_view NameOf()
{
    std::string_view name = __PRETTY_FUNCTION__;
    name = name.substr(name.find("Field = "));
    name = name.substr(0, name.find_first_of(";]"));
    return name.substr(name.rfind(':') + 1);
}

template <auto Field> constexpr VEXMELKField<RecordOf<Field>> FieldOf(std::string_view unit)
{
    using Record = RecordOf<Field>;
    return {NameOf<Field>(), unit, [](Record& record) { return VEXMELKValueOf(record.*Field); },
        [](const Record& record)
        {
            const auto address = [](const auto& object) { return reinterpret_cast<const std::byte*>(&object); };
            return address(record.*Field) - address(record);
        }};
}

} // namespace VEXMELKRowDetail

namespace VEXMELKRowKinds {

// What a row may say behind its meaning.
struct Else // when missing
{
    constexpr Else(const char* text) { whenMissing.text = text; }
    constexpr Else(bool flag) { whenMissing.flag = flag; }
    constexpr Else(int integer) { whenMissing.integer = integer; }
    constexpr Else(double number) { whenMissing.number = number; }
    explicit constexpr Else(VEXMELKWhenMissing::Rule rule) { whenMissing.rule = rule; }
    VEXMELKWhenMissing whenMissing;
};
inline constexpr Else Keep{VEXMELKWhenMissing::Keeps};
inline constexpr Else Repeat{VEXMELKWhenMissing::Repeats};
inline constexpr Else Skip{VEXMELKWhenMissing::Skips};
inline constexpr Else Fail{VEXMELKWhenMissing::Fails};
struct Unit // another one than the usual of the kind
{
    std::string_view unit = {};
};
struct Fills // an output whose name is not the attribute's
{
    std::string_view output;
};
struct Or // words that mean something else there
{
    VEXMELKWords words = {};
};
struct CountsAs // what a bare number is, where no unit is put behind it
{
    std::string_view unit;
};
struct OnlyFor // a type of the element
{
    std::string_view type;
};
struct AsWritten // nothing is done to the text
{
};
struct Exact // a flag that has no other letter case
{
};
inline constexpr VEXMELKRange NotNegative{.isNotNegative = true};
inline constexpr VEXMELKRange Share{.isNotNegative = true, .upTo = 100};
struct Refers // a word that is the name of something as well
{
    std::string_view names;
};
struct Secret
{
};

constexpr void Apply(VEXMELKRow& row, const Else& option) { row.whenMissing = option.whenMissing; }
constexpr void Apply(VEXMELKRow& row, const Unit& option) { row.unit = option.unit; }
constexpr void Apply(VEXMELKRow& row, const Fills& option) { row.field = option.output; }
constexpr void Apply(VEXMELKRow& row, const Or& option) { row.words = option.words; }
constexpr void Apply(VEXMELKRow& row, const CountsAs& option) { row.countsAs = option.unit; }
constexpr void Apply(VEXMELKRow& row, const OnlyFor& option) { row.onlyFor = option.type; }
constexpr void Apply(VEXMELKRow& row, const Refers& option) { row.names = option.names; }
constexpr void Apply(VEXMELKRow& row, const VEXMELKRange& option) { row.sensible = option; }
constexpr void Apply(VEXMELKRow& row, Exact /*option*/) { row.isExact = true; }
constexpr void Apply(VEXMELKRow& row, AsWritten /*option*/) { row.isAsWritten = true; }
constexpr void Apply(VEXMELKRow& row, Secret /*option*/) { row.isSecret = true; }

template <auto Field> constexpr auto Checked(bool fits)
{
    if (!fits)
        VEXMELKRowDetail::DoesNotCompile("the field has another type than its row");
    return Field;
}

// A row that fills a field, or with the field left out (void) an output or nothing.
template <auto Field, class... Options> constexpr auto MakeRow(VEXMELKRow row, Options... options)
{
    row.field = row.attribute;
    (Apply(row, options), ...);
    if constexpr (std::is_null_pointer_v<decltype(Field)>)
        return row;
    else
    {
        using Record = VEXMELKRowDetail::RecordOf<Field>;
        using Value = VEXMELKRowDetail::ValueOf<Field>;
        VEXMELKRowOf<Record> made{row, {}, VEXMELKRowDetail::FieldOf<Field>(UnitShown(row))};
        made.row.field = made.field.name;
        const bool isText = row.form == VEXMELKForm::Text;
        const bool isInteger = row.form == VEXMELKForm::Integer || row.form == VEXMELKForm::Word;
        if constexpr (std::is_same_v<Value, CATUnicodeString>)
            made.access.text = Checked<Field>(isText);
        else if constexpr (std::is_same_v<Value, double>)
            made.access.number = Checked<Field>(!isText && !isInteger);
        else if (isInteger)
            made.access.assign = [](Record& record, int value) { record.*Field = static_cast<Value>(value); };
        else if constexpr (std::is_same_v<Value, unsigned char>)
            made.access.flag = Checked<Field>(row.form == VEXMELKForm::Flag);
        else
            VEXMELKRowDetail::DoesNotCompile("the field has another type than its row");
        return made;
    }
}

using Kind = VEXMELKKind;
using Form = VEXMELKForm;

template <auto Field = nullptr, class... Options>
constexpr auto Text(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Text}, options...);
}
// The name of something, as a text: "names" says of what.
template <auto Field = nullptr, class... Options>
constexpr auto Name(std::string_view attribute, std::string_view names, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({.attribute = attribute, .meaning = meaning, .kind = Kind::Name, .names = names}, options...);
}
template <auto Field = nullptr, class... Options>
constexpr auto Flag(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Flag, Form::Flag}, options...);
}
// One word of a list, as a text or as its value.
template <auto Field = nullptr, class... Options>
constexpr auto Word(std::string_view attribute, VEXMELKWords words, std::string_view meaning, Options... options)
{
    constexpr bool asText = VEXMELKRowDetail::isText<Field>;
    return MakeRow<Field>({.attribute = attribute,
                              .meaning = meaning,
                              .kind = Kind::Word,
                              .form = asText ? Form::Text : Form::Word,
                              .words = words},
        options...);
}
// A plain number, as a text or as a number.
template <auto Field = nullptr, class... Options>
constexpr auto NumberText(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Number}, options...);
}
template <auto Field = nullptr, class... Options>
constexpr auto Number(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Number, Form::Number}, options...);
}
template <auto Field = nullptr, class... Options>
constexpr auto Integer(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Integer, Form::Integer}, options...);
}
// A percentage with or without "%", as a fraction.
template <auto Field = nullptr, class... Options>
constexpr auto Fraction(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Percentage, Form::Fraction, "%"}, options...);
}
// Lengths: as a text with its unit, or as a number.
template <auto Field = nullptr, class... Options>
constexpr auto Length(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Length, Form::Text, "mm"}, options...);
}
template <auto Field = nullptr, class... Options>
constexpr auto Millimetres(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Length, Form::Millimetres, "mm"}, options...);
}
template <auto Field = nullptr, class... Options>
constexpr auto Metres(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Length, Form::Metres, "mm"}, options...);
}
// Angles: as a text with its unit, or as a number.
template <auto Field = nullptr, class... Options>
constexpr auto Angle(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Angle, Form::Text, "deg"}, options...);
}
template <auto Field = nullptr, class... Options>
constexpr auto Radians(std::string_view attribute, std::string_view meaning, Options... options)
{
    return MakeRow<Field>({attribute, meaning, Kind::Angle, Form::Radians, "deg"}, options...);
}

} // namespace VEXMELKRowKinds

// The fields of a record -------------------------------------------------------------------------------------------

// A field that holds records or a list, which have descriptions of their own.
template <auto Field> struct VEXMELKNested
{
};
// A field that no attribute fills by itself; of a number with its unit.
template <auto Field> struct VEXMELKComputed
{
    std::string_view unit = {};
};

// A field that is the caller's alone.
template <auto Field> struct VEXMELKCallers
{
};

namespace VEXMELKRowDetail {

struct Anything
{
    template <class Value> operator Value() const;
};
template <class Record, class... Known> constexpr std::size_t CountFields()
{
    if constexpr (requires { Record{Known{}..., Anything{}}; })
        return CountFields<Record, Known..., Anything>();
    else
        return sizeof...(Known);
}

template <class Record> using FieldArray = std::array<VEXMELKField<Record>, CountFields<Record>()>;

template <class Record> class FieldCollector
{
public:
    template <std::size_t Size> constexpr void Add(const VEXMELKTable<Record, Size>& table)
    {
        for (const VEXMELKField<Record>& field : table.fields)
            AddField(field);
    }
    template <auto Field> constexpr void Add(VEXMELKNested<Field> /*field*/) { AddNew(FieldOf<Field>({})); }
    template <auto Field> constexpr void Add(VEXMELKCallers<Field> /*field*/)
    {
        VEXMELKField<Record> field = FieldOf<Field>({});
        field.isCallers = true;
        AddNew(field);
    }
    template <auto Field> constexpr void Add(VEXMELKComputed<Field> field) { AddNew(FieldOf<Field>(field.unit)); }
    constexpr FieldArray<Record> All() const
    {
        if (m_Count != m_Fields.size())
            DoesNotCompile("a field of the record is not described");
        return m_Fields;
    }

private:
    constexpr bool Has(const VEXMELKField<Record>& field) const
    {
        for (std::size_t position = 0; position < m_Count; ++position)
            if (m_Fields[position].name == field.name)
                return true;
        return false;
    }
    // Several rows may fill a field by turns.
    constexpr void AddField(const VEXMELKField<Record>& field)
    {
        if (!Has(field))
            m_Fields[m_Count++] = field;
    }
    constexpr void AddNew(const VEXMELKField<Record>& field)
    {
        if (Has(field))
            DoesNotCompile("a field of the record is described twice");
        AddField(field);
    }

    FieldArray<Record> m_Fields{};
    std::size_t m_Count = 0;
};

} // namespace VEXMELKRowDetail

// All fields of a record, of the tables that fill it and of those without a row. Does not compile unless each field of
// the record is among them.
template <class Record, class... Parts> constexpr auto VEXMELKFieldList(const Parts&... parts)
{
    VEXMELKRowDetail::FieldCollector<Record> collector;
    (collector.Add(parts), ...);
    return collector.All();
}

#endif
