// An object as one piece of bytes, for the journal: everything but its neighbours, its block's
// chain, and the INSERTs of a block. Frame: kind RC, subtype BS (a raw object's type, a control's
// table), bit size RL, the body as the object codec has it with texts as UTF-8, the references.
#pragma once

#include <string>
#include <string_view>

#include "embedded/drafting/database/object.h"

namespace drafting {

std::string encodeImage(const Object& object);

Kind kindOfImage(std::string_view image);

// Gives `object`, which is of the image's kind and keeps its handle and neighbours, the fields of
// the image. False, and some fields not read, if the bytes aren't what encodeImage makes.
bool decodeImage(std::string_view image, Object& object);

}  // namespace drafting
