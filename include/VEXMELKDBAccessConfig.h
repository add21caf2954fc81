// VEXMELKDBAccessConfig: how the result database is reached, from "DBAccess.xml" in the configuration directory itself;
// the folders "Default" and "Customer" play no part.
//
//     <dbaccess host="..." user="..." password="..." db_name="..."/>
#ifndef VEXMELKDBAccessConfig_H
#define VEXMELKDBAccessConfig_H

#include "VEXMELKConfig.h"

class ExportedByVEXMELKConfiguration VEXMELKDBAccessConfig : public VEXMELKConfig
{
public:
    static const VEXMELKDescription description;

    explicit VEXMELKDBAccessConfig(const CATUnicodeString& configurationDirectory);

    // The parameters as texts; a missing one is empty. The file is read afresh by each query. False, with the outputs
    // untouched, when it does not load.
    // The password is a secret: the library never logs or shows it, and neither should the caller.
    unsigned char GetDBAccessParameters(
        CATUnicodeString& host, CATUnicodeString& user, CATUnicodeString& password, CATUnicodeString& dbName);
};

#endif
