// The files in cases/readers/, each a test: documents, and questions about them with their answers. A file begins with
// the name of a configuration; then "[PATH]" stands before a document, "[questions]" before a table as
// ReaderTest::Expect has it, "[boxes NUMBER]" tells how many there were, "[comma]" changes the setting, and
// "[remove PATH]" takes a file away.

#include "ReaderTest.h"
#include "VEXMELKOpticalPropsOfWSConfig.h"

#include <algorithm>

class CaseTest : public ReaderTest, public testing::WithParamInterface<std::string>
{
};

TEST_P(CaseTest, IsAnsweredAsWritten)
{
    const std::vector<std::string> sections = Split(CaseFile("readers/" + GetParam()), "\n[");
    ASSERT_GT(sections.size(), 1U);
    const std::string configuration = Split(sections[0], "\n").back();
    for (auto section = sections.begin() + 1; section != sections.end(); ++section)
    {
        const std::string name = section->substr(0, section->find(']'));
        const std::string contents = section->substr(std::min(name.size() + 2, section->size()));
        if (name == "questions")
            Expect(configuration, contents);
        else if (name.starts_with("boxes "))
            EXPECT_EQ(std::to_string(TakeBoxes().size()), name.substr(sizeof("boxes")));
        else if (name == "comma")
            VEXMELKUtilities::SetCommaDelimeter(1);
        else if (name.starts_with("remove "))
            directory.Remove(name.substr(sizeof("remove")));
        else
            directory.Write(name, contents);
        if (name != "questions")
            Release();
    }
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
}

static std::vector<std::string> CaseNames(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(CASES "/" + folder))
        names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(
    Files, CaseTest, testing::ValuesIn(CaseNames("readers")), [](const auto& file) { return file.param; });

// The files in cases/records/: readers, each followed by what is expected of it, by the checks of ReaderTest, with the
// result and an element or a document where the check has them.
class RecordTest : public ReaderTest, public testing::WithParamInterface<std::string>
{
protected:
    // The manager has no object for the windscreen: its creator keeps it.
    VEXMELKConfig& Object(const std::string& configuration) override
    {
        if (configuration != "OpticalPropsOfWS")
            return ReaderTest::Object(configuration);
        m_Windscreen = CATHandle<VEXMELKOpticalPropsOfWSConfig>::Create(
            CATUnicodeString(directory.Path()), "Vision\\Windscreen.xml");
        return *m_Windscreen.Get();
    }

private:
    CATHandle<VEXMELKOpticalPropsOfWSConfig> m_Windscreen;
};

TEST_P(RecordTest, IsFilledAsWritten)
{
    Reader reader;
    for (const std::vector<std::string>& row : Cells(CaseFile("records/" + GetParam())))
    {
        const std::vector<std::string> check = Split(row[0], " ");
        const int result = check.size() > 1 ? std::stoi(check[1]) : 1;
        const std::string& text = row.back();
        if (row.size() == 7)
            reader = {row[0], row[1], row[2], row[6], row[3], row[4], row[5][0] - '0', row[5][2] - '0'};
        else if (check[0] == "category")
            ExpectCategory(reader);
        else if (check[0] == "element")
            ExpectElement(reader, text, result);
        else if (check[0] == "either")
            ExpectElementOfEither(reader, text, result);
        else if (check[0] == "all")
            ExpectAll(reader, text);
        else if (check[0] == "none")
            ExpectNone(reader, text, result);
        else if (check[0] == "untouched")
            ExpectUntouched(reader, text, result);
        else if (check[0] == "missing")
            ExpectMissing(reader);
        else
            ADD_FAILURE() << "no check: " << row[0];
    }
}

INSTANTIATE_TEST_SUITE_P(
    Files, RecordTest, testing::ValuesIn(CaseNames("records")), [](const auto& file) { return file.param; });
