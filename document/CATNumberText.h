// Reading texts: blanks, and the one place that knows the grammar of decimal numbers.
#ifndef CATNumberText_H
#define CATNumberText_H

#include "VEXMELKConfigurationExport.h"

#include <string_view>

constexpr bool CATIsBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}
constexpr bool CATIsDigit(char character) { return character >= '0' && character <= '9'; }

// The text without the blanks at both ends.
constexpr std::string_view CATStripped(std::string_view text)
{
    while (!text.empty() && CATIsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && CATIsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Reads a decimal number (optional sign, digits with an optional point, optional exponent) from the front of text,
// correctly rounded and independent of any locale, and takes it off the text. One too small for a double gives zero.
// False, with nothing changed, when no number stands there or one too large for a double.
ExportedByVEXMELKConfiguration bool CATTakeNumber(std::string_view& text, double& value);

#endif
