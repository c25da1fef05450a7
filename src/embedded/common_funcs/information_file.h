// The information store's file: UTF-8 text of [sections] with name=value lines, values escaped
// (escape.h). Names compare without case. Lines that are neither are kept as they are, so that the
// file can be edited by hand.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"

namespace common_funcs {

class InformationFile {
 public:
  // Replaces the contents. Fails on bytes that are no UTF-8 text.
  base::Status parse(std::string_view bytes);
  std::string serialise() const;

  std::optional<std::wstring> get(std::wstring_view section, std::wstring_view name) const;
  // False when the value was the same before.
  bool set(std::wstring_view section, std::wstring_view name, std::wstring_view value);

 private:
  std::size_t find(std::wstring_view section, std::wstring_view name) const;
  std::size_t endOf(std::wstring_view section);
  std::vector<std::wstring> lines_;
};

}  // namespace common_funcs
