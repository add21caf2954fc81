// Paths, and whether there may be a file. When that cannot be told, the answer is yes, so that the failure is reported.
#include "CATPath.h"

#include "CATFiles.h"

#include <cerrno>
#include <sys/stat.h>

namespace {

// Whether nothing can bear that name: there is no such name, in a folder that is there.
bool IsAbsent(const std::string& path)
{
    struct stat status = {};
    const int error = lstat(path.c_str(), &status) == 0 ? 0 : errno;
    if (error != ENOENT)
        return error == ENOTDIR;
    const std::string folder = CATFolderOfFile(path);
    return path.empty() || folder == path || stat(folder.c_str(), &status) == 0 || IsAbsent(folder);
}

} // namespace

CATUnicodeString CATMakePath(const CATUnicodeString& directory, const CATUnicodeString& name)
{
    return directory.IsEmpty() ? name : directory + "\\" + name;
}

bool CATMayBeFile(const CATUnicodeString& path)
{
    const std::string systemPath = CATSystemPath(path.ConvertToChar());
    struct stat status = {};
    if (systemPath.starts_with(CATMemoryFiles::firstCharacter))
        return CATMemoryFiles::Find(systemPath);
    if (stat(systemPath.c_str(), &status) == 0)
        return S_ISREG(status.st_mode);
    return !IsAbsent(systemPath);
}
