#include "embedded/base/crc.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

// The definition, a bit at a time.
std::uint16_t slowCrc(const std::string& bytes, std::uint16_t crc) {
  for (const char c : bytes) {
    crc = static_cast<std::uint16_t>(crc ^ static_cast<unsigned char>(c));
    for (int bit = 0; bit < 8; ++bit)
      crc = static_cast<std::uint16_t>((crc & 1) != 0 ? (crc >> 1) ^ 0xA001 : crc >> 1);
  }
  return crc;
}

TEST(Crc16, KnownValueOfTheNineDigits) {
  EXPECT_EQ(base::crc16("123456789", 9, 0), 0xBB3D);
  EXPECT_EQ(base::crc16("123456789", 9, 0xFFFF), 0x4B37);
}

TEST(Crc16, NoBytesGiveTheSeed) { EXPECT_EQ(base::crc16("", 0), 0xC0C1); }

TEST(Crc16, AgreesWithTheDefinitionAtEveryLength) {
  std::mt19937 random(7);
  std::string bytes;
  for (int length = 0; length < 70; ++length) {
    EXPECT_EQ(base::crc16(bytes.data(), bytes.size()), slowCrc(bytes, 0xC0C1)) << length;
    bytes += static_cast<char>(random());
  }
}

TEST(Crc16, ContinuesFromAnEarlierPiece) {
  const std::string whole = "header and data of one section";
  const std::uint16_t first = base::crc16(whole.data(), 11);
  EXPECT_EQ(base::crc16(whole.data() + 11, whole.size() - 11, first),
            base::crc16(whole.data(), whole.size()));
}

}  // namespace
