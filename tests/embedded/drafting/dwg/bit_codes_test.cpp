#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

#include "embedded/drafting/dwg/bit_reader.h"
#include "embedded/drafting/dwg/bit_writer.h"

namespace drafting {
namespace {

// The bits that `write` makes, as text.
std::string bitsOf(const std::function<void(BitWriter&)>& write) {
  BitWriter w;
  write(w);
  const std::size_t count = w.position();
  const std::string bytes(w.finish());
  std::string out;
  for (std::size_t i = 0; i < count; ++i) {
    out += (static_cast<unsigned char>(bytes[i / 8]) >> (7 - i % 8) & 1) != 0 ? '1' : '0';
  }
  return out;
}

std::string repeated(char c, std::size_t n) { return std::string(n, c); }

TEST(BitWriter, ShortIntegersTakeTheirShortestForm) {
  const auto bits = [](int v) {
    return bitsOf([v](BitWriter& w) { w.shortInteger(static_cast<std::uint16_t>(v)); });
  };
  EXPECT_EQ(bits(0), "10");
  EXPECT_EQ(bits(256), "11");
  EXPECT_EQ(bits(1), "0100000001");
  EXPECT_EQ(bits(255), "0111111111");
  EXPECT_EQ(bits(257), "000000000100000001");
  EXPECT_EQ(bits(-1), "00" + repeated('1', 16));
}

TEST(BitWriter, LongIntegersTakeTheirShortestForm) {
  const auto bits = [](unsigned v) { return bitsOf([v](BitWriter& w) { w.longInteger(v); }); };
  EXPECT_EQ(bits(0), "10");
  EXPECT_EQ(bits(255), "0111111111");
  EXPECT_EQ(bits(256),
            "00"
            "00000000"
            "00000001" +
                repeated('0', 16));
  EXPECT_EQ(bits(0xFFFFFFFF), "00" + repeated('1', 32));
}

TEST(BitWriter, RealsAreShortForTheExactBitsOnly) {
  const auto bits = [](double v) { return bitsOf([v](BitWriter& w) { w.real(v); }); };
  EXPECT_EQ(bits(0.0), "10");
  EXPECT_EQ(bits(1.0), "01");
  EXPECT_EQ(bits(-0.0), "00" + repeated('0', 56) + "10000000");
  EXPECT_EQ(bits(2.0), "00" + repeated('0', 56) + "01000000");
}

TEST(BitWriter, RealsAgainstADefaultReplaceTheBytesThatDiffer) {
  const auto bits = [](double v, double d) {
    return bitsOf([v, d](BitWriter& w) { w.realAgainst(v, d); });
  };
  const auto withLow = [](std::uint64_t low) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(2.0) | low);
  };
  EXPECT_EQ(bits(2.0, 2.0), "00");
  EXPECT_EQ(bits(withLow(0x80), 2.0),
            "01"
            "10000000" +
                repeated('0', 24));
  // Bytes 4 and 5 come first.
  EXPECT_EQ(bits(withLow(0x0000'0100'0000'0001), 2.0),
            "10"
            "00000000"
            "00000001"
            "00000001" +
                repeated('0', 24));
  EXPECT_EQ(bits(3.0, 2.0).substr(0, 2), "11");
  EXPECT_EQ(bits(-0.0, 0.0).substr(0, 2), "11");
}

TEST(BitWriter, ThicknessAndExtrusionHaveOneBitForTheUsual) {
  EXPECT_EQ(bitsOf([](BitWriter& w) { w.thickness(0); }), "1");
  EXPECT_EQ(bitsOf([](BitWriter& w) { w.thickness(1); }), "001");
  EXPECT_EQ(bitsOf([](BitWriter& w) { w.extrusion({0, 0, 1}); }), "1");
  EXPECT_EQ(bitsOf([](BitWriter& w) { w.extrusion({0, 1, 0}); }), "0100110");
}

TEST(BitWriter, ReferencesHaveNoLeadingZeroBytes) {
  const auto bits = [](unsigned code, std::uint64_t handle) {
    return bitsOf([=](BitWriter& w) { w.reference(code, handle); });
  };
  EXPECT_EQ(bits(5, 0), "01010000");
  EXPECT_EQ(bits(5, 0x10), "0101000100010000");
  EXPECT_EQ(bits(4, 0x102), "010000100000000100000010");
  EXPECT_EQ(bits(4, 0x1'0000'0002).substr(0, 16), "0100010100000001");
}

TEST(BitReader, RelativeReferencesCountFromTheirObject) {
  EXPECT_EQ((StoredReference{6, 0}.resolve(0x20)), 0x21u);
  EXPECT_EQ((StoredReference{8, 0}.resolve(0x20)), 0x1Fu);
  EXPECT_EQ((StoredReference{10, 5}.resolve(0x20)), 0x25u);
  EXPECT_EQ((StoredReference{12, 5}.resolve(0x20)), 0x1Bu);
  EXPECT_EQ((StoredReference{4, 5}.resolve(0x20)), 5u);
}

TEST(BitReader, LongFormsAreTakenToo) {
  const std::string zeros(16, '\0');
  BitReader r(zeros);
  EXPECT_EQ(r.shortInteger(), 0);
  EXPECT_EQ(r.longInteger(), 0u);
  EXPECT_EQ(r.real(), 0.0);
  EXPECT_TRUE(r.ok());
  EXPECT_EQ(r.position(), 18u + 34u + 66u);
}

TEST(BitReader, CodesThatDoNotExistFail) {
  const std::string ones(16, '\xFF');
  BitReader real(ones), integer(ones), reference(ones);
  real.real();
  integer.longInteger();
  reference.reference();
  EXPECT_FALSE(real.ok());
  EXPECT_FALSE(integer.ok());
  EXPECT_FALSE(reference.ok());
}

TEST(BitReader, ReadingPastTheEndGivesZerosAndFails) {
  const std::string bytes("\xFF\xFF", 2);
  for (std::size_t from = 0; from <= 16; ++from) {
    BitReader r(bytes, from);
    EXPECT_EQ(r.rawLong(), 0u);
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(r.left(), 0u);
    EXPECT_EQ(r.bytes(1), "");
    EXPECT_FALSE(r.bit());
  }
  EXPECT_FALSE(BitReader(bytes, 17).ok());
  EXPECT_EQ(BitReader(bytes, 0, 5).left(), 5u);
}

// Any sequence of values at any bit offset reads back as it was written.
TEST(BitCodes, RandomSequencesReadBack) {
  std::mt19937_64 random(1);
  const auto oddReal = [&random] {
    switch (random() % 5) {
      case 0: return 0.0;
      case 1: return 1.0;
      case 2: return -0.0;
      case 3: return static_cast<double>(random() % 1000) / 8;
      default: return std::bit_cast<double>(random() & ~(std::uint64_t{0x7FF} << 52));
    }
  };
  for (int round = 0; round < 200; ++round) {
    BitWriter w;
    std::vector<std::function<void(BitReader&)>> checks;
    for (int i = 0; i < 50; ++i) {
      const std::uint64_t value = random() >> random() % 64;
      const double real = oddReal(), other = oddReal();
      switch (random() % 9) {
        case 0:
          w.bits(static_cast<std::uint32_t>(value & 7), 3);
          checks.push_back([value](BitReader& r) { EXPECT_EQ(r.bits(3), value & 7); });
          break;
        case 1:
          w.shortInteger(static_cast<std::uint16_t>(value));
          checks.push_back([value](BitReader& r) { EXPECT_EQ(r.shortInteger(), value & 0xFFFF); });
          break;
        case 2:
          w.longInteger(static_cast<std::uint32_t>(value));
          checks.push_back(
              [value](BitReader& r) { EXPECT_EQ(r.longInteger(), value & 0xFFFFFFFF); });
          break;
        case 3:
          w.real(real);
          checks.push_back([real](BitReader& r) {
            const double back = r.real();
            EXPECT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(real));
          });
          break;
        case 4:
          w.realAgainst(real, other);
          checks.push_back([real, other](BitReader& r) {
            const double back = r.realAgainst(other);
            EXPECT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(real));
          });
          break;
        case 5:
          w.reference(4, value);
          checks.push_back([value](BitReader& r) { EXPECT_EQ(r.reference().number, value); });
          break;
        case 6:
          w.bytes(std::string(value % 13, 'x'));
          checks.push_back([value](BitReader& r) {
            EXPECT_EQ(r.bytes(value % 13), std::string(value % 13, 'x'));
          });
          break;
        case 7:
          w.rawReal(real);
          checks.push_back([real](BitReader& r) {
            EXPECT_EQ(std::bit_cast<std::uint64_t>(r.rawReal()),
                      std::bit_cast<std::uint64_t>(real));
          });
          break;
        default:
          w.rawShort(static_cast<std::uint16_t>(value));
          checks.push_back([value](BitReader& r) { EXPECT_EQ(r.rawShort(), value & 0xFFFF); });
      }
    }
    const std::size_t count = w.position();
    const std::string bytes(w.finish());
    EXPECT_EQ(bytes.size(), (count + 7) / 8);
    BitReader r(bytes);
    for (const auto& check : checks) check(r);
    EXPECT_TRUE(r.ok());
    EXPECT_EQ(r.position(), count);
  }
}

