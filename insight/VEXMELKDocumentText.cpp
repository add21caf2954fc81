// Writes documents so that parsing the text gives the same document, without a document type: defaults and entities are
// written as what they came to. Elements may be nested too deep for recursion.
#include "VEXMELKDocumentText.h"

#include <algorithm>

namespace {

constexpr std::size_t longestPath = 24; // elements

} // namespace

std::string VEXMELKEscaped(std::string_view text)
{
    std::string escaped;
    for (const char character : text)
        switch (character)
        {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        case '\'':
            escaped += "&apos;";
            break;
        case '\n':
        case '\r':
        case '\t':
            escaped += "&#" + std::to_string(static_cast<int>(character)) + ";";
            break;
        default:
            escaped += character;
        }
    return escaped;
}

VEXMELKDocumentText::VEXMELKDocumentText(
    const CATIDOMElement_var& root, int firstLine, const std::function<bool(const CATIDOMElement_var&)>& isLeftOut)
    : m_Line(1)
{
    Write(std::string(static_cast<std::size_t>(firstLine - 1), '\n'));
    WriteStart(root, none);
    std::size_t open = 0;
    CATIDOMNode_var node = root->GetFirstChild();
    while (open != none)
    {
        if (node == NULL_var)
        {
            const CATIDOMElement_var ended = m_Elements[open].node;
            Write("</" + std::string(ended->GetTagName()) + ">");
            m_Elements[open].end = m_Text.size();
            node = open == 0 ? CATIDOMNode_var() : ended->GetNextSibling();
            open = m_Elements[open].parent;
            continue;
        }
        const CATIDOMElement_var element(node);
        if (element == NULL_var)
            WriteOther(node, open);
        else if (!isLeftOut || open != 0 || !isLeftOut(element))
        {
            WriteStart(element, open);
            open = m_Elements.size() - 1;
            node = element->GetFirstChild();
            continue;
        }
        node = node->GetNextSibling();
    }
}

void VEXMELKDocumentText::Write(std::string_view text)
{
    m_Text += text;
    for (const char character : text)
        if (character == '\n')
        {
            ++m_Line;
            m_Column = 1;
        }
        else
            m_Column += (static_cast<unsigned char>(character) & 0xC0U) == 0x80U ? 0 : 1;
}

void VEXMELKDocumentText::WriteStart(const CATIDOMElement_var& element, std::size_t parent)
{
    m_Places.emplace(std::pair(m_Line, m_Column), m_Elements.size());
    const CATIDOMNamedNodeMap_var attributes = element->GetAttributes();
    m_Elements.push_back(
        {element, parent, m_Slots.size(), static_cast<std::size_t>(attributes->GetLength()), m_Text.size(), 0});
    Write("<" + std::string(element->GetTagName()));
    for (int position = 0; position < attributes->GetLength(); ++position)
    {
        const CATIDOMNode_var attribute = attributes->Item(position);
        Write(" " + std::string(attribute->GetNodeName()) + "=\"");
        const std::size_t begin = m_Text.size();
        Write(VEXMELKEscaped(attribute->GetNodeValue()));
        m_Slots.push_back(
            {m_Elements.size() - 1, attribute->GetNodeName(), attribute->GetNodeValue(), begin, m_Text.size()});
        Write("\"");
    }
    Write(">");
}

void VEXMELKDocumentText::WriteOther(const CATIDOMNode_var& node, std::size_t parent)
{
    const std::string text(node->GetNodeValue());
    switch (node->GetNodeType())
    {
    case CATIDOMNode::CDATA_SECTION_NODE:
        Write("<![CDATA[" + text + "]]>");
        break;
    case CATIDOMNode::COMMENT_NODE:
        Write("<!--" + text + "-->");
        break;
    case CATIDOMNode::PROCESSING_INSTRUCTION_NODE:
        Write("<?" + std::string(node->GetNodeName()) + " " + text + "?>");
        break;
    default:
    {
        const std::size_t begin = m_Text.size();
        Write(VEXMELKEscaped(text));
        // Only a first text can be asked for; indentation is nobody's text.
        if (text.find_first_not_of(" \t\n\r") != std::string::npos && m_Elements.size() - 1 == parent)
            m_Slots.push_back({parent, {}, node->GetNodeValue(), begin, m_Text.size()});
    }
    }
}

std::size_t VEXMELKDocumentText::ElementAt(int line, int column) const
{
    const auto found = m_Places.find({line, column});
    return found == m_Places.end() ? none : found->second;
}

std::size_t VEXMELKDocumentText::SlotOf(std::size_t element, std::string_view attribute) const
{
    const Element& of = m_Elements[element];
    for (std::size_t slot = of.firstSlot; slot < of.firstSlot + of.slotCount; ++slot)
        if (m_Slots[slot].attribute == attribute)
            return slot;
    return none;
}

std::string_view VEXMELKDocumentText::TextOf(std::size_t element, std::string_view attribute) const
{
    const std::size_t slot = element == none ? none : SlotOf(element, attribute);
    return slot == none ? std::string_view() : m_Slots[slot].text;
}

std::size_t VEXMELKDocumentText::Around(std::size_t element, std::string_view tag) const
{
    while (element != none && m_Elements[element].node->GetTagName() != tag)
        element = m_Elements[element].parent;
    return element;
}

std::string VEXMELKDocumentText::With(const VEXMELKSlot& slot, std::string_view text) const
{
    std::string replaced;
    const std::string escaped = VEXMELKEscaped(text);
    replaced.reserve(m_Text.size() + escaped.size());
    replaced.append(m_Text, 0, slot.begin).append(escaped).append(m_Text, slot.end);
    return replaced;
}

std::string VEXMELKDocumentText::Without(const VEXMELKSlot& slot) const
{
    std::size_t begin = slot.begin;
    std::size_t end = slot.end;
    if (!slot.attribute.empty())
    {
        begin -= slot.attribute.size() + std::string_view(" =\"").size();
        end += 1; // the quote
    }
    return m_Text.substr(0, begin) + m_Text.substr(end);
}

std::string VEXMELKDocumentText::Without(std::size_t element) const
{
    return m_Text.substr(0, m_Elements[element].begin) + m_Text.substr(m_Elements[element].end);
}

std::string VEXMELKDocumentText::PathOf(std::size_t element) const { return VEXMELKPathOf(m_Elements[element].node); }

std::string VEXMELKPathOf(const CATIDOMElement_var& element)
{
    std::string path;
    std::size_t steps = 0;
    for (CATIDOMElement_var at = element; at != NULL_var; at = CATIDOMElement_var(at->GetParentNode()))
    {
        if (++steps > longestPath)
            return "..." + path;
        const auto name = at->GetAttributes()->GetNamedItemValue("name");
        path.insert(0, "/" + std::string(at->GetTagName()) + (name ? "[name='" + std::string(*name) + "']" : ""));
    }
    return path;
}
