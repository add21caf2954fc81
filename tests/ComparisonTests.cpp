// What is said of all answers at once is what each question answers: dump, places and differences.
#include "Csv.h"
#include "DescribedDocument.h"
#include "LibraryTest.h"
#include "VEXMELKComparison.h"
#include "VEXMELKDump.h"

#include <filesystem>
#include <set>
#include <sstream>

namespace {

using Settings = VEXMELKConfigManager::Configuration;

class ComparisonTest : public LibraryTest
{
protected:
    void CopySample() const
    {
        std::filesystem::copy(SAMPLE_CONFIGURATION, directory.Path(), std::filesystem::copy_options::recursive);
    }
    // Everything that is described, the Customer file with a standard less.
    void WriteGenerated() const
    {
        for (const Settings& configuration : VEXMELKConfigManager::GetConfigurations())
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
    }
    CATUnicodeString Directory() const { return CATUnicodeString(directory.Path()); }

    // A fresh object, as the manager creates it.
    static VEXMELKFlatAnswer AskAgain(
        const Settings& configuration, const CATUnicodeString& path, const VEXMELKAskable& askable)
    {
        const auto object = CATHandle<VEXMELKConfig>::Adopt(configuration.create(path));
        const auto question = askable.New();
        question->Ask(*object.Get());
        return VEXMELKFlatAnswer::Of(*question, askable.Operation());
    }

    static bool Has(const VEXMELKFlatAnswer& answer, const VEXMELKNamedValue& value)
    {
        return value.field == "result"
                   ? answer.result == value.value
                   : std::find(answer.outputs.begin(), answer.outputs.end(), value) != answer.outputs.end();
    }

    // One question in "stride" of all configurations: its values are answered again, and of one in "rarely" of these
    // they are explained. Gives the number of values.
    std::size_t ExpectTrue(std::size_t stride, std::size_t rarely)
    {
        std::size_t number = 0;
        std::size_t asked = 0;
        std::size_t values = 0;
        for (const Settings* configuration : VEXMELKAskedConfigurations({}))
        {
            VEXMELKPlacedAsker asker(*configuration, Directory());
            for (const VEXMELKPreparedQuestion& question : VEXMELKAllQuestions({&asker}))
            {
                if (number++ % stride != 0)
                    continue;
                const VEXMELKPlacedAnswer answer = asker.Ask(question);
                const VEXMELKFlatAnswer again = AskAgain(*configuration, Directory(), question);
                std::optional<VEXMELKExplanation> explanation;
                if (asked++ % rarely == 0)
                    explanation = VEXMELKExplain(*configuration, question, Directory());
                for (const VEXMELKPlacedValue& value : answer.values)
                {
                    const VEXMELKDumpRow row{*configuration, question, answer, value};
                    ++values;
                    EXPECT_TRUE(Has(again, value.named)) << Named(row);
                    if (explanation)
                        ExpectExplained(row, *explanation);
                }
            }
        }
        TakeBoxes();
        return values;
    }

    // One of the texts that the value is made of; none where it is made of none.
    static void ExpectExplained(const VEXMELKDumpRow& row, const VEXMELKExplanation& explanation)
    {
        const VEXMELKOrigin* origin = explanation.OriginOf(row.value.named.field);
        if (!origin || explanation.result == VEXMELKPlainValue(false))
            return;
        std::set<std::string> places;
        for (const VEXMELKOriginPlace& place : origin->places)
            if (place.role == VEXMELKOriginPlace::Value && !place.file.empty())
                places.insert(At(place.file, place.position));
        if (row.value.HasPlace())
            EXPECT_EQ(places.count(At(row.value.file, row.value.position)), 1U)
                << Named(row) << testing::PrintToString(places);
        else
            EXPECT_TRUE(places.empty()) << Named(row) << testing::PrintToString(places);
    }
    static std::string At(const std::string& file, VEXMELKPosition position)
    {
        return file + ":" + std::to_string(position.line) + ":" + std::to_string(position.column);
    }
    static std::string Named(const VEXMELKDumpRow& row)
    {
        return std::string(row.configuration.description->name) + " " + std::string(row.question.Operation().Name()) +
               " " + row.question.ArgumentText() + " " + row.value.named.field + " = " +
               VEXMELKTextOf(row.value.named.value) + " at " + At(row.value.file, row.value.position) + " ";
    }
};

// Which fields of which questions have another value, without any of the code that compares.
std::set<std::string> Answers(
    const CATUnicodeString& path, const std::vector<VEXMELKPreparedQuestion>& questions, const Settings& configuration)
{
    std::set<std::string> answers;
    for (const VEXMELKPreparedQuestion& question : questions)
    {
        const auto object = CATHandle<VEXMELKConfig>::Adopt(configuration.create(path));
        const auto asked = question.New();
        asked->Ask(*object.Get());
        const VEXMELKFlatAnswer answer = VEXMELKFlatAnswer::Of(*asked, question.Operation());
        const std::string name =
            std::string(question.Operation().Name()) + " " + std::to_string(&question - questions.data()) + " ";
        answers.insert(name + "result=" + VEXMELKTextOf(answer.result));
        for (const VEXMELKNamedValue& value : answer.outputs)
            answers.insert(name + value.field + "=" + VEXMELKTextOf(value.value));
    }
    return answers;
}

} // namespace

