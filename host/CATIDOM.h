// The DOM: handles to the nodes of a parsed document.
//
// A handle is a small value that keeps its document alive. A null handle (NULL_var) means that nothing was found; no
// operation may be called on it. Texts are UTF-8 views into the document, valid as long as any handle to it lives.
#ifndef CATIDOM_H
#define CATIDOM_H

#include "CATBaseUnknown.h"
#include "CATXMLDocument.h"

#include <optional>
#include <string_view>

class CATIDOMNode;
class CATIDOMElement;
class CATIDOMText;
class CATIDOMDocument;
class CATIDOMNamedNodeMap;
class CATIDOMNodeList;

// Holds one of the interfaces below, which are plain views of a document, and counts the reference to the document.
template <class View> class CATDOMHandle
{
public:
    CATDOMHandle() = default;
    CATDOMHandle(CATNullHandle /*null*/) {}
    explicit CATDOMHandle(const View& view) : m_View(view) { AddRef(); }
    CATDOMHandle(const CATDOMHandle& other) : CATDOMHandle(other.m_View) {}
    CATDOMHandle(CATDOMHandle&& other) noexcept : m_View(std::exchange(other.m_View, View())) {}
    // From a handle of a derived interface.
    template <class Derived>
    requires std::is_base_of_v<View, Derived> &&
        (!std::is_same_v<View, Derived>)CATDOMHandle(const CATDOMHandle<Derived>& other)
        : CATDOMHandle(static_cast<const View&>(other.GetView()))
    {
    }
    // From a handle of the base interface: null when the node is of another type.
    template <class Base>
    requires std::is_base_of_v<Base, View> &&
        (!std::is_same_v<View, Base>)explicit CATDOMHandle(const CATDOMHandle<Base>& other)
        : CATDOMHandle(other == NULL_var ? View() : View::Narrow(other.GetView()))
    {
    }
    CATDOMHandle& operator=(CATDOMHandle other) noexcept
    {
        std::swap(m_View, other.m_View);
        return *this;
    }
    ~CATDOMHandle()
    {
        if (m_View.m_Document)
            m_View.m_Document->Release();
    }

    const View* operator->() const { return &m_View; }
    const View& GetView() const { return m_View; }
    bool operator==(CATNullHandle /*null*/) const { return !m_View.m_Document; }
    bool operator!=(CATNullHandle /*null*/) const { return m_View.m_Document; }
    bool operator==(const CATDOMHandle& other) const { return m_View == other.m_View; }

private:
    void AddRef() const
    {
        if (m_View.m_Document)
            m_View.m_Document->AddRef();
    }

    View m_View;
};

using CATIDOMNode_var = CATDOMHandle<CATIDOMNode>;
using CATIDOMElement_var = CATDOMHandle<CATIDOMElement>;
using CATIDOMText_var = CATDOMHandle<CATIDOMText>;
using CATIDOMDocument_var = CATDOMHandle<CATIDOMDocument>;
using CATIDOMNamedNodeMap_var = CATDOMHandle<CATIDOMNamedNodeMap>;
using CATIDOMNodeList_var = CATDOMHandle<CATIDOMNodeList>;

class CATIDOMNode
{
public:
    enum NodeType
    {
        ELEMENT_NODE = CATXMLDocument::Element,
        ATTRIBUTE_NODE = CATXMLDocument::Attribute,
        TEXT_NODE = CATXMLDocument::Text,
        CDATA_SECTION_NODE = CATXMLDocument::CDataSection,
        PROCESSING_INSTRUCTION_NODE = CATXMLDocument::ProcessingInstruction,
        COMMENT_NODE = CATXMLDocument::Comment,
        DOCUMENT_NODE = CATXMLDocument::Document
    };

