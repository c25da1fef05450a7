// Nodes and keys of the tree store.
#include "embedded/common_funcs/quill_tree.h"

#include <algorithm>

namespace common_funcs {

namespace {

constexpr std::size_t kManyChildren = 16;  // from here on an index pays

}  // namespace

void QuillNode::setValue(QuillValue newValue) {
  value = std::move(newValue);
  switch (value.kind) {
    case QuillValue::Kind::text:
      view = {static_cast<std::int16_t>(value.text.size() + 1), value.text.c_str(), false};
      break;
    case QuillValue::Kind::bytes:
      view = {static_cast<std::int16_t>(value.bytes.size()), value.bytes.data(), true};
      break;
    case QuillValue::Kind::none: view = {}; break;
  }
}

QuillNode* QuillNode::child(std::wstring_view childName) const {
  if (index) {
    const auto found = index->find(childName);
    return found == index->end() ? nullptr : found->second;
  }
  const auto found = std::find_if(children.begin(), children.end(),
                                  [&](const auto& node) { return node->name == childName; });
  return found == children.end() ? nullptr : found->get();
}

QuillNode& QuillNode::addChild(std::wstring_view childName) {
  children.push_back(std::make_unique<QuillNode>());
  QuillNode& added = *children.back();
  added.name = childName;
  if (index) {
    index->emplace(added.name, &added);
  } else if (children.size() > kManyChildren) {
    reindex();
  }
  return added;
}

void QuillNode::removeChild(const QuillNode* gone) {
  if (index) index->erase(gone->name);
  std::erase_if(children, [&](const auto& node) { return node.get() == gone; });
}

void QuillNode::reindex() {
  index = std::make_unique<std::unordered_map<std::wstring_view, QuillNode*>>();
  for (const auto& node : children) index->emplace(node->name, node.get());
}

std::vector<std::wstring_view> splitKey(std::wstring_view key) {
  std::vector<std::wstring_view> levels;
  while (!key.empty()) {
    const std::size_t end = std::min(key.find(L'\\'), key.size());
    if (end > 0) levels.push_back(key.substr(0, end));
    key.remove_prefix(std::min(end + 1, key.size()));
  }
  return levels;
}

const QuillNode* QuillTree::find(std::wstring_view key) const {
  const auto levels = splitKey(key);
  if (levels.empty()) return nullptr;
  const QuillNode* node = &root_;
  for (const std::wstring_view level : levels) {
    node = node->child(level);
    if (!node) return nullptr;
  }
  return node;
}

QuillNode* QuillTree::findParent(const std::vector<std::wstring_view>& levels) {
  QuillNode* node = &root_;
  for (std::size_t i = 0; node && i + 1 < levels.size(); ++i) node = node->child(levels[i]);
  return node;
}

bool QuillTree::set(std::wstring_view key, QuillValue value) {
  const auto levels = splitKey(key);
  if (levels.empty() || levels.size() > kDeepestKey) return false;
  QuillNode* node = &root_;
  for (const std::wstring_view level : levels) {
    QuillNode* next = node->child(level);
    node = next ? next : &node->addChild(level);
  }
  node->setValue(std::move(value));
  return true;
}

bool QuillTree::remove(std::wstring_view key) {
  const auto levels = splitKey(key);
  QuillNode* parent = levels.empty() ? nullptr : findParent(levels);
  const QuillNode* node = parent ? parent->child(levels.back()) : nullptr;
  if (!node) return false;
  parent->removeChild(node);
  return true;
}

bool QuillTree::rename(std::wstring_view key, std::wstring_view newName) {
  const auto levels = splitKey(key);
  if (levels.empty() || newName.empty() || newName.find(L'\\') != newName.npos) return false;
  QuillNode* parent = findParent(levels);
  QuillNode* node = parent ? parent->child(levels.back()) : nullptr;
  if (!node) return false;
  const QuillNode* other = parent->child(newName);
  if (other == node) return true;
  if (other) parent->removeChild(other);
  if (parent->index) parent->index->erase(node->name);
  node->name = newName;
  if (parent->index) parent->index->emplace(node->name, node);
  return true;
}

}  // namespace common_funcs
