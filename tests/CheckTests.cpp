// What check finds: mistakes planted in the sample, each with the finding that it brings, and habits that bring none.
#include "LibraryTest.h"
#include "System.h"
#include "VEXMELKCheck.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <set>

namespace {

namespace fs = std::filesystem;

std::string Shown(const VEXMELKFinding& finding)
{
    return finding.file + ":" + std::to_string(finding.begin.line) + ":" + std::to_string(finding.begin.column) + ": " +
           std::string(VEXMELKNameOf(finding.level)) + ": " + finding.message + " (" + finding.suggestion + ") [" +
           std::string(finding.rule->id) + "] " + finding.effect;
}

// Of all rows, told once what the sample itself brings: notes, which are not counted again.
std::string Identity(const VEXMELKFinding& finding)
{
    return std::string(finding.rule->id) + finding.file + finding.message.substr(0, finding.message.find(" ("));
}

} // namespace

class CheckTest : public LibraryTest
{
protected:
    CheckTest()
    {
        for (const auto& entry : fs::recursive_directory_iterator(SAMPLE_CONFIGURATION))
            if (entry.is_regular_file())
                directory.Write(entry.path().lexically_relative(SAMPLE_CONFIGURATION).generic_string(),
                    TextOfFile(entry.path().string()));
        for (const VEXMELKFinding& finding : Findings())
            m_OfSample.insert(Identity(finding));
    }
    std::vector<VEXMELKFinding> Findings(const VEXMELKCheckScope& scope = {}) const
    {
        return VEXMELKCheck(CATUnicodeString(directory.Path()), scope).findings;
    }
    // Without what the sample brings.
    std::vector<VEXMELKFinding> NewFindings() const
    {
        std::vector<VEXMELKFinding> findings = Findings();
        std::erase_if(
            findings, [&](const VEXMELKFinding& finding) { return m_OfSample.count(Identity(finding)) != 0; });
        return findings;
    }

    // "FILE": "what" becomes "with", at one place or more. "+FILE": a new file. "-FILE": none any more. "FILE > OTHER":
    // it is called otherwise. Gives where the text now begins.
    std::size_t Edit(const std::string& edit, const std::string& what, const std::string& with)
    {
        const std::vector<std::string> names = Split(edit, " > ");
        std::string file = names[0];
        const char sign = file[0];
        if (sign == '+' || sign == '-')
            file.erase(0, 1);
        const std::string path = directory.Path() + "/" + file;
        const std::string before = sign == '+' ? "" : TextOfFile(path);
        std::size_t at = 0;
        if (sign == '-')
            directory.Remove(file);
        else if (names.size() > 1)
        {
            directory.Write(names[1], before);
            directory.Remove(file);
        }
        else if (sign == '+')
            directory.Write(file, with);
        else
        {
            at = std::min(before.find(what), before.size());
            EXPECT_NE(at, before.size()) << what;
            directory.Write(file, std::string(before).replace(at, what.size(), with));
        }
        m_Undo[file] = sign == '+' ? std::nullopt : std::optional(before);
        if (names.size() > 1)
            m_Undo[names[1]] = std::nullopt;
        return at;
    }
    // A finding that has a mend is gone with it, and no error or warning comes instead.
    void CheckMend(const VEXMELKFinding& finding) const
    {
        const std::string path = directory.Path() + "/" + finding.file;
        if (finding.edits.empty())
            return;
        const std::string before = TextOfFile(path);
        const auto mended = VEXMELKWrittenFile::Read(path)->With(finding.edits);
        ASSERT_TRUE(mended);
        directory.Write(finding.file, *mended);
        for (const VEXMELKFinding& left : NewFindings())
        {
            EXPECT_NE(Identity(left), Identity(finding));
            EXPECT_TRUE(left.level == VEXMELKLevel::Note || left.rule != finding.rule) << Shown(left);
        }
        directory.Write(finding.file, before);
    }
    void Undo()
    {
        for (const auto& [file, text] : m_Undo)
            if (text)
                directory.Write(file, *text);
            else
                directory.Remove(file);
        m_Undo.clear();
    }

private:
    std::set<std::string> m_OfSample;
    std::map<std::string, std::optional<std::string>> m_Undo;
};

