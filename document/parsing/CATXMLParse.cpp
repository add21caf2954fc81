// XML_DTD makes the parser's header declare what the parser itself is built with.
#define XML_DTD

#include "CATXMLParse.h"

#include "CATEnvironment.h"
#include "CATFiles.h"
#include "CATNumberText.h"
#include "CATXMLBounds.h"
#include "CATXMLEncoding.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

namespace {

// Without the entity's name: it may be a piece of a secret that stands in the document.
constexpr const char* undeclaredEntity = "reference to an entity that is not declared";
constexpr std::size_t pieceBytes = std::size_t{64} << 10U;

constexpr const char* documentTypesOff = "MELK_NO_EXTERNAL_DTD";

CATXMLByteOrderMark MarkOf(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return CATXMLByteOrderMark::UTF8;
    const bool isUTF16 = bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE");
    return isUTF16 ? CATXMLByteOrderMark::UTF16 : CATXMLByteOrderMark::None;
}

bool AreDocumentTypesOff() { return !CATEnvironmentVariable(documentTypesOff).empty(); }

// Absolute paths and addresses are not followed.
bool IsRelativePath(std::string_view systemId)
{
    if (systemId.empty() || systemId.front() == '/' || systemId.front() == '\\')
        return false;
    return systemId.substr(0, systemId.find_first_of("/\\")).find(':') == std::string_view::npos;
}

std::string Bound(std::size_t bound, const char* what) { return "more than " + std::to_string(bound) + " " + what; }

} // namespace

// The parser underneath must not see exceptions: whatever a handler throws becomes the failure of the parse.
template <auto Event, class... Arguments> void CATXMLParse::Guarded(void* self, Arguments... arguments)
{
    auto* parse = static_cast<CATXMLParse*>(self);
    if (parse->m_Failure)
        return;
    try
    {
        (parse->*Event)(arguments...);
    }
    catch (const std::bad_alloc&)
    {
        parse->FailForMemory();
    }
    catch (...)
    {
        parse->Fail("a handler of the document failed");
    }
}

// While it lives, events come from the parser of an external subset.
class CATXMLParse::ExternalScope
{
public:
    ExternalScope(CATXMLParse& parse, XML_Parser child, CATXMLByteOrderMark mark)
        : m_Parse(parse),
          m_Parent(std::exchange(parse.m_Parser, child)),
          m_Number(std::exchange(parse.m_ExternalNumber, parse.m_ExternalFiles)),
          m_Mark(std::exchange(parse.m_Mark, mark))
    {
        ++m_Parse.m_ExternalDepth;
    }
    ExternalScope(const ExternalScope&) = delete;
    ExternalScope& operator=(const ExternalScope&) = delete;
    ~ExternalScope()
    {
        --m_Parse.m_ExternalDepth;
        m_Parse.m_Parser = m_Parent;
        m_Parse.m_ExternalNumber = m_Number;
        m_Parse.m_Mark = m_Mark;
    }

private:
    CATXMLParse& m_Parse;
    XML_Parser m_Parent;
    int m_Number;
    CATXMLByteOrderMark m_Mark;
};

CATXMLParse::CATXMLParse(std::string path, std::string documentTypeDirectory, CATXMLParseListener& listener)
    : m_Path(std::move(path)),
      m_DocumentTypeDirectory(std::move(documentTypeDirectory)),
      m_Listener(listener),
      m_Root(XML_ParserCreate(nullptr)),
      m_Parser(m_Root.get())
{
    if (!m_Root)
        throw std::bad_alloc();
    SetHandlers();
}

