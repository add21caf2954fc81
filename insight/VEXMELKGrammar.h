// What a file may hold, as schemas say it: which elements stand below which, and with which attributes.
//
// An element stands directly below the one that it is described below, also one that is found at any depth: so editors
// propose each element at its usual place only.
#ifndef VEXMELKGrammar_H
#define VEXMELKGrammar_H

#include "VEXMELKElementKind.h"
#include "VEXMELKValueType.h"

class VEXMELKGrammar
{
public:
    struct Attribute
    {
        std::string_view name;
        std::size_t type = 0; // in Types
        bool isNeeded = false;
        std::string documentation;
        // Of the type of an element for which it has other attributes: the one text, or texts that it has not.
        std::string only;
        std::vector<std::string> except;
    };
    struct Child
    {
        std::string_view tag; // "*": any that is no other child's
        std::size_t element = 0;
        bool isAtMostOne = false;
        std::string_view uniqueBy; // an attribute by which children of the tag differ; empty when there is none
    };
    struct Element
    {
        std::string name; // among those of this grammar
        VEXMELKElementKind kind;
        std::vector<Attribute> attributes;
        // The attributes that an element of one type has, for each type; one list when the type plays no part.
        std::vector<std::vector<Attribute>> cases;
        std::vector<Child> children;
        bool hasText = false;
        bool hasFreeAttributes = false; // nothing is read from it
        std::string documentation;

        // The child whose tag is free; null when there is none.
        const Child* FreeChild() const;
    };

    explicit VEXMELKGrammar(const VEXMELKDescription& description);

    const VEXMELKDescription& Description() const { return m_Description; }
    // The root first.
    const std::vector<Element>& Elements() const { return m_Elements; }
    const std::vector<VEXMELKValueType>& Types() const { return m_Types; }

private:
    std::size_t AddElement(std::string_view tag, std::vector<const VEXMELKElement*> described);
    void AddChildren(std::size_t parent);
    void AddAttributes(Element& element);
    std::vector<Attribute> AttributesFor(
        const Element& element, const std::vector<std::string>& types, std::size_t position);
    std::size_t AddType(const std::vector<const VEXMELKRow*>& rows);
    std::string FreeName(const std::string& wanted) const;

    const VEXMELKDescription& m_Description;
    std::vector<const VEXMELKElement*> m_Described;
    std::vector<Element> m_Elements;
    std::vector<VEXMELKValueType> m_Types;
};

#endif
