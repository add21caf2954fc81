// Counts what the arena needs room for, then fills it. A byte that is no character stands behind the document, so that
// nothing has to look out for its end.
#include "CATXMLPlainReader.h"

#include "CATNumberText.h"
#include "CATXMLBounds.h"
#include "CATXMLEncoding.h"

#include <charconv>
#include <new>

namespace {

constexpr std::size_t roomBefore = 16;  // for the first block of text that is written
constexpr std::size_t roomBehind = 128; // for the blocks that are read past the end

constexpr bool IsNameBegin(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte == ':';
}
constexpr bool IsASCII(char byte) { return static_cast<signed char>(byte) >= 0; }

// The bytes that may stand in a name. Those beyond ASCII count as such, so that no name ends before one.
constexpr auto nameBytes = []
{
    std::array<bool, 256> bytes = {};
    for (unsigned value = 0; value < bytes.size(); ++value)
    {
        const char byte = static_cast<char>(value);
        bytes[value] = IsNameBegin(byte) || CATIsDigit(byte) || byte == '-' || byte == '.' || !IsASCII(byte);
    }
    return bytes;
}();
bool IsInName(char byte) { return nameBytes[static_cast<unsigned char>(byte)]; }

// Of the bytes of a block: its size when there is none.
template <class Block> unsigned First(typename Block::Bytes bytes)
{
    return static_cast<unsigned>(std::countr_zero(bytes.Bits() | 1U << Block::size));
}
template <class Block> unsigned FirstBut(typename Block::Bytes bytes)
{
    return static_cast<unsigned>(std::countr_zero(~bytes.Bits()));
}

bool Begins(const char* at, std::string_view text) { return std::string_view(at, text.size()) == text; }

// The bytes of the character that begins with a byte beyond ASCII: 0 when it is none.
unsigned LengthOfCharacter(const char* at)
{
    const auto byte = [&](unsigned place) { return static_cast<unsigned char>(at[place]); };
    const auto continues = [&](unsigned place) { return (byte(place) & 0xC0U) == 0x80U; };
    const unsigned first = byte(0);
    if (first < 0xC2 || first > 0xF4 || !continues(1))
        return 0;
    if (first < 0xE0)
        return 2;
    if (!continues(2))
        return 0;
    if (first < 0xF0)
    {
        const bool isShorter = first == 0xE0 && byte(1) < 0xA0;
        const bool isSurrogate = first == 0xED && byte(1) >= 0xA0;
        const bool isNoCharacter = first == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE;
        return isShorter || isSurrogate || isNoCharacter ? 0 : 3;
    }
    const bool isShorter = first == 0xF0 && byte(1) < 0x90;
    const bool isTooLarge = first == 0xF4 && byte(1) >= 0x90;
    return !continues(3) || isShorter || isTooLarge ? 0 : 4;
}

bool IsCharacter(unsigned code)
{
    if (code < ' ')
        return code == '\t' || code == '\n' || code == '\r';
    return code < 0xD800 || (code >= 0xE000 && code < 0xFFFE) || (code > 0xFFFF && code <= 0x10FFFF);
}

char* WriteCharacter(unsigned code, char* to)
{
    const auto byte = [&](unsigned value) { *to++ = static_cast<char>(value); };
    if (code < 0x80)
        byte(code);
    else if (code < 0x800)
        byte(0xC0 | code >> 6U);
    else if (code < 0x10000)
        byte(0xE0 | code >> 12U);
    else
    {
        byte(0xF0 | code >> 18U);
        byte(0x80 | (code >> 12U & 0x3FU));
    }
    if (code >= 0x800)
        byte(0x80 | (code >> 6U & 0x3FU));
    if (code >= 0x80)
        byte(0x80 | (code & 0x3FU));
    return to;
}

} // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the storage is written before it is read
template <class Block> CATXMLPlainReader<Block>::CATXMLPlainReader(CATXMLDocument& document) : m_Document(document)
{
    m_Document.m_Names.BeginIn(m_NameCharacters, m_NameEntries);
}

