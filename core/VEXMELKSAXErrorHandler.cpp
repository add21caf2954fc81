// Shows what the parser reports as a message box. A warning leaves the document as it is.
#include "VEXMELKSAXErrorHandler.h"

#include "VEXMELKAnswer.h"
#include "VEXMELKGUI.h"
#include "VEXMELKUtilities.h"

namespace {

const CATExternalComponent errorHandlerRegistration(
    "VEXMELKSAXErrorHandler", []() -> CATBaseUnknown* { return new VEXMELKSAXErrorHandler; });

CATUnicodeString MessageText(const CATSAXParseException* exception)
{
    if (!exception)
        return {};
    CATUnicodeString line;
    CATUnicodeString column;
    line.BuildFromNum(exception->GetLineNumber());
    column.BuildFromNum(exception->GetColumnNumber());
    return exception->GetMessage() + "\n" + "(line: " + line + ", column: " + column + ")";
}

} // namespace

CATResult VEXMELKSAXErrorHandler::Warning(const CATSAXParseException* exception)
{
    return OrElse<CATResult>(E_FAIL,
        [&]
        {
            VEXMELKGUI::ShowWarning(
                MessageText(exception), VEXMELKUtilities::GetNLSMessage("ParseWarning.Title"), 0, nullptr);
            return S_OK;
        });
}

CATResult VEXMELKSAXErrorHandler::Error(const CATSAXParseException* exception)
{
    return OrElse<CATResult>(E_FAIL,
        [&]
        {
            VEXMELKGUI::ShowError(MessageText(exception), "MELK CFG: SAX Parse Error", 0, nullptr);
            return S_OK;
        });
}

CATResult VEXMELKSAXErrorHandler::FatalError(const CATSAXParseException* exception)
{
    return OrElse<CATResult>(E_FAIL,
        [&]
        {
            VEXMELKGUI::ShowError(MessageText(exception), "MELK CFG: Parse Fatal Error", 0, nullptr);
            return S_OK;
        });
}

CATISAXErrorHandler* CreateTIECATISAXErrorHandlerVEXMELKSAXErrorHandler(VEXMELKSAXErrorHandler* component)
{
    return new CATTieSAXErrorHandler<VEXMELKSAXErrorHandler>(component);
}
