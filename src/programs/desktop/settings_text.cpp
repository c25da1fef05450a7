#include "programs/desktop/settings_text.h"

#include <algorithm>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/picking/snaps.h"
#include "programs/desktop/boxes.h"

namespace desktop {

namespace {

constexpr int kUsualSnaps = drafting::kSnapEnd | drafting::kSnapMiddle |
                            drafting::kSnapIntersection | drafting::kSnapInsertion;

}  // namespace

std::string coordinatesText(base::Point2 point) {
  return base::formatF(point.x, 4) + ", " + base::formatF(point.y, 4);
}

std::string layerText(const drafting::Session& session) { return session.variables.text("CLAYER"); }

std::string colourText(const drafting::Session& session) {
  return session.variables.text("CECOLOR");
}

std::string scaleText(const drafting::Session& session) {
  return "1:" + base::formatG(session.variables.real("DIMSCALE"));
}

bool snapsOn(const drafting::Session& session) {
  const int modes = session.variables.integer("OSMODE");
  return modes != 0 && !(modes & drafting::kSnapOff);
}

bool orthoOn(const drafting::Session& session) {
  return session.variables.integer("ORTHOMODE") != 0;
}

void toggleSnaps(drafting::Session& session) {
  const int modes = session.variables.integer("OSMODE");
  session.variables.put("OSMODE", modes == 0 ? kUsualSnaps : modes ^ drafting::kSnapOff);
}

void toggleOrtho(drafting::Session& session) {
  session.variables.put("ORTHOMODE", orthoOn(session) ? 0 : 1);
}

std::optional<double> parseScale(std::string_view text) {
  text = base::trim(text);
  if (text.starts_with("1:")) text.remove_prefix(2);
  const auto number = drafting::parseReal(base::trim(text));
  return number && *number >= 0 ? number : std::nullopt;
}

base::Status setScale(drafting::Session& session, double scale) {
  base::Status status = session.variables.set("DIMSCALE", scale);
  if (status && scale == 0) {
    warn(session, session.say("打印比例为 0 时不能放置回路。",
                              "Circuits can't be placed with a print scale of 0."));
  }
  return status;
}

std::vector<std::string> layerNames(const drafting::Session& session) {
  std::vector<std::string> names;
  const drafting::Database& database = session.database();
  for (const drafting::Handle layer : database.table(drafting::Table::Layers).records) {
    names.emplace_back(database.recordName(layer));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace desktop
