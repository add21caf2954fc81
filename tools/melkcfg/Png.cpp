// librsvg draws the document on a surface of cairo. Both are loaded for the first picture, since a program that is
// linked with them takes several times as long to start. Their headers are optional when the tool is built: MELKCFG_PNG
// tells.
#include "Png.h"

#include "Json.h"

#ifdef MELKCFG_PNG

#include "LoadedLibrary.h"

#include <cairo.h>
#include <cmath>
#include <librsvg/rsvg.h>
#include <memory>

namespace {

constexpr double pixelsPerPixel = 2.0;
constexpr double mostPixels = 20000.0; // of a side

struct Drawing
{
    Drawing()
    {
        LoadedLibrary library("librsvg-2.so.2");
        library.Find(read, "rsvg_handle_new_from_data");
        library.Find(setResolution, "rsvg_handle_set_dpi");
        library.Find(size, "rsvg_handle_get_intrinsic_size_in_pixels");
        library.Find(draw, "rsvg_handle_render_document");
        library.Find(unref, "g_object_unref");
        library.Find(newSurface, "cairo_image_surface_create");
        library.Find(destroySurface, "cairo_surface_destroy");
        library.Find(newContext, "cairo_create");
        library.Find(destroyContext, "cairo_destroy");
        library.Find(write, "cairo_surface_write_to_png_stream");
        library.Find(statusText, "cairo_status_to_string");
        isWhole = library.IsWhole();
    }

    bool isWhole = false;
    decltype(&rsvg_handle_new_from_data) read = nullptr;
    decltype(&rsvg_handle_set_dpi) setResolution = nullptr;
    decltype(&rsvg_handle_get_intrinsic_size_in_pixels) size = nullptr;
    decltype(&rsvg_handle_render_document) draw = nullptr;
    decltype(&g_object_unref) unref = nullptr;
    decltype(&cairo_image_surface_create) newSurface = nullptr;
    decltype(&cairo_surface_destroy) destroySurface = nullptr;
    decltype(&cairo_create) newContext = nullptr;
    decltype(&cairo_destroy) destroyContext = nullptr;
    decltype(&cairo_surface_write_to_png_stream) write = nullptr;
    decltype(&cairo_status_to_string) statusText = nullptr;
};

cairo_status_t Append(void* closure, const unsigned char* bytes, unsigned int length)
{
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), length);
    return CAIRO_STATUS_SUCCESS;
}

RequestError Failed(const std::string& why) { return RequestError("the picture cannot be made a PNG: " + why); }

} // namespace

std::string PngOf(const std::string& svg)
{
    static const Drawing drawing;
    if (!drawing.isWhole)
        throw Failed("librsvg is not installed");
    const auto* const bytes = reinterpret_cast<const guint8*>(svg.data());
    const std::unique_ptr<RsvgHandle, decltype(drawing.unref)> handle(
        drawing.read(bytes, svg.size(), nullptr), drawing.unref);
    if (!handle)
        throw Failed("its SVG is not understood");
    drawing.setResolution(handle.get(), 96.0);
    double width = 0.0;
    double height = 0.0;
    if (!drawing.size(handle.get(), &width, &height))
        throw Failed("it has no size");
    width = std::ceil(width * pixelsPerPixel);
    height = std::ceil(height * pixelsPerPixel);
    if (width > mostPixels || height > mostPixels)
        throw Failed("it is too large");
    const std::unique_ptr<cairo_surface_t, decltype(drawing.destroySurface)> surface(
        drawing.newSurface(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)),
        drawing.destroySurface);
    const std::unique_ptr<cairo_t, decltype(drawing.destroyContext)> context(
        drawing.newContext(surface.get()), drawing.destroyContext);
    const RsvgRectangle whole{0.0, 0.0, width, height};
    if (!drawing.draw(handle.get(), context.get(), &whole, nullptr))
        throw Failed("it cannot be drawn");
    std::string png;
    const cairo_status_t status = drawing.write(surface.get(), Append, &png);
    if (status != CAIRO_STATUS_SUCCESS)
        throw Failed(drawing.statusText(status));
    return png;
}

#else

std::string PngOf(const std::string& /*svg*/)
{
    throw RequestError("this melkcfg was built without librsvg and writes no PNG: give the file a name with .svg, or "
                       "build it again with librsvg2-dev installed");
}

#endif
