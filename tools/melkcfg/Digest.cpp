// Windows computes digests itself, elsewhere nettle does. It is optional when the tool is built: MELKCFG_DIGEST tells.
#include "Digest.h"

#include "Json.h"

#ifdef _WIN32

#include <windows.h>

#include <array>
#include <bcrypt.h>
#include <wincrypt.h>

namespace {

std::array<UCHAR, 32> Sha256(std::string_view bytes)
{
    std::array<UCHAR, 32> digest{};
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
    // The functions take what they only read as something to write.
    auto* const data = reinterpret_cast<UCHAR*>(const_cast<char*>(bytes.data()));
    const bool isDone = BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0) >= 0 &&
                        BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0) >= 0 &&
                        BCryptHashData(hash, data, static_cast<ULONG>(bytes.size()), 0) >= 0 &&
                        BCryptFinishHash(hash, digest.data(), static_cast<ULONG>(digest.size()), 0) >= 0;
    if (hash)
        BCryptDestroyHash(hash);
    if (algorithm)
        BCryptCloseAlgorithmProvider(algorithm, 0);
    if (!isDone)
        throw RequestError("the system computes no SHA-256");
    return digest;
}

std::string Text(std::string_view bytes, DWORD form)
{
    const auto digest = Sha256(bytes);
    std::array<char, 128> text{};
    DWORD size = text.size();
    CryptBinaryToStringA(digest.data(), digest.size(), form | CRYPT_STRING_NOCRLF, text.data(), &size);
    return {text.data(), size};
}

} // namespace

std::string Sha256Hex(std::string_view bytes) { return Text(bytes, CRYPT_STRING_HEXRAW); }
std::string Sha256Base64(std::string_view bytes) { return Text(bytes, CRYPT_STRING_BASE64); }

#elif defined(MELKCFG_DIGEST)

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
