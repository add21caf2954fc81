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
    static constexpr std::size_t none = CATTextTable::none;

    // Adds the element under the next number, from 0. False when it has no name, or its name is there already.
    bool Add(const CATIDOMElement_var& element);
    // The number of the name, or none.
    std::size_t Find(std::string_view name) const;
    // The element of the name; null when there is none.
    CATIDOMElement_var FindElement(std::string_view name) const;
    const CATIDOMElement_var& Element(std::size_t number) const { return m_Entries[number].element; }

private:
    struct Entry
    {
        CATIDOMElement_var element;
        VEXMELKNodeText name;
    };
    CATTextTable m_Table;
    std::vector<Entry> m_Entries;
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
    struct StandardCategories
    {
        CATIDOMNodeList_var elements;            // all elements "category" below the standard
        std::unique_ptr<VEXMELKNameIndex> index; // of its children among them; null until it is needed
    };

    VEXMELKNameIndex m_Standards;
    std::vector<StandardCategories> m_Categories; // by the number of their standard
    std::unordered_map<CATUnicodeString, int> m_Levels;
};

#endif
