// Values of any type that operations take and give, for whoever handles them without knowing their types: tools that
// print them, compare them or fill them in.
//
// A VEXMELKValue refers to a value that somebody else owns, and must not outlive it. A record is seen as its fields in
// declared order, a list as its elements.
#ifndef VEXMELKValue_H
#define VEXMELKValue_H

#include "CATListOf.h"
#include "CATMathDef.h"
#include "CATUnicodeString.h"
#include "VEXArray.h"
#include "VEXMELKAttrAccessBase.h"
#include "VEXMELKCFGAttributeStr.h"
#include "VEXMELKConfigurationExport.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

class VEXMELKIntegerView;
class VEXMELKRecordView;
class VEXMELKListView;

// Editable attributes, with the access objects that they point to.
class VEXMELKAttributeValues : public CATListValVEXMELKCFGAttributeStr
{
public:
    VEXMELKAttrAccessBase* NewAccess()
    {
        m_Accesses.push_back(std::make_shared<VEXMELKAttrAccessBase>());
        return m_Accesses.back().get();
    }

private:
    std::vector<std::shared_ptr<VEXMELKAttrAccessBase>> m_Accesses;
};

// Nothing, a text, a flag, a number, an integer or enumeration, a point, a record, a list, or editable attributes.
using VEXMELKValue =
    std::variant<std::monostate, CATUnicodeString*, unsigned char*, double*, std::shared_ptr<VEXMELKIntegerView>,
        CATMathPoint*, std::shared_ptr<VEXMELKRecordView>, std::shared_ptr<VEXMELKListView>, VEXMELKAttributeValues*>;

class VEXMELKIntegerView
{
public:
    virtual ~VEXMELKIntegerView() = default;
    virtual long Get() const = 0;
    virtual void Set(int number) = 0;
    virtual const void* Address() const = 0;
};

class VEXMELKRecordView
{
public:
    virtual ~VEXMELKRecordView() = default;
    virtual std::size_t Size() const = 0;
    virtual std::string_view Name(std::size_t position) const = 0;
    virtual std::string_view Unit(std::size_t position) const = 0; // see UnitShown; may be empty
    virtual VEXMELKValue At(std::size_t position) = 0;
};

class VEXMELKListView
{
public:
    virtual ~VEXMELKListView() = default;
    virtual std::size_t Size() const = 0;
    virtual VEXMELKValue At(std::size_t position) = 0;
    // The number of elements of a list that always has as many; 0 for one that grows.
    virtual std::size_t FixedSize() const = 0;
    // For a list that grows: empties it, and appends an element. The value is the new element before it is appended;
    // it is valid until the next of these.
    virtual void Clear() = 0;
    virtual VEXMELKValue NewElement() = 0;
    virtual void AppendNewElement() = 0;
};

// The type in words: "text", "list of {name: text, a: number [mm]}".
ExportedByVEXMELKConfiguration std::string VEXMELKTypeText(const VEXMELKValue& value, std::string_view unit = {});

// Making views -----------------------------------------------------------------------------------------------------

// A field of a record: its name, its unit (see UnitShown), and where it is.
template <class Record> struct VEXMELKField
{
    std::string_view name;
    std::string_view unit;
    VEXMELKValue (*value)(Record& record) = nullptr;
    std::ptrdiff_t (*offset)(const Record& record) = nullptr; // from the record's begin, in bytes
    bool isCallers = false;                                   // operations do not touch it
};

// All fields of a record; specialised beside the reader that fills it (see FieldList in VEXMELKRow.h).
template <class Record> inline constexpr std::nullptr_t VEXMELKFieldsOf = nullptr;

template <class Integer> class VEXMELKIntegerViewOf : public VEXMELKIntegerView
{
public:
    explicit VEXMELKIntegerViewOf(Integer& integer) : m_Integer(integer) {}
    long Get() const override { return static_cast<long>(m_Integer); }
    void Set(int number) override { m_Integer = static_cast<Integer>(number); }
    const void* Address() const override { return &m_Integer; }

private:
    Integer& m_Integer;
};

// Where a field is in its record, and in the description of the record.
struct VEXMELKFieldPlace
{
    bool isCallers;
    std::ptrdiff_t offset;
    std::size_t described;
};
// In declared order, those that are the caller's behind the others.
void VEXMELKSort(std::span<VEXMELKFieldPlace> places);

