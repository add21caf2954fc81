// Elements that the same descriptions speak of are one element of the grammar, wherever they stand.
#include "VEXMELKGrammar.h"

#include "VEXMELKRowText.h"
#include "VEXMELKTrial.h"

#include <algorithm>

namespace {

using Described = std::vector<const VEXMELKElement*>;

void AddOnce(std::string& text, const std::string& sentence)
{
    if (!sentence.empty() && text.find(sentence) == std::string::npos)
        text += (text.empty() ? "" : " ") + sentence;
}

const char* FallBackText(const VEXMELKElement& element)
{
    if (element.tag == "category" && element.fallBack != VEXMELKFallBack::ValueByValue)
        return ""; // of the elements in it
    switch (element.fallBack)
    {
    case VEXMELKFallBack::ValueByValue:
        return "What is missing is taken from the category \"default\", value by value.";
    case VEXMELKFallBack::WholeElement:
        return "Without it, that of the category \"default\" is taken, whole.";
    case VEXMELKFallBack::Overlay:
        return "Those of the category \"default\" are read first, these over them.";
    default:
        return "";
    }
}

std::string DocumentationOf(const VEXMELKElementKind& kind)
{
    std::string text;
    for (const VEXMELKElement* element : kind.described)
        AddOnce(text, VEXMELKSentence(VEXMELKPlainText(element->meaning)));
    for (const VEXMELKElement* element : kind.described)
    {
        AddOnce(text, FallBackText(*element));
        if (!element->whenMissing.empty())
            AddOnce(text, VEXMELKSentence("When missing: " + VEXMELKPlainText(element->whenMissing)));
    }
    return text;
}

std::string WhenMissing(const VEXMELKRow& row, bool isNeeded)
{
    const VEXMELKWhenMissing::Rule rule = row.whenMissing.rule;
    if (rule == VEXMELKWhenMissing::Fails)
        return "When missing: the query fails.";
    if (isNeeded)
        return "When missing: the element plays no part.";
    if (rule == VEXMELKWhenMissing::Keeps)
        return "When missing: what the check had before is kept.";
    return VEXMELKSentence("When missing: " + VEXMELKPlainText(VEXMELKWhenMissingText(row)));
}

// What several rows say alike is said once.
std::string DocumentationOf(const std::vector<const VEXMELKRow*>& rows, bool isNeeded)
{
    std::string text;
    std::string types;
    for (const VEXMELKRow* row : rows)
    {
        AddOnce(text, VEXMELKSentence(VEXMELKPlainText(row->meaning)));
        AddOnce(text, VEXMELKKindText(*row));
        if (!row->onlyFor.empty())
            types += (types.empty() ? "\"" : " or \"") + std::string(row->onlyFor) + "\"";
        const std::string_view handedOut = VEXMELKHandedOutAs(row->form);
        if (!handedOut.empty())
            AddOnce(text, "Handed out as " + std::string(handedOut) + ".");
    }
    if (!types.empty())
        AddOnce(text, "Read for the type " + types + " only.");
    for (const VEXMELKRow* row : rows)
        AddOnce(text, WhenMissing(*row, isNeeded));
    return text;
}

bool IsRead(const VEXMELKElementKind::Attribute& attribute, const std::string& type)
{
    return std::any_of(attribute.rows.begin(), attribute.rows.end(),
        [&](const VEXMELKRow* row) { return row->onlyFor.empty() || row->onlyFor == type; });
}

// The types for which an element has attributes of its own.
std::vector<std::string> TypesOf(const VEXMELKElementKind& kind)
{
    std::vector<std::string> types;
    for (const VEXMELKElementKind::Attribute& attribute : kind.attributes)
        for (const VEXMELKRow* row : attribute.rows)
            if (!row->onlyFor.empty() && std::find(types.begin(), types.end(), row->onlyFor) == types.end())
                types.emplace_back(row->onlyFor);
    return types;
}

} // namespace

const VEXMELKGrammar::Child* VEXMELKGrammar::Element::FreeChild() const
{
    const auto found =
        std::find_if(children.begin(), children.end(), [](const Child& child) { return child.tag == "*"; });
    return found == children.end() ? nullptr : &*found;
}

VEXMELKGrammar::VEXMELKGrammar(const VEXMELKDescription& description)
    : m_Description(description), m_Described(VEXMELKElementsWithParents(description))
{
    Described root;
    std::copy_if(m_Described.begin(), m_Described.end(), std::back_inserter(root),
        [](const VEXMELKElement* element) { return element->tag == "*" && !element->below; });
    AddElement("root", root);
}

