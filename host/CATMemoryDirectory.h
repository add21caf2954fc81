// A directory whose files are in memory only, for whoever asks what the answers would be if files were others.
//
// Its path is taken wherever a configuration directory is wanted, as long as the directory lives. Document types are
// not read from it.
#ifndef CATMemoryDirectory_H
#define CATMemoryDirectory_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

#include <string>

class ExportedByVEXMELKConfiguration CATMemoryDirectory
{
public:
    CATMemoryDirectory();
    CATMemoryDirectory(const CATMemoryDirectory&) = delete;
    CATMemoryDirectory& operator=(const CATMemoryDirectory&) = delete;
    ~CATMemoryDirectory();

    const CATUnicodeString& Path() const { return m_Path; }
    // Writes a file, or another text over it. The name is relative, with "/" or "\\".
    void Write(const std::string& name, std::string bytes);

private:
    CATUnicodeString m_Path;
};

#endif
