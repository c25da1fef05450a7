// The order of a file is that of file_layout.h. Objects are written by their handles, the block
// table first; addresses are noted on the way and go into the object map, the file header and the
// second header at the end.
#include "embedded/drafting/dwg/dwg_writer.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "embedded/base/files.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/dwg/object_codec.h"
#include "embedded/drafting/dwg/sections.h"

namespace drafting {
namespace {

using base::Status;

std::string hex(Handle handle) {
  char out[20];
  std::snprintf(out, sizeof out, "%llX", static_cast<unsigned long long>(handle));
  return out;
}

class DwgWriter {
 public:
  explicit DwgWriter(const Database& database) : db_(database), classes_(database.classes) {
    w_.codePage = database.codePage;
  }

  base::Result<std::string> write();

 private:
  void collectInserts();
  void collectAbsent();
  void addMissingClasses();
  void findDictionaryClass();
  void writeObjects();
  void writeObject(const Object& object);
  std::uint16_t typeOf(const Object& object) const;
  OwnerMode modeOf(const Object& object) const;
  void addSection(SectionNumber number, std::string_view bytes) {
    locators_[number] = {address(), static_cast<std::uint32_t>(bytes.size())};
    out_ += bytes;
  }
  std::uint32_t address() const { return static_cast<std::uint32_t>(out_.size()); }

