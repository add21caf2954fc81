#include "CATListOf.h"
#include "CATPath.h"
#include "CATTextTable.h"
#include "LibraryTest.h"

#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <locale>
#include <sys/stat.h>
#include <tuple>

using testing::ElementsAre;

static_assert(E_FAIL < 0 && static_cast<std::uint32_t>(E_FAIL) == 0x80004005U && FAILED(E_FAIL) && SUCCEEDED(7));

namespace {

std::string Repeated(std::size_t count, char character) { return std::string(count, character); }

template <class Value> std::vector<Value> Values(const CATListOf<Value>& list) { return {list.begin(), list.end()}; }

using Use = std::function<void(const std::string&)>;

// Calls "use" with every text of up to that many characters of the alphabet.
void ForEachText(std::string_view alphabet, std::size_t length, const Use& use, const std::string& text = "")
{
    use(text);
    if (text.size() < length)
        for (const char character : alphabet)
            ForEachText(alphabet, length, use, text + character);
}

// The C library says what to expect; a failure leaves the output at 0.
template <class Number> void ExpectAsScanf(const std::string& text, const char* format)
{
    Number expected = 0;
    const int found = std::sscanf(text.c_str(), format, &expected);
    Number value = 77;
    EXPECT_EQ(CATUnicodeString(text).ConvertToNum(&value, format), found == 1 ? 1 : 0) << '"' << text << '"';
    EXPECT_EQ(value, expected) << '"' << text << '"';
}

template <class Number>
void ExpectConversions(const char* format, const std::vector<std::tuple<std::string, int, Number>>& rows)
{
    for (const auto& [text, result, number] : rows)
    {
        Number value = 77;
        EXPECT_EQ(CATUnicodeString(text).ConvertToNum(&value, format), result) << '"' << text << '"';
        EXPECT_EQ(value, number) << '"' << text << '"';
    }
}

void ExpectPointNumbers()
{
    ExpectConversions<double>("%le", {{"1234.5mm", 1, 1234.5}, {"1,5", 1, 1.0}, {"-.25e1", 1, -2.5}});
    CATUnicodeString text;
    text.BuildFromNum(1234.5);
    EXPECT_EQ(text, "1234.5");
    text.BuildFromNum(1234567);
    EXPECT_EQ(text, "1234567");
    EXPECT_EQ(VEXMELKUtilities::GetValueInMeters("1234.5"), 1.2345);
    EXPECT_EQ(VEXMELKUtilities::GetValueInMeters("1234,5"), 1.2345);
}

// Writes numbers as "1.234,5".
struct CommaPunctuation : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

// A component that tells how many of it live.
struct Counted : CATBaseUnknown
{
    explicit Counted(int number = 0) : value(number) { ++alive; }
    Counted(const Counted& other) : CATBaseUnknown(other), value(other.value) { ++alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() override { --alive; }
    int value;
    static inline int alive = 0;
};

const CATExternalComponent registration("Counted", []() -> CATBaseUnknown* { return new Counted(5); });

} // namespace

TEST(Text, EqualsByItsBytes)
{
    const std::tuple<std::string_view, std::string_view, bool> rows[] = {
        {"", "", true},
        {"front", "Front", false},
        {"front", "front ", false},
        {"\u00E4", "\u00E4", true},
        {"\u00E4", "a\u0308", false}, // one letter, as one character and as two
        {{"a\0b", 3}, "a", false},
        {{"a\0b", 3}, {"a\0c", 3}, false},
        {"a text of more than fifteen bytes", "a text of more than fifteen bytes", true},
        {"a text of more than fifteen bytes", "a text of more than fifteen Bytes", false},
    };
    for (const auto& [left, right, equal] : rows)
    {
        EXPECT_EQ(CATUnicodeString(left) == CATUnicodeString(right), equal) << left << " and " << right;
        EXPECT_EQ(CATUnicodeString(left) == right, equal) << left << " and " << right;
        EXPECT_EQ(CATUnicodeString(left).Compare(CATUnicodeString(right)), equal ? 1 : 0) << left << " and " << right;
    }
    EXPECT_TRUE(CATString("key") == CATString("key"));
    EXPECT_FALSE(CATString("key") == CATString("Key"));
}

TEST(Text, StripsBlanksOfBothEnds)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", ""}, {" \t\r\n", ""}, {"a  ", "a"}, {"  a", "a"}, {" \t\r\na b\t \n c\n\r\t ", "a b\t \n c"},
        {"\u00A0a\u00A0", "\u00A0a\u00A0"}, // a no-break space is no blank
    };
    for (const auto& [written, stripped] : rows)
    {
        CATUnicodeString text(written);
        text.Strip();
        EXPECT_EQ(text, stripped) << '"' << written << '"';
    }
}

