#include "CATIXMLDOMDocumentBuilder.h"
#include "LibraryTest.h"
#include "VEXMELKSAXErrorHandler.h"
#include "VEXMELKXMLEntityResolver.h"

#include <iconv.h>
#include <optional>
#include <sys/stat.h>
#include <tuple>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

namespace {

// Hears of problems as "fatal 1:4", line and column.
class Recorder final : public CATISAXErrorHandler
{
public:
    CATResult Warning(const CATSAXParseException* exception) override { return Note("warning ", exception); }
    CATResult Error(const CATSAXParseException* exception) override { return Note("error ", exception); }
    CATResult FatalError(const CATSAXParseException* exception) override { return Note("fatal ", exception); }
    std::string problems;

private:
    CATResult Note(const char* kind, const CATSAXParseException* exception)
    {
        EXPECT_FALSE(exception->GetMessage().IsEmpty());
        problems.append(problems.empty() ? "" : ", ").append(kind).append(std::to_string(exception->GetLineNumber()));
        problems.append(":").append(std::to_string(exception->GetColumnNumber()));
        return S_OK;
    }
};

struct Outcome
{
    std::string problems;
    CATIDOMDocument_var document;

    // Elements as "<tag attribute=value>", and the texts; "none" without a document.
    std::string Contents() const
    {
        std::string contents;
        if (document == NULL_var)
            return "none";
        AddContents(document, contents);
        return contents;
    }

private:
    static void AddContents(const CATIDOMNode_var& node, std::string& contents)
    {
        for (CATIDOMNode_var child = node->GetFirstChild(); child != NULL_var; child = child->GetNextSibling())
        {
            const CATIDOMNamedNodeMap_var attributes = child->GetAttributes();
            contents += attributes == NULL_var ? child->GetNodeValue() : child->GetNodeName();
            for (int position = 0; attributes != NULL_var && position < attributes->GetLength(); ++position)
            {
                const CATIDOMNode_var attribute = attributes->Item(position);
                contents.append(" ").append(attribute->GetNodeName()).append("=").append(attribute->GetNodeValue());
            }
            contents += attributes == NULL_var ? "" : ":";
            AddContents(child, contents);
        }
    }
};

const CATIXMLDOMDocumentBuilder_var& Builder()
{
    static CATIXMLDOMDocumentBuilder_var builder;
    if (builder == NULL_var)
        CreateCATIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM);
    return builder;
}

// A document came back, or else one fatal error, which ended the parse.
Outcome Checked(CATResult result, const CATHandle<Recorder>& recorder, const CATIDOMDocument_var& document)
{
    const std::string& problems = recorder->problems;
    EXPECT_EQ(SUCCEEDED(result), !(document == NULL_var));
    EXPECT_EQ(problems.find("fatal"), SUCCEEDED(result) ? std::string::npos : problems.rfind("fatal"));
    EXPECT_EQ(problems.find("error"), std::string::npos);
    EXPECT_THAT(
        problems, MatchesRegex(SUCCEEDED(result) ? "(warning [^,]+(, )?)*" : "(warning [^,]+, )*fatal [0-9:]+"));
    return {problems, document};
}

Outcome Parse(std::string_view bytes)
{
    const auto recorder = CATHandle<Recorder>::Create();
    CATIDOMDocument_var document;
    const CATResult result = Builder()->ParseMemory(bytes, CATISAXErrorHandler_var(recorder.Get()), document);
    return Checked(result, recorder, document);
}

Outcome ParseFile(const std::string& path, const CATISAXEntityResolver_var& resolver = NULL_var)
{
    const auto recorder = CATHandle<Recorder>::Create();
    CATIDOMDocument_var document;
    const CATResult result =
        Builder()->Parse(CATUnicodeString(path), {}, {}, CATISAXErrorHandler_var(recorder.Get()), resolver, document);
    return Checked(result, recorder, document);
}

// What the system's converter makes of the text; nothing when a character has no place in the other encoding.
std::optional<std::string> Converted(std::string text, const std::string& from, const std::string& to)
{
    iconv_t converter = iconv_open(to.c_str(), from.c_str());
    std::string converted(text.size() * 4, '\0');
    char* input = text.data();
    char* output = converted.data();
    std::size_t inputLeft = text.size();
    std::size_t outputLeft = converted.size();
    const bool done = iconv(converter, &input, &inputLeft, &output, &outputLeft) == 0 &&
                      iconv(converter, nullptr, nullptr, &output, &outputLeft) == 0;
    iconv_close(converter);
    converted.resize(converted.size() - outputLeft);
    return done ? std::optional(converted) : std::nullopt;
}

