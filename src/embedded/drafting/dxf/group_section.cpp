#include "embedded/drafting/dxf/group_section.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"

namespace drafting {
namespace {

constexpr int kSubclassMarker = 100;

bool isMarker(const Group& group, std::string_view name) {
  return group.code == kSubclassMarker && base::trim(group.value) == name;
}

}  // namespace

GroupSection::GroupSection(std::span<const Group> all) : all_(all), section_(all) {
  hasMarkers_ = std::any_of(all.begin(), all.end(),
                            [](const Group& group) { return group.code == kSubclassMarker; });
}

void GroupSection::enter(std::string_view subclass) {
  if (!hasMarkers_) return;
  const auto from = section_.size() == all_.size()
                        ? all_.begin()
                        : all_.begin() + (section_.data() + section_.size() - all_.data());
  const auto marker = std::find_if(
      from, all_.end(), [subclass](const Group& group) { return isMarker(group, subclass); });
  const auto first = marker == all_.end() ? marker : marker + 1;
  const auto last = std::find_if(first, all_.end(),
                                 [](const Group& group) { return group.code == kSubclassMarker; });
  // An absent subclass leaves the place where it is, so that the next one is still found.
  if (marker == all_.end()) {
    section_ = all_.subspan(static_cast<std::size_t>(from - all_.begin()), 0);
    return;
  }
  section_ = all_.subspan(static_cast<std::size_t>(first - all_.begin()),
                          static_cast<std::size_t>(last - first));
}

bool GroupSection::hasSubclass(std::string_view subclass) const {
  return std::any_of(all_.begin(), all_.end(),
                     [subclass](const Group& group) { return isMarker(group, subclass); });
}

const Group* GroupSection::find(int code) const {
  for (const Group& group : section_) {
    if (group.code == code) return &group;
  }
  return nullptr;
}

std::string_view GroupSection::text(int code) const {
  const Group* group = find(code);
  return group ? group->value : std::string_view();
}

int GroupSection::integer(int code, int missing) const {
  const Group* group = find(code);
  return group ? integerOf(*group) : missing;
}

double GroupSection::real(int code, double missing) const {
  const Group* group = find(code);
  return group ? realOf(*group) : missing;
}

base::Point3 GroupSection::point(int code, const base::Point3& missing) const {
  if (!has(code)) return missing;
  return {real(code, 0), real(code + 10, 0), real(code + 20, 0)};
}

Handle GroupSection::handle(int code) const {
  const Group* group = find(code);
  return group ? handleOf(*group) : 0;
}

std::vector<GroupSection> GroupSection::split(int code) const {
  std::vector<GroupSection> parts;
  for (std::size_t i = 0; i < section_.size(); ++i) {
    if (section_[i].code == code)
      parts.push_back(*this), parts.back().section_ = section_.subspan(i);
  }
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
    auto& part = parts[i].section_;
    part = part.subspan(0, static_cast<std::size_t>(parts[i + 1].section_.data() - part.data()));
  }
  return parts;
}

int GroupSection::integerOf(const Group& group) { return base::atoi(group.value); }

double GroupSection::realOf(const Group& group) {
  const double value = base::parseDouble(group.value).value;
  return std::isfinite(value) ? value : 0;
}

Handle GroupSection::handleOf(const Group& group) {
  const std::string_view digits = base::trim(group.value);
  Handle handle = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), handle, 16);
  return error == std::errc() && end == digits.data() + digits.size() ? handle : 0;
}

std::string bytesOfHex(std::string_view digits) {
  const auto nibble = [](char c) { return (c <= '9' ? c - '0' : (c | 32) - 'a' + 10) & 0xF; };
  digits = base::trim(digits);
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
    bytes += static_cast<char>(nibble(digits[i]) << 4 | nibble(digits[i + 1]));
  }
  return bytes;
}

}  // namespace drafting
