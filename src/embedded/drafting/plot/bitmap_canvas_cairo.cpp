// Bitmaps through Cairo.
#include <cairo.h>

#include "embedded/drafting/plot/bitmap_canvas.h"

namespace drafting {
namespace {

using base::Point2;

struct DestroySurface {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct DestroyContext {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, DestroySurface>;
using Context = std::unique_ptr<cairo_t, DestroyContext>;

base::Status failure(cairo_status_t status) {
  return base::Status::failure(std::string("bitmap: ") + cairo_status_to_string(status));
}

class CairoCanvas : public BitmapCanvas {
 public:
  CairoCanvas(Surface surface, int height, base::Rgb background)
      : surface_(std::move(surface)), context_(cairo_create(surface_.get())) {
    setColour(background);
    cairo_paint(context_.get());
    cairo_translate(context_.get(), 0, height);
    cairo_scale(context_.get(), 1, -1);
    cairo_set_line_cap(context_.get(), CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context_.get(), CAIRO_LINE_JOIN_ROUND);
  }

  // Strokes of one pen are drawn together: where two of them overlap, smoothed edges would
  // otherwise show as beads.
  void stroke(std::span<const Point2> points, base::Rgb colour, double width) override {
    if (colour != colour_ || width != width_ || pieces_ > kMostPieces) endPath();
    colour_ = colour;
    width_ = width;
    pieces_ += points.size();
    cairo_new_sub_path(context_.get());
    addPath(points);
    if (points.size() == 1) cairo_line_to(context_.get(), points[0].x, points[0].y);
  }

  void fill(std::span<const Point2> outline, base::Rgb colour) override {
    endPath();
    addPath(outline);
    setColour(colour);
    cairo_fill(context_.get());
  }

  base::Result<std::string> finish() override {
    endPath();
    std::string bytes;
    const cairo_status_t drawn = cairo_status(context_.get());
    if (drawn != CAIRO_STATUS_SUCCESS) return failure(drawn);
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface_.get(), append, &bytes);
    if (status != CAIRO_STATUS_SUCCESS) return failure(status);
    return bytes;
  }

 private:
  static cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
  }

  static constexpr std::size_t kMostPieces = 2000;  // long paths are slow to draw

  void endPath() {
    if (pieces_ == 0) return;
    setColour(colour_);
    cairo_set_line_width(context_.get(), width_);
    cairo_stroke(context_.get());
    pieces_ = 0;
  }

  void addPath(std::span<const Point2> points) {
    for (const Point2 point : points) cairo_line_to(context_.get(), point.x, point.y);
  }

  void setColour(base::Rgb colour) {
    cairo_set_source_rgb(context_.get(), colour.red / 255.0, colour.green / 255.0,
                         colour.blue / 255.0);
  }

  Surface surface_;
  Context context_;
  base::Rgb colour_;
  double width_ = 0;
  std::size_t pieces_ = 0;  // points of strokes not drawn yet
};

}  // namespace

base::Result<std::unique_ptr<BitmapCanvas>> BitmapCanvas::make(int width, int height,
                                                               base::Rgb background) {
  Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
  const cairo_status_t status = cairo_surface_status(surface.get());
  if (status != CAIRO_STATUS_SUCCESS) return failure(status);
  return std::unique_ptr<BitmapCanvas>(
      std::make_unique<CairoCanvas>(std::move(surface), height, background));
}

}  // namespace drafting