std::string Repeated(std::size_t count, const std::string& text)
{
    std::string repeated;
    for (; count > 0; --count)
        repeated += text;
    return repeated;
}

std::string Replaced(std::string text, const std::string& what, const std::string& with)
{
    return text.replace(text.find(what), what.size(), with);
}

using ParseProblem = LibraryTest;

} // namespace

TEST_F(ParseProblem, OfADocumentThatIsNotWellFormed)
{
    const std::pair<std::string, const char*> rows[] = {
        {"", "fatal 1:1"},
        {"\n \n", "fatal 3:1"},
        {"<!--x-->", "fatal 1:9"},
        {"text", "fatal 1:1"},
        {"<a>", "fatal 1:4"},
        {"<a/><b/>", "fatal 1:5"},
        {"<a/>text", "fatal 1:5"},
        {"<a/>\n<!DOCTYPE a []>", "fatal 2:1"},
        {"<a>\n<b></a></b>", "fatal 2:[46]"},
        {"</a>", "fatal 1:[12]"},
        {"<a b='1'\n b='2'/>", "fatal 2:2"},
        {"<a b=1/>", "fatal 1:6"},
        {"<a b/>", "fatal 1:5"},
        {"<a b='<'/>", "fatal 1:7"},
        {"<a b='1'c='2'/>", "fatal 1:9"},
        {"<1a/>", "fatal 1:2"},
        {"< a/>", "fatal 1:2"},
        {"<a></ a>", "fatal 1:[4-6]"},
        {"<a>&</a>", "fatal 1:[45]"},
        {"<a>& b</a>", "fatal 1:[45]"},
        {"<a>&#0;</a>", "fatal 1:4"},
        {"<a>&#xFFFE;</a>", "fatal 1:4"},
        {"<a>&#xD800;</a>", "fatal 1:4"},
        {"<a>&#x110000;</a>", "fatal 1:4"},
        {"<a>]]></a>", "fatal 1:[4-6]"},
        {"<a><!-- -- --></a>", "fatal 1:.+"},
        {" <?xml version='1.0'?><a/>", "fatal 1:2"},
        {"<a><?xml version='1.0'?></a>", "fatal 1:4"},
        {"<?xml?><a/>", "fatal 1:.+"},
        {"<?xml encoding='UTF-8'?><a/>", "fatal 1:.+"},
        {"<?xml version='1.0' standalone='maybe'?><a/>", "fatal 1:.+"},
        {"<?xml version='1.1'?><a/>", "fatal 1:.+"},
        {"<?xml version='2.0'?><a/>", "fatal 1:.+"},
        {"<?xml version=''?><a/>", "fatal 1:.+"},
        // Characters that are none.
        {"<a>\x01</a>", "fatal 1:4"},
        {"<a>\x80</a>", "fatal 1:4"},
        {"<a>\xE4</a>", "fatal 1:4"},
        {"<a>\xC0\xAF</a>", "fatal 1:4"},
        {"<a>\xED\xA0\x80</a>", "fatal 1:4"},
        {"<a>\xF4\x90\x80\x80</a>", "fatal 1:4"},
        {"<a>\xEF\xBF\xBF</a>", "fatal 1:4"},
        {{"<a>x\0y</a>", 10}, "fatal 1:5"},
        {{"<a b='\0'/>", 10}, "fatal 1:7"},
        {{"<a/>\0", 5}, "fatal 1:5"},
        {std::string(100, '\0'), "fatal 1:1"},
        {{"<\0a\0>\0\0\xDC<\0/\0a\0>\0", 16}, "fatal 1:4"}, // half a surrogate pair
        {{"<\0a\0>\0\0\xD8<\0/\0a\0>\0", 16}, "fatal 1:4"}, // and the other half
        {{"<\0a\0>\0\xFF\xFF<\0/\0a\0>\0", 16}, "fatal 1:4"},
        // Entities.
        {"<!DOCTYPE a [<!ENTITY e '<b>'>]>\n<a>&e;</b></a>", "fatal 2:.+"},
        {"<!DOCTYPE a [<!ENTITY e '<'>]>\n<a b='&e;'/>", "fatal [12]:.+"},
        {"<!DOCTYPE a [<!ENTITY e '&e;'>]>\n<a>&e;</a>", "fatal [12]:.+"},
        {"<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]>\n<a b='&e;'/>", "fatal [12]:.+"},
        {"<!DOCTYPE a [<!ENTITY % p 'x'><!ENTITY e '%p;'>]><a/>", "fatal 1:.+"},
        {"<!DOCTYPE a [<!ATTLIST a b CDATA '&e;'><!ENTITY e 'v'>]><a/>", "fatal 1:.+"},
    };
    for (const auto& [bytes, problems] : rows)
        EXPECT_THAT(Parse(bytes).problems, MatchesRegex(problems)) << bytes;
    CATIDOMDocument_var document;
    EXPECT_LT(Builder()->ParseMemory("<a>", NULL_var, document), 0); // and nobody to tell
}

