// LIST, DIST and ID: what the drawing says.
#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/drafting/commands/properties.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/commands/selection_filter.h"
#include "embedded/drafting/database/old_polylines.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/display/mtext_layout.h"

namespace drafting {
namespace {

std::string number(double value) { return base::formatG(value, 10); }
std::string place(const Point3& p) {
  return number(p.x) + "," + number(p.y) + (p.z == 0 ? "" : "," + number(p.z));
}
std::string place(Point2 p) { return number(p.x) + "," + number(p.y); }
std::string angle(double radians) { return number(base::degrees(radians)); }

// Writes an entity line by line.
class Listing {
 public:
  explicit Listing(Session& session) : session_(session), database_(session.database()) {}

  void list(const Entity& entity) {
    line(std::string(typeName(database_, entity)) + "  " + say("图层: ", "layer: ") +
         std::string(database_.recordName(entity.layer)));
    item("句柄", "handle", base::formatHex(entity.handle));
    if (entity.colour != kColourByLayer) item("颜色", "colour", colourName(entity.colour));
    if (entity.linetype != kByLayer)
      item("线型", "linetype", linetypeName(database_, entity.linetype));
    if (entity.linetypeScale != 1) item("线型比例", "linetype scale", number(entity.linetypeScale));
    if (entity.lineweight != kLineweightByLayer)
      item("线宽", "lineweight", lineweightName(entity.lineweight));
    visit(entity, [this](const auto& one) { geometry(one); });
    extendedData(entity);
  }

 private:
  std::string say(std::string_view chinese, std::string_view english) const {
    return message(session_, chinese, english);
  }
  void line(const std::string& text) { session_.print("\n" + text); }
  void item(std::string_view chinese, std::string_view english, const std::string& value) {
    line("  " + say(chinese, english) + ": " + value);
  }

  void geometry(const Line& line) {
    item("起点", "from", place(line.start));
    item("端点", "to", place(line.end));
    const Point3 way = line.end - line.start;
    item("长度", "length", number(length(way)));
    item("角度", "angle", angle(angleOf(flat(way))));
  }
  void geometry(const Point& point) { item("位置", "at", place(point.position)); }
  void geometry(const Circle& circle) {
    item("圆心", "centre", place(circle.centre));
    item("半径", "radius", number(circle.radius));
    item("周长", "circumference", number(2 * base::kPi * circle.radius));
    item("面积", "area", number(base::kPi * circle.radius * circle.radius));
  }
  void geometry(const Arc& arc) {
    item("圆心", "centre", place(arc.centre));
    item("半径", "radius", number(arc.radius));
    item("起始角", "start angle", angle(arc.startAngle));
    item("终止角", "end angle", angle(arc.endAngle));
  }
  void geometry(const Ellipse& ellipse) {
    item("圆心", "centre", place(ellipse.centre));
    item("长轴", "major axis", place(ellipse.majorAxis));
    item("轴比", "ratio", number(ellipse.ratio));
  }
  void geometry(const Spline& spline) {
    item("阶数", "degree", std::to_string(spline.degree));
    for (const Point3& control : spline.controls) item("控制点", "control", place(control));
    for (const Point3& point : spline.fitPoints) item("拟合点", "fit point", place(point));
  }
  void geometry(const Solid& solid) {
    for (const Point2 corner : solid.corners) item("角点", "corner", place(corner));
  }
  void geometry(const LwPolyline& polyline) {
    item("状态", "form", polyline.closed ? say("闭合", "closed") : say("打开", "open"));
    if (polyline.widths.empty()) item("全局宽度", "width", number(polyline.constantWidth));
    for (std::size_t i = 0; i < polyline.points.size(); ++i) {
      std::string text = place(polyline.points[i]);
      if (i < polyline.bulges.size() && polyline.bulges[i] != 0)
        text += "  " + say("凸度 ", "bulge ") + number(polyline.bulges[i]);
      if (i < polyline.widths.size()) {
        text += "  " + say("宽度 ", "width ") + number(polyline.widths[i].start) + " - " +
                number(polyline.widths[i].end);
      }
      item("顶点", "vertex", text);
    }
  }
  void geometry(const Polyline& polyline) {
    if (polyline.form == Polyline::Form::Flat) return geometry(flatPolyline(database_, polyline));
    item("状态", "form", (polyline.flags & 1) ? say("闭合", "closed") : say("打开", "open"));
    for (const Handle handle : polyline.vertices) {
      const auto* vertex = database_.find<Vertex>(handle);
      if (vertex && vertex->form != Vertex::Form::Face)
        item("顶点", "vertex", place(vertex->position));
    }
  }
  void geometry(const Hatch& hatch) {
    item("图案", "pattern", hatch.pattern);
    if (!hatch.solid) {
      item("比例", "scale", number(hatch.scale));
      item("角度", "angle", angle(hatch.angle));
    }
    item("边界", "boundaries", std::to_string(hatch.paths.size()));
  }
  void textGeometry(const TextBase& text) {
    item("样式", "style", std::string(database_.recordName(text.style)));
    const bool plain = text.horizontal == 0 && text.vertical == 0;
    item("位置", "at", place(plain ? text.position : text.alignment));
    item("高度", "height", number(text.height));
    item("旋转角", "rotation", angle(text.rotation));
    item("宽度因子", "width factor", number(text.widthFactor));
    item("文字", "text", text.text);
  }
  void geometry(const Text& text) { textGeometry(text); }
  void geometry(const Attdef& definition) {
    item("标记", "tag", definition.tag);
    item("提示", "prompt", definition.prompt);
    textGeometry(definition);
  }
  void geometry(const Attrib& attribute) {
    item("标记", "tag", attribute.tag);
    textGeometry(attribute);
  }
  void geometry(const MText& text) {
    item("位置", "at", place(text.position));
    item("高度", "height", number(text.height));
    item("文字", "text", plainOfMText(text.text));
  }
  void geometry(const Insert& insert) {
    item("块名", "block", std::string(database_.recordName(insert.block)));
    item("位置", "at", place(insert.position));
    item("比例", "scale",
         number(insert.scale.x) + "," + number(insert.scale.y) + "," + number(insert.scale.z));
    item("旋转角", "rotation", angle(insert.rotation));
    for (const Handle handle : insert.attributes) {
      if (const auto* attribute = database_.find<Attrib>(handle))
        item("属性", "attribute", attribute->tag + " = " + attribute->text);
    }
  }
  void geometry(const Object&) {}

