// Finding standards, categories and children of the root by name, at the same cost whatever their number.
#include "VEXMELKStandardCatalogue.h"

#include "VEXMELKCommonElements.h"
#include "VEXMELKLookUp.h"

bool VEXMELKNameIndex::Add(const CATIDOMElement_var& element)
{
    const std::optional<VEXMELKNodeText> name = AttributeText(element, "name");
    if (!name)
        return false;
    const auto number = static_cast<CATTextTable::Number>(m_Entries.size());
    if (number < comparedUpTo)
    {
        if (Find(*name) != CATTextTable::none)
            return false;
    }
    else
    {
        for (CATTextTable::Number known = 0; number == comparedUpTo && known < number; ++known)
            m_Table.FindOrAdd(m_Entries[known].name, known, NameOf());
        if (m_Table.FindOrAdd(*name, number, NameOf()) != number)
            return false;
    }
    m_Entries.push_back({*name, element});
    return true;
}

CATTextTable::Number VEXMELKNameIndex::Find(std::string_view name) const
{
    if (m_Entries.size() > comparedUpTo)
        return m_Table.Find(name, NameOf());
    for (std::size_t number = 0; number < m_Entries.size(); ++number)
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
            m_Standards.Add(standard);
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

void VEXMELKStandardCatalogue::AnnounceCategories(CATTextTable::Number standard)
{
    if (VEXMELKWatch::Installed() && m_Announced.insert(standard).second) [[unlikely]]
        AnnounceLookUp(m_Standards.Element(standard), VEXMELKCommon::categories);
}

const VEXMELKNameIndex& VEXMELKStandardCatalogue::ManyCategoriesOf(CATTextTable::Number standard)
{
    const auto found = m_ManyCategories.find(standard);
    if (found != m_ManyCategories.end())
        return found->second;
    VEXMELKNameIndex index;
    ForEachChild(m_Standards.Element(standard), VEXMELKCommon::categories.tag,
        [&](const CATIDOMElement_var& category) { index.Add(category); });
    return m_ManyCategories.emplace(standard, std::move(index)).first->second;
}

VEXMELKStandardCatalogue::Categories VEXMELKStandardCatalogue::FindCategories(
    std::string_view standard, std::string_view category, std::string_view defaultCategory)
{
    const CATTextTable::Number number = m_Standards.Find(standard);
    if (number == CATTextTable::none)
        return {};
    Categories found{m_Standards.Element(number), {}, {}};
    if (m_IsNested)
        return {found.standard, FindNested(found.standard, category), FindNested(found.standard, defaultCategory)};
    AnnounceCategories(number);
    const CATIDOMNodeList_var all = found.standard->GetElementsByTagName(VEXMELKCommon::categories.tag);
    if (all->GetLength() > static_cast<int>(VEXMELKNameIndex::comparedUpTo))
    {
        const VEXMELKNameIndex& index = ManyCategoriesOf(number);
        return {found.standard, index.FindElement(category), index.FindElement(defaultCategory)};
    }
    const auto names = all->GetValues(VEXMELKCommon::categories.key->attribute);
    for (int position = 0; position < all->GetLength(); ++position)
    {
        const std::optional<VEXMELKNodeText> name = names.At(position);
        if (!name || !all->IsChild(position, found.standard.GetView()))
            continue;
        if (found.category == NULL_var && CATTextEqual(*name, category))
            found.category = all->Item(position);
        if (found.defaultCategory == NULL_var && CATTextEqual(*name, defaultCategory))
            found.defaultCategory = all->Item(position);
        if (found.category != NULL_var && found.defaultCategory != NULL_var)
            break;
    }
    return found;
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
