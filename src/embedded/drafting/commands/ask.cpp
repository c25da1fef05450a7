#include "embedded/drafting/commands/ask.h"

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"

namespace drafting {
std::string shown(double number) { return base::formatG(number); }

void applyCurrentProperties(const Session& session, Entity& entity) {
  const Header& header = session.database().header;
  entity.layer = header.handle("CLAYER");
  entity.colour = static_cast<std::int16_t>(header.integer("CECOLOR"));
  entity.linetypeScale = header.real("CELTSCALE");
  const Handle linetype = header.handle("CELTYPE");
  const auto name = session.database().recordName(linetype);
  if (name == "ByBlock" || name == "BYBLOCK") {
    entity.linetype = kByBlock;
  } else {
    entity.linetype = name == "ByLayer" || name == "BYLAYER" || name.empty() ? kByLayer : linetype;
  }
}

Handle drawEntity(Session& session, std::unique_ptr<Entity> entity) {
  applyCurrentProperties(session, *entity);
  Database& database = session.database();
  return database.append(database.modelSpace(), std::move(entity));
}

Answer askPoint(Session& session, std::string_view chinese, std::string_view english,
                std::optional<Point3> base, std::string keywords) {
  return session.line.ask({.kind = Ask::Point,
                           .message = message(session, chinese, english),
                           .keywords = std::move(keywords),
                           .base = base});
}

Answer askCorner(Session& session, std::string_view chinese, std::string_view english,
                 const Point3& corner) {
  return session.line.ask(
      {.kind = Ask::Point, .message = message(session, chinese, english), .corner = corner});
}

std::optional<Box2> askRectangle(Session& session) {
  const Answer first = askPoint(session, "\n指定第一个角点: ", "\nFirst corner: ");
  if (!first.hasValue()) return {};
  const Answer second = askCorner(session, "\n指定对角点: ", "\nOpposite corner: ", first.point);
  if (!second.hasValue()) return {};
  Box2 box;
  box.add(flat(first.point));
  box.add(flat(second.point));
  if (box.width() > 0 && box.height() > 0) return box;
  session.print(session.say("\n窗口没有大小。", "\nThe window has no extent."));
  return {};
}

std::string askPath(Session& session, std::string_view chinese, std::string_view english) {
  const Answer answer =
      session.line.ask({.kind = Ask::Line, .message = message(session, chinese, english)});
  std::string path = answer.hasValue() ? std::string(base::trim(answer.text)) : "";
  std::erase(path, '"');
  return path;
}

}  // namespace drafting
