// ChangeWatcher: what wants to know of the changes to a drawing: look-ups over its picture.
#pragma once

#include "embedded/drafting/database/object.h"

namespace drafting {

class ChangeWatcher {
 public:
  virtual ~ChangeWatcher() = default;
  // Before the object changes or goes, and after it came: what it will be is seen later.
  virtual void touched(const Object& object) = 0;
};

}  // namespace drafting