void CATXMLParse::SetHandlers()
{
    using Self = CATXMLParse;
    XML_SetUserData(m_Parser, this);
    XML_SetBase(m_Parser, m_Path.c_str());
    XML_SetElementHandler(m_Parser, Guarded<&Self::OnStartElement>, Guarded<&Self::OnEndElement>);
    XML_SetCharacterDataHandler(m_Parser, Guarded<&Self::OnText>);
    XML_SetCommentHandler(m_Parser, Guarded<&Self::OnComment>);
    XML_SetProcessingInstructionHandler(m_Parser, Guarded<&Self::OnInstruction>);
    XML_SetCdataSectionHandler(m_Parser, Guarded<&Self::OnStartCData>, Guarded<&Self::OnEndCData>);
    XML_SetXmlDeclHandler(m_Parser, Guarded<&Self::OnXmlDeclaration>);
    XML_SetDoctypeDeclHandler(m_Parser, Guarded<&Self::OnStartDoctype>, Guarded<&Self::OnEndDoctype>);
    XML_SetEntityDeclHandler(m_Parser, Guarded<&Self::OnEntityDeclaration>);
    XML_SetSkippedEntityHandler(m_Parser, Guarded<&Self::OnSkippedEntity>);
    XML_SetUnknownEncodingHandler(m_Parser, OnUnknownEncoding, this);
    XML_SetExternalEntityRefHandler(m_Parser, OnExternalEntity);
    XML_SetExternalEntityRefHandlerArg(m_Parser, this);
    XML_SetParamEntityParsing(m_Parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
}

std::unique_ptr<const CATXMLDocument> CATXMLParse::Run(const Reader& reader, std::size_t expectedBytes)
{
    try
    {
        Feed(reader, expectedBytes);
        if (!m_Failure)
            return m_Writer.Finish();
    }
    catch (const std::bad_alloc&)
    {
        FailForMemory();
    }
    Report();
    return nullptr;
}

void CATXMLParse::Refuse(const char* reason)
{
    FailToRead(reason);
    Report();
}

void CATXMLParse::Report() const { m_Listener.OnFailure(*m_Failure); }

void CATXMLParse::Feed(const Reader& reader, std::size_t expectedBytes)
{
    if (expectedBytes > CATXMLBounds::documentBytes)
        return Fail(Bound(CATXMLBounds::documentBytes, "bytes in the document"));
    // One byte more than there should be, so that a document of one piece shows its end with it.
    std::size_t piece = std::min(pieceBytes, expectedBytes + 1);
    for (bool atEnd = false; !atEnd && !m_Failure;)
    {
        auto* buffer = static_cast<char*>(XML_GetBuffer(m_Parser, static_cast<int>(piece)));
        if (!buffer)
            throw std::bad_alloc();
        const bool isFirst = m_BytesRead == 0;
        const std::size_t read = Fill(reader, buffer, piece);
        if (m_Failure)
            return;
        atEnd = read < piece;
        if (isFirst)
            m_Mark = MarkOf({buffer, read});
        const XML_Index before = XML_GetCurrentByteIndex(m_Parser);
        CheckParsed(XML_ParseBuffer(m_Parser, static_cast<int>(read), atEnd ? XML_TRUE : XML_FALSE));
        // A single piece of markup larger than the buffer: larger steps keep the work linear.
        if (XML_GetCurrentByteIndex(m_Parser) == before)
            piece = std::min(piece * 2, CATXMLBounds::documentBytes);
    }
}

// Reads until the buffer is full or the file ends, and tells how many bytes that were.
std::size_t CATXMLParse::Fill(const Reader& reader, char* buffer, std::size_t size)
{
    std::size_t filled = 0;
    for (long read = 1; read > 0 && filled < size; filled += static_cast<std::size_t>(read))
    {
        read = reader(buffer + filled, size - filled);
        if (read < 0)
        {
            FailToRead(std::strerror(errno));
            break;
        }
    }
    m_BytesRead += filled;
    if (m_BytesRead > CATXMLBounds::documentBytes)
        Fail(Bound(CATXMLBounds::documentBytes, "bytes in the document"));
    return filled;
}

// The document is named: its path comes from whoever asks for it. That of an external file is a text of a document.
void CATXMLParse::FailToRead(const char* reason)
{
    const std::string name = m_ExternalDepth == 0 ? m_Path : "";
    Fail(name + (name.empty() ? "cannot be read: " : " cannot be read: ") + reason);
}

void CATXMLParse::CheckParsed(XML_Status status)
{
    if (status == XML_STATUS_ERROR)
        Fail(XML_ErrorString(XML_GetErrorCode(m_Parser)));
}

void CATXMLParse::FailAt(Place place, const std::string& message)
{
    if (m_Failure)
        return;
    m_Failure = {InFile(message), place.line, place.column};
    XML_StopParser(m_Parser, XML_FALSE);
}

// The text is short enough to need no memory itself.
void CATXMLParse::FailForMemory()
{
    if (!m_Failure)
    {
        const Place place = Here();
        m_Failure = {"out of memory", place.line, place.column};
    }
    XML_StopParser(m_Parser, XML_FALSE);
}

// An external file goes by its number, in the order in which they are read: its name is a text of a document.
std::string CATXMLParse::InFile(const std::string& message) const
{
    return m_ExternalNumber == 0 ? message : "external file " + std::to_string(m_ExternalNumber) + ": " + message;
}

CATXMLParse::Place CATXMLParse::Here() const
{
    const auto line = static_cast<int>(XML_GetCurrentLineNumber(m_Parser));
    const auto column = static_cast<int>(XML_GetCurrentColumnNumber(m_Parser)) + 1;
    // The parser underneath counts a byte-order mark as a character.
    const bool afterMark = m_Mark != CATXMLByteOrderMark::None && line == 1 && column > 1;
    return {line, afterMark ? column - 1 : column};
}

void CATXMLParse::OnStartElement(const XML_Char* tag, const XML_Char** attributes)
{
    const Place place = Here();
    if (++m_Depth > CATXMLBounds::elementDepth)
        return Fail(Bound(CATXMLBounds::elementDepth, "levels of nested elements"));
    if (m_HasDoctype)
    {
        CheckReferences(place);
        if (m_Failure)
            return;
    }
    m_Writer.StartElement(tag, attributes, place.line, place.column);
    if (m_HasDoctype)
        for (const XML_Char** name = attributes + XML_GetSpecifiedAttributeCount(m_Parser); *name; name += 2)
            m_DefaultedNames += std::strlen(*name);
    CheckGrowth();
}

void CATXMLParse::OnEndElement(const XML_Char* /*tag*/)
{
    --m_Depth;
    m_Writer.EndElement();
}

void CATXMLParse::OnText(const XML_Char* text, int length)
{
    m_Writer.AppendText({text, static_cast<std::size_t>(length)});
    CheckGrowth();
}

// Comments and instructions of the document type are no part of the document.
void CATXMLParse::OnComment(const XML_Char* text)
{
    if (!m_InDoctype)
        m_Writer.Comment(text);
}

void CATXMLParse::OnInstruction(const XML_Char* target, const XML_Char* data)
{
    if (!m_InDoctype)
        m_Writer.Instruction(target, data);
}

void CATXMLParse::OnStartCData() { m_Writer.StartCData(); }

void CATXMLParse::OnEndCData() { m_Writer.EndCData(); }

void CATXMLParse::OnXmlDeclaration(const XML_Char* version, const XML_Char* encoding, int /*standalone*/)
{
    if (encoding && m_Mark == CATXMLByteOrderMark::UTF8 && !CATXMLIsEncoding(encoding, "UTF-8"))
        Fail("the byte-order mark is that of another encoding than the declared one");
    if (version && std::string_view(version) != "1.0")
        Fail("only version 1.0 of XML is supported");
}

void CATXMLParse::OnStartDoctype(
    const XML_Char* /*name*/, const XML_Char* /*systemId*/, const XML_Char* /*publicId*/, int /*internalSubset*/)
{
    m_InDoctype = true;
    m_HasDoctype = true;
    XML_SetDefaultHandlerExpand(m_Parser, Guarded<&CATXMLParse::OnMarkup>);
}

void CATXMLParse::OnEndDoctype() { m_InDoctype = false; }

void CATXMLParse::OnEntityDeclaration(const XML_Char* name, int isParameter, const XML_Char* value, int length,
    const XML_Char* /*base*/, const XML_Char* /*systemId*/, const XML_Char* /*publicId*/, const XML_Char* /*notation*/)
{
    if (!value && isParameter == 0)
        m_Entities.DeclareExternal(name);
    else if (value &&
             !m_Entities.DeclareInternal(isParameter != 0 ? '%' : '&', name, {value, static_cast<std::size_t>(length)}))
        Fail(Bound(CATXMLBounds::entityDepth, "levels of nested entities"));
}

// Has the parser hand out the source of the current event, and looks where its references lead. The parser may then
// stand behind the event: "place" is where it begins.
void CATXMLParse::CheckReferences(Place place)
{
    m_Markup.clear();
    m_CollectsMarkup = true;
    XML_DefaultCurrent(m_Parser);
    m_CollectsMarkup = false;
    CheckReferencesIn(m_Markup, place);
}

void CATXMLParse::CheckReferencesIn(std::string_view markup, Place place)
{
    if (!m_Entities.AreDeclared(markup))
        FailAt(place, undeclaredEntity);
}

// Hears the source of events on request, and the tokens of the document type: among those, the defaults of attributes
// are looked at as they are declared, since later they are only seen expanded.
void CATXMLParse::OnMarkup(const XML_Char* markup, int length)
{
    const std::string_view token(markup, static_cast<std::size_t>(length));
    if (token == "<!ATTLIST" && m_InDoctype)
    {
        m_Markup.clear();
        m_InAttributeDeclaration = true;
        m_DeclaredElement = CATXMLNames::none;
    }
    else if (m_InAttributeDeclaration)
        CheckDeclaredAttributes(token);
    if (m_CollectsMarkup || m_InAttributeDeclaration)
        m_Markup += token;
    if (m_InAttributeDeclaration && token == ">")
    {
        m_InAttributeDeclaration = false;
        CheckReferencesIn(m_Markup, Here());
    }
}

// The parser underneath looks at all declared attributes of an element whenever the element comes.
void CATXMLParse::CheckDeclaredAttributes(std::string_view token)
{
    if (token.empty() || CATIsBlank(token.front()))
        return;
    if (m_DeclaredElement == CATXMLNames::none)
    {
        m_DeclaredElement = m_DeclaredElements.Intern(std::string(token).c_str());
        m_DeclaredAttributes.resize(m_DeclaredElements.Size());
        return;
    }
    // The end of each attribute's declaration: a default, or the word that there is none.
    const bool ends = token.front() == '"' || token.front() == '\'' || token == "#IMPLIED" || token == "#REQUIRED";
    int& count = m_DeclaredAttributes[m_DeclaredElement];
    count += ends ? 1 : 0;
    if (count > CATXMLBounds::declaredAttributes)
        Fail(Bound(CATXMLBounds::declaredAttributes, "attributes declared of one element"));
}

void CATXMLParse::OnSkippedEntity(const XML_Char* /*name*/, int /*isParameter*/) { Fail(undeclaredEntity); }

// Only by what its document type declares can a document grow beyond its measure.
void CATXMLParse::CheckGrowth()
{
    if (!m_HasDoctype)
        return;
    const std::size_t bytes = m_Writer.Bytes() + m_DefaultedNames;
    if (bytes <= CATXMLBounds::expandedBytes)
        return;
    const std::size_t allowed = CATXMLBounds::expandedBytes + CATXMLBounds::expandedFactor * m_BytesRead;
    if (bytes > std::min(allowed, CATXMLBounds::expandedBytesAtMost))
        Fail("the document grows too large by expansion");
}

int CATXMLParse::OnUnknownEncoding(void* /*self*/, const XML_Char* name, XML_Encoding* encoding)
{
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return CATXMLSingleByteMap(name, encoding->map) ? XML_STATUS_OK : XML_STATUS_ERROR;
}

int CATXMLParse::OnExternalEntity(
    XML_Parser self, const XML_Char* context, const XML_Char* base, const XML_Char* systemId, const XML_Char* publicId)
{
    auto* parse = reinterpret_cast<CATXMLParse*>(self);
    if (context)
        parse->Fail("an external entity is not read");
    else
        Guarded<&CATXMLParse::ReadExternalSubset>(parse, base, systemId, publicId);
    return parse->m_Failure ? XML_STATUS_ERROR : XML_STATUS_OK;
}

void CATXMLParse::ReadExternalSubset(const XML_Char* base, const XML_Char* systemId, const XML_Char* publicId)
{
    if (++m_ExternalFiles > CATXMLBounds::externalFiles)
        return Fail(Bound(CATXMLBounds::externalFiles, "external files"));
    if (m_ExternalDepth >= CATXMLBounds::externalDepth)
        return Fail(Bound(CATXMLBounds::externalDepth, "levels of nested external files"));
    if (IsInEntityValue())
        return Fail("a parameter entity from a file stands inside an entity's value");
    const std::optional<External> external =
        FindExternal(base ? base : "", systemId ? systemId : "", publicId ? publicId : "");
    if (m_Failure)
        return;
    // An empty subset in place of a missing one: without it, the declarations behind it would not count.
    ParseExternal(external.value_or(External{}));
}

// Whether the parser is about to take the file as text for the value of an entity: a comment is heard where
// declarations are read, and is text there.
bool CATXMLParse::IsInEntityValue() const
{
    const ParserOwner probe(XML_ExternalEntityParserCreate(m_Parser, nullptr, nullptr));
    if (!probe)
        throw std::bad_alloc();
    bool isHeard = false;
    XML_SetUserData(probe.get(), &isHeard);
    XML_SetCommentHandler(
        probe.get(), [](void* heard, const XML_Char* /*text*/) { *static_cast<bool*>(heard) = true; });
    constexpr std::string_view comment = "<!---->";
    if (XML_Parse(probe.get(), comment.data(), comment.size(), XML_TRUE) == XML_STATUS_ERROR)
        throw std::bad_alloc(); // nothing else can be wrong with it
    return !isHeard;
}

std::optional<CATXMLParse::External> CATXMLParse::FindExternal(
    const XML_Char* base, const XML_Char* systemId, const XML_Char* publicId)
{
    if (AreDocumentTypesOff())
    {
        if (m_MissingExternals.insert("").second)
            Warn("document type definitions are turned off; the document is read without them");
        return std::nullopt;
    }
    if (const std::optional<CATXMLParseListener::Source> source = m_Listener.FindExternal(publicId, systemId))
    {
        CATInputFile file(source->path);
        return ReadExternal(file, source->path, source->encoding);
    }
    std::string path;
    const std::unique_ptr<CATInputFile> file =
        IsRelativePath(systemId) ? CATFileArea(m_DocumentTypeDirectory).Open(base, systemId, path) : nullptr;
    if (file)
        return ReadExternal(*file, path, "");
    if (m_MissingExternals.insert(systemId).second)
        Warn("the document type definition was not found; the document is read without it");
    return std::nullopt;
}

void CATXMLParse::Warn(const char* message)
{
    const Place place = Here();
    m_Listener.OnWarning({InFile(message), place.line, place.column});
}

std::optional<CATXMLParse::External> CATXMLParse::ReadExternal(
    CATInputFile& file, std::string path, std::string encoding)
{
    External external{std::move(path), std::move(encoding), {}};
    if (!file.IsOpen())
    {
        Fail(std::string("a document type definition cannot be read: ") + file.Reason());
        return std::nullopt;
    }
    const std::size_t piece = std::min(pieceBytes, file.Size() + 1);
    for (std::size_t size = 0;; size = external.bytes.size())
    {
        external.bytes.resize(size + piece);
        external.bytes.resize(size + Fill([&](void* buffer, std::size_t left) { return file.Read(buffer, left); },
                                         &external.bytes[size], piece));
        if (m_Failure)
            return std::nullopt;
        if (external.bytes.size() < size + piece)
            return external;
    }
}

void CATXMLParse::ParseExternal(const External& external)
{
    const char* encoding = external.encoding.empty() ? nullptr : external.encoding.c_str();
    const ParserOwner child(XML_ExternalEntityParserCreate(m_Parser, nullptr, encoding));
    if (!child)
        throw std::bad_alloc();
    XML_SetBase(child.get(), external.path.c_str());
    const ExternalScope scope(*this, child.get(), MarkOf(external.bytes));
    CheckParsed(XML_Parse(m_Parser, external.bytes.data(), static_cast<int>(external.bytes.size()), XML_TRUE));
}
