// What makes a library a module of the framework: the record of its instance and resources.
#pragma once

struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;

struct AFX_EXTENSION_MODULE {
  bool bInitialized = false;
  HINSTANCE hModule = nullptr;
  HINSTANCE hResource = nullptr;
};

// Fills the record. False when it can't, and the record is then not initialised.
bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& record, HINSTANCE instance);
// Forgets the record and every CDynLinkLibrary made on it.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& record, bool all = false);

// Links a module's resources into the framework's search. Stays until AfxTermExtensionModule, which
// deletes it; the maker doesn't.
class CDynLinkLibrary {
 public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& record, bool system = false);
  ~CDynLinkLibrary();
  CDynLinkLibrary(const CDynLinkLibrary&) = delete;
  CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

  HINSTANCE resources() const;
  const AFX_EXTENSION_MODULE* record() const { return record_; }

 private:
  AFX_EXTENSION_MODULE* record_;
};
