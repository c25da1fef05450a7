// Writes the groups of a DXF file: a line with the code, a line with the value. Texts come as UTF-8
// and go out in the drawing's code page; lines end with CR LF.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "embedded/base/geometry.h"
#include "embedded/base/status.h"

namespace drafting {

class GroupSink {
 public:
  // Takes the file's bytes piece by piece.
  using Output = std::function<base::Status(std::string_view)>;

  GroupSink(int codePage, Output output);

  // Control characters go out as ^J and its like, since a value is one line, and ^ as "^ ".
  void text(int code, std::string_view utf8);
  void integer(int code, std::int64_t value);
  // The fewest digits that read back as the same value; what isn't finite becomes 0.
  void real(int code, double value);
  // In degrees, as digits that read back as the same radians wherever there are such.
  void angle(int code, double radians);
  void handle(int code, std::uint64_t value);
  void point(int code, const base::Point3& value);  // groups code, code + 10, code + 20
  void flat(int code, const base::Point2& value);
  void binary(int code, std::string_view bytes);  // hexadecimal, 127 bytes a group

  // Sends what is still held. The first failure of the output; nothing is sent after it.
  base::Status finish();

 private:
  void begin(int code, std::size_t room);
  void put(std::string_view bytes);
  void end();
  void send();

  int codePage_;
  Output output_;
  base::Status status_;
  std::string buffer_;
  std::size_t used_ = 0;
  std::string coded_;
};

}  // namespace drafting