TEST_F(ParseProblem, OfADocumentCutOffAnywhere)
{
    const std::string document = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<!DOCTYPE r [<!ENTITY e "v<b/>"><!ATTLIST r d CDATA "&#228;"><!-- c --><?p d?>]>
<!-- c --><?p d?><r a='1' b="&lt;)"
                                 "\u00E4\U0001D11E"
                                 R"(">&e;&#10;<![CDATA[x]]> t<s>)"
                                 "\u20AC"
                                 R"(</s ></r>)";
    EXPECT_EQ(Parse(document).problems, "");
    const std::string wide = *Converted(document, "UTF-8", "UTF-16LE");
    for (std::size_t size = 0; size < document.size(); ++size)
        EXPECT_THAT(Parse(document.substr(0, size)).problems, MatchesRegex("fatal .+")) << size;
    for (std::size_t size = 0; size < 200; ++size)
        EXPECT_THAT(Parse(wide.substr(0, size)).problems, MatchesRegex("fatal .+")) << size;
}

TEST_F(ParseProblem, IsPlacedByLineAndColumn)
{
    // "@" stands for the place.
    const std::tuple<std::string, int, int> rows[] = {
        {"<r>@</r>", 1, 4},
        {"<r>\n\n  @</r>", 3, 3},
        {"<r>\r\n\r\n  @</r>", 3, 3},
        {"<r>\r\r  @</r>", 3, 3},
        {"<r>\n\r@</r>", 3, 1},
        {"<r>\t\t@</r>", 1, 6},
        {"<r>\u00E4\u20AC@</r>", 1, 6},
        {"<r>\n\u00E4\u20AC\u4E2D\U0001D11E@</r>", 2, 5},
        {"<r a='\u00E4\n'\r\n  b='2'\r>x@</r>", 4, 3},
        {"<!--\n--><?p\n?>\n<r>@</r>", 4, 4},
        {"<r><![CDATA[\r\n]]><!-- \n -->@</r>", 3, 5},
        {"<r>&amp;&#10;@</r>", 1, 14},
        {"<!DOCTYPE r [<!ENTITY e 'long\n\nvalue<b/>'>]>\n<r>&e;&e;@</r>", 4, 10},
        {"<r>" + std::string(65532, 'x') + "\r\n@</r>", 2, 1}, // a line end in two of the pieces that are read
        {Repeated(20000, "<!---->\r\n") + "<r>@</r>", 20001, 4},
    };
    const std::tuple<const char*, std::string, std::string> encodings[] = {
        {"UTF-8", "", ""},
        {"UTF-8", "\xEF\xBB\xBF", ""},
        {"UTF-16LE", "", ""},
        {"UTF-16LE", "\xFF\xFE", ""},
        {"UTF-16BE", "", ""},
        {"UTF-16BE", "\xFE\xFF", ""},
        {"ISO-8859-15", "", "<?xml version='1.0' encoding='ISO-8859-15'?>\n"},
        {"windows-1252", "", "<?xml version='1.0' encoding='Windows-1252'?>\n"},
    };
    for (const auto& [text, line, column] : rows)
        for (const auto& [encoding, mark, declaration] : encodings)
        {
            const std::string shown = text.substr(0, 60) + " in " + encoding;
            const int lineHere = line + (declaration.empty() ? 0 : 1);
            const auto element = Converted(declaration + Replaced(text, "@", "<x/>"), "UTF-8", encoding);
            const auto error = Converted(declaration + Replaced(text, "@", "\x01"), "UTF-8", encoding);
            if (!element || !error)
                continue;
            const std::string place = std::to_string(lineHere).append(":").append(std::to_string(column));
            EXPECT_EQ(Parse(mark + *error).problems, "fatal " + place) << shown;
            const Outcome outcome = Parse(mark + *element);
            ASSERT_EQ(outcome.problems, "") << shown;
            const CATIDOMElement_var found = outcome.document->GetDocumentElement()->GetElementsByTagName("x")->Item(0);
            EXPECT_EQ(found->GetLineNumber(), lineHere) << shown;
            EXPECT_EQ(found->GetColumnNumber(), column) << shown;
        }
}

