// The library's doctor: rows, symbols, slides and names of an install, each with what is wrong.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vornik {

// Where circuits' rows are.
inline constexpr const char* kTreeFile = "Datcom/zhllib/zhllib.qdp";

struct Finding {
  std::string file;        // below the install
  std::string circuit;     // or slide, or symbol; may be empty
  std::size_t column = 0;  // in the circuit's row, from 1; 0 where there is none
  std::string what;
};

// "FILE: CIRCUIT: column N: what".
std::string textOf(const Finding& finding);

// Checks the library in use; needs a session. With `repair` missing and stale slides are captured
// anew and orphaned ones removed first: only what is left is told.
std::vector<Finding> checkLibrary(bool repair);

// What is wrong with a circuit's row by itself: what either reader says of it, what its form
// forbids, models on empty cells, blocks in one place.
std::vector<Finding> checkRow(const std::string& circuit, std::wstring_view row);

// What is wrong with a directory file: names recorded twice, a part of a record at its end.
std::vector<Finding> checkDirectory(const std::string& file, std::string_view bytes);

}  // namespace vornik