template <class Block> char* CATXMLPlainReader<Block>::Begin(std::size_t bytes)
{
    m_Document.m_Text.Resize(roomBefore + bytes + roomBehind);
    m_Out = &m_Document.m_Text[0];
    return m_Out + roomBefore;
}

template <class Block> bool CATXMLPlainReader<Block>::Read(std::size_t bytes)
{
    const char* at = m_Out + roomBefore;
    m_End = at + bytes;
    std::fill_n(m_Out + roomBefore + bytes, roomBehind, '\0');
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (Begins(at, byteOrderMark))
        at += byteOrderMark.size();
    m_LineBegin = at;
    ReserveFor(at, m_End);
    AddNode(CATXMLDocument::Document, 0, 0, 0);
    m_Parent = 0;
    if (Begins(at, "<?xml") && CATIsBlank(at[5]))
        at = ReadDeclaration(at + 5);
    at = at ? ReadAround(at) : at;
    if (!at || *at != '<')
        return false;
    m_Document.m_Root = NextNode();
    at = ReadElement(at);
    at = at && m_Parent != 0 ? ReadContents(at) : at;
    at = at ? ReadAround(at) : at;
    if (at != m_End)
        return false;
    m_Document.m_Nodes.Resize(NextNode());
    m_Document.m_Heads.Resize(static_cast<std::size_t>(m_Head - m_Document.m_Heads.Data()));
    m_Document.m_Attributes.Resize(NextAttribute());
    m_Document.m_Text.Resize(Offset(m_Out));
    m_Document.Complete();
    return true;
}

// Every node begins with "<" or is the text before one, and every attribute has a "=". What there is may be less: these
// characters stand elsewhere too. What of the room is not used is given back.
template <class Block> void CATXMLPlainReader<Block>::ReserveFor(const char* at, const char* end)
{
    constexpr std::size_t atOnce = 4 * Block::size;
    constexpr std::ptrdiff_t counted = 252 * Block::size; // what a counter can take
    std::size_t tags = 0;
    std::size_t attributes = 0;
    while (at < end)
    {
        typename Block::Counter tagCounter;
        typename Block::Counter attributeCounter;
        for (const char* stop = at + std::min(counted, end - at); at < stop; at += atOnce)
            for (std::size_t place = 0; place < atOnce; place += Block::size)
            {
                const Block block(at + place);
                tagCounter.Add(block.Equal('<'));
                attributeCounter.Add(block.Equal('='));
            }
        tags += tagCounter.Total();
        attributes += attributeCounter.Total();
    }
    m_Document.m_Nodes.Resize(1 + 2 * tags);
    m_Document.m_Heads.Resize(tags + 1);
    m_Document.m_Attributes.Resize(attributes + 1); // never none, so that there is a first one to write
    m_Node = &m_Document.m_Nodes[0];
    m_Head = &m_Document.m_Heads[0];
    m_Attribute = &m_Document.m_Attributes[0];
}

template <class Block>
void CATXMLPlainReader<Block>::AddNode(
    CATXMLDocument::NodeType type, Symbol symbol, Index headOrText, std::size_t endOrLength)
{
    *m_Node++ = {m_Parent, static_cast<Index>(endOrLength), headOrText, symbol & 0x0FFFFFFFU, type & 0xFU};
}

// Behind "<?xml".
template <class Block> const char* CATXMLPlainReader<Block>::ReadDeclaration(const char* at)
{
    std::string_view value;
    const char* behind = ReadSetting(at, "version", value);
    if (!behind || value != "1.0")
        return nullptr;
    at = behind;
    behind = ReadSetting(at, "encoding", value);
    if (behind && !CATXMLIsEncoding(value, "UTF-8"))
        return nullptr;
    at = behind ? behind : at;
    behind = ReadSetting(at, "standalone", value);
    if (behind && value != "yes" && value != "no")
        return nullptr;
    at = SkipBlanks(behind ? behind : at);
    return Begins(at, "?>") ? at + 2 : nullptr;
}

