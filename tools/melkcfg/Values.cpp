// JSON and values: one function for each kind of value in each direction.
#include "Values.h"

#include "Attributes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

Json Write(std::monostate /*nothing*/) { return nullptr; }
Json Write(const CATUnicodeString* text) { return text->ConvertToChar(); }
Json Write(const unsigned char* flag) { return *flag != 0; }
Json Write(const double* number)
{
    RequireJsonNumber(*number);
    return *number;
}
Json Write(const std::shared_ptr<VEXMELKIntegerView>& integer) { return integer->Get(); }
Json Write(const CATMathPoint* point) { return {point->GetX(), point->GetY(), point->GetZ()}; }
Json Write(const std::shared_ptr<VEXMELKRecordView>& record)
{
    Json json = Json::object();
    for (std::size_t position = 0; position < record->Size(); ++position)
        json[std::string(record->Name(position))] = ToJson(record->At(position));
    return json;
}
Json Write(const std::shared_ptr<VEXMELKListView>& list)
{
    Json json = Json::array();
    for (std::size_t position = 0; position < list->Size(); ++position)
        json.push_back(ToJson(list->At(position)));
    return json;
}
Json Write(const VEXMELKAttributeValues* attributes) { return AttributesToJson(*attributes); }

void Read(const Json& /*json*/, std::monostate /*nothing*/, const std::string& /*where*/) {}

void Read(const Json& json, CATUnicodeString* text, const std::string& where)
{
    if (!json.is_string())
        throw WrongType(where, "a text", json);
    *text = std::string_view(json.get_ref<const std::string&>());
}

void Read(const Json& json, unsigned char* flag, const std::string& where)
{
    if (!json.is_boolean())
        throw WrongType(where, "true or false", json);
    *flag = json.get<bool>() ? 1 : 0;
}

void Read(const Json& json, double* number, const std::string& where)
{
    if (!json.is_number())
        throw WrongType(where, "a number", json);
    *number = json.get<double>();
}

void Read(const Json& json, const std::shared_ptr<VEXMELKIntegerView>& integer, const std::string& where)
{
    using Limits = std::numeric_limits<int>;
    const bool fits = json.is_number_integer() && json >= Limits::min() && json <= Limits::max();
    if (!fits)
        throw WrongType(where, "an integer of 32 bits", json);
    integer->Set(json.get<int>());
}

void Read(const Json& json, CATMathPoint* point, const std::string& where)
{
    std::array<double, 3> coordinates = {};
    if (!json.is_array() || json.size() != coordinates.size())
        throw WrongType(where, "a point [x, y, z]", json);
    for (std::size_t index = 0; index < coordinates.size(); ++index)
        Read(json[index], &coordinates[index], where);
    *point = CATMathPoint(coordinates[0], coordinates[1], coordinates[2]);
}

void Read(const Json& json, const std::shared_ptr<VEXMELKRecordView>& record, const std::string& where)
{
    if (!json.is_object())
        throw WrongType(where, "an object", json);
    std::vector<std::string> names;
    std::size_t known = 0;
    for (std::size_t position = 0; position < record->Size(); ++position)
    {
        names.emplace_back(record->Name(position));
        const auto found = json.find(names.back());
        if (found == json.end())
            continue;
        FromJson(*found, record->At(position), where + "." + names.back());
        ++known;
    }
    for (const auto& item : json.items())
        if (known != json.size() && std::find(names.begin(), names.end(), item.key()) == names.end())
            throw UnknownName("field", where + "." + item.key(), names);
}

void Read(const Json& json, const std::shared_ptr<VEXMELKListView>& list, const std::string& where)
{
    const std::size_t fixed = list->FixedSize();
    if (!json.is_array() || (fixed > 0 && json.size() > fixed))
        throw WrongType(where, fixed > 0 ? ("a list of at most " + std::to_string(fixed)).c_str() : "a list", json);
    if (fixed == 0)
        list->Clear();
    for (std::size_t index = 0; index < json.size(); ++index)
    {
        FromJson(
            json[index], fixed > 0 ? list->At(index) : list->NewElement(), where + "[" + std::to_string(index) + "]");
        if (fixed == 0)
            list->AppendNewElement();
    }
}

void Read(const Json& json, VEXMELKAttributeValues* attributes, const std::string& where)
{
    AttributesFromJson(json, *attributes, where);
}

} // namespace

void RequireJsonNumber(double number)
{
    if (!std::isfinite(number))
        throw RequestError("the answer holds a number that JSON cannot: " + std::to_string(number));
}

Json ToJson(const VEXMELKValue& value)
{
    return std::visit([](const auto& held) { return Write(held); }, value);
}

void FromJson(const Json& json, const VEXMELKValue& value, const std::string& where)
{
    std::visit([&](const auto& held) { Read(json, held, where); }, value);
}
