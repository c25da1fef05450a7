// A bitmap that becomes a PNG file. Two implementations: one file a system.
#pragma once

#include <memory>
#include <string>

#include "embedded/base/canvas.h"
#include "embedded/base/status.h"

namespace drafting {

class BitmapCanvas : public base::Canvas {
 public:
  // Pixels. Fails where bitmaps of that size can't be made.
  static base::Result<std::unique_ptr<BitmapCanvas>> make(int width, int height,
                                                          base::Rgb background);
  virtual base::Result<std::string> finish() = 0;  // the file's bytes
};

}  // namespace drafting
