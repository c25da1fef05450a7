#include "programs/vornik/library_transfer.h"

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/slide_store/slide.h"
#include "engine/row_reader.h"
#include "module/information.h"
#include "module/tree_values.h"
#include "programs/vornik/captured_slide.h"

namespace vornik {
namespace {

constexpr const char* kListFile = "circuits.txt";
constexpr const wchar_t* kTemplate = L"空";
constexpr std::wstring_view kNamePrefix = L"主回路&";

struct Line {
  std::wstring name, row;
};

std::filesystem::path slideFile(const std::filesystem::path& folder, const std::wstring& name) {
  return folder / base::pathFromUtf8(base::utf8FromWide(name) + ".sld");
}

std::string text(const std::wstring& name, const std::wstring& row) {
  return base::utf8FromWide(name) + "\t" + base::utf8FromWide(row) + "\n";
}

// What is wrong with the line, or empty.
std::string problemOf(const Line& line) {
  if (line.row.size() > kLongestTreeText) return "the row is too long";
  if (line.name.find_first_of(L"/\\:\x03") != std::wstring::npos) return "the name can't be stored";
  const LibraryRowReading reading = readLibraryRow(line.row);
  return reading.ok() ? "" : base::utf8FromWide(base::trim(reading.message));
}

base::Result<std::vector<Line>> readList(const std::filesystem::path& path) {
  const auto bytes = base::readFile(path);
  if (!bytes.ok()) return bytes.status();
  std::vector<Line> lines;
  std::string_view rest = *bytes;
  for (int number = 1; !rest.empty(); ++number) {
    const std::size_t end = rest.find('\n');
    std::string_view one = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (!one.empty() && one.back() == '\r') one.remove_suffix(1);
    if (one.empty()) continue;
    const std::size_t tab = one.find('\t');
    const std::string where = base::utf8FromPath(path) + ":" + std::to_string(number) + ": ";
    if (tab == std::string_view::npos || tab == 0) {
      return base::Status::failure(where + "a name, a tab and a row are expected");
    }
    lines.push_back(
        {base::wideFromUtf8(one.substr(0, tab)), base::wideFromUtf8(one.substr(tab + 1))});
    const std::string problem = problemOf(lines.back());
    if (!problem.empty()) return base::Status::failure(where + problem);
  }
  return lines;
}

// The slot of the name: where it stands, or where its number puts it; the count when that is taken.
int slotFor(CZhlkLibStore& store, const std::wstring& name) {
  CString there;
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    if (store.GetNameAt(slot, there) && there.wide() == name) return slot;
  }
  const int count = std::max<int>(store.GetCount(), 0);
  if (!name.starts_with(kNamePrefix)) return count;
  const int slot = base::atoi(base::utf8FromWide(name.substr(kNamePrefix.size()))) - 1;
  if (slot < 0 || CZhlkLibStore::CircuitName(slot).wide() != name) return count;
  return store.HasCircuit(slot) ? count : slot;
}

bool put(CZhlkLibStore& store, const Line& line) {
  const int slot = slotFor(store, line.name);
  if (slot >= store.GetCount()) return store.InsertCircuit(slot, line.row, line.name) == 0;
  CString there;
  store.GetNameAt(slot, there);
  if (there.IsEmpty() && !store.RenameAt(slot, line.name)) return false;
  return store.SetRowAt(slot, line.row) == 1;
}

// The slide beside the list, or else a fresh one.
base::Result<std::string> slideOf(const std::filesystem::path& folder, const Line& line) {
  const auto file = base::readFile(slideFile(folder, line.name));
  if (file.ok() && slide_store::readSlideHeader(*file).ok()) return *file;
  return captureSlide(line.row, line.name);
}

// The template, and the length of a library that has none yet: a missing one would leave a free
// slot in front.
base::Status prepare(const std::vector<Line>& lines) {
  const std::wstring path = libraryFolder() + L"zhllib.qdp";
  CQuillDpData tree;
  tree.ReadDataFromQdpFile(path.c_str());
  constexpr const wchar_t* kLength = L"ZHLSY\\长度";
  if (!hasValue(tree.GetSubValueFromPathW(0, kLength))) storeNumber(tree, kLength, 0);
  for (const Line& line : lines) {
    if (line.name == kTemplate) storeText(tree, std::wstring(L"ZHLLIB\\") + kTemplate, line.row);
  }
  if (tree.WriteDataToQdpFile(path.c_str())) return {};
  return base::Status::failure("the library can't be written");
}

}  // namespace

base::Status exportLibrary(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) return base::Status::failure(base::utf8FromPath(folder) + ": " + error.message());
  CZhlkLibStore store;
  std::string list;
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    CString name;
    CString row;
    if (!store.GetNameAt(slot, name) || name.IsEmpty() || !store.GetRowAt(slot, row)) {
      list += "\n";
      continue;
    }
    list += text(name.wide(), row.wide());
    const std::string slide = storedSlide(store.Slides(), name.wide());
    if (slide.empty()) continue;
    base::Status saved = base::saveAtomically(slideFile(folder, name.wide()), slide);
    if (!saved.ok()) return saved;
  }
  CString row;
  if (store.GetRowAt(-1, row)) list += text(kTemplate, row.wide());
  return base::saveAtomically(folder / kListFile, list);
}

base::Status importLibrary(const std::filesystem::path& folder, const Note& note) {
  const auto lines = readList(folder / kListFile);
  if (!lines.ok()) return lines.status();
  base::Status prepared = prepare(*lines);
  if (!prepared.ok()) return prepared;
  CZhlkLibStore store;
  for (const Line& line : *lines) {
    if (line.name == kTemplate) continue;
    const std::string name = base::utf8FromWide(line.name);
    if (!put(store, line)) return base::Status::failure(name + ": the library takes no more");
    const auto slide = slideOf(folder, line);
    if (!slide.ok()) {
      note(name + ": " + slide.message());
    } else if (!store.Slides().AddSlideW(line.name.c_str(), slide->data(),
                                         static_cast<std::uint32_t>(slide->size()))) {
      note(name + ": no slide can have this name");
    }
  }
  store.Save();
  return {};
}

}  // namespace vornik
