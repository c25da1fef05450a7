// Reads a DXF file object by object, from a stream: of the file only the object at hand is held. An
// object is what stands between two groups 0; so are the heads of sections with what follows them.
#pragma once

#include <istream>
#include <string>
#include <vector>

#include "embedded/drafting/database/read_report.h"
#include "embedded/drafting/dxf/group_section.h"

namespace drafting {

struct DxfObject {
  std::string_view name;            // value of group 0
  std::size_t line = 0;             // of that value
  std::span<const Group> groups;    // without comments, handle, links and extended data
  std::span<const Group> extended;  // from the first 1001 on
  Handle handle = 0, owner = 0, extension = 0;
  std::vector<Handle> reactors;
};

// The Windows page that a $DWGCODEPAGE names, and the number in an $ACADVER (0: it is none).
int codePageOfName(std::string_view value);
int versionNumber(std::string_view value);
inline constexpr int kFirstUtf8Version = 1021;

// The coding of texts is learnt from the header's variables on the way.
class ObjectSource {
 public:
  // A line longer than this is cut; an object of more text is left out.
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20;
  static constexpr std::size_t kLargestObject = std::size_t{1} << 26;

  ObjectSource(std::istream& in, ReadReport& report);

  // False at the end of the file, or where the file stops being DXF. What `object` points to stays
  // good until the next call.
  bool next(DxfObject& object);
  std::size_t line() const { return line_; }  // read so far

 private:
  bool readLine(std::string& out);
  bool readGroup();
  bool fill();
  void collect();
  void addValue(std::string_view bytes);
  void learnCoding();
  void sortOut(DxfObject& object);
  std::size_t takeLinks(DxfObject& object, std::size_t marker);

  struct Piece {
    int code = 0;
    std::size_t at = 0, length = 0;
  };

  std::istream& in_;
  ReadReport& report_;
  std::string buffer_;
  std::size_t at_ = 0, filled_ = 0;
  std::size_t line_ = 0;
  int codePage_ = 1252;
  bool isUtf8_ = false;
  std::string variable_;  // of the header, whose value follows

  int code_ = -1;  // of the group read last
  std::string codeText_, value_;
  bool hasHead_ = false;  // value_ is the name of the next object
  bool tooLarge_ = false;

  std::string arena_, name_;
  std::size_t nameLine_ = 0;
  std::vector<Piece> pieces_;
  std::vector<Group> groups_;
};

}  // namespace drafting
