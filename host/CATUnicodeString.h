// Strings.
//
// CATUnicodeString holds UTF-8: two strings are equal when their bytes are. A text of up to 23 bytes needs no
// allocation. CATString is the 8-bit string of message-catalogue keys.
#ifndef CATUnicodeString_H
#define CATUnicodeString_H

#include "CATShortText.h"
#include "CATTextHash.h"
#include "VEXMELKConfigurationExport.h"

#include <string>
#include <string_view>

class CATString
{
public:
    CATString() = default;
    CATString(const char* text) : m_Text(text) {}

    const char* CastToCharPtr() const { return m_Text.c_str(); }
    int GetLengthInChar() const { return static_cast<int>(m_Text.size()); }
    friend bool operator==(const CATString&, const CATString&) = default;

private:
    std::string m_Text;
};

class ExportedByVEXMELKConfiguration CATUnicodeString
{
public:
    CATUnicodeString() = default;
    CATUnicodeString(const char* utf8) : m_Text(utf8 ? std::string_view(utf8) : std::string_view()) {} // null: empty
    CATUnicodeString(std::string_view utf8) : m_Text(utf8) {}
    CATUnicodeString(const CATString& text) : m_Text(text.CastToCharPtr()) {}
    CATUnicodeString& operator=(std::string_view utf8)
    {
        m_Text.Assign(utf8);
        return *this;
    }
    CATUnicodeString& operator=(const char* utf8) { return *this = std::string_view(utf8); }

    // The text as UTF-8, ended by a zero byte; valid until the string changes.
    const char* ConvertToChar() const { return m_Text.Data(); }
    operator std::string_view() const { return m_Text.View(); }
    int GetLengthInByte() const { return static_cast<int>(m_Text.Size()); }
    bool IsEmpty() const { return m_Text.Size() == 0; }

    // 1 when both texts are equal, letter case included; 0 otherwise.
    int Compare(const CATUnicodeString& other) const { return *this == other ? 1 : 0; }

    // Byte position of the first occurrence of the text, -1 when there is none.
    int SearchSubString(std::string_view text) const;

    // Assigns a short text and an end of it, where "shortBytes" bytes of the text may be read. False, with nothing
    // changed, when that is not the quickest way.
    using End = CATShortText::End;
    static constexpr std::size_t longestEnd = CATShortText::longestEnd;
    static constexpr std::ptrdiff_t shortBytes = CATShortText::shortBytes;
    bool AssignShort(std::string_view text, const End& end) { return m_Text.AssignShort(text, end); }

    void Append(std::string_view text) { m_Text.Append(text); }
    void ReplaceAll(char what, char with) { m_Text.ReplaceAll(what, with); }
    void RemoveAll(char what);

    // Takes blanks (space, tab, line ends) from both ends.
    void Strip();

    // Case change over all of Unicode, character by character.
    void ToUpper();
    void ToLower();

    // Reads a number as scanf does in the "C" locale, whatever the locale of the process: leading white space is
    // skipped, the longest valid prefix is taken. Gives 1 when a number was read; else 0, and the output is 0.
    // Formats: "%d" for int and "%X" for unsigned int (both fail when the number does not fit 32 bits), "%le" for
    // double (decimal numbers with an optional exponent; "nan", "inf" and hexadecimal floats are no numbers).
    int ConvertToNum(int* value, const char* format = "%d") const;
    int ConvertToNum(unsigned int* value, const char* format = "%X") const;
    int ConvertToNum(double* value, const char* format = "%le") const;

    // Replaces the text by the number, written as printf's "%d" and "%g" write it in the "C" locale.
    void BuildFromNum(int value);
    void BuildFromNum(double value);

    CATUnicodeString& operator+=(std::string_view text)
    {
        m_Text.Append(text);
        return *this;
    }
    friend CATUnicodeString operator+(CATUnicodeString left, std::string_view right)
    {
        left += right;
        return left; // moved, where "left += right" itself would be copied
    }
    friend bool operator==(const CATUnicodeString& left, const CATUnicodeString& right)
    {
        return CATTextEqual(left, right);
    }
    friend bool operator==(const CATUnicodeString& left, std::string_view right) { return CATTextEqual(left, right); }
    friend bool operator==(const CATUnicodeString& left, const char* right) { return CATTextEqual(left, right); }

private:
    CATShortText m_Text;
};

template <> struct std::hash<CATUnicodeString>
{
    std::size_t operator()(const CATUnicodeString& text) const noexcept
    {
        return CATTextHash(text, CATTextHashSecretOfProcess());
    }
};

#endif
