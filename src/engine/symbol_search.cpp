// Searches the directory files dwgdir.dab and slddir.dab. They are ANSI records without header:
//
//   offset  size  field
//   0       8     file name without extension, blanks behind
//   8       4     code of the subfolder "Dqbl<code>", blanks behind
#include "engine/symbol_search.h"

#include <array>
#include <cstdio>
#include <memory>

#include "platform/acad_command.h"
#include "platform/common_funcs.h"
#include "platform/framework_runtime.h"

namespace {

constexpr std::size_t kNameSize = 8;
constexpr std::size_t kCodeSize = 4;
constexpr std::size_t kFullNameSize = 12;  // of a name with its extension

constexpr const wchar_t* kWrongType = L"\n文件类型参数必须为\"DWG\"或\"SLD\"中的一种!";

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

int refuseName() {
  acutPrintf(L"\n输入的文件名非法!");
  return 0;
}

// The library folder with a final backslash; empty after a message.
std::wstring symbolFolder() {
  wchar_t buffer[kInformationLimit] = L"";
  if (GetInformation(L"Dwglib", L"Dwgdir", L"", buffer, 1) <= 0) {
    acutPrintf(L"\n读取注册表错误.");
    return {};
  }
  std::wstring folder = buffer;
  if (folder.empty()) {
    acutPrintf(L"\n注册表串值Dwgdir无效.");
  } else if (folder.back() != L'\\') {
    folder += L'\\';
  }
  return folder;
}

// Makes and removes a file in the folder: a library that can't be written isn't searched.
bool testFolder(const std::wstring& folder) {
  const std::wstring name = temporaryName();  // begins with a backslash
  if (name.empty()) {
    acutPrintf(L"\n产生临时文件失败!");
    return false;
  }
  const std::wstring path = folder.substr(0, folder.size() - 1) + name;
  File file(openFile(path, L"w+b"));
  if (!file) {
    acutPrintf(L"\n目录变量DwgDir非法!");
    return false;
  }
  file.reset();
  if (removeFile(path)) return true;
  acutPrintf(L"\n删除临时文件失败!");
  return false;
}

bool testDirectoryFile(int kind, const std::wstring& folder) {
  const wchar_t* name = kind == kDrawingKind ? L"dwgdir.dab" : L"slddir.dab";
  if (fileExists(folder + name)) return true;
  acutPrintf(L"\n目录%s下无数据文件%s!", folder.c_str(), name);
  return false;
}

// The name as records hold it: without extension, 8 bytes, blanks behind.
std::string recordKey(std::string_view name) {
  std::string key(name.substr(0, name.find('.')));
  key.resize(kNameSize, ' ');
  return key;
}

// The code of the first record with that name. Bytes compare without the case of ASCII letters. A
// record cut off at the end of the file never matches.
bool findRecord(std::FILE* file, const std::string& key, std::string& code) {
  std::array<char, kNameSize + kCodeSize> record;
  while (std::fread(record.data(), record.size(), 1, file) == 1) {
    if (!equalWithoutCase(std::string_view(record.data(), kNameSize), key)) continue;
    const std::string_view field(record.data() + kNameSize, kCodeSize);
    code = field.substr(0, field.find(' '));
    return true;
  }
  return false;
}

int kindOf(const wchar_t* type) {
  if (equalWithoutCase(std::wstring_view(type), L"DWG")) return kDrawingKind;
  if (equalWithoutCase(std::wstring_view(type), L"SLD")) return kSlideKind;
  return 0;
}

}  // namespace

int CheckFileName(int kind, std::string_view name) {
  if (kind != kDrawingKind && kind != kSlideKind) {
    acutPrintf(kWrongType);
    return 0;
  }
  if (name.find_first_of(" /\\:") != std::string_view::npos) return refuseName();
  const std::size_t dot = name.find('.');
  if (dot == std::string_view::npos) return name.size() > kNameSize ? refuseName() : 1;
  const std::string_view extension = kind == kDrawingKind ? "dwg" : "sld";
  const bool legal =
      name.size() <= kFullNameSize && equalWithoutCase(name.substr(dot + 1), extension);
  return legal ? 1 : refuseName();
}

int SearchSymbolFile(const wchar_t* type, const wchar_t* name, std::wstring& path) {
  path.clear();
  const int kind = kindOf(type);
  if (kind == 0) {
    acutPrintf(kWrongType);
    return 0;
  }
  const std::wstring folder = symbolFolder();
  if (folder.empty() || !testFolder(folder) || !testDirectoryFile(kind, folder)) return 0;
  const std::string ansi = ansiFromWide(name);
  if (!CheckFileName(kind, ansi)) return 0;

  // Looked for above in small letters; on a disk where case counts the path resolver finds it.
  File file(openFile(folder + (kind == kDrawingKind ? L"Dwgdir.dab" : L"slddir.dab"), L"r+b"));
  if (!file) {
    acutPrintf(L"\n文件打开失败!");
    return 0;
  }
  std::string code;
  if (!findRecord(file.get(), recordKey(ansi), code)) return 0;
  path = folder + L"Dqbl" + wideFromAnsi(code) + L"\\" + name;
  const bool hadExtension = ansi.find('.') != std::string::npos;
  if (kind == kDrawingKind && !hadExtension) path += L".dwg";
  return 1;
}
