// The parser: reads XML files into documents.
//
// It reports a document that is not well formed through FatalError, once, and gives no document. It does not validate.
// Nothing is lost silently: a reference to an entity that is external, not declared, or declared only where the parser
// could not look makes the document fail. External document type definitions are read from what the entity resolver
// delivers, or else from a file whose path is relative to the document; where that cannot be had, one Warning says so
// and the document is read without it. Nothing is ever fetched from an absolute path, an address or a network.
#ifndef CATIXMLDOMDocumentBuilder_H
#define CATIXMLDOMDocumentBuilder_H

#include "CATIDOM.h"
#include "CATISAX.h"
#include "CATListOf.h"

// Bounds of a document. Past any of them it fails with a FatalError.
struct CATXMLBounds
{
    static constexpr std::size_t documentBytes = std::size_t{128} << 20U; // of a document and its external files
    static constexpr int elementDepth = 10000;
    static constexpr int entityDepth = 64; // entities that refer to entities
    static constexpr int externalFiles = 32;
    static constexpr int externalDepth = 8; // external files that name external files
    // A document may grow to this much by expanding entities and attribute defaults, and past that to this many times
    // the size of its files.
    static constexpr std::size_t expandedBytes = std::size_t{8} << 20U;
    static constexpr std::size_t expandedFactor = 100;
    static constexpr std::size_t expandedBytesAtMost = std::size_t{2} << 30U;
};

enum CATDOMClassId
{
    CLSID_XML4C_DOM
};

class CATIXMLDOMDocumentBuilder : public CATBaseUnknown
{
public:
    // The names of the options that Parse takes: "CATDoValidation".
    void GetSupportedOptions(CATListValCATUnicodeString& names) const;

    // Parses the file into a document. The lists give the options' names and values in parallel; "CATDoValidation"
    // takes "false". The handlers may be null. On failure the result is negative and the document null.
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

CATResult CreateCATIXMLDOMDocumentBuilder(CATIXMLDOMDocumentBuilder_var& builder, CATDOMClassId classId);

#endif
