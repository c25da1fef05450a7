// Parts lists: model specifications counted by symbol and model, with the circuits and places where
// they stand. Taken from a drawing or from the library of an install.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drafting/database/database.h"

namespace vornik {

struct Part {
  std::string symbol;         // block name
  std::string name, letters;  // from the symbol's index text, "接触器&KM"
  std::string model;
  int count = 0;
  std::vector<std::string> circuits;  // each once
  std::vector<base::Point2> places;
};

using Note = std::function<void(std::string_view)>;

// By symbol, then model. Circuits of a drawing are numbered in the order in which they were placed;
// what stands before the first one has none. Empty cells are left out; one that carries a model all
// the same is told to `note`.
std::vector<Part> partsOfDrawing(const drafting::Database& database, const Note& note);

// The same over all circuits of the library in use, by their numbers; needs a running session.
std::vector<Part> partsOfLibrary(const Note& note);

// Lines "symbol,name,letters,model,count,circuits,places" with a heading, as spreadsheets read
// them.
std::string partsAsCsv(const std::vector<Part>& parts);

// A line of such a file with its end, and several values as one field, "1; 2".
std::string csvLine(const std::vector<std::string>& fields);
std::string joinedFields(const std::vector<std::string>& values);

}  // namespace vornik
