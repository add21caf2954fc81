// Finds tags in the text of a file. They are read without checks: what is not well-formed, the parser says.
#include "VEXMELKWrittenFile.h"

#include "CATEncoding.h"
#include "VEXMELKDocumentText.h"
#include "VEXMELKFilePath.h"
#include "VEXMELKWording.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace {

constexpr auto npos = std::string_view::npos;

// The encoding that the XML declaration names, empty when it names none.
std::string DeclaredEncoding(std::string_view text)
{
    if (!text.starts_with("<?xml"))
        return {};
    const std::string_view declaration = text.substr(0, text.find("?>"));
    const std::size_t name = declaration.find("encoding");
    const std::size_t begin = declaration.find_first_of("'\"", std::min(name, declaration.size()));
    if (name == npos || begin == npos)
        return {};
    return std::string(declaration.substr(begin + 1, declaration.find(declaration[begin], begin + 1) - begin - 1));
}

// Behind a name.
std::size_t EndOfName(std::string_view text, std::size_t begin)
{
    return std::min(text.find_first_of(" \t\r\n=/>", begin), text.size());
}

// Behind the first of these texts, or at the end.
std::size_t Behind(std::string_view text, std::string_view wanted, std::size_t begin)
{
    const std::size_t found = text.find(wanted, begin);
    return found == npos ? text.size() : found + wanted.size();
}

// Behind the ">" that ends a declaration, outside of quotes, brackets and comments.
std::size_t EndOfDeclaration(std::string_view text, std::size_t begin)
{
    int brackets = 0;
    for (std::size_t at = begin; at < text.size(); ++at)
    {
        if (text.substr(at).starts_with("<!--"))
            at = Behind(text, "-->", at) - 1;
        else if (text[at] == '\'' || text[at] == '"')
            at = std::min(text.find(text[at], at + 1), text.size());
        else if (text[at] == '[')
            ++brackets;
        else if (text[at] == ']')
            --brackets;
        else if (text[at] == '>' && brackets <= 0)
            return at + 1;
    }
    return text.size();
}

// Behind the ">" that ends a tag, outside of quotes.
std::size_t EndOfTag(std::string_view text, std::size_t begin)
{
    for (std::size_t at = begin; at < text.size(); ++at)
        if (text[at] == '\'' || text[at] == '"')
            at = std::min(text.find(text[at], at + 1), text.size());
        else if (text[at] == '>')
            return at + 1;
    return text.size();
}

// Behind what begins with the "<" there and is no start tag; the same place when it is one.
std::size_t EndOfOther(std::string_view text, std::size_t begin)
{
    const std::string_view rest = text.substr(begin);
    if (rest.starts_with("<!--"))
        return Behind(text, "-->", begin + 4);
    if (rest.starts_with("<![CDATA["))
        return Behind(text, "]]>", begin);
    if (rest.starts_with("<?"))
        return Behind(text, "?>", begin);
    if (rest.starts_with("<!"))
        return EndOfDeclaration(text, begin + 2);
    if (rest.starts_with("</"))
        return Behind(text, ">", begin);
    return begin;
}

std::vector<VEXMELKWrittenFile::Attribute> AttributesIn(std::string_view text, std::size_t begin, std::size_t end)
{
    std::vector<VEXMELKWrittenFile::Attribute> attributes;
    for (std::size_t at = text.find_first_not_of(VEXMELKBlanks, begin); at < end;
         at = text.find_first_not_of(VEXMELKBlanks, at))
    {
        const std::size_t endOfName = EndOfName(text, at);
        const std::size_t quote = text.find_first_of("'\"", endOfName);
        if (endOfName == at || quote >= end)
            break;
        const std::size_t closing = std::min(text.find(text[quote], quote + 1), end);
        attributes.push_back({{at, endOfName}, {quote + 1, closing}});
        at = std::min(closing + 1, end);
    }
    return attributes;
}

} // namespace

std::optional<VEXMELKWrittenFile> VEXMELKWrittenFile::Read(const std::string& path)
{
    std::ifstream stream(VEXMELKFilePath(path), std::ios::binary);
    if (!stream)
        return std::nullopt;
    std::string bytes(std::istreambuf_iterator<char>(stream), {});
    VEXMELKWrittenFile file;
    for (const auto& [mark, encoding] :
        {std::pair("\xEF\xBB\xBF", "UTF-8"), std::pair("\xFE\xFF", "UTF-16BE"), std::pair("\xFF\xFE", "UTF-16LE")})
        if (bytes.starts_with(mark))
        {
            file.m_Mark = mark;
            file.m_Encoding = encoding;
        }
    if (file.m_Encoding.empty())
        file.m_Encoding = DeclaredEncoding(bytes);
    if (file.m_Encoding.empty())
        file.m_Encoding = "UTF-8";
    std::optional<std::string> text = CATToUTF8(std::string_view(bytes).substr(file.m_Mark.size()), file.m_Encoding);
    if (!text)
        return std::nullopt;
    file.m_Bytes = std::move(bytes);
    file.m_Text = *std::move(text);
    file.m_Lines.push_back(0);
    for (std::size_t at = 0; at < file.m_Text.size(); ++at)
    {
        const bool isPair = file.m_Text[at] == '\r' && file.m_Text[std::min(at + 1, file.m_Text.size() - 1)] == '\n';
        if ((file.m_Text[at] == '\n' || file.m_Text[at] == '\r') && !isPair)
            file.m_Lines.push_back(at + 1);
    }
    file.FindTags();
    return file;
}

