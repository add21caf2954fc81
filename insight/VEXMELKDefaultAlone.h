// The Default files of a directory without its Customer files, as a directory of their own.
#ifndef VEXMELKDefaultAlone_H
#define VEXMELKDefaultAlone_H

#include "CATMemoryDirectory.h"

class VEXMELKDefaultAlone
{
public:
    explicit VEXMELKDefaultAlone(const CATUnicodeString& directory);

    const CATUnicodeString& Path() const { return m_Directory.Path(); }
    // Whether there are Customer files that are missing here.
    bool IsLess() const { return m_IsLess; }

private:
    CATMemoryDirectory m_Directory;
    bool m_IsLess = false;
};

#endif
