// Origins are true: what is listed as deciding a value changes it when the file is edited there, and what is not listed
// changes nothing.
#include "DescribedDocument.h"
#include "LibraryTest.h"
#include "VEXMELKAllQuestions.h"
#include "VEXMELKCall.h"
#include "VEXMELKUFCurbConfig.h"

#include <fstream>
#include <set>

namespace {

using Entry = VEXMELKConfigManager::Configuration;
using Spot = std::tuple<std::string, int, int>;

class OriginTest : public LibraryTest
{
protected:
    static VEXMELKFlatAnswer Ask(const Entry& configuration, const std::string& folder, const VEXMELKAskable& askable)
    {
        const auto object = CATHandle<VEXMELKConfig>::Adopt(configuration.create(CATUnicodeString(folder)));
        const auto question = askable.New();
        question->Ask(*object.Get());
        return VEXMELKFlatAnswer::Of(*question, askable.Operation());
    }

    // The answer with another text at a place of a file, which is as before afterwards.
    VEXMELKFlatAnswer AskEdited(
        const Entry& configuration, const VEXMELKAskable& askable, const Spot& spot, const std::string& text)
    {
        const auto& [name, line, column] = spot;
        const std::string path = directory.Path() + "/" + name;
        const std::string before = TextOfFile(path);
        const auto edited = VEXMELKWrittenFile::Read(path)->With({line, column}, text);
        EXPECT_TRUE(edited) << name << ":" << line << ":" << column;
        directory.Write(name, edited.value_or(before));
        VEXMELKFlatAnswer answer = Ask(configuration, directory.Path(), askable);
        directory.Write(name, before);
        return answer;
    }

    static bool Differ(const VEXMELKFlatAnswer& left, const VEXMELKFlatAnswer& right, const std::string& field)
    {
        const auto valueOf = [&](const VEXMELKFlatAnswer& answer) -> std::optional<VEXMELKPlainValue>
        {
            for (const VEXMELKNamedValue& value : answer.Fields())
                if (value.field == field)
                    return value.value;
            return std::nullopt;
        };
        return left.result != right.result || valueOf(left) != valueOf(right) ||
               left.outputs.size() != right.outputs.size();
    }

    // Texts of which one at least is another word, number, flag or name.
    static std::set<std::string> OtherTexts(const Entry& configuration, const VEXMELKTrial& trial)
    {
        std::set<std::string> texts = {
            trial.UnknownWord(), "true", "false", "1", "2mm", "54321.5", "54321.5mm", "7deg"};
        for (const VEXMELKElement* element : configuration.description->elements)
            for (const VEXMELKRows rows : element->tables)
                for (const VEXMELKRow& row : rows)
                    for (const VEXMELKWord& word : row.words.list)
                        texts.emplace(word.text);
        for (const VEXMELKDocumentText& document : trial.Documents())
            for (const VEXMELKSlot& slot : document.Slots())
                if (slot.attribute == "name")
                    texts.emplace(slot.text);
        return texts;
    }

    void ExpectTrue(const Entry& configuration, const VEXMELKAskable& askable, const VEXMELKTrial& trial)
    {
        const VEXMELKFlatAnswer answer = Ask(configuration, directory.Path(), askable);
        const VEXMELKExplanation explanation =
            VEXMELKExplain(configuration, askable, CATUnicodeString(directory.Path()));
        EXPECT_EQ(explanation.leftOut, 0U);
        std::set<Spot> listed;
        std::set<std::pair<Spot, std::string>> toProve; // one field is enough
        for (const VEXMELKOrigin& origin : explanation.fields)
            for (const VEXMELKOriginPlace& place : origin.places)
                if (!place.file.empty() && place.role != VEXMELKOriginPlace::Hidden)
                {
                    const Spot spot{place.file, place.position.line, place.position.column};
                    if (listed.insert(spot).second)
                        toProve.emplace(spot, origin.value.field);
                }
        const std::set<std::string> texts = OtherTexts(configuration, trial);
        for (const auto& [spot, field] : toProve)
            EXPECT_TRUE(std::any_of(texts.begin(), texts.end(),
                [&, &at = spot, &name = field](const std::string& text)
                { return Differ(answer, AskEdited(configuration, askable, at, text), name); }))
                << field << " at " << testing::PrintToString(spot);
        for (std::size_t number = 0; number < trial.Documents().size(); ++number)
            ExpectOthersChangeNothing(configuration, askable, trial, number, listed, answer);
    }

