// Documents made from a description: every element and attribute of it, twice, with numbers that differ.
#ifndef TESTS_DescribedDocument_H
#define TESTS_DescribedDocument_H

#include "VEXMELKTrial.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

class DescribedDocument
{
public:
    using Elements = std::vector<const VEXMELKElement*>;
    // Stands for every name and key, so that whatever is referred to is there.
    static constexpr const char* key = "95";
    // The name of the second element of a kind.
    static constexpr const char* otherKey = "96";

    // By their tags, as far up as look-ups tell elements apart.
    static bool IsSame(const VEXMELKElement& left, const VEXMELKElement& right)
    {
        return left.tag == right.tag && !left.below == !right.below &&
               (!left.below || left.below->tag == right.below->tag);
    }

    template <class Action> static void ForEachRow(const VEXMELKElement& element, const Action& action)
    {
        for (const VEXMELKRows table : element.tables)
            std::for_each(table.begin(), table.end(), action);
    }

    // With all that is described, or with the way to one element alone.
    std::string Of(const VEXMELKDescription& description, const VEXMELKElement* only = nullptr)
    {
        const Elements all = VEXMELKElementsOf(description);
        std::string attributes;
        for (const VEXMELKElement* element : all)
            if (!element->below && element->tag == "*") // the root itself
                for (const VEXMELKRow& row : element->tables[0])
                    attributes += " " + std::string(row.attribute) + "='" + TextOf(row, 0) + "'";
        return "<config" + attributes + ">" + Contents(all, nullptr, only) + "</config>";
    }

private:
    // Whether an element is the described one, or stands above it.
    static bool IsOnTheWay(const VEXMELKElement& element, const VEXMELKElement& described)
    {
        return IsSame(element, described) || (described.below && IsOnTheWay(element, *described.below));
    }

    // The text of an attribute, in one of two variants.
    std::string TextOf(const VEXMELKRow& row, int variant)
    {
        if (row.kind == VEXMELKKind::Flag)
            return variant == 0 ? "true" : "false";
        const bool isOtherText = row.kind == VEXMELKKind::Text && variant == 0;
        if ((row.kind == VEXMELKKind::Word || isOtherText) && !row.words.list.empty())
            return std::string(variant == 0 ? row.words.list.front().text : row.words.list.back().text);
        if (row.kind == VEXMELKKind::Name || row.kind == VEXMELKKind::Integer)
            return key;
        return std::to_string(m_Number++);
    }

    // The elements below a described one, or below the root, that lead to "only" or lie below it (null: all).
    std::string Contents(const Elements& all, const VEXMELKElement* parent, const VEXMELKElement* only)
    {
        std::string contents;
        Elements written;
        for (const VEXMELKElement* element : all)
        {
            const bool isHere =
                parent ? element->below && IsSame(*element->below, *parent) : !element->below && element->tag != "*";
            const bool isWanted = !only || IsOnTheWay(*element, *only) || IsOnTheWay(*only, *element);
            const auto isKnown = [&](const VEXMELKElement* other) { return IsSame(*other, *element); };
            if (isHere && isWanted && std::none_of(written.begin(), written.end(), isKnown))
            {
                written.push_back(element);
                contents += Written(all, *element, only);
            }
        }
        return contents;
    }
    // Once for each word of its key, in two variants unless the element is alone.
    std::string Written(const Elements& all, const VEXMELKElement& element, const VEXMELKElement* only)
    {
        const bool hasWords = element.key && element.key->kind == VEXMELKKind::Word;
        const std::size_t words = hasWords ? element.key->words.list.size() : 1;
        const int variants = element.choice == VEXMELKChoice::Single ? 1 : 2;
        const std::string tag = element.tag == "*" ? "any" : std::string(element.tag);
        const std::string contents = element.hasText ? "text" : Contents(all, &element, only);
        std::string written;
        for (std::size_t word = 0; word < words; ++word)
            for (int variant = 0; variant < variants; ++variant)
                written += "<" + tag + Attributes(all, element, word, variant) + ">" + contents + "</" + tag + ">";
        return written;
    }
    std::string Attributes(const Elements& all, const VEXMELKElement& element, std::size_t word, int variant)
    {
        std::set<std::string_view> known;
        std::string attributes;
        const auto add = [&](const VEXMELKRow& row, const std::string& text)
        {
            if (known.insert(row.attribute).second)
                attributes += " " + std::string(row.attribute) + "='" + text + "'";
        };
        if (element.key)
            add(*element.key, KeyOf(element, word, variant));
        for (const VEXMELKElement* same : all)
            if (IsSame(*same, element))
                ForEachRow(*same, [&](const VEXMELKRow& row) { add(row, TextOf(row, variant)); });
        return attributes;
    }
    std::string KeyOf(const VEXMELKElement& element, std::size_t word, int variant)
    {
        if (element.key->kind == VEXMELKKind::Word)
            return std::string(element.key->words.list[word].text);
        if (variant != 0)
            return otherKey;
        return element.tag == "category" ? "default" : element.key->attribute == "index" ? "1" : key;
    }

    int m_Number = 100;
};

#endif
