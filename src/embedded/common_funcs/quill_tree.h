// The tree behind CQuillDpData: nodes in order of insertion, and the look-up by key.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/quill_data.h"

namespace common_funcs {

// Levels of the deepest key; deeper ones are refused.
inline constexpr std::size_t kDeepestKey = 64;
// Units of the longest value, the terminator of a text included.
inline constexpr std::size_t kLongestValue = 32767;

// A node's value: none, a text or bytes.
struct QuillValue {
  enum class Kind : std::uint8_t { none, text, bytes };
  Kind kind = Kind::none;
  std::wstring text;
  std::vector<std::uint8_t> bytes;
  friend bool operator==(const QuillValue&, const QuillValue&) = default;
};

struct QuillNode {
  std::wstring name;
  QuillValue value;
  CQuillDpNode view;  // what callers see of the value
  std::vector<std::unique_ptr<QuillNode>> children;
  // Names to children, once there are many.
  std::unique_ptr<std::unordered_map<std::wstring_view, QuillNode*>> index;

  void setValue(QuillValue newValue);
  QuillNode* child(std::wstring_view childName) const;
  QuillNode& addChild(std::wstring_view childName);
  void removeChild(const QuillNode* gone);
  void reindex();
};

// The levels of a key; empty ones vanish, so that several backslashes count as one.
std::vector<std::wstring_view> splitKey(std::wstring_view key);

class QuillTree {
 public:
  const QuillNode* find(std::wstring_view key) const;
  // True if the key is legal. A missing value makes the node all the same.
  bool set(std::wstring_view key, QuillValue value);
  bool remove(std::wstring_view key);
  // Replaces a sibling of the new name, if there is one.
  bool rename(std::wstring_view key, std::wstring_view newName);

  const QuillNode& root() const { return root_; }
  QuillNode& root() { return root_; }

 private:
  QuillNode* findParent(const std::vector<std::wstring_view>& levels);
  QuillNode root_;
};

}  // namespace common_funcs
