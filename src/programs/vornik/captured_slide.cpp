#include "programs/vornik/captured_slide.h"

#include "embedded/base/text.h"
#include "platform/framework_messages.h"
#include "store/circuit_record.h"

namespace vornik {

base::Result<std::string> captureSlide(const std::wstring& row, const std::wstring& name) {
  std::string problem = "no slide can be made";
  auto before = setMessageBoxHandler([&](const MessageBoxCall& call) {
    problem = base::utf8FromWide(base::trim(call.text));
    return kMessageAnswerOk;
  });
  CZhlkCircuitRecord record;
  record.CaptureRow(row, name);
  setMessageBoxHandler(std::move(before));
  if (record.slide.empty()) return base::Status::failure(problem);
  return std::string(record.slide.begin(), record.slide.end());
}

base::Status captureLibrary(const Note& note) {
  CZhlkLibStore store;
  base::Status first;
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    CString name;
    CString row;
    if (!store.GetNameAt(slot, name) || name.IsEmpty() || !store.GetRowAt(slot, row)) continue;
    const auto slide = captureSlide(row.wide(), name.wide());
    if (!slide.ok()) {
      const std::string problem = base::utf8FromWide(name.wide()) + ": " + slide.message();
      note(problem);
      if (first.ok()) first = base::Status::failure(problem);
      continue;
    }
    store.Slides().AddSlideW(name, slide->data(), static_cast<std::uint32_t>(slide->size()));
  }
  if (!store.Slides().SaveModified() && first.ok()) {
    first = base::Status::failure("the slide library can't be written");
  }
  return first;
}

std::string storedSlide(const CSlbMan& library, const std::wstring& name) {
  std::string bytes(library.GetSlideSize(name.c_str()), '\0');
  if (bytes.empty() || !library.GetSlideData(name.c_str(), bytes.data())) return {};
  return bytes;
}

}  // namespace vornik
