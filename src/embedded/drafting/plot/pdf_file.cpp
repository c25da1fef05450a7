// The file around the pages. Objects: 1 catalog, 2 page tree, 3 font, 4 its description for
// Chinese, 5 its measures, 6 its way back to characters; then for each page the page and its
// content.
#include <zlib.h>

#include <stdexcept>

#include "embedded/drafting/plot/number_text.h"
#include "embedded/drafting/plot/pdf_canvas.h"

namespace drafting {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr std::size_t kFirstPage = 7;
constexpr int kCompression = 6;

std::string compressed(const std::string& content) {
  uLongf length = compressBound(static_cast<uLong>(content.size()));
  std::string out(length, '\0');
  const int result = compress2(reinterpret_cast<Bytef*>(out.data()), &length,
                               reinterpret_cast<const Bytef*>(content.data()),
                               static_cast<uLong>(content.size()), kCompression);
  if (result != Z_OK) throw std::bad_alloc();
  out.resize(length);
  return out;
}

// Codes are the characters' own numbers, so the way back is the identity. A range may not cross
// from one first byte to the next.
std::string characterMap() {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string out =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
      "/CMapName /Vornik-UCS2 def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
  constexpr int kMostInBlock = 100;
  for (int first = 0; first < 256; first += kMostInBlock) {
    const int last = std::min(first + kMostInBlock, 256);
    out += std::to_string(last - first) + " beginbfrange\n";
    for (int i = first; i < last; ++i) {
      const std::string high{kDigits[i >> 4], kDigits[i & 15]};
      out.append("<").append(high).append("00> <").append(high).append("FF> <");
      out.append(high).append("00>\n");
    }
    out += "endbfrange\n";
  }
  return out + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

class PdfFile {
 public:
  std::string run(std::vector<PdfCanvas> pages) {
    out_ = "%PDF-1.5\n%\xE2\xE3\xCF\xD3\n";
    std::string kids;
    for (std::size_t i = 0; i < pages.size(); ++i) {
      kids += std::to_string(kFirstPage + 2 * i) + " 0 R ";
    }
    object("<< /Type /Catalog /Pages 2 0 R >>");
    object("<< /Type /Pages /Kids [ " + kids + "] /Count " + std::to_string(pages.size()) + " >>");
    addFont();
    for (PdfCanvas& page : pages) addPage(page);
    finish();
    return std::move(out_);
  }

 private:
  void object(const std::string& content) {
    offsets_.push_back(out_.size());
    out_ += std::to_string(offsets_.size()) + " 0 obj\n" + content + "\nendobj\n";
  }

  void stream(const std::string& content) {
    const std::string data = compressed(content);
    object("<< /Length " + std::to_string(data.size()) + " /Filter /FlateDecode >>\nstream\n" +
           data + "\nendstream");
  }

  void addFont() {
    object(
        "<< /Type /Font /Subtype /Type0 /BaseFont /STSong-Light-UniGB-UCS2-H "
        "/Encoding /UniGB-UCS2-H /DescendantFonts [ 4 0 R ] /ToUnicode 6 0 R >>");
    object(
        "<< /Type /Font /Subtype /CIDFontType0 /BaseFont /STSong-Light /CIDSystemInfo "
        "<< /Registry (Adobe) /Ordering (GB1) /Supplement 4 >> /FontDescriptor 5 0 R "
        "/DW 1000 /W [ 1 95 500 814 939 500 ] >>");
    object(
        "<< /Type /FontDescriptor /FontName /STSong-Light /Flags 6 /FontBBox [ -25 -254 1000 880 ] "
        "/ItalicAngle 0 /Ascent 880 /Descent -120 /CapHeight 880 /StemV 93 >>");
    stream(characterMap());
  }

  void addPage(PdfCanvas& page) {
    std::string box = "[ 0 0 ";
    appendNumber(box, page.width() * kPointsPerMillimetre);
    box += ' ';
    appendNumber(box, page.height() * kPointsPerMillimetre);
    object("<< /Type /Page /Parent 2 0 R /MediaBox " + box +
           " ] /Resources << /Font << /F1 3 0 R >> >> /Contents " +
           std::to_string(offsets_.size() + 2) + " 0 R >>");
    stream(page.finish());
  }

  void finish() {
    const std::size_t start = out_.size();
    const std::string count = std::to_string(offsets_.size() + 1);
    out_ += "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const std::size_t offset : offsets_) {
      const std::string digits = std::to_string(offset);
      out_ += std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
    }
    out_ += "trailer\n<< /Size " + count + " /Root 1 0 R >>\nstartxref\n" + std::to_string(start) +
            "\n%%EOF\n";
  }

  std::string out_;
  std::vector<std::size_t> offsets_;
};

}  // namespace

std::string makePdf(std::vector<PdfCanvas> pages) { return PdfFile().run(std::move(pages)); }

}  // namespace drafting
