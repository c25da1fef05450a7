// DDEDIT, ATTEDIT, -ATTEDIT: texts and attributes edited.
#include "embedded/base/text.h"
#include "embedded/drafting/commands/properties.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/commands/wildcards.h"
#include "embedded/drafting/database/transform.h"

namespace drafting {
namespace {

// Enter keeps the value, which false tells from Esc.
bool askText(Session& session, const std::string& what, std::string& value) {
  const Answer answer =
      session.line.ask({.kind = Ask::Line, .message = "\n" + what + " <" + value + ">: "});
  if (answer.hasValue() && !answer.text.empty()) value = answer.text;
  return !answer.cancelled();
}

bool editText(Session& session, Handle handle, const std::string& what,
              std::string TextBase::*text) {
  std::string value = session.database().find<TextBase>(handle)->*text;
  const std::string old = value;
  const bool goesOn = askText(session, what, value);
  if (value != old) session.database().edit<TextBase>(handle).*text = value;
  return goesOn;
}

bool editAttributes(Session& session, Handle handle) {
  const std::vector<Handle> attributes = session.database().find<Insert>(handle)->attributes;
  for (const Handle attribute : attributes) {
    const auto* one = session.database().find<Attrib>(attribute);
    if (one && !editText(session, attribute, one->tag, &TextBase::text)) return false;
  }
  return true;
}

bool editDefinition(Session& session, Handle handle) {
  const auto& old = *session.database().find<Attdef>(handle);
  std::string tag = old.tag, prompt = old.prompt, value = old.text;
  if (!askText(session, message(session, "标记", "Tag"), tag)) return false;
  if (!askText(session, message(session, "提示", "Prompt"), prompt)) return false;
  if (!askText(session, message(session, "缺省值", "Default"), value)) return false;
  auto& definition = session.database().edit<Attdef>(handle);
  definition.tag = tag;
  definition.prompt = prompt;
  definition.text = value;
  return true;
}

bool editParagraph(Session& session, Handle handle) {
  std::string value = session.database().find<MText>(handle)->text;
  const bool goesOn = askText(session, message(session, "文字", "Text"), value);
  if (value != session.database().find<MText>(handle)->text)
    session.database().edit<MText>(handle).text = value;
  return goesOn;
}

bool editOne(Session& session, Handle handle) {
  const auto* entity = session.database().find<Entity>(handle);
  if (!mayChange(session, *entity)) return true;
  switch (entity->kind) {
    case Kind::Text:
      return editText(session, handle, message(session, "文字", "Text"), &TextBase::text);
    case Kind::Attdef: return editDefinition(session, handle);
    case Kind::MText: return editParagraph(session, handle);
    case Kind::Insert:
      if (!static_cast<const Insert*>(entity)->attributes.empty())
        return editAttributes(session, handle);
      [[fallthrough]];
    default:
      session.print(session.say("\n不是可编辑的文字。", "\nThere is no text to edit."));
      return true;
  }
}

void editTexts(Session& session) {
  while (true) {
    const EntityAnswer picked =
        askEntity(session, message(session, "\n选择注释对象: ", "\nText or attribute to edit: "));
    if (!picked.handle || !editOne(session, picked.handle)) return;
  }
}

void editBlock(Session& session) {
  const EntityAnswer picked =
      askEntity(session, message(session, "\n选择块参照: ", "\nBlock to edit: "));
  if (!picked.handle) return;
  const auto* insert = session.database().find<Insert>(picked.handle);
  if (!insert || insert->attributes.empty()) {
    session.print(session.say("\n该对象没有属性。", "\nIt has no attributes."));
  } else if (mayChange(session, *insert)) {
    editAttributes(session, picked.handle);
  }
}

// -ATTEDIT: the attributes of a selection that pass three patterns, one by one or all at once.
class AttributeCommand {
 public:
  explicit AttributeCommand(Session& session) : session_(session) {}

  void run() {
    const Answer each = session_.line.ask(
        {.kind = Ask::Keyword,
         .message = message(session_, "\n是否一次编辑一个属性? [是(Y)/否(N)] <Y>: ",
                            "\nEdit attributes one at a time? [Yes/No] <Y>: "),
         .keywords = "Yes No"});
    if (each.cancelled()) return;
    std::string block = "*", tag = "*", value = "*";
    if (!askText(session_, message(session_, "块名", "Block name"), block)) return;
    if (!askText(session_, message(session_, "属性标记", "Attribute tag"), tag)) return;
    if (!askText(session_, message(session_, "属性值", "Attribute value"), value)) return;
    const auto selection = askSelection(session_);
    if (!selection) return;
    collect(*selection, block, tag, value);
    session_.print("\n" + std::to_string(found_.size()) +
                   message(session_, " 个属性。", " attributes."));
    if (found_.empty()) return;
    each.isKeyword("No") ? replaceInAll() : editEach();
  }

 private:
  Database& database() { return session_.database(); }

  void collect(const Selection& selection, const std::string& block, const std::string& tag,
               const std::string& value) {
    for (const Handle handle : selection) {
      const auto* insert = database().find<Insert>(handle);
      if (!insert || !matchesPattern(database().recordName(insert->block), block)) continue;
      for (const Handle attribute : insert->attributes) {
        const auto* one = database().find<Attrib>(attribute);
        if (one && matchesPattern(one->tag, tag) && matchesPattern(one->text, value))
          found_.push_back(attribute);
      }
    }
  }

