// The single-byte encodings beyond those that the parser underneath knows itself.
#ifndef CATXMLEncoding_H
#define CATXMLEncoding_H

#include <string_view>

// Fills the character of each of the 256 bytes, -1 for a byte that stands for none. Known are ISO-8859-1 to -16 and
// windows-1250 to -1258, in any letter case; false for every other name.
bool CATXMLSingleByteMap(std::string_view encoding, int (&characters)[256]);

// Whether that is the encoding's name, in any letter case. "upperCase" has capital letters only.
bool CATXMLIsEncoding(std::string_view name, std::string_view upperCase);

#endif