    NodeType GetNodeType() const
    {
        return IsAttribute() ? ATTRIBUTE_NODE : static_cast<NodeType>(m_Document->Type(m_Node));
    }
    // Element: its tag, prefix included; attribute: its name; instruction: its target; others "#text",
    // "#cdata-section", "#comment" and "#document".
    std::string_view GetNodeName() const
    {
        return IsAttribute() ? m_Document->AttributeName(Attribute()) : m_Document->NodeName(m_Node);
    }
    // Attribute: its value; text, CDATA section, comment: its text; instruction: its data; others empty.
    std::string_view GetNodeValue() const
    {
        return IsAttribute() ? m_Document->AttributeValue(Attribute()) : m_Document->NodeText(m_Node);
    }
    // Null for the document and for attributes.
    CATIDOMNode_var GetParentNode() const { return NodeAt(IsAttribute() ? none : m_Document->Parent(m_Node)); }
    CATIDOMNode_var GetFirstChild() const { return NodeAt(IsAttribute() ? none : m_Document->FirstChild(m_Node)); }
    CATIDOMNode_var GetNextSibling() const { return NodeAt(IsAttribute() ? none : m_Document->NextSibling(m_Node)); }
    // The attributes of an element, empty or not; null for any other node.
    CATIDOMNamedNodeMap_var GetAttributes() const;

    friend bool operator==(const CATIDOMNode&, const CATIDOMNode&) = default;

protected:
    template <class View> friend class CATDOMHandle;
    friend class CATIDOMNamedNodeMap;
    using Index = CATXMLDocument::Index;
    static constexpr Index none = CATXMLDocument::none;

    CATIDOMNode() = default;
    CATIDOMNode(const CATXMLDocument* document, Index node, Index attribute = none)
        : m_Document(document), m_Node(node), m_Attribute(attribute)
    {
    }
    static CATIDOMNode Narrow(const CATIDOMNode& node) { return node; }
    bool IsAttribute() const { return m_Attribute != none; }
    const CATXMLDocument::AttributeEntry& Attribute() const
    {
        return m_Document->AttributesOf(m_Node).first[m_Attribute];
    }
    CATIDOMNode_var NodeAt(Index node) const
    {
        return node == none ? CATIDOMNode_var() : CATIDOMNode_var(CATIDOMNode(m_Document, node));
    }

    const CATXMLDocument* m_Document = nullptr;
    Index m_Node = none;
    Index m_Attribute = none;
};

class CATIDOMText : public CATIDOMNode
{
public:
    std::string_view GetData() const { return GetNodeValue(); }

private:
    template <class View> friend class CATDOMHandle;
    CATIDOMText() = default;
    explicit CATIDOMText(const CATIDOMNode& node) : CATIDOMNode(node) {}
    static CATIDOMText Narrow(const CATIDOMNode& node)
    {
        return node.GetNodeType() == TEXT_NODE ? CATIDOMText(node) : CATIDOMText();
    }
};

class CATIDOMElement : public CATIDOMNode
{
public:
    std::string_view GetTagName() const { return GetNodeName(); }
    // Never null: the attributes may be none.
    CATIDOMNamedNodeMap_var GetAttributes() const;
    // All descendants with the tag in document order, the element itself left out; "*" takes every tag.
    CATIDOMNodeList_var GetElementsByTagName(std::string_view tag) const;
    // Of two elements of one document: whether this one begins first, and whether the other lies below it.
    bool IsBefore(const CATDOMHandle<CATIDOMElement>& other) const { return m_Node < other.GetView().m_Node; }
    bool Contains(const CATDOMHandle<CATIDOMElement>& other) const
    {
        return m_Document == other.GetView().m_Document && m_Document->Contains(m_Node, other.GetView().m_Node);
    }
    // Whether the parent of the other element, which lies below this one, has this one's tag.
    bool IsTagOfParent(const CATIDOMElement& other) const
    {
        const Index parent = m_Document->Parent(other.m_Node);
        return parent == m_Node || m_Document->TagOf(parent) == m_Document->TagOf(m_Node);
    }
    // Where the element's tag begins in its file: line and column (in characters), both counted from 1.
    int GetLineNumber() const { return static_cast<int>(m_Document->Line(m_Node)); }
    int GetColumnNumber() const { return static_cast<int>(m_Document->Column(m_Node)); }

private:
    template <class View> friend class CATDOMHandle;
    friend class CATIDOMDocument;
    friend class CATIDOMNode;
    friend class CATIDOMNamedNodeMap;
    friend class CATIDOMNodeList;
    CATIDOMElement() = default;
    explicit CATIDOMElement(const CATIDOMNode& node) : CATIDOMNode(node) {}
    CATIDOMElement(const CATXMLDocument* document, Index node) : CATIDOMNode(document, node) {}
    static CATIDOMElement Narrow(const CATIDOMNode& node)
    {
        return node.GetNodeType() == ELEMENT_NODE ? CATIDOMElement(node) : CATIDOMElement();
    }
};

