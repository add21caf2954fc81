// The system's own keys of threads: a thread_local object would be destroyed in the main thread too, before the host's
// last objects are gone.
#include "VEXMELKThreadEnd.h"

#include <optional>
#include <pthread.h>

namespace {

void (*actAtEnd)() = nullptr;

// None when the process has no key left: the threads' objects then stay until it ends.
std::optional<pthread_key_t> MakeKey(void (*act)())
{
    actAtEnd = act;
    pthread_key_t key = {};
    const auto run = [](void* /*value*/) { actAtEnd(); };
    return pthread_key_create(&key, run) == 0 ? std::optional(key) : std::nullopt;
}

} // namespace

void VEXMELKAtThreadEnd(void (*act)())
{
    static const std::optional<pthread_key_t> key = MakeKey(act);
    if (key)
        pthread_setspecific(*key, &actAtEnd); // any value but null
}
