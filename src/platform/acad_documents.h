// The host's open drawings, for code that changes a drawing from a window.
#pragma once

#include <cstdint>

class AcDbDatabase;

struct AcAp {
  enum DocLockMode : std::int32_t { kNone = 0, kAutoWrite = 1, kNotLocked = 2, kWrite = 4 };
};

// A drawing in its window. The host owns it.
class AcApDocument {
 public:
  virtual ~AcApDocument() = default;
  // Null while the drawing is being closed.
  virtual AcDbDatabase* database() const = 0;
};

class AcApDocManager {
 public:
  virtual ~AcApDocManager() = default;
  virtual AcApDocument* curDocument() const = 0;  // null when no drawing is open
  // Taken before a change and given back after it, in pairs. 0, or another number when the document
  // can't be locked; with prompt the command line says so. The command's names may be null.
  virtual std::int32_t lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                    const wchar_t* globalCommand = nullptr,
                                    const wchar_t* localCommand = nullptr, bool prompt = true) = 0;
  virtual std::int32_t unlockDocument(AcApDocument* document) = 0;
};

AcApDocManager* acDocManagerPtr();