TEST_F(ParseProblem, OfEncodings)
{
    const std::string document = "<?xml version='1.0' encoding='NAME'?><r>\u00E4</r>";
    const auto declared = [&](const std::string& name) { return Replaced(document, "NAME", name); };
    for (const char* name : {"UTF-8", "utf-8"})
        EXPECT_EQ(Parse(declared(name)).Contents(), "r:\u00E4") << name;
    for (const char* name :
        {"US-ASCII", "us-ascii", "UTF-16", "", "x", "KOI8-R", "EBCDIC-CP-US", "UTF-32", "ISO-8859-0", "ISO-8859-01",
            "ISO-8859-12", "ISO-8859-17", "ISO-8859-1x", "windows-1249", "windows-1259", "windows-12500"})
        EXPECT_THAT(Parse(declared(name)).problems, MatchesRegex("fatal 1:.+")) << name;
    EXPECT_EQ(Parse(Replaced(declared("US-ASCII"), "\u00E4", "~")).Contents(), "r:~");

    for (const auto& [encoding, mark] : {std::pair("UTF-16LE", "\xFF\xFE"), std::pair("UTF-16BE", "\xFE\xFF")})
    {
        for (const char* name : {"UTF-16", "utf-16"})
        {
            const std::string wide = *Converted(declared(name), "UTF-8", encoding);
            EXPECT_EQ(Parse(mark + wide).Contents(), "r:\u00E4") << encoding;
            EXPECT_EQ(Parse(wide).Contents(), "r:\u00E4") << encoding;
        }
        for (const char* name : {"UTF-8", "ISO-8859-1", "windows-1252"})
            EXPECT_NE(Parse(mark + *Converted(declared(name), "UTF-8", encoding)).problems, "") << name;
    }
    EXPECT_EQ(Parse("\xEF\xBB\xBF" + declared("UTF-8")).Contents(), "r:\u00E4");
    EXPECT_NE(Parse("\xEF\xBB\xBF" + declared("UTF-16")).problems, "");
}

TEST_F(ParseProblem, OfBytesWithoutACharacter)
{
    std::vector<std::string> names;
    for (int number = 1; number <= 16; ++number)
        if (number != 12) // there is none
            names.push_back(std::string("ISO-8859-").append(std::to_string(number)));
    for (int number = 1250; number <= 1258; ++number)
        names.push_back(std::string("windows-").append(std::to_string(number)));
    names.emplace_back("iso-8859-7");
    names.emplace_back("Windows-1251");
    for (const std::string& name : names)
        for (int byte = 0x20; byte <= 0xFF; ++byte)
        {
            const std::string text(1, static_cast<char>(byte));
            const bool isControl = name[0] == 'I' && byte >= 0x7F && byte < 0xA0;
            if (text == "<" || text == "&" || isControl)
                continue;
            const std::optional<std::string> expected = Converted(text, name, "UTF-8");
            const std::string start = "<?xml version='1.0' encoding='" + name + "'?><r>";
            EXPECT_EQ(Parse(start + text + "</r>").Contents(), expected ? "r:" + *expected : "none")
                << name << " " << byte;
        }
}

