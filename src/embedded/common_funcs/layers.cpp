// Layers by key: the table of the companion module, and making a key's layer current.
#include <algorithm>
#include <iterator>

#include "embedded/base/text.h"
#include "embedded/drafting/documents/session.h"
#include "platform/common_funcs.h"

namespace {

struct LayerKey {
  const wchar_t* group;
  const wchar_t* kind;
  int colour;
};

// A key pair's layer is named GROUP-KIND. Names and colours stand in users' drawings: frozen.
constexpr LayerKey kLayerKeys[] = {
    {L"SCHEMATIC", L"ELEMENT", 3},
    {L"SCHEMATIC", L"TEXT", 2},
    {L"DISTRIBUTION", L"ATTPOINT", 8},
};

const LayerKey* findKey(const wchar_t* group, const wchar_t* kind) {
  const auto found =
      std::find_if(std::begin(kLayerKeys), std::end(kLayerKeys), [&](const LayerKey& key) {
        return base::equalsNoCase(std::wstring_view(key.group), group) &&
               base::equalsNoCase(std::wstring_view(key.kind), kind);
      });
  return found == std::end(kLayerKeys) ? nullptr : found;
}

}  // namespace

int GetDQLayerName(const wchar_t* group, const wchar_t* kind, LayerInfo& layer) {
  const LayerKey* key = findKey(group, kind);
  if (!key) return RTERROR;
  layer.name = std::wstring(key->group) + L"-" + key->kind;
  layer.colour = key->colour;
  return RTNORM;
}

int SetToCurrentLayer(const wchar_t* group, const wchar_t* kind, const wchar_t*, const wchar_t*) {
  using namespace drafting;
  LayerInfo info;
  Session& session = Session::active();
  if (GetDQLayerName(group, kind, info) != RTNORM || session.faults.fails("SetToCurrentLayer")) {
    return RTERROR;
  }
  Database& database = session.database();
  const std::string name = base::utf8FromWide(info.name);
  Handle layer = database.findRecord(Table::Layers, name);
  if (!layer) {
    auto record = std::make_unique<Layer>();
    record->name = name;
    record->colour = static_cast<std::int16_t>(info.colour);
    record->linetype = database.findRecord(Table::Linetypes, "Continuous");
    layer = database.addRecord(Table::Layers, std::move(record));
  }
  if (database.header.handle("CLAYER") != layer) database.setVariable("CLAYER", layer);
  return RTNORM;
}
