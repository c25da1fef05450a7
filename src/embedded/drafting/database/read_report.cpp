#include "embedded/drafting/database/read_report.h"

#include <cstdio>

namespace drafting {

void ReadReport::add(std::size_t offset, std::string text) {
  if (messages.size() < kLimit) {
    messages.push_back({offset, std::move(text)});
  } else {
    ++more;
  }
}

void ReadReport::addLine(std::size_t line, std::string text) {
  const std::size_t before = messages.size();
  add(0, std::move(text));
  if (messages.size() > before) messages.back().line = line;
}

std::string ReadReport::summary() const {
  std::string out;
  for (const ReadMessage& message : messages) {
    char place[40] = "";
    const auto offset = static_cast<unsigned long long>(message.offset);
    const auto line = static_cast<unsigned long long>(message.line);
    if (offset != 0) std::snprintf(place, sizeof place, "at %llX: ", offset);
    if (line != 0) std::snprintf(place, sizeof place, "line %llu: ", line);
    out += place + message.text + "\n";
  }
  if (more > 0) out += "and " + std::to_string(more) + " more\n";
  return out;
}

}  // namespace drafting
