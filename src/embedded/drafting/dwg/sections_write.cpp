#include <bit>
#include <cmath>

#include "embedded/base/crc.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/field_writer.h"
#include "embedded/drafting/dwg/sections.h"

namespace drafting {
namespace {

// Sentinel, size, data, checksum over size and data, end sentinel.
std::string frame(std::string_view sentinel, std::string_view data) {
  std::string out(sentinel);
  putLow(out, data.size(), 4);
  out += data;
  putLow(out, base::crc16(out.data() + kSentinelSize, out.size() - kSentinelSize), 2);
  out += endSentinel(sentinel);
  return out;
}

struct Time {
  std::uint32_t day = 0, milliseconds = 0;
};

Time timeOf(double date) {
  if (!(date >= 0 && date < 4294967295.0)) return {};
  const double day = std::floor(date);
  return {static_cast<std::uint32_t>(day),
          static_cast<std::uint32_t>(std::round((date - day) * 86400000.0))};
}

void putTime(std::string& out, double date) {
  const Time time = timeOf(date);
  putLow(out, time.day, 4);
  putLow(out, time.milliseconds, 4);
}

// Unsigned handle steps: 7 bits a byte, low group first.
void putStep(std::string& out, std::uint64_t value) {
  for (; value >= 0x80; value >>= 7) out += static_cast<char>(value | 0x80);
  out += static_cast<char>(value);
}

// Signed address steps: magnitude, with bit 6 of the last byte as sign.
void putSignedStep(std::string& out, std::int64_t value) {
  auto magnitude = static_cast<std::uint64_t>(value < 0 ? -value : value);
  for (; magnitude >= 0x40; magnitude >>= 7) out += static_cast<char>(magnitude | 0x80);
  out += static_cast<char>(magnitude | (value < 0 ? 0x40u : 0u));
}

void putHigh16(std::string& out, std::size_t value) {
  out += static_cast<char>(value >> 8);
  out += static_cast<char>(value);
}

void closeChunk(std::string& out, std::size_t start) {
  const std::size_t length = out.size() - start;
  out[start] = static_cast<char>(length >> 8);
  out[start + 1] = static_cast<char>(length);
  putHigh16(out, base::crc16(out.data() + start, length));
}

}  // namespace

base::Result<std::string> writeHeaderVariables(const Database& database) {
  FieldWriter w;
  w.codePage = database.codePage;
  const auto table = variables();
  static const int seed = Header::indexOf("HANDSEED");
  static const int style = Header::indexOf("CEPSNTYPE"), name = Header::indexOf("CPSNID");
  for (int i = 0; i < static_cast<int>(table.size()); ++i) {
    if (i == name && std::get<int>(database.header.at(style)) != 3) continue;
    const Header::Value value =
        i == seed ? Header::Value(database.nextHandle()) : database.header.at(i);
    w.variable(table[static_cast<std::size_t>(i)], value, w.data);
  }
  if (w.tooLong) return base::Status::failure("a text of the drawing variables is too long");
  return frame(kHeaderSentinel, w.data.finish());
}

base::Result<std::string> writeClasses(const std::vector<DxfClass>& classes, int codePage) {
  FieldWriter w;
  w.codePage = codePage;
  for (const DxfClass& entry : classes) {
    w.data.shortInteger(entry.number);
    w.data.shortInteger(entry.flags);
    w.text("", 0, entry.application);
    w.text("", 0, entry.cppName);
    w.text("", 0, entry.dxfName);
    w.data.bit(entry.wasProxy);
    w.data.shortInteger(entry.itemKind);
  }
  if (w.tooLong) return base::Status::failure("a text of the drawing's classes is too long");
  return frame(kClassesSentinel, w.data.finish());
}

std::string writeObjectMap(const std::vector<MapEntry>& entries) {
  constexpr std::size_t kLongestEntry = 10 + 6;
  std::string out;
  std::size_t start = 0;
  const auto open = [&] {
    start = out.size();
    out.append(2, '\0');
  };
  open();
  MapEntry last;
  for (const MapEntry& entry : entries) {
    if (out.size() - start + kLongestEntry > kMapChunkLimit) {
      closeChunk(out, start);
      open();
      last = {};  // every chunk counts from 0 again
    }
    putStep(out, entry.handle - last.handle);
    putSignedStep(out, std::int64_t{entry.address} - std::int64_t{last.address});
    last = entry;
  }
  closeChunk(out, start);
  if (!entries.empty()) {
    open();
    closeChunk(out, start);  // the empty one that ends the map
  }
  return out;
}

std::string writePreview(const Database& database, std::size_t address) {
  std::string out(kPreviewSentinel);
  const auto& pictures = database.previews;
  std::size_t size = 1 + 9 * pictures.size();
  std::size_t at = address + kSentinelSize + 4 + size;
  for (const auto& [kind, data] : pictures) size += data.size();
  putLow(out, size, 4);
  out += static_cast<char>(pictures.size());
  for (const auto& [kind, data] : pictures) {
    out += static_cast<char>(kind);
    putLow(out, at, 4);
    putLow(out, data.size(), 4);
    at += data.size();
  }
  for (const auto& [kind, data] : pictures) out += data;
  out += endSentinel(kPreviewSentinel);
  return out;
}

std::string writeAuxiliaryHeader(const Database& database) {
  const auto saves = static_cast<std::uint32_t>(database.saves) + 1;
  const Handle seed = database.nextHandle();
  std::string out("\xFF\x77\x01");
  putLow(out, kProgramVersion, 2);
  putLow(out, kMaintenance, 2);
  putLow(out, saves, 4);
  putLow(out, 0xFFFFFFFF, 4);
  putLow(out, std::min(saves, 0x7FFFu), 2);
  putLow(out, saves > 0x7FFF ? saves - 0x7FFF : 0, 2);
  putLow(out, 0, 4);
  for (int i = 0; i < 2; ++i) {
    putLow(out, kProgramVersion, 2);
    putLow(out, kMaintenance, 2);
  }
  for (const std::uint64_t value : {5u, 0x893u, 5u, 0x893u, 0u, 1u}) putLow(out, value, 2);
  out.append(20, '\0');
  putTime(out, database.header.real("TDCREATE"));
  putTime(out, database.header.real("TDUPDATE"));
  putLow(out, seed > 0x7FFFFFFF ? 0xFFFFFFFF : seed, 4);
  putLow(out, 0, 4);
  putLow(out, 0, 2);
  putLow(out, saves, 2);
  out.append(12, '\0');
  putLow(out, saves, 4);
  out.append(16, '\0');
  return out;
}

std::string writeFreeSpace(const Database& database, std::uint32_t firstObject) {
  std::string out;
  putLow(out, 0, 4);
  putLow(out, database.nextHandle() - 1, 4);
  putTime(out, database.header.real("TDUPDATE"));
  putLow(out, firstObject, 4);
  out += '\4';
  for (const std::uint64_t value : {0x32u, 0x64u, 0x200u, 0xFFFFFFFFu}) putLow(out, value, 8);
  return out;
}

std::string writeSecondHeader(const Database& database, std::uint32_t address,
                              const std::array<Locator, kSectionCount>& locators) {
  BitWriter w;
  w.rawLong(0);  // size, set below
  w.longInteger(address);
  w.bytes(kDwgVersion);
  w.bytes({"\0\0\0\0\0", 5});
  w.rawByte(kMaintenance);
  w.rawByte(1);
  w.shortInteger(kProgramVersion + 256 * kMaintenance);
  w.rawShort(static_cast<std::uint16_t>(drawingCodePage(database.codePage)));
  w.shortInteger(kSectionCount);
  for (std::size_t i = 0; i < kSectionCount; ++i) {
    const bool hidden = i == kSectionTemplate;  // written as 0, 0
    w.rawByte(static_cast<unsigned>(i));
    w.longInteger(hidden ? 0 : locators[i].address);
    w.longInteger(hidden ? 0 : locators[i].size);
  }
  constexpr const char* kHandles[] = {"HANDSEED",
                                      "BLOCK_CONTROL",
                                      "LAYER_CONTROL",
                                      "STYLE_CONTROL",
                                      "LTYPE_CONTROL",
                                      "VIEW_CONTROL",
                                      "UCS_CONTROL",
                                      "VPORT_CONTROL",
                                      "APPID_CONTROL",
                                      "DIMSTYLE_CONTROL",
                                      "VIEWPORT_CONTROL",
                                      "NAMED_DICTIONARY",
                                      "MLINESTYLE_DICTIONARY",
                                      "GROUP_DICTIONARY"};
  w.shortInteger(std::size(kHandles));
  for (unsigned i = 0; i < std::size(kHandles); ++i) {
    const Handle handle = i == 0 ? database.nextHandle() : database.header.handle(kHandles[i]);
    const int count = (static_cast<int>(std::bit_width(handle)) + 7) / 8;
    w.rawByte(static_cast<unsigned>(count));
    w.rawByte(i);
    for (int byte = count; byte-- > 0;) w.rawByte(static_cast<unsigned>(handle >> byte * 8 & 0xFF));
  }
  std::string data(w.finish());
  const std::size_t size = data.size() + 2 + 8 + kSentinelSize;
  std::string out(kSecondHeaderSentinel);
  putLow(out, size - kSentinelSize, 4);
  out += data.substr(4);
  putLow(out, base::crc16(out.data() + kSentinelSize, out.size() - kSentinelSize), 2);
  out.append(8, '\0');
  out += endSentinel(kSecondHeaderSentinel);
  return out;
}

std::string writeFileHeader(const Database& database, std::uint32_t preview,
                            const std::array<Locator, kSectionCount>& locators) {
  std::string out(kDwgVersion);
  out.append(5, '\0');
  out += static_cast<char>(kMaintenance);
  out += '\1';
  putLow(out, preview, 4);
  out += static_cast<char>(kProgramVersion);
  out += static_cast<char>(kMaintenance);
  putLow(out, static_cast<std::uint64_t>(drawingCodePage(database.codePage)), 2);
  putLow(out, kSectionCount, 4);
  for (std::size_t i = 0; i < kSectionCount; ++i) {
    out += static_cast<char>(i);
    putLow(out, locators[i].address, 4);
    putLow(out, locators[i].size, 4);
  }
  putLow(out, base::crc16(out.data(), out.size()), 2);
  out += kFileHeaderEnd;
  return out;
}

}  // namespace drafting
