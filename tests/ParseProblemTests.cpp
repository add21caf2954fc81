// What is wrong with a document: which box comes up, with which text and place, and what is never read.
#include "CATIXMLDOMDocumentBuilder.h"
#include "LibraryTest.h"
#include "System.h"
#include "VEXMELKSAXErrorHandler.h"
#include "VEXMELKXMLEntityResolver.h"

#include <optional>
#include <regex>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// GoogleTest's own matcher has expressions of another kind on Windows.
MATCHER_P(MatchesPattern, pattern, "") { return std::regex_match(std::string(arg), std::regex(std::string(pattern))); }

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
        EXPECT_EQ(exception->GetMessage().SearchSubString("TOKEN"), -1) << "a text of a file";
        problems.append(problems.empty() ? "" : ", ").append(kind).append(std::to_string(exception->GetLineNumber()));
        problems.append(":").append(std::to_string(exception->GetColumnNumber()));
        return S_OK;
    }
};

struct ParseOutcome
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
ParseOutcome Checked(CATResult result, const CATHandle<Recorder>& recorder, const CATIDOMDocument_var& document)
{
    const std::string& problems = recorder->problems;
    EXPECT_EQ(SUCCEEDED(result), !(document == NULL_var));
    EXPECT_EQ(problems.find("fatal"), SUCCEEDED(result) ? std::string::npos : problems.rfind("fatal"));
    EXPECT_EQ(problems.find("error"), std::string::npos);
    EXPECT_THAT(
        problems, MatchesPattern(SUCCEEDED(result) ? "(warning [^,]+(, )?)*" : "(warning [^,]+, )*fatal [0-9:]+"));
    return {problems, document};
}

ParseOutcome Parse(std::string_view bytes)
{
    const auto recorder = CATHandle<Recorder>::Create();
    CATIDOMDocument_var document;
    const CATResult result = Builder()->ParseMemory(bytes, CATISAXErrorHandler_var(recorder.Get()), document);
    return Checked(result, recorder, document);
}

CATListValCATUnicodeString ListOf(const std::string& text)
{
    CATListValCATUnicodeString list;
    list.Append(CATUnicodeString(text));
    return list;
}

// Document types come from the directory, or else from the folder of the document.
ParseOutcome ParseFile(
    const std::string& path, const CATISAXEntityResolver_var& resolver = NULL_var, const std::string& directory = "")
{
    const auto recorder = CATHandle<Recorder>::Create();
    CATIDOMDocument_var document;
    const bool isNamed = !directory.empty();
    const CATResult result = Builder()->Parse(CATUnicodeString(path),
        isNamed ? ListOf("CATDocumentTypeDirectory") : CATListValCATUnicodeString(),
        isNamed ? ListOf(directory) : CATListValCATUnicodeString(), CATISAXErrorHandler_var(recorder.Get()), resolver,
        document);
    return Checked(result, recorder, document);
}

using ParseProblem = LibraryTest;

} // namespace

TEST_F(ParseProblem, OfADocumentThatIsNotWellFormed)
{
    for (const std::vector<std::string>& row : Cells(CaseFile("documentsThatAreNotWellFormed")))
        for (std::size_t cell = 1; cell < row.size(); ++cell)
        {
            const std::string bytes = row[cell] == "ZEROS" ? std::string(100, '\0') : row[cell];
            EXPECT_THAT(Parse(bytes).problems, MatchesPattern("fatal " + row[0])) << bytes;
        }
    CATIDOMDocument_var document;
    EXPECT_LT(Builder()->ParseMemory("<a>", NULL_var, document), 0); // and nobody to tell
}

