// Writes a document, node by node in document order.
#ifndef CATXMLDocumentWriter_H
#define CATXMLDocumentWriter_H

#include "CATXMLDocument.h"

#include <array>
#include <memory>

class CATXMLDocumentWriter
{
public:
    using Index = CATXMLDocument::Index;

    CATXMLDocumentWriter();

    // "attributes" are pairs of name and value, ended by a null pointer. Line and column count from 1.
    void StartElement(const char* tag, const char* const* attributes, int line, int column);
    void EndElement();
    // Adjacent pieces become one text node, or one CDATA section between StartCData and EndCData.
    void AppendText(std::string_view piece);
    void StartCData();
    void EndCData();
    void Comment(std::string_view text);
    void Instruction(const char* target, std::string_view data);

    // Bytes that the document takes up so far.
    std::size_t Bytes() const;

    // The finished document, with no reference yet. The writer is used up.
    std::unique_ptr<const CATXMLDocument> Finish();

private:
    Index AddNode(CATXMLDocument::NodeType type, CATXMLDocument::Symbol symbol, Index headOrText);
    Index AddTextNode(CATXMLDocument::NodeType type, CATXMLDocument::Symbol symbol, std::string_view text);
    void AppendCharacters(std::string_view text);
    Index AddValue(std::string_view value);
    void CloseText();

    static constexpr std::size_t sharedLengths = 64;

    struct Storage // where the document's arrays begin
    {
        alignas(std::max_align_t) CATXMLStorage characters, names, nodes, heads, attributes, text;
    };
    Storage m_Storage;
    std::unique_ptr<CATXMLDocument> m_Document;
    Index m_Parent = 0;
    Index m_OpenText = CATXMLDocument::none;
    // Where a text of each small length was last written: indentation repeats, and is stored once.
    std::array<Index, sharedLengths> m_LastOfLength{};
};

#endif
