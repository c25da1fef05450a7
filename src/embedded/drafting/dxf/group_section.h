// The groups of one object of a DXF file, looked at by subclass: values by their codes, with what
// stands for a missing one. Views only; the bytes belong to ObjectGroups.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/geometry.h"
#include "embedded/drafting/database/object.h"

namespace drafting {

struct Group {
  int code = 0;
  std::string_view value;  // UTF-8, without line end
};

class GroupSection {
 public:
  GroupSection() = default;
  // All groups of an object, without its extended data. In files that have no subclass markers
  // every section is the whole object.
  explicit GroupSection(std::span<const Group> all);

  // Goes on to the next subclass of that name behind the present one. If the object has subclasses,
  // but not this one, the section is empty.
  void enter(std::string_view subclass);
  bool hasSubclass(std::string_view subclass) const;  // anywhere in the object

  const Group* find(int code) const;  // the first; null if there is none
  bool has(int code) const { return find(code) != nullptr; }
  std::string_view text(int code) const;  // "" if missing
  int integer(int code, int missing) const;
  double real(int code, double missing) const;
  base::Point3 point(int code, const base::Point3& missing) const;  // code, code + 10, code + 20
  Handle handle(int code) const;

  // The section cut before every group of that code; what stands before the first is left out.
  std::vector<GroupSection> split(int code) const;

  auto begin() const { return section_.begin(); }
  auto end() const { return section_.end(); }

  // A value that is no number counts as 0; too large ones as the nearest of the type.
  static int integerOf(const Group& group);
  static double realOf(const Group& group);
  static Handle handleOf(const Group& group);

 private:
  std::span<const Group> all_, section_;
  bool hasMarkers_ = false;
};

// The bytes that a value of binary data gives in hexadecimal.
std::string bytesOfHex(std::string_view digits);

}  // namespace drafting
