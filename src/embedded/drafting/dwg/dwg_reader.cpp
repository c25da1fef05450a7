// Opening goes: version, locators, header variables, classes, object map, then each object by
// itself, then tables and chains. A damaged section or object costs no more than itself.
#include "embedded/drafting/dwg/dwg_reader.h"

#include <cstdio>

#include "embedded/base/crc.h"
#include "embedded/base/files.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/chain_builder.h"
#include "embedded/drafting/dwg/sections.h"

namespace drafting {
namespace {

using base::Status;

std::string hex(std::uint64_t number) {
  char out[20];
  std::snprintf(out, sizeof out, "%llX", static_cast<unsigned long long>(number));
  return out;
}

struct Release {
  const char* version;
  const char* name;
};

constexpr Release kNewer[] = {{"AC1018", "2004"},
                              {"AC1021", "2007"},
                              {"AC1024", "2010"},
                              {"AC1027", "2013"},
                              {"AC1032", "2018"}};
constexpr Release kOlder[] = {{"AC1014", "14"},  {"AC1013", "13"}, {"AC1012", "13"},
                              {"AC1009", "12"},  {"AC1006", "10"}, {"AC1004", "9"},
                              {"AC1003", "2.6"}, {"AC1002", "2.5"}};

// Why `bytes` can't be read at all; good if they can.
Status checkVersion(std::string_view bytes, const std::string& name) {
  const std::string_view version = bytes.substr(0, 6);
  if (version == kDwgVersion && bytes.size() >= kFileHeaderSize) return {};
  const auto failure = [&name](const std::string& what) {
    return Status::failure(name + ": " + what);
  };
  if (version == kDwgVersion) return failure("the file is cut off in its header");
  for (const Release& release : kNewer) {
    if (version == release.version) {
      return failure("the drawing is of version " + std::string(release.name) + " (" +
                     release.version +
                     "), newer than 2000 (AC1015), which can be read; save it "
                     "as a 2000 drawing or as DXF in the program that it comes from");
    }
  }
  for (const Release& release : kOlder) {
    if (version == release.version) {
      return failure("the drawing is of release " + std::string(release.name) + " (" +
                     release.version +
                     "), older than 2000 (AC1015), which can be read; open it "
                     "in a newer program and save it as a 2000 drawing or as DXF");
    }
  }
  if (version.substr(0, 2) == "AC") {
    return failure("the drawing is of an unknown version (" + std::string(version) +
                   "); only version 2000 (AC1015) can be read");
  }
  return failure("the file is no drawing (DWG)");
}

// The bytes of one object between its size and its checksum, and where they lie.
struct Framed {
  std::size_t begin = 0, end = 0;
};

class DwgReader {
 public:
  DwgReader(std::string_view bytes, ReadReport& report)
      : bytes_(bytes), report_(report), chains_(*db_, report) {}

  base::Result<std::unique_ptr<Database>> read(const std::string& name);

 private:
  std::string_view section(std::size_t number) const;
  void readLocators();
  void readSections();
  void readObjects();
  bool frame(const MapEntry& entry, Framed& framed);
  void readObject(const MapEntry& entry);
  std::unique_ptr<Object> decode(const MapEntry& entry, std::uint16_t type, std::size_t at,
                                 const Framed& framed, std::size_t bitSize);
  std::unique_ptr<Object> attempt(Kind kind, bool& whole);
  Kind kindOf(std::uint16_t type) const;
  const DxfClass* classOf(std::uint16_t type) const;
  void nameBlocks();

