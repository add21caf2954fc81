#include "CATPath.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

CATUnicodeString SystemPath(CATUnicodeString path)
{
    path.ReplaceAll('\\', '/');
    return path;
}

} // namespace

CATUnicodeString CATMakePath(const CATUnicodeString& directory, const CATUnicodeString& name)
{
    return directory.IsEmpty() ? name : directory + "\\" + name;
}

bool CATIsRegularFile(const CATUnicodeString& path)
{
    struct stat status = {};
    return stat(SystemPath(path).ConvertToChar(), &status) == 0 && S_ISREG(status.st_mode);
}

CATInputFile::CATInputFile(const CATUnicodeString& path)
    // Without O_NONBLOCK, opening a named pipe would wait for its writer.
    : m_Descriptor(open(SystemPath(path).ConvertToChar(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    struct stat status = {};
    if (IsOpen() && fstat(m_Descriptor, &status) == 0 && S_ISREG(status.st_mode))
        m_Size = static_cast<std::size_t>(status.st_size);
    else if (IsOpen())
        close(std::exchange(m_Descriptor, -1));
}

CATInputFile::~CATInputFile()
{
    if (IsOpen())
        close(m_Descriptor);
}

// NOLINTNEXTLINE(readability-make-member-function-const): it moves on in the file
long CATInputFile::Read(void* buffer, std::size_t size)
{
    ssize_t read = 0;
    do
        read = ::read(m_Descriptor, buffer, size);
    while (read < 0 && errno == EINTR);
    return read;
}
