// The DOM handles over documents of every kind of node.
#include "CATIXMLDOMDocumentBuilder.h"
#include "CATXMLPlainReader.h"
#include "LibraryTest.h"

#include <random>

using testing::ElementsAre;

namespace {

// The builder is gone when the document is used.
CATIDOMDocument_var Parsed(std::string_view bytes)
{
    CATIXMLDOMDocumentBuilder_var builder;
    CATIDOMDocument_var document;
    if (FAILED(CreateCATIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM)) ||
        FAILED(builder->ParseMemory(bytes, NULL_var, document)))
        throw std::runtime_error("no document");
    return document;
}

// Whether the quick way takes the document.
bool IsPlain(std::string_view bytes)
{
    const auto reader = [&, place = std::size_t{0}](void* buffer, std::size_t size) mutable
    {
        const std::size_t count = bytes.copy(static_cast<char*>(buffer), size, place);
        place += count;
        return static_cast<long>(count);
    };
    return CATReadPlainXML(reader, bytes.size()) != nullptr;
}

// One line a node: type, name, value and attributes, indented by depth.
void Describe(const CATIDOMNode_var& node, const std::string& indent, std::vector<std::string>& lines)
{
    std::string line = indent + std::to_string(node->GetNodeType()) + " ";
    line += node->GetNodeName();
    if (!node->GetNodeValue().empty())
        line.append(" '").append(node->GetNodeValue()).append("'");
    const CATIDOMNamedNodeMap_var attributes = node->GetAttributes();
    EXPECT_EQ(attributes == NULL_var, node->GetNodeType() != CATIDOMNode::ELEMENT_NODE) << line;
    EXPECT_EQ(CATIDOMElement_var(node) == NULL_var, node->GetNodeType() != CATIDOMNode::ELEMENT_NODE) << line;
    for (int position = 0; attributes != NULL_var && position < attributes->GetLength(); ++position)
    {
        const CATIDOMNode_var attribute = attributes->Item(position);
        EXPECT_EQ(attribute->GetNodeType(), CATIDOMNode::ATTRIBUTE_NODE) << line;
        EXPECT_TRUE(attribute->GetParentNode() == NULL_var && attribute->GetFirstChild() == NULL_var &&
                    attribute->GetNextSibling() == NULL_var && attribute->GetAttributes() == NULL_var)
            << line;
        line.append(" ").append(attribute->GetNodeName()).append("=").append(attribute->GetNodeValue());
    }
    lines.push_back(line);
    for (CATIDOMNode_var child = node->GetFirstChild(); child != NULL_var; child = child->GetNextSibling())
    {
        EXPECT_TRUE(child->GetParentNode() == node) << line;
        Describe(child, indent + "  ", lines);
    }
}

// The descendants with the tag, found without the lists of the document.
void Walk(const CATIDOMNode_var& node, std::string_view tag, std::vector<CATIDOMElement_var>& found)
{
    for (CATIDOMNode_var child = node->GetFirstChild(); child != NULL_var; child = child->GetNextSibling())
    {
        if (child->GetNodeType() == CATIDOMNode::ELEMENT_NODE && (tag == "*" || child->GetNodeName() == tag))
            found.emplace_back(child);
        Walk(child, tag, found);
    }
}

std::string AttributeOf(const CATIDOMElement_var& element, const std::string& name)
{
    const CATIDOMNode_var attribute = element->GetAttributes()->GetNamedItem(name);
    return attribute == NULL_var ? "none" : std::string(attribute->GetNodeValue());
}

} // namespace

TEST(Dom, ShowsEveryKindOfNode)
{
    const CATIDOMDocument_var document = Parsed(R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE m:config [
<!-- of the document type --> <?app of the document type?>
<!ENTITY text "ex&#38;amp;ample"> <!ENTITY tree "in <leaf kind='e'/> out"> <!ENTITY both "&text;&text;">
<!ATTLIST leaf kind CDATA "none" unit CDATA "mm">
]>
<!--before-->
<?app  one two ?>
<m:config b='2' a="1" B="" c=' &lt;&#x41;&text;
	&#10;'>
 <leaf kind="k"/>x&both;&gt;&#228;y<![CDATA[<&text;>]]><![CDATA[]]>&tree;!<!-- - --><?go?><deep
 ><leaf unit="cm" kind=""/></deep ></m:config>
<!--after-->
)");
    std::vector<std::string> lines;
    Describe(document, "", lines);
    EXPECT_THAT(
        lines, ElementsAre("9 #document", "  8 #comment 'before'", "  7 app 'one two '",
                   "  1 m:config b=2 a=1 B= c= <Aex&ample  \n", "    3 #text '\n '", "    1 leaf kind=k unit=mm",
                   "    3 #text 'xex&ampleex&ample>\u00E4y'", "    4 #cdata-section '<&text;>'", "    4 #cdata-section",
                   "    3 #text 'in '", "    1 leaf kind=e unit=mm", "    3 #text ' out!'", "    8 #comment ' - '",
                   "    7 go", "    1 deep", "      1 leaf unit=cm kind=", "  8 #comment 'after'"));
    EXPECT_TRUE(document->GetParentNode() == NULL_var && document->GetNextSibling() == NULL_var);
    const CATIDOMElement_var root = document->GetDocumentElement();
    EXPECT_EQ(root->GetTagName(), "m:config");
    EXPECT_TRUE(root == document->GetFirstChild()->GetNextSibling()->GetNextSibling());
    const CATIDOMNode_var text = root->GetFirstChild();
    EXPECT_EQ(CATIDOMText_var(text)->GetData(), "\n ");
    EXPECT_TRUE(CATIDOMText_var(text->GetNextSibling()) == NULL_var);
}

