// Texts in the encodings that documents may have: UTF-8, UTF-16LE and -BE, US-ASCII, ISO-8859 and windows-125x.
#ifndef CATEncoding_H
#define CATEncoding_H

#include "VEXMELKConfigurationExport.h"

#include <optional>
#include <string>
#include <string_view>

// Nothing for an encoding that is not known, a byte that stands for no character there, or, the other way, a character
// that has no place there. The name of the encoding is taken in any letter case; a byte-order mark is a character.
ExportedByVEXMELKConfiguration std::optional<std::string> CATToUTF8(std::string_view bytes, std::string_view encoding);
ExportedByVEXMELKConfiguration std::optional<std::string> CATFromUTF8(std::string_view utf8, std::string_view encoding);

#endif