void VEXMELKWrittenFile::FindTags()
{
    const std::string_view text = m_Text;
    VEXMELKPosition position{1, 1};
    std::size_t counted = 0; // up to where "position" has come
    const auto moveTo = [&](std::size_t offset)
    {
        for (; static_cast<std::size_t>(position.line) < m_Lines.size() &&
               m_Lines[static_cast<std::size_t>(position.line)] <= offset;
             ++position.line)
        {
            counted = m_Lines[static_cast<std::size_t>(position.line)];
            position.column = 1;
        }
        position.column += CharactersIn({counted, offset});
        counted = offset;
    };
    for (std::size_t at = text.find('<'); at != npos; at = text.find('<', at))
    {
        moveTo(at);
        const std::size_t behind = EndOfOther(text, at);
        if (text.substr(at).starts_with("<!--"))
            m_Comments.push_back({{at, behind}, position});
        if (behind == at)
        {
            const std::size_t end = EndOfTag(text, at + 1);
            const Span name{at + 1, std::min(EndOfName(text, at + 1), end)};
            m_Tags.push_back(
                {{at, end}, name, position, AttributesIn(text, name.end, end), text.substr(0, end).ends_with("/>")});
            at = end;
        }
        else
            at = behind;
    }
}

std::string_view VEXMELKWrittenFile::Line(int number) const
{
    if (number < 1 || static_cast<std::size_t>(number) > m_Lines.size())
        return {};
    const std::string_view rest = std::string_view(m_Text).substr(m_Lines[static_cast<std::size_t>(number) - 1]);
    return rest.substr(0, rest.find_first_of("\r\n"));
}

const VEXMELKWrittenFile::Tag* VEXMELKWrittenFile::TagAt(VEXMELKPosition position) const
{
    const auto found = std::lower_bound(m_Tags.begin(), m_Tags.end(), position,
        [](const Tag& tag, VEXMELKPosition wanted) { return tag.position < wanted; });
    return found != m_Tags.end() && found->position == position ? &*found : nullptr;
}

const VEXMELKWrittenFile::Attribute* VEXMELKWrittenFile::AttributeOf(const Tag& tag, std::string_view name) const
{
    const auto found = std::find_if(tag.attributes.begin(), tag.attributes.end(),
        [&](const Attribute& attribute) { return Text(attribute.name) == name; });
    return found == tag.attributes.end() ? nullptr : &*found;
}

VEXMELKPosition VEXMELKWrittenFile::PositionIn(const Tag& tag, std::size_t offset) const
{
    VEXMELKPosition position = tag.position;
    std::size_t counted = tag.span.begin;
    for (; static_cast<std::size_t>(position.line) < m_Lines.size() &&
           m_Lines[static_cast<std::size_t>(position.line)] <= offset;
         ++position.line)
    {
        counted = m_Lines[static_cast<std::size_t>(position.line)];
        position.column = 1;
    }
    position.column += CharactersIn({counted, offset});
    return position;
}

std::size_t VEXMELKWrittenFile::EndOfElement(const Tag& tag) const
{
    const std::string_view text = m_Text;
    int open = tag.isEmpty ? 0 : 1;
    std::size_t at = tag.span.end;
    while (open > 0 && (at = text.find('<', at)) != npos)
    {
        const std::size_t behind = EndOfOther(text, at);
        if (text.substr(at).starts_with("</"))
            --open;
        const bool isTag = behind == at;
        at = isTag ? EndOfTag(text, at + 1) : behind;
        if (isTag && !text.substr(0, at).ends_with("/>"))
            ++open;
    }
    return std::min(at, text.size());
}

