// The records of extension modules and the resource libraries made on them.
#include <algorithm>
#include <vector>

#include "embedded/framework/linked_libraries.h"
#include "platform/framework_module.h"

namespace {

std::vector<CDynLinkLibrary*>& libraries() {
  static std::vector<CDynLinkLibrary*> all;
  return all;
}

}  // namespace

const std::vector<CDynLinkLibrary*>& framework::linkedLibraries() { return libraries(); }

bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& record, HINSTANCE instance) {
  if (record.bInitialized) return true;
  record = {true, instance, instance};
  return true;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& record, bool all) {
  const std::vector<CDynLinkLibrary*> present = libraries();
  for (CDynLinkLibrary* library : present) {
    if (all || library->record() == &record) delete library;
  }
  record = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& record, bool system) : record_(&record) {
  static_cast<void>(system);  // libraries of the system would be searched last; there are none
  libraries().push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary() { std::erase(libraries(), this); }

HINSTANCE CDynLinkLibrary::resources() const { return record_->hResource; }
