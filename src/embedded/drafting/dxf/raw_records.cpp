#include "embedded/drafting/dxf/raw_records.h"

#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/bit_reader.h"
#include "embedded/drafting/dwg/bit_writer.h"
#include "embedded/drafting/dwg/text_coding.h"

namespace drafting {
namespace {

enum class ValueForm { Text, Point, Real, Byte, Short, Long, Binary, Handle, None };

struct CodeRange {
  int first, last;
  ValueForm form;
};

// Frozen: the value's form by its group code.
constexpr CodeRange kRanges[] = {{0, 4, ValueForm::Text},         {5, 5, ValueForm::Handle},
                                 {6, 9, ValueForm::Text},         {10, 17, ValueForm::Point},
                                 {38, 59, ValueForm::Real},       {60, 79, ValueForm::Short},
                                 {90, 99, ValueForm::Long},       {100, 102, ValueForm::Text},
                                 {105, 105, ValueForm::Handle},   {110, 112, ValueForm::Point},
                                 {140, 149, ValueForm::Real},     {170, 179, ValueForm::Short},
                                 {210, 210, ValueForm::Point},    {270, 279, ValueForm::Short},
                                 {280, 289, ValueForm::Byte},     {290, 299, ValueForm::Byte},
                                 {300, 309, ValueForm::Text},     {310, 319, ValueForm::Binary},
                                 {320, 369, ValueForm::Handle},   {370, 389, ValueForm::Short},
                                 {390, 399, ValueForm::Handle},   {400, 409, ValueForm::Short},
                                 {410, 419, ValueForm::Text},     {1000, 1001, ValueForm::Text},
                                 {1003, 1003, ValueForm::Text},   {1004, 1004, ValueForm::Binary},
                                 {1005, 1005, ValueForm::Handle}, {1010, 1013, ValueForm::Point},
                                 {1040, 1042, ValueForm::Real},   {1070, 1070, ValueForm::Short},
                                 {1071, 1071, ValueForm::Long}};

ValueForm formOf(int code) {
  for (const CodeRange& range : kRanges) {
    if (code >= range.first && code <= range.last) return range.form;
  }
  return ValueForm::None;
}

// Writes one value; false if the code is unknown, behind which nothing can be told apart.
bool writeValue(BitReader& data, int code, GroupSink& sink) {
  switch (formOf(code)) {
    case ValueForm::Text: {
      const std::size_t length = data.rawShort();
      const int page = windowsCodePage(data.rawByte());
      const std::string bytes = data.bytes(length);
      if (data.ok()) sink.text(code, decodeText(bytes, page));
      return true;
    }
    case ValueForm::Point: {
      const double x = data.rawReal(), y = data.rawReal();
      sink.point(code, {x, y, data.rawReal()});
      return true;
    }
    case ValueForm::Real: sink.real(code, data.rawReal()); return true;
    case ValueForm::Byte: sink.integer(code, data.rawByte()); return true;
    case ValueForm::Short:
      sink.integer(code, static_cast<std::int16_t>(data.rawShort()));
      return true;
    case ValueForm::Long:
      sink.integer(code, static_cast<std::int32_t>(data.rawLong()));
      return true;
    case ValueForm::Binary: sink.binary(code, data.bytes(data.rawByte())); return true;
    case ValueForm::Handle: {
      const std::uint64_t low = data.rawLong();
      sink.handle(code, low | std::uint64_t{data.rawLong()} << 32);
      return true;
    }
    case ValueForm::None: break;
  }
  return false;
}

// The code of a reference that a group of handles stands for.
std::uint8_t referenceCode(int code) {
  if (code >= 340 && code < 350) return kHardPointer;
  if (code >= 350 && code < 360) return kSoftOwner;
  return code >= 360 && code < 370 ? kHardOwner : kSoftPointer;
}

class XrecordReader {
 public:
  XrecordReader(const Database& db, GroupSection groups, RawObject& object)
      : db_(db), groups_(groups), object_(object) {}

