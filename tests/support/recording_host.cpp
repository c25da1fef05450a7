// The recording host's drawing, commands and prompts.
#include "support/recording_host.h"

#include <algorithm>
#include <cstdarg>
#include <cwchar>

#include "platform/db_object.h"
#include "platform/framework_runtime.h"
#include "platform/framework_text.h"

#ifdef __SANITIZE_ADDRESS__
#define TEST_UNDER_ASAN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TEST_UNDER_ASAN
#endif
#endif
#ifdef TEST_UNDER_ASAN
// The double stands before the host of the platform library on purpose: the same classes, the same
// sizes, other functions.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "detect_odr_violation=1"; }
#endif

namespace test {

RecordingHost::RecordingHost() {
  variables[L"ATTREQ"] = std::int16_t{0};
  variables[L"TEXTSTYLE"] = std::wstring(L"SONG");
  variables[L"CLAYER"] = std::wstring(L"0");
  add(Kind::layer, L"0")->colour = 7;
}

Thing* RecordingHost::add(Kind kind, const std::wstring& type) {
  things.push_back(std::make_unique<AcDbStub>());
  Thing* thing = things.back().get();
  thing->kind = kind;
  thing->type = type;
  thing->handle = 0x20 + things.size();
  return thing;
}

Thing* RecordingHost::addEntity(const std::wstring& type) {
  Thing* entity = add(type == L"INSERT" ? Kind::reference : Kind::entity, type);
  entity->layer = std::get<std::wstring>(variables[L"CLAYER"]);
  space.push_back(entity);
  return entity;
}

Thing* RecordingHost::lastEntity() const {
  const auto last = std::find_if(space.rbegin(), space.rend(),
                                 [](const Thing* entity) { return !entity->erased; });
  return last == space.rend() ? nullptr : *last;
}

std::vector<Thing*> RecordingHost::present(const std::wstring& type) const {
  std::vector<Thing*> found;
  for (Thing* entity : space) {
    if (!entity->erased && entity->type == type) found.push_back(entity);
  }
  return found;
}

bool RecordingHost::everythingClosed() const {
  if (openSets != 0) return false;
  for (const auto& thing : things) {
    if (thing->openForRead != 0 || thing->openForWrite != 0) return false;
  }
  return true;
}

void RecordingHost::fail(const std::wstring& service, int nth) { failures_[service] = {nth, 0}; }

bool RecordingHost::failing(const std::wstring& service) {
  const auto found = failures_.find(service);
  if (found == failures_.end()) return false;
  return ++found->second.calls == found->second.nth || found->second.nth == 0;
}

namespace {
std::unique_ptr<RecordingHost>& instance() {
  static auto host = std::make_unique<RecordingHost>();
  return host;
}

std::wstring numberText(double value) {
  CString text;
  text.Format(L"%g", value);
  return text.wide();
}

// Arguments of acedCommand as words; a selection set keeps its name.
struct CommandCall {
  std::vector<std::wstring> words;
  std::vector<double> point;  // the first one
  std::intptr_t set = 0;
};

std::wstring pointText(const double* point) {
  return numberText(point[0]) + L"," + numberText(point[1]);
}

CommandCall readCall(int type, std::va_list arguments) {
  CommandCall call;
  for (; type != 0 && type != RTNONE; type = va_arg(arguments, int)) {
    switch (type) {
      case RTSTR: {
        const std::wstring word = va_arg(arguments, const wchar_t*);
        call.words.push_back(word.empty() ? L"(empty)" : word);
        break;
      }
      case RTREAL: call.words.push_back(numberText(va_arg(arguments, double))); break;
      case RTSHORT:
        call.words.push_back(std::to_wstring(static_cast<std::int16_t>(va_arg(arguments, int))));
        break;
      case RTLONG: call.words.push_back(std::to_wstring(va_arg(arguments, int))); break;
      case RTPOINT:
      case RT3DPOINT: {
        const double* point = va_arg(arguments, const double*);
        if (call.point.empty()) call.point.assign(point, point + 2);
        call.words.push_back(pointText(point));
        break;
      }
      default:
        call.set = *va_arg(arguments, const std::intptr_t*);
        call.words.push_back(L"(set)");
        break;
    }
  }
  return call;
}

std::wstring stem(const std::wstring& path) {
  const std::wstring name = path.substr(path.find_last_of(L"\\/") + 1);
  return name.substr(0, name.find(L'.'));
}

void insert(const std::wstring& path) {
  RecordingHost& h = host();
  Thing*& block = h.blocks[stem(path)];
  if (!block) block = h.add(Kind::record, stem(path));
  h.addEntity(L"INSERT")->block = block;
}

}  // namespace

RecordingHost& host() { return *instance(); }
void resetHost() { instance() = std::make_unique<RecordingHost>(); }

// Selection sets: their name is an index into this list, from 1.
std::vector<std::vector<Thing*>>& selectionSets() {
  static std::vector<std::vector<Thing*>> sets;
  return sets;
}

namespace {

void perform(const CommandCall& call) {
  RecordingHost& h = host();
  const std::wstring& name = call.words.front();
  if (name == L"insert") {
    insert(call.words[1]);
  } else if (name == L"PLINE") {
    h.addEntity(L"LWPOLYLINE");
  } else if (name == L"TEXT") {
    h.addEntity(L"TEXT");
  } else if (name == L"POINT") {
    h.addEntity(L"POINT")->position = {call.point[0], call.point[1], 0};
  } else if (name == L"ERASE") {
    for (Thing* entity : selectionSets()[static_cast<std::size_t>(call.set) - 1]) {
      entity->erased = true;
    }
  } else if (name == L"undo") {
    const bool begins = call.words[1] == L"begin";
    h.undoDepth += begins ? 1 : -1;
    h.undoGroups += begins ? 1 : 0;
  }
}

}  // namespace

}  // namespace test

