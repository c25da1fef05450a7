// The headless program's commands. Each takes the arguments behind its name and gives the exit
// status: 0 done, 1 the work failed (message on standard error), 2 wrong usage.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/geometry.h"
#include "embedded/base/status.h"
#include "embedded/drafting/documents/drawing_files.h"

namespace vornik {

inline constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

using Words = std::vector<std::string>;  // UTF-8

int sampleCommand(const Words& words);
int runCommand(const Words& words);
int placeCommand(const Words& words);
int convertCommand(const Words& words);
int dumpCommand(const Words& words);
int bomCommand(const Words& words);
int plotCommand(const Words& words);
int rowCommand(const Words& words);
int libraryCommand(const Words& words);

// Options of the form --name VALUE taken out of `words`; what is left are the plain arguments.
class Options {
 public:
  // `known` lists the options that take a value, `flags` those that don't, blank-separated.
  Options(const Words& words, std::string_view known, std::string_view flags = "");

  const std::string* value(std::string_view name) const;  // null if it wasn't given
  bool flag(std::string_view name) const { return value(name) != nullptr; }
  const Words& plain() const { return plain_; }
  const std::string& problem() const { return problem_; }  // empty, or what is wrong

 private:
  std::vector<std::pair<std::string, std::string>> values_;
  Words plain_;
  std::string problem_;
};

// The whole text as numbers: one, or a point "X,Y"; nothing for anything else.
std::optional<double> parseNumber(std::string_view text);
std::optional<base::Point2> parsePoint(std::string_view text);

int usageError(std::string_view problem, std::string_view usage);
int report(const base::Status& status);  // prints a failure; the exit status

// What --lossy says.
inline drafting::Losses lossesOf(const Options& options) {
  return options.flag("lossy") ? drafting::Losses::Accepted : drafting::Losses::Refused;
}

// A whole file, or standard input for "-".
base::Result<std::string> readInput(const std::string& path);

}  // namespace vornik