    void ExpectOthersChangeNothing(const Entry& configuration, const VEXMELKAskable& askable, const VEXMELKTrial& trial,
        std::size_t number, const std::set<Spot>& listed, const VEXMELKFlatAnswer& answer)
    {
        const VEXMELKDocumentText& document = trial.Documents()[number];
        const std::string& name = trial.Files()[number].name;
        const auto file = VEXMELKWrittenFile::Read(directory.Path() + "/" + name);
        for (const VEXMELKSlot& slot : document.Slots())
        {
            const CATIDOMElement_var element = document.Elements()[slot.element].node;
            const VEXMELKPosition place{element->GetLineNumber(), element->GetColumnNumber()};
            const auto written = slot.attribute.empty() ? file->TextOf(place) : file->ValueOf(place, slot.attribute);
            if (!written)
                continue; // of the document type
            const Spot spot{name, written->line, written->column};
            if (listed.count(spot) != 0)
                continue;
            EXPECT_EQ(AskEdited(configuration, askable, spot, trial.UnknownWord()).Fields(), answer.Fields())
                << askable.Operation().Name() << " at " << testing::PrintToString(spot);
        }
    }

    // Some of the questions of every configuration over the directory: one in "stride".
    void ExpectTrue(std::size_t stride)
    {
        std::size_t count = 0;
        for (const Entry& configuration : VEXMELKConfigManager::GetConfigurations())
        {
            if (!configuration.create)
                continue;
            const VEXMELKTrial trial(configuration, CATUnicodeString(directory.Path()));
            std::vector<const VEXMELKDocumentText*> documents;
            for (const VEXMELKDocumentText& document : trial.Documents())
                documents.push_back(&document);
            SCOPED_TRACE(configuration.description->name);
            for (const VEXMELKPreparedQuestion& question : VEXMELKAllQuestions(*configuration.description, documents))
                if (count++ % stride == 0)
                {
                    SCOPED_TRACE(std::string(question.Operation().Name()) + " " + question.ArgumentText());
                    ExpectTrue(configuration, question, trial);
                }
        }

        EXPECT_GT(count, 0U);
        TakeBoxes();
    }
};

std::size_t Stride(std::size_t usual)
{
    const char* stride = std::getenv("MELK_ORIGIN_STRIDE");
    return stride ? std::stoul(stride) : usual;
}

} // namespace

TEST_F(OriginTest, OfTheSampleAreProvenByEdits)
{
    std::filesystem::copy(SAMPLE_CONFIGURATION, directory.Path(), std::filesystem::copy_options::recursive);
    ExpectTrue(Stride(997));
}

// Two documents with everything that is described, each element twice, the Customer file with a standard less.
TEST_F(OriginTest, OfGeneratedTreesAreProvenByEdits)
{
    for (const Entry& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        std::string file(configuration.description->file);
        std::replace(file.begin(), file.end(), '\\', '/');
        DescribedDocument documents;
        const bool isSingle = configuration.description->layout == VEXMELKLayout::Single;
        if (configuration.create)
            directory.Write((isSingle ? "" : "Default/") + file, documents.Of(*configuration.description));
        if (configuration.create && !isSingle)
            directory.Write("Customer/" + file,
                Replaced(documents.Of(*configuration.description), "<standard name='96'", "<standard name='97'"));
    }
    ExpectTrue(Stride(20011));
}

TEST_F(OriginTest, OfACallAreFoundByTheAddressOfAField)
{
    directory.Write("Default/OVA/UFCurb.xml", OneCategory("front_offset='25'"));
    VEXMELKCall<&VEXMELKUFCurbConfig::GetStandardData> call("S", "x", VEXMELKUFCurbConfigDefinition());
    ASSERT_TRUE(call.Ask(*Manager().GetUFCurbConfig()));
    const VEXMELKUFCurbConfigDefinition& curb = call.Argument<2>();
    EXPECT_EQ(curb.FrontOffset, "25mm");
    EXPECT_EQ(call.FieldAt(&curb.BackAngle), "definition.BackAngle");
    EXPECT_EQ(call.FieldAt(this), "");
    const VEXMELKExplanation explanation = call.Explain(CATUnicodeString(directory.Path()));
    const VEXMELKOrigin* origin = explanation.OriginOf(call.FieldAt(&curb.FrontOffset));
    ASSERT_TRUE(origin);
    EXPECT_FALSE(explanation.filesHaveChanged);
    EXPECT_EQ(origin->places.front().file, "Default/OVA/UFCurb.xml");
    EXPECT_EQ(origin->places.front().attribute, "front_offset");

    // The object still has the old document: no place of the new one is told for it.
    directory.Write("Default/OVA/UFCurb.xml", OneCategory("front_offset='26'"));
    const VEXMELKExplanation later = call.Explain(CATUnicodeString(directory.Path()));
    EXPECT_TRUE(later.filesHaveChanged);
    EXPECT_TRUE(later.OriginOf("definition.FrontOffset")->places.empty());
}
