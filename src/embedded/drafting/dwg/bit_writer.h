// Writes the bit codes of drawings, highest bit of each byte first, always in their shortest form.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "embedded/base/geometry.h"

namespace drafting {

class BitWriter {
 public:
  void clear() {
    size_ = 0;
    held_ = 0;
    word_ = 0;
  }
  std::size_t position() const { return size_ * 8 + held_; }  // bits written

  // The lowest `count` bits of `value`, up to 32.
  void bits(std::uint32_t value, unsigned count) {
    const std::uint64_t mask = (std::uint64_t{1} << count) - 1;
    word_ = word_ << count | (value & mask);
    held_ += count;
    if (held_ < 32) return;
    held_ -= 32;
    const std::uint32_t full = __builtin_bswap32(static_cast<std::uint32_t>(word_ >> held_));
    reserve();
    std::memcpy(buffer_.data() + size_, &full, 4);
    size_ += 4;
  }
  void bit(bool value) { bits(value, 1); }

  void rawByte(unsigned value) { bits(value, 8); }
  void rawShort(std::uint16_t value) {
    bits(static_cast<std::uint32_t>(value >> 8 | value << 8), 16);
  }
  void rawLong(std::uint32_t value) { bits(__builtin_bswap32(value), 32); }
  void rawReal(double value) { bits64(__builtin_bswap64(std::bit_cast<std::uint64_t>(value))); }

  void shortInteger(std::uint16_t value) {  // BS
    if (value == 0) return bits(2, 2);
    if (value == 256) return bits(3, 2);
    if (value < 256) return bits(1u << 8 | value, 10);
    bits(0, 2);
    rawShort(value);
  }
  void longInteger(std::uint32_t value) {  // BL
    if (value == 0) return bits(2, 2);
    if (value < 256) return bits(1u << 8 | value, 10);
    bits(0, 2);
    rawLong(value);
  }
  void real(double value) {  // BD
    const auto word = std::bit_cast<std::uint64_t>(value);
    if (word == 0) return bits(2, 2);
    if (word == std::bit_cast<std::uint64_t>(1.0)) return bits(1, 2);
    bits(0, 2);
    rawReal(value);
  }
  void realAgainst(double value, double expected);  // DD
  void thickness(double value) {
    const bool none = std::bit_cast<std::uint64_t>(value) == 0;
    bit(none);
    if (!none) real(value);
  }
  void extrusion(base::Point3 value) {
    const bool usual = value == base::Point3{0, 0, 1};
    bit(usual);
    if (!usual) point(value);
  }
  void point(base::Point3 value) {
    real(value.x);
    real(value.y);
    real(value.z);
  }
  void flat(base::Point2 value) {
    rawReal(value.x);
    rawReal(value.y);
  }
  void reference(unsigned code, std::uint64_t handle) {
    const unsigned count = (static_cast<unsigned>(std::bit_width(handle)) + 7) / 8;
    bits(code << 4 | count, 8);
    if (count > 4) bits(static_cast<std::uint32_t>(handle >> 32), (count - 4) * 8);
    if (count > 0) bits(static_cast<std::uint32_t>(handle), (count < 4 ? count : 4) * 8);
  }
  void bytes(std::string_view value) { bitString(value, value.size() * 8); }
  // The first `count` bits of `value`.
  void bitString(std::string_view value, std::size_t count);
  void append(BitWriter& other) {  // finishes the other one
    const std::size_t count = other.position();
    bitString(other.finish(), count);
  }
  // Overwrites the 32 bits of an RL written at bit `at`; finish() must have been called.
  void patchRawLong(std::size_t at, std::uint32_t value);
  // Fills the last byte up with zeros. The bytes stay good until the next call; only patchRawLong
  // and clear may follow.
  std::string_view finish();

 private:
  void reserve() {
    if (size_ + 4 > buffer_.size()) buffer_.resize(buffer_.size() * 2 + 256);
  }
  void bits64(std::uint64_t value) {
    bits(static_cast<std::uint32_t>(value >> 32), 32);
    bits(static_cast<std::uint32_t>(value), 32);
  }

  std::vector<unsigned char> buffer_;
  std::size_t size_ = 0;  // bytes stored
  unsigned held_ = 0;     // bits in word_ not yet stored, below 32
  std::uint64_t word_ = 0;
};

inline void BitWriter::realAgainst(double value, double expected) {
  const auto word = std::bit_cast<std::uint64_t>(value);
  const std::uint64_t change = word ^ std::bit_cast<std::uint64_t>(expected);
  if (change == 0) return bits(0, 2);
  if (change >> 48 != 0) {
    bits(3, 2);
    return rawReal(value);
  }
  bits(change >> 32 != 0 ? 2 : 1, 2);
  if (change >> 32 != 0) rawShort(static_cast<std::uint16_t>(word >> 32));
  rawLong(static_cast<std::uint32_t>(word));
}

inline void BitWriter::bitString(std::string_view value, std::size_t count) {
  std::size_t i = 0;
  for (; i * 8 + 32 <= count; i += 4) {
    std::uint32_t word;
    std::memcpy(&word, value.data() + i, 4);
    bits(__builtin_bswap32(word), 32);
  }
  for (; i * 8 + 8 <= count; ++i) bits(static_cast<unsigned char>(value[i]), 8);
  const unsigned rest = count % 8;
  if (rest != 0)
    bits(static_cast<unsigned>(static_cast<unsigned char>(value[i])) >> (8 - rest), rest);
}

inline std::string_view BitWriter::finish() {
  if (held_ % 8 != 0) bits(0, 8 - held_ % 8);
  reserve();
  for (; held_ > 0; ++size_) {
    held_ -= 8;
    buffer_[size_] = static_cast<unsigned char>(word_ >> held_);
  }
  return {reinterpret_cast<const char*>(buffer_.data()), size_};
}

inline void BitWriter::patchRawLong(std::size_t at, std::uint32_t value) {
  const std::uint64_t moved = std::uint64_t{__builtin_bswap32(value)} << (32 - at % 8);
  const std::uint64_t mask = std::uint64_t{0xFFFFFFFF} << (32 - at % 8);
  for (unsigned i = 0; i < 5 && at / 8 + i < size_; ++i) {
    const unsigned shift = (7 - i) * 8;
    auto& byte = buffer_[at / 8 + i];
    byte = static_cast<unsigned char>((byte & ~(mask >> shift)) | moved >> shift);
  }
}

}  // namespace drafting
