// Pictures as PNG.
#ifndef MELKCFG_Png_H
#define MELKCFG_Png_H

#include <string>

// The bytes of a PNG of an SVG document, at twice its size on a screen. Throws RequestError when the tool was built
// without the library that does this, or when it fails.
std::string PngOf(const std::string& svg);

#endif
