// Reads and writes tree files.
#include "embedded/common_funcs/quill_file.h"

#include <charconv>

#include "embedded/base/text.h"
#include "embedded/common_funcs/base64.h"
#include "embedded/common_funcs/escape.h"

namespace common_funcs {

namespace {

constexpr std::string_view kFirstLine = "qdp 1";
constexpr std::string_view kLastLine = "end ";
constexpr std::string_view kByteMark = "%=";

class TreeWriter {
 public:
  std::string run(const QuillTree& tree) {
    out_ = kFirstLine;
    out_ += '\n';
    std::string key;
    for (const auto& node : tree.root().children) write(*node, key);
    return out_ + std::string(kLastLine) + std::to_string(nodes_) + '\n';
  }

 private:
  void write(const QuillNode& node, std::string& key) {
    const std::size_t parent = key.size();
    if (parent > 0) key += '\\';
    key += base::utf8FromWide(escape(node.name));
    out_ += key;
    writeValue(node.value);
    out_ += '\n';
    ++nodes_;
    for (const auto& child : node.children) write(*child, key);
    key.resize(parent);
  }

  void writeValue(const QuillValue& value) {
    if (value.kind == QuillValue::Kind::none) return;
    out_ += '\t';
    if (value.kind == QuillValue::Kind::text) {
      out_ += base::utf8FromWide(escape(value.text));
    } else {
      out_ += kByteMark;
      out_ += toBase64(value.bytes);
    }
  }

  std::string out_;
  std::size_t nodes_ = 0;
};

class TreeReader {
 public:
  TreeReader(std::string_view bytes, QuillTree& tree) : bytes_(bytes), tree_(tree) {}

  base::Status run() {
    if (!isText()) return base::Status::failure("byte 0: is no UTF-8 text");
    if (!nextLine() || line_ != kFirstLine) return fail("is no tree file");
    while (nextLine()) {
      if (line_.starts_with(kLastLine) && line_.find('\t') == line_.npos && atLastLine()) {
        return readEnd();
      }
      base::Status status = readNode();
      if (!status.ok()) return status;
    }
    return fail("ends before its last line");
  }

 private:
  // Lone surrogates, which a wide text may hold, are no UTF-8 but survive reading and writing.
  bool isText() const {
    return base::isUtf8(bytes_) || base::utf8FromWide(base::wideFromUtf8(bytes_)) == bytes_;
  }

  // False at the end, and for a last line without its end: the file was cut.
  bool nextLine() {
    start_ = next_;
    const std::size_t end = bytes_.find('\n', next_);
    if (end == std::string_view::npos) return false;
    line_ = bytes_.substr(next_, end - next_);
    if (line_.ends_with('\r')) line_.remove_suffix(1);
    next_ = end + 1;
    ++number_;
    return true;
  }

  bool atLastLine() const { return next_ == bytes_.size(); }

  base::Status readEnd() {
    const std::string_view digits = line_.substr(kLastLine.size());
    std::size_t count = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole && count == nodes_ ? base::Status() : fail("gives another number of nodes");
  }

  base::Status readNode() {
    const std::size_t tab = std::min(line_.find('\t'), line_.size());
    const auto levels = splitKey(wide(line_.substr(0, tab)));
    if (levels.empty() || levels.size() > kDeepestKey) return fail("has no usable key");
    const std::wstring name = unescape(levels.back());
    if (name.find(L'\\') != name.npos) return fail("has no usable key");
    QuillNode* parent = &tree_.root();
    for (std::size_t i = 0; parent && i + 1 < levels.size(); ++i) {
      parent = parent->child(unescape(levels[i]));
    }
    if (!parent) return fail("stands before its parent");
    if (parent->child(name)) return fail("repeats a key");
    QuillNode& node = parent->addChild(name);
    ++nodes_;
    return tab < line_.size() ? readValue(node, line_.substr(tab + 1)) : base::Status();
  }

  base::Status readValue(QuillNode& node, std::string_view text) {
    QuillValue value;
    if (text.starts_with(kByteMark)) {
      auto bytes = fromBase64(text.substr(kByteMark.size()));
      if (!bytes || bytes->empty()) return fail("holds no proper bytes");
      value.kind = QuillValue::Kind::bytes;
      value.bytes = std::move(*bytes);
    } else {
      value.kind = QuillValue::Kind::text;
      value.text = unescape(base::wideFromUtf8(text));
    }
    if (value.text.size() >= kLongestValue || value.bytes.size() > kLongestValue) {
      return fail("holds a value that is too long");
    }
    node.setValue(std::move(value));
    return {};
  }

  // The key as wide text, kept alive for the views into it.
  std::wstring_view wide(std::string_view key) { return wideKey_ = base::wideFromUtf8(key); }

  base::Status fail(std::string_view what) const {
    return base::Status::failure("line " + std::to_string(number_) + ", byte " +
                                 std::to_string(start_) + ": " + std::string(what));
  }

  std::string_view bytes_;
  QuillTree& tree_;
  std::string_view line_;
  std::wstring wideKey_;
  std::size_t start_ = 0;
  std::size_t next_ = 0;
  std::size_t number_ = 0;
  std::size_t nodes_ = 0;
};

}  // namespace

std::string writeTree(const QuillTree& tree) { return TreeWriter().run(tree); }

base::Status readTree(std::string_view bytes, QuillTree& tree) {
  return TreeReader(bytes, tree).run();
}

}  // namespace common_funcs
