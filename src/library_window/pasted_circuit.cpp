#include "library_window/pasted_circuit.h"

#include "store/library_store.h"

std::optional<CString> rowForSlot(const std::wstring& row, int slot) {
  const std::size_t blank = row.find(L' ');
  if (blank == std::wstring::npos) return std::nullopt;
  return CString(L"(\"" + CZhlkLibStore::NumberText(slot).wide() + L"\"" + row.substr(blank));
}
