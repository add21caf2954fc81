// The descriptions are true: while every operation is asked over documents made from the descriptions, all that is
// looked for is described, at the place where it is looked for, and all that is described is looked for by something.
#include "LibraryTest.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKDescription.h"
#include "VEXMELKOpticalPropsOfWSConfig.h"
#include "VEXMELKWatch.h"

#include <set>
#include <tuple>

namespace {

// Stands for every name and number, so that whatever is referred to is there.
constexpr const char* key = "95";
// The name of the second element of a kind.
constexpr const char* otherKey = "96";

class DescriptionTest : public LibraryTest, private VEXMELKWatch
{
protected:
    using Elements = std::vector<const VEXMELKElement*>;

    static Elements AllElements(const VEXMELKDescription& description)
    {
        Elements all;
        for (const VEXMELKDescription* level = &description; level; level = level->base)
            all.insert(all.end(), level->elements.begin(), level->elements.end());
        return all;
    }

    // By their tags, as far up as look-ups tell elements apart.
    static bool IsSame(const VEXMELKElement& left, const VEXMELKElement& right)
    {
        return left.tag == right.tag && !left.below == !right.below &&
               (!left.below || left.below->tag == right.below->tag);
    }
    // What a look-up depends on.
    using Facts = std::tuple<std::string, VEXMELKKind, VEXMELKForm, std::string, bool, VEXMELKWhenMissing::Rule,
        std::string, double, bool, int>;
    static Facts FactsOf(const VEXMELKRow& row)
    {
        const VEXMELKWhenMissing& missing = row.whenMissing;
        return {std::string(row.attribute), row.kind, row.form, std::string(row.unit), row.isAsWritten, missing.rule,
            std::string(missing.text), missing.number, missing.flag, missing.integer};
    }
    // Whether an element is the described one, or stands above it.
    static bool IsOnTheWay(const VEXMELKElement& element, const VEXMELKElement& described)
    {
        return IsSame(element, described) || (described.below && IsOnTheWay(element, *described.below));
    }

    // The text of an attribute, in one of two variants.
    static std::string TextOf(const VEXMELKRow& row, int variant)
    {
        if (row.kind == VEXMELKKind::Flag)
            return variant == 0 ? "true" : "false";
        if (row.kind == VEXMELKKind::Word && !row.words.list.empty())
            return std::string(variant == 0 ? row.words.list.front().text : row.words.list.back().text);
        return row.kind == VEXMELKKind::Integer && row.attribute == "index" ? "1" : key;
    }

    // The elements below a described one, or below the root, that lead to "only" or lie below it (null: all).
    static std::string Contents(const Elements& all, const VEXMELKElement* parent, const VEXMELKElement* only)
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
    static std::string Written(const Elements& all, const VEXMELKElement& element, const VEXMELKElement* only)
    {
        const bool hasWords = element.key && element.key->kind == VEXMELKKind::Word;
        const std::size_t words = hasWords ? element.key->words.list.size() : 1;
        const int variants = element.choice == VEXMELKChoice::Single ? 1 : 2;
        std::string written;
        for (std::size_t word = 0; word < words; ++word)
            for (int variant = 0; variant < variants; ++variant)
            {
                std::set<std::string_view> known;
                std::string attributes;
                const auto add = [&](const VEXMELKRow& row, const std::string& text)
                {
                    if (known.insert(row.attribute).second)
                        attributes += " " + std::string(row.attribute) + "='" + text + "'";
                };
                if (element.key)
                    add(*element.key, hasWords                    ? std::string(element.key->words.list[word].text)
                                      : variant != 0              ? otherKey
                                      : element.tag == "category" ? "default"
                                                                  : TextOf(*element.key, variant));
                for (const VEXMELKElement* same : all)
                    if (IsSame(*same, element))
                        for (const VEXMELKRows rows : same->tables)
                            for (const VEXMELKRow& row : rows)
                                add(row, TextOf(row, variant));
                const std::string tag = element.tag == "*" ? "any" : std::string(element.tag);
                written += "<" + tag + attributes + ">" + (element.hasText ? "text" : Contents(all, &element, only)) +
                           "</" + tag + ">";
            }
        return written;
    }
    static std::string DocumentOf(const VEXMELKDescription& description, const VEXMELKElement* only)
    {
        const Elements all = AllElements(description);
        std::string attributes;
        for (const VEXMELKElement* element : all)
            if (!element->below && element->tag == "*") // the root itself
                for (const VEXMELKRow& row : element->tables[0])
                    attributes += " " + std::string(row.attribute) + "='" + TextOf(row, 0) + "'";
        return "<config" + attributes + ">" + Contents(all, nullptr, only) + "</config>";
    }

