// Names to files to fonts.
#include "embedded/drafting/fonts/font_library.h"

#include <algorithm>
#include <array>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"

namespace drafting {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kLargestFont = 64 << 20;
constexpr std::array<std::wstring_view, 2> kExtensions{L".shx", L".wzk"};
// What drawings of ours name, and what the installed files of the built-in fonts are called.
constexpr std::array<std::wstring_view, 4> kBuiltIn{L"txt", L"gbcbig", L"english", L"chinese"};

bool isFontExtension(std::wstring_view extension) {
  return std::any_of(kExtensions.begin(), kExtensions.end(),
                     [&](std::wstring_view known) { return base::equalsNoCase(extension, known); });
}

// The name without its folder and, if it is one of fonts, its extension.
std::wstring stemOfName(std::string_view name) {
  const std::wstring wide = base::wideFromUtf8(name);
  const std::wstring_view file = base::fileNameOf(wide);
  return std::wstring(isFontExtension(base::extensionOf(file)) ? base::stemOf(file) : file);
}

bool isBuiltIn(std::string_view name) {
  const std::wstring stem = stemOfName(name);
  return std::any_of(kBuiltIn.begin(), kBuiltIn.end(),
                     [&](std::wstring_view known) { return base::equalsNoCase(stem, known); });
}

}  // namespace

FontLibrary& FontLibrary::shared() {
  static FontLibrary library;
  return library;
}

fs::path FontLibrary::fileOf(std::string_view name, const fs::path& drawingFolder) {
  const std::wstring stem = stemOfName(name);
  std::vector<fs::path> folders = folders_;
  if (!drawingFolder.empty()) folders.insert(folders.begin(), drawingFolder);
  for (const fs::path& folder : folders) {
    for (const std::wstring_view extension : kExtensions) {
      fs::path path = base::resolvePath(
          base::joinPath(base::wideFromPath(folder), stem + std::wstring(extension)));
      if (base::stampOf(path).present) return path;
    }
  }
  return {};
}

const FontLibrary::Loaded& FontLibrary::load(const fs::path& path) {
  Loaded& loaded = loaded_[path];
  const base::FileStamp stamp = base::stampOf(path);
  if (stamp.present && loaded.stamp == stamp) return loaded;
  loaded = {stamp, nullptr, {}};
  const std::string name = base::utf8FromPath(path);
  auto bytes = base::readFile(path, kLargestFont);
  if (!bytes.ok()) {
    loaded.notes.push_back(bytes.message());
    return loaded;
  }
  const auto font = ShapeFont::read(std::move(*bytes), name);
  if (!font.ok()) {
    loaded.notes.push_back(font.message());
  } else {
    loaded.notes = (*font)->problems();
    if ((*font)->isTextFont())
      loaded.font = *font;
    else
      loaded.notes.push_back(name + ": is no font of characters");
  }
  return loaded;
}

FontLibrary::Font FontLibrary::ofFile(const fs::path& path, Role role, Notes& notes) {
  if (path.empty()) return nullptr;
  const Loaded& loaded = load(path);
  notes.insert(notes.end(), loaded.notes.begin(), loaded.notes.end());
  Font font = loaded.font;
  if (font && (font->kind() == FontKind::BigFont) != (role == Role::Big)) {
    notes.push_back(base::utf8FromPath(path) +
                    (role == Role::Big ? ": is no big font" : ": is a big font"));
    font = nullptr;
  }
  if (!font) notes.push_back(base::utf8FromPath(path) + ": the built-in font is taken instead");
  return font;
}

FontLibrary::Font FontLibrary::byName(std::string_view name, Role role,
                                      const fs::path& drawingFolder, Notes& notes) {
  if (name.empty()) return nullptr;
  const fs::path path = fileOf(name, drawingFolder);
  if (!path.empty()) return ofFile(path, role, notes);
  if (!isBuiltIn(name)) {
    notes.push_back("the font " + std::string(name) +
                    " isn't there; the built-in one is taken instead");
  }
  return nullptr;
}

TextFont FontLibrary::find(std::string_view font, std::string_view bigFont,
                           const fs::path& drawingFolder, Notes* notes) {
  Notes own;
  Notes& told = notes ? *notes : own;
  TextFont out;
  out.latin = byName(font, Role::Latin, drawingFolder, told);
  out.big = byName(bigFont, Role::Big, drawingFolder, told);
  return out;
}

TextFont FontLibrary::ofFiles(const fs::path& latin, const fs::path& big, Notes* notes) {
  Notes own;
  Notes& told = notes ? *notes : own;
  TextFont out;
  out.latin = ofFile(latin, Role::Latin, told);
  out.big = ofFile(big, Role::Big, told);
  return out;
}

}  // namespace drafting
