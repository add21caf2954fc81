// Paths, as messages show them: formed with "\".
#ifndef CATPath_H
#define CATPath_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

// Joins directory and name with one "\"; an empty directory gives the name alone.
ExportedByVEXMELKConfiguration CATUnicodeString CATMakePath(
    const CATUnicodeString& directory, const CATUnicodeString& name);

// False only for what certainly is no file: no such name in a folder that can be searched, or a name of something else
// (a folder, a pipe, a device). True where that cannot be told: the folder may not be searched, or a link on the way
// leads nowhere or in a circle.
ExportedByVEXMELKConfiguration bool CATMayBeFile(const CATUnicodeString& path);

#endif
