// The host that the library runs in: settings from the command line or a batch, boxes and log lines caught.
#ifndef MELKCFG_Host_H
#define MELKCFG_Host_H

#include "Json.h"
#include "VEXMELKGUI.h"
#include "VEXMELKGetAdminAccess.h"
#include "VEXMELKLog.h"

#include <optional>

class Host final : public VEXIMELKAccessAdminAttr, private VEXMELKMessagePresenter, private VEXMELKLogSink
{
public:
    // Installs itself; "prints" has boxes and log lines written to standard error as they come.
    explicit Host(bool prints);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host() override;

    // An undefined directory fails as an environment variable that is not set.
    void SetConfigurationDirectory(std::optional<std::string> directory) { m_Directory = std::move(directory); }
    void SetTestPath(std::string path) { m_TestPath = std::move(path); }

    // Boxes and log lines since the last call: {kind, title, text} and texts.
    Json TakeMessages() { return std::exchange(m_Messages, Json::array()); }
    Json TakeLog() { return std::exchange(m_Log, Json::array()); }
    // The same without taking them.
    const Json& Messages() const { return m_Messages; }
    const Json& Log() const { return m_Log; }
    void Forget()
    {
        m_Messages.clear();
        m_Log.clear();
    }
    bool HasErrors() const { return m_HasErrors; }

    CATResult GetConfigurationDirectory(CATString& directory) const override;
    CATUnicodeString GetTestPath() const override { return {m_TestPath}; }
    CATResult GetBaseDataDBPath(CATUnicodeString& path, CATUnicodeString& user) const override;

private:
    void Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text) override;
    void Write(const CATUnicodeString& line) override;

    const VEXIMELKAccessAdminAttr& m_Environment;
    const bool m_Prints;
    std::optional<std::string> m_Directory;
    std::string m_TestPath;
    Json m_Messages = Json::array();
    Json m_Log = Json::array();
    bool m_HasErrors = false;
};

#endif
