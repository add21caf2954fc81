// Look-ups over pugixml by a plan that says in text what to read. Reading the plan is not timed.
#include "ByHand.h"

#include "Peers.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <strings.h>

namespace {

// Lengths in millimetres, all else as it is written.
double NumberOf(const char* text)
{
    char* end = nullptr;
    const double number = std::strtod(text, &end);
    return std::strcmp(end, "m") == 0 ? number * 1000.0 : number;
}

void Assign(const char* text, const Wanted& wanted, Value& value)
{
    switch (wanted.kind)
    {
    case Kind::Text:
    case Kind::Code:
        Normalize(text, wanted.unit.c_str(), false, value.text);
        break;
    case Kind::Flag:
        value.number = strcasecmp(text, "true") == 0;
        break;
    case Kind::Number:
        value.number = NumberOf(text) * wanted.factor;
        break;
    }
}

void Read(pugi::xml_node element, pugi::xml_node other, const std::vector<Wanted>& attributes, Record& record,
    bool keepsMissing = false)
{
    for (std::size_t index = 0; index < attributes.size(); ++index)
    {
        const Wanted& wanted = attributes[index];
        Value& value = record[index];
        if (wanted.attribute == ".")
        {
            Assign(element.child_value(), wanted, value);
            value.isFound = true;
            continue;
        }
        pugi::xml_attribute attribute = element.attribute(wanted.attribute.c_str());
        if (!attribute)
            attribute = other.attribute(wanted.attribute.c_str());
        if (attribute)
            Assign(attribute.value(), wanted, value);
        else if (!keepsMissing)
            value.text = wanted.whenMissing;
        value.isFound = attribute || (keepsMissing && value.isFound);
    }
}

pugi::xml_node FindByKey(pugi::xml_node parent, const char* tag, const char* attribute, const char* key)
{
    for (pugi::xml_node child = parent.child(tag); child; child = child.next_sibling(tag))
        if (std::strcmp(child.attribute(attribute).value(), key) == 0)
            return child;
    return {};
}

pugi::xml_node FindFirst(pugi::xml_node parent, const Elements& elements)
{
    if (elements.keyAttribute.empty())
        return parent.child(elements.tag.c_str());
    return FindByKey(parent, elements.tag.c_str(), elements.keyAttribute.c_str(), elements.key.c_str());
}

} // namespace

ByHand::ByHand(Plan plan) : m_Plan(std::move(plan)) { Load(); }

void ByHand::Load()
{
    const std::filesystem::path single = SampleDirectory() / m_Plan.file;
    const bool isSingle = std::filesystem::exists(single);
    m_Default = Pugixml::Load(isSingle ? single : SampleDirectory() / "Default" / m_Plan.file);
    const std::filesystem::path customer = SampleDirectory() / "Customer" / m_Plan.file;
    m_Customer = std::make_unique<pugi::xml_document>();
    if (!isSingle && std::filesystem::exists(customer))
        m_Customer = Pugixml::Load(customer);
}

Record& ByHand::NextRecord(const std::vector<Wanted>& wanted)
{
    if (m_Used == m_Records.size())
    {
        Record& record = m_Records.emplace_back(wanted.size());
        for (std::size_t index = 0; index < wanted.size(); ++index)
            record[index].wanted = &wanted[index];
    }
    return m_Records[m_Used++];
}

void ByHand::ReadRow(pugi::xml_node parent, const Elements& elements)
{
    pugi::xml_node chosen;
    const char* tag = elements.tag.c_str();
    for (pugi::xml_node row = parent.child(tag); row; row = row.next_sibling(tag))
    {
        const double travel = NumberOf(row.attribute(elements.keyAttribute.c_str()).value());
        if (elements.which == Which::LastBelow)
        {
            if (!chosen || travel < elements.travel)
                chosen = row;
            continue;
        }
        chosen = row;
        if (travel <= elements.travel)
            break;
    }
    if (chosen)
        ReadElement(chosen, elements);
}

void ByHand::ReadElement(pugi::xml_node element, const Elements& elements)
{
    if (!elements.wanted.empty())
    {
        Record& record = elements.intoLast ? m_Records[m_Used - 1] : NextRecord(elements.wanted);
        Read(element, {}, elements.wanted, record, elements.intoLast);
    }
    if (!elements.reference.empty())
    {
        const char* name = element.attribute(elements.reference.c_str()).value();
        const char* tag = elements.referencedTag.c_str();
        pugi::xml_node referenced = FindByKey(m_Customer->document_element(), tag, "name", name);
        if (!referenced)
            referenced = FindByKey(m_Default->document_element(), tag, "name", name);
        Read(referenced, {}, elements.referencedWanted, NextRecord(elements.referencedWanted));
    }
    for (const Elements& inner : elements.inner)
        ReadElements(element, inner);
}

void ByHand::ReadElements(pugi::xml_node parent, const Elements& elements)
{
    switch (elements.which)
    {
    case Which::All:
        for (pugi::xml_node element = parent.child(elements.tag.c_str()); element;
             element = element.next_sibling(elements.tag.c_str()))
            ReadElement(element, elements);
        break;
    case Which::First:
        if (const pugi::xml_node element = FindFirst(parent, elements))
            ReadElement(element, elements);
        break;
    case Which::FirstNotAbove:
    case Which::LastBelow:
        ReadRow(parent, elements);
        break;
    }
}

int ByHand::operator()()
{
    m_Used = 0;
    if (m_Plan.loadsEachTime)
        Load();
    pugi::xml_node standard;
    if (m_Plan.name.empty())
        standard = m_Default->document_element();
    else
    {
        standard = FindByKey(m_Customer->document_element(), m_Plan.tag.c_str(), "name", m_Plan.name.c_str());
        if (!standard)
            standard = FindByKey(m_Default->document_element(), m_Plan.tag.c_str(), "name", m_Plan.name.c_str());
    }
    if (!standard)
        return 0;
    if (!m_Plan.ofStandard.empty())
        Read(standard, {}, m_Plan.ofStandard, NextRecord(m_Plan.ofStandard));

    pugi::xml_node category = standard;
    pugi::xml_node other;
    if (!m_Plan.category.empty())
    {
        category = FindByKey(standard, "category", "name", m_Plan.category.c_str());
        if (!category || m_Plan.fallBack != Plan::WholeCategory)
            other = FindByKey(standard, "category", "name", "default");
        if (!category)
            category = other;
    }
    if (!category)
        return 0;
    if (!m_Plan.attributes.empty())
        Read(category, m_Plan.fallBack == Plan::WholeCategory ? pugi::xml_node() : other, m_Plan.attributes,
            NextRecord(m_Plan.attributes));
    for (const Elements& elements : m_Plan.elements)
    {
        if (m_Plan.fallBack == Plan::Overlay)
            ReadElements(other, elements);
        const bool isOther = m_Plan.fallBack == Plan::ElementByElement && !FindFirst(category, elements);
        ReadElements(isOther ? other : category, elements);
    }
    return 1;
}