// Of the declaration. Null also when it is another one.
template <class Block>
const char* CATXMLPlainReader<Block>::ReadSetting(const char* at, std::string_view name, std::string_view& value)
{
    while (*at == ' ')
        ++at;
    if (at[-1] != ' ' || !Begins(at, name) || at[name.size()] != '=')
        return nullptr;
    at += name.size() + 1;
    const char quote = *at++;
    const char* end = at;
    while (IsInName(*end))
        ++end;
    value = {at, static_cast<std::size_t>(end - at)};
    return (quote == '"' || quote == '\'') && *end == quote ? end + 1 : nullptr;
}

// Before or behind the root element: up to the root element, or to the end.
template <class Block> const char* CATXMLPlainReader<Block>::ReadAround(const char* at)
{
    while (at)
    {
        at = SkipBlanks(at);
        if (Begins(at, "<!--"))
            at = ReadComment(at);
        else if (Begins(at, "<?"))
            at = ReadInstruction(at);
        else
            break;
    }
    return at;
}

// Up to the end of the root element.
template <class Block> const char* CATXMLPlainReader<Block>::ReadContents(const char* at)
{
    while (at && m_Parent != 0)
    {
        if (*at != '<')
            at = ReadText(at);
        else if (at[1] == '/')
            at = ReadEndTag(at);
        else if (at[1] == '?')
            at = ReadInstruction(at);
        else if (at[1] != '!')
            at = ReadElement(at);
        else
            at = at[2] == '-' ? ReadComment(at) : ReadCData(at);
    }
    return at;
}

// The element's tag; the element stays open unless the tag is empty.
template <class Block> const char* CATXMLPlainReader<Block>::ReadElement(const char* at)
{
    if (m_Depth == CATXMLBounds::elementDepth)
        return nullptr;
    CATXMLDocument::Head* const head = m_Head++;
    const auto column = static_cast<std::uint32_t>(at - m_LineBegin) + 1;
    *head = {NextNode(), NextAttribute(), m_Line, column};
    ++at;
    const char* behind = ReadName(at);
    if (!behind)
        return nullptr;
    const Index node = NextNode();
    const auto number = static_cast<Index>(head - m_Document.m_Heads.Data());
    AddNode(CATXMLDocument::Element, Names().Latest(), number, node + 1);
    at = ReadAttributes(behind, number + 1);
    if (!at)
        return nullptr;
    if (*at == '/')
        return at[1] == '>' ? at + 2 : nullptr;
    m_Parent = node;
    ++m_Depth;
    return at + 1;
}

// Up to the "/" or ">" that ends the tag.
template <class Block> const char* CATXMLPlainReader<Block>::ReadAttributes(const char* at, Index mark)
{
    while (at)
    {
        const char* behind = *at == ' ' ? BehindName(at + 1, Names().Likely()) : nullptr;
        if (behind && *behind == '=')
            Names().TakeLikely();
        else
        {
            const char* const begin = at;
            if (CATIsBlank(*at))
                at = SkipBlanks(at);
            if (*at == '/' || *at == '>')
                return at;
            behind = at == begin ? nullptr : ReadOtherName(at);
            if (!behind || *(behind = SkipBlanks(behind)) != '=')
                return nullptr;
        }
        const Symbol name = Names().Latest();
        *m_Attribute++ = {name, Offset(m_Out)};
        if (!Names().Mark(name, mark))
            return nullptr;
        at = ReadValue(behind + 1);
    }
    return at;
}

