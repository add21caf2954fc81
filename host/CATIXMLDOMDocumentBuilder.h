// The parser: reads XML files into documents.
//
// It reports a document that is not well formed through FatalError, once, and gives no document. It does not validate.
// Nothing is lost silently: a reference to an entity that is external, not declared, or declared only where the parser
// could not look makes the document fail. No message holds a text of a file, be it the name of an entity or of a file.
//
// External document type definitions are read from what the entity resolver delivers, or else from a file whose path is
// relative to the document, when that file lies in the directory for document types, links and ".." followed. Where
// there is none, one Warning says so and the document is read without it; one that cannot be read makes the document
// fail. Such files hold declarations: a reference to one inside an entity's value makes the document fail too. Nothing
// is ever fetched from an absolute path, an address or a network. The environment variable MELK_NO_EXTERNAL_DTD, set to
// any text, turns these files off, those of a resolver too: a Warning says so, and the document is read without them.
#ifndef CATIXMLDOMDocumentBuilder_H
#define CATIXMLDOMDocumentBuilder_H

#include "CATIDOM.h"
#include "CATISAX.h"
#include "CATListOf.h"
#include "CATXMLBounds.h"
#include "VEXMELKConfigurationExport.h"

enum CATDOMClassId
{
    CLSID_XML4C_DOM
};

class ExportedByVEXMELKConfiguration CATIXMLDOMDocumentBuilder : public CATBaseUnknown
{
public:
    // The names of the options that Parse takes: "CATDoValidation" and "CATDocumentTypeDirectory".
    void GetSupportedOptions(CATListValCATUnicodeString& names) const;

    // Parses the file into a document. The lists give the options' names and values in parallel. "CATDoValidation"
    // takes "false"; "CATDocumentTypeDirectory" takes the directory that document type definitions are read from, at
    // any depth; without it that is the folder of the document. The handlers may be null. On failure the result is
    // negative, the document null, and FatalError has been told, except of options that are not supported.
    CATResult Parse(const CATUnicodeString& path, const CATListValCATUnicodeString& optionNames,
        const CATListValCATUnicodeString& optionValues, const CATISAXErrorHandler_var& errorHandler,
        const CATISAXEntityResolver_var& entityResolver, CATIDOMDocument_var& document) const;

    // The same for a document in memory; its relative paths start in the current directory.
    CATResult ParseMemory(
        std::string_view bytes, const CATISAXErrorHandler_var& errorHandler, CATIDOMDocument_var& document) const;

    // Name and version of the parser underneath.
    static const char* GetParserVersion();
};
using CATIXMLDOMDocumentBuilder_var = CATHandle<CATIXMLDOMDocumentBuilder>;

ExportedByVEXMELKConfiguration CATResult CreateCATIXMLDOMDocumentBuilder(
    CATIXMLDOMDocumentBuilder_var& builder, CATDOMClassId classId);

#endif