// Each document is plain, and is read twice, the second time with a document type in front: that goes another way.
TEST(Dom, IsTheSameWhicheverWayItIsRead)
{
    std::string lengths = "\n<r>";
    for (const std::size_t length : {1U, 14U, 15U, 16U, 17U, 31U, 32U, 33U, 63U, 64U, 65U, 127U, 128U, 129U})
    {
        const std::string text(length, 'n');
        lengths += "\n<" + text + " a='" + text + "' " + text + "a='" + text + "\u00E4'>" + text + "</" + text + ">" +
                   std::string(length, ' ') + "<" + text + "/>" + std::string(length, ' ') + "\n" + text + "&lt;";
    }
    std::vector<std::string> documents{lengths + "</r>"};
    for (const std::vector<std::string>& row : Cells(CaseFile("plainDocuments")))
        documents.push_back(row[0]);
    for (const std::string& document : documents)
    {
        EXPECT_TRUE(IsPlain(document)) << document;
        EXPECT_TRUE(IsPlain("<?xml version='1.0' encoding=\"utf-8\"  standalone='no' ?>" + document)) << document;
        std::vector<std::string> lines[2];
        for (int way = 0; way < 2; ++way)
        {
            const CATIDOMDocument_var parsed = Parsed((way == 0 ? "" : "<!DOCTYPE r>") + document);
            Describe(parsed, "", lines[way]);
            std::vector<CATIDOMElement_var> elements;
            Walk(parsed, "*", elements);
            for (const CATIDOMElement_var& element : elements)
                lines[way].push_back(
                    std::to_string(element->GetLineNumber()) + ":" + std::to_string(element->GetColumnNumber()));
        }
        EXPECT_EQ(lines[0], lines[1]) << document;
    }
}

TEST(Dom, FindsAttributesByWholeName)
{
    std::string many = "<r><none/><e";
    for (std::size_t number = 0; number < 300; ++number)
        many += " a" + std::to_string(number * 7 % 300) + "='" + std::to_string(number) + "'";
    const CATIDOMElement_var root = Parsed(many + " p:n='1' n='2'/><o late='3'/></r>")->GetDocumentElement();
    const CATIDOMNodeList_var elements = root->GetElementsByTagName("*");
    const CATIDOMNamedNodeMap_var map = elements->Item(1)->GetAttributes();
    ASSERT_EQ(map->GetLength(), 302);
    for (const std::size_t step : {1U, 299U, 101U}) // as written, backwards, and jumping
        for (std::size_t number = 0, at = 0; number < 300; ++number, at = (at + step) % 300)
        {
            const std::string name = "a" + std::to_string(at * 7 % 300);
            EXPECT_EQ(map->GetNamedItem(name)->GetNodeValue(), std::to_string(at));
            EXPECT_EQ(map->Item(static_cast<int>(at))->GetNodeName(), name);
        }
    EXPECT_EQ(AttributeOf(elements->Item(1), "p:n"), "1");
    EXPECT_EQ(AttributeOf(elements->Item(1), "n"), "2");
    for (const char* name : {"", "a", "a300", "A1", "late", "e", "p"})
        EXPECT_EQ(AttributeOf(elements->Item(1), name), "none") << name;
    EXPECT_EQ(elements->Item(0)->GetAttributes()->GetLength(), 0);
    EXPECT_EQ(AttributeOf(elements->Item(0), "late"), "none");
    EXPECT_EQ(AttributeOf(elements->Item(2), "late"), "3");
}

