// Editable attributes as JSON. The access objects that JSON describes live as long as the request.
#include "Attributes.h"

#include "Values.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<VEXMELKAttrAccessBase * VEXMELKCFGAttributeStr::*, 3> accessObjects = {
    &VEXMELKCFGAttributeStr::firstAccess,
    &VEXMELKCFGAttributeStr::secondAccess,
    &VEXMELKCFGAttributeStr::thirdAccess,
};

Json WriteAccess(const VEXMELKAttrAccessBase* access)
{
    if (!access)
        return nullptr;
    Json ranges = Json::array();
    for (int position = 1; position <= access->GetRangeCount(); ++position)
    {
        const VEXMELKColorRange range = access->GetRange(position);
        ranges.push_back({{"min", range.Minimum}, {"max", range.Maximum}, {"min_color", range.MinimumColor},
            {"max_color", range.MaximumColor}, {"critical", range.Critical}});
    }
    return {{"value", access->GetText().ConvertToChar()}, {"read_only", access->IsReadOnly()}, {"ranges", ranges}};
}

// The members of an object that may have these; throws RequestError for any other.
void CheckMembers(const Json& json, const std::string& where, const std::vector<std::string>& known)
{
    if (!json.is_object())
        throw WrongType(where, "an object", json);
    for (const auto& item : json.items())
        if (std::find(known.begin(), known.end(), item.key()) == known.end())
            throw UnknownName("field", where + "." + item.key(), known);
}

template <class Value> Value Member(const Json& json, const char* name, const std::string& where)
{
    const auto found = json.find(name);
    return found == json.end() ? Value{} : ValueFromJson<Value>(*found, where + "." + name);
}

unsigned int Color(const Json& json, const char* name, const std::string& where)
{
    return static_cast<unsigned int>(Member<int>(json, name, where));
}

void ReadAccess(const Json& json, VEXMELKAttrAccessBase& access, const std::string& where)
{
    CheckMembers(json, where, {"value", "read_only", "ranges"});
    access.SetValueFromText(Member<CATUnicodeString>(json, "value", where));
    access.SetReadOnly(Member<unsigned char>(json, "read_only", where) != 0);
    const Json ranges = json.value("ranges", Json::array());
    if (!ranges.is_array())
        throw WrongType(where + ".ranges", "a list", ranges);
    for (const Json& range : ranges)
    {
        CheckMembers(range, where + ".ranges", {"min", "max", "min_color", "max_color", "critical"});
        access.AddColorRange(Member<double>(range, "min", where), Member<double>(range, "max", where),
            Color(range, "min_color", where), Color(range, "max_color", where),
            Member<unsigned char>(range, "critical", where) != 0, nullptr);
    }
}

} // namespace

Json AttributesToJson(const VEXMELKAttributeValues& attributes)
{
    Json json = Json::array();
    for (const VEXMELKCFGAttributeStr& attribute : attributes)
    {
        Json object = {{"kind", attribute.kind}, {"name", attribute.name.ConvertToChar()}};
        for (const auto access : accessObjects)
            object["objects"].push_back(WriteAccess(attribute.*access));
        json.push_back(object);
    }
    return json;
}

void AttributesFromJson(const Json& json, VEXMELKAttributeValues& attributes, const std::string& where)
{
    if (!json.is_array())
        throw WrongType(where, "a list", json);
    for (const Json& item : json)
    {
        CheckMembers(item, where, {"kind", "name", "objects"});
        VEXMELKCFGAttributeStr attribute;
        attribute.kind = Member<int>(item, "kind", where);
        attribute.name = Member<CATUnicodeString>(item, "name", where);
        const Json objects = item.value("objects", Json::array());
        if (!objects.is_array() || objects.size() > accessObjects.size())
            throw WrongType(where + ".objects", "a list of at most three", objects);
        for (std::size_t index = 0; index < objects.size(); ++index)
        {
            if (objects[index].is_null())
                continue;
            attribute.*accessObjects[index] = attributes.NewAccess();
            ReadAccess(objects[index], *(attribute.*accessObjects[index]), where + ".objects");
        }
        attributes.Append(attribute);
    }
}