TEST_F(ComparisonTest, RowsOfTheSampleAreAnsweredAgainAndExplained)
{
    CopySample();
    EXPECT_GT(ExpectTrue(7, 17), 0U);
}

TEST_F(ComparisonTest, RowsOfGeneratedTreesAreAnsweredAgainAndExplained)
{
    WriteGenerated();
    EXPECT_GT(ExpectTrue(211, 23), 0U);
}

// Each text of a file in turn becomes another one; what differs is exactly what is told.
// NOLINTNEXTLINE(readability-function-cognitive-complexity): each question of each configuration, before and after
TEST_F(ComparisonTest, DifferencesAreTheAnswersThatDiffer)
{
    CopySample();
    const std::string old = directory.Path() + "-old";
    std::filesystem::copy(SAMPLE_CONFIGURATION, old, std::filesystem::copy_options::recursive);
    for (const char* name : {"UFCurb", "Mirror"})
    {
        const auto all = VEXMELKConfigManager::GetConfigurations();
        const Settings& configuration =
            *std::find_if(all.begin(), all.end(), [&](const Settings& one) { return one.description->name == name; });
        VEXMELKComparisonScope scope;
        scope.configurations = {&configuration};
        scope.hasMoves = true;
        EXPECT_TRUE(VEXMELKCompare(CATUnicodeString(old), Directory(), scope).changes.empty()) << name;
        const VEXMELKTrial trial(configuration, CATUnicodeString(old));
        std::size_t number = 0;
        for (const VEXMELKDocumentText& document : trial.Documents())
            for (const VEXMELKSlot& slot : document.Slots())
            {
                if (number++ % 29 != 0)
                    continue;
                const std::string& file =
                    trial.Files()[static_cast<std::size_t>(&document - trial.Documents().data())].name;
                const auto written = VEXMELKWrittenFile::Read(old + "/" + file);
                const CATIDOMElement_var element = document.Elements()[slot.element].node;
                const auto place =
                    written->ValueOf({element->GetLineNumber(), element->GetColumnNumber()}, slot.attribute);
                if (!place)
                    continue;
                directory.Write(file, *written->With(*place, "7"));
                const VEXMELKComparison comparison = VEXMELKCompare(CATUnicodeString(old), Directory(), scope);
                VEXMELKPlacedAsker before(configuration, CATUnicodeString(old));
                VEXMELKPlacedAsker after(configuration, Directory());
                const auto questions = VEXMELKAllQuestions({&before, &after});
                const std::set<std::string> answersBefore = Answers(CATUnicodeString(old), questions, configuration);
                const std::set<std::string> answersAfter = Answers(Directory(), questions, configuration);
                std::set<std::string> differ;
                std::set_symmetric_difference(answersBefore.begin(), answersBefore.end(), answersAfter.begin(),
                    answersAfter.end(), std::inserter(differ, differ.end()));
                std::size_t told = 0; // a value counts twice, once for each side that has one
                for (const VEXMELKChange& change : comparison.changes)
                    if (change.kind <= VEXMELKChangeKind::Removed)
                        told += (change.before.value ? 1U : 0U) + (change.after.value ? 1U : 0U);
                EXPECT_EQ(told, differ.size()) << file << " " << slot.attribute << " " << slot.text;
                EXPECT_FALSE(comparison.changes.empty()) << file << " " << slot.attribute << " " << slot.text;
                directory.Write(file, TextOfFile(old + "/" + file));
            }
    }
    std::filesystem::remove_all(old);
    TakeBoxes();
}