// In quotes. Short and plain ones, most of all, are looked through and copied at once.
template <class Block> const char* CATXMLPlainReader<Block>::ReadValue(const char* at)
{
    const char quote = *at;
    if (quote != '"' && quote != '\'')
        return CATIsBlank(quote) ? ReadSpacedValue(at) : nullptr;
    const Block block(++at);
    block.Store(m_Out + 1);
    const auto quotes = block.Equal('"') | block.Equal('\'');
    const unsigned length = First<Block>(block.Special() | block.Equal('<') | block.Equal('&') | quotes);
    if (at[length] != quote)
        return ReadLongValue(at, quote);
    *m_Out = static_cast<char>(length);
    m_Out += length + 1;
    return at + length + 1;
}

// Behind blanks.
template <class Block> const char* CATXMLPlainReader<Block>::ReadSpacedValue(const char* at)
{
    at = SkipBlanks(at);
    return CATIsBlank(*at) ? nullptr : ReadValue(at);
}

// Behind the quote.
template <class Block> const char* CATXMLPlainReader<Block>::ReadLongValue(const char* at, char quote)
{
    char* const begin = m_Out++;
    at = Copy<In::Value>(at, quote);
    if (!at || *at != quote)
        return nullptr;
    // Before it stands its length, which may take more than one byte.
    std::size_t left = static_cast<std::size_t>(m_Out - begin) - 1;
    std::array<char, 5> coded = {};
    std::size_t bytes = 0;
    for (; left >= 128; left >>= 7U)
        coded[bytes++] = static_cast<char>((left & 127U) | 128U);
    coded[bytes++] = static_cast<char>(left);
    std::copy_backward(begin + 1, m_Out, m_Out + bytes - 1);
    std::copy_n(coded.data(), bytes, begin);
    m_Out += bytes - 1;
    return at + 1;
}

template <class Block> const char* CATXMLPlainReader<Block>::ReadEndTag(const char* at)
{
    at += 2;
    CATXMLDocument::Node& element = m_Document.m_Nodes[m_Parent];
    at = BehindName(at, element.symbol);
    if (!at)
        return nullptr;
    if (*at != '>')
    {
        at = SkipBlanks(at);
        if (*at != '>')
            return nullptr;
    }
    element.endOrLength = NextNode();
    m_Parent = element.parent;
    --m_Depth;
    return at + 1;
}

// When the name begins there, the place behind its text; else null.
template <class Block> const char* CATXMLPlainReader<Block>::BehindName(const char* at, Symbol symbol)
{
    const std::string_view name = Names().Name(symbol);
    return IsSame(at, name.data(), name.size()) ? at + name.size() : nullptr;
}

// The name is then the latest one.
template <class Block> const char* CATXMLPlainReader<Block>::ReadName(const char* at)
{
    if (Names().Size() == 0)
        return ReadOtherName(at);
    const char* behind = BehindName(at, Names().Likely());
    if (!behind || IsInName(*behind))
        return ReadOtherName(at);
    Names().TakeLikely();
    return behind;
}

// When it is not the most likely one. Names with letters beyond ASCII are left.
template <class Block> const char* CATXMLPlainReader<Block>::ReadOtherName(const char* at)
{
    CATXMLNames& names = Names();
    const char* behind = names.Size() > 0 ? BehindName(at, names.LessLikely()) : nullptr;
    if (behind && !IsInName(*behind))
    {
        names.TakeLessLikely();
        return behind;
    }
    const char* end = at;
    if (IsNameBegin(*at))
        while (IsInName(*end) && IsASCII(*end))
            ++end;
    if (end == at || !IsASCII(*end))
        return nullptr;
    names.Intern({at, static_cast<std::size_t>(end - at)});
    return end;
}

// Up to the next "<".
template <class Block> const char* CATXMLPlainReader<Block>::ReadText(const char* at)
{
    std::size_t length = 0;
    unsigned end = Block::size;
    while (length < knownLengths && (end = First<Block>(Block(at + length).Equal('<'))) == Block::size)
        length += Block::size;
    if (end == Block::size)
        return ReadLongText(at);
    length += end;
    const KnownText& known = m_Known[length];
    if (known.offset == CATXMLDocument::none || !IsSame(at, known.bytes.data(), length))
        return ReadNewText(at, length);
    AddNode(CATXMLDocument::Text, 0, known.offset, known.length);
    at += length;
    m_Line += known.lines;
    m_LineBegin = (known.lines > 0 ? at : m_LineBegin) + known.lineBegin;
    return at;
}

