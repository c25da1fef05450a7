#include <cmath>
#include <cstdio>
#include <iostream>
#include <iterator>

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "programs/vornik/program.h"

namespace vornik {
namespace {

bool lists(std::string_view names, std::string_view name) {
  const std::string padded = " " + std::string(names) + " ";
  return padded.find(" " + std::string(name) + " ") != std::string::npos;
}

}  // namespace

Options::Options(const Words& words, std::string_view known, std::string_view flags) {
  for (std::size_t i = 0; i < words.size() && problem_.empty(); ++i) {
    const std::string& word = words[i];
    if (word.rfind("--", 0) != 0) {
      plain_.push_back(word);
    } else if (lists(flags, word.substr(2))) {
      values_.emplace_back(word.substr(2), "");
    } else if (!lists(known, word.substr(2))) {
      problem_ = "unknown option " + word;
    } else if (i + 1 == words.size()) {
      problem_ = "option " + word + " needs a value";
    } else {
      values_.emplace_back(word.substr(2), words[++i]);
    }
  }
}

const std::string* Options::value(std::string_view name) const {
  for (const auto& [key, value] : values_) {
    if (key == name) return &value;
  }
  return nullptr;
}

std::optional<double> parseNumber(std::string_view text) {
  const auto number = base::parseDouble(text);
  if (number.length == 0 || number.length != text.size()) return {};
  return number.value;
}

std::optional<base::Point2> parsePoint(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return {};
  const auto x = parseNumber(text.substr(0, comma));
  const auto y = parseNumber(text.substr(comma + 1));
  if (!x || !y || !std::isfinite(*x) || !std::isfinite(*y)) return {};
  return base::Point2{*x, *y};
}

int usageError(std::string_view problem, std::string_view usage) {
  std::cerr << "vornik: " << problem << "\n" << usage;
  return kWrongUsage;
}

int report(const base::Status& status) {
  if (status.ok()) return kDone;
  std::cerr << "vornik: " << status.message() << "\n";
  return kFailed;
}

base::Result<std::string> readInput(const std::string& path) {
  if (path != "-") return base::readFile(base::pathFromUtf8(path));
  return std::string(std::istreambuf_iterator<char>(std::cin), {});
}

}  // namespace vornik
