// What a row or an element does not say is left out, but for what every one of them has.
#include "DescriptionJson.h"

#include "VEXMELKGrammar.h"
#include "VEXMELKRowText.h"
#include "VEXMELKTrial.h"

#include <algorithm>

namespace {

template <class Enumeration, std::size_t Count> std::string NameIn(const char* const (&names)[Count], Enumeration value)
{
    return names[static_cast<std::size_t>(value)];
}

constexpr const char* kinds[] = {"text", "name", "word", "flag", "number", "integer", "percentage", "length", "angle"};
constexpr const char* forms[] = {
    "text", "flag", "number", "fraction", "millimetres", "metres", "radians", "integer", "word"};
constexpr const char* rulesWhenMissing[] = {"gives", "keeps", "repeats", "skips", "fails"};
constexpr const char* choices[] = {"first", "last", "each", "single", "by key", "nearest angle", "length below",
    "nearest travel", "coeficients 1997", "radii 1997", "radii 2002", "head contour"};
constexpr const char* fallBacks[] = {"none", "value by value", "whole element", "whole category", "overlay", "other"};

Json DefaultOf(const VEXMELKRow& row)
{
    const VEXMELKWhenMissing& missing = row.whenMissing;
    switch (row.form)
    {
    case VEXMELKForm::Flag:
        return missing.flag;
    case VEXMELKForm::Text:
        return missing.text;
    case VEXMELKForm::Integer:
    case VEXMELKForm::Word:
        return missing.integer;
    default:
        return missing.number;
    }
}

Json WordsOf(const VEXMELKRow& row)
{
    Json words = Json::array();
    for (const VEXMELKWord& word : row.words.list)
        if (row.form == VEXMELKForm::Word)
            words.push_back({{"text", word.text}, {"value", word.value}});
        else
            words.push_back({{"text", word.text}});
    return words;
}

Json RowToJson(const VEXMELKRow& row)
{
    Json json = {{"name", row.attribute}, {"kind", NameIn(kinds, row.kind)}, {"form", NameIn(forms, row.form)},
        {"meaning", VEXMELKPlainText(row.meaning)}, {"whenMissing", NameIn(rulesWhenMissing, row.whenMissing.rule)}};
    const auto add = [&](const char* name, std::string_view text)
    {
        if (!text.empty())
            json[name] = text;
    };
    if (row.whenMissing.rule == VEXMELKWhenMissing::Gives)
        json["default"] = DefaultOf(row);
    add("unit", row.unit);
    add("countsAs", row.countsAs);
    add("handedOutIn", UnitHandedOut(row.form));
    add("names", row.names);
    add("onlyForType", row.onlyFor);
    if (VEXMELKIsQuantity(row.kind))
        json["units"] = VEXMELKUnitsOf(row.kind);
    if (!row.words.list.empty())
        json["words"] = WordsOf(row);
    if (row.form == VEXMELKForm::Word)
        json["otherwise"] = row.words.otherwise;
    if (row.sensible.isNotNegative)
        json["minimum"] = 0;
    if (row.sensible.upTo > 0)
        json["maximum"] = row.sensible.upTo;
    for (const auto& [name, isSet] :
        {std::pair("asWritten", row.isAsWritten), {"exact", row.isExact}, {"secret", row.isSecret}})
        if (isSet)
            json[name] = true;
    return json;
}

class ElementList
{
public:
    explicit ElementList(const VEXMELKDescription& description) : m_Elements(VEXMELKElementsWithParents(description)) {}
    Json ToJson() const
    {
        Json list = Json::array();
        for (const VEXMELKElement* element : m_Elements)
            list.push_back(ElementToJson(*element));
        return list;
    }

private:
    std::size_t NumberOf(const VEXMELKElement& element) const
    {
        return static_cast<std::size_t>(std::find(m_Elements.begin(), m_Elements.end(), &element) - m_Elements.begin());
    }
    Json ElementToJson(const VEXMELKElement& element) const
    {
        const bool isRoot = element.tag == "*" && !element.below;
        Json json = {{"tag", element.tag}, {"below", element.below ? Json(NumberOf(*element.below)) : Json()},
            {"place", isRoot                                 ? "root"
                      : element.place == VEXMELKPlace::Child ? "child"
                                                             : "any depth"},
            {"counts", NameIn(choices, element.choice)}, {"fallBack", NameIn(fallBacks, element.fallBack)},
            {"meaning", VEXMELKPlainText(element.meaning)}};
        if (!element.whenMissing.empty())
            json["whenMissing"] = VEXMELKPlainText(element.whenMissing);
        if (element.key)
            json["key"] = element.key->attribute;
        if (element.hasText)
            json["hasText"] = true;
        json["attributes"] = Json::array();
        for (const VEXMELKElementKind::Attribute& attribute : VEXMELKElementKind({&element}).attributes)
            for (const VEXMELKRow* row : attribute.rows)
                json["attributes"].push_back(RowToJson(*row));
        return json;
    }

    std::vector<const VEXMELKElement*> m_Elements;
};

} // namespace

Json DescriptionsToJson(const std::vector<const VEXMELKDescription*>& descriptions)
{
    Json configurations = Json::array();
    for (const VEXMELKDescription* description : descriptions)
    {
        const std::string file = VEXMELKFileOf(*description);
        configurations.push_back({{"name", description->name}, {"file", file.empty() ? Json() : Json(file)},
            {"meaning", VEXMELKPlainText(description->meaning)},
            {"layout", description->layout == VEXMELKLayout::Parts ? "parts" : "single"}, {"root", description->root},
            {"elements", ElementList(*description).ToJson()}});
    }
    return {{"version", 1}, {"configurations", configurations}};
}
