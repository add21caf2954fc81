// Message boxes. They go to the presenter that the host installed, or else, one line each, to standard error.
//
// The presenter is called by the thread whose query shows the box, so by several at once when several threads ask.
#ifndef VEXMELKGUI_H
#define VEXMELKGUI_H

#include "CATUnicodeString.h"
#include "VEXMELKConfigurationExport.h"

// A dialog of the host, as far as boxes need one for their parent.
class CATDialog;

class VEXMELKMessagePresenter
{
public:
    enum Kind
    {
        Error,
        Warning
    };
    virtual ~VEXMELKMessagePresenter() = default;
    // Shows a modal box; returns when the user has closed it.
    virtual void Show(Kind kind, const CATUnicodeString& title, const CATUnicodeString& text) = 0;
};

class ExportedByVEXMELKConfiguration VEXMELKGUI
{
public:
    // "options" and "parent" are the host's; the boxes of the configuration have neither.
    static void ShowError(const CATUnicodeString& text, const CATUnicodeString& title, int options, CATDialog* parent);
    static void ShowWarning(
        const CATUnicodeString& text, const CATUnicodeString& title, int options, CATDialog* parent);

    // Installs the presenter, null for none, and returns the one before. The caller keeps ownership; a query of
    // another thread that runs meanwhile may still show its boxes by the one before.
    static VEXMELKMessagePresenter* InstallPresenter(VEXMELKMessagePresenter* presenter);

    // A presenter of real message boxes, to be installed by a program that has no dialogs of its own: the system's on
    // Windows, those of GTK 3 elsewhere, which is loaded at the first box. Where there is no desktop or no GTK, boxes
    // go to standard error. Lives as long as the process.
    static VEXMELKMessagePresenter* GetDesktopPresenter();
};

#endif
