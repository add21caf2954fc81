// Counts lines and columns over the bytes of a document, as the parser underneath does when it is asked, but many bytes
// at a time. It serves documents in UTF-8 of a single piece; with several, the parser counts at the end of each anyway.
#ifndef CATXMLPlaceCounter_H
#define CATXMLPlaceCounter_H

#include <expat.h>
#include <string_view>

class CATXMLPlaceCounter
{
public:
    // The whole document, before it is parsed. Without it, nothing is counted.
    void SeeDocument(std::string_view bytes);
    // The encoding that the document declares.
    void SeeEncoding(std::string_view name);

    // Moves on to where the parser's current event begins. False when only the parser can tell where that is.
    bool MoveToEvent(XML_Parser parser);
    // Both from 1; a byte-order mark is no column.
    int Line() const { return m_Line; }
    int Column() const { return m_Column; }

private:
    void Pass(std::string_view bytes);

    bool m_IsCounting = false;
    XML_Index m_Passed = 0;
    int m_Line = 1;
    int m_Column = 1;
};

#endif
