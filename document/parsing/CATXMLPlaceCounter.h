// Counts lines and columns over the bytes of a document, as the parser underneath does when it is asked, but many bytes
// at a time. It serves documents in UTF-8 of a single piece; with several, the parser counts at the end of each anyway.
#ifndef CATXMLPlaceCounter_H
#define CATXMLPlaceCounter_H

#include <expat.h>
#include <string_view>

class CATXMLPlaceCounter
{
public:
    // The whole document, before it is parsed; it has to stay where it is. Without it, nothing is counted.
    void SeeDocument(std::string_view bytes);
    // The encoding that the document declares.
    void SeeEncoding(std::string_view name);

    // Moves on to the byte of that index. False when only the parser can tell line and column there.
    bool MoveTo(XML_Index place);
    // Of that byte, both from 1; a byte-order mark is no column.
    int Line() const { return m_Line; }
    int Column() const { return m_Column; }

private:
    void Pass(std::string_view bytes);

    bool m_IsCounting = false;
    std::string_view m_Ahead; // the bytes from m_Place on
    XML_Index m_Place = 0;
    int m_Line = 1;
    int m_Column = 1;
};

#endif
