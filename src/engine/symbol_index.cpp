// Looks up a symbol's words in the index file of its folder. Index files are ANSI text, a line a
// symbol: its name, three words, five numbers. They are searched as one text, not line by line.
#include <vector>

#include "engine/symbol_search.h"
#include "platform/acad_command.h"
#include "platform/framework_files.h"
#include "platform/framework_runtime.h"

namespace {

constexpr std::size_t kExtensionSize = 4;  // ".dwg"

std::wstring lastComponent(const std::wstring& path) {
  return path.substr(path.find_last_of(L"\\/") + 1);
}

// The whole file as wide text, or false after a message.
bool readAnsiFile(const std::wstring& path, std::wstring& text) {
  CFile file;
  if (!file.Open(path.c_str(), CFile::modeRead)) {
    acutPrintf(L"\n打开文件失败!");
    return false;
  }
  std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
  bytes.resize(file.Read(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
  text = wideFromAnsi(bytes);
  return true;
}

// Words 1 and 2 from start on, word 0 being what stands before the first blank: text there ends the
// scan at once. Only blanks separate; a line's end belongs to the word.
std::wstring twoWords(const std::wstring& text, std::size_t start) {
  std::wstring words[2];
  int field = 0;
  bool blankSeen = false;
  for (std::size_t i = start; i < text.size(); ++i) {
    if (text[i] == L' ') {
      if (!blankSeen) ++field;
      blankSeen = true;
      continue;
    }
    blankSeen = false;
    if (field != 1 && field != 2) break;
    words[field - 1] += text[i];
  }
  return words[0] + L"&" + words[1];
}

}  // namespace

std::wstring ReadSymbolIndex(const std::wstring& path) {
  std::wstring name = lastComponent(path);
  name.resize(name.size() > kExtensionSize ? name.size() - kExtensionSize : 0);
  const std::size_t separator = path.find_last_of(L"\\/");
  const std::wstring folder = separator == std::wstring::npos ? L"" : path.substr(0, separator);

  std::wstring text;
  if (!readAnsiFile(folder + L"\\" + lastComponent(folder) + L".idx", text)) return {};
  // The first occurrence counts, also inside a longer word. Without any the scan starts within the
  // file's beginning, as if the name stood one character before it.
  return twoWords(text, text.find(name) + name.size());  // npos is -1
}
