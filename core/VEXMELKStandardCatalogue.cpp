#include "VEXMELKStandardCatalogue.h"

namespace {

// A standard with more categories than this gets an index of them when it is first asked for.
constexpr int searchedUpTo = 8;

std::unique_ptr<VEXMELKNameIndex> IndexOfCategories(const CATIDOMElement_var& standard)
{
    auto index = std::make_unique<VEXMELKNameIndex>();
    ForEachChild(standard, "category", [&](const CATIDOMElement_var& category) { index->Add(category); });
    return index;
}

// One walk finds both categories.
VEXMELKStandardCatalogue::Categories Search(const CATIDOMElement_var& standard, const CATIDOMNodeList_var& elements,
    std::string_view category, std::string_view defaultCategory)
{
    VEXMELKStandardCatalogue::Categories found{standard, {}, {}};
    for (int position = 0; position < elements->GetLength(); ++position)
    {
        const CATIDOMElement_var element = elements->Item(position);
        const CATIDOMNode_var name = AttributeOf(element, "name");
        if (name == NULL_var || !IsChild(element, standard))
            continue;
        if (found.category == NULL_var && name->GetNodeValue() == category)
            found.category = element;
        if (found.defaultCategory == NULL_var && name->GetNodeValue() == defaultCategory)
            found.defaultCategory = element;
    }
    return found;
}

} // namespace

bool VEXMELKNameIndex::Add(const CATIDOMElement_var& element)
{
    const CATIDOMNode_var name = AttributeOf(element, "name");
    if (name == NULL_var || Find(name->GetNodeValue()) != none)
        return false;
    m_Entries.push_back({element, name->GetNodeValue()});
    m_Table.Add(name->GetNodeValue(), static_cast<CATTextTable::Number>(m_Entries.size() - 1));
    return true;
}

std::size_t VEXMELKNameIndex::Find(std::string_view name) const
{
    return m_Table.Find(name, [this](CATTextTable::Number number) { return std::string_view(m_Entries[number].name); });
}

CATIDOMElement_var VEXMELKNameIndex::FindElement(std::string_view name) const
{
    const std::size_t number = Find(name);
    return number == none ? CATIDOMElement_var() : m_Entries[number].element;
}

void VEXMELKStandardCatalogue::AddDocument(const CATIDOMElement_var& root)
{
    ForEachChild(root, "standard",
        [this](const CATIDOMElement_var& standard)
        {
            if (m_Standards.Add(standard))
                m_Categories.push_back({standard->GetElementsByTagName("category"), nullptr});
        });
}

CATIDOMElement_var VEXMELKStandardCatalogue::FindStandard(std::string_view name) const
{
    return m_Standards.FindElement(name);
}

VEXMELKStandardCatalogue::Categories VEXMELKStandardCatalogue::FindCategories(
    std::string_view standard, std::string_view category, std::string_view defaultCategory)
{
    const std::size_t number = m_Standards.Find(standard);
    if (number == VEXMELKNameIndex::none)
        return {};
    const CATIDOMElement_var& element = m_Standards.Element(number);
    StandardCategories& categories = m_Categories[number];
    if (categories.elements->GetLength() > searchedUpTo && !categories.index)
        categories.index = IndexOfCategories(element);
    if (categories.index)
        return {element, categories.index->FindElement(category), categories.index->FindElement(defaultCategory)};
    return Search(element, categories.elements, category, defaultCategory);
}

int VEXMELKStandardCatalogue::FindLevel(const CATUnicodeString& standard) const
{
    const auto found = m_Levels.find(standard);
    return found == m_Levels.end() ? 0 : found->second;
}
