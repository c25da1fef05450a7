#include "embedded/base/crc.h"
#include "embedded/drafting/dwg/field_reader.h"
#include "embedded/drafting/dwg/sections.h"

namespace drafting {
namespace {

using base::Status;

// The data between a section's sentinels; `status` says what is wrong with its frame. Data are
// given as long as the size word fits.
std::string_view unframe(std::string_view section, std::string_view sentinel, Status& status) {
  constexpr std::size_t kAround = 2 * kSentinelSize + 4 + 2;
  if (section.size() < kAround) {
    status = Status::failure("too short");
    return {};
  }
  const std::size_t size = getLow(section, kSentinelSize, 4);
  if (size > section.size() - kAround) {
    status = Status::failure("its size is wrong");
    return {};
  }
  const std::string_view data = section.substr(kSentinelSize + 4, size);
  const std::size_t crcAt = kSentinelSize + 4 + size;
  if (section.substr(0, kSentinelSize) != sentinel) {
    status = Status::failure("its begin mark is missing");
  } else if (section.substr(crcAt + 2, kSentinelSize) != endSentinel(sentinel)) {
    status = Status::failure("its end mark is missing");
  } else if (base::crc16(section.data() + kSentinelSize, 4 + size) != getLow(section, crcAt, 2)) {
    status = Status::failure("its checksum is wrong");
  }
  return data;
}

struct ChunkReader {
  std::string_view bytes;
  std::size_t at = 0;
  bool ok = true;

  // Groups of 7 bits, low group first; the last byte has the top bit clear.
  std::uint64_t step(bool isSigned) {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      if (at >= bytes.size()) break;
      const auto byte = static_cast<unsigned char>(bytes[at++]);
      if (byte & 0x80) {
        value |= std::uint64_t{byte & 0x7Fu} << shift;
        continue;
      }
      if (!isSigned) return value | std::uint64_t{byte} << shift;
      value |= std::uint64_t{byte & 0x3Fu} << shift;
      return byte & 0x40 ? ~value + 1 : value;
    }
    ok = false;
    return 0;
  }
};

}  // namespace

Status readHeaderVariables(std::string_view section, Database& database) {
  Status status;
  FieldReader r;
  r.data = BitReader(unframe(section, kHeaderSentinel, status));
  r.codePage = database.codePage;
  Header header;
  const auto table = variables();
  static const int style = Header::indexOf("CEPSNTYPE"), name = Header::indexOf("CPSNID");
  for (int i = 0; i < static_cast<int>(table.size()); ++i) {
    if (i == name && std::get<int>(header.at(style)) != 3) continue;
    r.variable(table[static_cast<std::size_t>(i)], header.at(i), r.data);
  }
  // Some programs leave a byte behind the last variable; too few bytes mean damage.
  if (!r.data.ok()) return Status::failure(status.ok() ? "it ends too early" : status.message());
  const int measurement = database.header.integer("MEASUREMENT");  // not from this section
  database.header = std::move(header);
  database.header.set("MEASUREMENT", measurement);
  return status;
}

Status readClasses(std::string_view section, Database& database) {
  Status status;
  FieldReader r;
  r.data = BitReader(unframe(section, kClassesSentinel, status));
  r.codePage = database.codePage;
  while (r.data.left() >= 8) {
    DxfClass entry;
    entry.number = r.data.shortInteger();
    entry.flags = r.data.shortInteger();
    r.text("", 0, entry.application);
    r.text("", 0, entry.cppName);
    r.text("", 0, entry.dxfName);
    entry.wasProxy = r.data.bit();
    entry.itemKind = r.data.shortInteger();
    if (!r.data.ok() || entry.number != 500 + database.classes.size()) {
      return status.ok() ? Status::failure("an entry is damaged") : status;
    }
    database.classes.push_back(std::move(entry));
  }
  return status;
}

Status readObjectMap(std::string_view section, std::size_t fileSize,
                     std::vector<MapEntry>& entries) {
  Status status;
  const auto complain = [&status](const char* what) {
    if (status.ok()) status = Status::failure(what);
  };
  std::uint64_t highest = 0;
  for (std::size_t at = 0;;) {
    if (section.size() - at < 4) return Status::failure("its end is missing");
    const std::size_t length = static_cast<unsigned char>(section[at]) * 256u +
                               static_cast<unsigned char>(section[at + 1]);
    if (length < 2 || length > kMapChunkAccepted || length + 2 > section.size() - at) {
      return Status::failure("the length of a part is wrong");
    }
    const std::size_t crc = static_cast<unsigned char>(section[at + length]) * 256u +
                            static_cast<unsigned char>(section[at + length + 1]);
    if (base::crc16(section.data() + at, length) != crc) complain("a checksum is wrong");
    if (length == 2) return status;
    ChunkReader chunk{section.substr(at + 2, length - 2)};
    std::uint64_t handle = 0, address = 0;
    while (chunk.at < chunk.bytes.size()) {
      handle += chunk.step(false);
      address += chunk.step(true);
      if (!chunk.ok) {
        complain("an entry is cut");
      } else if (handle <= highest || address >= fileSize) {
        complain("an entry is wrong");
      } else {
        entries.push_back({handle, static_cast<std::uint32_t>(address)});
        highest = handle;
      }
    }
    at += length + 2;
  }
}

void readPreview(std::string_view file, std::size_t address, Database& database) {
  constexpr std::size_t kHead = kSentinelSize + 4 + 1;
  if (address == 0 || address > file.size() || file.size() - address < kHead) return;
  if (file.substr(address, kSentinelSize) != kPreviewSentinel) return;
  const std::size_t count = static_cast<unsigned char>(file[address + kHead - 1]);
  if (file.size() - address - kHead < count * 9) return;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = address + kHead + i * 9;
    const std::size_t at = getLow(file, entry + 1, 4), size = getLow(file, entry + 5, 4);
    if (at > file.size() || size > file.size() - at) continue;
    database.previews.emplace_back(static_cast<std::uint8_t>(file[entry]), file.substr(at, size));
  }
}

}  // namespace drafting