// Of names "FILE > OTHER" that differ in the case of letters only.
static bool IsOfLetterCase(const std::string& edit)
{
    const std::vector<std::string> names = Split(edit, " > ");
    const auto isSame = [](unsigned char left, unsigned char right)
    { return std::tolower(left) == std::tolower(right); };
    return names.size() == 2 && std::equal(names[0].begin(), names[0].end(), names[1].begin(), names[1].end(), isSame);
}

// Where "@" stands in a text.
static VEXMELKPosition PlaceOf(const std::string& text, std::size_t at)
{
    const std::string before = text.substr(0, at);
    const std::size_t line = before.rfind('\n') + 1;
    return {static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1, static_cast<int>(at - line) + 1};
}

TEST_F(CheckTest, PlantedMistakesAreFoundWhereTheyStand)
{
    std::set<std::string_view> tested;
    for (const auto& [rules, edit, what, marked, message] : Table<5>(CaseFile("check/mistakes")))
    {
        if (!lettersHaveCase && rules == "misnamed-file" && IsOfLetterCase(edit))
            continue; // the system takes both names for one
        SCOPED_TRACE(rules + " | " + edit + " | " + marked);
        const std::size_t mark = marked.find('@');
        const std::size_t begin = Edit(edit, what, Replaced(marked, "@", ""));
        const std::vector<std::string> expected = Split(rules, ", ");
        const std::vector<VEXMELKFinding> findings = NewFindings();
        std::string all;
        std::set<std::string_view> found;
        for (const VEXMELKFinding& finding : findings)
        {
            // What else is worth a look is not said of each mistake.
            if (finding.level != VEXMELKLevel::Note || finding.rule->id == expected[0])
                found.insert(finding.rule->id);
            all += Shown(finding) + "\n";
        }
        EXPECT_EQ(found, std::set<std::string_view>(expected.begin(), expected.end())) << all;
        const auto first = std::find_if(findings.begin(), findings.end(),
            [&](const VEXMELKFinding& finding) { return finding.rule->id == expected[0]; });
        if (first != findings.end())
        {
            CheckMend(*first);
            tested.insert(first->rule->id);
            if (mark != std::string::npos)
            {
                const VEXMELKPosition place =
                    PlaceOf(TextOfFile(directory.Path() + "/" + Replaced(edit, "+", "")), begin + mark);
                EXPECT_EQ(std::tie(first->begin.line, first->begin.column), std::tie(place.line, place.column)) << all;
            }
            EXPECT_THAT(Shown(*first), testing::HasSubstr(message));
        }
        Undo();
    }
    for (const VEXMELKRule& rule : VEXMELKRules())
        EXPECT_TRUE(tested.count(rule.id)) << "no case for " << rule.id;
}

TEST_F(CheckTest, HarmlessHabitsAreNotFound)
{
    for (const auto& [edit, what, with] : Table<3>(CaseFile("check/habits")))
    {
        SCOPED_TRACE(edit + " | " + with);
        Edit(edit, what, with);
        for (const VEXMELKFinding& finding : NewFindings())
            EXPECT_EQ(finding.level, VEXMELKLevel::Note) << Shown(finding);
        Undo();
    }
}

// Another spelling of the same document.
class Variation
{
public:
    explicit Variation(unsigned seed) : m_Random(seed) {}