TEST_F(ParseProblem, OfEntitiesAndDocumentTypes)
{
    directory.Write("up.dtd", "<!ENTITY zz 'up'>");
    directory.Write("doc/shared.dtd", "<?xml encoding='UTF-8'?>\n<!ENTITY zz 'v'><!ATTLIST r d CDATA 'dd'>");
    directory.Write("doc/latin.dtd", "<?xml version='1.0' encoding='ISO-8859-1'?><!ENTITY zz '\xE4'>");
    directory.Write("doc/broken.dtd", "<!ENTITY zz 'v'>\n  <!ENTITY");
    directory.Write("doc/sub/outer.dtd", "<!ENTITY % p SYSTEM 'inner.ent'>%p;");
    directory.Write("doc/sub/inner.ent", "<!ENTITY zz 'in'>");
    directory.Write("doc/text.txt", "text");
    ASSERT_EQ(mkfifo((directory.Path() + "/doc/pipe").c_str(), 0600), 0);
    const std::string here = directory.Path() + "/doc/";
    const std::string gone = "<!DOCTYPE r SYSTEM 'gone.dtd'>";
    const std::tuple<std::string, const char*, const char*> rows[] = {
        // Nothing declared.
        {"<r>&zz;</r>", "fatal 1:4", "none"},
        {"<r>\n<b a='10&zz;mm'/></r>", "fatal 2:.+", "none"},
        {"<r a='&amp;zz;'>&#38;zz;</r>", "", "r a=&zz;:&zz;"},
        // An internal subset.
        {"<!DOCTYPE r [<!ENTITY e 'v'>]><r a='10&e;mm'>&e;&e;</r>", "", "r a=10vmm:vv"},
        {"<!DOCTYPE r [<!ENTITY e 'v'>]>\n<r>&zz;</r>", "fatal 2:4", "none"},
        {"<!DOCTYPE r [<!ENTITY e 'v'>]>\n<r a='&zz;'/>", "fatal 2:.+", "none"},
        {"<!DOCTYPE r [<!ENTITY e 'v'><!ENTITY e 'w'>]><r>&e;</r>", "", "r:v"},
        {"<!DOCTYPE r [<!ENTITY lt2 '&#38;#60;'>]><r a='&lt2;'>&lt2;</r>", "", "r a=<:<"},
        {"<!DOCTYPE r [<!ATTLIST r a CDATA 'x' b CDATA #IMPLIED>]><r/>", "", "r a=x:"},
        {"<!DOCTYPE r [<!ATTLIST r a CDATA 'x'><!ATTLIST r a CDATA 'y'>]><r/>", "", "r a=x:"},
        {"<!DOCTYPE r [<!ENTITY e 'v'><!ATTLIST r a CDATA '1&e;'>]><r/>", "", "r a=1v:"},
        {"<!DOCTYPE r [<!ELEMENT r EMPTY><!ATTLIST r q CDATA #REQUIRED f CDATA #FIXED 'x'>]><r f='y'><b/></r>", "",
            "r f=y:b:"}, // not valid, which does not matter
        // Entities that are external.
        {"<!DOCTYPE r [<!ENTITY x SYSTEM 'text.txt'>]><r/>", "", "r:"},
        {"<!DOCTYPE r [<!ENTITY x SYSTEM 'text.txt'>]>\n<r>&x;</r>", "fatal 2:4", "none"},
        {"<!DOCTYPE r [<!ENTITY x SYSTEM 'text.txt'>]>\n<r a='&x;'/>", "fatal 2:.+", "none"},
        {"<!DOCTYPE r [<!ENTITY x SYSTEM 'text.txt'><!ENTITY e '&x;'>]>\n<r>&e;</r>", "fatal 2:.+", "none"},
        {"<!DOCTYPE r [<!ENTITY x SYSTEM 'text.txt'><!ENTITY x 'v'>]>\n<r>&x;</r>", "fatal 2:4", "none"},
        {"<!DOCTYPE r [<!ENTITY x 'v'><!ENTITY x SYSTEM 'text.txt'>]><r>&x;</r>", "", "r:v"},
        {"<!DOCTYPE r [<!NOTATION n SYSTEM 'n'><!ENTITY x SYSTEM 'x' NDATA n>]>\n<r>&x;</r>", "fatal 2:4", "none"},
        // A document type definition that is there.
        {"<!DOCTYPE r SYSTEM 'shared.dtd'><r a='10&zz;mm'>&zz;</r>", "", "r a=10vmm d=dd:v"},
        {"<!DOCTYPE r SYSTEM 'shared.dtd'>\n<r>&yy;</r>", "fatal 2:4", "none"},
        {"<!DOCTYPE r PUBLIC 'p' 'shared.dtd'><r>&zz;</r>", "", "r d=dd:v"},
        {"<?xml version='1.0' standalone='yes'?><!DOCTYPE r SYSTEM 'shared.dtd'><r/>", "", "r d=dd:"},
        {"<!DOCTYPE r SYSTEM 'shared.dtd' [<!ENTITY zz 'own'><!ATTLIST r d CDATA 'own'>]><r>&zz;</r>", "",
            "r d=own:own"},
        {"<!DOCTYPE r [<!ENTITY % p SYSTEM 'shared.dtd'> %p;]><r>&zz;</r>", "", "r d=dd:v"},
        {"<!DOCTYPE r SYSTEM 'latin.dtd'><r>&zz;</r>", "", "r:\u00E4"},
        {"<!DOCTYPE r SYSTEM './sub/outer.dtd'><r>&zz;</r>", "", "r:in"},
        {"<!DOCTYPE r SYSTEM 'sub/../../up.dtd'><r>&zz;</r>", "", "r:up"},
        {"<!DOCTYPE r SYSTEM 'broken.dtd'><r/>", "fatal 2:.+", "none"},
        // One that cannot be had, or is not looked for.
        {gone + "<r a='1'>&lt;</r>", "warning 1:.+", "r a=1:<"},
        {"<!DOCTYPE r SYSTEM 'sub'><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM 'pipe'><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM ''><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM '" + here + "shared.dtd'><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM 'file://" + here + "shared.dtd'><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM 'file:shared.dtd'><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM 'http://localhost/shared.dtd'><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM '\\shared.dtd'><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM 'C:\\shared.dtd'><r/>", "warning 1:.+", "r:"},
        {gone + "\n<r>&zz;</r>", "warning 1:.+, fatal 2:4", "none"},
        {gone + "\n<r>\n<b c='>' a='10&zz;mm'/></r>", "warning 1:.+, fatal 3:.+", "none"},
        {gone + "<r a='&amp;zz;'>&amp;zz;</r>", "warning 1:.+", "r a=&zz;:&zz;"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ENTITY e '&zz;'>]><r/>", "warning 1:.+", "r:"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ENTITY e '&zz;'>]>\n<r>&e;</r>", "warning 1:.+, fatal 2:.+", "none"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ENTITY e '&zz;'>]>\n<r a='&e;'/>", "warning 1:.+, fatal 2:.+", "none"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ENTITY e '&#38;zz;'>]>\n<r a='&e;'/>", "warning 1:.+, fatal 2:.+", "none"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ENTITY e '&#38;#38;zz;'>]><r a='&e;'>&e;</r>", "warning 1:.+",
            "r a=&zz;:&zz;"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ENTITY e \"<b a='&zz;'/>\">]>\n<r>&e;</r>", "warning 1:.+, fatal 2:.+",
            "none"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ATTLIST r a CDATA '10&zz;mm'>]><r/>", "(warning .+, )?fatal 1:.+", "none"},
        {"<!DOCTYPE r SYSTEM 'gone.dtd' [<!ENTITY e '&zz;'><!ATTLIST r a CDATA '1&e;'>]><r/>",
            "(warning .+, )?fatal 1:.+", "none"},
        {"<!DOCTYPE r [<!ENTITY % p SYSTEM 'gone.ent'>%p;%p;<!ENTITY e 'v'><!ATTLIST r d CDATA '&e;'>]><r>&e;</r>",
            "warning 1:.+", "r d=v:v"},
    };
    for (const auto& [document, problems, contents] : rows)
    {
        directory.Write("doc/file.xml", document);
        const Outcome outcome = ParseFile(directory.Path() + "\\doc\\file.xml");
        EXPECT_THAT(outcome.problems, MatchesRegex(problems)) << document;
        EXPECT_EQ(outcome.Contents(), contents) << document;
    }
}

