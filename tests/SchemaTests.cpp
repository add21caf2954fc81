// What schemas say of the texts of attributes, against what check says of them. That validators take the schemas is
// shown by scripts/schemas.sh.
#include "LibraryTest.h"
#include "VEXMELKConfigManager.h"
#include "VEXMELKGrammar.h"
#include "VEXMELKJudge.h"

#include <algorithm>
#include <regex>
#include <set>

namespace {

constexpr const char* texts[] = {"", "0", "-0", "+0", "0.0", "00", "12", "12.", ".5", "5,5", "-5", "+5", "1e3", "1E+3",
    "1e999", "1.5e300", "120mm", "120 mm", "120  mm", "120.mm", "-120mm", "-0mm", "0mm", "120MM", "12deg", "-12deg",
    "-0.5 deg", "0deg", "12grad", "12degree", "5in", "1,5ft", "1.180,5mm", "1,180.5", "5%", "5 %", "100%", "100", "101",
    "100.0", "100,5", "100.0001", "99.9", "0100", "980", "3", "4", "5", "2.5", "99999999999", "2147483647",
    "-2147483648", "true", "True", "FALSE", "yes", "1", "wide", "mm", "12mm wide", "front", "-", "."};

// As a validator does.
class Taker
{
public:
    explicit Taker(const VEXMELKValueType& type) : m_Type(type), m_Pattern(type.pattern) {}

    bool Takes(const std::string& text) const
    {
        return m_Type.isAnyText || std::find(m_Type.words.begin(), m_Type.words.end(), text) != m_Type.words.end() ||
               (!m_Type.pattern.empty() && std::regex_match(text, m_Pattern));
    }

private:
    const VEXMELKValueType& m_Type;
    std::regex m_Pattern;
};

std::vector<std::string> TextsFor(const std::vector<const VEXMELKRow*>& rows)
{
    std::vector<std::string> all(std::begin(texts), std::end(texts));
    for (const VEXMELKRow* row : rows)
        for (const VEXMELKWord& word : row->words.list)
            for (const char* end : {"", "x"})
                all.push_back(std::string(word.text) + end);
    return all;
}

} // namespace

// NOLINTNEXTLINE(readability-function-cognitive-complexity): a loop over each text of each attribute of each file
TEST(SchemaTest, TakesTheTextsInWhichCheckFindsNoMistake)
{
    std::set<std::vector<const VEXMELKRow*>> seen;
    std::size_t taken = 0;
    std::size_t refused = 0;
    for (const auto& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        const VEXMELKGrammar grammar(*configuration.description);
        std::vector<Taker> takers(grammar.Types().begin(), grammar.Types().end());
        for (const VEXMELKGrammar::Element& element : grammar.Elements())
            for (std::size_t number = 0; number < element.attributes.size(); ++number)
            {
                const VEXMELKElementKind::Attribute& attribute = element.kind.attributes[number];
                const bool isNew = seen.insert(attribute.rows).second;
                if (!isNew || attribute.rows.front()->names == "colour")
                    continue; // the rules of settings know colours
                const bool isFree = attribute.rows.front()->kind == VEXMELKKind::Text;
                const bool isLimited = attribute.rows.front()->sensible.upTo > 0;
                for (const std::string& text : TextsFor(attribute.rows))
                {
                    if (isLimited && text.find_first_of("eE") != std::string::npos)
                        continue; // an expression does not know what an exponent comes to
                    const auto judgement = VEXMELKJudge(attribute.rows, text);
                    // Of texts that may say anything, check doubts some.
                    const bool isRight = !judgement || judgement->rule == "doubtful-word" ||
                                         (judgement->rule == "not-a-number" && isFree && !isLimited);
                    EXPECT_EQ(takers[element.attributes[number].type].Takes(text), isRight)
                        << configuration.description->name << " " << element.name << " " << attribute.name << "=\""
                        << text << "\" " << (judgement ? judgement->message : "");
                    ++(isRight ? taken : refused);
                }
            }
    }
    EXPECT_GT(taken, 1000U);
    EXPECT_GT(refused, 1000U);
}
