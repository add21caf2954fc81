// Reading files, and finding those that a document names without leaving its directory. Paths may be written with "\".
#ifndef CATFiles_H
#define CATFiles_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The path as the system takes it, with "/".
std::string CATSystemPath(std::string_view path);

// The folder that a file lies in: "." for a bare name.
std::string CATFolderOfFile(std::string_view path);

// False only for what certainly is no file (see CATMayBeFile). For paths of the system.
bool CATMayBeFileOfSystem(const std::string& systemPath);

#ifdef _WIN32
// A descriptor that reads the file in binary, or -1 and errno.
int CATOpenOnWindows(const std::string& systemPath);
#endif

// Files that are in memory only. Their paths begin with a character that paths of the system's files do not begin with.
namespace CATMemoryFiles {

constexpr char firstCharacter = '\1';

void Write(const std::string& systemPath, std::string bytes);
void RemoveBelow(const std::string& systemDirectory);
// Null for a path that is no file in memory. What it points to lives until the file is written again or removed.
const std::string* Find(const std::string& systemPath);

} // namespace CATMemoryFiles

// A regular file opened for reading.
class CATInputFile
{
public:
    // Not open when the path names no regular file or one that cannot be read.
    explicit CATInputFile(const std::string& path);
    CATInputFile(const CATInputFile&) = delete;
    CATInputFile& operator=(const CATInputFile&) = delete;
    ~CATInputFile();

    bool IsOpen() const { return m_Descriptor >= 0 || m_Memory; }
    std::size_t Size() const { return m_Size; } // bytes, when it was opened
    // Why it is not open, in the system's words.
    const char* Reason() const;

    // Reads the next bytes: the number read, 0 at the end, -1 when the system reports an error.
    long Read(void* buffer, std::size_t size);
    // Reads from its beginning again.
    void Rewind();

private:
    friend class CATFileArea;
    explicit CATInputFile(int descriptor);
    void Open(int descriptor);

    int m_Descriptor = -1;
    const std::string* m_Memory = nullptr; // in place of a descriptor
    int m_Error = 0;
    std::size_t m_Size = 0;
    std::size_t m_Place = 0; // in memory
};

// The files of one directory and of the folders below it, wherever links and ".." lead: what lies outside is never
// opened, nor even looked at. Where the directory itself lies is decided once, by its real path.
class CATFileArea
{
public:
    // A directory that is not there has no files.
    explicit CATFileArea(const std::string& directory);

    // Opens the file that a relative path names, as seen from the folder of another file, and gives its real path. Null
    // when the area has no file of that name. A file that is there and cannot be read is not open.
    std::unique_ptr<CATInputFile> Open(
        const std::string& beside, std::string_view relativePath, std::string& realPath) const;

private:
    bool Contains(const std::string& path) const;
    bool IsOnTheWay(const std::string& path) const;
    std::optional<std::string> Find(const std::string& folder, std::string_view relativePath) const;
    int OpenFound(const std::string& realPath) const;

    std::string m_Directory; // its real path, empty for the root
    int m_Error;
};

#endif
