// Paths, and whether there may be a file. When that cannot be told, the answer is yes, so that the failure is reported.
#include "CATPath.h"

#include "CATFiles.h"

CATUnicodeString CATMakePath(const CATUnicodeString& directory, const CATUnicodeString& name)
{
    return directory.IsEmpty() ? name : directory + "\\" + name;
}

bool CATMayBeFile(const CATUnicodeString& path)
{
    const std::string systemPath = CATSystemPath(path.ConvertToChar());
    if (systemPath.starts_with(CATMemoryFiles::firstCharacter))
        return CATMemoryFiles::Find(systemPath);
    return CATMayBeFileOfSystem(systemPath);
}
