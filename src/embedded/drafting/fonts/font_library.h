// FontLibrary: finds the fonts that text styles name.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/file_stamp.h"
#include "embedded/drafting/fonts/text_font.h"

namespace drafting {

// Fonts are looked for by file name (without regard to case, with or without the extension .shx or
// .wzk) in the drawing's folder and then in the library's folders. A file is read once and again
// when it has changed. What isn't there or is no font is replaced by the built-in one.
class FontLibrary {
 public:
  // The process's; programs set its folders to the install's.
  static FontLibrary& shared();

  void setFolders(std::vector<std::filesystem::path> folders) { folders_ = std::move(folders); }

  // Of a text style's names. What is replaced or damaged goes to `notes`, a sentence each; "txt"
  // and "gbcbig" are the built-in fonts unless there are such files.
  TextFont find(std::string_view font, std::string_view bigFont,
                const std::filesystem::path& drawingFolder = {},
                std::vector<std::string>* notes = nullptr);

  // Of two files. Where no path is given the built-in font stands without a note.
  TextFont ofFiles(const std::filesystem::path& latin, const std::filesystem::path& big,
                   std::vector<std::string>* notes = nullptr);

 private:
  enum class Role { Latin, Big };
  using Font = std::shared_ptr<const ShapeFont>;
  using Notes = std::vector<std::string>;
  struct Loaded {
    base::FileStamp stamp;
    Font font;  // null: it can't be used
    Notes notes;
  };

  Font byName(std::string_view name, Role role, const std::filesystem::path& drawingFolder,
              Notes& notes);
  std::filesystem::path fileOf(std::string_view name, const std::filesystem::path& drawingFolder);
  const Loaded& load(const std::filesystem::path& path);
  Font ofFile(const std::filesystem::path& path, Role role, Notes& notes);

  std::vector<std::filesystem::path> folders_;
  std::map<std::filesystem::path, Loaded> loaded_;
};

}  // namespace drafting
