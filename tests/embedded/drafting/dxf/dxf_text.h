// DXF as text for tests: a drawing as a whole file, and small files put together from groups.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "embedded/drafting/dxf/dxf_reader.h"
#include "embedded/drafting/dxf/dxf_writer.h"

namespace drafting {

inline std::string dxfOf(const Database& database) {
  std::string text;
  const base::Status status = writeDxf(database, [&text](std::string_view piece) {
    text += piece;
    return base::Status();
  });
  EXPECT_TRUE(status.ok()) << status.message();
  return text;
}

// The drawing in `text`; null with a failed expectation if it can't be read at all.
inline std::unique_ptr<Database> drawingOf(const std::string& text, std::string* notes = nullptr) {
  std::istringstream in(text);
  ReadReport report;
  auto read = readDxf(in, report);
  EXPECT_TRUE(read.ok()) << read.message();
  if (notes) {
    *notes = report.summary();
  } else {
    EXPECT_EQ(report.summary(), "");
  }
  return read.ok() ? std::move(*read) : nullptr;
}

// "0 LINE 8 0" as groups: code and value in turn, separated by "|".
inline std::string groups(std::string_view list) {
  std::string text;
  for (const char c : list) text += c == '|' ? '\n' : c;
  return text + "\n";
}

inline std::string entitiesFile(std::string_view list) {
  return groups("0|SECTION|2|ENTITIES") + groups(list) + groups("0|ENDSEC|0|EOF");
}

template <class T>
T& firstOf(const Database& database) {
  auto* entity = dynamic_cast<T*>(database.modelSpace().first);
  EXPECT_NE(entity, nullptr);
  static T none;
  return entity ? *entity : none;
}

}  // namespace drafting
