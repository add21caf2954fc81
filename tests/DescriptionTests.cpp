// The descriptions are true: while every operation is asked over documents made from the descriptions, all that is
// looked for is described, at the place where it is looked for, and all that is described is looked for by something.
#include "DescribedDocument.h"
#include "LibraryTest.h"
#include "VEXMELKCheckConfig.h"
#include "VEXMELKDescription.h"
#include "VEXMELKFormatTable.h"
#include "VEXMELKOpticalPropsOfWSConfig.h"
#include "VEXMELKWatch.h"

#include <set>
#include <tuple>

namespace {

class DescriptionTest : public LibraryTest, private VEXMELKWatch
{
protected:
    using Elements = DescribedDocument::Elements;
    static constexpr const char* key = DescribedDocument::key;
    static constexpr const char* otherKey = DescribedDocument::otherKey;

    // What a look-up depends on.
    using Facts = std::tuple<std::string, VEXMELKKind, VEXMELKForm, std::string, bool, VEXMELKWhenMissing::Rule,
        std::string, double, bool, int>;
    static Facts FactsOf(const VEXMELKRow& row)
    {
        const VEXMELKWhenMissing& missing = row.whenMissing;
        return {std::string(row.attribute), row.kind, row.form, std::string(row.unit), row.isAsWritten, missing.rule,
            std::string(missing.text), missing.number, missing.flag, missing.integer};
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
        Elements parts = VEXMELKElementsOf(description);
        parts.push_back(nullptr);
        for (const VEXMELKElement* only : parts)
        {
            directory.Write(file, DescribedDocument().Of(description, only));
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
            {
                return DescribedDocument::IsSame(*other, *element) && other->place == element->place &&
                       other->choice == element->choice;
            };
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
                    DescribedDocument::ForEachRow(*element, compare);
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
        for (const VEXMELKElement* element : VEXMELKElementsOf(description))
        {
            const auto isSame = [&](const VEXMELKElement* other)
            { return DescribedDocument::IsSame(*other, *element); };
            if (std::none_of(elements.begin(), elements.end(), isSame) && element->tag != "standard" &&
                element->tag != "category" && description.layout != VEXMELKLayout::Single)
                unread.insert("<" + std::string(element->tag) + ">");
            DescribedDocument::ForEachRow(*element,
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
        EXPECT_THAT(Undescribed(VEXMELKElementsOf(description)), testing::IsEmpty());
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
