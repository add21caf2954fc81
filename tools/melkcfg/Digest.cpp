// Nettle computes the digests. It is optional when the tool is built: MELKCFG_DIGEST tells.
#include "Digest.h"

#include "Json.h"

#ifdef MELKCFG_DIGEST

#include <array>
#include <nettle/base16.h>
#include <nettle/base64.h>
#include <nettle/sha2.h>

namespace {

std::array<std::uint8_t, SHA256_DIGEST_SIZE> Sha256(std::string_view bytes)
{
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
    sha256_digest(&context, digest.size(), digest.data());
    return digest;
}

} // namespace

std::string Sha256Hex(std::string_view bytes)
{
    const auto digest = Sha256(bytes);
    std::string text(BASE16_ENCODE_LENGTH(SHA256_DIGEST_SIZE), '\0');
    base16_encode_update(text.data(), digest.size(), digest.data());
    return text;
}

std::string Sha256Base64(std::string_view bytes)
{
    const auto digest = Sha256(bytes);
    std::string text(BASE64_ENCODE_RAW_LENGTH(SHA256_DIGEST_SIZE), '\0');
    base64_encode_raw(text.data(), digest.size(), digest.data());
    return text;
}

#else

namespace {

RequestError WithoutDigests()
{
    return RequestError("this melkcfg was built without nettle and writes no reports: build it again with nettle-dev "
                        "installed");
}

} // namespace

std::string Sha256Hex(std::string_view /*bytes*/) { throw WithoutDigests(); }
std::string Sha256Base64(std::string_view /*bytes*/) { throw WithoutDigests(); }

#endif
