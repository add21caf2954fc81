// The administration settings: where the application finds its configuration.
//
// A settings object is asked by the thread that needs a setting, so by several at once when several threads ask. One
// that reads the environment needs it to stay as it is while they do.
#ifndef VEXMELKGetAdminAccess_H
#define VEXMELKGetAdminAccess_H

#include "CATBaseUnknown.h"
#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

class VEXIMELKAccessAdminAttr
{
public:
    virtual ~VEXIMELKAccessAdminAttr() = default;
    // The configuration directory of normal mode. Fails, with the output untouched, when it is not set.
    virtual CATResult GetConfigurationDirectory(CATString& directory) const = 0;
    // The directory of test runs, empty when there is none.
    virtual CATUnicodeString GetTestPath() const = 0;
    // Where the base-data database lies, and its user.
    virtual CATResult GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user) const = 0;
};

class ExportedByVEXMELKConfiguration VEXMELKGetAdminAccess
{
public:
    // The settings object; null when the host says that there is none. Without a host's word it is an object that
    // reads the environment: MELK_CFG_PATH, MELK_TEST_PATH, MELK_BASEDATA_DB and MELK_BASEDATA_DB_USER, where a
    // variable that is empty counts as not set.
    static const VEXIMELKAccessAdminAttr* VEXMELKGetAdminAccessAttr();

    // Puts the host's object, or null, in the place of the default. The caller keeps ownership; a query of another
    // thread that runs meanwhile may still ask the one before.
    static void ReplaceAccessAttr(const VEXIMELKAccessAdminAttr* access);
    static void Reset();
};

#endif