TEST(Text, ChangesTheCaseOfAllOfUnicode)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", ""}, {"@[`{az 12.5mm", "@[`{AZ 12.5MM"},
        {"a text of more than fifteen bytes", "A TEXT OF MORE THAN FIFTEEN BYTES"},
        {"t\u00FCr \u00FF", "T\u00DCR \u0178"}, {"\u03B1\u03C3 \u043F\u0440", "\u0391\u03A3 \u041F\u0420"},
        {"\u0250", "\u2C6F"}, // two bytes become three
        {"\U00010428", "\U00010400"},
        {"a\xC3(\xFFz\u4E2D", "A\xC3(\xFFZ\u4E2D"}, // bytes that are no UTF-8, and a letter without case
    };
    for (const auto& [lower, upper] : rows)
    {
        CATUnicodeString text(lower);
        text.ToUpper();
        EXPECT_EQ(text, upper);
        text.ToLower();
        EXPECT_EQ(text, lower);
    }
}

TEST(Text, SearchesReplacesAndJoins)
{
    const CATUnicodeString text("a.b.\u00E4.b");
    const std::pair<const char*, int> searches[] = {{"b", 2}, {".b", 1}, {"\u00E4", 4}, {".b.", 1}, {"B", -1}};
    for (const auto& [part, position] : searches)
        EXPECT_EQ(text.SearchSubString(part), position) << part;
    CATUnicodeString changed = text;
    changed.ReplaceAll('.', ',');
    EXPECT_EQ(changed, "a,b,\u00E4,b");
    changed.RemoveAll(',');
    EXPECT_EQ(changed, "ab\u00E4b");
    changed.Append("c");
    changed += "d";
    EXPECT_EQ(changed + "e" + CATUnicodeString("f"), "ab\u00E4bcdef");
    EXPECT_EQ(text, "a.b.\u00E4.b"); // the copy was a text of its own

    for (const std::size_t length : {0U, 1U, 15U, 16U, 17U, 100000U})
    {
        CATUnicodeString grown;
        for (std::size_t index = 0; index < length; ++index)
            grown += "x";
        const CATUnicodeString copy = grown;
        grown = "y";
        EXPECT_EQ(copy, Repeated(length, 'x')) << length;
        EXPECT_EQ(copy.GetLengthInByte(), static_cast<int>(length));
    }
}

TEST(Numbers, AreReadAsScanfReadsThem)
{
    ForEachText(" +-0x19", 5, [](const std::string& text) { ExpectAsScanf<int>(text, "%d"); });
    ForEachText("+-0xXfF9g", 4, [](const std::string& text) { ExpectAsScanf<unsigned>(text, "%X"); });
    // Without "x": hexadecimal floats, which scanf reads, are no numbers here.
    ForEachText(" +-.,05eE", 5, [](const std::string& text) { ExpectAsScanf<double>(text, "%le"); });
}

TEST(Numbers, AreReadUpToTheEdgesOfTheirTypes)
{
    ExpectConversions<int>("%d", {
                                     {" \t\n\v\f\r12mm", 1, 12},
                                     {"2147483647", 1, INT_MAX},
                                     {"-2147483648", 1, INT_MIN},
                                     {"2147483648", 0, 0},
                                     {"-2147483649", 0, 0},
                                     {"4294967297", 0, 0}, // 1 when cut to 32 bits
                                     {"18446744073709551617", 0, 0},
                                     {"-18446744073709551615", 0, 0},
                                     {Repeated(300, '9'), 0, 0},
                                     {Repeated(300, '0') + "12", 1, 12},
                                     {"\u00A012", 0, 0},
                                 });
    ExpectConversions<unsigned>("%X", {
                                          {"0x00FF00", 1, 0xFF00},
                                          {"FFFFFFFF", 1, 0xFFFFFFFF},
                                          {"100000000", 0, 0},
                                          {"0x10000000000000001", 0, 0},
                                          {Repeated(300, '0') + "Fg", 1, 15},
                                      });
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr double largest = std::numeric_limits<double>::max();
    constexpr double smallest = std::numeric_limits<double>::denorm_min();
    const std::string half = "1.00000000000000011102230246251565404236316680908203125"; // between 1 and the next
    ExpectConversions<double>("%le", {
                                         {"12.5mm", 1, 12.5},
                                         {"1.7976931348623157e308", 1, largest},
                                         {"-1.7976931348623157E+308", 1, -largest},
                                         {"4.9406564584124654e-324", 1, smallest},
                                         {"2.4703282292062329e-324", 1, smallest}, // just above the half of it
                                         {"2.4703282292062326e-324", 1, 0.0},
                                         {half, 1, 1.0},
                                         {half + Repeated(700, '0') + "1", 1, std::nextafter(1.0, 2.0)},
                                         {"1e400", 1, infinite},
                                         {"-1e400", 1, -infinite},
                                         {"1e-400", 1, 0.0},
                                         {"1e99999999999999999999", 1, infinite},
                                         {"1e-99999999999999999999", 1, 0.0},
                                         {"0.00e99999999999999999999", 1, 0.0},
                                         {"1" + Repeated(400, '0'), 1, infinite},
                                         {"0." + Repeated(400, '0') + "1", 1, 0.0},
                                         {"1" + Repeated(400, '0') + "e-400", 1, 1.0},
                                         {"0." + Repeated(20000, '0') + "1e20003", 1, 100.0},
                                         {"nan", 0, 0.0},
                                         {"NAN(1)", 0, 0.0},
                                         {"inf", 0, 0.0},
                                         {"-Infinity", 0, 0.0},
                                     });
    double value = 77.0;
    CATUnicodeString("0x1p3").ConvertToNum(&value, "%le");
    EXPECT_EQ(value, 0.0);
    CATUnicodeString("-0").ConvertToNum(&value, "%le");
    EXPECT_TRUE(std::signbit(value));
}