class CATIDOMDocument : public CATIDOMNode
{
public:
    CATIDOMElement_var GetDocumentElement() const
    {
        return CATIDOMElement_var(CATIDOMElement(m_Document, m_Document->RootElement()));
    }
    // The handle that takes over a document fresh from the parser.
    static CATIDOMDocument_var Adopt(const CATXMLDocument* document)
    {
        return CATIDOMDocument_var(CATIDOMDocument(document));
    }

private:
    template <class View> friend class CATDOMHandle;
    CATIDOMDocument() = default;
    explicit CATIDOMDocument(const CATXMLDocument* document) : CATIDOMNode(document, 0) {}
};

// The attributes of one element.
class CATIDOMNamedNodeMap
{
public:
    // The attribute of that name, null when there is none.
    CATIDOMNode_var GetNamedItem(std::string_view name) const
    {
        const Index found = Find(name);
        return found == none ? CATIDOMNode_var() : Item(static_cast<int>(found));
    }
    // The value of the attribute of that name, if there is one.
    std::optional<std::string_view> GetNamedItemValue(std::string_view name) const
    {
        const Index found = Find(name);
        if (found == none)
            return std::nullopt;
        return m_Document->AttributeValue(m_Attributes.first[found]);
    }
    // The element that has these attributes.
    CATIDOMElement_var GetOwnerElement() const;
    int GetLength() const { return static_cast<int>(m_Attributes.count); }
    // The attribute at that position, counted from 0 in the order of the file.
    CATIDOMNode_var Item(int position) const
    {
        return CATIDOMNode_var(CATIDOMNode(m_Document, m_Element, static_cast<Index>(position)));
    }

    friend bool operator==(const CATIDOMNamedNodeMap& left, const CATIDOMNamedNodeMap& right)
    {
        return left.m_Document == right.m_Document && left.m_Element == right.m_Element;
    }

private:
    template <class View> friend class CATDOMHandle;
    friend class CATIDOMElement;
    friend class CATAttributeTexts;
    using Index = CATXMLDocument::Index;
    static constexpr Index none = CATXMLDocument::none;

    CATIDOMNamedNodeMap() = default;
    CATIDOMNamedNodeMap(const CATXMLDocument* document, Index element)
        : m_Document(document), m_Element(element), m_Attributes(document->AttributesOf(element))
    {
    }
    Index Find(std::string_view name) const
    {
        const Index found = m_Document->FindAttribute(m_Attributes, name, m_Next);
        if (found != none)
            m_Next = found + 1;
        return found;
    }

    const CATXMLDocument* m_Document = nullptr;
    Index m_Element = none;
    mutable Index m_Next = 0; // behind the attribute found last
    CATXMLDocument::Attributes m_Attributes;
};

class CATIDOMNodeList
{
public:
    int GetLength() const { return static_cast<int>(m_Elements.length); }
    // The element at that position, counted from 0.
    CATIDOMElement_var Item(int position) const { return CATIDOMElement_var(At(position)); }

    // One attribute of the elements, whose name is looked up once.
    class Values
    {
    public:
        // That of the element at the position, if it has one.
        std::optional<std::string_view> At(int position) const
        {
            const CATXMLDocument& document = *m_List.m_Document;
            const CATXMLDocument::Attributes attributes = document.AttributesOf(m_List.NodeAt(position));
            const CATXMLDocument::Index found = document.FindAttribute(attributes, m_Name);
            if (found == CATXMLDocument::none)
                return std::nullopt;
            return document.AttributeValue(attributes.first[found]);
        }

    private:
        friend class CATIDOMNodeList;
        Values(const CATIDOMNodeList& list, std::string_view name)
            : m_List(list), m_Name(list.m_Document->FindName(name))
        {
        }

