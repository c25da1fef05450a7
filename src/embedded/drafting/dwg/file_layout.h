// What a DWG R2000 file is made of besides objects (frozen): locators, sentinels, sizes.
//
//   file header        97 bytes with six locators
//   auxiliary header   123 bytes
//   preview, header variables, classes     each between sentinels
//   a gap of 512 bytes, the objects, the object map
//   free space         53 bytes
//   second header      between sentinels
//   template           4 bytes
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace drafting {

inline constexpr std::string_view kDwgVersion = "AC1015";
inline constexpr std::uint8_t kMaintenance = 6;      // of the format
inline constexpr std::uint8_t kProgramVersion = 23;  // of the program that saved

inline constexpr std::size_t kFileHeaderSize = 97;
inline constexpr std::size_t kAuxiliarySize = 123;
inline constexpr std::size_t kFreeSpaceSize = 53;
inline constexpr std::size_t kGapSize = 512;
inline constexpr std::size_t kSentinelSize = 16;
inline constexpr std::size_t kMapChunkLimit = 2032;  // of a chunk with its length, without checksum
inline constexpr std::size_t kMapChunkAccepted = 2040;

enum SectionNumber : std::uint8_t {
  kSectionHeader,
  kSectionClasses,
  kSectionMap,
  kSectionFreeSpace,
  kSectionTemplate,
  kSectionAuxiliary,
};
inline constexpr std::size_t kSectionCount = 6;

struct Locator {
  std::uint32_t address = 0;
  std::uint32_t size = 0;
};

inline constexpr std::string_view kHeaderSentinel{
    "\xCF\x7B\x1F\x23\xFD\xDE\x38\xA9\x5F\x7C\x68\xB8\x4E\x6D\x33\x5F", kSentinelSize};
inline constexpr std::string_view kClassesSentinel{
    "\x8D\xA1\xC4\xB8\xC4\xA9\xF8\xC5\xC0\xDC\xF4\x5F\xE7\xCF\xB6\x8A", kSentinelSize};
inline constexpr std::string_view kSecondHeaderSentinel{
    "\xD4\x7B\x21\xCE\x28\x93\x9F\xBF\x53\x24\x40\x09\x12\x3C\xAA\x01", kSentinelSize};
inline constexpr std::string_view kPreviewSentinel{
    "\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B", kSentinelSize};
inline constexpr std::string_view kFileHeaderEnd{
    "\x95\xA0\x4E\x28\x99\x82\x1A\xE5\x5E\x41\xE0\x5F\x9D\x3A\x4D\x00", kSentinelSize};

// A section ends with its begin sentinel, every bit inverted.
inline std::string endSentinel(std::string_view begin) {
  std::string end(begin);
  for (char& c : end) c = static_cast<char>(~c);
  return end;
}

// Numbers of whole bytes, low byte first.
inline void putLow(std::string& out, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i, value >>= 8) out += static_cast<char>(value);
}
inline std::uint64_t getLow(std::string_view bytes, std::size_t at, unsigned count) {
  std::uint64_t value = 0;
  for (unsigned i = count; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return value;
}

}  // namespace drafting