TEST_F(ParseProblem, OnlyPastTheBounds)
{
    const auto nested = [](std::size_t depth) { return Repeated(depth, "<a>") + Repeated(depth, "</a>"); };
    // Entities that refer to each other, the innermost first or last.
    const auto chain = [](std::size_t length, bool innermostFirst, const std::string& use)
    {
        std::string declarations;
        for (std::size_t number = 0; number < length; ++number)
        {
            const std::string text = number == 0 ? "v" : "&e" + std::to_string(number - 1) + ";";
            const std::string declaration = "<!ENTITY e" + std::to_string(number) + " '" + text + "'>";
            declarations = innermostFirst ? declarations + declaration : declaration + declarations;
        }
        return "<!DOCTYPE r [" + declarations + "]>" + Replaced(use, "e", "e" + std::to_string(length - 1));
    };
    const auto parameterChain = [](std::size_t length)
    {
        std::string declarations = "<!ENTITY % p0 '<!ENTITY zz \"v\">'>";
        for (std::size_t number = 1; number < length; ++number)
            declarations += "<!ENTITY % p" + std::to_string(number) + " '&#37;p" + std::to_string(number - 1) + ";'>";
        return "<!DOCTYPE r [" + declarations + "%p" + std::to_string(length - 1) + ";]><r>&zz;</r>";
    };
    const auto expanded = [](std::size_t bytes, std::size_t times)
    { return "<!DOCTYPE r [<!ENTITY e '" + std::string(bytes, 'x') + "'>]><r>" + Repeated(times, "&e;") + "</r>"; };
    const auto defaulted = [](std::size_t bytes, std::size_t times)
    {
        return "<!DOCTYPE r [<!ATTLIST b a CDATA '" + std::string(bytes, 'x') + "'>]><r>" + Repeated(times, "<b/>") +
               "</r>";
    };
    std::string laughs = "<!ENTITY e0 'ha'>";
    for (int number = 1; number < 10; ++number)
        laughs +=
            "<!ENTITY e" + std::to_string(number) + " '" + Repeated(10, "&e" + std::to_string(number - 1) + ";") + "'>";
    const std::string spaces(CATXMLBounds::documentBytes - 7, ' ');
    const std::size_t depth = CATXMLBounds::elementDepth;
    const std::size_t entities = CATXMLBounds::entityDepth;
    const std::tuple<const char*, std::string, bool> rows[] = {
        {"elements within each other", nested(depth), true},
        {"elements within each other", nested(depth + 1), false},
        {"entities, in text", chain(entities, true, "<r>&e;</r>"), true},
        {"entities, in text", chain(entities + 1, true, "<r>&e;</r>"), false},
        {"entities, in an attribute", chain(entities, false, "<r a='&e;'/>"), true},
        {"entities, in an attribute", chain(entities + 1, false, "<r a='&e;'/>"), false},
        {"parameter entities", parameterChain(entities), true},
        {"parameter entities", parameterChain(entities + 1), false},
        {"expansion below 8 MiB", expanded(100000, 50), true},
        {"expansion below a hundred times", expanded(400000, 30), true},
        {"expansion", expanded(100000, 2000), false},
        {"defaults below 8 MiB", defaulted(50000, 100), true},
        {"defaults", defaulted(50000, 4000), false},
        {"expansion of expansions", "<!DOCTYPE r [" + laughs + "]><r>&e9;</r>", false},
        {"expansion of expansions", "<!DOCTYPE r [" + laughs + "]><r a='&e9;'/>", false},
        {"bytes", "<r>" + spaces + "</r>", true},
        {"bytes", "<r>" + spaces + " </r>", false},
    };
    for (const auto& [bound, document, isWithin] : rows)
        EXPECT_THAT(Parse(document).problems, MatchesRegex(isWithin ? "" : "fatal .+")) << bound;
}