TEST(Numbers, AreWrittenAsPrintfWritesThem)
{
    CATUnicodeString text("old");
    for (const int number : {0, -7, 1000000, INT_MAX, INT_MIN})
    {
        text.BuildFromNum(number);
        EXPECT_EQ(text, std::to_string(number));
    }
    for (const double number : {0.0, -0.0, 0.1, 12.5, -1e-5, 1e-4, 99999.95, 123456.7, 1e6, 1e300, 1.0 / 3.0})
    {
        char expected[64];
        std::snprintf(expected, sizeof expected, "%g", number);
        text.BuildFromNum(number);
        EXPECT_EQ(text, expected);
    }
}

TEST(Numbers, IgnoreTheLocaleOfCpp)
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    ExpectPointNumbers();
    std::locale::global(before);
}

TEST(Numbers, IgnoreTheLocaleOfC)
{
    const TemporaryDirectory locales;
    locales.Write("source", "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n");
    const std::string make = "cd " + locales.Path() + " && localedef -c -i source -f UTF-8 ./comma > log 2>&1";
    [[maybe_unused]] const int made = std::system(make.c_str());
    setenv("LOCPATH", locales.Path().c_str(), 1);
    const char* set = std::setlocale(LC_NUMERIC, "comma");
    unsetenv("LOCPATH");
    if (!set)
        GTEST_SKIP() << "this system cannot make a locale with a decimal comma";
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    ExpectPointNumbers();
    std::setlocale(LC_NUMERIC, "C");
}

TEST(List, CountsFromOne)
{
    CATListValCATUnicodeString list;
    EXPECT_EQ(list.Locate("a"), 0);
    for (const char* text : {"b", "a", "B", "c", "a", "b"})
        list.Append(text);
    EXPECT_EQ(list[6], "b");
    EXPECT_EQ(list.Locate("a"), 2);
    EXPECT_EQ(list.Locate("A"), 0);
    list[1] = "z";
    list.RemovePosition(3);
    list.RemovePosition(5);
    EXPECT_THAT(Values(list), ElementsAre("z", "a", "c", "a"));
    EXPECT_EQ(list.Size(), 4);
    list.RemoveAll();
    EXPECT_EQ(list.Size(), 0);
}

TEST(List, KeepsTheFirstOfEachDuplicate)
{
    CATListValCATUnicodeString list;
    list.RemoveDuplicates();
    EXPECT_EQ(list.Size(), 0);
    for (const char* text : {"b", "a", "b", "B", "c", "a", "b", "d"})
        list.Append(text);
    list.RemoveDuplicates();
    EXPECT_THAT(Values(list), ElementsAre("b", "a", "B", "c", "d"));
}

