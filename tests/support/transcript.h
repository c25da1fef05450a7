// What the code under test prints on the command line, for test programs without the drafting host.
#pragma once

#include <string>

namespace test {

// Everything printed since the last call; the record is then empty.
std::wstring takeTranscript();

}  // namespace test
