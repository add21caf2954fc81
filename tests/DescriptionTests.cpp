// The descriptions are true: while every operation is asked over documents made from the descriptions, all that is
// looked for is described, at the place where it is looked for, and all that is described is looked for by something.
#include "LibraryTest.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKDescription.h"
#include "VEXMELKFormatTable.h"
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
    // Once for each word of its key, in two variants unless the element is alone.
    static std::string Written(const Elements& all, const VEXMELKElement& element, const VEXMELKElement* only)
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
    static std::string Attributes(const Elements& all, const VEXMELKElement& element, std::size_t word, int variant)
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
    static std::string KeyOf(const VEXMELKElement& element, std::size_t word, int variant)
    {
        if (element.key->kind == VEXMELKKind::Word)
            return std::string(element.key->words.list[word].text);
        if (variant != 0)
            return otherKey;
        return element.tag == "category" ? "default" : TextOf(*element.key, variant);
    }
    template <class Action> static void ForEachRow(const VEXMELKElement& element, const Action& action)
    {
        for (const VEXMELKRows table : element.tables)
            std::for_each(table.begin(), table.end(), action);
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
        if (const auto* text = std::get_if<CATUnicodeString*>(&value))
            **text = parameter.IsOutput() ? std::string_view() : NameFor(parameter, variant);
        else if (const auto* flag = std::get_if<unsigned char*>(&value))
            **flag = variant % 2 == 0 ? 0 : 1;
        else if (const auto* number = std::get_if<double*>(&value))
            **number = parameter.unit == "m" ? 0.1 : parameter.unit == "rad" ? 1.7 : 100.0;
        else if (const auto* integer = std::get_if<std::shared_ptr<VEXMELKIntegerView>>(&value))
            (*integer)->Set(parameter.role == VEXMELKRole::CutOff ? 95 + variant % 2 * 4 : variant % 3);
        else if (const auto* attributes = std::get_if<VEXMELKAttributeValues*>(&value))
        {
            Append(**attributes, 0, key);
            Append(**attributes, 2, otherKey);
        }
    }
    static std::string_view NameFor(const VEXMELKParameter& parameter, int variant)
    {
        if (parameter.role == VEXMELKRole::Category)
            return variant % 2 == 0 ? "default" : otherKey;
        if (parameter.role == VEXMELKRole::Tag)
            return "any";
        if (parameter.element && parameter.element->key && !parameter.element->key->words.list.empty())
            return parameter.element->key->words.list[0].text;
        return parameter.role == VEXMELKRole::Key && variant >= 4 ? otherKey : key;
    }
    template <class Attributes> static void Append(Attributes& attributes, int kind, const char* name)
    {
        VEXMELKCFGAttributeStr attribute;
        attribute.kind = kind;
        attribute.name = name;
        attribute.firstAccess = attributes.NewAccess();
        attribute.secondAccess = attributes.NewAccess();
        attribute.thirdAccess = attributes.NewAccess();
        attributes.Append(attribute);
    }

    // Asks all operations over documents with all the described elements, and with the way to each of them alone.
    void AskOver(const VEXMELKConfigManager::Configuration& configuration)
    {
        const VEXMELKDescription& description = *configuration.description;
        std::string file(description.file);
        std::replace(file.begin(), file.end(), '\\', '/');
        const bool isWindscreen = file.empty(); // its creator gives it a file
        if (isWindscreen)
            file = "Vision/Windscreen.xml";
        Elements parts = AllElements(description);
        parts.push_back(nullptr);
        for (const VEXMELKElement* only : parts)
        {
            directory.Write(file, DocumentOf(description, only));
            Release();
            const auto windscreen = CATHandle<VEXMELKOpticalPropsOfWSConfig>::Create(
                CATUnicodeString(directory.Path()), "Vision\\Windscreen.xml");
            VEXMELKConfig& object = isWindscreen ? *windscreen.Get() : *configuration.get(Manager());
            VEXMELKWatch::Install(this);
            for (const VEXMELKDescription* level = &description; level; level = level->base)
                for (const VEXMELKOperation& operation : level->operations)
                    AskAll(object, operation);
            VEXMELKWatch::Install(nullptr);
        }
        TakeBoxes(); // documents without any category are of the obsolete format
    }

    // What was read although no element with its tag describes it, and elements that were looked for likewise.
    std::set<std::string> Undescribed(const Elements& all) const
    {
        std::set<std::string> undescribed;
        for (const VEXMELKElement* element : elements)
        {
            const auto describes = [&](const VEXMELKElement* other)
            { return IsSame(*other, *element) && other->place == element->place && other->choice == element->choice; };
            if (std::none_of(all.begin(), all.end(), describes))
                undescribed.insert("<" + std::string(element->tag) + ">");
        }
        for (const auto& [row, tag] : reads)
        {
            bool isDescribed = false;
            const auto compare = [&, &wanted = row](const VEXMELKRow& described)
            { isDescribed = isDescribed || FactsOf(described) == wanted; };
            for (const VEXMELKElement* element : all)
                // In the obsolete format a standard stands for its category.
                if (element->tag == tag || element->tag == "*" || (element->tag == "category" && tag == "standard"))
                {
                    if (element->key)
                        compare(*element->key);
                    ForEachRow(*element, compare);
                }
            if (!isDescribed)
                undescribed.insert(std::get<0>(row) + " of " + tag);
        }
        return undescribed;
    }
    // What is described although nothing looks for it.
    std::set<std::string> Unread(const VEXMELKDescription& description) const
    {
        std::set<std::string> unread;
        for (const VEXMELKElement* element : AllElements(description))
        {
            const auto isSame = [&](const VEXMELKElement* other) { return IsSame(*other, *element); };
            if (std::none_of(elements.begin(), elements.end(), isSame) && element->tag != "standard" &&
                element->tag != "category" && description.layout != VEXMELKLayout::Single)
                unread.insert("<" + std::string(element->tag) + ">");
            ForEachRow(*element,
                [&](const VEXMELKRow& row)
                {
                    if (!rows.contains(FactsOf(row)))
                        unread.insert(std::string(row.attribute) + " of " + std::string(element->tag));
                });
        }
        return unread;
    }

    // Forgets what was looked for.
    void Forget()
    {
        elements.clear();
        rows.clear();
        reads.clear();
    }

private:
    // What the library looked for: elements and rows as the descriptions have them.
    std::set<const VEXMELKElement*> elements;
    std::set<Facts> rows;
    std::set<std::pair<Facts, std::string>> reads; // and the tag of the element that was read

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
        Forget();
        AskOver(configuration);
        EXPECT_THAT(Undescribed(AllElements(description)), testing::IsEmpty());
        EXPECT_THAT(Unread(description), testing::IsEmpty());
    }
}

TEST(FormatReference, HasTheTablesOfTheDescriptions)
{
    const std::string document = TextOfFile(CASES "/../../docs/format.md");
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        const VEXMELKDescription& description = *configuration.description;
        const std::string table = "<!-- table " + std::string(description.name) + " -->\n" +
                                  VEXMELKFormatTable(description) + "<!-- end of table -->\n";
        EXPECT_NE(document.find(table), std::string::npos)
            << description.name << ": scripts/format_tables.py writes the tables anew";
    }
}
