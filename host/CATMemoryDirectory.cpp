// The files of directories in memory. Each directory has a path of its own, so that several may live at once.
#include "CATMemoryDirectory.h"

#include "CATFiles.h"

#include <atomic>

CATMemoryDirectory::CATMemoryDirectory()
{
    static std::atomic<int> count = 0;
    m_Path = CATUnicodeString(CATMemoryFiles::firstCharacter + std::to_string(++count));
}

CATMemoryDirectory::~CATMemoryDirectory() { CATMemoryFiles::RemoveBelow(m_Path.ConvertToChar()); }

void CATMemoryDirectory::Write(const std::string& name, std::string bytes)
{
    CATMemoryFiles::Write(m_Path.ConvertToChar() + ("/" + CATSystemPath(name)), std::move(bytes));
}
