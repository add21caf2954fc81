// Paths and files.
//
// Paths are formed with "\", as messages show them. The functions here turn "\" into "/" at the moment of opening.
#ifndef CATPath_H
#define CATPath_H

#include "CATUnicodeString.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

// Joins directory and name with one "\"; an empty directory gives the name alone.
CATUnicodeString CATMakePath(const CATUnicodeString& directory, const CATUnicodeString& name);

// True for regular files only, through symbolic links; false also where that cannot be told.
bool CATIsRegularFile(const CATUnicodeString& path);

// False only for what certainly is no file: no such name in a folder that can be searched, or a name of something else
// (a folder, a pipe, a device). True where that cannot be told: the folder may not be searched, or a link on the way
// leads nowhere or in a circle.
bool CATMayBeFile(const CATUnicodeString& path);

// A regular file opened for reading.
class CATInputFile
{
public:
    // Not open when the path names no regular file or one that cannot be read.
    explicit CATInputFile(const CATUnicodeString& path);
    CATInputFile(const CATInputFile&) = delete;
    CATInputFile& operator=(const CATInputFile&) = delete;
    ~CATInputFile();

    bool IsOpen() const { return m_Descriptor >= 0; }
    std::size_t Size() const { return m_Size; } // bytes, when it was opened
    // Why it is not open, in the system's words.
    const char* Reason() const;

    // Reads the next bytes: the number read, 0 at the end, -1 when the system reports an error.
    long Read(void* buffer, std::size_t size);

private:
    friend class CATFileArea;
    explicit CATInputFile(int descriptor);

    int m_Descriptor = -1;
    int m_Error = 0;
    std::size_t m_Size = 0;
};

// The files of one directory and of the folders below it, wherever links and ".." lead: what lies outside is never
// opened, nor even looked at. Where the directory itself lies is decided once, by its real path.
class CATFileArea
{
public:
    // A directory that is not there has no files.
    explicit CATFileArea(const CATUnicodeString& directory);

    // Opens the file that a relative path names, as seen from the folder of another file, and gives its real path. Null
    // when the area has no file of that name. A file that is there and cannot be read is not open.
    std::unique_ptr<CATInputFile> Open(
        const CATUnicodeString& beside, std::string_view relativePath, CATUnicodeString& realPath) const;

private:
    bool Contains(const std::string& path) const;
    bool IsOnTheWay(const std::string& path) const;
    std::optional<std::string> Find(const std::string& folder, std::string_view relativePath) const;
    int OpenFound(const std::string& realPath) const;

    std::string m_Directory; // its real path, empty for the root
    int m_Error;
};

// The folder that a file lies in: "." for a bare name.
CATUnicodeString CATFolderOf(const CATUnicodeString& path);

#endif
