#include "embedded/drafting/commands/properties.h"

#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/answer_parser.h"

namespace drafting {
namespace {

std::string askName(Session& session, std::string_view chinese, std::string_view english) {
  const Answer answer =
      session.line.ask({.kind = Ask::Line, .message = message(session, chinese, english)});
  return answer.hasValue() ? std::string(base::trim(answer.text)) : "";
}

void sayUnknown(Session& session, std::string_view name) {
  session.print("\n" + message(session, "找不到 ", "There is no ") + std::string(name));
}

}  // namespace

std::optional<int> askColour(Session& session, std::string_view chinese, std::string_view english) {
  const Answer answer =
      session.line.ask({.kind = Ask::Word, .message = message(session, chinese, english)});
  if (!answer.hasValue()) return {};
  const auto colour = parseColour(answer.text);
  if (!colour) session.print(session.say("\n无效的颜色。", "\nThat is no colour."));
  return colour;
}

Handle askRecord(Session& session, Table table, std::string_view chinese,
                 std::string_view english) {
  const std::string name = askName(session, chinese, english);
  if (name.empty()) return 0;
  const Handle record = session.database().findRecord(table, name);
  if (!record) sayUnknown(session, name);
  return record;
}

std::optional<Handle> linetypeOf(const Database& database, std::string_view name) {
  if (base::equalsNoCase(name, "ByLayer")) return kByLayer;
  if (base::equalsNoCase(name, "ByBlock")) return kByBlock;
  if (base::equalsNoCase(name, "Continuous")) return kContinuous;
  const Handle record = database.findRecord(Table::Linetypes, name);
  if (!record) return {};
  return record;
}

std::optional<Handle> askLinetype(Session& session, std::string_view chinese,
                                  std::string_view english) {
  const std::string name = askName(session, chinese, english);
  if (name.empty()) return {};
  const auto linetype = linetypeOf(session.database(), name);
  if (!linetype) sayUnknown(session, name);
  return linetype;
}

std::optional<std::uint8_t> parseLineweight(std::string_view text) {
  if (base::equalsNoCase(text, "ByLayer")) return kLineweightByLayer;
  if (base::equalsNoCase(text, "ByBlock")) return indexOfLineweight(-2);
  if (base::equalsNoCase(text, "Default")) return indexOfLineweight(-3);
  const auto millimetres = parseReal(text);
  if (!millimetres || *millimetres < 0 || *millimetres > 2.11) return {};
  const auto hundredths = static_cast<int>(std::lround(*millimetres * 100));
  const std::uint8_t index = indexOfLineweight(hundredths);
  if (lineweightOfIndex(index) != hundredths) return {};
  return index;
}

std::optional<std::uint8_t> askLineweight(Session& session, std::string_view chinese,
                                          std::string_view english) {
  const std::string name = askName(session, chinese, english);
  if (name.empty()) return {};
  const auto weight = parseLineweight(name);
  if (!weight) session.print(session.say("\n无效的线宽。", "\nThat is no lineweight."));
  return weight;
}

std::string lineweightName(std::uint8_t index) {
  const int hundredths = lineweightOfIndex(index);
  if (hundredths == -1) return "ByLayer";
  if (hundredths == -2) return "ByBlock";
  return hundredths < 0 ? "Default" : base::formatF(hundredths / 100.0, 2);
}

std::string linetypeName(const Database& database, Handle linetype) {
  if (linetype == kByLayer) return "ByLayer";
  if (linetype == kByBlock) return "ByBlock";
  if (linetype == kContinuous) return "Continuous";
  return std::string(database.recordName(linetype));
}

bool isLegalName(std::string_view name) {
  return !name.empty() && name.size() <= 255 &&
         name.find_first_of("<>/\\\":;?*|,=`") == std::string_view::npos &&
         name.find_first_of(std::string_view("\0\1\n\r", 4)) == std::string_view::npos;
}

}  // namespace drafting
