#include "VEXMELKDBAccessConfig.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKField.h"

VEXMELKDBAccessConfig::VEXMELKDBAccessConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKConfig(configurationDirectory, "DBAccess.xml")
{
}

unsigned char VEXMELKDBAccessConfig::GetDBAccessParameters(
    CATUnicodeString& host, CATUnicodeString& user, CATUnicodeString& password, CATUnicodeString& dbName)
{
    return Answer(
        [&]() -> unsigned char
        {
            CATIDOMElement_var root;
            if (!GetRootDOMElement(root))
                return 0;
            ReadFields(root, NULL_var,
                {
                    {"host", "", host},
                    {"user", "", user},
                    {"password", "", password},
                    {"db_name", "", dbName},
                });
            return 1;
        });
}
