// How the result database is reached. The file always lies in the directory itself, and is read anew with every
// question: a change counts at once, and no password is kept.
#include "VEXMELKDBAccessConfig.h"

#include "VEXMELKReader.h"

namespace {

constexpr const char* parameterMeaning = "connection parameters: texts, exactly as written";
constexpr VEXMELKOutputTable<CATUnicodeString, CATUnicodeString, CATUnicodeString, CATUnicodeString> table{
    Text("host", parameterMeaning, AsWritten()),
    Text("user", parameterMeaning, AsWritten()),
    Text("password", parameterMeaning, AsWritten(), Secret()),
    Text("db_name", parameterMeaning, AsWritten(), Fills{"dbName"}),
};
constexpr VEXMELKElement root{.tag = "*", .tables = {table.rows}, .meaning = "the root"};
constexpr const VEXMELKElement* elements[] = {&root};

} // namespace

static constexpr VEXMELKOperation operations[] = {
    VEXMELKDescribe<&VEXMELKDBAccessConfig::GetDBAccessParameters>("GetDBAccessParameters", table),
};

constinit const VEXMELKDescription VEXMELKDBAccessConfig::description{
    .name = "DBAccess",
    .file = "DBAccess.xml",
    .meaning = "How the result database is reached.",
    .elements = elements,
    .operations = operations,
    .base = &VEXMELKConfig::description,
    .layout = VEXMELKLayout::Single,
    .root = "dbaccess",
};

VEXMELKDBAccessConfig::VEXMELKDBAccessConfig(const CATUnicodeString& configurationDirectory)
    : VEXMELKConfig(configurationDirectory, description.file)
{
}

unsigned char VEXMELKDBAccessConfig::GetDBAccessParameters(
    CATUnicodeString& host, CATUnicodeString& user, CATUnicodeString& password, CATUnicodeString& dbName)
{
    return Answer(*this,
        [&]() -> unsigned char
        {
            CATIDOMElement_var element;
            if (!GetRootDOMElement(element))
                return 0;
            if (HasAttributes(element))
                ReadFields(Decimals(), element, table, host, user, password, dbName);
            return 1;
        });
}