TEST(Path, NamesAFileOnlyWhenItIsRegular)
{
    EXPECT_EQ(CATMakePath("C:\\dir", "OVA\\file.xml"), "C:\\dir\\OVA\\file.xml");
    EXPECT_EQ(CATMakePath("", "file.xml"), "file.xml");

    const TemporaryDirectory directory;
    directory.Write("sub dir/\u00E4.xml", "<a/>");
    directory.Write("empty", "");
    const std::filesystem::path root = directory.Path();
    std::filesystem::create_symlink(root / "empty", root / "linkToFile");
    std::filesystem::create_symlink(root / "linkToFile", root / "linkToLink");
    std::filesystem::create_symlink(root / "sub dir", root / "linkToDirectory");
    std::filesystem::create_symlink(root / "gone", root / "linkToNothing");
    ASSERT_EQ(mkfifo((root / "pipe").c_str(), 0600), 0);
    const std::pair<const char*, bool> rows[] = {
        {"empty", true}, {"EMPTY", false}, {"gone", false}, {"empty\\gone", false}, {"sub dir", false},
        {"sub dir/\u00E4.xml", true}, {"sub dir\\\u00E4.xml", true}, {"sub dir\\..\\empty", true}, {"linkToFile", true},
        {"linkToLink", true}, {"linkToDirectory", false}, {"linkToDirectory\\\u00E4.xml", true},
        {"linkToNothing", false}, {"pipe", false}, // opening it must not wait for a writer
    };
    for (const auto& [name, isFile] : rows)
    {
        const CATUnicodeString path = CATMakePath(CATUnicodeString(directory.Path()), name);
        EXPECT_EQ(CATIsRegularFile(path), isFile) << name;
        EXPECT_EQ(VEXMELKUtilities::FileExists(path), isFile ? 1 : 0) << name;
        EXPECT_EQ(CATInputFile(path).IsOpen(), isFile) << name;
    }
    EXPECT_FALSE(CATIsRegularFile(""));
}

TEST(TextTable, FindsThousandsOfNames)
{
    std::vector<std::string> texts{"", std::string(1, '\0'), std::string(2, '\0')};
    for (std::size_t number = 0; number < 20000; ++number)
        texts.push_back(Repeated(number % 23, 'n') + std::to_string(number));
    const auto textOf = [&](CATTextTable::Number number) -> std::string_view { return texts[number]; };
    CATTextTable table;
    std::size_t wrong = 0;
    for (CATTextTable::Number number = 0; number < texts.size(); ++number)
    {
        wrong += table.Find(texts[number], textOf) != CATTextTable::none ? 1 : 0;
        table.Add(texts[number], number);
    }
    for (CATTextTable::Number number = 0; number < texts.size(); ++number)
    {
        wrong += table.Find(texts[number], textOf) != number ? 1 : 0;
        wrong += table.Find(texts[number] + "x", textOf) != CATTextTable::none ? 1 : 0;
    }
    EXPECT_EQ(wrong, 0U);
}

TEST(Handle, HoldsItsComponentAsLongAsItLives)
{
    using Handle = CATHandle<Counted>;
    EXPECT_TRUE(Handle() == NULL_var);
    {
        Handle first = Handle::Create(3);
        Handle second = first;
        const Handle third(second.Get());
        Handle moved = std::move(first);
        EXPECT_TRUE(first == NULL_var); // NOLINT(bugprone-use-after-move)
        second = *&second;
        second = Handle::Create(4);
        EXPECT_EQ(second->value, 4);
        EXPECT_EQ(Counted::alive, 2);
        second = NULL_var;
        moved = NULL_var;
        EXPECT_EQ(third->value, 3);
        EXPECT_EQ(Counted::alive, 1);
    }
    EXPECT_EQ(Counted::alive, 0);

    auto* component = new Counted;
    {
        const Handle adopted = Handle::Adopt(component);
        EXPECT_EQ(component->AddRef(), 2U);
        Counted copy = *component; // with a count of its own
        EXPECT_EQ(copy.AddRef(), 2U);
        EXPECT_EQ(component->Release(), 1U);
        EXPECT_EQ(Counted::alive, 2);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Dictionary, CreatesRegisteredComponents)
{
    using Component = CATHandle<CATBaseUnknown>;
    EXPECT_EQ(Counted::alive, 0); // nothing before somebody asks
    const Component first = Component::Adopt(CATExternalComponent::Instantiate("Counted"));
    const Component second = Component::Adopt(CATExternalComponent::Instantiate("Counted"));
    EXPECT_EQ(dynamic_cast<Counted&>(*first.Get()).value, 5);
    EXPECT_NE(first.Get(), second.Get());
    for (const char* name : {"VEXMELKSAXErrorHandler", "VEXMELKXMLEntityResolver"})
        EXPECT_STREQ(Component::Adopt(CATExternalComponent::Instantiate(name))->IsA(), name);
    for (const char* name : {"", "counted", "Count", "Counted2", "VEXMELKConfig"})
        EXPECT_EQ(CATExternalComponent::Instantiate(name), nullptr) << name;
}