// A text that no answer depends on: nothing reads it, or a Customer standard hides it.
TEST_F(ComparisonTest, TextsWithoutEffectAreTold)
{
    const std::string text = "<configuration>\n"
                             "<standard name='S'><category name='suv' front_offset='1mm'/></standard>\n"
                             "<standard name='H' old='1' loading='design'><category name='suv'/></standard>\n"
                             "</configuration>";
    const struct
    {
        const char* from;
        const char* to;
        const char* told; // kind, field, values, line and column on both sides
    } cases[] = {
        {"<configuration>", "<configuration note='x'>", "written /configuration/@note: – → x, 0:0 → 1:22"},
        {"<category name='suv' f", "<category hue='red' name='suv' f",
            "written /configuration/standard[name='S']/category[name='suv']/@hue: – → red, 0:0 → 2:35"},
        {" old='1'", "", "written /configuration/standard[name='H']/@old: 1 → –, 3:25 → 0:0"},
        {"'design'", "'gross'", "written /configuration/standard[name='H']/@loading: design → gross, 3:37 → 3:37"},
        {"<category name='suv' front_offset='1mm'",
            "<category name='suv' hue='red' front_offset='1mm' back_angle='2deg'",
            "written /configuration/standard[name='S']/category[name='suv']/@hue: – → red, 0:0 → 2:46"},
        {"<standard name='S'>", "<!-- S -->\n<standard name='S'>", ""},
    };
    const TemporaryDirectory old;
    const char* customer = "<configuration><standard name='H'><category name='suv'/></standard></configuration>";
    old.Write("Customer/OVA/UFCurb.xml", customer);
    directory.Write("Customer/OVA/UFCurb.xml", customer);
    old.Write("Default/OVA/UFCurb.xml", text);
    const auto shown = [](const std::optional<VEXMELKPlainValue>& value)
    { return value ? VEXMELKTextOf(*value) : "–"; };
    const auto at = [](VEXMELKPosition place)
    { return std::to_string(place.line) + ":" + std::to_string(place.column); };
    for (const auto& [from, to, expected] : cases)
    {
        directory.Write("Default/OVA/UFCurb.xml", Replaced(text, from, to));
        VEXMELKComparisonScope scope;
        scope.hasMoves = true;
        std::string told;
        for (const VEXMELKChange& change : VEXMELKCompare(CATUnicodeString(old.Path()), Directory(), scope).changes)
        {
            if (change.question) // what the edit changes besides
                continue;
            told += std::string(VEXMELKNameOf(change.kind)) + " " + change.field + ": " + shown(change.before.value) +
                    " → " + shown(change.after.value) + ", " + at(change.before.position) + " → " +
                    at(change.after.position);
        }
        EXPECT_EQ(told, expected) << to;
    }
    TakeBoxes();
}

TEST_F(ComparisonTest, DefaultAloneIsTheTreeWithoutItsCustomerFiles)
{
    CopySample();
    VEXMELKDumpScope scope;
    VEXMELKComparisonScope compared;
    for (const Settings* configuration : VEXMELKAskedConfigurations({}))
        if (!isSanitized ||
            std::filesystem::exists(directory.Path() + "/Customer/" + VEXMELKFileOf(*configuration->description)))
            scope.configurations.push_back(configuration);
    compared.configurations = scope.configurations;
    EXPECT_GT(compared.configurations.size(), 10U);
    std::size_t count = 0;
    scope.onRow = [&](const VEXMELKDumpRow& row)
    {
        ++count;
        EXPECT_FALSE(row.value.file.starts_with("Customer/")) << Named(row);
    };
    const VEXMELKDumpCounts alone = VEXMELKDump(VEXMELKSource(Directory(), true), scope);
    EXPECT_EQ(count, alone.values);
    std::filesystem::remove_all(directory.Path() + "/Customer");
    scope.onRow = [](const VEXMELKDumpRow&) {};
    EXPECT_EQ(VEXMELKDump(Directory(), scope).values, alone.values);
    EXPECT_TRUE(VEXMELKCompare(VEXMELKSource(Directory(), true), Directory(), compared).changes.empty());
    TakeBoxes();
}

TEST(CsvTest, TextsAreNoFormulasAndQuotedWhereNeeded)
{
    const std::pair<const char*, const char*> texts[] = {{"=1+1", "'=1+1"}, {"+cmd", "'+cmd"}, {"-x", "'-x"},
        {"@sum", "'@sum"}, {"\tx", "'\tx"}, {"-5", "-5"}, {"-5.5mm", "-5.5mm"}, {"+3deg", "+3deg"},
        {"-5mm+1", "'-5mm+1"}, {"a=1", "a=1"}, {"", ""}};
    for (const auto& [text, harmless] : texts)
        EXPECT_EQ(HarmlessInSpreadsheet(text), harmless) << text;
    std::ostringstream stream;
    WriteCsv(stream, {"a", "b,c", "say \"x\"", "two\nlines", ""});
    EXPECT_EQ(stream.str(), "a,\"b,c\",\"say \"\"x\"\"\",\"two\nlines\",\r\n");
}
