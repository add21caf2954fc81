// Strings, encodings, lists, paths, hashes, and the application's utilities.
#include "CATEncoding.h"
#include "CATFiles.h"
#include "CATListOf.h"
#include "CATPath.h"
#include "CATTextHash.h"
#include "LibraryTest.h"
#include "System.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <locale>
#include <set>

using testing::ElementsAre;

static_assert(E_FAIL < 0 && static_cast<std::uint32_t>(E_FAIL) == 0x80004005U && FAILED(E_FAIL) && SUCCEEDED(7));

namespace {

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

// The C library says what to expect, but what is past the range is no number; a failure leaves the output at 0.
template <class Number> void ExpectAsScanf(const std::string& text, const char* format)
{
    Number expected = 0;
    int found = std::sscanf(text.c_str(), format, &expected);
    if (std::isinf(static_cast<double>(expected)))
        found = static_cast<int>(expected = 0);
    Number value = 77;
    EXPECT_EQ(CATUnicodeString(text).ConvertToNum(&value, format), found == 1 ? 1 : 0) << '"' << text << '"';
    EXPECT_EQ(value, expected) << '"' << text << '"';
}

// Without a number the text gives none, and the output is 0.
template <class Number> void ExpectConversion(const char* format, const std::string& text, const std::string& expected)
{
    Number value = 77;
    EXPECT_EQ(CATUnicodeString(text).ConvertToNum(&value, format), expected.empty() ? 0 : 1) << '"' << text << '"';
    EXPECT_EQ(static_cast<double>(value), std::strtod(expected.c_str(), nullptr)) << '"' << text << '"';
}

void ExpectPointNumbers()
{
    double value = 0.0;
    EXPECT_EQ(CATUnicodeString("-1234.25e1mm").ConvertToNum(&value, "%le"), 1);
    EXPECT_EQ(value, -12342.5);
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
    // Each text equals itself only. The second and third are one letter, as one character and as two.
    const std::vector<std::string> texts =
        Cells(R"( | \xC3\xA4 | a\xCC\x88 | front | Front | front\s | a | a\x00b | a\x00c \
        | a text of more than fifteen bytes | a text of more than fifteen Bytes)")[0];
    for (const std::string& left : texts)
        for (const std::string& right : texts)
        {
            const bool expected = &left == &right;
            EXPECT_EQ(CATUnicodeString(left) == CATUnicodeString(right), expected) << left << " and " << right;
            EXPECT_EQ(CATUnicodeString(left) == std::string_view(right), expected) << left << " and " << right;
            EXPECT_EQ(CATUnicodeString(left).Compare(CATUnicodeString(right)), expected ? 1 : 0);
        }
    EXPECT_TRUE(CATString("key") == CATString("key"));
    EXPECT_FALSE(CATString("key") == CATString("Key"));
}

TEST(Text, StripsBlanksOfBothEndsAndChangesTheCaseOfAllOfUnicode)
{
    // A text, and what is left of each; a no-break space is no blank.
    for (const std::vector<std::string>& row : Cells(R"(
                          | | \s\t\r\n
        a                 | a\s\s | \s\sa
        a b\t \n c        | \s\t\r\na b\t \n c\n\r\t\s
        \xC2\xA0a\xC2\xA0 | \xC2\xA0a\xC2\xA0)"))
        for (const std::string& written : row)
        {
            CATUnicodeString text(written);
            text.Strip();
            EXPECT_EQ(text, row[0]);
        }
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
        EXPECT_EQ(copy, Repeated(length, "x")) << length;
        EXPECT_EQ(copy.GetLengthInByte(), static_cast<int>(length));
    }
}

// Bytes that differ from the point in one bit stand beside it, at every place of a word.
TEST(Text, ReplacesACharacterOfTextsOfAnyLength)
{
    const std::string bytes = "..-/.\xAE,.\x01\xFFn.x";
    for (std::size_t length = 0; length <= 60; ++length)
    {
        const std::string text = Repeated(5, bytes).substr(0, length);
        std::string expected = text;
        std::replace(expected.begin(), expected.end(), '.', '\xAE');
        CATUnicodeString replaced;
        for (const char& byte : text) // one by one: the storage is full now and then
            replaced.Append({&byte, 1});
        replaced.ReplaceAll('.', '\xAE');
        EXPECT_TRUE(replaced == expected) << length;
        replaced.ReplaceAll('.', 'x'); // none is left
        EXPECT_STREQ(replaced.ConvertToChar(), expected.c_str()) << length;
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
    for (const std::vector<std::string>& row : Cells(CaseFile("numbers")))
        for (std::size_t cell = 2; cell < row.size(); ++cell)
        {
            const std::string half =
                Replaced(row[cell], "HALF", "1.00000000000000011102230246251565404236316680908203125");
            const std::string text = Replaced(half, "{0}", std::string(20000, '0'));
            if (row[0] == "%d")
                ExpectConversion<int>("%d", text, row[1]);
            else if (row[0] == "%X")
                ExpectConversion<unsigned>("%X", text, row[1]);
            else
                ExpectConversion<double>("%le", text, row[1]);
        }
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

TEST(Numbers, IgnoreTheLocalesOfCppAndC)
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    ExpectPointNumbers();
    std::locale::global(before);

    const TemporaryDirectory locales;
    locales.Write("source", "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n");
    const std::string make = "cd " + locales.Path() + " && localedef -c -i source -f UTF-8 ./comma > log 2>&1";
    [[maybe_unused]] const int made = std::system(make.c_str());
    SetVariable("LOCPATH", locales.Path());
    const char* set = std::setlocale(LC_NUMERIC, "comma");
    SetVariable("LOCPATH", "");
    if (!set)
        GTEST_SKIP() << "this system cannot make a locale with a decimal comma";
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    ExpectPointNumbers();
    std::setlocale(LC_NUMERIC, "C");
}

// Texts that a hash without a secret in every step cannot tell apart, whatever it begins with: what one word of a pair
// changes in the topmost bit, the other takes back.
TEST(Hash, TellsTextsApartThatWereMadeToCollide)
{
    std::set<std::uint32_t> hashes;
    std::string text(std::size_t{12} * 16, 'a');
    for (unsigned number = 0; number < 4096; ++number)
    {
        for (std::size_t pair = 0; pair < 12; ++pair)
            for (const std::size_t place : {7U, 11U, 15U})
                text[pair * 16 + place] = (number >> pair & 1U) != 0 ? '\xE1' : 'a';
        hashes.insert(CATTextHash(text, CATTextHashSecretOfProcess()));
    }
    EXPECT_GT(hashes.size(), 4090U);
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
    for (const char* text : {"B", "c", "z", "d"})
        list.Append(text);
    list.RemoveDuplicates();
    EXPECT_THAT(Values(list), ElementsAre("z", "a", "c", "B", "d")) << "the first of each";
    list.RemoveAll();
    EXPECT_EQ(list.Size(), 0);
    list.RemoveDuplicates();
    EXPECT_EQ(list.Size(), 0);
}

TEST(Encoding, PairsOfUTF16)
{
    using namespace std::string_view_literals;
    const struct
    {
        const char* utf8;
        std::string_view bytes; // in UTF-16BE
    } cases[] = {{"\uD7FF", "\xD7\xFF"}, {"\uE000", "\xE0\x00"sv}, {"\uFFFF", "\xFF\xFF"},
        {"\U00010000", "\xD8\x00\xDC\x00"sv}, {"\U0010FFFF", "\xDB\xFF\xDF\xFF"}};
    for (const auto& [utf8, bytes] : cases)
    {
        EXPECT_EQ(CATFromUTF8(utf8, "UTF-16BE"), bytes) << utf8;
        EXPECT_EQ(CATToUTF8(bytes, "utf-16be"), utf8);
        std::string swapped(bytes);
        for (std::size_t at = 0; at < swapped.size(); at += 2)
            std::swap(swapped[at], swapped[at + 1]);
        EXPECT_EQ(CATToUTF8(swapped, "UTF-16LE"), utf8);
    }
    for (const std::string_view bytes : {"\xDC\x00"sv, "\xDF\xFF"sv, "\xD8\x00"sv, "\xDB\xFF\xE0\x00"sv,
             "\xDC\x00\xD8\x00"sv, "\xD8\x00\xDC"sv, "\x41"sv})
        EXPECT_EQ(CATToUTF8(bytes, "UTF-16BE"), std::nullopt) << testing::PrintToString(bytes);
}

TEST(Path, NamesAFileOnlyWhenItIsRegular)
{
    EXPECT_EQ(CATMakePath("C:\\dir", "OVA\\file.xml"), "C:\\dir\\OVA\\file.xml");
    EXPECT_EQ(CATMakePath("", "file.xml"), "file.xml");

    const TemporaryDirectory directory;
    directory.Write("sub dir/\u00E4.xml", "<a/>");
    directory.Write("empty", "");
    const std::filesystem::path root = directory.Path();
    bool hasLinks = MakePipe(directory.Path() + "/pipe"); // whose opening must not wait for a writer
    for (const auto& [link, target] : {std::pair("linkToFile", "empty"), std::pair("linkToLink", "linkToFile"),
             std::pair("linkToDirectory", "sub dir"), std::pair("linkToNothing", "gone"), std::pair("loop", "loop")})
        hasLinks = MakeLink((root / target).string(), (root / link).string()) && hasLinks;
    // A link that leads nowhere is a name that something bears, although there is no file to open.
    for (const char* name : {"linkToNothing", "linkToNothing\\a", "linkToNothing\\\\a\\b", "loop", "loop\\a"})
    {
        if (!hasLinks)
            break;
        const CATUnicodeString path = CATMakePath(CATUnicodeString(directory.Path()), name);
        EXPECT_EQ(VEXMELKUtilities::FileExists(path), 1) << name;
        EXPECT_STREQ(CATInputFile(path.ConvertToChar()).Reason(), std::strerror(name[1] == 'o' ? ELOOP : ENOENT))
            << name;
    }
    for (const auto& [isFile, names] : Table<2>(R"(
        yes | empty,sub dir/A.xml,sub dir\\A.xml,sub dir\\..\\empty,linkToFile,linkToLink,linkToDirectory\\A.xml
            | EMPTY,gone,gone\\gone\\gone,empty\\gone,linkToFile\\gone,sub dir,linkToDirectory,linkToDirectory\\gone,pipe)"))
        for (const std::string& name : Split(Replaced(names, "A.xml", "\u00E4.xml"), ","))
        {
            if (!hasLinks && (name.find("link") != std::string::npos || name == "EMPTY")) // letter case does not count
                continue;
            const CATUnicodeString path = CATMakePath(CATUnicodeString(directory.Path()), CATUnicodeString(name));
            EXPECT_EQ(VEXMELKUtilities::FileExists(path), isFile.empty() ? 0 : 1) << name;
            EXPECT_EQ(CATInputFile(path.ConvertToChar()).IsOpen(), !isFile.empty()) << name;
        }
    EXPECT_FALSE(CATInputFile("").IsOpen());
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
        EXPECT_TRUE(first == NULL_var); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        second = *&second;
        second = Handle::Create(4);
        EXPECT_EQ(second->value, 4);
        EXPECT_EQ(Counted::alive, 2);
        second = NULL_var;
        moved = NULL_var;
        EXPECT_EQ(third->value, 3);
        EXPECT_EQ(Counted::alive, 1);
        Counted copy = *third.Get(); // with a count of its own
        EXPECT_EQ(copy.AddRef(), 2U);
        EXPECT_EQ(third->AddRef(), 2U);
        EXPECT_EQ(third->Release(), 1U);
    }
    EXPECT_EQ(Counted::alive, 0);

    // Components by their registered names.
    const Handle first = Handle::Adopt(dynamic_cast<Counted*>(CATExternalComponent::Instantiate("Counted")));
    const Handle second = Handle::Adopt(dynamic_cast<Counted*>(CATExternalComponent::Instantiate("Counted")));
    EXPECT_EQ(first->value, 5);
    EXPECT_NE(first.Get(), second.Get());
    EXPECT_EQ(Counted::alive, 2);
    for (const char* name : {"", "counted", "Count", "Counted2", "VEXMELKConfig"})
        EXPECT_EQ(CATExternalComponent::Instantiate(name), nullptr) << name;
}
