// Selection sets and entity names for modules.
#include "embedded/drafting/commands/selection_filter.h"
#include "embedded/drafting/host/host_state.h"

using drafting::Session;

namespace {

const drafting::Selection* setOf(const ads_name set) {
  return set[1] == drafting::kSelectionMark ? Session::active().selection(set[0]) : nullptr;
}

}  // namespace

drafting::SelectionFilter drafting::filterOf(const resbuf* link) {
  SelectionFilter filter;
  for (; link; link = link->rbnext) {
    if (link->restype == 0 || link->restype == RTDXF0) filter.type = utf8(link->resval.rstring);
    if (link->restype == 8) filter.layer = utf8(link->resval.rstring);
    if (link->restype == 1001) filter.app = utf8(link->resval.rstring);
  }
  return filter;
}

int acedSSGet(const wchar_t* mode, const void*, const void*, const resbuf* filter, ads_name set) {
  Session& session = Session::active();
  drafting::setName(set, 0, 0);
  if (session.faults.fails("acedSSGet") || drafting::utf8(mode) != "X") return RTERROR;
  drafting::Selection found = drafting::selectAll(session.database(), drafting::filterOf(filter));
  if (found.empty()) return RTERROR;
  drafting::setName(set, static_cast<std::uint64_t>(session.keepSelection(std::move(found))),
                    drafting::kSelectionMark);
  return RTNORM;
}

int acedSSLength(const ads_name set, std::int32_t* length) {
  const auto* entities = setOf(set);
  if (!entities) return RTERROR;
  *length = static_cast<std::int32_t>(entities->size());
  return RTNORM;
}

int acedSSName(const ads_name set, std::int32_t index, ads_name entity) {
  const auto* entities = setOf(set);
  if (!entities || index < 0 || static_cast<std::size_t>(index) >= entities->size() ||
      Session::active().faults.fails("acedSSName")) {
    return RTERROR;
  }
  drafting::setName(entity, (*entities)[static_cast<std::size_t>(index)], drafting::kEntityMark);
  return RTNORM;
}

int acedSSFree(const ads_name set) {
  return set[1] == drafting::kSelectionMark && Session::active().dropSelection(set[0]) ? RTNORM
                                                                                       : RTERROR;
}

int acdbEntLast(ads_name entity) {
  Session& session = Session::active();
  const drafting::Handle last = session.database().lastEntity();
  drafting::setName(entity, 0, 0);
  if (last == 0 || session.faults.fails("acdbEntLast")) return RTERROR;
  drafting::setName(entity, last, drafting::kEntityMark);
  return RTNORM;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity) {
  Session& session = Session::active();
  const drafting::Handle handle = drafting::entityOf(entity);
  if (handle == 0 || session.faults.fails("acdbGetObjectId")) return Acad::eNullObjectId;
  id = drafting::currentState(session).idOf(handle);
  return Acad::eOk;
}

int acdbRegApp(const wchar_t* application) {
  Session& session = Session::active();
  if (session.faults.fails("acdbRegApp")) return RTERROR;
  return session.database().registerApp(drafting::utf8(application)) ? RTNORM : RTERROR;
}
