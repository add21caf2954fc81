// A library that is loaded when it is first needed, so that the other commands start without it.
#ifndef MELKCFG_LoadedLibrary_H
#define MELKCFG_LoadedLibrary_H

#include <dlfcn.h>

// Stays loaded until the process ends.
class LoadedLibrary
{
public:
    explicit LoadedLibrary(const char* name) : m_Handle(dlopen(name, RTLD_NOW | RTLD_LOCAL)), m_IsWhole(m_Handle) {}

    // Finds one of its functions, or one of those that it depends on.
    template <class Function> void Find(Function*& function, const char* name)
    {
        function = m_Handle ? reinterpret_cast<Function*>(dlsym(m_Handle, name)) : nullptr;
        m_IsWhole = m_IsWhole && function;
    }
    // Whether the library and all functions were found.
    bool IsWhole() const { return m_IsWhole; }

private:
    void* m_Handle;
    bool m_IsWhole;
};

#endif
