// A file as it is written: its tags, attributes and comments with their places, and its bytes with other texts in it.
#ifndef VEXMELKWrittenFile_H
#define VEXMELKWrittenFile_H

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Line and column in characters, both counted from 1.
struct VEXMELKPosition
{
    int line = 0;
    int column = 0;
    auto operator<=>(const VEXMELKPosition&) const = default;
};

// Another text in the place of the one that is written there, by offsets in VEXMELKWrittenFile::Text.
struct VEXMELKTextEdit
{
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string text;
    bool operator==(const VEXMELKTextEdit&) const = default;
};

class VEXMELKWrittenFile
{
public:
    // Offsets in Text.
    struct Span
    {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    struct Attribute
    {
        Span name;
        Span value; // without its quotes, references and all
    };
    struct Tag
    {
        Span span; // from "<" to behind ">"
        Span name;
        VEXMELKPosition position;
        std::vector<Attribute> attributes;
        bool isEmpty = false; // "<tag/>"
    };
    struct Comment
    {
        Span span;
        VEXMELKPosition position;
    };

    // Reads the file; nothing when that cannot be done, or its encoding is not known.
    static std::optional<VEXMELKWrittenFile> Read(const std::string& path);

    // In UTF-8, without a byte-order mark.
    const std::string& Text() const { return m_Text; }
    std::string_view Text(Span span) const
    {
        return std::string_view(m_Text).substr(span.begin, span.end - span.begin);
    }
    // A line without its end; empty when there is no such line.
    std::string_view Line(int number) const;

    // Start tags and comments outside of the document type, in the order of the file.
    const std::vector<Tag>& Tags() const { return m_Tags; }
    const std::vector<Comment>& Comments() const { return m_Comments; }
    // The tag that begins at the place; null when none does.
    const Tag* TagAt(VEXMELKPosition position) const;
    const Attribute* AttributeOf(const Tag& tag, std::string_view name) const;
    // The offset of a place; the end of the text when there is none.
    std::size_t OffsetOf(VEXMELKPosition position) const;
    // The place of an offset; inside a tag the tag makes it quicker to find.
    VEXMELKPosition PositionOf(std::size_t offset) const;
    VEXMELKPosition PositionIn(const Tag& tag, std::size_t offset) const;
    // Behind the end tag of an element, or behind its only tag.
    std::size_t EndOfElement(const Tag& tag) const;

    // Of an element whose tag begins at the place: where the attribute's value begins. Nothing when the attribute is
    // not written there, because it is a default of the document type or the element comes from an entity.
    std::optional<VEXMELKPosition> ValueOf(VEXMELKPosition element, std::string_view attribute) const;
    // Where the text of the element begins.
    std::optional<VEXMELKPosition> TextOf(VEXMELKPosition element) const;
    // Where the default of an attribute is declared; nothing when this file does not declare it.
    std::optional<VEXMELKPosition> DefaultOf(std::string_view element, std::string_view attribute) const;
    // The document type's file as the document names it; empty when it names none.
    std::string DocumentTypeFile() const;

    // The bytes of the file with another text in the place of the attribute's value, or the element's text, that begins
    // there. Nothing when none begins there, or the file's encoding does not have the text.
    std::optional<std::string> With(VEXMELKPosition value, std::string_view text) const;
    // The bytes of the file with edits, which do not overlap. Every other byte stays as it is. Nothing when the file's
    // encoding does not have a text.
    std::optional<std::string> With(std::vector<VEXMELKTextEdit> edits) const;

    // The text in the file's encoding; nothing when that does not have it.
    std::optional<std::string> Encoded(std::string_view text) const;
    const std::string& Encoding() const { return m_Encoding; }
    const std::string& ByteOrderMark() const { return m_Mark; }

private:
    void FindTags();
    std::size_t LineOf(std::size_t offset) const;
    int CharactersIn(Span span) const;

    std::string m_Text;
    std::string m_Bytes; // as they are in the file
    std::string m_Mark;  // the byte-order mark
    std::string m_Encoding;
    std::vector<std::size_t> m_Lines; // where each begins
    std::vector<Tag> m_Tags;
    std::vector<Comment> m_Comments;
};

#endif
