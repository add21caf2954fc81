// Finds attributes in the text of a file. The parser has found the file well-formed, so tags are read without checks.
#include "VEXMELKWrittenFile.h"

#include "VEXMELKDocumentText.h"

#include <algorithm>
#include <fstream>
#include <iconv.h>
#include <iterator>

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::optional<std::string> Converted(const char* to, const char* from, std::string bytes)
{
    iconv_t converter = iconv_open(to, from);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number in the range that stands for no encoding
    if (converter == reinterpret_cast<iconv_t>(-1))
        return std::nullopt;
    std::string converted(bytes.size() * 4 + 4, '\0');
    char* input = bytes.data();
    char* output = converted.data();
    std::size_t inputLeft = bytes.size();
    std::size_t outputLeft = converted.size();
    const bool isDone = iconv(converter, &input, &inputLeft, &output, &outputLeft) != static_cast<std::size_t>(-1) &&
                        iconv(converter, nullptr, nullptr, &output, &outputLeft) != static_cast<std::size_t>(-1);
    iconv_close(converter);
    if (!isDone)
        return std::nullopt;
    converted.resize(converted.size() - outputLeft);
    return converted;
}

// The encoding that the XML declaration names, empty when it names none.
std::string DeclaredEncoding(std::string_view text)
{
    if (!text.starts_with("<?xml"))
        return {};
    const std::string_view declaration = text.substr(0, text.find("?>"));
    const std::size_t name = declaration.find("encoding");
    const std::size_t begin = declaration.find_first_of("'\"", std::min(name, declaration.size()));
    if (name == std::string_view::npos || begin == std::string_view::npos)
        return {};
    return std::string(declaration.substr(begin + 1, declaration.find(declaration[begin], begin + 1) - begin - 1));
}

// Behind a name.
std::size_t EndOfName(std::string_view text, std::size_t begin)
{
    return std::min(text.find_first_of(" \t\r\n=/>", begin), text.size());
}

} // namespace

std::optional<VEXMELKWrittenFile> VEXMELKWrittenFile::Read(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
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
    bytes.erase(0, file.m_Mark.size());
    std::optional<std::string> text = Converted("UTF-8", file.m_Encoding.c_str(), std::move(bytes));
    if (!text)
        return std::nullopt;
    file.m_Text = *std::move(text);
    file.m_Lines.push_back(0);
    for (std::size_t at = 0; at < file.m_Text.size(); ++at)
    {
        const bool isPair = file.m_Text[at] == '\r' && file.m_Text[std::min(at + 1, file.m_Text.size() - 1)] == '\n';
        if ((file.m_Text[at] == '\n' || file.m_Text[at] == '\r') && !isPair)
            file.m_Lines.push_back(at + 1);
    }
    return file;
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
    const auto characters = std::count_if(m_Text.begin() + static_cast<std::ptrdiff_t>(*line),
        m_Text.begin() + static_cast<std::ptrdiff_t>(offset),
        [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; });
    return {static_cast<int>(line - m_Lines.begin()) + 1, static_cast<int>(characters) + 1};
}

std::optional<VEXMELKPosition> VEXMELKWrittenFile::ValueOf(VEXMELKPosition element, std::string_view attribute) const
{
    const std::string_view text = m_Text;
    std::size_t at = OffsetOf(element);
    if (at >= text.size() || text[at] != '<')
        return std::nullopt;
    for (at = EndOfName(text, at + 1);;)
    {
        at = text.find_first_not_of(blanks, at);
        if (at == std::string_view::npos || text[at] == '>' || text[at] == '/')
            return std::nullopt;
        const std::size_t end = EndOfName(text, at);
        const std::size_t quote = text.find_first_of("'\"", end);
        if (quote == std::string_view::npos)
            return std::nullopt;
        if (text.substr(at, end - at) == attribute)
            return PositionOf(quote + 1);
        at = text.find(text[quote], quote + 1);
        if (at == std::string_view::npos)
            return std::nullopt;
        ++at;
    }
}

std::size_t VEXMELKWrittenFile::EndOfTag(std::size_t begin) const
{
    char quote = 0;
    for (std::size_t at = begin; at < m_Text.size(); ++at)
        if (quote != 0)
            quote = m_Text[at] == quote ? '\0' : quote;
        else if (m_Text[at] == '\'' || m_Text[at] == '"')
            quote = m_Text[at];
        else if (m_Text[at] == '>')
            return at + 1;
    return m_Text.size();
}

std::optional<VEXMELKPosition> VEXMELKWrittenFile::TextOf(VEXMELKPosition element) const
{
    const std::size_t begin = OffsetOf(element);
    if (begin >= m_Text.size() || m_Text[begin] != '<')
        return std::nullopt;
    return PositionOf(EndOfTag(begin));
}

std::optional<VEXMELKPosition> VEXMELKWrittenFile::DefaultOf(std::string_view element, std::string_view attribute) const
{
    const std::string_view text = m_Text;
    constexpr std::string_view list = "<!ATTLIST";
    for (std::size_t at = text.find(list); at != std::string_view::npos; at = text.find(list, at + 1))
    {
        const std::string_view declaration = text.substr(at, EndOfTag(at) - at);
        std::size_t word = declaration.find_first_not_of(blanks, list.size());
        std::size_t end = std::min(declaration.find_first_of(blanks, word), declaration.size());
        if (word == std::string_view::npos || declaration.substr(word, end - word) != element)
            continue;
        bool isWanted = false;
        while ((word = declaration.find_first_not_of(blanks, end)) != std::string_view::npos)
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
    if (type == std::string_view::npos)
        return {};
    const std::string_view declaration = text.substr(type, text.find_first_of("[>", type) - type);
    const std::size_t system = declaration.find("SYSTEM");
    const std::size_t begin = declaration.find_first_of("'\"", std::min(system, declaration.size()));
    if (system == std::string_view::npos || begin == std::string_view::npos)
        return {};
    return std::string(declaration.substr(begin + 1, declaration.find(declaration[begin], begin + 1) - begin - 1));
}

std::optional<std::string> VEXMELKWrittenFile::With(VEXMELKPosition value, std::string_view text) const
{
    const std::size_t begin = OffsetOf(value);
    if (begin == 0 || begin >= m_Text.size() || std::string_view("'\">").find(m_Text[begin - 1]) == std::string::npos)
        return std::nullopt;
    const std::size_t end = m_Text.find(m_Text[begin - 1] == '>' ? '<' : m_Text[begin - 1], begin);
    if (end == std::string::npos)
        return std::nullopt;
    std::optional<std::string> bytes =
        Converted(m_Encoding.c_str(), "UTF-8", m_Text.substr(0, begin) + VEXMELKEscaped(text) + m_Text.substr(end));
    return bytes ? std::optional(m_Mark + *bytes) : std::nullopt;
}
