// Opens files so that neither a link nor "..", nor a folder that is swapped meanwhile, leads out of a directory. The
// one file with the headers of POSIX; what Windows does in another way stands in CATFilesWindows.cpp.
#include "CATFiles.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <utility>
#include <vector>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

constexpr std::size_t readAtMost = std::size_t{1} << 30U; // at once, which every system can

#ifndef _WIN32
constexpr int linksAtMost = 40; // on the way to one file, as the system itself counts them

// Without O_NONBLOCK, opening a named pipe would wait for its writer.
constexpr int forReading = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
#ifdef O_PATH
constexpr int forSearching = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
#else
constexpr int forSearching = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
#endif

// With every link and ".." followed, and without the "/" of the root; none, and errno, when that cannot be done.
std::optional<std::string> RealPath(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr), std::free);
    if (!resolved)
        return std::nullopt;
    const std::string_view real = resolved.get();
    return std::string(real == "/" ? "" : real);
}

// Adds the names of a path, the first one last.
void PushNames(std::string_view path, std::vector<std::string>& names)
{
    for (std::size_t end = path.size(); end != std::string_view::npos;)
    {
        const std::size_t separator = end == 0 ? std::string_view::npos : path.rfind('/', end - 1);
        const std::size_t begin = separator == std::string_view::npos ? 0 : separator + 1;
        names.emplace_back(path.substr(begin, end - begin));
        end = separator;
    }
}

#endif

// Guards the files in memory, of which each thread that tries something out has its own.
std::mutex memoryFilesMutex;

// Never destroyed: files may still be asked for while the process ends.
std::map<std::string, std::string>& AllMemoryFiles()
{
    static auto* const files = new std::map<std::string, std::string>;
    return *files;
}

#ifndef _WIN32
bool IsWithin(const std::string& path, const std::string& folder) { return (path + "/").starts_with(folder + "/"); }

// Follows a path name by name, as the system does, but stops before each look at a file.
struct Walk
{
    static constexpr int absent = -1;

    Walk(std::string folder, std::string_view path) : at(std::move(folder)) { PushNames(path, names); }

    // The real path that the next name leads to, unless it is a link: the place itself for "." and the one above for
    // "..", which needs no look.
    std::string TakeName()
    {
        const std::string name = std::exchange(names.back(), "");
        names.pop_back();
        if (name == "..")
            at.erase(std::min(at.rfind('/'), at.size()));
        return name.empty() || name == "." || name == ".." ? at : at + "/" + name;
    }

    // Goes on to that place, or to where the link there leads. Gives an error of the system, or "absent".
    int LookAt(const std::string& next)
    {
        const bool isOfLink = names.size() >= behindLink;
        struct stat status = {};
        if (lstat(next.c_str(), &status) != 0)
            return errno == ENOENT && !isOfLink ? absent : errno;
        if (S_ISLNK(status.st_mode))
            return Follow(next, isOfLink);
        at = next;
        isFile = S_ISREG(status.st_mode);
        return isFile || S_ISDIR(status.st_mode) ? 0 : absent;
    }

    std::string at; // a real path, empty for the root
    bool isFile = false;
    std::vector<std::string> names; // that are still to be followed, the next one last

private:
    int Follow(const std::string& link, bool isOfLink)
    {
        if (++links > linksAtMost)
            return ELOOP;
        char target[PATH_MAX];
        const ssize_t length = readlink(link.c_str(), target, sizeof target);
        if (length < 0)
            return errno;
        if (target[0] == '/')
            at.clear();
        if (!isOfLink)
            behindLink = names.size();
        PushNames({target, static_cast<std::size_t>(length)}, names);
        return 0;
    }

    int links = 0;
    std::size_t behindLink = SIZE_MAX; // how many names are left when those of the links are done
};

int OpenForReading(const std::string& systemPath) { return open(systemPath.c_str(), forReading); }

// Whether nothing can bear that name: there is no such name, in a folder that is there.
bool IsAbsent(const std::string& systemPath)
{
    struct stat status = {};
    const int error = lstat(systemPath.c_str(), &status) == 0 ? 0 : errno;
    if (error != ENOENT)
        return error == ENOTDIR;
    const std::string folder = CATFolderOfFile(systemPath);
    return systemPath.empty() || folder == systemPath || stat(folder.c_str(), &status) == 0 || IsAbsent(folder);
}
#else
int OpenForReading(const std::string& systemPath) { return CATOpenOnWindows(systemPath); }
#endif

} // namespace

std::string CATSystemPath(std::string_view path)
{
    std::string systemPath(path);
    std::replace(systemPath.begin(), systemPath.end(), '\\', '/');
    return systemPath;
}

std::string CATFolderOfFile(std::string_view path)
{
    const std::size_t separator = path.find_last_of("/\\");
    if (separator == std::string_view::npos)
        return ".";
    return CATSystemPath(path.substr(0, separator == 0 ? 1 : separator));
}

void CATMemoryFiles::Write(const std::string& systemPath, std::string bytes)
{
    const std::lock_guard lock(memoryFilesMutex);
    AllMemoryFiles()[systemPath] = std::move(bytes);
}

void CATMemoryFiles::RemoveBelow(const std::string& systemDirectory)
{
    const std::lock_guard lock(memoryFilesMutex);
    std::erase_if(AllMemoryFiles(), [&](const auto& file) { return file.first.starts_with(systemDirectory + "/"); });
}

