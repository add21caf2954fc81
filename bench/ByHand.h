// Look-ups written by hand over pugixml, as a good engineer types them for one check: no plan that is interpreted,
// numbers by std::from_chars, an index of the standards, records of the check's own type.
#ifndef BENCH_ByHand_H
#define BENCH_ByHand_H

#include "CATUnicodeString.h"

#include <charconv>
#include <filesystem>
#include <memory>
#include <numbers>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace ByHand {

using Node = pugi::xml_node;
using Word = std::pair<const char*, int>;

// A file of the sample: both documents, and what stands below their roots by tag and name.
class File
{
public:
    explicit File(std::string file);

    // A child of the root, of the customer document before the base document.
    Node RootChild(const char* tag, std::string_view name) const;
    struct Found
    {
        Node standard;
        Node own;   // the category
        Node other; // "default"
        Node Whole() const { return own ? own : other; }
        explicit operator bool() const { return own || other; }
        // An element of the category, or else of "default".
        Node Either(const char* tag) const
        {
            const Node element = own.child(tag);
            return element ? element : other.child(tag);
        }
    };
    Found Find(std::string_view standard, std::string_view category) const;
    Node Root() const { return m_Default->document_element(); }
    // Reads the file anew.
    void Load();

private:
    std::string m_File;
    std::unique_ptr<pugi::xml_document> m_Default;
    std::unique_ptr<pugi::xml_document> m_Customer;
    std::unordered_map<std::string_view, Node> m_Standards;
};

// The child with the tag whose attribute has that value.
inline Node Child(Node parent, const char* tag, const char* attribute, std::string_view value)
{
    for (Node child = parent.child(tag); child; child = child.next_sibling(tag))
        if (child.attribute(attribute).value() == value)
            return child;
    return {};
}

// Each takes the text of an attribute, which is null where there is none; "Keep" leaves the field then.
inline const char* At(Node own, Node other, const char* name)
{
    pugi::xml_attribute attribute = own.attribute(name);
    if (!attribute)
        attribute = other.attribute(name);
    return attribute ? attribute.value() : nullptr;
}
inline const char* At(Node own, const char* name) { return At(own, {}, name); }

inline std::string_view Stripped(const char* text)
{
    std::string_view stripped = text;
    while (!stripped.empty() && stripped.front() == ' ')
        stripped.remove_prefix(1);
    while (!stripped.empty() && stripped.back() == ' ')
        stripped.remove_suffix(1);
    return stripped;
}
inline void KeepText(const char* text, const char* unit, CATUnicodeString& value)
{
    if (!text)
        return;
    const std::string_view stripped = Stripped(text);
    value = stripped;
    if (!stripped.empty() && stripped.back() >= '0' && stripped.back() <= '9')
        value.Append(unit);
}
inline void KeepText(const char* text, CATUnicodeString& value)
{
    if (text)
        value = Stripped(text);
}
inline void ReadText(const char* text, CATUnicodeString& value, const char* missing = "")
{
    if (text)
        value = Stripped(text);
    else
        value = missing;
}
inline void ReadText(const char* text, const char* unit, CATUnicodeString& value, const char* missing = "")
{
    if (text)
        KeepText(text, unit, value);
    else
        value = missing;
}
inline bool IsTrue(std::string_view text)
{
    return text.size() == 4 && (text[0] | 32) == 't' && (text[1] | 32) == 'r' && (text[2] | 32) == 'u' &&
           (text[3] | 32) == 'e';
}
inline void KeepFlag(const char* text, unsigned char& value)
{
    if (text)
        value = IsTrue(Stripped(text));
}
inline void ReadFlag(const char* text, unsigned char& value, bool missing = false)
{
    value = text ? IsTrue(Stripped(text)) : missing;
}
// The number, and the unit behind it.
inline std::pair<double, std::string_view> NumberOf(const char* text)
{
    const std::string_view stripped = Stripped(text);
    double number = 0.0;
    const char* end = std::from_chars(stripped.data(), stripped.data() + stripped.size(), number).ptr;
    return {number, stripped.substr(static_cast<std::size_t>(end - stripped.data()))};
}
inline double MillimetresOf(const char* text)
{
    const auto [number, unit] = NumberOf(text);
    if (unit.empty() || unit == "mm")
        return number;
    return unit == "cm" ? number * 10.0 : unit == "m" ? number * 1000.0 : 0.0;
}
inline void ReadNumber(const char* text, double& value, double missing = 0.0)
{
    value = text ? NumberOf(text).first : missing;
}
inline void ReadFraction(const char* text, double& value, double missing = 0.0)
{
    value = text ? NumberOf(text).first / 100.0 : missing;
}
inline void ReadMillimetres(const char* text, double& value, double missing = 0.0)
{
    value = text ? MillimetresOf(text) : missing;
}
inline void ReadMetres(const char* text, double& value) { value = text ? MillimetresOf(text) / 1000.0 : 0.0; }
inline void ReadRadians(const char* text, double& value)
{
    value = text ? NumberOf(text).first * std::numbers::pi / 180.0 : 0.0;
}
inline void ReadInteger(const char* text, int& value, int missing = 0)
{
    value = text ? static_cast<int>(NumberOf(text).first) : missing;
}
template <std::size_t Size> int ValueOf(const char* text, const Word (&words)[Size], int otherwise)
{
    for (const Word& word : words)
        if (Stripped(text) == word.first)
            return word.second;
    return otherwise;
}
template <std::size_t Size, class Value>
void KeepWord(const char* text, const Word (&words)[Size], int otherwise, Value& value)
{
    if (text)
        value = static_cast<Value>(ValueOf(text, words, otherwise));
}
template <std::size_t Size, class Value>
void ReadWord(const char* text, const Word (&words)[Size], int otherwise, Value& value, int missing = 0)
{
    value = static_cast<Value>(text ? ValueOf(text, words, otherwise) : missing);
}

} // namespace ByHand

#endif
