// The registry of temporary objects, and its lock.
#include "embedded/framework/windows/temporary.h"

#include <algorithm>
#include <vector>

#include "platform/framework_system.h"
#include "platform/framework_temporary.h"

namespace framework {

namespace {

std::vector<void (*)()>& kinds() {
  static std::vector<void (*)()> all;
  return all;
}

int lockCount = 0;

}  // namespace

bool addTemporaryKind(void (*deleteAll)()) {
  kinds().push_back(deleteAll);
  return true;
}

void deleteTemporaryObjects() {
  if (lockCount > 0) return;
  for (void (*deleteAll)() : kinds()) deleteAll();
}

}  // namespace framework

void AfxLockTempMaps() { ++framework::lockCount; }

bool AfxUnlockTempMaps(bool deleteTemporary) {
  framework::lockCount = std::max(framework::lockCount - 1, 0);
  if (deleteTemporary) framework::deleteTemporaryObjects();
  return framework::lockCount != 0;
}
