#include "embedded/drafting/dxf/extended_groups.h"

#include <optional>

#include "embedded/base/text.h"
#include "embedded/drafting/database/xdata.h"

namespace drafting {
namespace {

constexpr int kApplication = 1001;

bool isAxis(const std::vector<XDataItem>& items, int code) {
  if (items.empty() || code < 1020 || code > 1033) return false;
  const int x = items.back().code;
  return x >= 1010 && x <= 1013 && (code == x + 10 || code == x + 20);
}

// The item that a group begins; nothing for a code of no meaning.
std::optional<XDataItem> itemOf(const Group& group, DxfTables& tables) {
  switch (group.code) {
    case 1000: return XDataItem{group.code, std::string(group.value)};
    case 1002: return XDataItem{group.code, std::string(base::trim(group.value))};
    case 1003: return XDataItem{group.code, tables.findOrMake(Table::Layers, group.value)};
    case 1004: return XDataItem{group.code, bytesOfHex(group.value)};
    case 1005: return XDataItem{group.code, GroupSection::handleOf(group)};
    case 1010:
    case 1011:
    case 1012:
    case 1013: return XDataItem{group.code, Point3{GroupSection::realOf(group), 0, 0}};
    case 1040:
    case 1041:
    case 1042: return XDataItem{group.code, GroupSection::realOf(group)};
    case 1070: {
      const int value = GroupSection::integerOf(group);
      return XDataItem{group.code, static_cast<int>(static_cast<std::int16_t>(value))};
    }
    case 1071: return XDataItem{group.code, GroupSection::integerOf(group)};
    default: return std::nullopt;
  }
}

}  // namespace

std::string readExtendedGroups(std::span<const Group> groups, DxfTables& tables, int codePage,
                               std::vector<XData>& out) {
  std::string problem;
  std::vector<XDataItem> items;
  Handle app = 0;
  const auto finish = [&] {
    auto coded = encodeXData(items, codePage);
    if (!coded) problem = "extended data that don't fit a drawing were left out";
    if (coded && app != 0 && !coded->empty()) out.push_back({app, std::move(*coded)});
    items.clear();
  };
  for (const Group& group : groups) {
    if (group.code == kApplication) {
      finish();
      app = tables.findOrMake(Table::AppIds, group.value);
    } else if (isAxis(items, group.code)) {
      auto& point = std::get<Point3>(items.back().value);
      (group.code == items.back().code + 10 ? point.y : point.z) = GroupSection::realOf(group);
    } else if (auto item = itemOf(group, tables)) {
      items.push_back(std::move(*item));
    } else {
      problem = "extended data of unknown codes were left out";
    }
  }
  finish();
  return problem;
}

}  // namespace drafting
