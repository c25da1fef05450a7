// Symbols of a circuit by name, from the symbol library's directory file: records of 12 bytes of
// ANSI text, 8 of the name with blanks behind and 4 of the folder's number.
#include <algorithm>
#include <memory>

#include "platform/common_funcs.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_files.h"
#include "platform/framework_runtime.h"
#include "platform/slide_store.h"
#include "store/circuit_record.h"

namespace {

constexpr std::size_t kNameSize = 8;
constexpr std::size_t kNumberSize = 4;
constexpr std::size_t kRecordSize = kNameSize + kNumberSize;

// The whole file; nothing when it can't be opened or read.
std::optional<std::string> fileBytes(const std::wstring& path) {
  CFile file;
  if (!file.Open(path.c_str(), CFile::modeRead | CFile::typeBinary)) return std::nullopt;
  try {
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    bytes.resize(file.Read(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    return bytes;
  } catch (CFileException* exception) {
    exception->Delete();
    return std::nullopt;
  }
}

std::string_view withoutBlanksBehind(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

// A library that can't be read gives no message here: every symbol then counts as unknown.
CZhlkCircuitRecord::CZhlkCircuitRecord() {
  wchar_t buffer[kInformationLimit] = L"";
  if (GetInformation(L"Dwglib", L"Dwgdir", L"", buffer, 1) <= 0 || !*buffer) return;
  std::wstring folder = buffer;
  if (folder.back() != L'\\') folder += L'\\';
  symbolIndex_ = fileBytes(folder + L"dwgdir.dab");
  if (symbolIndex_) symbolFolder_ = folder;
}

int CZhlkCircuitRecord::FindSymbolFile(const CString& symbol, CString& path, int mode) const {
  if (!symbolIndex_) return 0;
  const std::string_view index = *symbolIndex_;
  for (std::size_t at = 0; at + kRecordSize <= index.size(); at += kRecordSize) {
    const std::string_view name = withoutBlanksBehind(index.substr(at, kNameSize));
    if (!equalWithoutCase(wideFromAnsi(name), symbol.wide())) continue;
    // The folder's number is taken with its blanks, which no delivered library has.
    const std::wstring number = wideFromAnsi(index.substr(at + kNameSize, kNumberSize));
    CString file;
    if (mode == kSymbolSlides) {
      file.Format(L"dqbl%s\\dqbl%s.slb", number.c_str(), number.c_str());
    } else {
      file.Format(L"dqbl%s\\%s.dwg", number.c_str(), symbol.GetString());
    }
    path = symbolFolder_ + file.wide();
    return 1;
  }
  return 0;
}

void CZhlkCircuitRecord::LoadSymbolSlide(CString& symbol, CByteArray& slide) const {
  slide.RemoveAll();
  CString path;
  if (!FindSymbolFile(symbol, path, kSymbolSlides)) {
    symbol = kEmptyCell;
    if (!FindSymbolFile(symbol, path, kSymbolSlides)) return;
  }
  CSlbMan library;
  library.OnOpenDocument(path);
  const std::uint32_t size = library.GetSlideSize(symbol);
  if (size == 0) return;
  std::vector<std::uint8_t> bytes(size);
  library.GetSlideData(symbol, bytes.data());
  slide.SetSize(static_cast<int>(size));
  std::copy(bytes.begin(), bytes.end(), slide.GetData());
}
