// The bytes of a journal event: fixed-width numbers, texts and lists behind their length.
#include "embedded/drafting/database/journal_step.h"

#include <bit>
#include <utility>

namespace drafting {
namespace {

class Writer {
 public:
  void number(std::uint64_t value, int bytes = 8) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>(value >> (8 * i)));
  }
  void real(double value) { number(std::bit_cast<std::uint64_t>(value)); }
  void text(std::string_view value) {
    number(value.size(), 4);
    out.append(value);
  }
  template <class T, class F>
  void list(const std::vector<T>& items, F write) {
    number(items.size(), 4);
    for (const T& item : items) write(item);
  }
  void value(const VariableValue& value) {
    number(value.index(), 1);
    std::visit([this](const auto& v) { plain(v); }, value);
  }

  std::string out;

 private:
  void plain(double v) { real(v); }
  void plain(int v) { number(static_cast<std::uint32_t>(v), 4); }
  void plain(const std::string& v) { text(v); }
  void plain(Handle v) { number(v); }
  void plain(const Point2& v) { real(v.x), real(v.y); }
  void plain(const Point3& v) { real(v.x), real(v.y), real(v.z); }
};

// Behind the end of the bytes everything reads as 0 and `good` is false.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : left_(bytes) {}

  std::uint64_t number(int bytes = 8) {
    std::uint64_t value = 0;
    const std::string_view taken = take(static_cast<std::size_t>(bytes));
    for (std::size_t i = 0; i < taken.size(); ++i) {
      value |= std::uint64_t{static_cast<unsigned char>(taken[i])} << (8 * i);
    }
    return value;
  }
  double real() { return std::bit_cast<double>(number()); }
  std::string text() { return std::string(take(number(4))); }
  // A count that the bytes left can't hold is refused: an item takes one byte or more.
  template <class T, class F>
  void list(std::vector<T>& items, F read) {
    const std::uint64_t count = number(4);
    good = good && count <= left_.size();
    for (std::uint64_t i = 0; good && i < count; ++i) read(items.emplace_back());
  }
  VariableValue value() {
    switch (number(1)) {
      case 0: return real();
      case 1: return static_cast<int>(static_cast<std::uint32_t>(number(4)));
      case 2: return text();
      case 3: return Handle{number()};
      case 4: {
        const double x = real(), y = real();
        return Point2{x, y};
      }
      case 5: {
        const double x = real(), y = real(), z = real();
        return Point3{x, y, z};
      }
      default: good = false; return 0;
    }
  }
  bool atEnd() const { return left_.empty(); }

  bool good = true;

 private:
  std::string_view take(std::uint64_t size) {
    good = good && size <= left_.size();
    if (!good) return {};
    const std::string_view taken = left_.substr(0, size);
    left_.remove_prefix(size);
    return taken;
  }

  std::string_view left_;
};

void write(Writer& w, const JournalPart& part) {
  w.list(part.changes, [&](const JournalChange& change) {
    w.number(change.handle);
    w.text(change.before);
    w.text(change.after);
  });
  w.list(part.links, [&](const JournalLink& link) {
    w.number(static_cast<unsigned>(link.where), 1);
    w.number(link.made, 1);
    for (const Handle h : {link.subject, link.owner, link.previous, link.next}) w.number(h);
  });
  w.list(part.variables, [&](const JournalVariable& variable) {
    w.number(static_cast<unsigned>(variable.index), 2);
    w.value(variable.before);
    w.value(variable.after);
  });
}

void read(Reader& r, JournalPart& part) {
  r.list(part.changes, [&](JournalChange& change) {
    change.handle = r.number();
    change.before = r.text();
    change.after = r.text();
  });
  r.list(part.links, [&](JournalLink& link) {
    link.where = r.number(1) ? JournalLink::Where::Table : JournalLink::Where::Chain;
    link.made = r.number(1) != 0;
    for (Handle* h : {&link.subject, &link.owner, &link.previous, &link.next}) *h = r.number();
  });
  r.list(part.variables, [&](JournalVariable& variable) {
    variable.index = static_cast<int>(r.number(2));
    variable.before = r.value();
    variable.after = r.value();
    r.good = r.good && static_cast<std::size_t>(variable.index) < variables().size() &&
             variable.before.index() ==
                 variables()[static_cast<std::size_t>(variable.index)].initial.index() &&
             variable.after.index() == variable.before.index();
  });
}

}  // namespace

std::string encodeEvent(const JournalEvent& event, const JournalStep& step) {
  Writer w;
  w.number(static_cast<unsigned>(event.kind), 1);
  w.number(event.nextHandle);
  w.number(step.id);
  w.text(step.name);
  w.list(step.parts, [&](const JournalPart& part) { write(w, part); });
  return std::move(w.out);
}

bool decodeEvent(std::string_view bytes, JournalEvent& event, JournalStep& step) {
  Reader r(bytes);
  const std::uint64_t kind = r.number(1);
  if (kind > static_cast<unsigned>(JournalEvent::Kind::Redone)) return false;
  event.kind = static_cast<JournalEvent::Kind>(kind);
  event.nextHandle = r.number();
  step.id = r.number();
  step.name = r.text();
  r.list(step.parts, [&](JournalPart& part) { read(r, part); });
  return r.good && r.atEnd();
}

}  // namespace drafting
