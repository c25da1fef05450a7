// Where the symbol picker stood when an edit was last finished, kept in a tree file of the user's:
// 当前页 the page, 当前块 the symbol picked.
#pragma once

#include <cstdint>

#include "platform/quill_data.h"

class PickerPosition {
 public:
  PickerPosition();  // reads the file; 0 and 0 without one

  std::int32_t page() const;
  std::int32_t selection() const;  // -1 when none was picked
  void save(std::int32_t page, std::int32_t selection);

 private:
  CQuillDpData tree_;
};
