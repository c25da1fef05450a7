// A host for tests of the module alone: it keeps a small drawing, records what the module asks for,
// answers prompts from a list, and fails where a test wants it to. Programs that link it have no
// other host.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "platform/acad.h"
#include "platform/common_funcs.h"

namespace test {

using Value = std::variant<std::wstring, std::int16_t, AcGePoint3d>;

// A link of extended data or of a LISP argument list.
struct Link {
  int type;
  Value value;
  friend bool operator==(const Link& a, const Link& b) {
    const auto* p = std::get_if<AcGePoint3d>(&a.value);
    const auto* q = std::get_if<AcGePoint3d>(&b.value);
    if (p && q) return a.type == b.type && p->x == q->x && p->y == q->y && p->z == q->z;
    return a.type == b.type && a.value.index() == b.value.index() && !p &&
           (std::get_if<std::wstring>(&a.value)
                ? std::get<std::wstring>(a.value) == std::get<std::wstring>(b.value)
                : std::get<std::int16_t>(a.value) == std::get<std::int16_t>(b.value));
  }
};

enum class Kind { entity, reference, record, layer };

// One object of the drawing.
struct Thing {
  Kind kind = Kind::entity;
  std::wstring type;  // INSERT, POINT, LWPOLYLINE, TEXT; a block's or layer's name
  std::wstring layer;
  std::uint16_t colour = 256;
  std::uint64_t handle = 0;
  bool erased = false;
  int openForRead = 0;
  int openForWrite = 0;
  Thing* block = nullptr;        // of a reference
  std::vector<Thing*> contents;  // of a record
  AcGePoint3d position;          // of a POINT
  std::map<std::wstring, std::vector<Link>> xdata;
};

// What a prompt answers: a result of the host with a point or a keyword.
struct Answer {
  int result;
  std::wstring keyword;
  AcGePoint2d point;
};

// What a pick answers: a result, the entity of RTNORM, and errno of RTERROR.
struct Pick {
  int result;
  Thing* entity = nullptr;
  std::int16_t error = 0;
};

struct RecordingHost {
  RecordingHost();

  // --- what happened ---
  std::vector<std::wstring> commands;  // "PLINE 0,0 W 0.3 (empty) ..."
  std::vector<std::wstring> prompts;   // "[S F N] text"
  std::vector<std::wstring> defined;   // "3 yczhlhz", "-3 yczhlhz"
  std::vector<std::wstring> groups;    // command groups, "name:command:flags"
  std::vector<std::wstring> steps;     // what the module's start and end ask for, in order
  std::vector<std::wstring> settings;  // variables set, "TEXTSTYLE=Standard"
  std::wstring lispValue = L"none";    // what acedRet... set last
  bool blips = false;
  int undoDepth = 0;
  int undoGroups = 0;
  void* unlocked = nullptr;
  void* mdiAware = nullptr;
  std::vector<std::wstring> messages;  // of SendMsgToAcad
  int documentLocks = 0;
  int openSets = 0;                    // selection sets that weren't freed
  std::vector<std::wstring> drawings;  // of other drawings: "wblock A", "save PATH 23", ...

  // --- what it answers ---
  std::deque<Answer> answers;  // then cancel
  std::deque<Pick> picks;      // then cancel
  std::vector<Link> lispArguments;
  int functionCode = 0;
  double printScale = 1;
  HWND mainWindow = nullptr;
  std::map<std::wstring, std::variant<std::wstring, std::int16_t>> variables;

  // --- the drawing ---
  std::deque<std::unique_ptr<Thing>> things;  // of every kind, in order of making
  std::vector<Thing*> space;                  // entities of the drawing itself
  std::map<std::wstring, Thing*> blocks;      // by file name without ".dwg"
  Thing* add(Kind kind, const std::wstring& type);
  Thing* addEntity(const std::wstring& type);
  Thing* lastEntity() const;
  std::vector<Thing*> present(const std::wstring& type) const;  // not erased
  bool everythingClosed() const;  // no object open, no selection set kept

  // Lets the n-th call of a service from now on fail, or all of them for 0.
  void fail(const std::wstring& service, int nth = 0);
  bool failing(const std::wstring& service);

 private:
  struct Failure {
    int nth;
    int calls;
  };
  std::map<std::wstring, Failure> failures_;
};

// The host of this process; reset() gives a fresh one.
RecordingHost& host();
void resetHost();

}  // namespace test

struct AcDbStub : test::Thing {};
