// Builds the arena while the parser reports its events.
#include "CATXMLDocumentWriter.h"

#include <algorithm>
#include <utility>

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): the storage is written before it is read
CATXMLDocumentWriter::CATXMLDocumentWriter() : m_Document(std::make_unique<CATXMLDocument>())
{
    m_Document->m_Names.BeginIn(m_Storage.characters, m_Storage.names);
    m_Document->m_Nodes.BeginIn(m_Storage.nodes);
    m_Document->m_Heads.BeginIn(m_Storage.heads);
    m_Document->m_Attributes.BeginIn(m_Storage.attributes);
    m_Document->m_Text.BeginIn(m_Storage.text);
    m_LastOfLength.fill(CATXMLDocument::none);
    m_Parent = CATXMLDocument::none;
    m_Parent = AddNode(CATXMLDocument::Document, 0, 0);
}

CATXMLDocumentWriter::Index CATXMLDocumentWriter::AddNode(
    CATXMLDocument::NodeType type, CATXMLDocument::Symbol symbol, Index headOrText)
{
    const auto node = static_cast<Index>(m_Document->m_Nodes.Size());
    *m_Document->m_Nodes.Extend(1) = {m_Parent, 0, headOrText, symbol & 0x0FFFFFFFU, type & 0xFU};
    return node;
}

CATXMLDocumentWriter::Index CATXMLDocumentWriter::AddTextNode(
    CATXMLDocument::NodeType type, CATXMLDocument::Symbol symbol, std::string_view text)
{
    CloseText();
    const Index node = AddNode(type, symbol, static_cast<Index>(m_Document->m_Text.Size()));
    m_Document->m_Nodes[node].endOrLength = static_cast<Index>(text.size());
    AppendCharacters(text);
    return node;
}

void CATXMLDocumentWriter::AppendCharacters(std::string_view text)
{
    CATTextCopy(m_Document->m_Text.Extend(text.size()), text);
}

CATXMLDocumentWriter::Index CATXMLDocumentWriter::AddValue(std::string_view value)
{
    const auto offset = static_cast<Index>(m_Document->m_Text.Size());
    std::size_t length = value.size();
    for (; length >= 128; length >>= 7)
        m_Document->m_Text.Append(static_cast<char>((length & 127) | 128));
    char* end = m_Document->m_Text.Extend(1 + value.size());
    *end = static_cast<char>(length);
    CATTextCopy(end + 1, value);
    return offset;
}

void CATXMLDocumentWriter::StartElement(const char* tag, const char* const* attributes, int line, int column)
{
    CloseText();
    CATXMLDocument& document = *m_Document;
    const auto head = static_cast<Index>(document.m_Heads.Size());
    m_Parent = AddNode(CATXMLDocument::Element, document.m_Names.Intern(tag), head);
    document.m_Heads.Append({m_Parent, static_cast<Index>(document.m_Attributes.Size()),
        static_cast<std::uint32_t>(line), static_cast<std::uint32_t>(column)});
    if (document.m_Root == CATXMLDocument::none)
        document.m_Root = m_Parent;
    for (; *attributes; attributes += 2)
        document.m_Attributes.Append({document.m_Names.Intern(attributes[0]), AddValue(attributes[1])});
}

void CATXMLDocumentWriter::EndElement()
{
    CloseText();
    CATXMLDocument::Node& element = m_Document->m_Nodes[m_Parent];
    element.endOrLength = static_cast<Index>(m_Document->m_Nodes.Size());
    m_Parent = element.parent;
}

void CATXMLDocumentWriter::AppendText(std::string_view piece)
{
    if (m_OpenText == CATXMLDocument::none)
    {
        m_OpenText = AddTextNode(CATXMLDocument::Text, 0, piece);
        return;
    }
    AppendCharacters(piece);
    m_Document->m_Nodes[m_OpenText].endOrLength += static_cast<Index>(piece.size());
}

void CATXMLDocumentWriter::StartCData() { m_OpenText = AddTextNode(CATXMLDocument::CDataSection, 0, {}); }

void CATXMLDocumentWriter::EndCData() { CloseText(); }

void CATXMLDocumentWriter::CloseText()
{
    if (m_OpenText == CATXMLDocument::none)
        return;
    CATXMLDocument::Node& node = m_Document->m_Nodes[std::exchange(m_OpenText, CATXMLDocument::none)];
    if (node.endOrLength >= sharedLengths)
        return;
    const char* text = m_Document->m_Text.Data();
    Index& last = m_LastOfLength[node.endOrLength];
    if (last != CATXMLDocument::none && std::equal(text + last, text + last + node.endOrLength, text + node.headOrText))
    {
        m_Document->m_Text.Resize(node.headOrText);
        node.headOrText = last;
    }
    last = node.headOrText;
}

void CATXMLDocumentWriter::Comment(std::string_view text) { AddTextNode(CATXMLDocument::Comment, 0, text); }

void CATXMLDocumentWriter::Instruction(const char* target, std::string_view data)
{
    AddTextNode(CATXMLDocument::ProcessingInstruction, m_Document->m_Names.Intern(target), data);
}

std::size_t CATXMLDocumentWriter::Bytes() const
{
    const CATXMLDocument& document = *m_Document;
    return document.m_Nodes.Size() * sizeof(CATXMLDocument::Node) +
           document.m_Heads.Size() * sizeof(CATXMLDocument::Head) +
           document.m_Attributes.Size() * sizeof(CATXMLDocument::AttributeEntry) + document.m_Text.Size();
}

std::unique_ptr<const CATXMLDocument> CATXMLDocumentWriter::Finish()
{
    m_Document->Complete();
    return std::move(m_Document);
}
