// What an install holds, relative to its folder:
//
//   system/Fah.dwg                  the block that marks a circuit's place
//   system/t-Arr.dwg                the frame around every circuit's slide
//   Datcom/english.wzk, chinese.wzk shape fonts; fonts.txt and ARPHICPL.TXT on their licences
//   Datcom/zhllib/zhllib.qdp, .slb  circuits; slides are captured once the install is in use
//   Datcom/zhllib/zhlFzgn.qdp       auxiliary groups
//   Datcom/zhllib/fzgnNNNN/         a group's drawings and slides
//   Dwglib/dwgdir.dab, slddir.dab   directory files: name (8), folder code (4)
//   Dwglib/t-sywj.dat               group table: name, folder, picker size, page
//   Dwglib/Dqbl0012/                symbols, their slides and index text: Dqbl0012.slb, .idx
//   User/                           the user's files
#include "samples/generator/install.h"

#include "auxiliary/auxiliary_store.h"
#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "platform/common_funcs.h"
#include "platform/quill_data.h"
#include "platform/slide_store.h"
#include "samples/generator/auxiliary_library.h"
#include "samples/generator/definitions.h"
#include "samples/generator/drawings.h"
#include "samples/generator/fonts.h"
#include "samples/generator/slides.h"

namespace samples {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSymbolFolder = "Dqbl0012";
constexpr std::string_view kFolderCode = "0012";
constexpr std::string_view kGroupTable = "常用主回路符号 Dqbl0012 6 0\r\n";
constexpr wchar_t kListSeparator = L'\x03';

class Installer {
 public:
  Installer(fs::path folder, const std::function<void(std::string_view)>& progress)
      : folder_(std::move(folder)), progress_(progress) {}

  base::Status run() {
    for (const auto step :
         {&Installer::makeFolders, &Installer::makeFonts, &Installer::makeSystemDrawings,
          &Installer::makeSymbols, &Installer::makeDirectoryFiles, &Installer::makeCircuits,
          &Installer::makeAuxiliary}) {
      const base::Status status = (this->*step)();
      if (!status) return status;
    }
    return {};
  }

 private:
  fs::path library() const { return folder_ / "Datcom" / "zhllib"; }

  base::Status makeFolders() {
    for (const fs::path& path :
         {folder_ / "system", library(), folder_ / "Dwglib" / kSymbolFolder, folder_ / "User"}) {
      std::error_code error;
      fs::create_directories(path, error);
      if (error) return base::Status::failure(base::utf8FromPath(path) + ": " + error.message());
    }
    return {};
  }

  base::Status save(const drafting::Database& database, const fs::path& path) {
    return drafting::saveDrawingFile(database, base::utf8FromPath(path));
  }

  base::Status makeFonts() {
    progress_("fonts");
    return installFonts(folder_ / "Datcom");
  }

  base::Status makeSystemDrawings() {
    const base::Status status = save(*makeScaleMarkDrawing(), folder_ / "system" / "Fah.dwg");
    return status ? save(*makeFrameDrawing(), folder_ / "system" / "t-Arr.dwg") : status;
  }

  base::Status makeSymbols() {
    progress_("symbols");
    const fs::path group = folder_ / "Dwglib" / kSymbolFolder;
    Slides slides;
    for (const SymbolDefinition& symbol : symbols()) {
      const auto drawing = makeFigureDrawing(symbol.figure);
      const base::Status status = save(*drawing, group / (symbol.name + ".dwg"));
      if (!status) return status;
      slides.emplace_back(symbol.name, symbolSlide(*drawing, symbol.name));
    }
    return saveSlides(group / (std::string(kSymbolFolder) + ".slb"), slides);
  }

  base::Status makeDirectoryFiles() {
    std::string directory, index;
    for (const SymbolDefinition& symbol : symbols()) {
      std::string record = symbol.name;
      record.resize(8, ' ');
      directory.append(record).append(kFolderCode);
      index += symbol.name + " " + symbol.chinese + " " + symbol.letters + " " + symbol.name +
               " 0 0 0 0 0\r\n";
    }
    const fs::path library = folder_ / "Dwglib";
    for (const char* name : {"dwgdir.dab", "slddir.dab"}) {
      const base::Status status = base::saveAtomically(library / name, directory);
      if (!status) return status;
    }
    const base::Status status = base::saveAtomically(
        library / kSymbolFolder / (std::string(kSymbolFolder) + ".idx"), ansi(index));
    return status ? base::saveAtomically(library / "t-sywj.dat", ansi(kGroupTable)) : status;
  }

  static std::string ansi(std::string_view utf8) {
    return base::ansiFromWide(base::wideFromUtf8(utf8));
  }

  static void setText(CQuillDpData& tree, const std::wstring& key, const std::wstring& value) {
    tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(value.size() + 1), value.c_str(), 0);
  }

  // A library without slides is a whole one.
  base::Status makeSlideLibrary(const fs::path& path) {
    if (fs::exists(path) || CreateEmptySlideLibrary(base::wideFromPath(path).c_str())) return {};
    return base::Status::failure(base::utf8FromPath(path) + ": can't be written");
  }

  base::Status write(CQuillDpData& tree, const fs::path& path) {
    if (tree.WriteDataToQdpFile(base::wideFromPath(path).c_str())) return {};
    return base::Status::failure(base::utf8FromPath(path) + ": can't be written");
  }

  base::Status makeCircuits() {
    progress_("circuits");
    CQuillDpData tree;
    std::wstring names;
    int count = 0;
    for (const CircuitDefinition& circuit : circuits()) {
      const bool isTemplate = circuit.number == "00";
      const std::wstring name =
          isTemplate ? L"空" : L"主回路&" + base::wideFromUtf8(circuit.number);
      setText(tree, L"ZHLLIB\\" + name, base::wideFromUtf8(dataRow(circuit)));
      if (isTemplate) continue;
      names += name + kListSeparator;
      ++count;
    }
    setText(tree, L"ZHLSY", names);
    setText(tree, L"ZHLSY\\长度", std::to_wstring(count));
    const base::Status status = makeSlideLibrary(library() / "zhllib.slb");
    return status ? write(tree, library() / "zhllib.qdp") : status;
  }

  base::Status makeAuxiliary() {
    progress_("auxiliary symbols");
    return makeAuxiliaryLibrary(library());
  }

  fs::path folder_;
  const std::function<void(std::string_view)>& progress_;
};

}  // namespace

base::Status makeInstall(const fs::path& folder,
                         const std::function<void(std::string_view)>& progress) {
  return Installer(folder, progress).run();
}

base::Status useInstall(const fs::path& folder) {
  std::error_code error;
  const fs::path whole = fs::absolute(folder, error);
  if (!fs::is_directory(whole / "Datcom")) {
    return base::Status::failure(base::utf8FromPath(folder) +
                                 ": is no install; make one with 'vornik sample'");
  }
  const struct {
    const wchar_t *section, *name;
    fs::path path;
  } values[] = {{L"ZEMMain", L"ZemSys", whole},
                {L"ZEMMain", L"ZemUse", whole / "User"},
                {L"Dwglib", L"Dwgdir", whole / "Dwglib"}};
  for (const auto& value : values) {
    if (WriteInformation(value.section, value.name, base::wideFromPath(value.path).c_str(), 1) <=
        0) {
      return base::Status::failure("the information store can't be written");
    }
  }
  return {};
}

}  // namespace samples
