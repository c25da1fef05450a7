// Reading goes section by section; what stands in them is made into objects by DxfContent.
#include "embedded/drafting/dxf/dxf_reader.h"

#include <array>
#include <fstream>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/dxf/dxf_content.h"
#include "embedded/drafting/dxf/dxf_header.h"
#include "embedded/drafting/dxf/object_source.h"

namespace drafting {
namespace {

using base::Status;

// Why a file that begins like this can't be read at all; good if it may be DXF.
Status checkBeginning(std::string_view bytes, const std::string& name) {
  constexpr std::size_t kVersionLength = 6;
  if (bytes.empty()) return Status::failure(name + ": the file is empty");
  if (bytes.substr(0, 32).find("Binary DXF") != std::string_view::npos) {
    return Status::failure(name + ": the file is a binary DXF; save it as ASCII DXF");
  }
  if (bytes.size() > kVersionLength && bytes.substr(0, 4) == "AC10") {
    return Status::failure(name + ": the file is a DWG drawing (" +
                           std::string(bytes.substr(0, kVersionLength)) + "), not a DXF file");
  }
  return {};
}

class DxfReader {
 public:
  DxfReader(std::istream& in, ReadReport& report)
      : report_(report), source_(in, report), content_(report) {}

  base::Result<std::unique_ptr<Database>> read(const std::string& name) {
    const std::string failure = name + ": ";
    if (!source_.next(object_) || object_.name != "SECTION") {
      return Status::failure(failure + "the file is no DXF file: it doesn't begin with a section");
    }
    bool more = true;
    while (more && object_.name != "EOF") {
      if (object_.name != "SECTION") {
        report_.addLine(object_.line, std::string(object_.name) + " stands outside all sections");
        more = skip();
      } else {
        more = readSection();
      }
      if (!header_.failure().empty()) return Status::failure(failure + header_.failure());
    }
    if (!more) report_.addLine(source_.line(), "the file isn't closed by EOF");
    begin();
    return content_.finish(header_);
  }

 private:
  bool advance() { return source_.next(object_); }
  // To the next section or the end.
  bool skip() {
    while (advance()) {
      if (object_.name == "SECTION" || object_.name == "EOF") return true;
    }
    return false;
  }

  // The header comes first; without one the file is taken for one of release 12.
  void begin() {
    if (begun_) return;
    begun_ = true;
    content_.begin(header_);
  }

  bool readSection() {
    const std::string section(base::trim(GroupSection(object_.groups).text(2)));
    if (section == "HEADER") {
      header_.read(object_.groups, report_, object_.line);
      return skip();
    }
    begin();
    if (section == "THUMBNAILIMAGE") content_.addPreview(object_);
    while (advance()) {
      if (object_.name == "ENDSEC") return skip();
      if (object_.name == "SECTION" || object_.name == "EOF") {
        report_.addLine(object_.line, "the section " + section + " isn't closed");
        return true;
      }
      content_.add(section, object_);
    }
    return false;
  }

  ReadReport& report_;
  ObjectSource source_;
  DxfHeader header_;
  DxfContent content_;
  DxfObject object_;
  bool begun_ = false;
};

}  // namespace

base::Result<std::unique_ptr<Database>> readDxf(std::istream& in, ReadReport& report,
                                                std::string_view name) {
  const std::string shown(name);
  std::array<char, 64> beginning{};
  in.read(beginning.data(), beginning.size());
  const auto count = static_cast<std::size_t>(in.gcount());
  if (Status status = checkBeginning({beginning.data(), count}, shown); !status) return status;
  in.clear();
  in.seekg(0);
  return DxfReader(in, report).read(shown);
}

base::Result<std::unique_ptr<Database>> openDxf(const std::filesystem::path& path,
                                                ReadReport& report) {
  const std::string name = base::utf8FromPath(path);
  std::ifstream in(path, std::ios::binary);
  if (!in) return Status::failure(name + ": can't be opened for reading");
  return readDxf(in, report, base::utf8FromPath(path.filename()));
}

}  // namespace drafting
