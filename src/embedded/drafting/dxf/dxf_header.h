// The header section of a DXF file that is being read: version, coding, and the drawing variables,
// which are set when the tables they name records of are known.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "embedded/drafting/database/read_report.h"
#include "embedded/drafting/dxf/dxf_tables.h"
#include "embedded/drafting/dxf/group_section.h"

namespace drafting {

class DxfHeader {
 public:
  void read(std::span<const Group> groups, ReadReport& report, std::size_t line);

  // Why the file can't be read: an unknown version. Empty if it can.
  const std::string& failure() const { return failure_; }
  // Files up to release 12 have neither subclasses nor an OBJECTS section.
  bool isOld() const { return version_ <= 1009; }
  int codePage() const { return codePage_; }
  Handle handleSeed() const { return handleSeed_; }  // 0 if it isn't stated or can't be

  // Sets the variables of `db`, all of whose records and dictionaries are read.
  void apply(Database& db, const DxfTables& tables) const;

 private:
  struct Stated {
    std::string name;  // without "$"
    std::vector<std::pair<int, std::string>> groups;
  };

  void checkVersion(std::string_view value, ReadReport& report, std::size_t line);
  void setNamed(Database& db, const DxfTables& tables, const Stated& stated) const;
  static void setFlag(Database& db, const Stated& stated);

  std::vector<Stated> variables_;
  std::string failure_;
  int version_ = 1009;  // the digits of "AC1015"
  int codePage_ = 1252;
  Handle handleSeed_ = 0;
};

}  // namespace drafting
