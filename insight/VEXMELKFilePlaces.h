// Finds texts of loaded documents again in the files as they are written.
#ifndef VEXMELKFilePlaces_H
#define VEXMELKFilePlaces_H

#include "CATIDOM.h"
#include "VEXMELKWrittenFile.h"

#include <map>

class VEXMELKFilePlaces
{
public:
    struct Found
    {
        std::string file; // below the directory, with "/"
        VEXMELKPosition position;
        bool isOfDocumentType = false; // it is the declaration of a default
    };

    explicit VEXMELKFilePlaces(std::string directory) : m_Directory(std::move(directory)) {}

    // Where the value of an attribute begins, or with an empty name the text of the element. Where the file does not
    // write it, the default that its document type declares, or else the element's tag.
    Found Find(const std::string& file, const CATIDOMElement_var& element, std::string_view attribute);
    // Null when it cannot be read.
    const VEXMELKWrittenFile* FileAt(const std::string& name);

private:
    void FindDefault(const VEXMELKWrittenFile& file, std::string_view tag, std::string_view attribute, Found& found);

    std::string m_Directory;
    std::map<std::string, std::optional<VEXMELKWrittenFile>> m_Written;
};

#endif