    // Asks an operation with every argument that the generated documents make meaningful.
    void AskAll(VEXMELKConfig& object, const VEXMELKOperation& operation)
    {
        for (int variant = 0; variant < 8; ++variant)
        {
            const auto question = operation.NewQuestion();
            for (std::size_t position = 0; position < operation.Parameters().size(); ++position)
                Fill(operation.Parameters()[position], variant, question->Parameter(position));
            question->Ask(object);
        }
    }
    static void Fill(const VEXMELKParameter& parameter, int variant, const VEXMELKValue& value)
    {
        if (const auto* text = std::get_if<CATUnicodeString*>(&value); text && !parameter.IsOutput())
        {
            const bool hasWords =
                parameter.element && parameter.element->key && !parameter.element->key->words.list.empty();
            const char* name = variant < 4 ? key : otherKey;
            **text = parameter.role == VEXMELKRole::Category ? (variant % 2 == 0 ? "default" : otherKey)
                     : parameter.role == VEXMELKRole::Tag    ? "any"
                     : hasWords                              ? parameter.element->key->words.list[0].text
                     : parameter.role == VEXMELKRole::Key    ? std::string_view(name)
                                                             : std::string_view(key);
        }
        else if (const auto* flag = std::get_if<unsigned char*>(&value))
            **flag = variant % 2 == 0 ? 0 : 1;
        else if (const auto* number = std::get_if<double*>(&value))
            **number = parameter.unit == "m" ? 0.1 : parameter.unit == "rad" ? 1.7 : 100.0;
        else if (const auto* integer = std::get_if<std::shared_ptr<VEXMELKIntegerView>>(&value))
            (*integer)->Set(parameter.role == VEXMELKRole::CutOff ? (variant % 2 == 0 ? 95 : 99) : variant % 3);
        else if (const auto* attributes = std::get_if<VEXMELKAttributeValues*>(&value))
            for (const auto& [kind, name] : {std::pair(0, key), std::pair(2, otherKey)})
            {
                VEXMELKCFGAttributeStr attribute;
                attribute.kind = kind;
                attribute.name = name;
                attribute.firstAccess = (*attributes)->NewAccess();
                attribute.secondAccess = (*attributes)->NewAccess();
                attribute.thirdAccess = (*attributes)->NewAccess();
                (*attributes)->Append(attribute);
            }
    }

    // What the library looked for, since it was last taken: elements and rows as the descriptions have them.
    std::set<const VEXMELKElement*> elements;
    std::set<Facts> rows;
    std::set<std::pair<Facts, std::string>> reads; // and the tag of the element that was read

    void Watch(const std::function<void()>& run)
    {
        VEXMELKWatch::Install(this);
        run();
        VEXMELKWatch::Install(nullptr);
    }

private:
    void OnElements(const CATIDOMElement_var& /*parent*/, const VEXMELKElement& described) override
    {
        elements.insert(&described);
        if (described.key)
            rows.insert(FactsOf(*described.key));
    }
    void OnRows(
        const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& defaultMap, VEXMELKRows read) override
    {
        for (const CATIDOMNamedNodeMap_var* attributes : {&map, &defaultMap})
            if (*attributes != NULL_var)
                for (const VEXMELKRow& row : read)
                {
                    rows.insert(FactsOf(row));
                    reads.emplace(FactsOf(row), (*attributes)->GetOwnerElement()->GetTagName());
                }
    }
};

} // namespace

TEST_F(DescriptionTest, WhatIsReadIsDescribedAndWhatIsDescribedIsRead)
{
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        const VEXMELKDescription& description = *configuration.description;
        SCOPED_TRACE(description.name);
        const Elements all = AllElements(description);
        std::string file(description.file);
        std::replace(file.begin(), file.end(), '\\', '/');
        const bool isWindscreen = file.empty(); // its creator gives it a file
        if (isWindscreen)
            file = "Vision/Windscreen.xml";
        elements.clear();
        rows.clear();
        reads.clear();
        Elements parts = all;
        parts.push_back(nullptr);
        for (const VEXMELKElement* only : parts)
        {
            directory.Write(file, DocumentOf(description, only));
            Release();
            const auto windscreen = CATHandle<VEXMELKOpticalPropsOfWSConfig>::Create(
                CATUnicodeString(directory.Path()), "Vision\\Windscreen.xml");
            VEXMELKConfig& object = isWindscreen ? *windscreen.Get() : *configuration.get(Manager());
            Watch(
                [&]
                {
                    for (const VEXMELKDescription* level = &description; level; level = level->base)
                        for (const VEXMELKOperation& operation : level->operations)
                            AskAll(object, operation);
                });
        }
        TakeBoxes(); // documents without any category are of the obsolete format

        std::set<std::string> undescribed;
        for (const auto& [row, tag] : reads)
        {
            bool isDescribed = false;
            for (const VEXMELKElement* element : all)
                // In the obsolete format a standard stands for its category.
                if (element->tag == tag || element->tag == "*" || (element->tag == "category" && tag == "standard"))
                {
                    isDescribed = isDescribed || (element->key && FactsOf(*element->key) == row);
                    for (const VEXMELKRows table : element->tables)
                        for (const VEXMELKRow& described : table)
                            isDescribed = isDescribed || FactsOf(described) == row;
                }
            if (!isDescribed)
                undescribed.insert(std::get<0>(row) + " of " + tag);
        }
        EXPECT_THAT(undescribed, testing::IsEmpty());
        std::set<std::string> unread;
        for (const VEXMELKElement* element : all)
        {
            const auto isSame = [&](const VEXMELKElement* other) { return IsSame(*other, *element); };
            const bool isFound = std::any_of(elements.begin(), elements.end(), isSame) || element->tag == "standard" ||
                                 element->tag == "category" || description.layout == VEXMELKLayout::Single;
            if (!isFound)
                unread.insert("<" + std::string(element->tag) + ">");
            for (const VEXMELKRows table : element->tables)
                for (const VEXMELKRow& row : table)
                    if (!rows.contains(FactsOf(row)))
                        unread.insert(std::string(row.attribute) + " of " + std::string(element->tag));
        }
        EXPECT_THAT(unread, testing::IsEmpty());
    }
}
