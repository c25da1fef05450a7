// One image of 8 bits a channel, without transparency: header, compressed rows, end. Each row is
// stored as its difference from the row above, which makes the even areas of drawings small.
#include "embedded/drafting/plot/png_file.h"

#include <zlib.h>

#include <new>
#include <string_view>
#include <vector>

namespace drafting {
namespace {

constexpr int kCompression = 6;
constexpr std::size_t kChannels = 3;
constexpr char kFilterUp = 2;

void appendNumber(std::string& out, std::size_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<char>(value >> shift));
}

void appendChunk(std::string& out, std::string_view kind, std::string_view data) {
  appendNumber(out, data.size());
  const std::size_t start = out.size();
  out.append(kind).append(data);
  appendNumber(out,
               crc32_z(0, reinterpret_cast<const Bytef*>(out.data() + start), out.size() - start));
}

// Compresses row by row, so that the picture stands in memory once only.
class RowPacker {
 public:
  explicit RowPacker(std::size_t width) : row_(1 + kChannels * width), above_(row_.size()) {
    if (deflateInit(&stream_, kCompression) != Z_OK) throw std::bad_alloc();
  }
  ~RowPacker() { deflateEnd(&stream_); }
  RowPacker(const RowPacker&) = delete;
  RowPacker& operator=(const RowPacker&) = delete;

  void add(std::span<const std::uint32_t> pixels) {
    row_[0] = kFilterUp;
    std::size_t at = 1;
    for (const std::uint32_t pixel : pixels) {
      for (int shift = 16; shift >= 0; shift -= 8, ++at) {
        const auto value = static_cast<std::uint8_t>(pixel >> shift);
        row_[at] = static_cast<std::uint8_t>(value - above_[at]);
        above_[at] = value;
      }
    }
    pack(row_.data(), row_.size(), Z_NO_FLUSH);
  }
  std::string finish() {
    pack(nullptr, 0, Z_FINISH);
    return std::move(out_);
  }

 private:
  void pack(std::uint8_t* data, std::size_t size, int flush) {
    stream_.next_in = data;
    stream_.avail_in = static_cast<uInt>(size);
    do {
      Bytef piece[1 << 14];
      stream_.next_out = piece;
      stream_.avail_out = sizeof piece;
      deflate(&stream_, flush);
      out_.append(reinterpret_cast<char*>(piece), sizeof piece - stream_.avail_out);
    } while (stream_.avail_out == 0);
  }

  z_stream stream_{};
  std::vector<std::uint8_t> row_, above_;
  std::string out_;
};

}  // namespace

std::string makePng(int width, int height, std::span<const std::uint32_t> pixels) {
  std::string out = "\x89PNG\r\n\x1A\n";
  std::string header;
  appendNumber(header, static_cast<std::size_t>(width));
  appendNumber(header, static_cast<std::size_t>(height));
  header += {'\x08', '\x02', '\0', '\0', '\0'};  // 8 bits, colours, no palette, not interlaced
  appendChunk(out, "IHDR", header);
  const auto row = static_cast<std::size_t>(width);
  RowPacker packer(row);
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    packer.add(pixels.subspan(y * row, row));
  }
  appendChunk(out, "IDAT", packer.finish());
  appendChunk(out, "IEND", {});
  return out;
}

}  // namespace drafting
