// What CSlideLibraryData holds: the library and its slides' order.
#pragma once

#include <cstdint>
#include <string_view>

#include "embedded/slide_store/slide_library.h"
#include "platform/slide_store.h"

struct CSlideLibraryData::State {
  slide_store::SlideLibrary library;

  // The bytes of the slide with that index; empty when there is none.
  std::string_view slide(std::uint16_t index) const;
};
