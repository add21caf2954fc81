// What Windows does in another way. Paths are UTF-8 here and UTF-16 there. A document type definition is first opened,
// and then kept only if the path that the system gives for the open file lies in the directory: so what is read never
// lies outside, whatever is swapped meanwhile. A link that leads out is opened and closed unread.
#ifdef _WIN32
#include "CATFiles.h"
#include "CATWide.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <share.h>
#include <utility>
#include <vector>

namespace {

constexpr std::wstring_view longPath = L"\\\\?\\";
constexpr std::wstring_view longShare = L"\\\\?\\UNC\\";

// As the system takes it. Its functions end at 260 characters, except for paths of this form.
std::wstring WidePath(const std::string& systemPath)
{
    std::wstring path = CATWide(systemPath);
    if (path.size() < MAX_PATH)
        return path;
    std::wstring full(32768, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.empty() || full.starts_with(longPath))
        return path;
    return full.starts_with(L"\\\\") ? std::wstring(longShare) + full.substr(2) : std::wstring(longPath) + full;
}

// Where the open file lies, every link followed, with "/"; empty when the system cannot tell.
std::string PathOf(HANDLE handle)
{
    std::wstring path(32768, L'\0');
    path.resize(GetFinalPathNameByHandleW(handle, path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED));
    if (path.starts_with(longShare))
        path.replace(0, longShare.size(), L"\\\\");
    else if (path.starts_with(longPath))
        path.erase(0, longPath.size());
    std::string narrow = CATSystemPath(CATNarrow(path));
    if (narrow.ends_with('/')) // of a drive
        narrow.pop_back();
    return narrow;
}

std::string RealPath(const std::string& folder)
{
    // Without a right to read: only its path is asked for.
    HANDLE handle = CreateFileW(WidePath(folder).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return {};
    std::string path = PathOf(handle);
    CloseHandle(handle);
    return path;
}

bool IsWithin(const std::string& path, const std::string& folder)
{
    return !folder.empty() && (path + "/").starts_with(folder + "/");
}

// The system itself takes "." and ".." from a path before it looks at anything.
std::string Joined(const std::string& folder, std::string_view relativePath)
{
    std::string path = folder;
    const std::string names = CATSystemPath(relativePath);
    for (std::size_t begin = 0; begin <= names.size();)
    {
        const std::size_t end = std::min(names.find('/', begin), names.size());
        const std::string name = names.substr(begin, end - begin);
        if (name == "..")
            path.erase(std::min(path.rfind('/'), path.size()));
        else if (!name.empty() && name != ".")
            path += "/" + name;
        begin = end + 1;
    }
    return path;
}

bool IsAbsence(DWORD error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
           error == ERROR_INVALID_DRIVE;
}

DWORD AttributesOf(const std::string& systemPath) { return GetFileAttributesW(WidePath(systemPath).c_str()); }

// Whether it is known what is in that folder, or that there is none: it, or one above it, may be a link that leads
// nowhere.
bool IsAbsent(const std::string& systemPath)
{
    const DWORD attributes = AttributesOf(systemPath);
    if (attributes == INVALID_FILE_ATTRIBUTES && !IsAbsence(GetLastError()))
        return false;
    if (attributes != INVALID_FILE_ATTRIBUTES)
        return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 || !RealPath(systemPath).empty();
    const std::string folder = CATFolderOfFile(systemPath);
    return folder == systemPath || folder.ends_with(":") || IsAbsent(folder);
}

} // namespace

int CATOpenOnWindows(const std::string& systemPath)
{
    // Others may write, rename and remove the file meanwhile, as they may on other systems.
    HANDLE handle = CreateFileW(WidePath(systemPath).c_str(), GENERIC_READ,
        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
    {
        const DWORD error = GetLastError();
        errno = IsAbsence(error) ? ENOENT : error == ERROR_TOO_MANY_OPEN_FILES ? EMFILE : EACCES;
        const DWORD attributes = AttributesOf(systemPath);
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            errno = EISDIR;
        return -1;
    }
    // Devices such as CON and pipes have file names too.
    if (GetFileType(handle) != FILE_TYPE_DISK)
    {
        CloseHandle(handle);
        errno = ENOENT;
        return -1;
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_RDONLY | _O_BINARY);
    if (descriptor < 0)
        CloseHandle(handle);
    return descriptor;
}

bool CATMayBeFileOfSystem(const std::string& systemPath)
{
    const DWORD attributes = AttributesOf(systemPath);
    if (attributes != INVALID_FILE_ATTRIBUTES)
        return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    if (!IsAbsence(GetLastError()))
        return true;
    const std::string folder = CATFolderOfFile(systemPath);
    return !(systemPath.empty() || folder == systemPath || IsAbsent(folder) ||
             AttributesOf(folder) != INVALID_FILE_ATTRIBUTES);
}

CATFileArea::CATFileArea(const std::string& directory)
    : m_Directory(RealPath(CATSystemPath(directory))), m_Error(m_Directory.empty() ? ENOENT : 0)
{
}

bool CATFileArea::Contains(const std::string& path) const { return m_Error == 0 && IsWithin(path, m_Directory); }

std::unique_ptr<CATInputFile> CATFileArea::Open(
    const std::string& beside, std::string_view relativePath, std::string& realPath) const
{
    // A ":" would name a drive or another stream of a file.
    if (relativePath.find(':') != std::string_view::npos)
        return nullptr;
    const std::string folder = RealPath(CATFolderOfFile(beside));
    const std::string path = Joined(folder, relativePath);
    if (folder.empty() || !Contains(path) || !CATMayBeFileOfSystem(path))
        return nullptr;
    std::unique_ptr<CATInputFile> file(new CATInputFile(CATOpenOnWindows(path)));
    if (file->IsOpen())
    {
        realPath = PathOf(reinterpret_cast<HANDLE>(_get_osfhandle(file->m_Descriptor)));
        return Contains(realPath) ? std::move(file) : nullptr;
    }
    realPath = path;
    return file;
}
#endif
