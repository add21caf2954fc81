// Digests of bytes.
#ifndef MELKCFG_Digest_H
#define MELKCFG_Digest_H

#include <string>
#include <string_view>

// SHA-256, in hexadecimal and as style and script policies of pages write it. Throws RequestError when the tool was
// built without the library that computes it.
std::string Sha256Hex(std::string_view bytes);
std::string Sha256Base64(std::string_view bytes);

#endif
