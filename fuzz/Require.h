// What a fuzzer holds to be true whatever the input is; anything else is a find.
#ifndef FUZZ_Require_H
#define FUZZ_Require_H

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline void Require(bool holds)
{
    if (!holds)
        std::abort();
}

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

#endif