TEST(BitCodes, RunsOfBitsMoveFromAnyOffsetToAnyOther) {
  const std::string source("\x12\x34\x56\x78\x9A\xBC\xDE\xF0\x0F\xED\xCB", 11);
  for (std::size_t from = 0; from < 16; ++from) {
    for (std::size_t count = 0; from + count <= source.size() * 8; ++count) {
      BitReader r(source, from);
      const std::string run = r.bitString(count);
      BitWriter w;
      w.bits(0, static_cast<unsigned>(from % 8));
      w.bitString(run, count);
      const std::string moved(w.finish());
      BitReader a(source, from), b(moved, from % 8);
      for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(a.bit(), b.bit());
    }
  }
}

TEST(BitWriter, AWrittenLongIsPatchedAtAnyOffset) {
  for (unsigned before = 0; before < 40; ++before) {
    BitWriter w;
    for (unsigned i = 0; i < before; ++i) w.bit(true);
    w.rawLong(0x55555555);
    w.bits(0x7F, 7);
    w.finish();
    w.patchRawLong(before, 0x89ABCDEF);
    const std::string bytes(w.finish());
    BitReader r(bytes);
    for (unsigned i = 0; i < before; ++i) EXPECT_TRUE(r.bit());
    EXPECT_EQ(r.rawLong(), 0x89ABCDEFu);
    EXPECT_EQ(r.bits(7), 0x7Fu);
  }
}

}  // namespace
}  // namespace drafting