  std::string_view bytes_;
  ReadReport& report_;
  std::unique_ptr<Database> db_ = std::make_unique<Database>();
  ChainBuilder chains_;
  std::array<Locator, kSectionCount> locators_{};
  std::vector<MapEntry> map_;
  FieldReader reader_;  // of the object being read
  EntityFrame frame_;
};

std::string_view DwgReader::section(std::size_t number) const {
  const Locator& locator = locators_[number];
  if (locator.address > bytes_.size() || locator.size > bytes_.size() - locator.address) return {};
  return bytes_.substr(locator.address, locator.size);
}

void DwgReader::readLocators() {
  constexpr std::size_t kCountAt = 0x15, kFirstAt = 0x19, kEach = 9;
  const std::size_t count = getLow(bytes_, kCountAt, 4);
  const std::size_t present = std::min<std::size_t>(count, kSectionCount);
  if (count < 3 || count > kSectionCount) report_.add(kCountAt, "the number of sections is wrong");
  for (std::size_t i = 0; i < present; ++i) {
    const std::size_t at = kFirstAt + i * kEach;
    const auto number = static_cast<unsigned char>(bytes_[at]);
    if (number >= kSectionCount) {
      report_.add(at, "a section has an unknown number");
      continue;
    }
    locators_[number] = {static_cast<std::uint32_t>(getLow(bytes_, at + 1, 4)),
                         static_cast<std::uint32_t>(getLow(bytes_, at + 5, 4))};
  }
  const std::size_t crcAt = kFirstAt + present * kEach;
  if (base::crc16(bytes_.data(), crcAt) != getLow(bytes_, crcAt, 2)) {
    report_.add(crcAt, "the checksum of the file header is wrong");
  }
}

void DwgReader::readSections() {
  db_->codePage = windowsCodePage(static_cast<int>(getLow(bytes_, 0x13, 2)));
  if (const std::string_view end = section(kSectionTemplate); end.size() >= 4) {
    db_->header.set("MEASUREMENT", static_cast<int>(getLow(end, 2, 2)));
  }
  if (const std::string_view auxiliary = section(kSectionAuxiliary); auxiliary.size() >= 11) {
    db_->saves = static_cast<std::int32_t>(getLow(auxiliary, 7, 4) & 0x7FFFFFFF);
  }
  readPreview(bytes_, getLow(bytes_, 0x0D, 4), *db_);
  const auto note = [this](SectionNumber number, const char* what, const Status& status) {
    if (!status)
      report_.add(locators_[number].address, std::string(what) + ": " + status.message());
  };
  note(kSectionHeader, "drawing variables", readHeaderVariables(section(kSectionHeader), *db_));
  note(kSectionClasses, "classes", readClasses(section(kSectionClasses), *db_));
  note(kSectionMap, "object map", readObjectMap(section(kSectionMap), bytes_.size(), map_));
}

// Checks the size and the checksum of the object at an address.
bool DwgReader::frame(const MapEntry& entry, Framed& framed) {
  std::size_t at = entry.address, size = 0;
  for (unsigned shift = 0;; shift += 15) {
    if (shift > 30 || bytes_.size() - at < 2) return false;
    const std::uint64_t word = getLow(bytes_, at, 2);
    size |= (word & 0x7FFF) << shift;
    at += 2;
    if (!(word & 0x8000)) break;
  }
  if (bytes_.size() - at < 2 || size > bytes_.size() - at - 2) return false;
  framed = {at, at + size};
  if (base::crc16(bytes_.data() + entry.address, framed.end - entry.address) !=
      getLow(bytes_, framed.end, 2)) {
    report_.add(entry.address, "object " + hex(entry.handle) + ": its checksum is wrong");
  }
  return true;
}

const DxfClass* DwgReader::classOf(std::uint16_t type) const {
  if (type < kFirstClass) return nullptr;
  const std::size_t index = type - kFirstClass;
  return index < db_->classes.size() ? &db_->classes[index] : nullptr;
}

Kind DwgReader::kindOf(std::uint16_t type) const {
  if (type < kFirstClass) return kindOfType(type);
  const DxfClass* entry = classOf(type);
  if (!entry) return Kind::RawObject;
  if (entry->dxfName == "ACDBDICTIONARYWDFLT") return Kind::Dictionary;
  return entry->isEntity() ? Kind::RawEntity : Kind::RawObject;
}

// The object in reader_ read as one of that kind.
std::unique_ptr<Object> DwgReader::attempt(Kind kind, bool& whole) {
  FieldReader& r = reader_;
  frame_ = {};
  std::unique_ptr<Object> object = makeObject(kind);
  object->handle = r.self;
  Table table;
  if (kind == Kind::RawEntity) static_cast<RawEntity&>(*object).type = r.type;
  if (kind == Kind::RawObject) static_cast<RawObject&>(*object).type = r.type;
  if (tableOfControlType(r.type, table) && kind == Kind::Control) {
    static_cast<Control&>(*object).table = table;
  }
  if (kind == Kind::Dictionary) {
    static_cast<Dictionary&>(*object).withDefault = r.type >= kFirstClass;
  }
  whole = readObjectBody(r, *object, frame_);
  return object;
}

// The object whose data stand at bit `at`: as its own kind, or, if that isn't wholly understood, as
// raw bits. Tables and records are taken as far as they could be read.
std::unique_ptr<Object> DwgReader::decode(const MapEntry& entry, std::uint16_t type, std::size_t at,
                                          const Framed& framed, std::size_t bitSize) {
  const auto start = [&] {
    reader_.data = BitReader(bytes_, at, framed.begin * 8 + bitSize);
    reader_.references = BitReader(bytes_, framed.begin * 8 + bitSize, framed.end * 8);
    reader_.codePage = db_->codePage;
    reader_.self = entry.handle;
    reader_.type = type;
    reader_.links = {};
  };
  bool whole = false;
  const Kind kind = kindOf(type);
  start();
  std::unique_ptr<Object> object = attempt(kind, whole);
  if (whole) return object;
  const bool canBeRaw = isEntity(kind) && kind != Kind::Block && kind != Kind::EndBlock;
  if (!canBeRaw) {
    if (!reader_.ok()) return nullptr;
    report_.add(entry.address, "object " + hex(entry.handle) + " has more data than is known");
    return object;
  }
  report_.add(entry.address, "object " + hex(entry.handle) + " isn't understood; kept as it is");
  start();
  object = attempt(Kind::RawEntity, whole);
  return whole ? std::move(object) : nullptr;
}

void DwgReader::readObject(const MapEntry& entry) {
  const auto drop = [&](const char* why) {
    report_.add(entry.address, "object " + hex(entry.handle) + ": " + why + "; left out");
  };
  Framed framed;
  if (!frame(entry, framed)) return drop("it doesn't lie in the file");
  BitReader head(bytes_, framed.begin * 8, framed.end * 8);
  const std::uint16_t type = head.shortInteger();
  const std::size_t bitSize = head.rawLong();
  const StoredReference own = head.reference();
  if (!head.ok() || bitSize > (framed.end - framed.begin) * 8) return drop("its size is wrong");
  if (own.code != 0 || own.number != entry.handle) return drop("it says it is another one");
  std::unique_ptr<Object> object = decode(entry, type, head.position(), framed, bitSize);
  if (!object) return drop("its data are damaged");
  Object& made = *object;
  if (db_->adopt(std::move(object))) chains_.add(made, reader_.links, frame_);
}

void DwgReader::readObjects() {
  chains_.reserve(map_.size());
  for (const MapEntry& entry : map_) readObject(entry);
}

// The record of an anonymous block holds only the kind of name; its BLOCK has the full one.
void DwgReader::nameBlocks() {
  db_->forEach([this](Object& object) {
    if (object.kind != Kind::BlockRecord) return;
    auto& block = static_cast<BlockRecord&>(object);
    const Block* begin = db_->find<Block>(block.begin);
    if (begin && !block.name.empty() && block.name[0] == '*' && !begin->name.empty()) {
      block.name = begin->name;
    }
  });
}

base::Result<std::unique_ptr<Database>> DwgReader::read(const std::string& name) {
  db_->journal().setRecording(false);
  readLocators();
  readSections();
  readObjects();
  if (db_->objectCount() == 0) {
    return Status::failure(
        name + ": no object of the drawing can be read (" +
        (report_.messages.empty() ? "it is empty" : report_.messages.front().text) + ")");
  }
  db_->reserveHandles(db_->header.handle("HANDSEED"));
  nameBlocks();
  for (std::string& line : db_->finishLoading()) report_.add(0, std::move(line));
  chains_.build();
  db_->journal().setRecording(true);
  return std::move(db_);
}

}  // namespace

base::Result<std::unique_ptr<Database>> readDwg(std::string_view bytes, ReadReport& report,
                                                std::string_view name) {
  const std::string shown(name);
  if (Status status = checkVersion(bytes, shown); !status) return status;
  return DwgReader(bytes, report).read(shown);
}

base::Result<std::unique_ptr<Database>> openDwg(const std::filesystem::path& path,
                                                ReadReport& report) {
  const auto bytes = base::readFile(path);
  if (!bytes) return bytes.status();
  const auto name = path.filename().u8string();
  return readDwg(*bytes, report,
                 std::string_view(reinterpret_cast<const char*>(name.data()), name.size()));
}

}  // namespace drafting
