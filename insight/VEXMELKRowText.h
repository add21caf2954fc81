// What a row is and means, in words for people: for the format reference and for the documentation in schemas.
#ifndef VEXMELKRowText_H
#define VEXMELKRowText_H

#include "VEXMELKRow.h"

#include <string>

// What the field gets when the attribute is missing, in Markdown.
std::string VEXMELKWhenMissingText(const VEXMELKRow& row);
// "a number in millimetres"; empty for what is handed out as it is.
std::string_view VEXMELKHandedOutAs(VEXMELKForm form);
// What may be written: "A length (mm, cm, ...); a bare number is in mm."
std::string VEXMELKKindText(const VEXMELKRow& row);
// Without the links and the emphasis of Markdown.
std::string VEXMELKPlainText(std::string_view markdown);
std::string VEXMELKCapitalized(std::string text);
// Begins with a capital letter, and ends with a full stop.
std::string VEXMELKSentence(std::string text);

#endif
