// Documents are written out as they were read, with the entities and attribute defaults of their types in them: no type
// is read from memory.
#include "VEXMELKDefaultAlone.h"

#include "VEXMELKTrial.h"

VEXMELKDefaultAlone::VEXMELKDefaultAlone(const CATUnicodeString& directory)
{
    const VEXMELKSilence silence; // missing files are told of when they are asked for
    for (const VEXMELKConfigManager::Configuration& configuration : VEXMELKConfigManager::GetConfigurations())
    {
        if (!configuration.create)
            continue;
        const std::vector<VEXMELKSourceFile> files = VEXMELKLoadFiles(*configuration.description, directory);
        if (!files.empty() && !files.front().name.starts_with("Customer/"))
            m_Directory.Write(files.front().name, VEXMELKDocumentText(files.front().root, 1).Text());
        m_IsLess = m_IsLess || files.size() > 1;
    }
}
