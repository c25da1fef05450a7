// What stands behind the module's handles: ids, open objects, and the text conversions that every
// host function starts with.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "embedded/base/text.h"
#include "embedded/drafting/commands/selection_filter.h"
#include "embedded/drafting/documents/session.h"
#include "platform/acad.h"

// The entry for one object, handed out as AcDbObjectId; lives as long as its database's state.
// Counts who has the object open: any number of readers, or one writer.
struct AcDbStub {
  AcDbDatabaseState* database = nullptr;
  drafting::Handle handle = 0;
  int readers = 0;
  bool writer = false;
};

class AcDbDatabaseState : public std::enable_shared_from_this<AcDbDatabaseState> {
 public:
  explicit AcDbDatabaseState(drafting::Database& database) : database_(&database) {}
  explicit AcDbDatabaseState(std::unique_ptr<drafting::Database> own)
      : own_(std::move(own)), database_(own_.get()) {}

  // Null once the drawing is closed.
  drafting::Database* database() const { return database_; }
  void close() { database_ = nullptr; }
  void replace(std::unique_ptr<drafting::Database> own) {
    own_ = std::move(own);
    database_ = own_.get();
  }
  AcDbObjectId idOf(drafting::Handle handle) {
    auto& stub = stubs_[handle];
    if (!stub) stub = std::make_unique<AcDbStub>(AcDbStub{this, handle});
    return AcDbObjectId(stub.get());
  }

 private:
  std::unique_ptr<drafting::Database> own_;
  drafting::Database* database_;
  std::unordered_map<drafting::Handle, std::unique_ptr<AcDbStub>> stubs_;
};

namespace drafting {

inline std::string utf8(const wchar_t* text) {
  return text ? base::utf8FromWide(text) : std::string();
}

// Whether a test wants the service to fail. Databases work without a session too.
inline bool serviceFails(std::string_view service) {
  Session* session = Session::activeOrNull();
  return session && session->faults.fails(service);
}

// The state of the session's drawing, made when first asked for.
AcDbDatabaseState& currentState(Session& session);

// Entity names carry the handle, selection sets their number.
inline constexpr std::intptr_t kEntityMark = 1, kSelectionMark = 2;
inline void setName(ads_name name, std::uint64_t value, std::intptr_t mark) {
  name[0] = static_cast<std::intptr_t>(value);
  name[1] = mark;
}
inline Handle entityOf(const ads_name name) {
  return name[1] == kEntityMark ? static_cast<Handle>(name[0]) : 0;
}

// A filter as modules build it: groups 0 and 8, and 1001 behind a -3.
SelectionFilter filterOf(const resbuf* link);

// Copies at most kAcadTextLimit - 1 characters and closes the text.
void copyText(wchar_t* buffer, std::string_view utf8);

}  // namespace drafting