TEST_F(ParseProblem, OfADocumentCutOffAnywhere)
{
    const std::string document = Cells(R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n \
        <!DOCTYPE r [<!ENTITY e "v<b/>"><!ATTLIST r d CDATA "&#228;"><!-- c --><?p d?>]>\n<!-- c --><?p d?> \
        <r a='1' b="&lt;\xC3\xA4\xF0\x9D\x84\x9E">&e;&#10;<![CDATA[x]]> t<s>\xE2\x82\xAC</s ></r>)")[0][0];
    EXPECT_EQ(Parse(document).problems, "");
    const std::string wide = *Converted(document, "UTF-8", "UTF-16LE");
    for (std::size_t size = 0; size < document.size(); ++size)
        EXPECT_THAT(Parse(document.substr(0, size)).problems, MatchesPattern("fatal .+")) << size;
    for (std::size_t size = 0; size < 200; ++size)
        EXPECT_THAT(Parse(wide.substr(0, size)).problems, MatchesPattern("fatal .+")) << size;
}

TEST_F(ParseProblem, IsPlacedByLineAndColumn)
{
    auto rows = Table<3>(CaseFile("places"));
    rows.push_back({"2", "1", "<r>" + std::string(65532, 'x') + "\r\n@</r>"}); // a line end in two of the pieces read
    rows.push_back({"20001", "4", Repeated(20000, "<!---->\r\n") + "<r>@</r>"});
    const auto encodings = Table<3>(R"(
        UTF-8        |              |
        UTF-8        | \xEF\xBB\xBF |
        UTF-16LE     |              |
        UTF-16LE     | \xFF\xFE     |
        UTF-16BE     |              |
        UTF-16BE     | \xFE\xFF     |
        ISO-8859-15  |              | <?xml version='1.0' encoding='ISO-8859-15'?>\n
        windows-1252 |              | <?xml version='1.0' encoding='Windows-1252'?>\n)");
    for (const auto& [line, column, text] : rows)
        for (const auto& [encoding, mark, declaration] : encodings)
        {
            const std::string shown = text.substr(0, 60) + " in " + encoding;
            const std::string lineHere = std::to_string(std::stoi(line) + (declaration.empty() ? 0 : 1));
            const auto element = Converted(declaration + Replaced(text, "@", "<x/>"), "UTF-8", encoding);
            const auto error = Converted(declaration + Replaced(text, "@", "\x01"), "UTF-8", encoding);
            if (!element || !error)
                continue;
            EXPECT_EQ(Parse(mark + *error).problems, "fatal " + lineHere + ":" + column) << shown;
            const ParseOutcome outcome = Parse(mark + *element);
            ASSERT_EQ(outcome.problems, "") << shown;
            const CATIDOMElement_var found = outcome.document->GetDocumentElement()->GetElementsByTagName("x")->Item(0);
            EXPECT_EQ(std::to_string(found->GetLineNumber()), lineHere) << shown;
            EXPECT_EQ(std::to_string(found->GetColumnNumber()), column) << shown;
        }
}

TEST_F(ParseProblem, OfEncodings)
{
    const std::string document = "<?xml version='1.0' encoding='NAME'?><r>\u00E4</r>";
    const auto declared = [&](const std::string& name) { return Replaced(document, "NAME", name); };
    for (const char* name : {"UTF-8", "utf-8"})
        EXPECT_EQ(Parse(declared(name)).Contents(), "r:\u00E4") << name;
    for (const std::string& name :
        Split("US-ASCII,us-ascii,UTF-16,,x,KOI8-R,EBCDIC-CP-US,UTF-32,ISO-8859-0,ISO-8859-01,ISO-8859-12,ISO-8859-17,"
              "ISO-8859-1x,windows-1249,windows-1259,windows-12500",
            ","))
        EXPECT_THAT(Parse(declared(name)).problems, MatchesPattern("fatal 1:.+")) << name;
    EXPECT_EQ(Parse(Replaced(declared("US-ASCII"), "\u00E4", "~")).Contents(), "r:~");

    const char* wideEncodings[][3] = {{"UTF-16LE", "UTF-16BE", "\xFF\xFE"}, {"UTF-16BE", "UTF-16LE", "\xFE\xFF"}};
    for (const auto& [encoding, other, mark] : wideEncodings)
    {
        for (const char* name : {"UTF-16", "utf-16", encoding})
        {
            const std::string wide = *Converted(declared(name), "UTF-8", encoding);
            EXPECT_EQ(Parse(mark + wide).Contents(), "r:\u00E4") << encoding;
            EXPECT_EQ(Parse(wide).Contents(), "r:\u00E4") << encoding;
        }
        for (const char* name : {"UTF-8", "ISO-8859-1", "windows-1252", other})
            EXPECT_NE(Parse(mark + *Converted(declared(name), "UTF-8", encoding)).problems, "") << name;
    }
    for (const char* name : {"UTF-8", "utf-8"})
        EXPECT_EQ(Parse("\xEF\xBB\xBF" + declared(name)).Contents(), "r:\u00E4");
    for (const char* name : {"UTF-16", "ISO-8859-1", "US-ASCII", "windows-1252", "UTF-8x"})
        EXPECT_NE(Parse("\xEF\xBB\xBF" + Replaced(declared(name), "\u00E4", "x")).problems, "") << name;
}

TEST_F(ParseProblem, OfBytesWithoutACharacter)
{
    std::vector<std::string> names{"iso-8859-7", "Windows-1251"};
    for (int number = 1; number <= 16; ++number)
        if (number != 12) // there is none
            names.push_back("ISO-8859-" + std::to_string(number));
    for (int number = 1250; number <= 1258; ++number)
        names.push_back("windows-" + std::to_string(number));
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
    for (const auto& [name, contents] : Table<2>(R"(
        conf/up.dtd            | <!ENTITY zz 'up'>
        conf/doc/shared.dtd    | <?xml encoding='UTF-8'?>\n<!ENTITY zz 'v'><!ATTLIST r d CDATA 'dd'>
        conf/doc/latin.dtd     | <?xml version='1.0' encoding='ISO-8859-1'?><!ENTITY zz '\xE4'>
        conf/doc/marked.dtd    | \xEF\xBB\xBF<?xml encoding='ISO-8859-1'?><!ENTITY zz 'v'>
        conf/doc/later.dtd     | <?xml version='1.TOKEN' encoding='UTF-8'?><!ENTITY zz 'v'>
        conf/doc/broken.dtd    | <!ENTITY zz 'v'>\n  <!ENTITY
        conf/doc/sub/outer.dtd | <!ENTITY % p SYSTEM 'inner.ent'>%p;
        conf/doc/sub/inner.ent | <!ENTITY zz 'in'>
        conf/doc/sub/up.dtd    | <!ENTITY % p SYSTEM '../../up.dtd'>%p;
        conf/doc/value.dtd     | <!ENTITY % f SYSTEM 'token'><!ENTITY zz '%f;'>
        conf/doc/token         | TOKEN
        conf/doc/quoted        | "TOKEN" 'TOKEN'
        out/token              | TOKEN
        out/out.dtd            | <!ENTITY zz 'TOKEN'>)"))
        directory.Write(name, contents);
    const std::string root = directory.Path();
    bool hasLinks = MakePipe(root + "/conf/doc/pipe");
    for (const auto& [link, target] : Table<2>(R"(
        conf/doc/in.dtd       | ../up.dtd
        conf/doc/real.dtd     | HERE/conf/up.dtd
        conf/doc/back         | ..
        conf/doc/out          | ../../out
        conf/doc/out.dtd      | HERE/out/out.dtd
        conf/doc/nowhere.dtd  | gone.dtd
        conf/doc/out/none.dtd | gone.dtd
        conf/doc/loop.dtd     | loop.dtd)"))
        hasLinks = MakeLink(Replaced(target, "HERE", root), root + "/" + link) && hasLinks;
    const auto needsLinks = [](const std::string& document)
    {
        const auto names = {
            "/in.dtd", "'in.dtd", "real.dtd", "back/", "out", "nowhere.dtd", "none.dtd", "loop.dtd", "pipe"};
        return std::any_of(
            names.begin(), names.end(), [&](const char* name) { return document.find(name) != std::string::npos; });
    };
    for (const std::vector<std::string>& row : Cells(CaseFile("entitiesAndDocumentTypes")))
        for (std::size_t cell = 2; cell < row.size(); ++cell)
        {
            std::string document = Replaced(Replaced(row[cell], "DT[", "DT ["), "DT ", "<!DOCTYPE r ");
            document = Replaced(Replaced(document, "GONE", "SYSTEM 'gone.dtd'"), "HERE", root + "/conf/doc");
            document = Replaced(document, "FILE[", "[<!ENTITY % f SYSTEM 'quoted'><!ENTITY % t SYSTEM 'token'>");
            if (!hasLinks && needsLinks(document))
                continue;
            directory.Write("conf/doc/file.xml", document);
            const ParseOutcome outcome = ParseFile(root + "\\conf\\doc\\file.xml", NULL_var, root + "/conf");
            EXPECT_THAT(outcome.problems, MatchesPattern(row[0])) << document;
            EXPECT_EQ(outcome.Contents(), row[1]) << document;
        }

    // Without a directory, from the folder of the document; with the setting, from nowhere.
    for (const auto& [setting, name, problems, contents] : Table<4>(R"(
            | sub/outer.dtd |                          | r:in
            | ../up.dtd     | warning 1:.+, fatal 1:.+ | none
        yes | shared.dtd    | warning 1:.+, fatal 1:.+ | none)"))
    {
        directory.Write("conf/doc/file.xml", "<!DOCTYPE r SYSTEM '" + name + "'><r>&zz;</r>");
        SetVariable("MELK_NO_EXTERNAL_DTD", setting);
        const ParseOutcome outcome = ParseFile(root + "\\conf\\doc\\file.xml");
        SetVariable("MELK_NO_EXTERNAL_DTD", "");
        EXPECT_THAT(outcome.problems, MatchesPattern(problems)) << name;
        EXPECT_EQ(outcome.Contents(), contents) << name;
    }
}

TEST_F(ParseProblem, OnlyPastTheBounds)
{
    const auto nested = [](std::size_t depth) { return Repeated(depth, "<a>") + Repeated(depth, "</a>"); };
    const auto typed = [](const std::string& declarations, const std::string& contents)
    { return "<!DOCTYPE r [" + declarations + "]>" + contents; };
    // Entities that refer to each other, "times" times, the innermost first or last; "$" is the outermost.
    const auto chain = [&](std::size_t length, bool innermostFirst, std::size_t times, const std::string& use)
    {
        std::string declarations = "<!ENTITY e0 'v'>";
        for (std::size_t number = 1; number < length; ++number)
        {
            const std::string text = Repeated(times, "&e" + std::to_string(number - 1) + ";");
            const std::string declaration = "<!ENTITY e" + std::to_string(number) + " '" + text + "'>";
            declarations = innermostFirst ? declarations + declaration : declaration + declarations;
        }
        return typed(declarations, Replaced(use, "$", "e" + std::to_string(length - 1)));
    };
    const auto parameterChain = [&](std::size_t length)
    {
        std::string declarations = "<!ENTITY % p0 '<!ENTITY zz \"v\">'>";
        for (std::size_t number = 1; number < length; ++number)
            declarations += "<!ENTITY % p" + std::to_string(number) + " '&#37;p" + std::to_string(number - 1) + ";'>";
        return typed(declarations + "%p" + std::to_string(length - 1) + ";", "<r>&zz;</r>");
    };
    const auto expanded = [&](std::size_t bytes, std::size_t times)
    { return typed("<!ENTITY e '" + std::string(bytes, 'x') + "'>", "<r>" + Repeated(times, "&e;") + "</r>"); };
    const auto defaulted = [&](std::size_t bytes, std::size_t times) {
        return typed(
            "<!ATTLIST b a CDATA '" + std::string(bytes, 'x') + "'>", "<r>" + Repeated(times, "<b/>") + "</r>");
    };
    const auto declared = [&](std::size_t attributes, const std::string& ending)
    {
        std::string declarations = "<!ATTLIST b n CDATA 'v'>";
        for (std::size_t number = 0; number < attributes; ++number)
            declarations += "<!ATTLIST a n" + std::to_string(number) + " CDATA " + ending + ">";
        return typed(declarations, "<a/>");
    };
    const std::string spaces(CATXMLBounds::documentBytes - 7, ' ');
    const std::size_t entities = CATXMLBounds::entityDepth;
    const auto expect = [](const char* bound, const std::string& document, bool isWithin)
    { EXPECT_THAT(Parse(document).problems, MatchesPattern(isWithin ? "" : "fatal .+")) << bound << isWithin; };
    for (const std::size_t extra : {0U, 1U})
    {
        expect("nested elements", nested(CATXMLBounds::elementDepth + extra), extra == 0);
        expect("entities, in text", chain(entities + extra, true, 1, "<r>&$;</r>"), extra == 0);
        expect("entities, in an attribute", chain(entities + extra, false, 1, "<r a='&$;'/>"), extra == 0);
        expect("parameter entities", parameterChain(entities + extra), extra == 0);
        expect("attributes", declared(CATXMLBounds::declaredAttributes + extra, "#IMPLIED"), extra == 0);
        expect("attributes with defaults", declared(CATXMLBounds::declaredAttributes + extra, "'v'"), extra == 0);
        expect("bytes", "<r>" + spaces + std::string(extra, ' ') + "</r>", extra == 0);
    }
    expect("expansion below 8 MiB", expanded(100000, 50), true);
    expect("expansion below a hundred times", expanded(400000, 30), true);
    expect("expansion", expanded(100000, 2000), false);
    expect("defaults below 8 MiB", defaulted(50000, 100), true);
    expect("defaults", defaulted(50000, 4000), false);
    expect("names of defaults",
        typed("<!ATTLIST b " + std::string(50000, 'n') + " CDATA ''>", "<r>" + Repeated(4000, "<b/>") + "</r>"), false);
    expect("expansion of expansions", chain(10, true, 10, "<r>&$;</r>"), false);
    expect("expansion of expansions", chain(10, true, 10, "<r a='&$;'/>"), false);
}

TEST_F(ParseProblem, OnlyPastTheBoundsOfExternalFiles)
{
    // "#" stands for the number.
    const auto numbered = [](const char* text, int number) { return Replaced(text, "#", std::to_string(number)); };
    for (const int extra : {0, 1})
    {
        std::string many;
        const int files = CATXMLBounds::externalFiles + extra;
        for (int number = 0; number < files; ++number)
        {
            directory.Write(numbered("f#.dtd", number), numbered("<!ENTITY e# 'v'>", number));
            many += numbered("<!ENTITY % p# SYSTEM 'f#.dtd'>%p#;", number);
        }
        directory.Write(
            "file.xml", "<!DOCTYPE r [" + many + "]><r>" + numbered("&e#;", CATXMLBounds::externalFiles - 1) + "</r>");
        EXPECT_EQ(ParseFile(directory.Path() + "\\file.xml").Contents(), extra == 0 ? "r:v" : "none");

        const int last = CATXMLBounds::externalDepth + extra;
        for (int number = 1; number < last; ++number)
            directory.Write(numbered("f#.dtd", number), numbered("<!ENTITY % n# SYSTEM ", number) +
                                                            numbered("'f#.dtd'>", number + 1) +
                                                            numbered("%n#;", number));
        directory.Write(numbered("f#.dtd", last), "<!ENTITY e 'v'>");
        directory.Write("file.xml", "<!DOCTYPE r SYSTEM 'f1.dtd'><r>&e;</r>");
        EXPECT_EQ(ParseFile(directory.Path() + "\\file.xml").Contents(), extra == 0 ? "r:v" : "none");
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
    for (const auto& [name, value, isTaken] : Table<3>(R"(
        CATDoValidation | false | yes
        CATDoValidation | true  |
        unknown         | false |)"))
    {
        CATListValCATUnicodeString names;
        CATListValCATUnicodeString values;
        names.Append(name.c_str());
        values.Append(value.c_str());
        const CATResult result = Builder()->Parse(
            CATUnicodeString(directory.Path() + "\\good.xml"), names, values, NULL_var, NULL_var, document);
        EXPECT_EQ(SUCCEEDED(result), !isTaken.empty()) << name << value;
        EXPECT_EQ(document == NULL_var, isTaken.empty()) << name << value;
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
    for (const char* separator : {"/", "\\"})
    {
        SetVariable("MELK_MSG_CATALOG", directory.Path() + separator + "catalogue");
        handler->Warning(&exception);
        SetVariable("MELK_MSG_CATALOG", "");
        EXPECT_THAT(TakeBoxes(), ElementsAre("warning Watch out: what is wrong\n(line: 12, column: 5)"));
    }

    CATIDOMDocument_var document;
    Builder()->ParseMemory(Repeated(11, "<!---->\n") + "<r>\t\x01</r>", tie, document);
    EXPECT_THAT(
        TakeBoxes(), ElementsAre(MatchesPattern("error MELK CFG: Parse Fatal Error: .+\n\\(line: 12, column: 5\\)")));
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
    VEXMELKUtilities::SetAppMode(static_cast<VEXMELKAppMode>(2));
    EXPECT_EQ(tie->ResolveEntity("", "basedata.dtd", source), E_FAIL) << "a mode without a manager";
    VEXMELKUtilities::SetAppMode(VEXMELKNormalMode);

    directory.Write("basedata.dtd", "<!ENTITY e 'of the configuration'>");
    directory.Write("far/other.dtd", "<!ENTITY e 'beside'>");
    const std::string document = "<!DOCTYPE r SYSTEM 'NAME'><r>&e;</r>";
    for (const auto& [name, problems, contents] : Table<3>(R"(
        basedata.dtd |                          | r:of the configuration
        other.dtd    |                          | r:beside
        BaseData.dtd | warning 1:.+, fatal 1:.+ | none)"))
    {
        directory.Write("far/file.xml", Replaced(document, "NAME", name));
        const ParseOutcome outcome = ParseFile(directory.Path() + "\\far\\file.xml", tie);
        EXPECT_THAT(outcome.problems, MatchesPattern(problems)) << name;
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
    EXPECT_THAT(TakeBoxes(), ElementsAre(MatchesPattern("error MELK - Configuration Error: (.|\n)+")));
}
