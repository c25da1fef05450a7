#include "embedded/drafting/display/style_fonts.h"

#include <algorithm>
#include <map>

namespace drafting {

namespace {

// Fonts by what a text says, each looked for once. A text of very many is no text to be read: the
// rest of them stand in the usual one.
class NamedFonts {
 public:
  NamedFonts(const FontSource& source, TextFont usual)
      : library_(source.library), folder_(source.drawingFolder), usual_(std::move(usual)) {}

  TextFont operator()(std::string_view names) {
    constexpr std::size_t kMostFonts = 32;
    const auto known = found_.find(names);
    if (known != found_.end()) return known->second;
    if (found_.size() >= kMostFonts) return usual_;
    const std::size_t comma = std::min(names.find(','), names.size());
    const std::string_view big = names.substr(std::min(comma + 1, names.size()));
    TextFont font = library_.find(names.substr(0, comma), big, folder_);
    font.codePage = usual_.codePage;
    return found_.emplace(names, std::move(font)).first->second;
  }

 private:
  FontLibrary& library_;
  std::filesystem::path folder_;
  TextFont usual_;
  std::map<std::string, TextFont, std::less<>> found_;
};

}  // namespace

TextFont fontOfStyle(const Database& database, Handle style, const FontSource& source,
                     std::vector<std::string>* notes) {
  const auto* record = database.find<TextStyle>(style);
  if (!record) return {};
  TextFont font = source.library.find(record->font, record->bigFont, source.drawingFolder, notes);
  font.codePage = database.codePage;
  font.vertical = record->vertical;
  return font;
}

ParagraphStyle paragraphStyle(const Database& database, Handle style, TextFont font,
                              const FontSource& source) {
  ParagraphStyle out;
  out.font = std::move(font);
  out.fontNamed = NamedFonts(source, out.font);
  if (const auto* record = database.find<TextStyle>(style)) {
    if (record->widthFactor > 0) out.widthFactor = record->widthFactor;
    out.oblique = record->oblique;
  }
  return out;
}

}  // namespace drafting
