// Reads and changes the lines of the information store's file.
#include "embedded/common_funcs/information_file.h"

#include <algorithm>

#include "embedded/base/text.h"
#include "embedded/common_funcs/escape.h"

namespace common_funcs {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The name within brackets, or nothing for another line.
std::optional<std::wstring> sectionOf(std::wstring_view line) {
  line = base::trim(line);
  if (line.size() < 2 || line.front() != L'[' || line.back() != L']') return std::nullopt;
  return unescape(line.substr(1, line.size() - 2));
}

bool isValueOf(std::wstring_view line, std::wstring_view name) {
  const std::size_t equals = line.find(L'=');
  if (equals == line.npos || line.front() == L'#') return false;
  return base::equalsNoCase(unescape(base::trim(line.substr(0, equals))), name);
}

}  // namespace

base::Status InformationFile::parse(std::string_view bytes) {
  lines_.clear();
  if (!base::isUtf8(bytes) || bytes.find('\0') != bytes.npos) {
    return base::Status::failure("is no UTF-8 text");
  }
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines_.push_back(base::wideFromUtf8(line));
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return {};
}

std::string InformationFile::serialise() const {
  std::string bytes;
  for (const std::wstring& line : lines_) {
    bytes += base::utf8FromWide(line);
    bytes += '\n';
  }
  return bytes;
}

std::size_t InformationFile::find(std::wstring_view section, std::wstring_view name) const {
  bool within = false;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (const auto title = sectionOf(lines_[i])) {
      within = base::equalsNoCase(*title, section);
    } else if (within && isValueOf(lines_[i], name)) {
      return i;
    }
  }
  return kNone;
}

// The position behind the section's last line that isn't empty; the section is made if needed.
std::size_t InformationFile::endOf(std::wstring_view section) {
  std::size_t end = kNone;
  bool within = false;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (const auto title = sectionOf(lines_[i])) within = base::equalsNoCase(*title, section);
    if (within && !base::trim(lines_[i]).empty()) end = i + 1;
  }
  if (end != kNone) return end;
  if (!lines_.empty()) lines_.emplace_back();
  lines_.push_back(L"[" + escape(section) + L"]");
  return lines_.size();
}

std::optional<std::wstring> InformationFile::get(std::wstring_view section,
                                                 std::wstring_view name) const {
  const std::size_t at = find(section, name);
  if (at == kNone) return std::nullopt;
  const std::wstring& line = lines_[at];
  return unescape(std::wstring_view(line).substr(line.find(L'=') + 1));
}

bool InformationFile::set(std::wstring_view section, std::wstring_view name,
                          std::wstring_view value) {
  const std::size_t at = find(section, name);
  const std::wstring line = escape(name) + L"=" + escape(value);
  if (at == kNone) {
    const std::size_t end = endOf(section);
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(end), line);
    return true;
  }
  if (get(section, name) == value) return false;
  lines_[at] = line;
  return true;
}

}  // namespace common_funcs