TEST_F(ParseProblem, OnlyPastTheBoundsOfExternalFiles)
{
    const auto file = [](int number) { return "f" + std::to_string(number) + ".dtd"; };
    for (const int extra : {0, 1})
    {
        std::string many;
        for (int number = 0; number < CATXMLBounds::externalFiles + extra; ++number)
        {
            directory.Write(file(number), "<!ENTITY e" + std::to_string(number) + " 'v'>");
            many += "<!ENTITY % p" + std::to_string(number) + " SYSTEM '" + file(number) + "'>%p" +
                    std::to_string(number) + ";";
        }
        directory.Write(
            "many.xml", "<!DOCTYPE r [" + many + "]><r>&e" + std::to_string(CATXMLBounds::externalFiles - 1) + ";</r>");
        EXPECT_EQ(ParseFile(directory.Path() + "\\many.xml").Contents(), extra == 0 ? "r:v" : "none");

        const int last = CATXMLBounds::externalDepth + extra;
        for (int number = 1; number < last; ++number)
            directory.Write(file(number), "<!ENTITY % n" + std::to_string(number) + " SYSTEM '" + file(number + 1) +
                                              "'>%n" + std::to_string(number) + ";");
        directory.Write(file(last), "<!ENTITY e 'v'>");
        directory.Write("deep.xml", "<!DOCTYPE r SYSTEM '" + file(1) + "'><r>&e;</r>");
        EXPECT_EQ(ParseFile(directory.Path() + "\\deep.xml").Contents(), extra == 0 ? "r:v" : "none");
    }
}

TEST_F(ParseProblem, OfAFileThatCannotBeRead)
{
    directory.Write("good.xml", "<r/>");
    directory.Write("sub/file.xml", "<r/>");
    CATIDOMDocument_var document;
    for (const char* name : {"\\gone.xml", "\\sub", ""})
    {
        document = Parse("<old/>").document;
        EXPECT_LT(Builder()->Parse(CATUnicodeString(directory.Path() + name), {}, {}, NULL_var, NULL_var, document), 0);
        EXPECT_TRUE(document == NULL_var) << name;
    }
    EXPECT_EQ(ParseFile(directory.Path() + "\\good.xml").Contents(), "r:");

    CATListValCATUnicodeString supported;
    supported.Append("left over");
    Builder()->GetSupportedOptions(supported);
    EXPECT_GT(supported.Locate("CATDoValidation"), 0);
    EXPECT_EQ(supported.Locate("left over"), 0);
    const std::tuple<const char*, const char*, bool> options[] = {
        {"CATDoValidation", "false", true}, {"CATDoValidation", "true", false}, {"unknown", "false", false}};
    for (const auto& [name, value, isTaken] : options)
    {
        CATListValCATUnicodeString names;
        CATListValCATUnicodeString values;
        names.Append(name);
        values.Append(value);
        const CATResult result = Builder()->Parse(
            CATUnicodeString(directory.Path() + "\\good.xml"), names, values, NULL_var, NULL_var, document);
        EXPECT_EQ(SUCCEEDED(result), isTaken) << name << value;
        EXPECT_EQ(document == NULL_var, !isTaken) << name << value;
    }
}

