// The module's settings in the information store, by section and value.
#pragma once

#include <string>

// The install folder, as it is stored or the fallback. Callers append "\Datcom\..." to it.
std::wstring systemFolder();
// The library folder below it, with its final backslash.
std::wstring libraryFolder();
// The user's own folder, as it is stored or the fallback.
std::wstring userFolder();

// The message mark: 1 when clicks in the library window are sent to the command line, else 0. A
// mark that isn't a number counts as 0, any number but 0 as 1.
int GetMessageMark();
// Stores 1 as 1 and anything else as 0. A failed write isn't reported.
void setMessageMark(int mark);
