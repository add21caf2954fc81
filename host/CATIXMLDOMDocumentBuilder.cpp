// The host's side of the parser: options, handlers and results. The parsing itself is in document/parsing.
#include "CATIXMLDOMDocumentBuilder.h"

#include "CATFiles.h"
#include "CATPath.h"
#include "CATXMLParse.h"
#include "CATXMLPlainReader.h"

#include <new>
#include <utility>

namespace {

constexpr std::string_view validationOption = "CATDoValidation";
constexpr std::string_view directoryOption = "CATDocumentTypeDirectory";

bool AreSupported(const CATListValCATUnicodeString& names, const CATListValCATUnicodeString& values)
{
    for (int option = 1; option <= names.Size(); ++option)
        if (option > values.Size() ||
            (names[option] != directoryOption && (names[option] != validationOption || values[option] != "false")))
            return false;
    return true;
}

std::string DocumentTypeDirectory(
    const CATUnicodeString& path, const CATListValCATUnicodeString& names, const CATListValCATUnicodeString& values)
{
    const int option = names.Locate(CATUnicodeString(directoryOption));
    return option > 0 ? values[option].ConvertToChar() : CATFolderOfFile(path.ConvertToChar());
}

// Passes what a parse tells on to the handlers, which may be null.
class Listener final : public CATXMLParseListener
{
public:
    Listener(const CATISAXErrorHandler_var& errorHandler, const CATISAXEntityResolver_var& entityResolver)
        : m_ErrorHandler(errorHandler), m_EntityResolver(entityResolver)
    {
    }

    void OnWarning(const Problem& problem) override
    {
        if (m_ErrorHandler == NULL_var)
            return;
        const CATSAXParseException warning = ExceptionOf(problem);
        m_ErrorHandler->Warning(&warning);
    }

    void OnFailure(const Problem& problem) override
    {
        if (m_ErrorHandler == NULL_var)
            return;
        const CATSAXParseException failure = FailureOf(problem);
        m_ErrorHandler->FatalError(&failure);
    }

    std::optional<Source> FindExternal(const char* publicId, const char* systemId) override
    {
        CATISAXInputSource_var source;
        if (m_EntityResolver == NULL_var || FAILED(m_EntityResolver->ResolveEntity(publicId, systemId, source)) ||
            source == NULL_var || !CATMayBeFile(source->GetPath()))
            return std::nullopt;
        return Source{source->GetPath().ConvertToChar(), source->GetEncoding().ConvertToChar()};
    }

private:
    static CATSAXParseException ExceptionOf(const Problem& problem)
    {
        return {CATUnicodeString(problem.message), problem.line, problem.column};
    }
    static CATSAXParseException FailureOf(const Problem& problem)
    {
        try
        {
            return ExceptionOf(problem);
        }
        catch (const std::bad_alloc&)
        {
            return {"out of memory", problem.line, problem.column}; // short enough to need no memory itself
        }
    }

    CATISAXErrorHandler_var m_ErrorHandler;
    CATISAXEntityResolver_var m_EntityResolver;
};

// Bytes that are read as a file is.
class Memory
{
public:
    explicit Memory(std::string_view bytes) : m_Bytes(bytes) {}
    std::size_t Size() const { return m_Bytes.size(); }
    long Read(void* buffer, std::size_t size)
    {
        const std::size_t piece = m_Bytes.copy(static_cast<char*>(buffer), size, m_Place);
        m_Place += piece;
        return static_cast<long>(piece);
    }
    void Rewind() { m_Place = 0; }

private:
    std::string_view m_Bytes;
    std::size_t m_Place = 0;
};

// Most documents are plain. Of all others, CATXMLParse decides what they are.
template <class Source>
CATResult Read(Source& source, std::string path, std::string documentTypeDirectory, Listener& listener,
    CATIDOMDocument_var& document)
{
    const auto read = [&](void* buffer, std::size_t size) { return source.Read(buffer, size); };
    std::unique_ptr<const CATXMLDocument> parsed = CATReadPlainXML(read, source.Size());
    if (!parsed)
    {
        source.Rewind();
        parsed = CATXMLParse(std::move(path), std::move(documentTypeDirectory), listener).Run(read, source.Size());
    }
    if (!parsed)
        return E_FAIL;
    document = CATIDOMDocument::Adopt(parsed.release());
    return S_OK;
}

} // namespace

void CATIXMLDOMDocumentBuilder::GetSupportedOptions(CATListValCATUnicodeString& names) const
{
    names.RemoveAll();
    names.Append(CATUnicodeString(validationOption));
    names.Append(CATUnicodeString(directoryOption));
}

CATResult CATIXMLDOMDocumentBuilder::Parse(const CATUnicodeString& path, const CATListValCATUnicodeString& optionNames,
    const CATListValCATUnicodeString& optionValues, const CATISAXErrorHandler_var& errorHandler,
    const CATISAXEntityResolver_var& entityResolver, CATIDOMDocument_var& document) const
{
    document = NULL_var;
    if (!AreSupported(optionNames, optionValues))
        return E_FAIL;
    CATInputFile file(path.ConvertToChar());
    Listener listener(errorHandler, entityResolver);
    std::string documentTypeDirectory = DocumentTypeDirectory(path, optionNames, optionValues);
    if (file.IsOpen())
        return Read(file, path.ConvertToChar(), std::move(documentTypeDirectory), listener, document);
    CATXMLParse(path.ConvertToChar(), std::move(documentTypeDirectory), listener).Refuse(file.Reason());
    return E_FAIL;
}

CATResult CATIXMLDOMDocumentBuilder::ParseMemory(
    std::string_view bytes, const CATISAXErrorHandler_var& errorHandler, CATIDOMDocument_var& document) const
{
    document = NULL_var;
    Memory memory(bytes);
    Listener listener(errorHandler, NULL_var);
    return Read(memory, "", CATFolderOfFile(""), listener, document);
}

const char* CATIXMLDOMDocumentBuilder::GetParserVersion() { return XML_ExpatVersion(); }

CATResult CreateCATIXMLDOMDocumentBuilder(CATIXMLDOMDocumentBuilder_var& builder, CATDOMClassId /*classId*/)
{
    builder = CATIXMLDOMDocumentBuilder_var::Adopt(new (std::nothrow) CATIXMLDOMDocumentBuilder);
    return builder == NULL_var ? E_FAIL : S_OK;
}

CATResult CreateCATIXMLSAXFactory(CATIXMLSAXFactory_var& factory, CATSAXClassId /*classId*/)
{
    factory = CATIXMLSAXFactory_var::Adopt(new (std::nothrow) CATIXMLSAXFactory);
    return factory == NULL_var ? E_FAIL : S_OK;
}

CATResult CATIXMLSAXFactory::CreateInputSourceFromFile(
    const CATUnicodeString& path, const CATUnicodeString& encoding, CATISAXInputSource_var& source) const
{
    source = CATISAXInputSource_var::Create(path, encoding);
    return S_OK;
}
