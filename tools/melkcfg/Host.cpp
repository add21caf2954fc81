// The application around the library: settings, caught boxes and log lines.
#include "Host.h"

#include <iostream>

namespace {

const char* KindName(VEXMELKMessagePresenter::Kind kind)
{
    return kind == VEXMELKMessagePresenter::Error ? "error" : "warning";
}

} // namespace

Host::Host(bool prints) : m_Environment(*VEXMELKGetAdminAccess::VEXMELKGetAdminAccessAttr()), m_Prints(prints)
{
    CATString directory;
    if (SUCCEEDED(m_Environment.GetConfigurationDirectory(directory)))
        m_Directory = directory.CastToCharPtr();
    m_TestPath = m_Environment.GetTestPath().ConvertToChar();
    VEXMELKGetAdminAccess::ReplaceAccessAttr(this);
    VEXMELKGUI::InstallPresenter(this);
    VEXMELKLog::InstallSink(this);
}

Host::~Host()
{
    VEXMELKGetAdminAccess::Reset();
    VEXMELKGUI::InstallPresenter(nullptr);
    VEXMELKLog::InstallSink(nullptr);
}

CATResult Host::GetConfigurationDirectory(CATString& directory) const
{
    if (!m_Directory)
        return E_FAIL;
    directory = m_Directory->c_str();
    return S_OK;
}

CATResult Host::GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user) const
{
    return m_Environment.GetBaseDataDBPath(path, user);
}

void Host::Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text)
{
    m_HasErrors = m_HasErrors || kind == Error;
    m_Messages.push_back({{"kind", KindName(kind)}, {"title", title.ConvertToChar()}, {"text", text.ConvertToChar()}});
    if (m_Prints)
        std::cerr << KindName(kind) << ": " << title.ConvertToChar() << ": " << text.ConvertToChar() << std::endl;
}

void Host::Write(const CATUnicodeString& line)
{
    m_Log.push_back(line.ConvertToChar());
    if (m_Prints)
        std::cerr << line.ConvertToChar() << std::endl;
}
