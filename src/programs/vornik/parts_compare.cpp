#include "programs/vornik/parts_compare.h"

#include <algorithm>
#include <map>

namespace vornik {
namespace {

void addOnce(std::vector<std::string>& list, const std::string& text) {
  if (std::find(list.begin(), list.end(), text) == list.end()) list.push_back(text);
}

// The different values of a field, in the order in which they come.
class Values {
 public:
  void add(const std::string& value) {
    if (!value.empty()) addOnce(values_, value);
  }
  std::string text() const { return joinedFields(values_); }

 private:
  std::vector<std::string> values_;
};

struct Sum {
  Values symbol, name, letters, model;
  Part part;

  void add(const Part& one) {
    symbol.add(one.symbol);
    name.add(one.name);
    letters.add(one.letters);
    model.add(one.model);
    part.count += one.count;
    for (const std::string& circuit : one.circuits) addOnce(part.circuits, circuit);
    part.places.insert(part.places.end(), one.places.begin(), one.places.end());
  }
  Part take() {
    part.symbol = symbol.text();
    part.name = name.text();
    part.letters = letters.text();
    part.model = model.text();
    return std::move(part);
  }
};

using Key = std::pair<std::string, std::string>;

Key keyOf(const Part& part) { return {part.symbol, part.model}; }

}  // namespace

std::vector<Part> partsBy(PartsBy by, std::vector<Part> parts) {
  if (by == PartsBy::SymbolAndModel) return parts;
  std::map<std::string, Sum> sums;
  for (const Part& part : parts) sums[by == PartsBy::Symbol ? part.symbol : part.model].add(part);
  std::vector<Part> out;
  out.reserve(sums.size());
  for (auto& [key, sum] : sums) out.push_back(sum.take());
  return out;
}

std::vector<PartChange> compareParts(const std::vector<Part>& older,
                                     const std::vector<Part>& newer) {
  std::map<Key, PartChange> all;
  for (const Part& part : older) {
    PartChange& change = all[keyOf(part)];
    change.part = part;
    change.before = part.count;
    change.circuitsBefore = part.circuits;
  }
  for (const Part& part : newer) {
    PartChange& change = all[keyOf(part)];
    change.part = part;
    change.after = part.count;
    change.circuitsAfter = part.circuits;
  }
  std::vector<PartChange> out;
  for (auto& [key, change] : all) {
    if (change.before != change.after) out.push_back(std::move(change));
  }
  return out;
}

std::string changesAsCsv(const std::vector<PartChange>& changes) {
  std::string out =
      "symbol,name,letters,model,before,after,difference,circuits before,circuits after\r\n";
  for (const PartChange& change : changes) {
    const int difference = change.after - change.before;
    out += csvLine({change.part.symbol, change.part.name, change.part.letters, change.part.model,
                    std::to_string(change.before), std::to_string(change.after),
                    (difference > 0 ? "+" : "") + std::to_string(difference),
                    joinedFields(change.circuitsBefore), joinedFields(change.circuitsAfter)});
  }
  return out;
}

}  // namespace vornik
