// Each file is read when it is first asked for, and kept.
#include "VEXMELKFilePlaces.h"

#include <algorithm>

namespace {

// The name of a file that another one names, below the configuration directory; empty when it lies outside.
std::string Beside(const std::string& file, std::string relative)
{
    std::replace(relative.begin(), relative.end(), '\\', '/');
    if (relative == "basedata.dtd") // all files share it, wherever they lie
        return relative;
    std::string folder = file.substr(0, file.rfind('/') + 1);
    while (relative.starts_with("../") && !folder.empty())
    {
        relative.erase(0, 3);
        folder.pop_back();
        folder.erase(folder.rfind('/') + 1);
    }
    const bool leadsOut = ("/" + relative + "/").find("/../") != std::string::npos;
    return leadsOut ? "" : folder + relative;
}

} // namespace

VEXMELKFilePlaces::Found VEXMELKFilePlaces::Find(
    const std::string& file, const CATIDOMElement_var& element, std::string_view attribute)
{
    Found found{file, {element->GetLineNumber(), element->GetColumnNumber()}};
    const VEXMELKWrittenFile* written = FileAt(file);
    if (!written)
        return found;
    const auto place =
        attribute.empty() ? written->TextOf(found.position) : written->ValueOf(found.position, attribute);
    if (place)
        found.position = *place;
    else
        FindDefault(*written, element->GetTagName(), attribute, found);
    return found;
}

void VEXMELKFilePlaces::FindDefault(
    const VEXMELKWrittenFile& file, std::string_view tag, std::string_view attribute, Found& found)
{
    auto declared = file.DefaultOf(tag, attribute);
    if (!declared)
    {
        const std::string type = file.DocumentTypeFile();
        const std::string name = type.empty() ? "" : Beside(found.file, type);
        const VEXMELKWrittenFile* typeFile = name.empty() ? nullptr : FileAt(name);
        declared = typeFile ? typeFile->DefaultOf(tag, attribute) : std::nullopt;
        if (declared)
            found.file = name;
    }
    if (declared)
    {
        found.isOfDocumentType = true;
        found.position = *declared;
    }
}

const VEXMELKWrittenFile* VEXMELKFilePlaces::FileAt(const std::string& name)
{
    auto found = m_Written.find(name);
    if (found == m_Written.end())
        found = m_Written.emplace(name, VEXMELKWrittenFile::Read(m_Directory + "/" + name)).first;
    return found->second ? &*found->second : nullptr;
}
