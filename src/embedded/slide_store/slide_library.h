// A slide library (.slb) in memory. Numbers on disk are frozen:
//
//   offset        size  field
//   0             25    "AutoCAD Slide Library 1.0"
//   25            7     0D 0A 1A 00 00 00 00; not looked at on reading
//   32            36n   directory: 32 bytes name, zero behind; 4 bytes offset, low byte first
//   32 + 36n      36    end record, its first byte 0
//   32 + 36(n+1)        the slides; one reaches to the next larger offset or the file's end
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"

namespace slide_store {

inline constexpr std::size_t kLongestName = 31;  // bytes in code page 936

// Capital letters for small ones among single-byte characters; the second byte of a double-byte
// character may look like a letter and stays.
std::string foldName(std::string_view ansi);

class SlideLibrary {
 public:
  // Replaces the contents. Fails when the header isn't a library's, or the file ends before it; a
  // damaged directory record costs that record only.
  base::Status parse(std::string bytes);
  // Fails when an offset would not fit its field.
  base::Result<std::string> serialise() const;

  // Null when there is none of that name. Good until the library changes.
  const std::string_view* find(std::string_view name) const;
  // Adds or replaces; the name must fit, and there must be bytes.
  bool add(std::string_view name, std::string_view bytes);
  bool remove(std::string_view name);

  std::size_t size() const { return slides_.size(); }
  std::vector<std::string> names() const;

 private:
  struct Slide {
    std::string name;
    std::string folded;
    std::string_view bytes;  // into file_, or into own
    std::shared_ptr<const std::string> own;
  };
  std::vector<Slide>::const_iterator locate(std::string_view name) const;
  void readDirectory();

  std::shared_ptr<const std::string> file_;  // what was parsed
  std::vector<Slide> slides_;
};

}  // namespace slide_store
