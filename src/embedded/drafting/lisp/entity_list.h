// An entity as LISP sees it: a list of pairs of group code and value.
#pragma once

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/lisp/value.h"

namespace drafting::lisp {

// Nil if there is no such entity.
Value makeEntityList(const Database& database, Handle handle);

// Gives the entity that the list names (group -1) the values of its other groups; false, and
// nothing changed, if there is no such entity or a value is wrong.
bool changeEntity(Database& database, const Value& list);

}  // namespace drafting::lisp
