// The files of the fonts; what they hold is made elsewhere.
#include "samples/generator/fonts.h"

#include <zlib.h>

#include <iterator>

#include "embedded/base/files.h"
#include "embedded/drafting/fonts/built_in_font.h"

namespace samples {
namespace {

// ARPHICPL.TXT as gzip has it.
constexpr unsigned char kArphicLicence[] = {
#include "arphic_licence.inc"
};

constexpr std::string_view kNotice = R"(The shape fonts of this folder

english.wzk
  Latin letters, digits and signs of drawings; a unifont. Compiled from the Hershey Fonts, Roman
  simplex, with signs added.

  The Hershey Fonts were originally created by Dr. A. V. Hershey while working at the U. S. National
  Bureau of Standards. The format of the font data was originally created by James Hurt, Cognition,
  Inc., 900 Technology Park Drive, Billerica, MA 01821 (mit-eddie!ci-dandelion!hurt).

chinese.wzk
  Chinese characters in code page 936; a big font. It is changed from AR PL fonts, Copyright (C) 1999
  Arphic Technology Co., Ltd., by way of Make Me a Hanzi and hanzi-writer-data 2.0.1:

  Changed on 2026-11-21: only the medians of the strokes of 3,758 characters are kept, thinned and
  brought to a grid of 64, and compiled as the shapes of a pen without width; punctuation, signs and
  full-width forms were added.

  The font is free under the Arphic Public License; ARPHICPL.TXT beside it is the licence. Whoever
  gives the font away gives that file and this notice along. In a form that can be changed it is
  part of the source of the program that wrote this folder.
)";

base::Result<std::string> licenceText() {
  constexpr int kGzip = 16 + MAX_WBITS;
  constexpr std::size_t kMost = 1 << 16;
  std::string text(kMost, '\0');
  z_stream stream{};
  if (inflateInit2(&stream, kGzip) != Z_OK) return base::Status::failure("zlib can't be started");
  stream.next_in = const_cast<unsigned char*>(kArphicLicence);
  stream.avail_in = static_cast<uInt>(std::size(kArphicLicence));
  stream.next_out = reinterpret_cast<unsigned char*>(text.data());
  stream.avail_out = static_cast<uInt>(text.size());
  const int result = inflate(&stream, Z_FINISH);
  text.resize(stream.total_out);
  inflateEnd(&stream);
  if (result != Z_STREAM_END) return base::Status::failure("the fonts' licence is damaged");
  return text;
}

}  // namespace

base::Status installFonts(const std::filesystem::path& folder) {
  const base::Result<std::string> licence = licenceText();
  if (!licence.ok()) return licence.status();
  const struct {
    const char* name;
    std::string_view bytes;
  } files[] = {{"ARPHICPL.TXT", *licence},
               {"fonts.txt", kNotice},
               {"english.wzk", drafting::builtInLatinFile()},
               {"chinese.wzk", drafting::builtInBigFontFile()}};
  for (const auto& file : files) {
    const base::Status status = base::saveAtomically(folder / file.name, file.bytes);
    if (!status.ok()) return status;
  }
  return {};
}

}  // namespace samples
