// Numbers that the reader and the writer of slides share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace slide_store {

inline constexpr std::string_view kSlideTitle("AutoCAD Slide\x0D\x0A\x1A\0", 17);
inline constexpr std::size_t kHeaderSize1 = 34;
inline constexpr std::size_t kHeaderSize2 = 31;
inline constexpr std::uint16_t kByteOrderTest = 0x1234;
inline constexpr double kAspectUnit = 1e7;

// The kinds of records; every kind below kLastVector is a vector.
inline constexpr std::uint8_t kLastVector = 0x7F;
inline constexpr std::uint8_t kOffsetVector = 0xFB;
inline constexpr std::uint8_t kEndOfSlide = 0xFC;
inline constexpr std::uint8_t kSolidFill = 0xFD;
inline constexpr std::uint8_t kCommonEndpoint = 0xFE;
inline constexpr std::uint8_t kNewColour = 0xFF;

inline constexpr std::size_t kMostCorners = 10;  // of one run of solid fill records

}  // namespace slide_store
