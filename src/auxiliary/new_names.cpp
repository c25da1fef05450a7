#include "auxiliary/new_names.h"

#include <algorithm>
#include <string_view>

#include "platform/framework_runtime.h"
#include "platform/framework_text.h"

namespace {

bool isTaken(const std::wstring& name, const NameList& taken) {
  return std::any_of(taken.begin(), taken.end(), [&](const std::wstring& other) {
    return equalWithoutCase(std::wstring_view(name), std::wstring_view(other));
  });
}

std::wstring zeroFilled(const wchar_t* format, int number) {
  CString text;
  text.Format(format, number);
  return text.wide();
}

// The first of name(1), name(2), ... that isn't taken.
template <typename Name>
std::wstring firstFree(const NameList& taken, Name name) {
  int number = 1;
  while (isTaken(name(number), taken)) ++number;
  return name(number);
}

}  // namespace

std::wstring newGroupTitle(const NameList& taken) {
  std::wstring title = L"新建图库组";
  if (!isTaken(title, taken)) return title;
  return firstFree(taken, [&](int number) { return title + std::to_wstring(number); });
}

std::wstring groupDirectory(int number) { return L"fzgn" + zeroFilled(L"%04d", number); }

std::wstring newItemLabel(const std::wstring& title, const NameList& taken) {
  return firstFree(taken, [&](int number) { return title + L"-" + std::to_wstring(number); });
}

std::wstring newBlockName(const std::wstring& directory, const NameList& taken) {
  const std::wstring stem = L"FG" + CString(directory).Right(3).wide();
  return firstFree(taken, [&](int number) { return stem + zeroFilled(L"%03d", number); });
}

namespace {

// Windows takes these for a device in every folder and whatever extension follows.
bool isDevice(const std::wstring& name) {
  std::wstring stem = name.substr(0, name.find(L'.'));
  stem.erase(stem.find_last_not_of(L' ') + 1);
  if (isTaken(stem, {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"})) return true;
  constexpr std::wstring_view kPorts = L"0123456789\u00B9\u00B2\u00B3";
  return stem.size() == 4 && isTaken(stem.substr(0, 3), {L"COM", L"LPT"}) &&
         kPorts.find(stem.back()) != kPorts.npos;
}

}  // namespace

bool isPlainName(const std::wstring& name) {
  if (name.find_first_of(std::wstring(L"\\/:*?\"<>|") + L'\0') != name.npos) return false;
  return name.find_last_not_of(L". ") + 1 == name.size() && !name.empty() && !isDevice(name);
}

bool isOneLevel(const std::wstring& name) { return !name.empty() && name.find(L'\\') == name.npos; }
