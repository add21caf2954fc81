// Paths and files.
//
// Paths are formed with "\", as messages show them. The functions here turn "\" into "/" at the moment of opening.
#ifndef CATPath_H
#define CATPath_H

#include "CATUnicodeString.h"

#include <cstddef>

// Joins directory and name with one "\"; an empty directory gives the name alone.
CATUnicodeString CATMakePath(const CATUnicodeString& directory, const CATUnicodeString& name);

// True for regular files only, through symbolic links.
bool CATIsRegularFile(const CATUnicodeString& path);

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

    // Reads the next bytes: the number read, 0 at the end, -1 when the system reports an error.
    long Read(void* buffer, std::size_t size);

private:
    int m_Descriptor = -1;
    std::size_t m_Size = 0;
};

#endif
