#include "embedded/drafting/dxf/object_source.h"

#include <algorithm>
#include <charconv>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/text_coding.h"

namespace drafting {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;
constexpr int kComment = 999, kSubclassMarker = 100, kControlString = 102, kFirstExtended = 1001;
constexpr int kVariable = 9;

// "^J" and its like to the control characters they stand for, "^ " to "^".
std::string decodeCarets(std::string text) {
  if (text.find('^') == std::string::npos) return text;
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char next = i + 1 < text.size() ? text[i + 1] : '\0';
    const bool isControl = next >= '@' && next <= '_';
    if (text[i] != '^' || (next != ' ' && !isControl)) {
      out += text[i];
      continue;
    }
    out += next == ' ' ? '^' : static_cast<char>(next - '@');
    ++i;
  }
  return out;
}

bool isPlain(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](char c) {
    return static_cast<unsigned char>(c) >= 0x80 || c == '\\' || c == '^';
  });
}

}  // namespace

int codePageOfName(std::string_view value) {
  const std::size_t digits = value.find_first_of("0123456789");
  int page = digits == std::string_view::npos ? 0 : base::atoi(value.substr(digits));
  if (page == 2312) page = 936;
  return windowsCodePage(drawingCodePage(page));  // 1252 for pages that drawings can't have
}

int versionNumber(std::string_view value) {
  value = base::trim(value);
  return value.starts_with("AC") ? base::atoi(value.substr(2)) : 0;
}

ObjectSource::ObjectSource(std::istream& in, ReadReport& report)
    : in_(in), report_(report), buffer_(kBufferSize, '\0') {}

// The two variables stand in front of all texts that aren't ASCII.
void ObjectSource::learnCoding() {
  if (code_ == kVariable) variable_ = value_;
  if (code_ == 1 && variable_ == "$ACADVER") isUtf8_ = versionNumber(value_) >= kFirstUtf8Version;
  if (code_ == 3 && variable_ == "$DWGCODEPAGE") codePage_ = codePageOfName(value_);
}

bool ObjectSource::fill() {
  in_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  at_ = 0;
  filled_ = static_cast<std::size_t>(in_.gcount());
  return filled_ > 0;
}

// A line without its end, which is LF, CR LF or the end of the file.
bool ObjectSource::readLine(std::string& out) {
  out.clear();
  bool any = false;
  while (at_ < filled_ || fill()) {
    any = true;
    const char* const from = buffer_.data() + at_;
    const char* const to = buffer_.data() + filled_;
    const char* const end = std::find(from, to, '\n');
    const std::size_t room = kLongestLine - out.size();
    out.append(from, std::min<std::size_t>(room, static_cast<std::size_t>(end - from)));
    at_ += static_cast<std::size_t>(end - from);
    if (end == to) continue;
    ++at_;
    break;
  }
  if (!any) return false;
  ++line_;
  if (out.size() == kLongestLine) report_.addLine(line_, "the line is too long; cut");
  if (!out.empty() && out.back() == '\r') out.pop_back();
  return true;
}

// Reads code and value of one group into code_ and value_.
bool ObjectSource::readGroup() {
  if (!readLine(codeText_)) return false;
  const std::string_view digits = base::trim(std::string_view(codeText_));
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code_);
  if (error != std::errc() || end != digits.data() + digits.size() || digits.empty()) {
    if (!digits.empty()) {
      report_.addLine(line_, "a group code should stand here, not \"" +
                                 std::string(digits.substr(0, 20)) + "\"; read no further");
    }
    return false;
  }
  if (readLine(value_)) return true;
  report_.addLine(line_, "the file ends within a group");
  return false;
}

void ObjectSource::addValue(std::string_view bytes) {
  const std::size_t at = arena_.size();
  if (isPlain(bytes)) {
    arena_ += bytes;
  } else if (isUtf8_ && base::isUtf8(bytes)) {
    arena_ += decodeCarets(decodeEscapes(std::string(bytes)));
  } else {
    arena_ += decodeCarets(decodeText(bytes, codePage_));
  }
  pieces_.push_back({code_, at, arena_.size() - at});
}

// All groups up to the next 0, which becomes the head of the next object.
void ObjectSource::collect() {
  arena_.clear();
  pieces_.clear();
  hasHead_ = tooLarge_ = false;
  while (readGroup()) {
    if (code_ == 0) {
      hasHead_ = true;
      return;
    }
    tooLarge_ = tooLarge_ || arena_.size() + pieces_.size() * sizeof(Piece) > kLargestObject;
    if (code_ == kComment || tooLarge_) continue;
    if (name_ == "SECTION") learnCoding();
    addValue(value_);
  }
}

bool ObjectSource::next(DxfObject& object) {
  if (line_ == 0) {  // comments may stand in front of everything
    while (readGroup() && code_ == kComment) {
    }
    hasHead_ = code_ == 0;
  }
  if (!hasHead_) return false;
  name_ = base::trim(std::string_view(value_));
  nameLine_ = line_;
  collect();
  if (tooLarge_) {
    report_.addLine(nameLine_, name_ + " is too large; left out");
    return next(object);
  }
  object = {};
  object.name = name_;
  object.line = nameLine_;
  groups_.clear();
  for (const Piece& piece : pieces_) {
    groups_.push_back({piece.code, std::string_view(arena_).substr(piece.at, piece.length)});
  }
  sortOut(object);
  return true;
}

// Splits off handle and links, which stand in front of the first subclass, and the extended data.
void ObjectSource::sortOut(DxfObject& object) {
  const auto is = [](int code) { return [code](const Group& g) { return g.code == code; }; };
  const auto extended = std::find_if(groups_.begin(), groups_.end(), is(kFirstExtended));
  object.extended = std::span<const Group>(extended, groups_.end());
  const auto marker = std::find_if(groups_.begin(), extended, is(kSubclassMarker));
  const std::size_t fields = takeLinks(object, static_cast<std::size_t>(marker - groups_.begin()));
  object.groups = std::span<const Group>(groups_).subspan(
      fields, static_cast<std::size_t>(extended - groups_.begin()) - fields);
}

// Returns where the fields begin: at the marker, with what is no link moved in front of it.
std::size_t ObjectSource::takeLinks(DxfObject& object, std::size_t marker) {
  if (object.name == "SECTION" || object.name == "CLASS") return 0;
  const int handleCode = object.name == "DIMSTYLE" ? 105 : 5;
  std::vector<Group> others;
  std::string_view list;
  for (std::size_t i = 0; i < marker; ++i) {
    const Group& group = groups_[i];
    if (group.code == kControlString) {
      list = group.value == "}" ? std::string_view() : group.value;
    } else if (!list.empty()) {
      const Handle target = GroupSection::handleOf(group);
      if (list == "{ACAD_XDICTIONARY") object.extension = target;
      if (list == "{ACAD_REACTORS") object.reactors.push_back(target);
    } else if (group.code == handleCode && object.handle == 0) {
      object.handle = GroupSection::handleOf(group);
    } else if (group.code == 330 && object.owner == 0) {
      object.owner = GroupSection::handleOf(group);
    } else {
      others.push_back(group);
    }
  }
  const std::size_t first = marker - others.size();
  std::copy(others.begin(), others.end(), groups_.begin() + static_cast<std::ptrdiff_t>(first));
  return first;
}

}  // namespace drafting
