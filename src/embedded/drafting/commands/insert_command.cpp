// INSERT: places a block of the drawing, or the drawing of a file as a block.
#include <cmath>
#include <filesystem>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/ask.h"
#include "embedded/drafting/database/clone.h"
#include "embedded/drafting/documents/drawing_files.h"

namespace drafting {
namespace {

bool looksLikePath(std::string_view name) {
  return name.find_first_of("/\\:") != std::string_view::npos;
}

// The block's name of a drawing file: the last component without ".dwg".
std::string blockNameOf(std::string_view path) {
  std::string name(path.substr(path.find_last_of("/\\:") + 1));
  if (name.size() > 4 &&
      base::equalsNoCase(std::string_view(name).substr(name.size() - 4), ".dwg")) {
    name.resize(name.size() - 4);
  }
  return name;
}

class InsertCommand {
 public:
  explicit InsertCommand(Session& session) : session_(session) {}

  void run() {
    if (!askBlock() || !askPlace() || !askScale() || !askRotation()) return;
    place();
  }

 private:
  Database& database() { return session_.database(); }

  bool askBlock() {
    const std::string last = session_.variables.text("INSNAME");
    const Answer answer =
        session_.line.ask({.kind = Ask::Word,
                           .message = message(session_, "\n输入块名", "\nBlock name") +
                                      (last.empty() ? "" : " <" + last + ">") + ": "});
    if (!answer.hasValue() && !(answer.entered() && !last.empty())) return false;
    std::string name = answer.hasValue() ? answer.text : last;
    if (!name.empty() && name.front() == '"') std::erase(name, '"');
    block_ = findOrRead(name);
    if (block_) session_.variables.put("INSNAME", std::string(database().recordName(block_)));
    return block_ != 0;
  }

  // A definition that the drawing has already is kept, also when a file is named.
  Handle findOrRead(const std::string& name) {
    const std::string blockName = blockNameOf(name);
    const Handle known = database().findRecord(Table::Blocks, blockName);
    if (known) {
      if (looksLikePath(name)) {
        session_.print("\n" + message(session_, "块 ", "Block ") + blockName +
                       message(session_, " 已定义，使用现有定义。",
                               " is defined already; the definition is kept."));
      }
      return known;
    }
    return read(looksLikePath(name) || blockName != name ? name : name + ".dwg", blockName);
  }

  Handle read(const std::string& path, const std::string& blockName) {
    const auto source = readDrawing(path);
    if (!source.ok()) {
      session_.printProblem(source.status());
      return 0;
    }
    const CloneResult result = cloneAsBlock(database(), **source, blockName);
    for (const std::string& loss : result.leftBehind) session_.print("\n" + loss);
    return result.block;
  }

  bool askPlace() {
    const Answer answer =
        session_.line.ask({.kind = Ask::Point,
                           .message = message(session_, "\n指定插入点: ", "\nInsertion point: ")});
    point_ = answer.point;
    return answer.hasValue();
  }

  bool askScale() {
    const Answer x = askFactor("\n输入 X 比例因子 <1>: ", "\nX scale factor <1>: ");
    if (x.cancelled()) return false;
    if (x.hasValue()) scale_ = {x.number, x.number, std::abs(x.number)};
    const Answer y = askFactor("\n输入 Y 比例因子 <使用 X>: ", "\nY scale factor <use X>: ");
    if (y.hasValue()) scale_.y = y.number;
    return !y.cancelled();
  }

  Answer askFactor(std::string_view chinese, std::string_view english) {
    return session_.line.ask({.kind = Ask::Real,
                              .message = message(session_, chinese, english),
                              .base = point_,
                              .nonZero = true});
  }

  bool askRotation() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Angle,
         .message = message(session_, "\n指定旋转角度 <0>: ", "\nRotation angle <0>: "),
         .base = point_});
    if (answer.hasValue()) rotation_ = answer.number;
    return !answer.cancelled();
  }

  void place() {
    auto insert = std::make_unique<Insert>();
    insert->position = point_;
    insert->scale = scale_;
    insert->rotation = rotation_;
    insert->block = block_;
    const Handle handle = drawEntity(session_, std::move(insert));
    addAttributes(*database().find<Insert>(handle));
  }

  void addAttributes(Insert& insert) {
    const auto* record = database().find<BlockRecord>(block_);
    const bool asks = session_.variables.integer("ATTREQ") != 0;
    bool any = false;
    for (Entity* entity = record->first; entity; entity = entity->next) {
      if (entity->kind != Kind::Attdef) continue;
      const auto& definition = static_cast<const Attdef&>(*entity);
      if (definition.flags & kAttributeConstant) continue;
      if (!any && asks && !session_.line.answersComeFromArguments()) {
        session_.print(session_.say("\n输入属性值", "\nAttribute values"));
      }
      any = true;
      database().appendAttribute(insert, attributeOf(definition, insert, *record, asks));
    }
  }

  std::string askValue(const Attdef& definition) {
    const std::string& prompt = definition.prompt.empty() ? definition.tag : definition.prompt;
    const Answer answer = session_.line.ask(
        {.kind = Ask::Line,
         .message =
             "\n" + prompt + (definition.text.empty() ? "" : " <" + definition.text + ">") + ": ",
         .defaultAtEnd = true});
    return answer.hasValue() ? answer.text : definition.text;
  }

  std::unique_ptr<Attrib> attributeOf(const Attdef& definition, const Insert& insert,
                                      const BlockRecord& record, bool asks) {
    auto attribute = std::make_unique<Attrib>();
    attribute->layer = definition.layer;
    attribute->colour = definition.colour;
    attribute->linetype = definition.linetype;
    attribute->lineweight = definition.lineweight;
    attribute->tag = definition.tag;
    attribute->flags = definition.flags;
    attribute->style = definition.style;
    attribute->horizontal = definition.horizontal;
    attribute->vertical = definition.vertical;
    attribute->generation = definition.generation;
    attribute->oblique = definition.oblique;
    attribute->widthFactor = definition.widthFactor * std::abs(insert.scale.x / insert.scale.y);
    attribute->height = definition.height * std::abs(insert.scale.y);
    attribute->rotation = definition.rotation + insert.rotation;
    attribute->elevation = insert.position.z + definition.elevation * insert.scale.z;
    const base::Affine2 map = base::Affine2::translation({insert.position.x, insert.position.y}) *
                              base::Affine2::rotation(insert.rotation) *
                              base::Affine2::scaling(insert.scale.x, insert.scale.y) *
                              base::Affine2::translation({-record.base.x, -record.base.y});
    attribute->position = map(definition.position);
    attribute->alignment = map(definition.alignment);
    const bool preset = (definition.flags & kAttributePreset) != 0;
    attribute->text = asks && !preset ? askValue(definition) : definition.text;
    return attribute;
  }

  Session& session_;
  Handle block_ = 0;
  Point3 point_;
  Point3 scale_{1, 1, 1};
  double rotation_ = 0;
};

}  // namespace

void addInsertCommands(CommandTable& table) {
  table.add({.name = "INSERT", .run = [](Session& session) { InsertCommand(session).run(); }});
  table.addAlias("-INSERT", "INSERT");
  table.addAlias("I", "INSERT");
}

}  // namespace drafting
