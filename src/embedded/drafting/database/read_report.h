// What a reader of drawings met that wasn't as it should be.
#pragma once

#include <string>
#include <vector>

namespace drafting {

struct ReadMessage {
  std::size_t offset = 0;  // in a binary file; 0 where no place can be named
  std::string text;
  std::size_t line = 0;  // in a text file, from 1
};

// Empty: the file is sound and wholly understood or carried through.
struct ReadReport {
  static constexpr std::size_t kLimit = 100;

  std::vector<ReadMessage> messages;  // at most kLimit of them
  std::size_t more = 0;               // messages beyond that

  void add(std::size_t offset, std::string text);
  void addLine(std::size_t line, std::string text);
  std::string summary() const;  // a line each, with the line number or the offset in hexadecimal
};

}  // namespace drafting
