// Lists of values. Positions count from 1.
#ifndef CATListOf_H
#define CATListOf_H

#include "CATUnicodeString.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

template <class Value> class CATListOf
{
public:
    int Size() const { return static_cast<int>(m_Values.size()); }
    Value& operator[](int position) { return m_Values[static_cast<std::size_t>(position) - 1]; }
    const Value& operator[](int position) const { return m_Values[static_cast<std::size_t>(position) - 1]; }

    void Append(const Value& value) { m_Values.push_back(value); }
    void RemoveAll() { m_Values.clear(); }
    void RemovePosition(int position) { m_Values.erase(m_Values.begin() + (position - 1)); }

    // Position of the first value equal to this one, 0 when there is none.
    int Locate(const Value& value) const
    {
        const auto found = std::find(m_Values.begin(), m_Values.end(), value);
        return found == m_Values.end() ? 0 : static_cast<int>(found - m_Values.begin()) + 1;
    }

    // Keeps the first of each.
    void RemoveDuplicates()
    {
        std::unordered_set<Value> known;
        std::erase_if(m_Values, [&known](const Value& value) { return !known.insert(value).second; });
    }

    auto begin() const { return m_Values.begin(); }
    auto end() const { return m_Values.end(); }

private:
    std::vector<Value> m_Values;
};

using CATListValCATUnicodeString = CATListOf<CATUnicodeString>;
using CATRawCollint = CATListOf<int>;

#endif
