// Bytes as a document: what parses is walked through every handle, and what the handles tell has to fit together.
#include "CATIXMLDOMDocumentBuilder.h"
#include "Require.h"

#include <map>

namespace {

class CountingHandler final : public CATISAXErrorHandler
{
public:
    CATResult Warning(const CATSAXParseException* problem) override { return Check(problem); }
    CATResult Error(const CATSAXParseException* problem) override { return Check(problem); }
    CATResult FatalError(const CATSAXParseException* problem) override
    {
        ++fatalErrors;
        return Check(problem);
    }

    int fatalErrors = 0;

private:
    static CATResult Check(const CATSAXParseException* problem)
    {
        Require(!problem->GetMessage().IsEmpty() && problem->GetLineNumber() >= 1 && problem->GetColumnNumber() >= 1);
        return S_OK;
    }
};

void CheckAttributes(const CATIDOMElement_var& element)
{
    const CATIDOMNamedNodeMap_var map = element->GetAttributes();
    for (int position = 0; position < map->GetLength(); ++position)
    {
        const CATIDOMNode_var attribute = map->Item(position);
        Require(attribute->GetNodeType() == CATIDOMNode::ATTRIBUTE_NODE && attribute->GetParentNode() == NULL_var &&
                attribute->GetAttributes() == NULL_var && !attribute->GetNodeName().empty());
        Require(map->GetNamedItem(attribute->GetNodeName()) == attribute);
        Require(map->GetNamedItemValue(attribute->GetNodeName()) == attribute->GetNodeValue());
    }
}

// Goes through a document in its order and compares each element with its places in the lists of elements.
class Walk
{
public:
    explicit Walk(const CATIDOMDocument_var& document) : m_Root(document->GetDocumentElement())
    {
        CATIDOMNode_var node = document;
        while (node != NULL_var)
        {
            Visit(node);
            node = Next(node);
        }
        Require(m_Root->GetElementsByTagName("*")->GetLength() == m_Elements - 1);
    }

private:
    static CATIDOMNode_var Next(const CATIDOMNode_var& node)
    {
        CATIDOMNode_var next = node->GetFirstChild();
        Require(next == NULL_var || next->GetParentNode() == node);
        for (CATIDOMNode_var above = node; next == NULL_var && above != NULL_var; above = above->GetParentNode())
        {
            next = above->GetNextSibling();
            Require(next == NULL_var || next->GetParentNode() == above->GetParentNode());
        }
        return next;
    }

    void Visit(const CATIDOMNode_var& node)
    {
        const CATIDOMElement_var element(node);
        const CATIDOMText_var text(node);
        Require((element != NULL_var) == (node->GetNodeType() == CATIDOMNode::ELEMENT_NODE));
        Require((text != NULL_var) == (node->GetNodeType() == CATIDOMNode::TEXT_NODE));
        Require(!node->GetNodeName().empty() && (node->GetAttributes() != NULL_var) == (element != NULL_var));
        if (text != NULL_var)
        {
            const CATIDOMNode_var next = node->GetNextSibling();
            Require(text->GetData() == node->GetNodeValue() && !text->GetData().empty());
            Require(next == NULL_var || next->GetNodeType() != CATIDOMNode::TEXT_NODE);
        }
        if (element != NULL_var)
            VisitElement(element);
    }

    void VisitElement(const CATIDOMElement_var& element)
    {
        const std::pair place(element->GetLineNumber(), element->GetColumnNumber());
        Require(place.second >= 1 && place >= m_LastPlace);
        m_LastPlace = place;
        if (m_Elements > 0)
        {
            Require(m_Root->GetElementsByTagName("*")->Item(m_Elements - 1) == element);
            Require(
                m_Root->GetElementsByTagName(element->GetTagName())->Item(m_OfTag[element->GetTagName()]++) == element);
        }
        ++m_Elements;
        CheckAttributes(element);
    }

    CATIDOMElement_var m_Root;
    int m_Elements = 0;
    std::map<std::string_view, int> m_OfTag;
    std::pair<int, int> m_LastPlace{1, 1};
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto handler = CATHandle<CountingHandler>::Create();
    CATIDOMDocument_var document;
    const CATResult result =
        CATIXMLDOMDocumentBuilder().ParseMemory(TextOf(data, size), CATISAXErrorHandler_var(handler.Get()), document);
    Require(SUCCEEDED(result) == (document != NULL_var) && handler->fatalErrors == (FAILED(result) ? 1 : 0));
    if (document != NULL_var)
        Walk{document};
    return 0;
}
