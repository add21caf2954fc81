// One parse: feeds the bytes of one document to Expat and writes the document from its events.
#ifndef CATXMLParse_H
#define CATXMLParse_H

#include "CATXMLDocumentWriter.h"
#include "CATXMLEntities.h"

#include <expat.h>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class CATInputFile;

enum class CATXMLByteOrderMark
{
    None,
    UTF8,
    UTF16
};

// Whom a parse tells of problems, and asks where document type definitions lie.
class CATXMLParseListener
{
public:
    struct Problem
    {
        std::string message;
        int line; // from 1, as is the column
        int column;
    };
    struct Source
    {
        std::string path;
        std::string encoding; // empty when the file tells it
    };

    virtual ~CATXMLParseListener() = default;
    virtual void OnWarning(const Problem& problem) = 0;
    // Once at most: the parse gives no document. Throws nothing.
    virtual void OnFailure(const Problem& problem) = 0;
    // Where an external file lies; nothing leaves it to the parse.
    virtual std::optional<Source> FindExternal(const char* publicId, const char* systemId) = 0;
};

class CATXMLParse
{
public:
    // Document type definitions are read from the directory. The listener has to live as long as the parse.
    CATXMLParse(std::string path, std::string documentTypeDirectory, CATXMLParseListener& listener);

    // Gives the next bytes of the document: how many it wrote, 0 at the end, -1 with errno set on a failure.
    using Reader = std::function<long(void* buffer, std::size_t size)>;

    // The document, or null after the listener has heard of the failure.
    std::unique_ptr<const CATXMLDocument> Run(const Reader& reader, std::size_t expectedBytes);
    // In place of Run, for a document that cannot be read: tells the listener of the failure.
    void Refuse(const char* reason);

private:
    struct ParserDeleter
    {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };
    using ParserOwner = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter>;

    void SetHandlers();
    void Feed(const Reader& reader, std::size_t expectedBytes);
    std::size_t Fill(const Reader& reader, char* buffer, std::size_t size);
    void FailToRead(const char* reason);
    void CheckParsed(XML_Status status);
    void Report() const;

    // Records the first failure, at the parser's position, and stops the parse.
    struct Place
    {
        int line;
        int column;
    };
    Place Here() const;
    std::string InFile(const std::string& message) const;
    void Fail(const std::string& message) { FailAt(Here(), message); }
    void FailAt(Place place, const std::string& message);
    void FailForMemory();

    template <auto Event, class... Arguments> static void Guarded(void* self, Arguments... arguments);
    void OnStartElement(const XML_Char* tag, const XML_Char** attributes);
    void OnEndElement(const XML_Char* tag);
    void OnText(const XML_Char* text, int length);
    void OnComment(const XML_Char* text);
    void OnInstruction(const XML_Char* target, const XML_Char* data);
    void OnStartCData();
    void OnEndCData();
    void OnXmlDeclaration(const XML_Char* version, const XML_Char* encoding, int standalone);
    void OnStartDoctype(const XML_Char* name, const XML_Char* systemId, const XML_Char* publicId, int internalSubset);
    void OnEndDoctype();
    void OnEntityDeclaration(const XML_Char* name, int isParameter, const XML_Char* value, int length,
        const XML_Char* base, const XML_Char* systemId, const XML_Char* publicId, const XML_Char* notation);
    void OnMarkup(const XML_Char* markup, int length);
    void OnSkippedEntity(const XML_Char* name, int isParameter);
    static int OnExternalEntity(XML_Parser self, const XML_Char* context, const XML_Char* base,
        const XML_Char* systemId, const XML_Char* publicId);
    static int OnUnknownEncoding(void* self, const XML_Char* name, XML_Encoding* encoding);

    // Fail when the source of the current event, or a piece of markup, refers to an entity that is not declared.
    void CheckReferences(Place place);
    void CheckReferencesIn(std::string_view markup, Place place);
    void CheckDeclaredAttributes(std::string_view token);
    void CheckGrowth();

    struct External
    {
        std::string path;
        std::string encoding;
        std::string bytes;
    };
    class ExternalScope;
    void ReadExternalSubset(const XML_Char* base, const XML_Char* systemId, const XML_Char* publicId);
    bool IsInEntityValue() const;
    std::optional<External> FindExternal(const XML_Char* base, const XML_Char* systemId, const XML_Char* publicId);
    std::optional<External> ReadExternal(CATInputFile& file, std::string path, std::string encoding);
    void Warn(const char* message);
    void ParseExternal(const External& external);

    std::string m_Path;
    std::string m_DocumentTypeDirectory;
    CATXMLParseListener& m_Listener;
    ParserOwner m_Root;
    XML_Parser m_Parser = nullptr; // the one whose events are coming in: the document's or an external subset's
    int m_ExternalNumber = 0;      // of the external file that they come from, 0 for the document
    CATXMLByteOrderMark m_Mark = CATXMLByteOrderMark::None; // of the document or that file
    CATXMLDocumentWriter m_Writer;
    CATXMLEntities m_Entities;
    std::optional<CATXMLParseListener::Problem> m_Failure;
    std::set<std::string> m_MissingExternals;
    std::string m_Markup;
    CATXMLNames m_DeclaredElements;                            // those with declared attributes
    std::vector<int> m_DeclaredAttributes;                     // how many, by the symbol of the element
    CATXMLNames::Symbol m_DeclaredElement = CATXMLNames::none; // the one of the declaration at hand
    std::size_t m_DefaultedNames = 0; // bytes of the names of attributes that defaults have added
    std::size_t m_BytesRead = 0;
    int m_Depth = 0;
    int m_ExternalFiles = 0;
    int m_ExternalDepth = 0;
    bool m_InDoctype = false;
    bool m_HasDoctype = false;
    bool m_CollectsMarkup = false;
    bool m_InAttributeDeclaration = false;
};

#endif
