// The peers behind one small set of operations, and the typical query written by hand over it. Texts are read in place,
// attributes found as each manual says (libxml2: along the attribute list, which is faster than xmlGetProp).
//
// Name is how a peer compares names: prepared once, outside of what is timed.
#ifndef BENCH_Peers_H
#define BENCH_Peers_H

#include "Trees.h"

#include <algorithm>
#include <cstring>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <memory>
#include <pugixml.hpp>
#include <tinyxml2.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/XMLString.hpp>

// Writes a comma for the point, where asked to, and appends the unit to a text that ends in a digit.
inline void Finish(const char* unit, bool withComma, std::string& value)
{
    if (withComma)
        std::replace(value.begin(), value.end(), '.', ',');
    if (!value.empty() && value.back() >= '0' && value.back() <= '9')
        value += unit;
}

// Strips blanks before that.
inline void Normalize(const char* text, const char* unit, bool withComma, std::string& value)
{
    while (*text == ' ')
        ++text;
    std::size_t size = std::strlen(text);
    while (size > 0 && text[size - 1] == ' ')
        --size;
    value.assign(text, size);
    Finish(unit, withComma, value);
}

struct Pugixml
{
    using Document = std::unique_ptr<pugi::xml_document>;
    using Element = pugi::xml_node;
    using Name = std::string;
    using Text = const char*;

    static Document Load(const std::filesystem::path& file);
    static Name NameOf(std::string_view text) { return Name(text); }
    static Element Root(const Document& document) { return document->document_element(); }
    static Element FirstChild(Element parent) { return SkipOthers(parent.first_child()); }
    static Element NextSibling(Element element) { return SkipOthers(element.next_sibling()); }
    static bool HasTag(Element element, const Name& tag) { return IsEqual(element.name(), tag); }
    static bool IsEqual(Text text, const Name& name) { return std::strcmp(text, name.c_str()) == 0; }
    static Text Attribute(Element element, const Name& name)
    {
        const pugi::xml_attribute attribute = element.attribute(name.c_str());
        return attribute ? attribute.value() : nullptr;
    }
    static void Assign(Text text, const char* unit, bool withComma, std::string& value)
    {
        Normalize(text, unit, withComma, value);
    }

private:
    static Element SkipOthers(Element node)
    {
        while (node && node.type() != pugi::node_element)
            node = node.next_sibling();
        return node;
    }
};

struct Libxml2
{
    using Document = std::unique_ptr<xmlDoc, void (*)(xmlDocPtr)>;
    using Element = xmlNodePtr;
    using Name = std::string;
    using Text = const char*;

    static Document Load(const std::filesystem::path& file);
    static Name NameOf(std::string_view text) { return Name(text); }
    static Element Root(const Document& document) { return xmlDocGetRootElement(document.get()); }
    static Element FirstChild(Element parent) { return SkipOthers(parent->children); }
    static Element NextSibling(Element element) { return SkipOthers(element->next); }
    static bool HasTag(Element element, const Name& tag) { return IsEqual(Chars(element->name), tag); }
    static bool IsEqual(Text text, const Name& name) { return std::strcmp(text, name.c_str()) == 0; }
    static Text Attribute(Element element, const Name& name)
    {
        for (xmlAttrPtr attribute = element->properties; attribute; attribute = attribute->next)
            if (IsEqual(Chars(attribute->name), name))
                return attribute->children ? Chars(attribute->children->content) : "";
        return nullptr;
    }
    static void Assign(Text text, const char* unit, bool withComma, std::string& value)
    {
        Normalize(text, unit, withComma, value);
    }

private:
    static const char* Chars(const xmlChar* text) { return reinterpret_cast<const char*>(text); }
    static Element SkipOthers(Element node)
    {
        while (node && node->type != XML_ELEMENT_NODE)
            node = node->next;
        return node;
    }
};

struct Tinyxml2
{
    using Document = std::unique_ptr<tinyxml2::XMLDocument>;
    using Element = const tinyxml2::XMLElement*;
    using Name = std::string;
    using Text = const char*;

