// Hands boxes to the presenter. An exception of the host's does not get past it.
#include "VEXMELKGUI.h"

#include "CATDesktopBox.h"

#include <atomic>
#include <iostream>

namespace {

class StandardErrorPresenter final : public VEXMELKMessagePresenter
{
public:
    void Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text) override
    {
        // In one piece, whichever threads write.
        const CATUnicodeString line = CATUnicodeString(kind == Error ? "error: " : "warning: ") + title + ": " + text;
        std::cerr << (line + "\n").ConvertToChar() << std::flush;
    }
};

class DesktopPresenter final : public VEXMELKMessagePresenter
{
public:
    void Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text) override
    {
        if (!CATShowDesktopBox(kind == Error, title.ConvertToChar(), text.ConvertToChar()))
            StandardErrorPresenter().Show(kind, title, text);
    }
};

std::atomic<VEXMELKMessagePresenter*> installedPresenter = nullptr;

void Show(VEXMELKMessagePresenter::Kind kind, const CATUnicodeString& title, const CATUnicodeString& text)
{
    StandardErrorPresenter standardError;
    VEXMELKMessagePresenter* presenter = installedPresenter;
    if (!presenter)
        presenter = &standardError;
    try
    {
        presenter->Show(kind, title, text);
    }
    catch (...) // of the host: it must not pass the operation that shows the box
    {
    }
}

} // namespace

void VEXMELKGUI::ShowError(
    const CATUnicodeString& text, const CATUnicodeString& title, int /*options*/, CATDialog* /*parent*/)
{
    Show(VEXMELKMessagePresenter::Error, title, text);
}

void VEXMELKGUI::ShowWarning(
    const CATUnicodeString& text, const CATUnicodeString& title, int /*options*/, CATDialog* /*parent*/)
{
    Show(VEXMELKMessagePresenter::Warning, title, text);
}

VEXMELKMessagePresenter* VEXMELKGUI::GetDesktopPresenter()
{
    static auto* const desktop = new DesktopPresenter;
    return desktop;
}

VEXMELKMessagePresenter* VEXMELKGUI::InstallPresenter(VEXMELKMessagePresenter* presenter)
{
    return installedPresenter.exchange(presenter);
}
