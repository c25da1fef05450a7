// Reads the bit codes of drawings, highest bit of each byte first. Reading past the end gives zeros
// and is remembered: callers check ok() once, after a run of fields.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "embedded/base/geometry.h"

namespace drafting {

// A handle reference as it is stored: the code, and the number behind it.
struct StoredReference {
  std::uint8_t code = 0;
  std::uint64_t number = 0;

  bool isRelative() const { return code == 6 || code == 8 || code == 10 || code == 12; }
  // The handle that is meant, in an object whose own handle is `self`.
  std::uint64_t resolve(std::uint64_t self) const {
    switch (code) {
      case 6: return self + 1;
      case 8: return self - 1;
      case 10: return self + number;
      case 12: return self - number;
      default: return number;
    }
  }
};

class BitReader {
 public:
  BitReader() = default;
  // Reads the bits [begin, end) of `bytes`; `end` is cut to what there is.
  explicit BitReader(std::string_view bytes, std::size_t begin = 0,
                     std::size_t end = ~std::size_t{0})
      : data_(reinterpret_cast<const unsigned char*>(bytes.data())),
        size_(bytes.size()),
        position_(begin),
        end_(std::min(end, bytes.size() * 8)) {
    if (position_ > end_) fail();
  }

  bool ok() const { return ok_; }
  void fail() {
    ok_ = false;
    position_ = end_;
  }
  std::size_t position() const { return position_; }
  std::size_t left() const { return end_ - position_; }
  // True if `count` items of at least `bits` bits each can still follow.
  bool holds(std::size_t count, std::size_t bits) const { return count <= left() / bits; }

  // Up to 32 bits.
  std::uint32_t bits(unsigned count) {
    if (count == 0) return 0;
    if (count > left()) return overrun();
    const std::uint64_t word = load(position_ >> 3) << (position_ & 7);
    position_ += count;
    return static_cast<std::uint32_t>(word >> (64 - count));
  }
  bool bit() { return bits(1) != 0; }

  std::uint8_t rawByte() { return static_cast<std::uint8_t>(bits(8)); }
  std::uint16_t rawShort() { return __builtin_bswap16(static_cast<std::uint16_t>(bits(16))); }
  std::uint32_t rawLong() { return __builtin_bswap32(bits(32)); }
  double rawReal() { return std::bit_cast<double>(__builtin_bswap64(bits64())); }

  std::uint16_t shortInteger() {  // BS
    switch (bits(2)) {
      case 0: return rawShort();
      case 1: return rawByte();
      case 2: return 0;
      default: return 256;
    }
  }
  std::uint32_t longInteger() {  // BL
    switch (bits(2)) {
      case 0: return rawLong();
      case 1: return rawByte();
      case 2: return 0;
      default: return overrun();
    }
  }
  double real() {  // BD
    switch (bits(2)) {
      case 0: return rawReal();
      case 1: return 1.0;
      case 2: return 0.0;
      default: return overrun();
    }
  }
  double realAgainst(double expected) {  // DD: some bytes of the default replaced
    const unsigned code = bits(2);
    if (code == 0) return expected;
    if (code == 3) return rawReal();
    auto word = std::bit_cast<std::uint64_t>(expected);
    if (code == 2) word = (word & 0xFFFF0000FFFFFFFFu) | std::uint64_t{rawShort()} << 32;
    return std::bit_cast<double>((word & 0xFFFFFFFF00000000u) | rawLong());
  }
  double thickness() { return bit() ? 0.0 : real(); }
  base::Point3 extrusion() { return bit() ? base::Point3{0, 0, 1} : point(); }
  base::Point3 point() {
    const double x = real(), y = real();
    return {x, y, real()};
  }
  base::Point2 flat() {
    const double x = rawReal();
    return {x, rawReal()};
  }
  StoredReference reference();
  std::string bytes(std::size_t count);
  // `count` bits, moved to the start of a byte; the last byte is filled up with zeros.
  std::string bitString(std::size_t count);

 private:
  std::uint32_t overrun() {
    fail();
    return 0;
  }
  // Eight bytes from `at` on, first byte highest; zeros behind the data.
  std::uint64_t load(std::size_t at) const {
    std::uint64_t word = 0;
    if (at + 8 <= size_) {
      std::memcpy(&word, data_ + at, 8);
      return __builtin_bswap64(word);
    }
    for (std::size_t i = at; i < at + 8; ++i) word = word << 8 | (i < size_ ? data_[i] : 0u);
    return word;
  }
  std::uint64_t bits64() {
    if (left() < 64) return overrun();
    const std::size_t at = position_ >> 3;
    const unsigned shift = position_ & 7;
    std::uint64_t word = load(at);
    if (shift != 0) word = word << shift | static_cast<unsigned>(data_[at + 8]) >> (8 - shift);
    position_ += 64;
    return word;
  }

  const unsigned char* data_ = nullptr;
  std::size_t size_ = 0;
  std::size_t position_ = 0;
  std::size_t end_ = 0;
  bool ok_ = true;
};

inline StoredReference BitReader::reference() {
  StoredReference reference;
  reference.code = static_cast<std::uint8_t>(bits(4));
  const unsigned count = bits(4);
  if (count > 8) {
    fail();
    return {};
  }
  if (count > 4) reference.number = std::uint64_t{bits((count - 4) * 8)} << 32;
  reference.number |= bits(std::min(count, 4u) * 8);
  return reference;
}

inline std::string BitReader::bytes(std::size_t count) {
  if (holds(count, 8)) return bitString(count * 8);
  fail();
  return {};
}

inline std::string BitReader::bitString(std::size_t count) {
  if (count > left()) {
    fail();
    return {};
  }
  const std::size_t whole = count / 8;
  std::string out((count + 7) / 8, '\0');
  char* to = out.data();
  std::size_t i = 0;
  for (; i + 4 <= whole; i += 4) {
    const std::uint32_t word = __builtin_bswap32(bits(32));
    std::memcpy(to + i, &word, 4);
  }
  for (; i < whole; ++i) to[i] = static_cast<char>(bits(8));
  const unsigned rest = count & 7;
  if (rest != 0) to[whole] = static_cast<char>(bits(rest) << (8 - rest));
  return out;
}

}  // namespace drafting