    static Document Load(const std::filesystem::path& file);
    static Name NameOf(std::string_view text) { return Name(text); }
    static Element Root(const Document& document) { return document->RootElement(); }
    static Element FirstChild(Element parent) { return parent->FirstChildElement(); }
    static Element NextSibling(Element element) { return element->NextSiblingElement(); }
    static bool HasTag(Element element, const Name& tag) { return IsEqual(element->Name(), tag); }
    static bool IsEqual(Text text, const Name& name) { return std::strcmp(text, name.c_str()) == 0; }
    static Text Attribute(Element element, const Name& name) { return element->Attribute(name.c_str()); }
    static void Assign(Text text, const char* unit, bool withComma, std::string& value)
    {
        Normalize(text, unit, withComma, value);
    }
};

struct Xerces
{
    using Document = std::unique_ptr<xercesc::XercesDOMParser>;
    using Element = const xercesc::DOMElement*;
    using Name = std::u16string;
    using Text = const XMLCh*;

    static Document Load(const std::filesystem::path& file);
    static Name NameOf(std::string_view text) { return {text.begin(), text.end()}; } // ASCII
    static Element Root(const Document& document) { return document->getDocument()->getDocumentElement(); }
    static Element FirstChild(Element parent) { return parent->getFirstElementChild(); }
    static Element NextSibling(Element element) { return element->getNextElementSibling(); }
    static bool HasTag(Element element, const Name& tag) { return IsEqual(element->getTagName(), tag); }
    static bool IsEqual(Text text, const Name& name) { return xercesc::XMLString::equals(text, name.c_str()); }
    static Text Attribute(Element element, const Name& name)
    {
        const xercesc::DOMAttr* attribute = element->getAttributeNode(name.c_str());
        return attribute ? attribute->getValue() : nullptr;
    }
    // The values are ASCII here, which is the quickest to transcode.
    static void Assign(Text text, const char* unit, bool withComma, std::string& value)
    {
        while (*text == u' ')
            ++text;
        value.clear();
        for (; *text; ++text)
            value.push_back(static_cast<char>(*text));
        while (!value.empty() && value.back() == ' ')
            value.pop_back();
        Finish(unit, withComma, value);
    }
};

// The first child with the tag whose "name" is the given one.
template <class Peer>
typename Peer::Element FindNamed(
    typename Peer::Element parent, const typename Peer::Name& tag, const typename Peer::Name& name)
{
    static const typename Peer::Name nameAttribute = Peer::NameOf("name");
    for (auto child = Peer::FirstChild(parent); child; child = Peer::NextSibling(child))
        if (Peer::HasTag(child, tag))
        {
            const auto text = Peer::Attribute(child, nameAttribute);
            if (text && Peer::IsEqual(text, name))
                return child;
        }
    return {};
}

// The typical query: standard by name, in the Customer document first; category; its attributes, where those of
// "default" stand in.
template <class Peer> class TypicalByHand
{
public:
    using Name = typename Peer::Name;

    explicit TypicalByHand(const std::filesystem::path& tree)
        : m_Default(Peer::Load(DefaultFile(tree))), m_Customer(Peer::Load(CustomerFile(tree)))
    {
        for (std::size_t field = 0; field < fieldCount; ++field)
            m_Names[field] = Peer::NameOf(freeSpaceFields[field].attribute);
    }

    bool operator()(const Name& standard, const Name& category, bool withComma, Answers& answers) const
    {
        auto element = FindNamed<Peer>(Peer::Root(m_Customer), m_Standard, standard);
        if (!element)
            element = FindNamed<Peer>(Peer::Root(m_Default), m_Standard, standard);
        if (!element)
            return false;
        const auto own = FindNamed<Peer>(element, m_Category, category);
        const auto other = FindNamed<Peer>(element, m_Category, m_DefaultCategory);
        if (!own && !other)
            return false;
        for (std::size_t field = 0; field < fieldCount; ++field)
        {
            auto text = own ? Peer::Attribute(own, m_Names[field]) : nullptr;
            if (!text && other)
                text = Peer::Attribute(other, m_Names[field]);
            if (text)
                Peer::Assign(text, freeSpaceFields[field].unit, withComma, answers[field]);
            else
                answers[field].clear();
        }
        return true;
    }

private:
    typename Peer::Document m_Default;
    typename Peer::Document m_Customer;
    std::array<Name, fieldCount> m_Names;
    Name m_Standard = Peer::NameOf("standard");
    Name m_Category = Peer::NameOf("category");
    Name m_DefaultCategory = Peer::NameOf("default");
};

#endif
