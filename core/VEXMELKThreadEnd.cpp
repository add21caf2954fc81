// The system's own keys of threads: a thread_local object would be destroyed in the main thread too, before the host's
// last objects are gone.
#include "VEXMELKThreadEnd.h"

#include <optional>
#ifdef _WIN32
#include <windows.h>
#else
#include <pthread.h>
#endif

namespace {

void (*actAtEnd)() = nullptr;

// A key is none when the process has none left: the threads' objects then stay until it ends.
#ifdef _WIN32
using ThreadKey = DWORD;

// The main thread's values are given back too when the process ends, when nothing can be released any more.
bool IsProcessEnding()
{
    using Function = BOOLEAN(WINAPI*)();
    static const auto function = reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlDllShutdownInProgress")));
    return function && function() != 0;
}

void WINAPI Run(void* /*value*/)
{
    if (!IsProcessEnding())
        actAtEnd();
}

std::optional<ThreadKey> NewKey()
{
    const ThreadKey key = FlsAlloc(Run);
    return key == FLS_OUT_OF_INDEXES ? std::nullopt : std::optional(key);
}

void Set(ThreadKey key, void* value) { FlsSetValue(key, value); }
#else
using ThreadKey = pthread_key_t;

std::optional<ThreadKey> NewKey()
{
    ThreadKey key = {};
    const auto run = [](void* /*value*/) { actAtEnd(); };
    return pthread_key_create(&key, run) == 0 ? std::optional(key) : std::nullopt;
}

void Set(ThreadKey key, void* value) { pthread_setspecific(key, value); }
#endif

std::optional<ThreadKey> MakeKey(void (*act)())
{
    actAtEnd = act;
    return NewKey();
}

} // namespace

void VEXMELKAtThreadEnd(void (*act)())
{
    static const std::optional<ThreadKey> key = MakeKey(act);
    if (key)
        Set(*key, &actAtEnd); // any value but null
}
