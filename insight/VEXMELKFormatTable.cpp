// Elements that are alike in all but their tags, and attributes that are alike in all but their names, share a line.
#include "VEXMELKFormatTable.h"

#include "VEXMELKRowText.h"
#include "VEXMELKWording.h"

#include <algorithm>
#include <vector>

namespace {

std::string Line(
    const std::string& name, const std::string& unit, const std::string& meaning, const std::string& whenMissing)
{
    std::string line = "|";
    for (const std::string& cell : {name, unit, meaning, whenMissing})
        line += (cell.empty() ? "" : " " + cell) + " |";
    return line + "\n";
}

std::string Meaning(const VEXMELKRow& row, bool isKey)
{
    std::string meaning(row.meaning);
    if (row.kind == VEXMELKKind::Flag)
        meaning = "flag: " + meaning;
    if (row.isSecret)
        meaning += " (secret)";
    const std::string_view handedOut = VEXMELKHandedOutAs(row.form);
    if (!isKey && !handedOut.empty())
        meaning += " (" + std::string(handedOut) + ")";
    return meaning;
}

// One line of the table whose name is a list.
struct Entry
{
    std::vector<std::string> names;
    std::string unit;
    std::string meaning;
    std::string whenMissing;

    bool IsLike(const Entry& other) const
    {
        return unit == other.unit && meaning == other.meaning && whenMissing == other.whenMissing;
    }
};

void AddName(std::vector<std::string>& names, const std::string& name)
{
    if (std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(name);
}

void AddRow(std::vector<Entry>& entries, const VEXMELKRow& row, bool isKey = false)
{
    const Entry entry{
        {VEXMELKInBackticks(row.attribute)}, std::string(row.unit), Meaning(row, isKey), VEXMELKWhenMissingText(row)};
    const auto like =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& each) { return entry.IsLike(each); });
    if (like == entries.end())
        entries.push_back(entry);
    else
        AddName(like->names, entry.names.front());
}

// The standards, the categories and the root, which every file has: only their attributes are of interest.
bool IsCommon(const VEXMELKElement& element)
{
    const bool isStandard = element.tag == "standard" && !element.below;
    const bool isCategory = element.tag == "category" && element.below && element.below->tag == "standard";
    return isStandard || isCategory || (element.tag == "*" && !element.below);
}

std::vector<Entry> KeyOf(const VEXMELKElement& element)
{
    std::vector<Entry> entries;
    if (element.key && !IsCommon(element))
        AddRow(entries, *element.key, true);
    return entries;
}

std::vector<Entry> AttributesOf(const VEXMELKElement& element)
{
    std::vector<Entry> entries;
    for (const VEXMELKRows table : element.tables)
        for (const VEXMELKRow& row : table)
            if (!element.key || row.attribute != element.key->attribute || row.meaning != element.key->meaning)
                AddRow(entries, row);
    return entries;
}

std::string LinesOf(const std::vector<Entry>& entries, const std::string& suffix = {})
{
    std::string lines;
    for (const Entry& entry : entries)
        lines += Line(VEXMELKJoined(entry.names) + suffix, entry.unit, entry.meaning, entry.whenMissing);
    return lines;
}

// Elements of different tags, or below different ones, that have the same attributes.
struct ElementGroup
{
    std::vector<std::string> tags;
    std::vector<std::string> parents;
    const VEXMELKElement* first;
    std::string key;
    std::string attributes;

    std::string Place() const
    {
        const bool isChild = first->place == VEXMELKPlace::Child;
        if (parents.empty())
            return isChild ? "child of the root" : "any depth";
        return (isChild ? "child of " : "any depth below ") + VEXMELKJoined(parents);
    }
    bool Takes(const ElementGroup& other) const
    {
        return first->place == other.first->place && !first->below == !other.first->below &&
               first->meaning == other.first->meaning && first->whenMissing == other.first->whenMissing &&
               key == other.key && attributes == other.attributes;
    }
};

std::vector<ElementGroup> Grouped(std::span<const VEXMELKElement* const> elements)
{
    std::vector<ElementGroup> groups;
    for (const VEXMELKElement* element : elements)
    {
        if (IsCommon(*element))
            continue;
        const ElementGroup alone{{}, {}, element, LinesOf(KeyOf(*element)), LinesOf(AttributesOf(*element))};
        auto group =
            std::find_if(groups.begin(), groups.end(), [&](const ElementGroup& each) { return each.Takes(alone); });
        if (group == groups.end())
            group = groups.insert(groups.end(), alone);
        AddName(group->tags, element->tag == "*" ? "any element" : VEXMELKInBackticks(element->tag));
        if (element->below)
            AddName(group->parents, element->below->tag == "*" ? "it" : VEXMELKInBackticks(element->below->tag));
    }
    return groups;
}

// The lines of the attributes, or one line that says whose they are when another element has many of the same.
std::string AttributeLines(const std::vector<ElementGroup>& groups, const ElementGroup& group)
{
    constexpr int many = 4;
    const auto same = std::find_if(
        groups.begin(), groups.end(), [&](const ElementGroup& each) { return each.attributes == group.attributes; });
    if (&*same == &group || std::count(group.attributes.begin(), group.attributes.end(), '\n') < many)
        return group.attributes;
    return Line("the attributes of " + VEXMELKJoined(same->tags), "", "likewise", "likewise");
}

} // namespace

std::string VEXMELKFormatTable(const VEXMELKDescription& description)
{
    std::string table = "| element, attribute | unit | meaning | when missing |\n|---|---|---|---|\n";
    for (const VEXMELKElement* element : description.elements)
        if (IsCommon(*element))
            table += LinesOf(AttributesOf(*element),
                element->tag == "*" ? " of the root" : " of " + VEXMELKInBackticks(element->tag));
    const std::vector<ElementGroup> groups = Grouped(description.elements);
    for (const ElementGroup& group : groups)
        table += Line(VEXMELKJoined(group.tags) + ", " + group.Place(), "", std::string(group.first->meaning),
                     std::string(group.first->whenMissing)) +
                 group.key + AttributeLines(groups, group);
    return table;
}
