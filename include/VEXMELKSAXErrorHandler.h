// Shows each problem that the parser finds in a configuration file in a modal message box: the parser's message, then
// "(line: L, column: C)" on a line of its own.
#ifndef VEXMELKSAXErrorHandler_H
#define VEXMELKSAXErrorHandler_H

#include "CATISAX.h"
#include "VEXMELKConfigurationExport.h"

// All three operations return success: the parser decides whether it goes on.
class ExportedByVEXMELKConfiguration VEXMELKSAXErrorHandler : public CATSAXHandlerBase
{
public:
    const char* IsA() const override { return "VEXMELKSAXErrorHandler"; }
    CATResult Warning(const CATSAXParseException* exception) override;
    CATResult Error(const CATSAXParseException* exception) override;
    CATResult FatalError(const CATSAXParseException* exception) override;
};

// The component's interface, with one reference, the caller's.
ExportedByVEXMELKConfiguration CATISAXErrorHandler* CreateTIECATISAXErrorHandlerVEXMELKSAXErrorHandler(
    VEXMELKSAXErrorHandler* component);

#endif
