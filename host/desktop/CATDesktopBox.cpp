// Windows has message boxes itself. Elsewhere GTK 3 is loaded when the first box comes up, so that neither the library
// nor whoever links to it depends on a toolkit; its functions are declared here, because its headers are not needed
// else.
#include "CATDesktopBox.h"

#ifdef _WIN32
#include "CATWide.h"

bool CATShowDesktopBox(bool isError, const char* title, const char* text)
{
    const UINT icon = isError ? MB_ICONERROR : MB_ICONWARNING;
    return MessageBoxW(nullptr, CATWide(text).c_str(), CATWide(title).c_str(),
               MB_OK | MB_TASKMODAL | MB_SETFOREGROUND | icon) != 0;
}
#else
#include <dlfcn.h>
#include <type_traits>

namespace {

struct Widget;

enum MessageType
{
    Warning = 1,
    Error = 3
};
constexpr int closeButton = 2;

class Toolkit
{
public:
    Toolkit()
    {
        void* library = dlopen("libgtk-3.so.0", RTLD_LAZY | RTLD_LOCAL);
        if (!library)
            return;
        bool isWhole = true;
        const auto find = [&](auto& function, const char* name)
        {
            function = reinterpret_cast<std::decay_t<decltype(function)>>(dlsym(library, name));
            isWhole = isWhole && function;
        };
        int (*initialise)(int*, char***) = nullptr;
        find(initialise, "gtk_init_check");
        find(m_New, "gtk_message_dialog_new");
        find(m_SetTitle, "gtk_window_set_title");
        find(m_Run, "gtk_dialog_run");
        find(m_Destroy, "gtk_widget_destroy");
        find(m_IsEventPending, "gtk_events_pending");
        find(m_HandleEvent, "gtk_main_iteration");
        m_IsReady = isWhole && initialise(nullptr, nullptr) != 0; // not without a display
    }

    bool IsReady() const { return m_IsReady; }

    void Show(MessageType type, const char* title, const char* text) const
    {
        Widget* box = m_New(nullptr, 0, type, closeButton, "%s", text);
        m_SetTitle(box, title);
        m_Run(box);
        m_Destroy(box);
        while (m_IsEventPending() != 0) // the window goes when the toolkit next comes to it
            m_HandleEvent();
    }

private:
    Widget* (*m_New)(Widget* parent, int flags, int type, int buttons, const char* format, ...) = nullptr;
    void (*m_SetTitle)(Widget* window, const char* title) = nullptr;
    int (*m_Run)(Widget* dialog) = nullptr;
    void (*m_Destroy)(Widget* widget) = nullptr;
    int (*m_IsEventPending)() = nullptr;
    int (*m_HandleEvent)() = nullptr;
    bool m_IsReady = false;
};

} // namespace

bool CATShowDesktopBox(bool isError, const char* title, const char* text)
{
    static const Toolkit* const toolkit = new Toolkit;
    if (toolkit->IsReady())
        toolkit->Show(isError ? Error : Warning, title, text);
    return toolkit->IsReady();
}
#endif
