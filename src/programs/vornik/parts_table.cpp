#include "programs/vornik/parts_table.h"

#include <algorithm>
#include <array>

#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/display/text_layout.h"

namespace vornik {
namespace {

using namespace drafting;

// Millimetres on the sheet.
constexpr double kTextHeight = 3.5, kRowHeight = 8, kLineStep = 5.5, kMargin = 1.5, kGap = 20;

enum class Align { Left, Middle };
struct Column {
  std::string_view heading;
  double width;
  Align align;
};
constexpr std::array<Column, 6> kColumns{{{"序号", 12, Align::Middle},
                                          {"代号", 22, Align::Middle},
                                          {"名称", 42, Align::Left},
                                          {"型号规格", 62, Align::Left},
                                          {"数量", 14, Align::Middle},
                                          {"回路", 48, Align::Left}}};
using Row = std::array<std::vector<std::string>, kColumns.size()>;  // lines of each cell

double widthOf(const std::string& text) { return layOutLine(text).advance * kTextHeight; }

// The circuits in as many lines as they need.
std::vector<std::string> circuitLines(const std::vector<std::string>& circuits, double room) {
  std::vector<std::string> lines(1);
  for (const std::string& circuit : circuits) {
    std::string& line = lines.back();
    std::string longer = line;
    longer.append(line.empty() ? "" : ", ").append(circuit);
    if (line.empty() || widthOf(longer) <= room) {
      line = longer;
    } else {
      line += ",";
      lines.push_back(circuit);
    }
  }
  return lines;
}

class Table {
 public:
  Table(Database& database, Point2 corner, double scale)
      : database_(database), corner_(corner), scale_(scale), layer_(tableLayer()) {}

  void draw(const std::vector<Part>& parts) {
    rule();
    Row heading;
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      heading[i] = {std::string(kColumns[i].heading)};
    }
    drawRow(heading, true);
    for (std::size_t i = 0; i < parts.size(); ++i) drawRow(rowOf(parts[i], i + 1), false);
    double x = 0;
    upright(x);
    for (const Column& column : kColumns) upright(x += column.width);
  }

 private:
  Handle tableLayer() {
    if (const Handle known = database_.findRecord(drafting::Table::Layers, kPartsLayer)) {
      return known;
    }
    auto layer = std::make_unique<Layer>();
    layer->name = kPartsLayer;
    return database_.addRecord(drafting::Table::Layers, std::move(layer));
  }

  static Row rowOf(const Part& part, std::size_t number) {
    return {{{std::to_string(number)},
             {part.letters},
             {part.name.empty() ? part.symbol : part.name},
             {part.model},
             {std::to_string(part.count)},
             circuitLines(part.circuits, kColumns.back().width - 2 * kMargin)}};
  }

  void drawRow(const Row& row, bool centred) {
    std::size_t most = 1;
    for (const auto& cell : row) most = std::max(most, cell.size());
    const double height = kRowHeight + (static_cast<double>(most) - 1) * kLineStep;
    double x = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const bool middle = centred || kColumns[i].align == Align::Middle;
      double y = y_ + height / 2 - (static_cast<double>(row[i].size()) - 1) * kLineStep / 2;
      for (const std::string& line : row[i]) {
        write(line, x, y, kColumns[i].width, middle);
        y += kLineStep;
      }
      x += kColumns[i].width;
    }
    y_ += height;
    rule();
  }

  // One line at the height `y` of its middle; one that is too long is drawn narrower.
  void write(const std::string& line, double x, double y, double width, bool middle) {
    if (line.empty()) return;
    auto text = std::make_unique<Text>();
    const double room = width - 2 * kMargin;
    text->layer = layer_;
    text->text = line;
    text->height = kTextHeight * scale_;
    text->widthFactor = std::min(1.0, room / widthOf(line));
    text->style = database_.header.handle("TEXTSTYLE");
    text->horizontal = middle ? 1 : 0;
    text->vertical = 2;
    text->alignment = at(middle ? x + width / 2 : x + kMargin, y);
    const double drawn = widthOf(line) * text->widthFactor;
    text->position = at(middle ? x + (width - drawn) / 2 : x + kMargin, y + kTextHeight / 2);
    database_.append(database_.modelSpace(), std::move(text));
  }

  void rule() { line(at(0, y_), at(widthOfAll(), y_)); }
  void upright(double x) { line(at(x, 0), at(x, y_)); }

  void line(Point2 from, Point2 to) {
    auto line = std::make_unique<Line>();
    line->layer = layer_;
    line->start = {from.x, from.y, 0};
    line->end = {to.x, to.y, 0};
    database_.append(database_.modelSpace(), std::move(line));
  }

  static double widthOfAll() {
    double width = 0;
    for (const Column& column : kColumns) width += column.width;
    return width;
  }

  // Millimetres right of and below the corner.
  Point2 at(double x, double y) const { return {corner_.x + x * scale_, corner_.y - y * scale_}; }

  Database& database_;
  Point2 corner_;
  double scale_;
  Handle layer_;
  double y_ = 0;  // below the corner, of the row that comes next
};

}  // namespace

void drawPartsTable(Database& database, const std::vector<Part>& parts, Point2 corner,
                    double scale) {
  database.journal().begin("BOM");
  Table(database, corner, scale).draw(parts);
  database.journal().end();
}

Point2 placeForTable(const Database& database, double scale) {
  const base::Box2 box = DisplayList::of(database).bounds();
  if (box.empty()) return {0, 0};
  return {box.centre().x + box.width() / 2 + kGap * scale, box.centre().y + box.height() / 2};
}

}  // namespace vornik