  void read() {
    groups_.enter("AcDbXrecord");
    const Group* cloning = groups_.find(280);
    int x = -1;  // code of a point of which x has been read
    base::Point3 point;
    for (const Group& group : groups_) {
      if (&group == cloning) continue;
      const int axis = group.code - x;
      if (x >= 0 && axis == 10) point.y = GroupSection::realOf(group);
      if (x >= 0 && axis == 20) point.z = GroupSection::realOf(group);
      if (x >= 0 && (axis == 10 || axis == 20)) continue;
      putPoint(x, point);
      x = formOf(group.code) == ValueForm::Point ? group.code : -1;
      point = {GroupSection::realOf(group), 0, 0};
      if (x < 0) put(group);
    }
    putPoint(x, point);
    finish(cloning ? GroupSection::integerOf(*cloning) : 1);
  }

 private:
  void code(int code) { data_.rawShort(static_cast<std::uint16_t>(code)); }
  void putPoint(int at, const base::Point3& point) {
    if (at < 0) return;
    code(at);
    for (const double value : {point.x, point.y, point.z}) data_.rawReal(value);
  }
  void put(const Group& group) {
    const ValueForm form = formOf(group.code);
    if (form == ValueForm::None) return;
    code(group.code);
    switch (form) {
      case ValueForm::Text: return text(group.value);
      case ValueForm::Real: return data_.rawReal(GroupSection::realOf(group));
      case ValueForm::Byte: return data_.rawByte(integer(group) & 0xFF);
      case ValueForm::Short: return data_.rawShort(static_cast<std::uint16_t>(integer(group)));
      case ValueForm::Long: return data_.rawLong(integer(group));
      case ValueForm::Binary: return binary(bytesOfHex(group.value));
      default: return handle(group);
    }
  }
  static std::uint32_t integer(const Group& group) {
    return static_cast<std::uint32_t>(GroupSection::integerOf(group));
  }
  void text(std::string_view utf8) {
    std::string bytes = encodeText(utf8, db_.codePage);
    bytes.resize(std::min<std::size_t>(bytes.size(), 0xFFFF));
    data_.rawShort(static_cast<std::uint16_t>(bytes.size()));
    data_.rawByte(static_cast<unsigned>(drawingCodePage(db_.codePage)));
    data_.bytes(bytes);
  }
  void binary(std::string bytes) {
    bytes.resize(std::min<std::size_t>(bytes.size(), 0xFF));
    data_.rawByte(static_cast<unsigned>(bytes.size()));
    data_.bytes(bytes);
  }
  void handle(const Group& group) {
    const Handle target = GroupSection::handleOf(group);
    data_.rawLong(static_cast<std::uint32_t>(target));
    data_.rawLong(static_cast<std::uint32_t>(target >> 32));
    if (group.code >= 320 && group.code < 400 && target != 0) {
      object_.references.push_back({referenceCode(group.code), target});
    }
  }
  void finish(int cloning) {
    const auto bytes = static_cast<std::uint32_t>(data_.position() / 8);
    BitWriter body;
    body.longInteger(bytes);
    body.append(data_);
    body.shortInteger(static_cast<std::uint16_t>(cloning));
    object_.body.count = static_cast<std::uint32_t>(body.position());
    object_.body.bytes = body.finish();
  }

  const Database& db_;
  GroupSection groups_;
  RawObject& object_;
  BitWriter data_;
};

}  // namespace

void writeXrecord(const RawObject& object, GroupSink& sink) {
  BitReader body(object.body.bytes, 0, object.body.count);
  const std::string bytes = body.bytes(body.longInteger());
  const int cloning = body.shortInteger();
  sink.text(100, "AcDbXrecord");
  sink.integer(280, cloning);
  BitReader data(bytes);
  while (data.ok() && data.left() >= 24) {
    if (!writeValue(data, data.rawShort(), sink)) return;
  }
}

void readXrecord(const Database& database, GroupSection groups, RawObject& object) {
  XrecordReader(database, groups, object).read();
}

}  // namespace drafting
