// Searches for line ends and counts first bytes of characters. Gives up where the parser underneath counts otherwise.
#include "CATXMLPlaceCounter.h"

#include "CATXMLEncoding.h"

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsUTF16(std::string_view bytes)
{
    return bytes.starts_with('\xFE') || bytes.starts_with('\xFF') ||
           bytes.substr(0, 2).find('\0') != std::string_view::npos;
}

// One that ends a line without a line feed.
bool HasLoneReturn(std::string_view bytes)
{
    for (std::size_t at = bytes.find('\r'); at != std::string_view::npos; at = bytes.find('\r', at + 1))
        if (at + 1 == bytes.size() || bytes[at + 1] != '\n')
            return true;
    return false;
}

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

} // namespace

void CATXMLPlaceCounter::SeeDocument(std::string_view bytes)
{
    m_IsCounting = !IsUTF16(bytes) && !HasLoneReturn(bytes);
    m_Ahead = bytes;
    if (bytes.starts_with(byteOrderMark))
        m_Column = 0;
}

void CATXMLPlaceCounter::SeeEncoding(std::string_view name)
{
    if (!CATXMLIsEncoding(name, "UTF-8"))
        m_IsCounting = false;
}

bool CATXMLPlaceCounter::MoveTo(XML_Index place)
{
    if (!m_IsCounting)
        return false;
    const auto distance = static_cast<std::size_t>(place - m_Place);
    m_IsCounting = place >= m_Place && distance <= m_Ahead.size();
    if (!m_IsCounting)
        return false;
    Pass(m_Ahead.substr(0, distance));
    m_Ahead.remove_prefix(distance);
    m_Place = place;
    return true;
}

void CATXMLPlaceCounter::Pass(std::string_view bytes)
{
    for (std::size_t end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n'))
    {
        bytes.remove_prefix(end + 1);
        ++m_Line;
        m_Column = 1;
    }
    for (const char byte : bytes)
        m_Column += BeginsCharacter(byte) ? 1 : 0;
}
