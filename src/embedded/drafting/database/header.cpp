// Look-up and typed access of drawing variables; the table itself is in header_table.cpp.
#include "embedded/drafting/database/header.h"

#include <array>
#include <unordered_map>

#include "embedded/base/text.h"

namespace drafting {
namespace {

std::unordered_map<std::string, int> makeIndex() {
  std::unordered_map<std::string, int> index;
  const auto table = variables();
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (*table[i].name != '\0') index.emplace(base::lowerCase(table[i].name), static_cast<int>(i));
  }
  return index;
}

// Makes `value` the alternative that `type` is kept in; false if there is no way.
bool convert(VariableValue& value, const VariableValue& like) {
  if (value.index() == like.index()) return true;
  if (std::holds_alternative<double>(like) && std::holds_alternative<int>(value)) {
    value = static_cast<double>(std::get<int>(value));
  } else if (std::holds_alternative<Point3>(like) && std::holds_alternative<Point2>(value)) {
    const Point2 flat = std::get<Point2>(value);
    value = Point3{flat.x, flat.y, 0};
  } else if (std::holds_alternative<Point2>(like) && std::holds_alternative<Point3>(value)) {
    const Point3 point = std::get<Point3>(value);
    value = Point2{point.x, point.y};
  } else {
    return false;
  }
  return true;
}

// Hundredths of a millimetre of the indexes 0 to 23.
constexpr std::array<std::int16_t, 24> kLineweights{0,  5,   9,   13,  15,  18,  20,  25,
                                                    30, 35,  40,  50,  53,  60,  70,  80,
                                                    90, 100, 106, 120, 140, 158, 200, 211};

}  // namespace

Header::Header() {
  values_.reserve(variables().size());
  for (const Variable& variable : variables()) values_.push_back(variable.initial);
}

int Header::indexOf(std::string_view name) {
  static const auto index = makeIndex();
  const auto found = index.find(base::lowerCase(name));
  return found == index.end() ? -1 : found->second;
}

const Header::Value* Header::find(std::string_view name) const {
  const int index = indexOf(name);
  return index < 0 ? nullptr : &at(index);
}

double Header::real(std::string_view name) const {
  const Value* value = find(name);
  if (!value) return 0;
  if (const int* integer = std::get_if<int>(value)) return *integer;
  const double* real = std::get_if<double>(value);
  return real ? *real : 0;
}

int Header::integer(std::string_view name) const {
  const Value* value = find(name);
  const int* integer = value ? std::get_if<int>(value) : nullptr;
  return integer ? *integer : 0;
}

const std::string& Header::text(std::string_view name) const {
  static const std::string none;
  const Value* value = find(name);
  const std::string* text = value ? std::get_if<std::string>(value) : nullptr;
  return text ? *text : none;
}

Handle Header::handle(std::string_view name) const {
  const Value* value = find(name);
  const Handle* handle = value ? std::get_if<Handle>(value) : nullptr;
  return handle ? *handle : 0;
}

Point3 Header::point(std::string_view name) const {
  const Value* value = find(name);
  if (!value) return {};
  if (const Point2* flat = std::get_if<Point2>(value)) return {flat->x, flat->y, 0};
  const Point3* point = std::get_if<Point3>(value);
  return point ? *point : Point3{};
}

bool Header::set(std::string_view name, Value value) {
  const int index = indexOf(name);
  if (index < 0 || !convert(value, at(index))) return false;
  at(index) = std::move(value);
  return true;
}

bool Header::fits(int index, const Value& value) const {
  Value copy = value;
  return convert(copy, at(index));
}

int lineweightOfIndex(int index) {
  if (index == 29) return -1;
  if (index == 30) return -2;
  if (index < 0 || index >= static_cast<int>(kLineweights.size())) return -3;
  return kLineweights[static_cast<std::size_t>(index)];
}

std::uint8_t indexOfLineweight(int hundredths) {
  if (hundredths == -1) return 29;
  if (hundredths == -2) return 30;
  for (std::size_t i = 0; i < kLineweights.size(); ++i) {
    if (kLineweights[i] == hundredths) return static_cast<std::uint8_t>(i);
  }
  return 31;
}

}  // namespace drafting
