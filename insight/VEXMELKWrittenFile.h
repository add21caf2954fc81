// A file as it is written: where its attributes stand, by line and column, and its text with another value in it.
#ifndef VEXMELKWrittenFile_H
#define VEXMELKWrittenFile_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Line and column in characters, both counted from 1.
struct VEXMELKPosition
{
    int line = 0;
    int column = 0;
};

class VEXMELKWrittenFile
{
public:
    // Reads the file; nothing when that cannot be done, or its encoding is not known.
    static std::optional<VEXMELKWrittenFile> Read(const std::string& path);

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

private:
    std::size_t OffsetOf(VEXMELKPosition position) const;
    VEXMELKPosition PositionOf(std::size_t offset) const;
    std::size_t EndOfTag(std::size_t begin) const;

    std::string m_Text; // in UTF-8, without a byte-order mark
    std::string m_Mark; // the byte-order mark
    std::string m_Encoding;
    std::vector<std::size_t> m_Lines; // where each begins
};

#endif
