// Writes drawings as SVG: each panel at a round scale, with axes, dimensions in lanes around it, and labels where they
// find room. The same drawing gives the same bytes, whatever the locale.
//
// The group of a panel tells how its numbers became places: data-x0, data-y0 and data-scale, so that the value x stands
// at data-x0 + data-scale * x and y at data-y0 - data-scale * y. Shapes that show a value have data-field and
// data-value.
#ifndef VEXMELKSvg_H
#define VEXMELKSvg_H

#include "VEXMELKDrawing.h"

#include <string>
#include <string_view>

enum class VEXMELKSvgUse
{
    File, // a document of its own, light, with its style
    Page  // an element of a page that has VEXMELKSvgStyle in its style
};

// "id" makes the names of its parts unique in a page.
std::string VEXMELKSvgText(const VEXMELKDrawing& drawing, VEXMELKSvgUse use, std::string_view id = "drawing");

// The rules of a page for its drawings, light or dark.
std::string VEXMELKSvgStyle(bool isDark);

// A text in markup: what has a meaning there is escaped, and what must not stand there is replaced.
std::string VEXMELKMarkupText(std::string_view text);

#endif
