// Supplies the one document type definition that configuration files may refer to, "basedata.dtd", from the
// configuration directory of normal mode.
#ifndef VEXMELKXMLEntityResolver_H
#define VEXMELKXMLEntityResolver_H

#include "CATISAX.h"
#include "VEXMELKConfigurationExport.h"

class ExportedByVEXMELKConfiguration VEXMELKXMLEntityResolver : public CATBaseUnknown
{
public:
    const char* IsA() const override { return "VEXMELKXMLEntityResolver"; }

    // Delivers the file for the system identifier "basedata.dtd", in exactly that letter case. For any other one the
    // result is E_FAIL and the source null: the parser then resolves the entity itself. The public identifier is not
    // looked at.
    CATResult ResolveEntity(
        const CATUnicodeString& publicId, const CATUnicodeString& systemId, CATISAXInputSource_var& source);
};

// The component's interface, with one reference, the caller's.
ExportedByVEXMELKConfiguration CATISAXEntityResolver* CreateTIECATISAXEntityResolverVEXMELKXMLEntityResolver(
    VEXMELKXMLEntityResolver* component);

#endif
