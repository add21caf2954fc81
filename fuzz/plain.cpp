// The reader of plain documents, with each kind of block, against the parser that decides: what it accepts has to be
// the same document to the last place, what is not well formed it has to leave, and of simple documents it may leave
// nothing else. The input is damaged further here, many times over, because a try takes much less time than the
// fuzzer's own turn.
#include "CATXMLParse.h"
#include "CATXMLPlainReader.h"
#include "Require.h"

#include <algorithm>
#include <random>
#include <string>

namespace {

class SilentListener final : public CATXMLParseListener
{
public:
    void OnWarning(const Problem& /*problem*/) override {}
    void OnFailure(const Problem& /*problem*/) override {}
    std::optional<Source> FindExternal(const char* /*publicId*/, const char* /*systemId*/) override { return {}; }
};

auto ReaderOf(std::string_view bytes)
{
    return [=, place = std::size_t{0}](void* buffer, std::size_t size) mutable
    {
        const std::size_t piece = bytes.copy(static_cast<char*>(buffer), size, place);
        place += piece;
        return static_cast<long>(piece);
    };
}

using Document = std::unique_ptr<const CATXMLDocument>;

Document Parsed(std::string_view bytes)
{
    SilentListener listener;
    return CATXMLParse("", "", listener).Run(ReaderOf(bytes), bytes.size());
}

template <class Block> Document PlainlyRead(std::string_view bytes)
{
    auto document = std::make_unique<CATXMLDocument>();
    CATXMLPlainReader<Block> reader(*document);
    bytes.copy(reader.Begin(bytes.size()), bytes.size());
    return reader.Read(bytes.size()) ? std::move(document) : nullptr;
}

using Index = CATXMLDocument::Index;

void RequireSameLists(const CATXMLDocument& left, const CATXMLDocument& right, Index node, std::string_view tag)
{
    const CATXMLDocument::Elements leftList = left.ElementsByTagName(node, tag);
    const CATXMLDocument::Elements rightList = right.ElementsByTagName(node, tag);
    Require(leftList.length == rightList.length);
    for (Index place = 0; place < leftList.length; ++place)
        Require(left.ElementAt(leftList, place) == right.ElementAt(rightList, place));
}

void RequireSameElement(const CATXMLDocument& left, const CATXMLDocument& right, Index node)
{
    Require(left.Line(node) == right.Line(node) && left.Column(node) == right.Column(node));
    const CATXMLDocument::Attributes leftOnes = left.AttributesOf(node);
    const CATXMLDocument::Attributes rightOnes = right.AttributesOf(node);
    Require(leftOnes.count == rightOnes.count);
    for (Index place = 0; place < leftOnes.count; ++place)
    {
        Require(left.AttributeName(leftOnes.first[place]) == right.AttributeName(rightOnes.first[place]));
        Require(left.AttributeValue(leftOnes.first[place]) == right.AttributeValue(rightOnes.first[place]));
    }
    RequireSameLists(left, right, node, left.NodeName(node));
}

// Nodes have the same numbers in both when parents, first children and next siblings have.
void RequireSame(const CATXMLDocument& left, const CATXMLDocument& right)
{
    Require(left.RootElement() == right.RootElement());
    RequireSameLists(left, right, 0, "*");
    for (Index node = 0; node != CATXMLDocument::none;)
    {
        const CATXMLDocument::NodeType type = left.Type(node);
        Require(type == right.Type(node) && left.NodeName(node) == right.NodeName(node));
        Require(left.NodeText(node) == right.NodeText(node) && left.Parent(node) == right.Parent(node));
        const Index child = left.FirstChild(node);
        Require(child == right.FirstChild(node) && left.NextSibling(node) == right.NextSibling(node));
        if (type == CATXMLDocument::Element)
            RequireSameElement(left, right, node);
        for (; child == CATXMLDocument::none && node != CATXMLDocument::none; node = left.Parent(node))
            if (left.NextSibling(node) != CATXMLDocument::none)
                break;
        node = child != CATXMLDocument::none ? child : node != CATXMLDocument::none ? left.NextSibling(node) : node;
    }
}

// Without anything that is left although it may be well formed.
bool IsSimple(std::string_view bytes)
{
    const auto isUnusual = [](char byte) { return byte == '\r' || static_cast<signed char>(byte) <= 0; };
    return std::none_of(bytes.begin(), bytes.end(), isUnusual) && bytes.find("<!DOCTYPE") == std::string_view::npos &&
           bytes.find("<?xml") == std::string_view::npos;
}

void Check(std::string_view bytes)
{
    const Document plain = PlainlyRead<CATXMLBlock>(bytes);
    const Document twin = PlainlyRead<CATXMLPlainBlock>(bytes);
    Require((plain == nullptr) == (twin == nullptr));
    if (!plain && !IsSimple(bytes))
        return;
    const Document parsed = Parsed(bytes);
    Require((parsed == nullptr) == (plain == nullptr));
    if (!plain)
        return;
    RequireSame(*plain, *parsed);
    RequireSame(*twin, *parsed);
}

// Pieces that make a difference to a document.
constexpr std::string_view pieces[] = {"<", ">", "/", "&", ";", "=", "'", "\"", " ", "\t", "\n", "\r\n", "\r", "-",
    "--", "-->", "<!--", "<!---->", "]", "]]", "]]>", "<![CDATA[", "<![CDATA[]]>", "?", "?>", "<?", "<?p?>", "<?p q?>",
    "<?xml", "<?XML ?>", "<?xml version='1.0'?>", "<?xml version=\"1.0\" encoding=\"utf-8\" standalone='yes'?>\n",
    "<!DOCTYPE a>", "\xEF\xBB\xBF", "a", "b", ":", "_", ".", "1", "x", "#", "<a>", "</a>", "<a/>", "<b>", "</b>",
    "</b >", "<b", "<long-name-of-an-element", "</long-name-of-an-element>", " a='1'", " b=\"2\"", " c = '3'",
    "\n a='\t\n'", " long-name-of-an-attribute='a value that takes more than sixteen bytes'", "''", "\"\"", "&lt;",
    "&gt;", "&amp;", "&quot;", "&apos;", "&#10;", "&#13;", "&#x41;", "&#xE4;", "&#x10FFFF;", "&#0;", "&#xFFFE;",
    "&#65536;", "&#99999999999;", "&e;", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9D\x84\x9E", "\xC0\xAF", "\xED\xA0\x80",
    "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\xF4\x90\x80\x80", "\xC3", "\xE2\x82", "\x80", "\xFF", "\x7F", "\x01",
    std::string_view("\0", 1), "\n    ", "\r\n  ", "                 ", "text", "\n                    \n"};

// Adds a piece, writes one over what is there, doubles a part of the document, or takes one out.
void Damage(std::string& bytes, std::mt19937& random)
{
    const auto below = [&](std::size_t bound) { return random() % bound; };
    const std::size_t place = below(bytes.size() + 1);
    const std::size_t length = std::min(bytes.size() - place, below(4) == 0 ? below(200) : below(4));
    const std::string_view piece = pieces[below(std::size(pieces))];
    switch (below(5))
    {
    case 0:
    case 1:
        bytes.insert(place, piece);
        break;
    case 2:
        bytes.replace(place, std::min(length, piece.size()), piece);
        break;
    case 3:
        bytes.insert(below(bytes.size() + 1), bytes.substr(place, length));
        break;
    default:
        bytes.erase(place, length);
    }
}

// How many damaged documents are tried for one input.
int Damages()
{
    const char* named = std::getenv("MELK_DAMAGES");
    return named ? std::stoi(named) : 1000;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const int damages = Damages();
    const std::string_view bytes = TextOf(data, size);
    Check(bytes);
    std::mt19937 random(static_cast<unsigned>(std::hash<std::string_view>()(bytes)));
    for (int number = 0; number < damages; ++number)
    {
        std::string damaged(bytes);
        for (auto count = 1 + random() % 3; count > 0; --count)
            Damage(damaged, random);
        Check(damaged);
    }
    return 0;
}
