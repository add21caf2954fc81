// The event interfaces of the parser: problems, entities, input sources.
#ifndef CATISAX_H
#define CATISAX_H

#include "CATBaseUnknown.h"
#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

// A problem that the parser found: its message, and where, line and column counted from 1.
class CATSAXParseException
{
public:
    CATSAXParseException(const CATUnicodeString& message, int line, int column)
        : m_Message(message), m_Line(line), m_Column(column)
    {
    }
    const CATUnicodeString& GetMessage() const { return m_Message; }
    int GetLineNumber() const { return m_Line; }
    int GetColumnNumber() const { return m_Column; }

private:
    CATUnicodeString m_Message;
    int m_Line;
    int m_Column;
};

// Hears of problems. The exception may be null. The results are not looked at.
class CATISAXErrorHandler : public CATBaseUnknown
{
public:
    virtual CATResult Warning(const CATSAXParseException* exception) = 0;
    virtual CATResult Error(const CATSAXParseException* exception) = 0;
    virtual CATResult FatalError(const CATSAXParseException* exception) = 0;
};
using CATISAXErrorHandler_var = CATHandle<CATISAXErrorHandler>;

// Where the parser reads an entity from: a file, and the name of its encoding, empty when the file tells it.
class CATISAXInputSource : public CATBaseUnknown
{
public:
    CATISAXInputSource(const CATUnicodeString& path, const CATUnicodeString& encoding)
        : m_Path(path), m_Encoding(encoding)
    {
    }
    const CATUnicodeString& GetPath() const { return m_Path; }
    const CATUnicodeString& GetEncoding() const { return m_Encoding; }

private:
    CATUnicodeString m_Path;
    CATUnicodeString m_Encoding;
};
using CATISAXInputSource_var = CATHandle<CATISAXInputSource>;

// Finds external entities for the parser. A failing result leaves the entity to the parser.
class CATISAXEntityResolver : public CATBaseUnknown
{
public:
    virtual CATResult ResolveEntity(
        const CATUnicodeString& publicId, const CATUnicodeString& systemId, CATISAXInputSource_var& source) = 0;
};
using CATISAXEntityResolver_var = CATHandle<CATISAXEntityResolver>;

// Base of the components that handle the parser's events. Every event is accepted and does nothing.
class CATSAXHandlerBase : public CATBaseUnknown
{
public:
    virtual CATResult Warning(const CATSAXParseException* /*exception*/) { return S_OK; }
    virtual CATResult Error(const CATSAXParseException* /*exception*/) { return S_OK; }
    virtual CATResult FatalError(const CATSAXParseException* /*exception*/) { return S_OK; }
};

// Ties: interface objects that forward to the component they keep alive.
template <class Component> class CATTieSAXErrorHandler final : public CATISAXErrorHandler
{
public:
    explicit CATTieSAXErrorHandler(Component* component) : m_Component(component) {}
    CATResult Warning(const CATSAXParseException* exception) override { return m_Component->Warning(exception); }
    CATResult Error(const CATSAXParseException* exception) override { return m_Component->Error(exception); }
    CATResult FatalError(const CATSAXParseException* exception) override { return m_Component->FatalError(exception); }

private:
    CATHandle<Component> m_Component;
};

template <class Component> class CATTieSAXEntityResolver final : public CATISAXEntityResolver
{
public:
    explicit CATTieSAXEntityResolver(Component* component) : m_Component(component) {}
    CATResult ResolveEntity(
        const CATUnicodeString& publicId, const CATUnicodeString& systemId, CATISAXInputSource_var& source) override
    {
        return m_Component->ResolveEntity(publicId, systemId, source);
    }

private:
    CATHandle<Component> m_Component;
};

enum CATSAXClassId
{
    CLSID_XML4C_SAX
};

class ExportedByVEXMELKConfiguration CATIXMLSAXFactory : public CATBaseUnknown
{
public:
    // An input source that reads the file; the file is opened when the parser reads it.
    CATResult CreateInputSourceFromFile(
        const CATUnicodeString& path, const CATUnicodeString& encoding, CATISAXInputSource_var& source) const;
};
using CATIXMLSAXFactory_var = CATHandle<CATIXMLSAXFactory>;

ExportedByVEXMELKConfiguration CATResult CreateCATIXMLSAXFactory(CATIXMLSAXFactory_var& factory, CATSAXClassId classId);

#endif
