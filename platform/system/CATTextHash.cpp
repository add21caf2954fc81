#include "CATTextHash.h"

#include <chrono>

std::uint64_t CATTextHashSalt()
{
    // Address randomisation and the clock: unknown to whoever wrote the file, and no device has to be opened.
    static const std::uint64_t salt =
        CATTextHashDetail::Mix(static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()),
            reinterpret_cast<std::uintptr_t>(&salt));
    return salt;
}
