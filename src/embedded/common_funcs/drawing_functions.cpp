// The companion module's shorthands on the host: text to the command line, document locks, the
// point prompt, extended data and erasing.
#include <algorithm>
#include <cwchar>

#include "embedded/drafting/host/host_state.h"
#include "platform/common_funcs.h"

using drafting::Session;

int SendMsgToAcad(const wchar_t* text, int length) {
  if (!text || length <= 0) return 0;
  const std::size_t shown = std::min(std::wcslen(text), static_cast<std::size_t>(length));
  Session::active().line.type(base::utf8FromWide({text, shown}));
  return 1;
}

void lockDoc() { ++Session::active().document().locks; }

void unlockDoc() {
  int& locks = Session::active().document().locks;
  if (locks > 0) --locks;
}

int GetPoint(const AcGePoint2d* base, const wchar_t* prompt, int, AcGePoint2d& point,
             wchar_t* keyword) {
  Session& session = Session::active();
  if (session.faults.fails("GetPoint")) return RTERROR;
  drafting::Prompt question{.kind = drafting::Ask::Point, .message = drafting::utf8(prompt)};
  if (base) question.base = drafting::Point3{base->x, base->y, 0};
  const drafting::Answer answer = session.line.askArmed(question);
  keyword[0] = 0;
  switch (answer.outcome) {
    case drafting::Outcome::Cancelled: return RTCAN;
    case drafting::Outcome::Enter: return RTNONE;
    case drafting::Outcome::Keyword: drafting::copyText(keyword, answer.text); return RTKWORD;
    case drafting::Outcome::Value: break;
  }
  point = {answer.point.x, answer.point.y};
  return RTNORM;
}

int AddXdata(const ads_name entity, const wchar_t* application, const resbuf* chain) {
  AcDbObjectId id;
  AcDbEntity* object = nullptr;
  if (acdbRegApp(application) != RTNORM || acdbGetObjectId(id, entity) != Acad::eOk ||
      acdbOpenAcDbEntity(object, id, AcDb::kForWrite) != Acad::eOk) {
    return RTERROR;
  }
  // The chain as it is, with the application in front for as long as the call lasts.
  std::wstring name = application;
  resbuf head{};
  head.restype = 1001;
  head.resval.rstring = name.data();
  resbuf first{};
  if (chain) {
    first = *chain;
    if (first.restype == RTSTR) first.restype = 1000;
    head.rbnext = &first;
  }
  const Acad::ErrorStatus status = object->setXData(&head);
  object->close();
  return status == Acad::eOk ? RTNORM : RTERROR;
}

int EraseObject(AcDbObjectId id) {
  if (id.isNull() || !id.stub()->database->database()) return RTERROR;
  drafting::Database& database = *id.stub()->database->database();
  if (!database.find(id.stub()->handle)) return RTERROR;
  database.erase(id.stub()->handle);
  return RTNORM;
}
