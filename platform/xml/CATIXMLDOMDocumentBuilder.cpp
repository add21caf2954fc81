#include "CATIXMLDOMDocumentBuilder.h"

#include "CATPath.h"
#include "CATXMLParse.h"

#include <algorithm>
#include <cstring>
#include <new>

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

CATUnicodeString DocumentTypeDirectory(
    const CATUnicodeString& path, const CATListValCATUnicodeString& names, const CATListValCATUnicodeString& values)
{
    const int option = names.Locate(CATUnicodeString(directoryOption));
    return option > 0 ? values[option] : CATFolderOf(path);
}

CATResult Finish(
    CATXMLParse& parse, const CATXMLParse::Reader& reader, std::size_t bytes, CATIDOMDocument_var& document)
{
    std::unique_ptr<const CATXMLDocument> parsed = parse.Run(reader, bytes);
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
    CATInputFile file(path);
    CATXMLParse parse(path, DocumentTypeDirectory(path, optionNames, optionValues), errorHandler, entityResolver);
    if (file.IsOpen())
        return Finish(
            parse, [&](void* buffer, std::size_t size) { return file.Read(buffer, size); }, file.Size(), document);
    parse.Refuse(file.Reason());
    return E_FAIL;
}

CATResult CATIXMLDOMDocumentBuilder::ParseMemory(
    std::string_view bytes, const CATISAXErrorHandler_var& errorHandler, CATIDOMDocument_var& document) const
{
    document = NULL_var;
    CATXMLParse parse("", CATFolderOf(""), errorHandler, NULL_var);
    const auto read = [&](void* buffer, std::size_t size)
    {
        const std::size_t piece = std::min(size, bytes.size());
        std::copy_n(bytes.data(), piece, static_cast<char*>(buffer));
        bytes.remove_prefix(piece);
        return static_cast<long>(piece);
    };
    return Finish(parse, read, bytes.size(), document);
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
