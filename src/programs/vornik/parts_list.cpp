#include "programs/vornik/parts_list.h"

#include <algorithm>
#include <map>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/database/xdata.h"
#include "engine/row_reader.h"
#include "engine/symbol_search.h"
#include "library_window/library_window.h"
#include "store/library_store.h"

namespace vornik {
namespace {

using namespace drafting;

constexpr std::string_view kModelApp = "XHGG";
constexpr std::string_view kIndexApp = "TKSY";
constexpr std::string_view kCircuitMark = "Fah";  // the block that each circuit begins with
// Cells that stand for no device: the plain wire, the blank, the covered cell.
constexpr std::string_view kEmptyCells[] = {"F002", "ZHL1000", "NULL"};

bool isEmptyCell(std::string_view symbol) {
  return std::any_of(std::begin(kEmptyCells), std::end(kEmptyCells),
                     [&](std::string_view name) { return base::equalsNoCase(name, symbol); });
}

std::string placeText(Point2 place) {
  return "(" + base::formatG(place.x, 8) + ", " + base::formatG(place.y, 8) + ")";
}

class PartsList {
 public:
  explicit PartsList(const Note& note) : note_(note) {}

  // `index` is the symbol's index text, name and letters joined by "&".
  void add(const std::string& symbol, const std::string& index, const std::string& model,
           const std::string& circuit, Point2 place) {
    if (model.empty()) return;
    if (isEmptyCell(symbol)) {
      note_("the empty cell " + symbol + " at " + placeText(place) +
            (circuit.empty() ? "" : " of circuit " + circuit) + " carries the model " + model +
            "; it isn't counted");
      return;
    }
    Part& part = parts_[{symbol, model}];
    if (part.count == 0) {
      const std::size_t joint = index.find('&');
      part.symbol = symbol;
      part.model = model;
      part.name = index.substr(0, joint);
      if (joint != std::string::npos) part.letters = index.substr(joint + 1);
    }
    ++part.count;
    if (!circuit.empty() && (part.circuits.empty() || part.circuits.back() != circuit)) {
      part.circuits.push_back(circuit);
    }
    part.places.push_back(place);
  }

  std::vector<Part> take() {
    std::vector<Part> out;
    for (auto& [key, part] : parts_) out.push_back(std::move(part));
    return out;
  }

 private:
  const Note& note_;
  std::map<std::pair<std::string, std::string>, Part> parts_;
};

// "主回路&07" is circuit 07; a name without a number stays.
std::string circuitNumber(const std::string& name) { return name.substr(name.find('&') + 1); }

std::string quoted(const std::string& field) {
  if (field.find_first_of(",\"\r\n") == std::string::npos) return field;
  std::string out = "\"";
  for (const char c : field) out += c == '"' ? "\"\"" : std::string(1, c);
  return out + "\"";
}

}  // namespace

std::vector<Part> partsOfDrawing(const Database& database, const Note& note) {
  PartsList list(note);
  const Handle model = database.findRecord(Table::AppIds, kModelApp);
  const Handle index = database.findRecord(Table::AppIds, kIndexApp);
  int circuit = 0;
  for (const Entity* entity = database.modelSpace().first; entity; entity = entity->next) {
    if (entity->kind != Kind::Insert) continue;
    const auto& insert = static_cast<const Insert&>(*entity);
    const std::string symbol(database.recordName(insert.block));
    if (base::equalsNoCase(symbol, kCircuitMark)) ++circuit;
    list.add(symbol, firstXDataText(insert, index), firstXDataText(insert, model),
             circuit ? std::to_string(circuit) : "", {insert.position.x, insert.position.y});
  }
  return list.take();
}

std::vector<Part> partsOfLibrary(const Note& note) {
  PartsList list(note);
  CZhlkLibStore store;
  std::map<std::wstring, std::string> indexes;
  for (int slot = 0; slot < store.GetCount(); ++slot) {
    CString name, text;
    if (!store.GetNameAt(slot, name) || name.IsEmpty() || !store.GetRowAt(slot, text)) continue;
    const std::string circuit =
        circuitNumber(base::utf8FromWide(static_cast<const wchar_t*>(name)));
    const RowReading reading = readRow(static_cast<const wchar_t*>(text));
    if (!reading.ok()) {
      note("circuit " + circuit + ": " + base::utf8FromWide(base::trim(reading.message)));
      continue;
    }
    const CircuitRow& row = reading.row;
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      const auto [entry, isNew] = indexes.try_emplace(row.names[i]);
      std::wstring path;
      if (isNew && SearchSymbolFile(L"DWG", row.names[i].c_str(), path)) {
        entry->second = base::utf8FromWide(ReadSymbolIndex(path));
      }
      list.add(base::utf8FromWide(row.names[i]), entry->second,
               base::utf8FromWide(row.specifications[i]), circuit,
               {row.points[i].x, row.points[i].y});
    }
  }
  return list.take();
}

std::string joinedFields(const std::vector<std::string>& values) {
  std::string out;
  for (const std::string& value : values) out += (out.empty() ? "" : "; ") + value;
  return out;
}

std::string csvLine(const std::vector<std::string>& fields) {
  std::string out;
  for (const std::string& field : fields) out += (out.empty() ? "" : ",") + quoted(field);
  return out + "\r\n";
}

std::string partsAsCsv(const std::vector<Part>& parts) {
  std::string out = "symbol,name,letters,model,count,circuits,places\r\n";
  for (const Part& part : parts) {
    std::vector<std::string> places;
    for (const Point2 place : part.places) places.push_back(placeText(place));
    out += csvLine({part.symbol, part.name, part.letters, part.model, std::to_string(part.count),
                    joinedFields(part.circuits), joinedFields(places)});
  }
  return out;
}

}  // namespace vornik
