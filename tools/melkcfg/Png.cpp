// librsvg draws the document on a surface of cairo. Both are optional when the tool is built: MELKCFG_PNG tells.
#include "Png.h"

#include "Json.h"

#ifdef MELKCFG_PNG

#include <cairo.h>
#include <cmath>
#include <librsvg/rsvg.h>
#include <memory>

namespace {

constexpr double pixelsPerPixel = 2.0;
constexpr double mostPixels = 20000.0; // of a side

struct Unref
{
    void operator()(void* object) const { g_object_unref(object); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Handle = std::unique_ptr<RsvgHandle, Unref>;

cairo_status_t Append(void* closure, const unsigned char* bytes, unsigned int length)
{
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), length);
    return CAIRO_STATUS_SUCCESS;
}

RequestError Failed(const std::string& why) { return RequestError("the picture cannot be made a PNG: " + why); }

} // namespace

std::string PngOf(const std::string& svg)
{
    const auto* const bytes = reinterpret_cast<const guint8*>(svg.data());
    const Handle handle(rsvg_handle_new_from_data(bytes, svg.size(), nullptr));
    if (!handle)
        throw Failed("its SVG is not understood");
    rsvg_handle_set_dpi(handle.get(), 96.0);
    double width = 0.0;
    double height = 0.0;
    if (!rsvg_handle_get_intrinsic_size_in_pixels(handle.get(), &width, &height))
        throw Failed("it has no size");
    width = std::ceil(width * pixelsPerPixel);
    height = std::ceil(height * pixelsPerPixel);
    if (width > mostPixels || height > mostPixels)
        throw Failed("it is too large");
    const std::unique_ptr<cairo_surface_t, Unref> surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
    const std::unique_ptr<cairo_t, Unref> context(cairo_create(surface.get()));
    const RsvgRectangle whole{0.0, 0.0, width, height};
    if (!rsvg_handle_render_document(handle.get(), context.get(), &whole, nullptr))
        throw Failed("it cannot be drawn");
    std::string png;
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface.get(), Append, &png);
    if (status != CAIRO_STATUS_SUCCESS)
        throw Failed(cairo_status_to_string(status));
    return png;
}

#else

std::string PngOf(const std::string& /*svg*/)
{
    throw RequestError("this melkcfg was built without librsvg and writes no PNG: give the file a name with .svg, or "
                       "build it again with librsvg2-dev installed");
}

#endif
