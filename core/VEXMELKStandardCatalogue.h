// The standards of an object's documents by name, built once when they are loaded: finding one among 20,000 takes as
// long as among ten.
#ifndef VEXMELKStandardCatalogue_H
#define VEXMELKStandardCatalogue_H

#include "CATTextTable.h"
#include "VEXMELKElements.h"

#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

struct VEXMELKElement;

// Elements by the text of their attribute "name". The first of a name counts.
class VEXMELKNameIndex
{
public:
    // Up to this many names are compared one by one; more get a table.
    static constexpr std::size_t comparedUpTo = 8;

    // Adds the element, unless it has no name or its name is there already. Tells whether it did.
    bool Add(const CATIDOMElement_var& element);
    // The number of the name, counted from 0 in the order of adding, or CATTextTable::none.
    CATTextTable::Number Find(std::string_view name) const;
    const CATIDOMElement_var& Element(CATTextTable::Number number) const { return m_Entries[number].element; }
    // The element of the name; null when there is none.
    CATIDOMElement_var FindElement(std::string_view name) const
    {
        const CATTextTable::Number number = Find(name);
        return number == CATTextTable::none ? CATIDOMElement_var() : Element(number);
    }

private:
    struct Entry
    {
        VEXMELKNodeText name;
        CATIDOMElement_var element;
    };
    auto NameOf() const
    {
        return [this](CATTextTable::Number number) { return std::string_view(m_Entries[number].name); };
    }

    std::vector<Entry> m_Entries;
    CATTextTable m_Table; // empty as long as the names are compared
};

class VEXMELKStandardCatalogue
{
public:
    // Adds the standards of a document that no document before it has. A standard is a child "standard" of the root
    // with a "name".
    void AddDocument(const CATIDOMElement_var& root);

    struct Categories
    {
        CATIDOMElement_var standard;        // null when there is none of that name
        CATIDOMElement_var category;        // null when the standard has none of that name
        CATIDOMElement_var defaultCategory; // null likewise
    };
    CATIDOMElement_var FindStandard(std::string_view name) const;
    // Whether a standard has any category at all.
    bool HasCategories(const CATIDOMElement_var& standard);
    // The described child of a root, by its name, of the first root before the second; either may be null. Their names
    // are gathered once, when they are first asked for.
    CATIDOMElement_var FindRootChild(const CATIDOMElement_var& first, const CATIDOMElement_var& second,
        const VEXMELKElement& described, std::string_view name);
    Categories FindCategories(std::string_view standard, std::string_view category, std::string_view defaultCategory);

    // Priority levels. The first level that a standard is given counts; one that was given none has level 0.
    void SetLevel(const CATUnicodeString& standard, int level) { m_Levels.emplace(standard, level); }
    int FindLevel(const CATUnicodeString& standard) const;

private:
    VEXMELKNameIndex m_Standards;
    // The categories of standards that have more than a few, by the standard's number, once asked for. A few are looked
    // through each time: so the first question to a standard costs no more than another one.
    std::unordered_map<CATTextTable::Number, VEXMELKNameIndex> m_ManyCategories;
    // Standards whose categories a watch has been told of: it is told once.
    std::unordered_set<CATTextTable::Number> m_Announced;
    void AnnounceCategories(CATTextTable::Number standard);
    const VEXMELKNameIndex& ManyCategoriesOf(CATTextTable::Number standard);
    std::unordered_map<CATUnicodeString, int> m_Levels;
    // Where standards are nested, their categories overlap, and an index for each would take more than the file. Then
    // the categories of a document stand together, by name.
    struct NestedCategories
    {
        CATIDOMElement_var root;
        std::vector<CATIDOMElement_var> all;
        std::unordered_map<CATUnicodeString, std::vector<CATIDOMElement_var>> byName;
    };
    // Those of the document that the standard stands in.
    const NestedCategories& NestedAround(const CATIDOMElement_var& standard);
    CATIDOMElement_var FindNested(const CATIDOMElement_var& standard, std::string_view category);
    std::vector<CATIDOMElement_var> m_Roots;
    bool m_IsNested = false;
    std::vector<NestedCategories> m_NestedCategories; // of the roots, once asked for

    std::map<const VEXMELKElement*, VEXMELKNameIndex> m_RootChildren;
};

#endif