template <class Block> const char* CATXMLPlainReader<Block>::ReadNewText(const char* at, std::size_t length)
{
    KnownText& known = m_Known[length];
    for (std::size_t place = 0; place < length; place += Block::size)
        Block(at + place).Store(known.bytes.data() + place);
    const std::uint32_t line = m_Line;
    const char* const lineBegin = m_LineBegin;
    known.offset = Offset(m_Out);
    at = ReadLongText(at);
    if (!at)
        return nullptr;
    known.length = Offset(m_Out) - known.offset;
    known.lines = m_Line - line;
    known.lineBegin = static_cast<int>(m_LineBegin - (known.lines > 0 ? at : lineBegin));
    return at;
}

template <class Block> const char* CATXMLPlainReader<Block>::ReadLongText(const char* at)
{
    const Index offset = Offset(m_Out);
    at = Copy<In::Text>(at, '<');
    AddNode(CATXMLDocument::Text, 0, offset, Offset(m_Out) - offset);
    return at;
}

template <class Block> const char* CATXMLPlainReader<Block>::ReadCData(const char* at)
{
    constexpr std::string_view begin = "<![CDATA[";
    if (!Begins(at, begin))
        return nullptr;
    const Index offset = Offset(m_Out);
    at = Copy<In::CData>(at + begin.size(), ']');
    AddNode(CATXMLDocument::CDataSection, 0, offset, Offset(m_Out) - offset);
    return at ? at + 3 : nullptr;
}

template <class Block> const char* CATXMLPlainReader<Block>::ReadComment(const char* at)
{
    if (!Begins(at, "<!--"))
        return nullptr;
    const Index offset = Offset(m_Out);
    at = Copy<In::Comment>(at + 4, '-');
    AddNode(CATXMLDocument::Comment, 0, offset, Offset(m_Out) - offset);
    return at && at[2] == '>' ? at + 3 : nullptr;
}

template <class Block> const char* CATXMLPlainReader<Block>::ReadInstruction(const char* at)
{
    const char* const begin = at + 2;
    const char* const end = ReadName(begin);
    if (!end || (end - begin == 3 && strncasecmp(begin, "xml", 3) == 0))
        return nullptr;
    at = SkipBlanks(end);
    if (at == end && !Begins(at, "?>"))
        return nullptr;
    const Index offset = Offset(m_Out);
    at = Copy<In::Instruction>(at, '?');
    AddNode(CATXMLDocument::ProcessingInstruction, Names().Latest(), offset, Offset(m_Out) - offset);
    return at ? at + 2 : nullptr;
}

// Up to what ends the piece, which begins with that character.
template <class Block>
template <typename CATXMLPlainReader<Block>::In in>
const char* CATXMLPlainReader<Block>::Copy(const char* at, char end)
{
    while (at)
    {
        const Block block(at);
        block.Store(m_Out);
        auto stops = block.Special() | block.Equal(end);
        if constexpr (in == In::Text)
            stops = stops | block.Equal('&') | block.Equal(']');
        if constexpr (in == In::Value)
            stops = stops | block.Equal('&') | block.Equal('<');
        const unsigned length = First<Block>(stops);
        at += length;
        m_Out += length;
        if (length == Block::size)
            continue;
        if (*at != end)
            at = CopySpecial<in>(at);
        else if (in == In::Text || in == In::Value || (in == In::CData && Begins(at, "]]>")) ||
                 (in == In::Comment && at[1] == '-') || (in == In::Instruction && at[1] == '>'))
            return at;
        else
            *m_Out++ = *at++;
    }
    return nullptr;
}

