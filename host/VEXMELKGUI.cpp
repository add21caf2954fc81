// Hands boxes to the presenter. An exception of the host's does not get past it.
#include "VEXMELKGUI.h"

#include "CATDesktopBox.h"

#include <iostream>
#include <utility>

namespace {

class StandardErrorPresenter final : public VEXMELKMessagePresenter
{
public:
    void Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text) override
    {
        std::cerr << (kind == Error ? "error: " : "warning: ") << title.ConvertToChar() << ": " << text.ConvertToChar()
                  << std::endl;
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

VEXMELKMessagePresenter* installedPresenter = nullptr;

void Show(VEXMELKMessagePresenter::Kind kind, const CATUnicodeString& title, const CATUnicodeString& text)
{
    StandardErrorPresenter standardError;
    VEXMELKMessagePresenter* presenter = installedPresenter ? installedPresenter : &standardError;
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
    return std::exchange(installedPresenter, presenter);
}
