// Reads and writes slide libraries.
#include "embedded/slide_store/slide_library.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <set>

namespace slide_store {

namespace {

constexpr std::string_view kTitle = "AutoCAD Slide Library 1.0";
constexpr std::string_view kTail("\x0D\x0A\x1A\0\0\0\0", 7);
constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kNameSize = 32;
constexpr std::size_t kRecordSize = 36;

std::uint32_t readLow(const char* bytes) {
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i) value = value << 8 | static_cast<std::uint8_t>(bytes[i]);
  return value;
}

void writeLow(std::string& out, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) out += static_cast<char>(value >> (8 * i));
}

bool isLead(char c) {
  const auto byte = static_cast<std::uint8_t>(c);
  return byte >= 0x81 && byte <= 0xFE;
}

}  // namespace

std::string foldName(std::string_view ansi) {
  std::string folded(ansi);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    char& c = folded[i];
    if (isLead(c)) {
      ++i;
    } else if (c >= 'a' && c <= 'z') {
      c = static_cast<char>(c - 32);
    }
  }
  return folded;
}

base::Status SlideLibrary::parse(std::string bytes) {
  slides_.clear();
  file_ = std::make_shared<const std::string>(std::move(bytes));
  if (file_->size() < kHeaderSize || !file_->starts_with(kTitle)) {
    return base::Status::failure("byte 0: is no slide library");
  }
  readDirectory();
  return {};
}

// Records up to the end record, the first slide or the end of the file.
void SlideLibrary::readDirectory() {
  const std::string_view file = *file_;
  std::size_t directoryEnd = file.size();
  std::set<std::size_t> offsets = {file.size()};
  std::vector<std::size_t> starts;
  for (std::size_t at = kHeaderSize; at + kRecordSize <= directoryEnd; at += kRecordSize) {
    if (file[at] == '\0') break;
    const std::string_view field = file.substr(at, kNameSize);
    const std::size_t offset = readLow(file.data() + at + kNameSize);
    if (offset < at + kRecordSize || offset >= file.size()) continue;  // damaged
    directoryEnd = std::min(directoryEnd, offset);
    offsets.insert(offset);
    starts.push_back(offset);
    std::string name(field.substr(0, std::min(field.find('\0'), kLongestName)));
    slides_.push_back({name, foldName(name), {}, nullptr});
  }
  for (std::size_t i = 0; i < slides_.size(); ++i) {
    const std::size_t end = *offsets.upper_bound(starts[i]);
    slides_[i].bytes = file.substr(starts[i], end - starts[i]);
  }
}

base::Result<std::string> SlideLibrary::serialise() const {
  std::string out(kTitle);
  out += kTail;
  std::string body;
  const std::size_t first = kHeaderSize + kRecordSize * (slides_.size() + 1);
  std::map<const char*, std::size_t> written;  // records that share a slide go on sharing it
  for (const Slide& slide : slides_) {
    const auto [place, isNew] = written.try_emplace(slide.bytes.data(), first + body.size());
    if (isNew) body += slide.bytes;
    if (place->second > std::numeric_limits<std::uint32_t>::max()) {
      return base::Status::failure("the slide library is too large");
    }
    std::string name = slide.name;
    name.resize(kNameSize, '\0');
    out += name;
    writeLow(out, static_cast<std::uint32_t>(place->second));
  }
  out.append(kRecordSize, '\0');
  return out + body;
}

std::vector<SlideLibrary::Slide>::const_iterator SlideLibrary::locate(std::string_view name) const {
  const std::string folded = foldName(name);
  return std::find_if(slides_.begin(), slides_.end(),
                      [&](const Slide& slide) { return slide.folded == folded; });
}

const std::string_view* SlideLibrary::find(std::string_view name) const {
  const auto found = locate(name);
  return found == slides_.end() ? nullptr : &found->bytes;
}

bool SlideLibrary::add(std::string_view name, std::string_view bytes) {
  if (name.empty() || name.size() > kLongestName || bytes.empty()) return false;
  auto own = std::make_shared<const std::string>(bytes);
  Slide slide{std::string(name), foldName(name), *own, own};
  const auto found = locate(name);
  if (found == slides_.end()) {
    slides_.push_back(std::move(slide));
  } else {
    slides_[static_cast<std::size_t>(found - slides_.begin())] = std::move(slide);
  }
  return true;
}

bool SlideLibrary::remove(std::string_view name) {
  const auto found = locate(name);
  if (found == slides_.end()) return false;
  slides_.erase(found);
  return true;
}

std::vector<std::string> SlideLibrary::names() const {
  std::vector<std::string> all;
  for (const Slide& slide : slides_) all.push_back(slide.name);
  return all;
}

}  // namespace slide_store
