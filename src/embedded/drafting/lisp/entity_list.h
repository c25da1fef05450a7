// An entity as LISP sees it: a list of pairs of group code and value.
#pragma once

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/lisp/value.h"

namespace drafting::lisp {

// Nil if there is no such entity.
Value makeEntityList(const Database& database, Handle handle);

}  // namespace drafting::lisp
