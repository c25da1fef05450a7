// `vornik row`: circuit data rows, read as placing reads them and expanded as the editor does.
#include <iostream>
#include <optional>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/common_funcs/base64.h"
#include "engine/row_reader.h"
#include "platform/framework_messages.h"
#include "programs/vornik/headless.h"
#include "programs/vornik/json.h"
#include "programs/vornik/program.h"
#include "store/circuit_record.h"

namespace vornik {
namespace {

constexpr std::string_view kUsage =
    "usage: vornik row read [--json] [FILE|-]\n"
    "       vornik row expand --install DIR [--json] [FILE|-]\n"
    "  Takes data rows, one a line. 'read' prints the lists of each as placing reads it, 'expand'\n"
    "  the tree that the editor works on; or the row's message.\n";

std::string utf8Of(std::wstring_view text) { return base::utf8FromWide(text); }

std::string points(const std::vector<RowPoint>& list) {
  return jsonList(list, [](const RowPoint& p) {
    return "[" + base::formatShortest(p.x) + "," + base::formatShortest(p.y) + "]";
  });
}

std::string texts(const std::vector<std::wstring>& list) {
  return jsonList(list, [](const std::wstring& text) { return jsonText(utf8Of(text)); });
}

std::string numbers(const std::vector<double>& list) {
  return jsonList(list, [](double number) { return base::formatShortest(number); });
}

std::string messageAsJson(const std::wstring& message) {
  return "{\"message\":" + jsonText(utf8Of(message)) + "}";
}

std::string jsonOf(const RowReading& reading) {
  if (!reading.ok()) return messageAsJson(reading.message);
  const CircuitRow& row = reading.row;
  const auto colours = jsonList(row.colours, [](int colour) { return std::to_string(colour); });
  return "{\"names\":" + texts(row.names) + ",\"specifications\":" + texts(row.specifications) +
         ",\"points\":" + points(row.points) + ",\"angles\":" + numbers(row.angles) +
         ",\"starts\":" + points(row.starts) + ",\"ends\":" + points(row.ends) +
         ",\"texts\":" + texts(row.texts) + ",\"colours\":" + colours +
         ",\"heights\":" + numbers(row.heights) + ",\"textPoints\":" + points(row.textPoints) +
         ",\"textAngles\":" + numbers(row.textAngles) + "}";
}

std::string plainOf(const RowReading& reading) {
  if (!reading.ok()) return utf8Of(base::trim(reading.message));
  const CircuitRow& row = reading.row;
  return std::to_string(row.names.size()) + " blocks, " + std::to_string(row.starts.size()) +
         " lines, " + std::to_string(row.texts.size()) + " texts";
}

// Bytes in base 64.
std::string valueOf(const CQuillDpNode& node) {
  if (!node.bytes) return utf8Of(node.text());
  const auto* bytes = static_cast<const std::uint8_t*>(node.data);
  return common_funcs::toBase64({bytes, bytes + node.length});
}

std::string jsonOf(const CZhlkCircuitRecord& record) {
  std::string tree;
  record.tree.visit([&](const std::wstring& path, const CQuillDpNode& node) {
    if (node.length == 0 && !node.bytes) return;
    tree += (tree.empty() ? "" : ",") + jsonText(utf8Of(path)) + ":" + jsonText(valueOf(node));
  });
  const auto pair = [](long a, long b) {
    return "[" + std::to_string(a) + "," + std::to_string(b) + "]";
  };
  return "{\"number\":" + jsonText(utf8Of(record.number.wide())) +
         ",\"scroll\":" + pair(record.scrollSize.cx, record.scrollSize.cy) +
         ",\"origin\":" + pair(record.origin.x, record.origin.y) + ",\"tree\":{" + tree + "}}";
}

std::string plainOf(const CZhlkCircuitRecord& record) {
  return utf8Of(record.number.wide()) + ": " + std::to_string(record.GetBlockCount()) +
         " blocks, " + std::to_string(record.GetLineCount()) + " lines, " +
         std::to_string(record.GetTextCount()) + " texts, " + std::to_string(record.scrollSize.cx) +
         " by " + std::to_string(record.scrollSize.cy) + " pixels";
}

std::string read(const std::wstring& row, bool json) {
  const RowReading reading = readRow(row);
  return json ? jsonOf(reading) : plainOf(reading);
}

std::string expand(const std::wstring& row, bool json) {
  std::optional<std::wstring> message;
  setMessageBoxHandler([&](const MessageBoxCall& call) {
    message = call.text;
    return kMessageAnswerOk;
  });
  CZhlkCircuitRecord record;
  record.Load(row, L"");
  setMessageBoxHandler({});
  if (message) return json ? messageAsJson(*message) : utf8Of(base::trim(*message));
  return json ? jsonOf(record) : plainOf(record);
}

}  // namespace

int rowCommand(const Words& words) {
  const Options options(words, "install", "json help");
  if (options.flag("help")) return std::cout << kUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kUsage);
  const Words& plain = options.plain();
  const bool expands = !plain.empty() && plain[0] == "expand";
  if (plain.empty() || plain.size() > 2 || (!expands && plain[0] != "read")) {
    return usageError("'read' or 'expand' and at most one file are needed", kUsage);
  }
  const auto* install = options.value("install");
  if (expands != (install != nullptr)) {
    return usageError(expands ? "--install is needed" : "'read' takes no --install", kUsage);
  }
  const auto input = readInput(plain.size() == 2 ? plain[1] : "-");
  if (!input.ok()) return report(input.status());
  const base::Status entered = install ? enterInstall(*install) : base::Status();
  if (!entered.ok()) return report(entered);
  const bool json = options.flag("json");
  std::string_view rest = *input;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const std::wstring row = base::wideFromUtf8(line);
    std::cout << (expands ? expand(row, json) : read(row, json)) << "\n";
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return kDone;
}

}  // namespace vornik
