// Changes of items in the tree: their labels, order and block names. Drawings and slides are the
// caller's.
#include "auxiliary/auxiliary_keys.h"
#include "auxiliary/auxiliary_store.h"
#include "auxiliary/new_names.h"
#include "auxiliary/renaming.h"
#include "module/tree_values.h"
#include "platform/framework_exceptions.h"

namespace keys = auxiliary_keys;

SymbolFiles AuxiliaryStore::addItem(const std::wstring& title, const std::wstring& label) {
  CStringArray labels = labelsOf(title);
  NameList blocks;
  for (const CString& each : labels) blocks.push_back(blockOf(title, each.wide()));
  const std::wstring directory = directoryOf(title);
  labels.Add(label);
  if (!isOneLevel(title) || !fits(labels)) return {directory, {}};
  const std::wstring block = newBlockName(directory, blocks);
  storeList(keys::items(title), labels);
  storeText(tree_, keys::item(title, label), block);
  return {directory, block};
}

void AuxiliaryStore::removeItem(const std::wstring& title, const std::wstring& label) {
  CStringArray labels = labelsOf(title);
  if (labels.IsEmpty()) return;
  for (int i = 0; i < labels.GetSize(); ++i) {
    if (labels.GetAt(i).wide() != label) continue;
    labels.RemoveAt(i);
    break;
  }
  storeList(keys::items(title), labels);
  if (isOneLevel(label)) tree_.DeleteSubKeyW(keys::item(title, label).c_str());
}

std::optional<SymbolFiles> AuxiliaryStore::takeItem(const std::wstring& title, int item) {
  const std::wstring directory = directoryOf(title);
  if (directory.empty()) return std::nullopt;
  CStringArray labels = labelsOf(title);
  if (item < 0 || item >= labels.GetSize()) return std::nullopt;
  const std::wstring label = labels.GetAt(item).wide();
  labels.RemoveAt(item);
  storeList(keys::items(title), labels);
  if (!isOneLevel(label) || !hasValue(keys::item(title, label))) return std::nullopt;
  const std::wstring block = blockOf(title, label);
  tree_.DeleteSubKeyW(keys::item(title, label).c_str());
  if (block.empty()) return std::nullopt;
  return SymbolFiles{directory, block};
}

Renaming AuxiliaryStore::renameItem(int folder, int item, const std::wstring& text) {
  const CStringArray groups = titles();
  if (groups.IsEmpty()) return Renaming::nothing;
  const std::wstring title = groups.GetAt(folder).wide();
  CStringArray labels = labelsOf(title);
  if (labels.IsEmpty()) return Renaming::nothing;
  if (hasOther(labels, item, text)) return Renaming::taken;
  if (item >= 0 && item < labels.GetSize()) {
    const std::wstring label = labels.GetAt(item).wide();
    labels.SetAt(item, text);
    if (!fits(labels)) return Renaming::tooLong;
    if (isOneLevel(label)) tree_.RenameSubKeyW(keys::item(title, label).c_str(), text.c_str());
    storeList(keys::items(title), labels);
  }
  return Renaming::done;
}

bool AuxiliaryStore::moveItem(const std::wstring& title, int source, int target) {
  CStringArray labels = labelsOf(title);
  if (labels.IsEmpty()) return false;
  const CString label = labels.GetAt(source);
  if (target > labels.GetSize()) AfxThrowInvalidArgException();  // inserting there would pad
  if (source < target) {
    labels.InsertAt(target, label);
    labels.RemoveAt(source);
  } else {
    labels.RemoveAt(source);
    labels.InsertAt(target, label);
  }
  storeList(keys::items(title), labels);
  return true;
}