    std::string Of(const std::string& path)
    {
        const auto file = VEXMELKWrittenFile::Read(path);
        std::string text = file->Text();
        std::vector<VEXMELKWrittenFile::Tag> tags = file->Tags();
        std::for_each(tags.rbegin(), tags.rend(),
            [&](const VEXMELKWrittenFile::Tag& tag)
            { text.replace(tag.span.begin, tag.span.end - tag.span.begin, TagOf(*file, tag)); });
        const unsigned long ends = m_Random() % 3;
        if (ends != 0)
            text = Replaced(text, "\n", ends == 1 ? "\r\n" : "\r");
        return Encoded(text);
    }

private:
    std::string TagOf(const VEXMELKWrittenFile& file, const VEXMELKWrittenFile::Tag& tag)
    {
        std::vector<std::string> attributes;
        for (const VEXMELKWrittenFile::Attribute& attribute : tag.attributes)
            attributes.push_back(std::string(file.Text(attribute.name)) + "=" + ValueOf(file.Text(attribute.value)));
        if (m_Random() % 2 == 0)
            std::shuffle(attributes.begin(), attributes.end(), m_Random);
        std::string text = "<" + std::string(file.Text(tag.name));
        for (const std::string& attribute : attributes)
            text += (m_Random() % 4 == 0 ? "\n\t" : " ") + attribute;
        text += std::string(m_Random() % 4 == 0 ? " " : "") + (tag.isEmpty ? "/>" : ">");
        const bool isRoot = &tag - file.Tags().data() == 0;
        return isRoot || m_Random() % 8 != 0 || !tag.isEmpty ? text : text + "<!-- remark -->";
    }
    std::string ValueOf(std::string_view value)
    {
        const char quote = value.find_first_of("'\"") == std::string_view::npos && m_Random() % 2 == 0 ? '\'' : '"';
        std::string text(value);
        const bool isQuantity = value.size() > 3 && value.ends_with("mm") && value[value.size() - 3] >= '0' &&
                                value[value.size() - 3] <= '9';
        const unsigned long change = m_Random() % 6;
        if (isQuantity && change == 0)
            text.insert(text.size() - 2, " ");
        else if (isQuantity && change == 1)
            text = " " + text + " ";
        else if (isQuantity && change == 2)
            text = Replaced(text, ".", ",");
        else if (!text.empty() && text[0] != '&' && static_cast<unsigned char>(text[0]) < 0x80 && change == 3)
            text = "&#" + std::to_string(static_cast<int>(text[0])) + ";" + text.substr(1);
        return quote + text + quote;
    }
    std::string Encoded(const std::string& text)
    {
        const bool isAscii =
            std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
        switch (m_Random() % 4)
        {
        case 0:
            return "\xEF\xBB\xBF" + text;
        case 1:
            return isAscii ? Replaced(text, "UTF-8", "ISO-8859-1") : text;
        case 2:
        {
            std::string wide = "\xFF\xFE";
            for (const char character : Replaced(text, "UTF-8", "UTF-16"))
                wide += {character, '\0'};
            return isAscii ? wide : text;
        }
        default:
            return text;
        }
    }

    std::minstd_rand m_Random;
};

TEST_F(CheckTest, OtherSpellingsOfTheSampleAreNotFound)
{
    constexpr unsigned variations = isSanitized ? 20 : 200;
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(SAMPLE_CONFIGURATION))
        if (entry.path().extension() == ".xml")
            files.push_back(entry.path().lexically_relative(SAMPLE_CONFIGURATION).generic_string());
    for (unsigned seed = 1; seed <= variations; ++seed)
    {
        Variation variation(seed);
        for (const std::string& file : files)
            directory.Write(file, variation.Of(std::string(SAMPLE_CONFIGURATION) + "/" + file));
        for (const VEXMELKFinding& finding : Findings())
            ASSERT_EQ(finding.level, VEXMELKLevel::Note) << "variation " << seed << ": " << Shown(finding);
    }
}

TEST_F(CheckTest, EachRuleHasItsPage)
{
    std::string pages;
    for (const VEXMELKRule& rule : VEXMELKRules())
        pages += VEXMELKPageOf(rule) + "\n";
    const std::string document = TextOfFile(CASES "/../../docs/rules.md");
    EXPECT_EQ(document.substr(document.find("\n## ") + 1), pages) << "scripts/format_tables.py writes them";
}
