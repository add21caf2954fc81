// The secret of the process that makes hashes unforeseeable.
#include "CATTextHash.h"

#include <chrono>
#include <random>

namespace {

CATTextHashSecret MakeSecret()
{
    CATTextHashSecret secret = {};
    try
    {
        std::random_device device;
        const auto word = [&] { return std::uint64_t{device()} << 32U | device(); };
        return {word(), word()};
    }
    catch (...)
    {
    }
    // A system that has no randomness to give: the clock and where things lie, which no writer of a file knows.
    const auto now = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    secret.first = CATTextHashDetail::Fold(now, 0x9E3779B97F4A7C15U);
    secret.second = CATTextHashDetail::Fold(reinterpret_cast<std::uintptr_t>(&secret), secret.first);
    return secret;
}

} // namespace

CATTextHashSecret CATTextHashSecretOfProcess()
{
    static const CATTextHashSecret secret = MakeSecret();
    return secret;
}
