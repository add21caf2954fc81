// Finds the one document type that all files share, in the configuration directory. All others are left to the parser.
#include "VEXMELKXMLEntityResolver.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKConfigManager.h"

namespace {

constexpr const char* sharedDocumentType = "basedata.dtd";

const CATExternalComponent entityResolverRegistration(
    "VEXMELKXMLEntityResolver", []() -> CATBaseUnknown* { return new VEXMELKXMLEntityResolver; });

} // namespace

CATResult VEXMELKXMLEntityResolver::ResolveEntity(
    const CATUnicodeString& /*publicId*/, const CATUnicodeString& systemId, CATISAXInputSource_var& source)
{
    source = NULL_var;
    if (systemId != sharedDocumentType)
        return E_FAIL;
    return OrElse<CATResult>(E_FAIL,
        [&]() -> CATResult
        {
            CATIXMLSAXFactory_var factory;
            const CATResult created = CreateCATIXMLSAXFactory(factory, CLSID_XML4C_SAX);
            if (FAILED(created))
                return created;

            CATUnicodeString directory;
            VEXMELKConfigManager* manager = VEXMELKConfigManager::GetConfigManager();
            if (!manager)
                return E_FAIL;
            manager->GetCFGDir(directory);
            return factory->CreateInputSourceFromFile(directory + "\\" + sharedDocumentType, "", source);
        });
}

CATISAXEntityResolver* CreateTIECATISAXEntityResolverVEXMELKXMLEntityResolver(VEXMELKXMLEntityResolver* component)
{
    return new CATTieSAXEntityResolver<VEXMELKXMLEntityResolver>(component);
}