        const CATIDOMNodeList& m_List;
        CATXMLDocument::Symbol m_Name;
    };
    Values GetValues(std::string_view attribute) const { return {*this, attribute}; } // as long as the list lives
    // Whether the parent of the element at the position has the tag of an element that it lies below.
    bool IsChild(int position, const CATIDOMElement& above) const { return above.IsTagOfParent(At(position)); }

private:
    CATXMLDocument::Index NodeAt(int position) const
    {
        return m_Document->ElementAt(m_Elements, static_cast<CATXMLDocument::Index>(position));
    }
    CATIDOMElement At(int position) const { return {m_Document, NodeAt(position)}; }

    template <class View> friend class CATDOMHandle;
    friend class CATIDOMElement;
    CATIDOMNodeList() = default;
    CATIDOMNodeList(const CATXMLDocument* document, const CATXMLDocument::Elements& elements)
        : m_Document(document), m_Elements(elements)
    {
    }

    const CATXMLDocument* m_Document = nullptr;
    CATXMLDocument::Elements m_Elements;
};

// The attributes of an element, with those of another one that stand in for missing ones, as a list of names asks for
// them. Refers to the maps.
class CATAttributeTexts
{
public:
    using List = CATXMLPlaces::List;

    // Either map may be null. The list stays where it is for good.
    CATAttributeTexts(const CATIDOMNamedNodeMap_var& map, const CATIDOMNamedNodeMap_var& other, const List& list)
        : m_Map(map), m_Other(other), m_List(list)
    {
        const CATXMLDocument* own = map->m_Document;
        const CATXMLDocument* document = own ? own : other->m_Document;
        if (!document || (own && other->m_Document && own != other->m_Document))
            return;
        m_Document = document;
        m_Places = document->FindPlaces(list, map->m_Attributes, other->m_Attributes);
        m_TextsEnd = document->TextsEnd();
    }

    // The attribute of the name at that position of the list, if there is one.
    std::optional<std::string_view> At(std::size_t position) const
    {
        if (!m_Places) [[unlikely]]
            return ByName(m_List.At(position));
        const CATXMLPlaces::Place place = m_Places[position];
        if (place == CATXMLPlaces::none)
            return std::nullopt;
        const CATXMLAttributes& attributes =
            (place & CATXMLPlaces::ofOther) == 0 ? m_Map->m_Attributes : m_Other->m_Attributes;
        return m_Document->AttributeValue(attributes.first[place & (CATXMLPlaces::ofOther - 1U)]);
    }
    // Whether so many bytes from the begin of such a text may be read, whatever they are.
    bool HasBytes(std::string_view text, std::ptrdiff_t bytes) const { return m_TextsEnd - text.data() >= bytes; }

private:
    std::optional<std::string_view> ByName(std::string_view name) const
    {
        std::optional<std::string_view> text;
        for (const CATIDOMNamedNodeMap_var* map : {&m_Map, &m_Other})
            if (!text && *map != NULL_var)
                text = (*map)->GetNamedItemValue(name);
        return text;
    }

    const CATIDOMNamedNodeMap_var& m_Map;
    const CATIDOMNamedNodeMap_var& m_Other;
    List m_List;
    const CATXMLDocument* m_Document = nullptr;
    const CATXMLPlaces::Place* m_Places = nullptr;
    const char* m_TextsEnd = nullptr;
};

inline CATIDOMElement_var CATIDOMNamedNodeMap::GetOwnerElement() const
{
    return CATIDOMElement_var(CATIDOMElement(m_Document, m_Element));
}

inline CATIDOMNamedNodeMap_var CATIDOMNode::GetAttributes() const
{
    return GetNodeType() == ELEMENT_NODE ? CATIDOMElement(*this).GetAttributes() : CATIDOMNamedNodeMap_var();
}

inline CATIDOMNamedNodeMap_var CATIDOMElement::GetAttributes() const
{
    return CATIDOMNamedNodeMap_var(CATIDOMNamedNodeMap(m_Document, m_Node));
}

inline CATIDOMNodeList_var CATIDOMElement::GetElementsByTagName(std::string_view tag) const
{
    return CATIDOMNodeList_var(CATIDOMNodeList(m_Document, m_Document->ElementsByTagName(m_Node, tag)));
}

#endif
