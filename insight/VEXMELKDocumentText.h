// The documents of a configuration written out anew, with each text in them at a known place, so that one of them can
// be replaced and the documents be read again.
#ifndef VEXMELKDocumentText_H
#define VEXMELKDocumentText_H

#include "CATIDOM.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

// The value of an attribute, or the text of an element.
struct VEXMELKSlot
{
    std::size_t element = 0;    // in VEXMELKDocumentText::Elements
    std::string_view attribute; // empty for the text of an element
    std::string_view text;
    std::size_t begin = 0; // where it is written, references and all
    std::size_t end = 0;
};

class VEXMELKDocumentText
{
public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct Element
    {
        CATIDOMElement_var node;
        std::size_t parent = none; // in the list of elements
        std::size_t firstSlot = 0;
        std::size_t slotCount = 0;
        std::size_t begin = 0; // where it is written
        std::size_t end = 0;
    };

    // Writes the document below the root, whose first line gets that number. Children of the root for which
    // isLeftOut(child) is true are not written.
    VEXMELKDocumentText(const CATIDOMElement_var& root, int firstLine,
        const std::function<bool(const CATIDOMElement_var&)>& isLeftOut = {});

    const std::string& Text() const { return m_Text; }
    int LastLine() const { return m_Line; }
    // In the order of the document; the root is the first.
    const std::vector<Element>& Elements() const { return m_Elements; }
    const std::vector<VEXMELKSlot>& Slots() const { return m_Slots; }

    // The element whose tag begins there in the written text, or none.
    std::size_t ElementAt(int line, int column) const;
    // The slot of an element's attribute, or none.
    std::size_t SlotOf(std::size_t element, std::string_view attribute) const;
    // The text of an element's attribute; empty when it is missing, and for no element.
    std::string_view TextOf(std::size_t element, std::string_view attribute) const;
    // The element itself, or the nearest around it, that has the tag; none when there is none.
    std::size_t Around(std::size_t element, std::string_view tag) const;

    // The text with another one in the place of a slot's.
    std::string With(const VEXMELKSlot& slot, std::string_view text) const;

    // The text without a slot's, and without the attribute that has it.
    std::string Without(const VEXMELKSlot& slot) const;
    // The text without an element.
    std::string Without(std::size_t element) const;

    // "/configuration/standard[name='S']/category[name='suv']".
    std::string PathOf(std::size_t element) const;

private:
    void WriteStart(const CATIDOMElement_var& element, std::size_t parent);
    void WriteOther(const CATIDOMNode_var& node, std::size_t parent);
    void Write(std::string_view text);

    std::string m_Text;
    int m_Line;
    int m_Column = 1;
    std::vector<Element> m_Elements;
    std::vector<VEXMELKSlot> m_Slots;
    std::map<std::pair<int, int>, std::size_t> m_Places;
};

// "/configuration/standard[name='S']/category[name='suv']".
std::string VEXMELKPathOf(const CATIDOMElement_var& element);

// A text as it is written in an attribute's value, whatever the quotes.
std::string VEXMELKEscaped(std::string_view text);

#endif