template <class Record> class VEXMELKRecordViewOf : public VEXMELKRecordView
{
public:
    explicit VEXMELKRecordViewOf(Record& record) : m_Record(record) {}
    std::size_t Size() const override
    {
        return static_cast<std::size_t>(std::count_if(
            Places().begin(), Places().end(), [](const VEXMELKFieldPlace& place) { return !place.isCallers; }));
    }
    std::string_view Name(std::size_t position) const override { return FieldAt(position).name; }
    std::string_view Unit(std::size_t position) const override { return FieldAt(position).unit; }
    VEXMELKValue At(std::size_t position) override { return FieldAt(position).value(m_Record); }

private:
    static const auto& FieldAt(std::size_t position) { return VEXMELKFieldsOf<Record>[Places()[position].described]; }
    static const auto& Places()
    {
        static const auto places = []
        {
            const Record record{};
            std::array<VEXMELKFieldPlace, std::size(VEXMELKFieldsOf<Record>)> made{};
            for (std::size_t field = 0; field < made.size(); ++field)
                made[field] = {
                    VEXMELKFieldsOf<Record>[field].isCallers, VEXMELKFieldsOf<Record>[field].offset(record), field};
            VEXMELKSort(made);
            return made;
        }();
        return places;
    }

    Record& m_Record;
};

template <class List> class VEXMELKListViewOf;

template <class Value> VEXMELKValue VEXMELKValueOf(Value& value)
{
    if constexpr (requires { typename VEXMELKListViewOf<Value>::Element; })
        return std::make_shared<VEXMELKListViewOf<Value>>(value);
    else if constexpr (requires(VEXMELKValue any) { any = &value; })
        return &value;
    else if constexpr (std::is_integral_v<Value> || std::is_enum_v<Value>)
        return std::make_shared<VEXMELKIntegerViewOf<Value>>(value);
    else
        return std::make_shared<VEXMELKRecordViewOf<Value>>(value);
}

// A list that grows.
template <class List, class Value> class VEXMELKGrowingListView : public VEXMELKListView
{
public:
    using Element = Value;
    explicit VEXMELKGrowingListView(List& list) : m_List(list) {}
    std::size_t FixedSize() const override { return 0; }
    VEXMELKValue NewElement() override
    {
        m_New = Value();
        return VEXMELKValueOf(m_New);
    }

protected:
    List& m_List;
    Value m_New{};
};

template <class Value>
class VEXMELKListViewOf<CATListOf<Value>> : public VEXMELKGrowingListView<CATListOf<Value>, Value>
{
public:
    using VEXMELKGrowingListView<CATListOf<Value>, Value>::VEXMELKGrowingListView;
    std::size_t Size() const override { return static_cast<std::size_t>(this->m_List.Size()); }
    VEXMELKValue At(std::size_t position) override
    {
        return VEXMELKValueOf(this->m_List[static_cast<int>(position) + 1]);
    }
    void Clear() override { this->m_List.RemoveAll(); }
    void AppendNewElement() override { this->m_List.Append(this->m_New); }
};

template <class Value> class VEXMELKListViewOf<VEXArray<Value>> : public VEXMELKGrowingListView<VEXArray<Value>, Value>
{
public:
    using VEXMELKGrowingListView<VEXArray<Value>, Value>::VEXMELKGrowingListView;
    std::size_t Size() const override { return static_cast<std::size_t>(this->m_List.size()); }
    VEXMELKValue At(std::size_t position) override { return VEXMELKValueOf(this->m_List[static_cast<int>(position)]); }
    void Clear() override { this->m_List.reset(); }
    void AppendNewElement() override { this->m_List.add(this->m_New); }
};

template <class Value, std::size_t Count> class VEXMELKListViewOf<std::array<Value, Count>> : public VEXMELKListView
{
public:
    using Element = Value;
    explicit VEXMELKListViewOf(std::array<Value, Count>& list) : m_List(list) {}
    std::size_t Size() const override { return Count; }
    VEXMELKValue At(std::size_t position) override { return VEXMELKValueOf(m_List[position]); }
    std::size_t FixedSize() const override { return Count; }
    void Clear() override {}
    VEXMELKValue NewElement() override { return {}; }
    void AppendNewElement() override {}

private:
    std::array<Value, Count>& m_List;
};

#endif