  void extendedData(const Entity& entity) {
    for (const XData& data : entity.xdata) {
      item("扩展数据", "extended data", std::string(database_.recordName(data.app)));
      const auto items = decodeXData(data.items);
      if (!items) {
        line("    " + say("无法读取", "not readable"));
        continue;
      }
      for (const XDataItem& one : *items)
        line("    " + std::to_string(one.code) + ": " + shownValue(one));
    }
  }

  static std::string shownValue(const XDataItem& item) {
    if (const auto* text = std::get_if<std::string>(&item.value)) {
      return item.code == 1004 ? std::to_string(text->size()) + " B" : *text;
    }
    if (const int* whole = std::get_if<int>(&item.value)) return std::to_string(*whole);
    if (const double* real = std::get_if<double>(&item.value)) return number(*real);
    if (const auto* point = std::get_if<Point3>(&item.value)) return place(*point);
    return base::formatHex(std::get<Handle>(item.value));
  }

  Session& session_;
  const Database& database_;
};

void list(Session& session) {
  const auto selection = askSelection(session, {.lockedToo = true});
  if (!selection) return;
  Listing listing(session);
  for (const Handle handle : *selection) listing.list(*session.database().find<Entity>(handle));
}

void measure(Session& session) {
  const Answer a = askPoint(session, "\n指定第一点: ", "\nFirst point: ");
  if (!a.hasValue()) return;
  const Answer b = askPoint(session, "\n指定第二点: ", "\nSecond point: ", a.point);
  if (!b.hasValue()) return;
  const Point3 way = b.point - a.point;
  session.print("\n" + message(session, "距离 = ", "Distance = ") + number(length(way)) +
                message(session, "，角度 = ", ", angle = ") + angle(angleOf(flat(way))) +
                ", dX = " + number(way.x) + ", dY = " + number(way.y) + ", dZ = " + number(way.z));
}

void identify(Session& session) {
  const Answer point = askPoint(session, "\n指定点: ", "\nPoint: ");
  if (!point.hasValue()) return;
  session.print("\nX = " + number(point.point.x) + "  Y = " + number(point.point.y) +
                "  Z = " + number(point.point.z));
}

}  // namespace

void addListCommands(CommandTable& table) {
  table.add({.name = "LIST", .run = list});
  table.add({.name = "DIST", .run = measure, .transparent = true});
  table.add({.name = "ID", .run = identify, .transparent = true});
  table.addAlias("LI", "LIST");
  table.addAlias("LS", "LIST");
  table.addAlias("DI", "DIST");
}

}  // namespace drafting
