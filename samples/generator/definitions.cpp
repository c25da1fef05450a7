#include "samples/generator/definitions.h"

#include <charconv>

namespace samples {
namespace {

constexpr std::string_view kSymbols =
#include "symbols.inc"
    ;
constexpr std::string_view kCircuits =
#include "circuits.inc"
    ;
constexpr std::string_view kAuxiliary =
#include "auxiliary.inc"
    ;

constexpr std::string_view kEmptyCell = "ZHL1000";
constexpr std::array<std::string_view, kRows> kRowY = {"0",     "-10",   "-17.5", "-25",    "-32.5",
                                                       "-42.5", "-50",   "-60",   "-67.5",  "-77.5",
                                                       "-85",   "-92.5", "-100",  "-120.28"};
constexpr std::array<std::string_view, kColumns> kColumnX = {"-6.25", "0", "6.25"};

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\r')) text.remove_suffix(1);
  return text;
}

// Parts between separators, trimmed; empty ones too.
std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t at = text.find(separator);
    parts.push_back(trimmed(text.substr(0, at)));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> out;
  for (const std::string_view word : split(text, ' ')) {
    if (!word.empty()) out.push_back(word);
  }
  return out;
}

// Lines that say something; a line's indent is kept.
std::vector<std::string_view> lines(std::string_view text) {
  std::vector<std::string_view> out;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    if (!trimmed(line).empty() && line.front() != '#') out.push_back(line);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return out;
}

double number(std::string_view text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

Figure parseFigure(std::string_view text) {
  Figure figure;
  if (trimmed(text) == "-") return figure;
  for (const std::string_view part : split(text, ';')) {
    const auto fields = words(part);
    Primitive primitive;
    primitive.letter = fields[0][0];
    const bool isText = primitive.letter == 'T';
    for (std::size_t i = 1; i + (isText ? 1 : 0) < fields.size(); ++i) {
      primitive.numbers.push_back(number(fields[i]));
    }
    if (isText) primitive.text = fields.back();
    figure.push_back(std::move(primitive));
  }
  return figure;
}

// `6 ZHL1018 "42L6-A 300/5"`: row, symbol, and a model where there is one.
void parseCell(std::string_view text, int column, CircuitDefinition& circuit) {
  const std::size_t quote = text.find('"');
  const auto fields = words(text.substr(0, quote));
  const auto row = static_cast<std::size_t>(number(fields[0])) - 1;
  Cell& cell = circuit.cells[row][static_cast<std::size_t>(column)];
  cell.symbol = fields[1];
  if (quote != std::string_view::npos) cell.model = text.substr(quote + 1, text.size() - quote - 2);
}

void parseCircuitLine(std::string_view line, CircuitDefinition& circuit) {
  const std::size_t colon = line.find(':');
  const std::string_view key = trimmed(line.substr(0, colon));
  for (const std::string_view part : split(line.substr(colon + 1), ';')) {
    const auto fields = words(part);
    if (key == "lines") {
      circuit.lines.push_back({std::string(fields[0]), std::string(fields[1]),
                               std::string(fields[2]), std::string(fields[3])});
    } else if (key == "texts") {
      circuit.labels.push_back({std::string(fields[0]), static_cast<int>(number(fields[1])),
                                std::string(fields[2]), std::string(fields[3]),
                                std::string(fields[4])});
    } else {
      parseCell(part, key == "L" ? 0 : key == "C" ? 1 : 2, circuit);
    }
  }
}

bool isThreeWide(const Cell& cell) { return cell.symbol.rfind("ZHL3", 0) == 0; }

void appendBlock(std::string& row, const Cell& cell, std::size_t line, std::size_t column) {
  const std::string symbol = cell.symbol.empty() ? std::string(kEmptyCell) : cell.symbol;
  row += " \"" + symbol + "\" \"" + cell.model + "\" ";
  row.append(kColumnX[column]).append(" ").append(kRowY[line]).append(" 0");
}

}  // namespace

std::vector<SymbolDefinition> symbols() {
  std::vector<SymbolDefinition> out;
  for (const std::string_view line : lines(kSymbols)) {
    if (line.front() == ' ') {
      out.back().figure = parseFigure(line);
    } else {
      const auto fields = split(line, '|');
      out.push_back({std::string(fields[0]),
                     std::string(fields[1]),
                     std::string(fields[2]),
                     std::string(fields[3]),
                     {}});
    }
  }
  return out;
}

std::vector<CircuitDefinition> circuits() {
  std::vector<CircuitDefinition> out;
  for (const std::string_view line : lines(kCircuits)) {
    if (line.rfind("circuit ", 0) != 0) {
      parseCircuitLine(line, out.back());
      continue;
    }
    const auto names = split(line, '|');
    const auto fields = words(names[0]);
    CircuitDefinition circuit;
    circuit.number = fields[1];
    circuit.chinese = fields[2];
    circuit.english = names[1];
    out.push_back(std::move(circuit));
  }
  return out;
}

std::vector<AuxiliaryGroup> auxiliaryGroups() {
  std::vector<AuxiliaryGroup> out;
  for (const std::string_view line : lines(kAuxiliary)) {
    const auto fields = split(line, '|');
    if (line.front() == ' ') {
      out.back().items.push_back({std::string(fields[0]), parseFigure(fields[1])});
    } else {
      out.push_back({std::string(trimmed(fields[0].substr(5))), std::string(fields[1]), {}});
    }
  }
  return out;
}

std::string dataRow(const CircuitDefinition& circuit) {
  std::string row = "(\"" + circuit.number + "\"";
  for (std::size_t line = 0; line < kRows; ++line) {
    const bool wide = isThreeWide(circuit.cells[line][1]);
    for (std::size_t column = 0; column < kColumns; ++column) {
      const bool stands = column == 1 || (!wide && line + 1 < kRows);
      if (stands) appendBlock(row, circuit.cells[line][column], line, column);
    }
  }
  row += " \"&&&&\"";
  for (const auto& line : circuit.lines) {
    for (const std::string& coordinate : line) row += " " + coordinate;
  }
  if (!circuit.labels.empty()) row += " \"TEXT\"";
  for (const Label& label : circuit.labels) {
    row += " \"" + label.text + "\" " + std::to_string(label.colour) + " " + label.height + " " +
           label.x + " " + label.y + " 0";
  }
  return row + ")";
}

}  // namespace samples
