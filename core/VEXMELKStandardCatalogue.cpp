// Finding standards, categories and children of the root by name, at the same cost whatever their number.
#include "VEXMELKStandardCatalogue.h"

#include "VEXMELKCommonElements.h"
#include "VEXMELKLookUp.h"

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
    m_Roots.push_back(root);
    CATIDOMElement_var outermost;
    ForEach(root, VEXMELKCommon::standards,
        [&](const CATIDOMElement_var& standard)
        {
            if (m_Standards.Add(standard))
                m_Categories.emplace_back();
            if (outermost != NULL_var && outermost->Contains(standard))
                m_IsNested = true;
            else
                outermost = standard;
        });
}

CATIDOMElement_var VEXMELKStandardCatalogue::FindStandard(std::string_view name) const
{
    return m_Standards.FindElement(name);
}

CATIDOMElement_var VEXMELKStandardCatalogue::FindRootChild(const CATIDOMElement_var& first,
    const CATIDOMElement_var& second, const VEXMELKElement& described, std::string_view name)
{
    auto found = m_RootChildren.find(&described);
    if (found == m_RootChildren.end())
    {
        VEXMELKNameIndex children;
        for (const CATIDOMElement_var* root : {&first, &second})
            ForEach(*root, described, [&](const CATIDOMElement_var& child) { children.Add(child); });
        found = m_RootChildren.emplace(&described, std::move(children)).first;
    }
    return found->second.FindElement(name);
}

VEXMELKStandardCatalogue::Categories VEXMELKStandardCatalogue::FindCategories(
    std::string_view standard, std::string_view category, std::string_view defaultCategory)
{
    const CATTextTable::Number number = m_Standards.Find(standard);
    if (number == CATTextTable::none)
        return {};
    const CATIDOMElement_var& element = m_Standards.Element(number);
    if (m_IsNested)
        return {element, FindNested(element, category), FindNested(element, defaultCategory)};
    std::unique_ptr<VEXMELKNameIndex>& categories = m_Categories[number];
    if (!categories)
    {
        auto index = std::make_unique<VEXMELKNameIndex>();
        ForEach(element, VEXMELKCommon::categories, [&](const CATIDOMElement_var& child) { index->Add(child); });
        categories = std::move(index);
    }
    return {element, categories->FindElement(category), categories->FindElement(defaultCategory)};
}

const VEXMELKStandardCatalogue::NestedCategories& VEXMELKStandardCatalogue::NestedAround(
    const CATIDOMElement_var& standard)
{
    while (m_NestedCategories.size() < m_Roots.size())
    {
        NestedCategories categories{m_Roots[m_NestedCategories.size()], {}, {}};
        ForEachElement(categories.root, VEXMELKCommon::categories.tag,
            [&](const CATIDOMElement_var& element)
            {
                if (element->GetParentNode()->GetNodeName() != VEXMELKCommon::standards.tag)
                    return;
                categories.all.push_back(element);
                if (const std::optional<VEXMELKNodeText> name = Key(element, VEXMELKCommon::categories))
                    categories.byName[CATUnicodeString(*name)].push_back(element);
            });
        m_NestedCategories.push_back(std::move(categories));
    }
    return *std::find_if(m_NestedCategories.begin(), m_NestedCategories.end() - 1,
        [&](const NestedCategories& categories) { return categories.root->Contains(standard); });
}

CATIDOMElement_var VEXMELKStandardCatalogue::FindNested(const CATIDOMElement_var& standard, std::string_view category)
{
    const NestedCategories& categories = NestedAround(standard);
    const auto found = categories.byName.find(CATUnicodeString(category));
    return found == categories.byName.end() ? CATIDOMElement_var() : FirstBelow(standard, found->second);
}

bool VEXMELKStandardCatalogue::HasCategories(const CATIDOMElement_var& standard)
{
    const CATIDOMElement_var first = m_IsNested && standard != NULL_var
                                         ? FirstBelow(standard, NestedAround(standard).all)
                                         : Find(standard, VEXMELKCommon::categories);
    return first != NULL_var;
}

int VEXMELKStandardCatalogue::FindLevel(const CATUnicodeString& standard) const
{
    const auto found = m_Levels.find(standard);
    return found == m_Levels.end() ? 0 : found->second;
}
