// Elements whose attributes come in any order and number, and texts of any length, in any order of questions: what is
// kept about one layout never answers for another.
#include "LibraryTest.h"
#include "VEXMELKUFCurbConfig.h"

#include <numeric>
#include <random>

class LayoutTest : public LibraryTest
{
protected:
    std::string Curb(const std::string& category)
    {
        VEXMELKUFCurbConfigDefinition curb;
        Manager().GetUFCurbConfig()->GetStandardData("S", category.c_str(), curb);
        std::string answer;
        for (const CATUnicodeString* text : {&curb.FrontOffset, &curb.FrontAngle, &curb.BackAngle, &curb.BackOffset})
            answer += std::string(text->ConvertToChar()) + "|";
        return answer;
    }
};

TEST_F(LayoutTest, EachLayoutHasItsOwnAnswerInAnyOrderOfQuestions)
{
    // More layouts than are kept, some with attributes missing, some with more attributes than are worth keeping.
    std::mt19937 random(7);
    std::string categories = R"(<category name="default" back_offset="9" front_angle="8" back_angle="7"/>)";
    std::vector<std::string> expected;
    for (int number = 0; number < 40; ++number)
    {
        const std::string text = std::to_string(number);
        std::vector<std::string> attributes{"name=\"c" + text + "\""};
        const bool hasAngle = number % 3 != 0;
        attributes.push_back("front_offset=\"" + text + "\"");
        if (hasAngle)
            attributes.push_back("back_angle=\"-" + text + ".5\"");
        for (int other = 0; other < (number % 10 == 0 ? 1100 : number % 7); ++other)
            attributes.push_back("x" + std::to_string(other) + "=\"?\"");
        std::shuffle(attributes.begin(), attributes.end(), random);
        categories += "<category";
        for (const std::string& attribute : attributes)
            categories += " " + attribute;
        categories += "/>";
        expected.push_back(text + "mm|8deg|" + (hasAngle ? "-" + text + ".5deg" : "7deg") + "|9mm|");
    }
    directory.Write("Default/OVA/UFCurb.xml", Document(Standard("S", categories)));
    std::vector<std::size_t> order(expected.size());
    std::iota(order.begin(), order.end(), 0);
    for (int round = 0; round < 5; ++round)
    {
        for (const std::size_t number : order)
            EXPECT_EQ(Curb("c" + std::to_string(number)), expected[number]);
        std::shuffle(order.begin(), order.end(), random);
    }
}

TEST_F(LayoutTest, TextsOfAnyLengthGetTheirUnitWhereverTheyEndInTheDocument)
{
    for (const bool withComma : {false, true})
        for (std::size_t length = 0; length <= 40; ++length)
        {
            // The last text of the document, where nothing may be read behind it.
            const std::string digits = length < 3 ? std::string(length, '5') : "5." + std::string(length - 2, '5');
            directory.Write("Default/OVA/UFCurb.xml", OneCategory("front_offset='" + digits + "'"));
            VEXMELKUtilities::SetCommaDelimeter(withComma);
            Release();
            const std::string shown = withComma ? Replaced(digits, ".", ",") : digits;
            EXPECT_EQ(Curb("default"), shown + (length > 0 ? "mm" : "") + "||||");
        }
}
