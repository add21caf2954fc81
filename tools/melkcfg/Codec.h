// The types of arguments and outputs as JSON: one Codec a type.
//
// Read merges the JSON over the value: members of a record that the JSON does not name stay.
#ifndef MELKCFG_Codec_H
#define MELKCFG_Codec_H

#include "CATListOf.h"
#include "CATMathDef.h"
#include "Json.h"
#include "VEXArray.h"

#include <array>
#include <limits>
#include <tuple>
#include <type_traits>

// The fields of a record as JSON members; see Records.h.
template <class Record> constexpr auto FieldsOf();

template <class Value> struct Codec;

template <> struct Codec<CATUnicodeString>
{
    static std::string Type() { return "text"; }
    static Json Write(const CATUnicodeString& value) { return value.ConvertToChar(); }
    static void Read(const Json& json, CATUnicodeString& value, const std::string& where)
    {
        if (!json.is_string())
            throw WrongType(where, "a text", json);
        value = CATUnicodeString(std::string_view(json.get_ref<const std::string&>()));
    }
};

// Booleans of the library are unsigned char.
template <> struct Codec<unsigned char>
{
    static std::string Type() { return "flag"; }
    static Json Write(unsigned char value) { return value != 0; }
    static void Read(const Json& json, unsigned char& value, const std::string& where)
    {
        if (!json.is_boolean())
            throw WrongType(where, "true or false", json);
        value = json.get<bool>() ? 1 : 0;
    }
};

template <> struct Codec<double>
{
    static std::string Type() { return "number"; }
    static Json Write(double value) { return value; }
    static void Read(const Json& json, double& value, const std::string& where)
    {
        if (!json.is_number())
            throw WrongType(where, "a number", json);
        value = json.get<double>();
    }
};

template <class Value>
requires std::is_integral_v<Value> || std::is_enum_v<Value>
struct Codec<Value>
{
    static std::string Type() { return "integer"; }
    static Json Write(Value value) { return static_cast<long>(value); }
    static void Read(const Json& json, Value& value, const std::string& where)
    {
        using Limits = std::numeric_limits<int>;
        const bool fits = json.is_number_integer() && json >= Limits::min() && json <= Limits::max();
        if (!fits)
            throw WrongType(where, "an integer of 32 bits", json);
        value = static_cast<Value>(json.get<int>());
    }
};

template <> struct Codec<CATMathPoint>
{
    static std::string Type() { return "[x, y, z]"; }
    static Json Write(const CATMathPoint& value) { return {value.GetX(), value.GetY(), value.GetZ()}; }
    static void Read(const Json& json, CATMathPoint& value, const std::string& where)
    {
        std::array<double, 3> coordinates = {};
        if (!json.is_array() || json.size() != coordinates.size())
            throw WrongType(where, "a point [x, y, z]", json);
        for (std::size_t index = 0; index < coordinates.size(); ++index)
            Codec<double>::Read(json[index], coordinates[index], where);
        value = CATMathPoint(coordinates[0], coordinates[1], coordinates[2]);
    }
};

// Reads a list element by element; "append" takes over each.
template <class Element, class Append> void ReadList(const Json& json, const std::string& where, Append append)
{
    if (!json.is_array())
        throw WrongType(where, "a list", json);
    for (std::size_t index = 0; index < json.size(); ++index)
    {
        Element element{};
        Codec<Element>::Read(json[index], element, where + "[" + std::to_string(index) + "]");
        append(element);
    }
}

template <class Element> struct Codec<CATListOf<Element>>
{
    static std::string Type() { return "list of " + Codec<Element>::Type(); }
    static Json Write(const CATListOf<Element>& value)
    {
        Json json = Json::array();
        for (const Element& element : value)
            json.push_back(Codec<Element>::Write(element));
        return json;
    }
    static void Read(const Json& json, CATListOf<Element>& value, const std::string& where)
    {
        value.RemoveAll();
        ReadList<Element>(json, where, [&](const Element& element) { value.Append(element); });
    }
};

template <class Element> struct Codec<VEXArray<Element>>
{
    static std::string Type() { return "list of " + Codec<Element>::Type(); }
    static Json Write(const VEXArray<Element>& value)
    {
        Json json = Json::array();
        for (const Element& element : value)
            json.push_back(Codec<Element>::Write(element));
        return json;
    }
    static void Read(const Json& json, VEXArray<Element>& value, const std::string& where)
    {
        value.reset();
        ReadList<Element>(json, where, [&](const Element& element) { value.add(element); });
    }
};

template <class Element, std::size_t Size> struct Codec<Element[Size]>
{
    static std::string Type() { return std::to_string(Size) + " of " + Codec<Element>::Type(); }
    static Json Write(const Element (&value)[Size])
    {
        Json json = Json::array();
        for (const Element& element : value)
            json.push_back(Codec<Element>::Write(element));
        return json;
    }
    static void Read(const Json& json, Element (&value)[Size], const std::string& where)
    {
        if (!json.is_array() || json.size() > Size)
            throw WrongType(where, ("a list of at most " + std::to_string(Size)).c_str(), json);
        for (std::size_t index = 0; index < json.size(); ++index)
            Codec<Element>::Read(json[index], value[index], where + "[" + std::to_string(index) + "]");
    }
};

template <class Record>
requires std::is_class_v<Record>
struct Codec<Record>
{
    static std::string Type()
    {
        std::string type;
        FieldsOf<Record>().ForEach(
            [&](const std::string& name, std::string_view unit, auto member)
            {
                using Field = std::remove_reference_t<decltype(std::declval<Record&>().*member)>;
                type += (type.empty() ? "{" : ", ") + name + ": " + Codec<Field>::Type();
                if (std::is_same_v<Field, double> && !unit.empty())
                    type += " [" + std::string(unit) + "]";
            });
        return type + "}";
    }
    static Json Write(const Record& value)
    {
        Json json = Json::object();
        FieldsOf<Record>().ForEach(
            [&](const std::string& name, std::string_view /*unit*/, auto member)
            {
                using Field = std::remove_cvref_t<decltype(value.*member)>;
                json[name] = Codec<Field>::Write(value.*member);
            });
        return json;
    }
    static void Read(const Json& json, Record& value, const std::string& where)
    {
        if (!json.is_object())
            throw WrongType(where, "an object", json);
        std::vector<std::string> names;
        std::size_t known = 0;
        FieldsOf<Record>().ForEach(
            [&](const std::string& name, std::string_view /*unit*/, auto member)
            {
                using Field = std::remove_reference_t<decltype(value.*member)>;
                names.push_back(name);
                const auto found = json.find(name);
                if (found == json.end())
                    return;
                Codec<Field>::Read(*found, value.*member, where + "." + name);
                ++known;
            });
        for (const auto& item : json.items())
            if (known != json.size() && std::find(names.begin(), names.end(), item.key()) == names.end())
                throw UnknownName("field", where + "." + item.key(), names);
    }
};

#endif