// A character that may have to be checked or changed.
template <class Block>
template <typename CATXMLPlainReader<Block>::In in>
const char* CATXMLPlainReader<Block>::CopySpecial(const char* at)
{
    if (!IsASCII(*at))
    {
        const unsigned length = LengthOfCharacter(at);
        if (length == 0)
            return nullptr;
        for (unsigned place = 0; place < length; ++place)
            *m_Out++ = *at++;
        m_LineBegin += length - 1;
        return at;
    }
    switch (*at)
    {
    case '\r':
        if (at[1] != '\n')
            return nullptr;
        ++at;
        [[fallthrough]];
    case '\n':
        BeginLine(at + 1);
        [[fallthrough]];
    case '\t':
        *m_Out++ = in == In::Value ? ' ' : *at;
        return at + 1;
    case '&':
        return CopyReference(at);
    case ']':
        if (Begins(at, "]]>"))
            return nullptr;
        *m_Out++ = *at;
        return at + 1;
    default:
        return nullptr;
    }
}

template <class Block> const char* CATXMLPlainReader<Block>::CopyReference(const char* at)
{
    struct Entity
    {
        std::string_view reference;
        char character = '\0';
    };
    constexpr Entity entities[] = {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}};
    for (const Entity& entity : entities)
        if (Begins(at, entity.reference))
        {
            *m_Out++ = entity.character;
            return at + entity.reference.size();
        }
    if (at[1] != '#')
        return nullptr;
    const bool isHexadecimal = at[2] == 'x';
    const char* digits = at + (isHexadecimal ? 3 : 2);
    const char* end = digits;
    while (IsInName(*end))
        ++end;
    unsigned code = 0;
    const auto [behind, error] = std::from_chars(digits, end, code, isHexadecimal ? 16 : 10);
    if (error != std::errc() || behind != end || *end != ';' || !IsCharacter(code))
        return nullptr;
    m_Out = WriteCharacter(code, m_Out);
    return end + 1;
}

// Stops at a "\r" that does not belong to a line feed.
template <class Block> const char* CATXMLPlainReader<Block>::SkipBlanks(const char* at)
{
    for (;; ++at)
    {
        if (*at == '\r' && at[1] == '\n')
            ++at;
        if (*at == '\n')
            BeginLine(at + 1);
        else if (*at != ' ' && *at != '\t')
            return at;
    }
}

// Reads whole blocks of both.
template <class Block> bool CATXMLPlainReader<Block>::IsSame(const char* left, const char* right, std::size_t size)
{
    for (;;)
    {
        const unsigned same = FirstBut<Block>(Block(left).Equal(Block(right)));
        if (same >= size)
            return true;
        if (same < Block::size)
            return false;
        left += Block::size;
        right += Block::size;
        size -= Block::size;
    }
}

template class CATXMLPlainReader<CATXMLPlainBlock>;
#ifdef __SSE2__
template class CATXMLPlainReader<CATXMLVectorBlock>;
#endif

std::unique_ptr<const CATXMLDocument> CATReadPlainXML(
    const std::function<long(void* buffer, std::size_t size)>& reader, std::size_t expectedBytes)
try
{
    if (expectedBytes > CATXMLBounds::documentBytes)
        return nullptr;
    auto document = std::make_unique<CATXMLDocument>();
    CATXMLPlainReader<CATXMLBlock> plainReader(*document);
    // One byte more than there should be shows the end.
    char* const begin = plainReader.Begin(expectedBytes + 1);
    std::size_t filled = 0;
    for (long read = 1; read > 0 && filled <= expectedBytes; filled += static_cast<std::size_t>(read))
    {
        read = reader(begin + filled, expectedBytes + 1 - filled);
        if (read < 0)
            return nullptr;
    }
    if (filled > expectedBytes || !plainReader.Read(filled))
        return nullptr;
    return document;
}
catch (const std::bad_alloc&)
{
    return nullptr;
}
