// Reads a circuit's data row into the lists that placing and editing work from. Pure: text in,
// lists or one message out. The form of a row:
//
//   ("<number>" <block>... "&&&&" <line>... "TEXT" <text>...)
//
//   block   name specification x y angle      line   x y x y
//   text    "string" colour height x y angle
//
// Elements are separated by one blank; more blanks shift the fields, which is how rows have always
// been read and therefore stays.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct RowPoint {
  double x = 0;
  double y = 0;
  friend bool operator==(const RowPoint&, const RowPoint&) = default;
};

// The lists, in row order. Lists of blocks have one length, and so do those of lines; the text
// lists may end unequal when the row ends inside a text.
struct CircuitRow {
  std::vector<std::wstring> names;
  std::vector<std::wstring> specifications;
  std::vector<RowPoint> points;
  std::vector<double> angles;            // degrees
  std::vector<std::wstring> angleTexts;  // the same as they stand in the row
  std::vector<RowPoint> starts;
  std::vector<RowPoint> ends;
  std::vector<std::wstring> texts;
  std::vector<std::int32_t> colours;  // host colour index
  std::vector<double> heights;
  std::vector<RowPoint> textPoints;
  std::vector<double> textAngles;  // degrees
};

struct RowReading {
  CircuitRow row;        // incomplete when there is a message
  std::wstring message;  // empty when the row can be placed; else as the command line shows it
  bool ok() const { return message.empty(); }
};

// As placing reads a row: on the command line's terms.
RowReading readRow(const std::wstring& row);

// As the library reads a row. It takes the number off first, up to the first blank whatever the
// characters around it, and searches the markers only behind it; so the row's first character may
// be any, and a blank inside the number's quotes ends the number.
struct LibraryRowReading : RowReading {
  std::optional<std::wstring> number;  // none when the row has no blank
};
LibraryRowReading readLibraryRow(const std::wstring& row);
