#include "library_window/circuit_actions.h"

#include "platform/common_funcs.h"
#include "platform/framework_runtime.h"
#include "store/circuit_record.h"
#include "store/library_store.h"

namespace {

void putCircuit(CZhlkLibStore& store, int slot, const CString& row, const CString& name) {
  if (slot < store.GetCount()) {
    store.RenameAt(slot, name);
    store.SetRowAt(slot, row);
  } else {
    store.InsertCircuit(slot, row, name);
  }
  store.Save();
}

void putSlide(CZhlkLibStore& store, const CString& name, const CZhlkCircuitRecord& circuit) {
  store.Slides().AddSlideW(name, circuit.slide.data(),
                           static_cast<std::uint32_t>(circuit.slide.size()));
}

// A clipboard without a number gives no slot, for which the library has the template's row.
int copiedSlot(CZhlkLibStore& store) {
  CString number;
  store.GetClipboard(number);
  const std::int32_t copied = wideToInt(number);
  return copied > 0 ? copied - 1 : -1;
}

}  // namespace

bool pasteCircuit(CZhlkLibStore& store, int slot) {
  CString source;
  store.GetRowAt(copiedSlot(store), source);
  const std::optional<CString> row = rowForSlot(source.wide(), slot);
  if (!row) return false;
  const CString name = CZhlkLibStore::CircuitName(slot);
  putCircuit(store, slot, *row, name);

  CZhlkCircuitRecord circuit;
  lockDoc();
  circuit.CaptureRow(*row, name);
  unlockDoc();
  putSlide(store, name, circuit);
  store.Save();
  return true;
}

void deleteCircuit(CZhlkLibStore& store, int slot) {
  CString name;
  store.GetNameAt(slot, name);
  store.DeleteAt(slot);
  store.Slides().DelSlide(name);
  store.Save();
}

void storeEdit(CZhlkLibStore& store, int slot, const CString& name,
               const CZhlkCircuitRecord& circuit) {
  store.Slides().DelSlide(name);
  putSlide(store, name, circuit);
  CString row;
  circuit.BuildRow(row);
  putCircuit(store, slot, row, name);
}
