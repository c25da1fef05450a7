#include "embedded/drafting/dxf/group_sink.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "embedded/base/text.h"

namespace drafting {
namespace {

constexpr std::size_t kSendAt = std::size_t{1} << 18;
constexpr std::size_t kNumberRoom = 40;

// A group code as its line; codes below 100 stand in three columns.
struct CodeLine {
  std::array<char, 6> bytes{};
  std::uint8_t length = 0;
};

CodeLine makeCodeLine(int code) {
  std::string digits = std::to_string(code);
  digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, ' ');
  digits += "\r\n";
  CodeLine line;
  std::copy(digits.begin(), digits.end(), line.bytes.begin());
  line.length = static_cast<std::uint8_t>(digits.size());
  return line;
}

const CodeLine& codeLine(int code) {
  static const auto lines = [] {
    std::array<CodeLine, 1072> all;
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = makeCodeLine(static_cast<int>(i));
    return all;
  }();
  return lines[static_cast<std::size_t>(code)];
}

// Whether a text goes into the file as it is.
bool isPlain(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte > 0x7E || c == '^';
  });
}

void appendCaretForm(std::string& out, std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20) {
      out += c;
      if (c == '^') out += ' ';
      continue;
    }
    out += '^';
    out += static_cast<char>(byte + 0x40);
  }
}

}  // namespace

GroupSink::GroupSink(int codePage, Output output)
    : codePage_(codePage), output_(std::move(output)), buffer_(kSendAt + 4096, '\0') {}

void GroupSink::begin(int code, std::size_t room) {
  if (used_ >= kSendAt) send();
  if (used_ + room + 16 > buffer_.size()) buffer_.resize(used_ + room + 16);
  const CodeLine& line = codeLine(code);
  std::memcpy(buffer_.data() + used_, line.bytes.data(), line.bytes.size());
  used_ += line.length;
}

void GroupSink::put(std::string_view bytes) {
  if (bytes.empty()) return;
  std::memcpy(buffer_.data() + used_, bytes.data(), bytes.size());
  used_ += bytes.size();
}

void GroupSink::end() {
  buffer_[used_++] = '\r';
  buffer_[used_++] = '\n';
}

void GroupSink::send() {
  if (status_.ok()) status_ = output_(std::string_view(buffer_).substr(0, used_));
  used_ = 0;
}

base::Status GroupSink::finish() {
  send();
  return status_;
}

void GroupSink::text(int code, std::string_view utf8) {
  if (!isPlain(utf8)) {
    std::string carets;
    appendCaretForm(carets, utf8);
    coded_.clear();
    base::appendCodePageFromUtf8(coded_, carets, codePage_, base::Unmappable::unicodeEscape);
    utf8 = coded_;
  }
  begin(code, utf8.size());
  put(utf8);
  end();
}

void GroupSink::integer(int code, std::int64_t value) {
  begin(code, kNumberRoom);
  char* const at = buffer_.data() + used_;
  used_ += static_cast<std::size_t>(std::to_chars(at, at + kNumberRoom, value).ptr - at);
  end();
}

void GroupSink::real(int code, double value) {
  begin(code, kNumberRoom);
  char* const at = buffer_.data() + used_;
  if (!std::isfinite(value)) value = 0;
  char* to = std::to_chars(at, at + kNumberRoom, value).ptr;
  const bool isWhole = std::none_of(at, to, [](char c) { return c == '.' || c == 'e'; });
  if (isWhole) {
    *to++ = '.';
    *to++ = '0';
  }
  used_ += static_cast<std::size_t>(to - at);
  end();
}

void GroupSink::angle(int code, double radians) {
  constexpr int kNeighbours = 6;
  const double exact = base::degrees(radians);
  const double round = std::round(exact * 1e9) / 1e9;
  if (base::radians(round) == radians) return real(code, round);
  double below = exact, above = exact;
  for (int i = 0; i < kNeighbours; ++i) {
    if (base::radians(below) == radians) return real(code, below);
    if (base::radians(above) == radians) return real(code, above);
    below = std::nextafter(below, -std::numeric_limits<double>::infinity());
    above = std::nextafter(above, std::numeric_limits<double>::infinity());
  }
  real(code, exact);
}

void GroupSink::handle(int code, std::uint64_t value) {
  begin(code, kNumberRoom);
  char* const at = buffer_.data() + used_;
  char* const to = std::to_chars(at, at + kNumberRoom, value, 16).ptr;
  for (char* c = at; c != to; ++c) *c = static_cast<char>(*c >= 'a' ? *c - 32 : *c);
  used_ += static_cast<std::size_t>(to - at);
  end();
}

void GroupSink::point(int code, const base::Point3& value) {
  real(code, value.x);
  real(code + 10, value.y);
  real(code + 20, value.z);
}

void GroupSink::flat(int code, const base::Point2& value) {
  real(code, value.x);
  real(code + 10, value.y);
}

void GroupSink::binary(int code, std::string_view bytes) {
  constexpr std::size_t kPiece = 127;
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (std::size_t at = 0; at < bytes.size(); at += kPiece) {
    const std::string_view piece = bytes.substr(at, kPiece);
    begin(code, piece.size() * 2);
    for (const char c : piece) {
      buffer_[used_++] = kDigits[static_cast<unsigned char>(c) >> 4];
      buffer_[used_++] = kDigits[static_cast<unsigned char>(c) & 0xF];
    }
    end();
  }
}

}  // namespace drafting
