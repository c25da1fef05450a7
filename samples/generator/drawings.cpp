#include "samples/generator/drawings.h"

namespace samples {
namespace {

using namespace drafting;

constexpr std::int16_t kStrokeColour = 3;
constexpr std::int16_t kLetterColour = 2;

class FigureDrawing {
 public:
  FigureDrawing() : database_(Database::makeNew()) {}

  void add(const Primitive& primitive) {
    const auto& n = primitive.numbers;
    switch (primitive.letter) {
      case 'R': strokes({n[0], n[1], n[2], n[1], n[2], n[3], n[0], n[3], n[0], n[1]}); break;
      case 'C': circle(n); break;
      case 'A': arc(n); break;
      case 'T': text(primitive); break;
      default: strokes(n);
    }
  }

  std::unique_ptr<Database> take() { return std::move(database_); }

 private:
  void append(std::unique_ptr<Entity> entity, std::int16_t colour) {
    entity->layer = database_->findRecord(Table::Layers, "0");
    entity->colour = colour;
    database_->append(database_->modelSpace(), std::move(entity));
  }

  // Lines from point to point.
  void strokes(const std::vector<double>& n) {
    for (std::size_t i = 0; i + 3 < n.size(); i += 2) {
      auto line = std::make_unique<Line>();
      line->start = {n[i], n[i + 1], 0};
      line->end = {n[i + 2], n[i + 3], 0};
      append(std::move(line), kStrokeColour);
    }
  }

  void circle(const std::vector<double>& n) {
    auto circle = std::make_unique<Circle>();
    circle->centre = {n[0], n[1], 0};
    circle->radius = n[2];
    append(std::move(circle), kStrokeColour);
  }

  void arc(const std::vector<double>& n) {
    auto arc = std::make_unique<Arc>();
    arc->centre = {n[0], n[1], 0};
    arc->radius = n[2];
    arc->startAngle = base::radians(n[3]);
    arc->endAngle = base::radians(n[4]);
    append(std::move(arc), kStrokeColour);
  }

  void text(const Primitive& primitive) {
    auto text = std::make_unique<Text>();
    text->position = text->alignment = {primitive.numbers[0], primitive.numbers[1]};
    text->height = primitive.numbers[2];
    text->text = primitive.text;
    text->style = database_->findRecord(Table::Styles, "Standard");
    append(std::move(text), kLetterColour);
  }

  std::unique_ptr<Database> database_;
};

}  // namespace

std::unique_ptr<Database> makeFigureDrawing(const Figure& figure) {
  FigureDrawing drawing;
  for (const Primitive& primitive : figure) drawing.add(primitive);
  return drawing.take();
}

std::unique_ptr<Database> makeFrameDrawing() {
  constexpr std::int16_t kFrameColour = 8;
  auto database = makeFigureDrawing({{'R', {-26.25, 6, 26.25, -134}, ""}});
  for (Entity* line = database->modelSpace().first; line; line = line->next) {
    line->colour = kFrameColour;
  }
  return database;
}

std::unique_ptr<Database> makeScaleMarkDrawing() {
  auto database = Database::makeNew();
  auto definition = std::make_unique<Attdef>();
  definition->tag = "SCALE";
  definition->prompt = "绘图比例";
  definition->text = "1";
  definition->height = 2.5;
  definition->flags = kAttributeInvisible;
  definition->layer = database->findRecord(Table::Layers, "0");
  definition->style = database->findRecord(Table::Styles, "Standard");
  database->append(database->modelSpace(), std::move(definition));
  return database;
}

}  // namespace samples
