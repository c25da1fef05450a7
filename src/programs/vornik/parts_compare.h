// Parts lists seen in other ways: summed by symbol or by model alone, and compared with each other.
#pragma once

#include "programs/vornik/parts_list.h"

namespace vornik {

enum class PartsBy { SymbolAndModel, Symbol, Model };

// Sums parts of one symbol, or of one model. What they don't have in common is listed, "A; B".
std::vector<Part> partsBy(PartsBy by, std::vector<Part> parts);

// A symbol with its model whose count isn't the same in two lists.
struct PartChange {
  Part part;  // of the newer list, or of the older one where that has none
  int before = 0, after = 0;
  std::vector<std::string> circuitsBefore, circuitsAfter;
};

// By symbol, then model; nothing for lists that count the same.
std::vector<PartChange> compareParts(const std::vector<Part>& older,
                                     const std::vector<Part>& newer);

// Lines "symbol,name,letters,model,before,after,difference,circuits before,circuits after" with a
// heading.
std::string changesAsCsv(const std::vector<PartChange>& changes);

}  // namespace vornik