const std::string* CATMemoryFiles::Find(const std::string& systemPath)
{
    if (!systemPath.starts_with(firstCharacter))
        return nullptr;
    const std::lock_guard lock(memoryFilesMutex);
    const auto found = AllMemoryFiles().find(systemPath);
    return found == AllMemoryFiles().end() ? nullptr : &found->second;
}

CATInputFile::CATInputFile(const std::string& path)
{
    const std::string systemPath = CATSystemPath(path);
    m_Memory = CATMemoryFiles::Find(systemPath);
    if (m_Memory)
        m_Size = m_Memory->size();
    else
        Open(OpenForReading(systemPath));
}

CATInputFile::CATInputFile(int descriptor) { Open(descriptor); }

void CATInputFile::Open(int descriptor)
{
    m_Descriptor = descriptor;
    m_Error = descriptor < 0 ? errno : 0;
    struct stat status = {};
    if (descriptor < 0)
        return;
    if (fstat(m_Descriptor, &status) != 0)
        m_Error = errno;
    m_Size = static_cast<std::size_t>(status.st_size);
    if ((status.st_mode & S_IFMT) != S_IFREG)
        close(std::exchange(m_Descriptor, -1));
}

CATInputFile::~CATInputFile()
{
    if (m_Descriptor >= 0)
        close(m_Descriptor);
}

const char* CATInputFile::Reason() const { return m_Error == 0 ? "not a regular file" : std::strerror(m_Error); }

long CATInputFile::Read(void* buffer, std::size_t size)
{
    if (m_Memory)
    {
        const std::size_t copied = m_Memory->copy(static_cast<char*>(buffer), size, m_Place);
        m_Place += copied;
        return static_cast<long>(copied);
    }
    long read = 0;
    do
        read = static_cast<long>(::read(m_Descriptor, buffer, static_cast<unsigned>(std::min(size, readAtMost))));
    while (read < 0 && errno == EINTR);
    return read;
}

void CATInputFile::Rewind()
{
    m_Place = 0;
    if (m_Descriptor >= 0)
        lseek(m_Descriptor, 0, SEEK_SET);
}

#ifndef _WIN32
bool CATMayBeFileOfSystem(const std::string& systemPath)
{
    struct stat status = {};
    if (stat(systemPath.c_str(), &status) == 0)
        return S_ISREG(status.st_mode);
    return !IsAbsent(systemPath);
}

CATFileArea::CATFileArea(const std::string& directory) : m_Error(0)
{
    const std::optional<std::string> real = RealPath(CATSystemPath(directory));
    if (real)
        m_Directory = *real;
    else
        m_Error = errno;
}

bool CATFileArea::Contains(const std::string& path) const { return m_Error == 0 && IsWithin(path, m_Directory); }

// Whether it is a folder above the directory, or the directory: that is known without a look at it.
bool CATFileArea::IsOnTheWay(const std::string& path) const { return m_Error == 0 && IsWithin(m_Directory, path); }

// First the path is followed name by name, which tells where the file lies. Then the file is opened by its real path,
// folder by folder and without following a link: whatever has been put in the place of one meanwhile, nothing outside
// is opened.
std::unique_ptr<CATInputFile> CATFileArea::Open(
    const std::string& beside, std::string_view relativePath, std::string& realPath) const
{
    errno = 0;
    const std::optional<std::string> folder = RealPath(CATFolderOfFile(beside));
    const std::optional<std::string> found = folder ? Find(*folder, relativePath) : std::nullopt;
    if (!found && errno == 0)
        return nullptr;
    if (found)
        realPath = *found;
    return std::unique_ptr<CATInputFile>(new CATInputFile(found ? OpenFound(*found) : -1));
}

// The real path of the file. None, with errno 0, when there is no such file in the area; none, with another errno, when
// that cannot be told.
std::optional<std::string> CATFileArea::Find(const std::string& folder, std::string_view relativePath) const
{
    Walk walk(folder, CATSystemPath(relativePath));
    int error = 0;
    while (error == 0 && !walk.names.empty())
    {
        const std::string next = walk.TakeName();
        if (walk.isFile)
            error = Walk::absent; // a name below a file
        else if (next == walk.at || IsOnTheWay(next))
            walk.at = next;
        else
            error = Contains(walk.at) ? walk.LookAt(next) : Walk::absent;
    }
    errno = error == Walk::absent ? 0 : error;
    return error == 0 && walk.isFile ? std::optional(walk.at) : std::nullopt;
}

int CATFileArea::OpenFound(const std::string& realPath) const
{
    int folder = open(m_Directory.empty() ? "/" : m_Directory.c_str(), forSearching);
    std::vector<std::string> names;
    PushNames(realPath.substr(m_Directory.size() + 1), names);
    for (; folder >= 0 && names.size() > 1; names.pop_back())
    {
        const int next = openat(folder, names.back().c_str(), forSearching);
        const int error = errno;
        close(folder);
        errno = error;
        folder = next;
    }
    if (folder < 0)
        return -1;
    const int file = openat(folder, names.back().c_str(), forReading | O_NOFOLLOW);
    const int error = errno;
    close(folder);
    errno = error;
    return file;
}
#endif
