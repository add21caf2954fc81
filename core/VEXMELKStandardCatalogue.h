// The standards of an object's documents by name, built once when they are loaded: finding one among 20,000 takes as
// long as among ten.
#ifndef VEXMELKStandardCatalogue_H
#define VEXMELKStandardCatalogue_H

#include "CATTextTable.h"
#include "VEXMELKElements.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

// Elements by the text of their attribute "name". The first of a name counts.
class VEXMELKNameIndex
{
public:
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
    // Up to this many names are compared one by one; more get a table.
    static constexpr std::size_t comparedUpTo = 8;

    struct Entry
    {
        VEXMELKNodeText name;
        CATIDOMElement_var element;
    };
    // The number of the name among the compared ones, or CATTextTable::none.
    CATTextTable::Number Compare(std::string_view name) const;
    auto NameOf() const
    {
        return [this](CATTextTable::Number number) { return std::string_view(m_Entries[number].name); };
    }

    std::vector<Entry> m_Entries;
    CATTextTable m_Table; // of those that are not compared
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
    Categories FindCategories(std::string_view standard, std::string_view category, std::string_view defaultCategory);

    // Priority levels. The first level that a standard is given counts; one that was given none has level 0.
    void SetLevel(const CATUnicodeString& standard, int level) { m_Levels.emplace(standard, level); }
    int FindLevel(const CATUnicodeString& standard) const;

private:
    VEXMELKNameIndex m_Standards;
    // The categories of each standard, by its number; null until it is first asked for.
    std::vector<std::unique_ptr<VEXMELKNameIndex>> m_Categories;
    std::unordered_map<CATUnicodeString, int> m_Levels;
};

#endif
