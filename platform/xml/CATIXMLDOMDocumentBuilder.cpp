#include "CATIXMLDOMDocumentBuilder.h"

#include "CATPath.h"
#include "CATXMLParse.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr std::string_view validationOption = "CATDoValidation";

bool AreSupported(const CATListValCATUnicodeString& names, const CATListValCATUnicodeString& values)
{
    for (int option = 1; option <= names.Size(); ++option)
        if (names[option] != validationOption || option > values.Size() || values[option] != "false")
            return false;
    return true;
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
}

CATResult CATIXMLDOMDocumentBuilder::Parse(const CATUnicodeString& path, const CATListValCATUnicodeString& optionNames,
    const CATListValCATUnicodeString& optionValues, const CATISAXErrorHandler_var& errorHandler,
    const CATISAXEntityResolver_var& entityResolver, CATIDOMDocument_var& document) const
{
    document = NULL_var;
    CATInputFile file(path);
    if (!AreSupported(optionNames, optionValues) || !file.IsOpen())
        return E_FAIL;
    CATXMLParse parse(path, errorHandler, entityResolver);
    return Finish(
        parse, [&](void* buffer, std::size_t size) { return file.Read(buffer, size); }, file.Size(), document);
}

CATResult CATIXMLDOMDocumentBuilder::ParseMemory(
    std::string_view bytes, const CATISAXErrorHandler_var& errorHandler, CATIDOMDocument_var& document) const
{
    document = NULL_var;
    CATXMLParse parse("", errorHandler, NULL_var);
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
