// Reads and writes the module's settings.
#include "module/information.h"

#include "platform/common_funcs.h"
#include "platform/framework_runtime.h"
#include "platform/framework_text.h"

namespace {
constexpr const wchar_t* kMarkSection = L"Hlklib";
constexpr const wchar_t* kMarkName = L"ZhlkMessageMark";

std::wstring mainFolder(const wchar_t* name, const wchar_t* fallback) {
  wchar_t folder[kInformationLimit] = L"";
  GetInformation(L"ZEMMain", name, fallback, folder, 1);
  return folder;
}
}  // namespace

std::wstring systemFolder() { return mainFolder(L"ZemSys", L"C:\\Lumo7.0"); }
std::wstring userFolder() { return mainFolder(L"ZemUse", L"C:\\User"); }

std::wstring libraryFolder() { return systemFolder() + L"\\Datcom\\zhllib\\"; }

int GetMessageMark() {
  wchar_t mark[kInformationLimit] = L"";
  if (GetInformation(kMarkSection, kMarkName, L"0", mark, 1) <= 0) return 0;
  return wideToInt(mark) != 0 ? 1 : 0;
}

void setMessageMark(int mark) {
  CString text;
  text.Format(L"%d", mark == 1 ? 1 : 0);
  WriteInformation(kMarkSection, kMarkName, text, 1);
}
