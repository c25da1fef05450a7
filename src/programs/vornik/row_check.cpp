// Checks of what one row or one directory file says by itself.
#include <algorithm>
#include <map>

#include "embedded/base/text.h"
#include "engine/row_reader.h"
#include "programs/vornik/library_check.h"
#include "programs/vornik/row_text.h"
#include "store/circuit_record.h"

namespace vornik {
namespace {

constexpr const wchar_t* kBlankSymbol = L"ZHL1000";
constexpr std::size_t kNameSize = 8, kRecordSize = 12;

// Where the part begins whose end the reader missed.
std::size_t columnOf(const std::wstring& message, const RowTokens& tokens) {
  const auto about = [&](const wchar_t* word) { return message.find(word) != message.npos; };
  const bool lines = about(L"起点") || about(L"终点") || about(L"错误3");
  const bool blocks = about(L"块") || about(L"插入点") || about(L"错误1") || about(L"错误2");
  const std::vector<RowToken>* part = lines ? &tokens.lines : blocks ? &tokens.blocks : nullptr;
  return part && !part->empty() ? part->front().at + 1 : 1;
}

class RowCheck {
 public:
  RowCheck(const std::string& circuit, std::wstring_view row)
      : circuit_(circuit), row_(row), tokens_(tokensOf(row)) {}

  std::vector<Finding> run() {
    addMessage("placing", readRow(std::wstring(row_)).message);
    const LibraryRowReading reading = readLibraryRow(std::wstring(row_));
    addMessage("the library", reading.message);
    for (const RowProblem& problem : problemsOfForm(row_)) add(problem.column, problem.what);
    checkNumber(reading);
    checkCells();
    return std::move(findings_);
  }

 private:
  void add(std::size_t column, const std::string& what) {
    findings_.push_back({kTreeFile, circuit_, column, what});
  }
  void addMessage(const std::string& reader, const std::wstring& message) {
    if (message.empty()) return;
    add(columnOf(message, tokens_),
        reader + " can't read the row: " + base::utf8FromWide(base::trim(message)));
  }

  // The circuit's own number stands in its row too, and on its slide.
  void checkNumber(const LibraryRowReading& reading) {
    const std::size_t mark = circuit_.find('&');
    if (!reading.number || mark == std::string::npos) return;
    const std::string number = base::utf8FromWide(*reading.number);
    if (number != circuit_.substr(mark + 1)) add(3, "the row's number is " + number);
  }

  void checkCells() {
    std::map<std::pair<std::wstring, std::wstring>, std::size_t> places;
    const auto& blocks = tokens_.blocks;
    for (std::size_t i = 0; i + kBlockFields <= blocks.size(); i += kBlockFields) {
      const std::wstring name = blocks[i].value();
      const bool blank = name == kEmptyCell || name == kCoveredCell || name == kBlankSymbol;
      if (blank && !blocks[i + 1].value().empty()) {
        add(blocks[i + 1].at + 1, "the empty cell " + base::utf8FromWide(name) + " has the model " +
                                      base::utf8FromWide(blocks[i + 1].value()));
      }
      const auto [place, isNew] =
          places.try_emplace({blocks[i + 2].text, blocks[i + 3].text}, blocks[i].at + 1);
      if (!isNew) {
        add(blocks[i].at + 1, base::utf8FromWide(name) + " stands where the block of column " +
                                  std::to_string(place->second) + " does");
      }
    }
  }

  const std::string& circuit_;
  std::wstring_view row_;
  RowTokens tokens_;
  std::vector<Finding> findings_;
};

}  // namespace

std::string textOf(const Finding& finding) {
  std::string out = finding.file + ": ";
  if (!finding.circuit.empty()) out += finding.circuit + ": ";
  if (finding.column > 0) out += "column " + std::to_string(finding.column) + ": ";
  return out + finding.what;
}

std::vector<Finding> checkRow(const std::string& circuit, std::wstring_view row) {
  return RowCheck(circuit, row).run();
}

std::vector<Finding> checkDirectory(const std::string& file, std::string_view bytes) {
  std::vector<Finding> findings;
  std::vector<std::string> seen;
  for (; bytes.size() >= kRecordSize; bytes.remove_prefix(kRecordSize)) {
    std::string name(bytes.substr(0, kNameSize));
    name.erase(name.find_last_not_of(' ') + 1);
    const auto same = [&](const std::string& other) { return base::equalsNoCase(other, name); };
    if (std::any_of(seen.begin(), seen.end(), same)) {
      findings.push_back({file, name, 0, "is recorded twice; the first record counts"});
    }
    seen.push_back(std::move(name));
  }
  if (!bytes.empty()) findings.push_back({file, "", 0, "ends inside a record"});
  return findings;
}

}  // namespace vornik
