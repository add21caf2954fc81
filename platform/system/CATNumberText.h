// Reading decimal numbers out of texts: the one place that knows their grammar.
#ifndef CATNumberText_H
#define CATNumberText_H

#include <string_view>

constexpr bool CATIsBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

// Reads a decimal number (optional sign, digits with an optional point, optional exponent) from the front of text,
// correctly rounded and independent of any locale, and takes it off the text. A number too large for a double gives
// infinity, one too small gives zero. False, with nothing changed, when no number stands there.
bool CATTakeNumber(std::string_view& text, double& value);

#endif
