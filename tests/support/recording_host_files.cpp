// The recording host's other drawings: blocks written out, files of them, pictures, and the pick
// that starts all that; and the runtime's calls on files that can fail. A saved drawing is a file
// with the block's name in it.
#include <cstdarg>
#include <filesystem>

#include "embedded/base/paths.h"
#include "platform/framework_runtime.h"
#include "platform/slide_capture.h"
#include "support/recording_host.h"

using test::host;

namespace {

void note(const std::wstring& what) { host().drawings.push_back(what); }

Acad::ErrorStatus setting(const wchar_t* name, const wchar_t* value) {
  note(name + std::wstring(L" ") + value);
  return Acad::eOk;
}

}  // namespace

resbuf* acutBuildList(int type, ...) {
  resbuf* head = nullptr;
  resbuf** end = &head;
  std::va_list values;
  va_start(values, type);
  for (; type != RTNONE && type != 0; type = va_arg(values, int)) {
    *end = acutNewRb(type);
    (*end)->resval.rstring = acutNewString(va_arg(values, const wchar_t*));
    end = &(*end)->rbnext;
  }
  va_end(values);
  return head;
}

int Xentsl(const wchar_t* prompt, const resbuf* filter, ads_name entity, ads_point) {
  host().prompts.push_back(std::to_wstring(filter->restype) + L"=" + filter->resval.rstring +
                           prompt);
  if (host().picks.empty()) return RTCAN;
  const test::Pick pick = host().picks.front();
  host().picks.pop_front();
  host().variables[L"errno"] = pick.error;
  entity[0] = reinterpret_cast<std::intptr_t>(static_cast<AcDbStub*>(pick.entity));
  entity[1] = 0;
  return pick.result;
}

Acad::ErrorStatus AcDbDatabase::setDimblk(const wchar_t* name) { return setting(L"dimblk", name); }
Acad::ErrorStatus AcDbDatabase::setDimblk1(const wchar_t* name) {
  return setting(L"dimblk1", name);
}
Acad::ErrorStatus AcDbDatabase::setDimblk2(const wchar_t* name) {
  return setting(L"dimblk2", name);
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& out, AcDbObjectId block) {
  if (block.isNull() || host().failing(L"wblock")) return Acad::eFilerError;
  note(L"wblock " + block.stub()->type);
  out = new AcDbDatabase(true, false);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const wchar_t* path, bool, int version, const void*) {
  note(std::wstring(L"save ") + path + L" " + std::to_wstring(version));
  std::FILE* file = host().failing(L"saveAs") ? nullptr : openFile(path, L"wb");
  if (!file) return Acad::eFileAccessErr;
  std::fclose(file);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const wchar_t* path, int share, bool, const wchar_t*) {
  note(std::wstring(L"read ") + path + L" " + std::to_wstring(share));
  if (host().failing(L"readDwgFile") || !fileExists(path)) return Acad::eFileAccessErr;
  return Acad::eOk;
}

// --- temporary files ---

std::wstring temporaryName() {
  static int number = 0;
  return host().failing(L"temporaryName") ? L"" : L"\\temporary." + std::to_wstring(++number);
}

bool removeFile(const std::wstring& path) {
  std::error_code error;
  return !host().failing(L"removeFile") && std::filesystem::remove(base::resolvePath(path), error);
}

// --- pictures ---

CGetSld::CGetSld(AcDbDatabase* database) : database_(database) {}
CGetSld::CGetSld(CString path, AcDbDatabase* database)
    : path_(std::move(path)), database_(database) {}

void CGetSld::SetChineseShxFileName(CString path) {
  note(L"Chinese " + path.wide());
  chineseFont_ = std::move(path);
}

void CGetSld::SetEnglishShxFileName(CString path) {
  note(L"English " + path.wide());
  englishFont_ = std::move(path);
}

int CGetSld::GetDataBaseExtents(AcDbExtents&) { return database_ ? 1 : 0; }

int CGetSld::GetSldData() {
  if (host().failing(L"GetSldData")) return 0;
  bytes_ = {'s', 'l', 'i', 'd', 'e'};
  if (host().failing(L"slide bytes")) bytes_.clear();
  data = bytes_.data();
  size = static_cast<std::int32_t>(bytes_.size());
  return 1;
}