int VEXMELKWrittenFile::CharactersIn(Span span) const
{
    const std::string_view text = Text(span);
    return static_cast<int>(std::count_if(
        text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

std::size_t VEXMELKWrittenFile::OffsetOf(VEXMELKPosition position) const
{
    if (position.line < 1 || static_cast<std::size_t>(position.line) > m_Lines.size())
        return m_Text.size();
    std::size_t at = m_Lines[static_cast<std::size_t>(position.line) - 1];
    for (int column = 1; column < position.column && at < m_Text.size(); ++column)
        do
            ++at;
        while (at < m_Text.size() && (static_cast<unsigned char>(m_Text[at]) & 0xC0U) == 0x80U);
    return at;
}

VEXMELKPosition VEXMELKWrittenFile::PositionOf(std::size_t offset) const
{
    const auto line = std::upper_bound(m_Lines.begin(), m_Lines.end(), offset) - 1;
    return {static_cast<int>(line - m_Lines.begin()) + 1, CharactersIn({*line, offset}) + 1};
}

std::optional<VEXMELKPosition> VEXMELKWrittenFile::ValueOf(VEXMELKPosition element, std::string_view attribute) const
{
    const Tag* tag = TagAt(element);
    const Attribute* found = tag ? AttributeOf(*tag, attribute) : nullptr;
    return found ? std::optional(PositionIn(*tag, found->value.begin)) : std::nullopt;
}

std::optional<VEXMELKPosition> VEXMELKWrittenFile::TextOf(VEXMELKPosition element) const
{
    const Tag* tag = TagAt(element);
    return tag ? std::optional(PositionOf(tag->span.end)) : std::nullopt;
}

std::optional<VEXMELKPosition> VEXMELKWrittenFile::DefaultOf(std::string_view element, std::string_view attribute) const
{
    const std::string_view text = m_Text;
    constexpr std::string_view list = "<!ATTLIST";
    for (std::size_t at = text.find(list); at != npos; at = text.find(list, at + 1))
    {
        const std::string_view declaration = text.substr(at, EndOfTag(text, at) - at);
        std::size_t word = declaration.find_first_not_of(VEXMELKBlanks, list.size());
        std::size_t end = std::min(declaration.find_first_of(VEXMELKBlanks, word), declaration.size());
        if (word == npos || declaration.substr(word, end - word) != element)
            continue;
        bool isWanted = false;
        while ((word = declaration.find_first_not_of(VEXMELKBlanks, end)) != npos)
        {
            if (declaration[word] == '\'' || declaration[word] == '"')
            {
                if (isWanted)
                    return PositionOf(at + word + 1);
                end = std::min(declaration.find(declaration[word], word + 1), declaration.size() - 1) + 1;
                continue;
            }
            end = std::min(declaration.find_first_of(" \t\r\n'\"", word), declaration.size());
            if (end == word)
                break;
            isWanted = isWanted || declaration.substr(word, end - word) == attribute;
        }
    }
    return std::nullopt;
}

std::string VEXMELKWrittenFile::DocumentTypeFile() const
{
    const std::string_view text = m_Text;
    const std::size_t type = text.find("<!DOCTYPE");
    if (type == npos)
        return {};
    const std::string_view declaration = text.substr(type, text.find_first_of("[>", type) - type);
    const std::size_t system = declaration.find("SYSTEM");
    const std::size_t begin = declaration.find_first_of("'\"", std::min(system, declaration.size()));
    if (system == npos || begin == npos)
        return {};
    return std::string(declaration.substr(begin + 1, declaration.find(declaration[begin], begin + 1) - begin - 1));
}

std::optional<std::string> VEXMELKWrittenFile::With(VEXMELKPosition value, std::string_view text) const
{
    const std::size_t begin = OffsetOf(value);
    if (begin == 0 || begin >= m_Text.size() || std::string_view("'\">").find(m_Text[begin - 1]) == npos)
        return std::nullopt;
    const std::size_t end = m_Text.find(m_Text[begin - 1] == '>' ? '<' : m_Text[begin - 1], begin);
    if (end == npos)
        return std::nullopt;
    return With({{begin, end, VEXMELKEscaped(text)}});
}

// Each edit is made where its offset comes to lie in the file's encoding, so that no other byte is written anew.
std::optional<std::string> VEXMELKWrittenFile::With(std::vector<VEXMELKTextEdit> edits) const
{
    std::sort(edits.begin(), edits.end(),
        [](const VEXMELKTextEdit& left, const VEXMELKTextEdit& right) { return left.begin < right.begin; });
    std::string edited = m_Mark;
    std::size_t at = 0;               // in the text
    std::size_t byte = m_Mark.size(); // in the bytes
    for (const VEXMELKTextEdit& edit : edits)
    {
        const auto before = Encoded(Text({at, edit.begin}));
        const auto replaced = Encoded(Text({edit.begin, edit.end}));
        const auto text = Encoded(edit.text);
        if (edit.begin < at || !before || !replaced || !text)
            return std::nullopt;
        edited += m_Bytes.substr(byte, before->size()) + *text;
        byte += before->size() + replaced->size();
        at = edit.end;
    }
    return edited + m_Bytes.substr(byte);
}

std::optional<std::string> VEXMELKWrittenFile::Encoded(std::string_view text) const
{
    return CATFromUTF8(text, m_Encoding);
}
