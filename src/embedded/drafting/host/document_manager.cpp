// The one open drawing as modules see it, and its locks.
#include "embedded/drafting/host/host_state.h"
#include "platform/acad_documents.h"

using drafting::Session;

namespace {

constexpr std::int32_t kLocked = 0;
constexpr std::int32_t kNotLockable = 1;

class CurrentDocument : public AcApDocument {
 public:
  AcDbDatabase* database() const override {
    return acdbHostApplicationServices()->workingDatabase();
  }
};

class DocumentManager : public AcApDocManager {
 public:
  AcApDocument* curDocument() const override {
    return Session::active().document().database ? &document_ : nullptr;
  }
  std::int32_t lockDocument(AcApDocument* document, AcAp::DocLockMode, const wchar_t*,
                            const wchar_t*, bool prompt) override {
    Session& session = Session::active();
    if (document != curDocument() || !document || session.faults.fails("lockDocument")) {
      if (prompt) session.print(session.say("\n图形不能锁定。", "\nThe drawing can't be locked."));
      return kNotLockable;
    }
    ++session.document().locks;
    return kLocked;
  }
  std::int32_t unlockDocument(AcApDocument* document) override {
    int& locks = Session::active().document().locks;
    if (document != curDocument() || !document || locks == 0) return kNotLockable;
    --locks;
    return kLocked;
  }

 private:
  mutable CurrentDocument document_;
};

}  // namespace

AcApDocManager* acDocManagerPtr() {
  static DocumentManager manager;
  return &manager;
}