TEST(Dom, ListsDescendantsByTag)
{
    const CATIDOMElement_var root =
        Parsed("<a n='1'><b><a/>t<c><a><b/></a></c></b><!--<b/>--><b/><x:a/><a>t</a></a>")->GetDocumentElement();
    std::vector<CATIDOMElement_var> elements{root};
    Walk(root, "*", elements);
    // An element's number, and how many descendants it has of each tag, itself left out.
    for (const std::vector<std::string>& row : Cells(R"(
        0 | a 3 | b 3 | x:a 1 | * 8 | A 0 | n 0 | #text 0 | unknown 0
        1 | b 1 | a 2 | * 4
        2 | * 0
        3 | a 1
        8 | a 0)"))
        for (std::size_t cell = 1; cell < row.size(); ++cell)
        {
            const std::vector<std::string> tag = Split(row[cell], " ");
            const CATIDOMNodeList_var list = elements[std::stoul(row[0])]->GetElementsByTagName(tag[0]);
            EXPECT_EQ(list->GetLength(), std::stoi(tag[1])) << row[0] << " " << tag[0];
        }
    EXPECT_EQ(root->GetElementsByTagName("")->GetLength(), 0);
}

TEST(Dom, AgreesWithAWalkOfThousandsOfElements)
{
    std::mt19937 random(1);
    std::string document = "<t0>";
    std::vector<std::string> open{"t0"};
    std::vector<std::string> texts;
    for (std::size_t number = 0; number < 5000; ++number)
    {
        for (; open.size() > 1 && random() % 5 < 2; open.pop_back())
            document += "</" + open.back() + ">";
        open.push_back("t" + std::to_string(random() % 7));
        // Texts of few letters, around the length up to which equal ones are stored once.
        texts.emplace_back();
        for (std::size_t length = random() % 4 == 0 ? 60 + random() % 8 : 1 + random() % 3; length > 0; --length)
            texts.back() += static_cast<char>('a' + random() % 2);
        document += "<" + open.back() + " n='" + std::to_string(number) + "'>" + texts.back() + "<i/>";
    }
    for (; !open.empty(); open.pop_back())
        document += "</" + open.back() + ">";

    const CATIDOMElement_var root = Parsed(document)->GetDocumentElement();
    std::vector<CATIDOMElement_var> all{root};
    Walk(root, "*", all);
    ASSERT_EQ(all.size(), 10001U);
    for (std::size_t number = 0; number < texts.size(); ++number)
    {
        const CATIDOMElement_var& element = all[1 + 2 * number];
        ASSERT_EQ(AttributeOf(element, "n"), std::to_string(number));
        ASSERT_EQ(element->GetFirstChild()->GetNodeValue(), texts[number]) << number;
    }
    for (std::size_t number = 0; number < all.size(); number += 13)
        for (const char* tag : {"t0", "t3", "i", "*", "n"})
        {
            std::vector<CATIDOMElement_var> expected;
            Walk(all[number], tag, expected);
            const CATIDOMNodeList_var list = all[number]->GetElementsByTagName(tag);
            ASSERT_EQ(list->GetLength(), static_cast<int>(expected.size())) << number << " " << tag;
            for (int position = 0; position < list->GetLength(); ++position)
                ASSERT_TRUE(list->Item(position) == expected[static_cast<std::size_t>(position)])
                    << number << " " << tag;
        }
}

TEST(Dom, KeepsLongTextsWhole)
{
    for (const std::size_t length : {0U, 1U, 63U, 64U, 127U, 128U, 129U, 16383U, 16384U, 16385U, 2097151U, 2097152U})
    {
        std::string text(length, 'x');
        for (std::size_t at = 1; at + 1 < length; at += 2) // two bytes a letter, over whatever edges there are
            text.replace(at, 2, "\u00E4");
        const CATIDOMElement_var root =
            Parsed("<r a='" + text + "' b='next'>" + text + "<!--" + text + "--><?p " + text + "?></r>")
                ->GetDocumentElement();
        EXPECT_TRUE(AttributeOf(root, "a") == text) << length;
        EXPECT_EQ(AttributeOf(root, "b"), "next") << length;
        int nodes = 0;
        for (CATIDOMNode_var child = root->GetFirstChild(); child != NULL_var; child = child->GetNextSibling(), ++nodes)
            EXPECT_TRUE(child->GetNodeValue() == text) << length << " " << child->GetNodeName();
        EXPECT_EQ(nodes, length == 0 ? 2 : 3) << length;
    }
}

TEST(Dom, LivesAsLongAsAnyHandle)
{
    const char* bytes = "<r><e name='a value of some length'/>a text of some length</r>";
    CATIDOMNode_var attribute =
        Parsed(bytes)->GetDocumentElement()->GetElementsByTagName("e")->Item(0)->GetAttributes()->Item(0);
    CATIDOMNamedNodeMap_var map =
        CATIDOMElement_var(Parsed(bytes)->GetDocumentElement()->GetFirstChild())->GetAttributes();
    CATIDOMNodeList_var list = Parsed(bytes)->GetDocumentElement()->GetElementsByTagName("*");
    CATIDOMNode_var text = Parsed(bytes)->GetDocumentElement()->GetFirstChild()->GetNextSibling();
    EXPECT_EQ(attribute->GetNodeValue(), "a value of some length");
    EXPECT_EQ(map->GetNamedItem("name")->GetNodeValue(), "a value of some length");
    EXPECT_EQ(AttributeOf(list->Item(0), "name"), "a value of some length");
    EXPECT_EQ(text->GetNodeValue(), "a text of some length");
    EXPECT_EQ(text->GetParentNode()->GetNodeName(), "r");

    EXPECT_FALSE(text == list->Item(0)); // of another document
    CATIDOMNode_var moved = std::move(text);
    text = moved;
    EXPECT_TRUE(text == moved);
    text = attribute;
    moved = *&moved;
    attribute = NULL_var;
    EXPECT_EQ(text->GetNodeName(), "name");
    EXPECT_EQ(moved->GetNodeName(), "#text");
}
