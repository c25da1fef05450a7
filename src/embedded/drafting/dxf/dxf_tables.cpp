#include "embedded/drafting/dxf/dxf_tables.h"

#include "embedded/base/text.h"

namespace drafting {

void DxfTables::learnAll() {
  db_.forEach([this](Object& object) {
    if (object.kind == Kind::Control) {
      auto& control = static_cast<Control&>(object);
      controls_[static_cast<std::size_t>(control.table)] = &control;
    }
  });
  for (const Control* control : controls_) {
    if (!control) continue;
    auto& names = names_[static_cast<std::size_t>(control->table)];
    for (const auto* list : {&control->records, &control->extras}) {
      for (const Handle record : *list) {
        if (record != 0) names.try_emplace(base::lowerCase(db_.recordName(record)), record);
      }
    }
  }
}

void DxfTables::startHandles(Handle first) { next_ = std::max(next_, first); }

Handle DxfTables::freeHandle(Handle stated) {
  if (stated != 0 && !db_.find(stated)) return stated;
  while (db_.find(next_)) ++next_;
  return next_++;
}

Handle DxfTables::find(Table table, std::string_view name) const {
  const auto& names = names_[static_cast<std::size_t>(table)];
  const auto found = names.find(base::lowerCase(name));
  return found == names.end() ? 0 : found->second;
}

Handle DxfTables::findOrMake(Table table, std::string_view name) {
  auto& last = last_[static_cast<std::size_t>(table)];
  if (name == last.first) return last.second;
  if (name.empty()) return 0;
  Handle found = find(table, name);
  if (found == 0) {
    switch (table) {
      case Table::Blocks: found = make<BlockRecord>(table, name); break;
      case Table::Layers: found = make<Layer>(table, name); break;
      case Table::Styles: found = make<TextStyle>(table, name); break;
      case Table::Linetypes: found = make<Linetype>(table, name); break;
      case Table::AppIds: found = make<AppId>(table, name); break;
      case Table::DimStyles: found = make<DimStyle>(table, name); break;
      default: return 0;
    }
  }
  last = {std::string(name), found};
  return found;
}

template <class T>
Handle DxfTables::make(Table table, std::string_view name) {
  auto record = std::make_unique<T>();
  T& made = *record;
  made.name = name;
  made.handle = freeHandle(0);
  if (!db_.adopt(std::move(record))) return 0;
  add(table, made);
  return made.handle;
}

void DxfTables::add(Table table, Record& record) {
  Control& head = control(table);
  record.owner = head.handle;
  head.records.push_back(record.handle);
  names_[static_cast<std::size_t>(table)].try_emplace(base::lowerCase(record.name), record.handle);
}

Control& DxfTables::control(Table table, Handle stated) {
  Control*& slot = controls_[static_cast<std::size_t>(table)];
  if (slot) return *slot;
  auto control = std::make_unique<Control>();
  slot = control.get();
  slot->table = table;
  // Files of this form lack one head. With the handle that it has in drawings of most programs, a
  // drawing has the same handles however often it goes through such a file.
  constexpr Handle kUsual = 0xB;
  slot->handle = freeHandle(table == Table::ViewportHeaders ? kUsual : stated);
  db_.adopt(std::move(control));
  return *slot;
}

int DxfTables::linetypeIndex(std::string_view name, int missing) {
  const Handle wanted = find(Table::Linetypes, name);
  int index = 0;
  for (const Handle record : control(Table::Linetypes).records) {
    if (record == wanted) return index;
    const std::string_view other = db_.recordName(record);
    const bool isExtra =
        base::equalsNoCase(other, "ByLayer") || base::equalsNoCase(other, "ByBlock");
    if (!isExtra) ++index;
  }
  return missing;
}

}  // namespace drafting
