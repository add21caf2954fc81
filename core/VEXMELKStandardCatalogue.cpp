#include "VEXMELKStandardCatalogue.h"

bool VEXMELKNameIndex::Add(const CATIDOMElement_var& element)
{
    const std::optional<VEXMELKNodeText> name = AttributeText(element, "name");
    if (!name || Compare(*name) != CATTextTable::none)
        return false;
    const auto number = static_cast<CATTextTable::Number>(m_Entries.size());
    if (number >= comparedUpTo && m_Table.FindOrAdd(*name, number, NameOf()) != number)
        return false;
    m_Entries.push_back({*name, element});
    return true;
}

CATTextTable::Number VEXMELKNameIndex::Find(std::string_view name) const
{
    const CATTextTable::Number number = Compare(name);
    return number == CATTextTable::none ? m_Table.Find(name, NameOf()) : number;
}

CATTextTable::Number VEXMELKNameIndex::Compare(std::string_view name) const
{
    const std::size_t compared = std::min(m_Entries.size(), comparedUpTo);
    for (std::size_t number = 0; number < compared; ++number)
        if (CATTextEqual(m_Entries[number].name, name))
            return static_cast<CATTextTable::Number>(number);
    return CATTextTable::none;
}

void VEXMELKStandardCatalogue::AddDocument(const CATIDOMElement_var& root)
{
    ForEachChild(root, "standard",
        [this](const CATIDOMElement_var& standard)
        {
            if (m_Standards.Add(standard))
                m_Categories.emplace_back();
        });
}

CATIDOMElement_var VEXMELKStandardCatalogue::FindStandard(std::string_view name) const
{
    return m_Standards.FindElement(name);
}

VEXMELKStandardCatalogue::Categories VEXMELKStandardCatalogue::FindCategories(
    std::string_view standard, std::string_view category, std::string_view defaultCategory)
{
    const CATTextTable::Number number = m_Standards.Find(standard);
    if (number == CATTextTable::none)
        return {};
    const CATIDOMElement_var& element = m_Standards.Element(number);
    std::unique_ptr<VEXMELKNameIndex>& categories = m_Categories[number];
    if (!categories)
    {
        auto index = std::make_unique<VEXMELKNameIndex>();
        ForEachChild(element, "category", [&](const CATIDOMElement_var& child) { index->Add(child); });
        categories = std::move(index);
    }
    return {element, categories->FindElement(category), categories->FindElement(defaultCategory)};
}

int VEXMELKStandardCatalogue::FindLevel(const CATUnicodeString& standard) const
{
    const auto found = m_Levels.find(standard);
    return found == m_Levels.end() ? 0 : found->second;
}