using test::Answer;
using test::host;

int acedCommand(int type, ...) {
  std::va_list arguments;
  va_start(arguments, type);
  const test::CommandCall call = test::readCall(type, arguments);
  va_end(arguments);
  std::wstring line;
  for (const std::wstring& word : call.words) line += (line.empty() ? L"" : L" ") + word;
  host().commands.push_back(line);
  if (host().failing(L"acedCommand " + call.words.front())) return RTERROR;
  test::perform(call);
  return RTNORM;
}

namespace {

std::wstring armed;

Answer ask(const wchar_t* prompt) {
  host().prompts.push_back(L"[" + armed + L"] " + prompt);
  armed.clear();
  if (host().answers.empty()) return {RTCAN, L"", {}};
  Answer answer = host().answers.front();
  host().answers.pop_front();
  return answer;
}

}  // namespace

int acedInitGet(int, const wchar_t* keywords) {
  armed = keywords;
  return RTNORM;
}

int acedGetKword(const wchar_t* prompt, wchar_t* keyword) {
  const Answer answer = ask(prompt);
  std::wcscpy(keyword, answer.keyword.c_str());
  return answer.result;
}

int GetPoint(const AcGePoint2d*, const wchar_t* prompt, int, AcGePoint2d& point, wchar_t* keyword) {
  const Answer answer = ask((prompt + std::wstring(host().blips ? L" (blips)" : L"")).c_str());
  std::wcscpy(keyword, answer.keyword.c_str());
  point = answer.point;
  return answer.result;
}

int acedGetVar(const wchar_t* name, resbuf* value) {
  const auto found = host().variables.find(name);
  if (found == host().variables.end() || host().failing(L"acedGetVar")) return RTERROR;
  if (const auto* text = std::get_if<std::wstring>(&found->second)) {
    value->restype = RTSTR;
    value->resval.rstring = acutNewString(text->c_str());
  } else {
    value->restype = RTSHORT;
    value->resval.rint = std::get<std::int16_t>(found->second);
  }
  return RTNORM;
}

int acedSetVar(const wchar_t* name, const resbuf* value) {
  if (host().failing(L"acedSetVar")) return RTERROR;
  const bool isText = value->restype == RTSTR;
  const std::wstring text = isText ? value->resval.rstring : std::to_wstring(value->resval.rint);
  host().settings.push_back(name + (L"=" + text));
  if (isText) {
    host().variables[name] = text;
  } else {
    host().variables[name] = value->resval.rint;
  }
  return RTNORM;
}

int acdbDisToF(const wchar_t* text, int, ads_real* value) {
  if (host().failing(L"acdbDisToF")) return RTERROR;
  *value = wideToDouble(text);
  return RTNORM;
}

double TqDbGetPrintScale(AcDbDatabase*) { return host().printScale; }

int SetToCurrentLayer(const wchar_t* group, const wchar_t* kind, const wchar_t*, const wchar_t*) {
  LayerInfo layer;
  GetDQLayerName(group, kind, layer);
  host().variables[L"CLAYER"] = layer.name;
  for (const auto& thing : host().things) {
    if (thing->kind == test::Kind::layer && thing->type == layer.name) return RTNORM;
  }
  host().add(test::Kind::layer, layer.name)->colour = static_cast<std::uint16_t>(layer.colour);
  return RTNORM;
}

int GetDQLayerName(const wchar_t* group, const wchar_t* kind, LayerInfo& layer) {
  layer.name = std::wstring(group) + L"-" + kind;
  layer.colour = 3;
  return RTNORM;
}

void lockDoc() { ++host().documentLocks; }
void unlockDoc() { --host().documentLocks; }

int SendMsgToAcad(const wchar_t* text, int length) {
  host().messages.emplace_back(text, static_cast<std::size_t>(length));
  return RTNORM;
}