  const Database& db_;
  std::vector<DxfClass> classes_;
  std::uint16_t dictionaryClass_ = 0;
  std::unordered_map<Handle, std::vector<Handle>> inserts_;  // by block record
  std::unordered_set<Handle> absent_;                        // objects that stay out
  FieldWriter w_;
  std::string out_;
  std::vector<MapEntry> map_;
  std::array<Locator, kSectionCount> locators_{};
  Status status_;
};

bool isOfGroups(const Object& object) {
  return object.kind == Kind::GroupEntity || object.kind == Kind::GroupObject;
}

// Objects that are only known as DXF groups, and what belongs to them.
void DwgWriter::collectAbsent() {
  constexpr int kDeepest = 8;  // extension dictionaries and what they hold
  db_.forEach([this](const Object& object) {
    if (isOfGroups(object)) absent_.insert(object.handle);
  });
  for (std::size_t before = 0, round = 0; absent_.size() != before && round < kDeepest; ++round) {
    before = absent_.size();
    db_.forEach([this](const Object& object) {
      if (absent_.contains(object.owner)) absent_.insert(object.handle);
    });
  }
  if (!absent_.empty()) w_.absent = &absent_;
}

// The INSERTs of each block record, which lists them.
void DwgWriter::collectInserts() {
  Handle lastBlock = 0;
  std::vector<Handle>* list = nullptr;
  db_.forEach([&](const Object& object) {
    if (object.kind != Kind::Insert) return;
    const Handle block = static_cast<const Insert&>(object).block;
    if (block != lastBlock || !list) list = &inserts_[lastBlock = block];
    list->push_back(object.handle);
  });
}

// In damaged drawings objects are of classes that aren't listed. Their numbers stay theirs: what is
// added to the list comes behind them.
void DwgWriter::addMissingClasses() {
  constexpr std::uint16_t kEntity = 0x1F2, kObject = 0x1F3;
  std::map<std::uint16_t, std::uint16_t> missing;  // type -> kind of its objects
  db_.forEach([&](const Object& object) {
    const bool isRaw = object.kind == Kind::RawEntity || object.kind == Kind::RawObject;
    const std::uint16_t type = isRaw ? typeOfKind(object) : std::uint16_t{0};
    if (type < kFirstClass + classes_.size()) return;
    missing[type] = object.kind == Kind::RawEntity ? kEntity : kObject;
  });
  if (missing.empty()) return;
  while (kFirstClass + classes_.size() <= missing.rbegin()->first) {
    const auto number = static_cast<std::uint16_t>(kFirstClass + classes_.size());
    const auto kind = missing.find(number);
    classes_.push_back(
        {number, 0, "", "", "", false, kind == missing.end() ? kObject : kind->second});
  }
}

// Dictionaries with a default item are of a class; a drawing that came without it gets it.
void DwgWriter::findDictionaryClass() {
  constexpr const char* kName = "ACDBDICTIONARYWDFLT";
  for (const DxfClass& entry : classes_) {
    if (entry.dxfName == kName) dictionaryClass_ = entry.number;
  }
  if (dictionaryClass_ != 0) return;
  dictionaryClass_ = static_cast<std::uint16_t>(kFirstClass + classes_.size());
  classes_.push_back(
      {dictionaryClass_, 0, "ObjectDBX Classes", "AcDbDictionaryWithDefault", kName, false, 0x1F3});
}

std::uint16_t DwgWriter::typeOf(const Object& object) const {
  const bool hasDefault =
      object.kind == Kind::Dictionary && static_cast<const Dictionary&>(object).withDefault;
  return hasDefault ? dictionaryClass_ : typeOfKind(object);
}

OwnerMode DwgWriter::modeOf(const Object& object) const {
  if (object.owner == db_.modelSpace().handle) return OwnerMode::ModelSpace;
  return object.owner == db_.paperSpace().handle ? OwnerMode::PaperSpace : OwnerMode::Stored;
}

void DwgWriter::writeObject(const Object& object) {
  w_.inserts = nullptr;
  if (object.kind == Kind::BlockRecord) {
    const auto found = inserts_.find(object.handle);
    if (found != inserts_.end()) w_.inserts = &found->second;
  }
  map_.push_back({object.handle, address()});
  appendObject(w_, object, typeOf(object), modeOf(object), out_);
  if (w_.tooLong && status_.ok()) {
    status_ = Status::failure("the object " + hex(object.handle) +
                              " has a text or a list that is too long for a drawing file");
  }
}

void DwgWriter::writeObjects() {
  const Object& blocks = db_.table(Table::Blocks);
  map_.reserve(db_.objectCount());
  writeObject(blocks);
  db_.forEach([&](const Object& object) {
    if (&object != &blocks && !w_.isAbsent(object.handle)) writeObject(object);
  });
  const auto byHandle = [](const MapEntry& a, const MapEntry& b) { return a.handle < b.handle; };
  std::inplace_merge(map_.begin(), map_.begin() + 1, map_.end(), byHandle);
}

base::Result<std::string> DwgWriter::write() {
  collectInserts();
  collectAbsent();
  addMissingClasses();
  findDictionaryClass();
  out_.reserve(db_.objectCount() * 112 + 16384);
  out_.assign(kFileHeaderSize, '\0');
  addSection(kSectionAuxiliary, writeAuxiliaryHeader(db_));
  const std::uint32_t preview = address();
  out_ += writePreview(db_, preview);
  const auto header = writeHeaderVariables(db_);
  if (!header) return header.status();
  addSection(kSectionHeader, *header);
  const auto classes = writeClasses(classes_, db_.codePage);
  if (!classes) return classes.status();
  addSection(kSectionClasses, *classes);
  out_.append(kGapSize, '\0');

  const std::uint32_t firstObject = address();
  writeObjects();
  if (!status_) return status_;
  addSection(kSectionMap, writeObjectMap(map_));
  addSection(kSectionFreeSpace, writeFreeSpace(db_, firstObject));
  const std::uint32_t second = address();
  out_.append(writeSecondHeader(db_, second, locators_).size(), '\0');
  std::string measurement(2, '\0');
  putLow(measurement, static_cast<std::uint64_t>(db_.header.integer("MEASUREMENT")), 2);
  addSection(kSectionTemplate, measurement);
  if (out_.size() > 0xFFFFFFFF) return Status::failure("the drawing is larger than 4 GB");

  const std::string secondHeader = writeSecondHeader(db_, second, locators_);
  out_.replace(second, secondHeader.size(), secondHeader);
  out_.replace(0, kFileHeaderSize, writeFileHeader(db_, preview, locators_));
  return std::move(out_);
}

// A file has control points or fit points.
bool losesFitPoints(const Object& object) {
  if (object.kind != Kind::Spline) return false;
  const auto& spline = static_cast<const Spline&>(object);
  return !spline.controls.empty() && !spline.fitPoints.empty();
}

}  // namespace

std::string dwgLosses(const Database& database) {
  std::map<std::string, int> counts;
  database.forEach([&](const Object& object) {
    if (isOfGroups(object)) ++counts[std::string(typeName(database, object))];
    if (losesFitPoints(object)) ++counts["SPLINE (fit points)"];
  });
  return countedNames(counts);
}

base::Result<std::string> writeDwg(const Database& database) { return DwgWriter(database).write(); }

base::Status saveDwg(const Database& database, const std::filesystem::path& path) {
  const auto bytes = writeDwg(database);
  if (!bytes) return bytes.status();
  return base::saveAtomically(path, *bytes);
}

}  // namespace drafting
