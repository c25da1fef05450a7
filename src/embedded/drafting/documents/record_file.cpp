#include "embedded/drafting/documents/record_file.h"

#include <zlib.h>

#include "embedded/drafting/database/object.h"

namespace drafting {
namespace {

// Images of objects belong to one release: kinds are counted, and the form of the entries.
constexpr std::string_view kRelease = "Vornikplan10 record 1";
constexpr unsigned kKinds = static_cast<unsigned>(Kind::Dictionary);
constexpr std::size_t kFrame = 8;
constexpr std::uint32_t kLargestEntry = std::uint32_t{1} << 31;

void put(std::string& out, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<char>(value >> (8 * i)));
}

std::uint32_t get(std::string_view bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    value |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
  }
  return value;
}

std::string release() {
  std::string text(kRelease);
  text.push_back(static_cast<char>(kKinds));
  return text;
}

}  // namespace

std::uint32_t checksumOf(std::string_view bytes) {
  return static_cast<std::uint32_t>(
      crc32_z(0, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()));
}

std::string encodeStart(const RecordStart& start) {
  std::string out = release();
  put(out, start.drawingChecksum);
  out.push_back(start.changed ? '\1' : '\0');
  return out + start.path;
}

bool decodeStart(std::string_view bytes, RecordStart& start) {
  const std::string expected = release();
  if (bytes.size() < expected.size() + 5 || bytes.substr(0, expected.size()) != expected) {
    return false;
  }
  bytes.remove_prefix(expected.size());
  start.drawingChecksum = get(bytes);
  start.changed = bytes[4] != '\0';
  start.path = bytes.substr(5);
  return true;
}

base::Status RecordWriter::create(const std::filesystem::path& path) {
  if (base::Status closed = file_.close(); !closed) return closed;
  size_ = 0;
  flushed_ = Clock::now();
  return file_.create(path);
}

base::Status RecordWriter::write(RecordKind kind, std::string_view content) {
  if (content.size() >= kLargestEntry) {
    return base::Status::failure("a step of more than 2 GB can't be recorded");
  }
  std::string entry;
  entry.reserve(kFrame + 1 + content.size());
  put(entry, static_cast<std::uint32_t>(content.size() + 1));
  put(entry, 0);
  entry.push_back(static_cast<char>(kind));
  entry.append(content);
  std::string checksum;
  put(checksum, checksumOf(std::string_view(entry).substr(kFrame)));
  entry.replace(4, 4, checksum);
  base::Status status = file_.write(entry);
  size_ += entry.size();
  if (status && Clock::now() - flushed_ >= std::chrono::seconds(1)) {
    status = file_.flush();
    flushed_ = Clock::now();
  }
  return status;
}

bool readRecord(std::string_view bytes,
                const std::function<bool(RecordKind, std::string_view content)>& take) {
  while (bytes.size() >= kFrame) {
    const std::uint32_t length = get(bytes);
    const std::uint32_t checksum = get(bytes.substr(4));
    bytes.remove_prefix(kFrame);
    if (length == 0 || length > bytes.size()) return false;
    const std::string_view payload = bytes.substr(0, length);
    if (checksumOf(payload) != checksum) return false;
    if (!take(static_cast<RecordKind>(payload[0]), payload.substr(1))) return false;
    bytes.remove_prefix(length);
  }
  return bytes.empty();
}

}  // namespace drafting