  // The text to be replaced and the new one; nothing if cancelled or empty.
  std::optional<std::pair<std::string, std::string>> askChange() {
    const Answer from = session_.line.ask(
        {.kind = Ask::Line,
         .message = message(session_, "\n输入要修改的字符串: ", "\nString to change: ")});
    if (!from.hasValue() || from.text.empty()) return {};
    const Answer to = session_.line.ask(
        {.kind = Ask::Line, .message = message(session_, "\n输入新字符串: ", "\nNew string: ")});
    if (to.cancelled()) return {};
    return std::pair(from.text, to.text);
  }

  void replaceIn(Handle handle, const std::string& from, const std::string& to) {
    std::string text = database().find<Attrib>(handle)->text;
    const std::size_t at = text.find(from);  // the first place only, as the host has it
    if (at == std::string::npos) return;
    text.replace(at, from.size(), to);
    database().edit<Attrib>(handle).text = text;
  }

  void replaceInAll() {
    const auto change = askChange();
    if (!change) return;
    for (const Handle handle : found_) replaceIn(handle, change->first, change->second);
  }

  void editEach() {
    for (const Handle handle : found_) {
      while (true) {
        const auto& attribute = *database().find<Attrib>(handle);
        const Answer option = session_.line.ask(
            {.kind = Ask::Keyword,
             .message = "\n" + attribute.tag + " = " + attribute.text +
                        message(session_,
                                "\n输入选项 [值(V)/位置(P)/高度(H)/角度(A)/样式(S)/图层(L)/颜色(C)/"
                                "下一个(N)] <N>: ",
                                "\nOption [Value/Position/Height/Angle/Style/Layer/Color/Next] "
                                "<N>: "),
             .keywords = "Value Position Height Angle Style Layer Color Next"});
        if (option.cancelled()) return;
        if (option.entered() || option.isKeyword("Next")) break;
        edit(handle, option.text);
      }
    }
  }

  void edit(Handle handle, const std::string& option) {
    if (option == "Value") value(handle);
    if (option == "Position") position(handle);
    if (option == "Height") height(handle);
    if (option == "Angle") turn(handle);
    if (option == "Style") {
      const Handle style = askRecord(session_, Table::Styles, "\n输入样式名: ", "\nStyle name: ");
      if (style) database().edit<Attrib>(handle).style = style;
    }
    if (option == "Layer") {
      const Handle layer = askRecord(session_, Table::Layers, "\n输入图层名: ", "\nLayer name: ");
      if (layer) database().edit<Attrib>(handle).layer = layer;
    }
    if (option == "Color") {
      const auto colour = askColour(session_, "\n输入颜色: ", "\nColour: ");
      if (colour) database().edit<Attrib>(handle).colour = static_cast<std::int16_t>(*colour);
    }
  }

  void value(Handle handle) {
    const Answer how = session_.line.ask(
        {.kind = Ask::Keyword,
         .message = message(session_,
                            "\n[修改(C)/替换(R)] <R>: ", "\nType of change [Change/Replace] <R>: "),
         .keywords = "Change Replace"});
    if (how.cancelled()) return;
    if (how.isKeyword("Change")) {
      if (const auto change = askChange()) replaceIn(handle, change->first, change->second);
      return;
    }
    const Answer text = session_.line.ask(
        {.kind = Ask::Line,
         .message = message(session_, "\n输入新属性值: ", "\nNew attribute value: ")});
    if (!text.cancelled()) database().edit<Attrib>(handle).text = text.text;
  }

  void position(Handle handle) {
    const auto& old = *database().find<Attrib>(handle);
    const bool plain = old.horizontal == 0 && old.vertical == 0;
    const Point2 at = plain ? old.position : old.alignment;
    const Answer point =
        askPoint(session_, "\n指定新的文字插入点: ", "\nNew text insertion point: ",
                 Point3{at.x, at.y, old.elevation});
    if (!point.hasValue()) return;
    const Point2 by = flat(point.point) - at;
    auto& attribute = database().edit<Attrib>(handle);
    attribute.position = attribute.position + by;
    attribute.alignment = attribute.alignment + by;
  }

  void height(Handle handle) {
    const Answer answer =
        session_.line.ask({.kind = Ask::Distance,
                           .message = message(session_, "\n指定新高度: ", "\nNew height: "),
                           .nonNegative = true,
                           .nonZero = true});
    if (answer.hasValue()) database().edit<Attrib>(handle).height = answer.number;
  }

  void turn(Handle handle) {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Angle,
         .message = message(session_, "\n指定新的旋转角度: ", "\nNew rotation angle: ")});
    if (answer.hasValue()) database().edit<Attrib>(handle).rotation = answer.number;
  }

  Session& session_;
  Selection found_;
};

}  // namespace

void addAttributeCommands(CommandTable& table) {
  table.add({.name = "DDEDIT", .run = editTexts});
  table.add({.name = "ATTEDIT", .run = editBlock});
  table.add({.name = "-ATTEDIT", .run = [](Session& s) { AttributeCommand(s).run(); }});
  table.addAlias("ED", "DDEDIT");
  table.addAlias("ATE", "ATTEDIT");
  table.addAlias("-ATE", "-ATTEDIT");
}

}  // namespace drafting
