// Reads plain documents in one pass, many times as fast as the parser that reads all others.
//
// Plain is what is encoded in UTF-8 and has no document type. The reader checks all that makes a document well formed,
// but tells nothing of what is wrong: whatever is faulty, not plain, or merely unusual, it leaves to CATXMLParse.
#ifndef CATXMLPlainReader_H
#define CATXMLPlainReader_H

#include "CATXMLBlock.h"
#include "CATXMLDocument.h"

#include <functional>
#include <memory>

// The document, or null when it is left to CATXMLParse. "reader" gives the next bytes of the document: how many it
// wrote, 0 at the end, -1 on a failure. Documents longer than expected are left too. Throws nothing.
std::unique_ptr<const CATXMLDocument> CATReadPlainXML(
    const std::function<long(void* buffer, std::size_t size)>& reader, std::size_t expectedBytes);

// One reading of one document. "Block" is CATXMLBlock, or CATXMLPlainBlock to compare with.
//
// The document is read into the buffer of its texts, and its texts are written over what has been read: each takes up
// at least as much room in the document. A block that is written ends where the next unread byte stands, or before.
//
// What reads a piece gets the place where it begins and gives the one behind it, or null when the document is left.
template <class Block> class CATXMLPlainReader
{
public:
    // The document has to be new.
    explicit CATXMLPlainReader(CATXMLDocument& document);

    // Makes room for that many bytes of a document, and gives the place where they have to be written.
    char* Begin(std::size_t bytes);
    // Reads as many of them as there are. False when the document is left; the arena is then of no use.
    bool Read(std::size_t bytes);

private:
    using Index = CATXMLDocument::Index;
    using Symbol = CATXMLDocument::Symbol;

    // Where a piece of text stands: that decides which characters end it, and which are changed.
    enum class In
    {
        Text,
        Value,
        CData,
        Comment,
        Instruction
    };

    void ReserveFor(const char* at, const char* end);
    const char* ReadDeclaration(const char* at);
    const char* ReadSetting(const char* at, std::string_view name, std::string_view& value);
    const char* ReadAround(const char* at);
    const char* ReadContents(const char* at);
    const char* ReadElement(const char* at);
    const char* ReadAttributes(const char* at, Index mark);
    [[gnu::always_inline]] inline const char* ReadValue(const char* at);
    const char* ReadSpacedValue(const char* at);
    const char* ReadLongValue(const char* at, char quote);
    const char* ReadEndTag(const char* at);
    const char* ReadName(const char* at);
    const char* ReadOtherName(const char* at);
    const char* BehindName(const char* at, Symbol symbol);
    const char* ReadText(const char* at);
    const char* ReadNewText(const char* at, std::size_t length);
    const char* ReadLongText(const char* at);
    const char* ReadCData(const char* at);
    const char* ReadComment(const char* at);
    const char* ReadInstruction(const char* at);
    template <In in> const char* Copy(const char* at, char end);
    template <In in> const char* CopySpecial(const char* at);
    const char* CopyReference(const char* at);
    const char* SkipBlanks(const char* at);

    CATXMLNames& Names() { return m_Document.m_Names; }
    static bool IsSame(const char* left, const char* right, std::size_t size);
    Index Offset(const char* text) const { return static_cast<Index>(text - m_Document.m_Text.Data()); }
    Index NextNode() const { return static_cast<Index>(m_Node - m_Document.m_Nodes.Data()); }
    Index NextAttribute() const { return static_cast<Index>(m_Attribute - m_Document.m_Attributes.Data()); }
    void AddNode(CATXMLDocument::NodeType type, Symbol symbol, Index headOrText, std::size_t endOrLength);
    void BeginLine(const char* at)
    {
        ++m_Line;
        m_LineBegin = at;
    }

    // The last text of some length as it stands in a document: when the next one is the same, so is all that it comes
    // to. Indentation repeats.
    static constexpr std::size_t knownLengths = 64;
    struct KnownText
    {
        Index offset = CATXMLDocument::none;
        Index length;
        std::uint32_t lines;
        int lineBegin; // behind it: seen from its end when it has lines, else from where it was before
        std::array<char, knownLengths> bytes;
    };

    CATXMLDocument& m_Document;
    CATXMLStorage m_NameCharacters, m_NameEntries; // where the arrays of the names begin
    const char* m_End = nullptr;
    char* m_Out = nullptr;                  // where the next text is written
    CATXMLDocument::Node* m_Node = nullptr; // the next one, as are head and attribute
    CATXMLDocument::Head* m_Head = nullptr;
    CATXMLDocument::AttributeEntry* m_Attribute = nullptr;
    Index m_Parent = CATXMLDocument::none;
    int m_Depth = 0;
    std::uint32_t m_Line = 1;
    const char* m_LineBegin = nullptr; // moved on by the bytes that continue a character of the line
    std::array<KnownText, knownLengths> m_Known;
};

#endif