std::size_t VEXMELKGrammar::AddElement(std::string_view tag, Described described)
{
    const auto known = std::find_if(m_Elements.begin(), m_Elements.end(),
        [&](const Element& element) { return &element != &m_Elements.front() && element.kind.described == described; });
    if (known != m_Elements.end())
        return static_cast<std::size_t>(known - m_Elements.begin());
    Element element;
    element.name = FreeName(std::string(tag == "*" ? "other" : tag));
    element.hasFreeAttributes = described.empty();
    element.hasText =
        std::any_of(described.begin(), described.end(), [](const VEXMELKElement* each) { return each->hasText; });
    element.kind = VEXMELKElementKind(std::move(described));
    element.documentation =
        m_Elements.empty() ? VEXMELKSentence(std::string(m_Description.meaning)) : DocumentationOf(element.kind);
    AddAttributes(element);
    m_Elements.push_back(std::move(element));
    const std::size_t number = m_Elements.size() - 1;
    AddChildren(number);
    return number;
}

void VEXMELKGrammar::AddChildren(std::size_t parent)
{
    const auto isBelow = [&](const VEXMELKElement* element)
    {
        const Described& above = m_Elements[parent].kind.described;
        if (!element->below)
            return parent == 0 && element->tag != "*";
        return std::find(above.begin(), above.end(), element->below) != above.end();
    };
    Described below;
    std::copy_if(m_Described.begin(), m_Described.end(), std::back_inserter(below), isBelow);
    std::vector<std::string_view> done;
    for (const VEXMELKElement* first : below)
    {
        if (std::find(done.begin(), done.end(), first->tag) != done.end())
            continue;
        done.push_back(first->tag);
        Described described;
        std::copy_if(below.begin(), below.end(), std::back_inserter(described),
            [&](const VEXMELKElement* element) { return element->tag == first->tag; });
        const VEXMELKElementKind kind(described);
        if (!kind.isKnown)
            continue; // it only counts elements
        const VEXMELKElement* ruling = kind.Ruling();
        const VEXMELKTwins twins = ruling ? VEXMELKTwinsOf(*ruling) : VEXMELKTwins::Nothing;
        Child child{first->tag, AddElement(first->tag, described), twins == VEXMELKTwins::One && first->tag != "*", {}};
        if (twins > VEXMELKTwins::Each)
            child.uniqueBy = ruling->key->attribute;
        m_Elements[parent].children.push_back(child);
    }
    // A free tag is any but those of the others.
    std::stable_partition(m_Elements[parent].children.begin(), m_Elements[parent].children.end(),
        [](const Child& child) { return child.tag != "*"; });
}

void VEXMELKGrammar::AddAttributes(Element& element)
{
    for (const VEXMELKElementKind::Attribute& attribute : element.kind.attributes)
    {
        const bool isNeeded = element.kind.Needs(attribute);
        element.attributes.push_back(
            {attribute.name, AddType(attribute.rows), isNeeded, DocumentationOf(attribute.rows, isNeeded), {}, {}});
    }
    const std::vector<std::string> types = TypesOf(element.kind);
    if (types.empty())
        element.cases.push_back(element.attributes);
    else
        for (std::size_t position = 0; position <= types.size(); ++position)
            element.cases.push_back(AttributesFor(element, types, position));
}

// Of the type at the position, or of all others.
std::vector<VEXMELKGrammar::Attribute> VEXMELKGrammar::AttributesFor(
    const Element& element, const std::vector<std::string>& types, std::size_t position)
{
    const std::string type = position < types.size() ? types[position] : "";
    std::vector<Attribute> attributes;
    for (std::size_t number = 0; number < element.attributes.size(); ++number)
    {
        const VEXMELKElementKind::Attribute& described = element.kind.attributes[number];
        if (!IsRead(described, type))
            continue;
        attributes.push_back(element.attributes[number]);
        if (described.name != "type")
            continue;
        attributes.back().only = type;
        attributes.back().isNeeded = attributes.back().isNeeded || !type.empty();
        if (type.empty())
            attributes.back().except = types;
    }
    return attributes;
}

std::size_t VEXMELKGrammar::AddType(const std::vector<const VEXMELKRow*>& rows)
{
    VEXMELKValueType type = VEXMELKValueTypeOf(rows);
    const auto same =
        std::find_if(m_Types.begin(), m_Types.end(), [&](const VEXMELKValueType& each) { return each.IsSame(type); });
    if (same != m_Types.end())
        return static_cast<std::size_t>(same - m_Types.begin());
    const std::string wanted = type.name;
    for (int number = 2; std::any_of(
             m_Types.begin(), m_Types.end(), [&](const VEXMELKValueType& each) { return each.name == type.name; });
         ++number)
        type.name = wanted + std::to_string(number);
    m_Types.push_back(std::move(type));
    return m_Types.size() - 1;
}

std::string VEXMELKGrammar::FreeName(const std::string& wanted) const
{
    std::string name = wanted;
    for (int number = 2;
         std::any_of(m_Elements.begin(), m_Elements.end(), [&](const Element& each) { return each.name == name; });
         ++number)
        name = wanted + std::to_string(number);
    return name;
}
