// Windows has no Cairo; bitmaps come with the desktop's device contexts.
#include "embedded/drafting/plot/bitmap_canvas.h"

namespace drafting {

base::Result<std::unique_ptr<BitmapCanvas>> BitmapCanvas::make(int, int, base::Rgb) {
  return base::Status::failure("PNG files can't be made on this system; take .svg or .pdf");
}

}  // namespace drafting