TEST_F(ParseProblem, IsShownInABox)
{
    const auto component =
        CATHandle<CATBaseUnknown>::Adopt(CATExternalComponent::Instantiate("VEXMELKSAXErrorHandler"));
    auto* handler = dynamic_cast<VEXMELKSAXErrorHandler*>(component.Get());
    ASSERT_NE(handler, nullptr);
    const auto tie = CATISAXErrorHandler_var::Adopt(CreateTIECATISAXErrorHandlerVEXMELKSAXErrorHandler(handler));
    const CATSAXParseException exception("what is wrong", 12, 5);
    for (const CATSAXParseException* problem : {&exception, static_cast<const CATSAXParseException*>(nullptr)})
    {
        EXPECT_EQ(tie->Warning(problem), 0);
        EXPECT_EQ(tie->Error(problem), 0);
        EXPECT_EQ(tie->FatalError(problem), 0);
        const std::string text = problem ? "what is wrong\n(line: 12, column: 5)" : "";
        EXPECT_THAT(
            TakeBoxes(), ElementsAre("warning MELK CFG: Parse Warning: " + text,
                             "error MELK CFG: SAX Parse Error: " + text, "error MELK CFG: Parse Fatal Error: " + text));
    }
    directory.Write("catalogue", "ParseWarning.Title = \"Watch out\"\n");
    setenv("MELK_MSG_CATALOG", (directory.Path() + "/catalogue").c_str(), 1);
    handler->Warning(&exception);
    unsetenv("MELK_MSG_CATALOG");
    EXPECT_THAT(TakeBoxes(), ElementsAre("warning Watch out: what is wrong\n(line: 12, column: 5)"));

    CATIDOMDocument_var document;
    Builder()->ParseMemory(Repeated(11, "<!---->\n") + "<r>\t\x01</r>", tie, document);
    EXPECT_THAT(
        TakeBoxes(), ElementsAre(MatchesRegex("error MELK CFG: Parse Fatal Error: .+\n\\(line: 12, column: 5\\)")));
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ParseProblem, IsSparedByTheSharedDocumentType)
{
    const auto component =
        CATHandle<CATBaseUnknown>::Adopt(CATExternalComponent::Instantiate("VEXMELKXMLEntityResolver"));
    auto* resolver = dynamic_cast<VEXMELKXMLEntityResolver*>(component.Get());
    ASSERT_NE(resolver, nullptr);
    const auto tie = CATISAXEntityResolver_var::Adopt(CreateTIECATISAXEntityResolverVEXMELKXMLEntityResolver(resolver));
    CATISAXInputSource_var source;
    for (const VEXMELKAppMode mode : {VEXMELKNormalMode, VEXMELKTestMode})
    {
        VEXMELKUtilities::SetAppMode(mode);
        EXPECT_EQ(tie->ResolveEntity("public", "basedata.dtd", source), 0);
        EXPECT_EQ(source->GetPath(), directory.Path() + "\\basedata.dtd");
        EXPECT_EQ(source->GetEncoding(), "");
    }
    for (const char* systemId : {"BaseData.dtd", "./basedata.dtd", "basedata.dtd ", "other.dtd", ""})
    {
        resolver->ResolveEntity("", "basedata.dtd", source);
        EXPECT_EQ(tie->ResolveEntity("basedata.dtd", systemId, source), E_FAIL) << systemId;
        EXPECT_TRUE(source == NULL_var) << systemId;
    }

    directory.Write("basedata.dtd", "<!ENTITY e 'of the configuration'>");
    directory.Write("far/other.dtd", "<!ENTITY e 'beside'>");
    const std::string document = "<!DOCTYPE r SYSTEM 'NAME'><r>&e;</r>";
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"basedata.dtd", "", "r:of the configuration"},
        {"other.dtd", "", "r:beside"},
        {"BaseData.dtd", "warning 1:.+, fatal 1:.+", "none"},
    };
    for (const auto& [name, problems, contents] : rows)
    {
        directory.Write("far/file.xml", Replaced(document, "NAME", name));
        const Outcome outcome = ParseFile(directory.Path() + "\\far\\file.xml", tie);
        EXPECT_THAT(outcome.problems, MatchesRegex(problems)) << name;
        EXPECT_EQ(outcome.Contents(), contents) << name;
    }
    directory.Remove("basedata.dtd");
    directory.Write("far/basedata.dtd", "<!ENTITY e 'beside'>");
    directory.Write("far/file.xml", Replaced(document, "NAME", "basedata.dtd"));
    EXPECT_EQ(ParseFile(directory.Path() + "\\far\\file.xml", tie).Contents(), "r:beside");
    EXPECT_THAT(TakeBoxes(), IsEmpty());

    directoryIsSet = false;
    EXPECT_EQ(resolver->ResolveEntity("", "basedata.dtd", source), 0);
    EXPECT_EQ(source->GetPath(), "\\basedata.dtd");
    EXPECT_THAT(TakeBoxes(), ElementsAre(MatchesRegex("error MELK - Configuration Error: (.|\n)+")));
}
