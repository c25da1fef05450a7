// CQuillDpData: the tree, its file, and the changes since both were the same. Changes are kept as
// operations, so that they can be put onto a file that another program has written meanwhile.
#include "platform/quill_data.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "embedded/base/file_stamp.h"
#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/common_funcs/quill_file.h"
#include "platform/acad_command.h"

using common_funcs::QuillNode;
using common_funcs::QuillTree;
using common_funcs::QuillValue;

namespace {

enum class Action { set, remove, rename };

struct Change {
  Action action;
  std::wstring key;
  std::wstring newName;  // rename
  QuillValue value;      // set
};

void apply(const Change& change, QuillTree& tree) {
  switch (change.action) {
    case Action::set: tree.set(change.key, change.value); break;
    case Action::remove: tree.remove(change.key); break;
    case Action::rename: tree.rename(change.key, change.newName); break;
  }
}

// A file that is there but can't be read as a tree gives a message.
struct FileReading {
  base::FileStamp stamp;
  std::unique_ptr<QuillTree> tree = std::make_unique<QuillTree>();
  base::Status status;
};

FileReading readFile(const std::filesystem::path& path) {
  FileReading reading;
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return reading;
  reading.stamp = base::stampOf(path);  // before reading: a later change is noticed
  const base::Result<std::string> bytes = base::readFile(path);
  reading.status = bytes.ok() ? common_funcs::readTree(*bytes, *reading.tree) : bytes.status();
  if (!reading.status.ok()) reading.tree = std::make_unique<QuillTree>();
  return reading;
}

void report(const std::wstring& text) { acutPrintf(L"\n%s", text.c_str()); }

// True when nothing stands in the way of a new file any more.
bool moveAside(const std::filesystem::path& path, const base::Status& reason) {
  const base::Result<std::filesystem::path> aside = base::moveDamagedAside(path);
  if (!aside.ok()) {
    report(base::wideFromUtf8(aside.message()));
    return false;
  }
  report(L"文件" + base::wideFromPath(path) + L"无法读取(" + base::wideFromUtf8(reason.message()) +
         L"),已改名为" + base::wideFromPath(aside->filename()) + L".");
  return true;
}

}  // namespace

std::wstring CQuillDpNode::text() const {
  if (bytes || length < 2) return {};
  const std::wstring_view whole(static_cast<const wchar_t*>(data),
                                static_cast<std::size_t>(length) - 1);
  return std::wstring(whole.substr(0, whole.find(L'\0')));
}

struct CQuillDpData::State {
  std::unique_ptr<QuillTree> tree = std::make_unique<QuillTree>();
  std::vector<Change> changes;
  std::filesystem::path path;  // the file that tree without changes is
  base::FileStamp stamp;       // of that file
  bool damaged = false;        // the file couldn't be read

  void change(Change change) {
    apply(change, *tree);
    // A value set twice needs one operation, unless keys went or moved in between.
    for (auto it = changes.rbegin(); it != changes.rend() && it->action == Action::set; ++it) {
      if (change.action != Action::set || it->key != change.key) continue;
      it->value = std::move(change.value);
      return;
    }
    changes.push_back(std::move(change));
  }

  void adopt(FileReading reading) {
    tree = std::move(reading.tree);
    stamp = reading.stamp;
    damaged = !reading.status.ok();
  }

  // Puts the changes onto what the file holds now. False when it must not be overwritten.
  bool meet(FileReading present) {
    if (!present.status.ok()) return moveAside(path, present.status);
    if (!present.stamp.present || present.stamp == stamp) return true;
    for (const Change& change : changes) apply(change, *present.tree);
    adopt(std::move(present));
    return true;
  }

  bool save() {
    const base::Status status = base::saveAtomically(path, common_funcs::writeTree(*tree));
    if (!status.ok()) {
      report(base::wideFromUtf8(status.message()));
      return false;
    }
    changes.clear();
    damaged = false;
    stamp = base::stampOf(path);
    return true;
  }
};

CQuillDpData::CQuillDpData() : state_(std::make_unique<State>()) {}
CQuillDpData::~CQuillDpData() = default;

std::int16_t CQuillDpData::ReadDataFromQdpFile(const wchar_t* path) {
  state_ = std::make_unique<State>();
  state_->path = base::resolvePath(path);
  FileReading reading = readFile(state_->path);
  const bool read = reading.stamp.present && reading.status.ok();
  state_->adopt(std::move(reading));
  return read ? 1 : 0;
}

std::int16_t CQuillDpData::WriteDataToQdpFile(const wchar_t* path) {
  const std::filesystem::path target = base::resolvePath(path);
  if (target == state_->path) {
    if (state_->changes.empty()) return 1;
    const bool same = !state_->damaged && base::stampOf(target) == state_->stamp;
    if (!same && !state_->meet(readFile(target))) return 0;
  } else {
    // Another place: the whole tree goes there, over what stands there if that is a tree.
    state_->path = target;
    const FileReading present = readFile(target);
    if (!present.status.ok() && !moveAside(target, present.status)) return 0;
  }
  return state_->save() ? 1 : 0;
}

const CQuillDpNode* CQuillDpData::GetSubValueFromPathW(std::int16_t mode,
                                                       const wchar_t* path) const {
  static_cast<void>(mode);
  const QuillNode* node = state_->tree->find(path);
  return node ? &node->view : nullptr;
}

namespace {

// True when setting the value would change nothing.
bool holds(const QuillTree& tree, const wchar_t* key, const QuillValue& value) {
  const QuillNode* node = tree.find(key);
  return node && node->value == value;
}

bool legalKey(const wchar_t* key) {
  const std::size_t levels = common_funcs::splitKey(key).size();
  return levels > 0 && levels <= common_funcs::kDeepestKey;
}

}  // namespace

std::int16_t CQuillDpData::SetSubValueW(const wchar_t* path, std::int16_t length,
                                        const wchar_t* data, std::int32_t flag) {
  static_cast<void>(flag);
  if (length < 0 || !legalKey(path)) return 0;
  QuillValue value;
  if (length > 0) {
    value.kind = QuillValue::Kind::text;
    // The last unit is the terminator's place, whatever stands there.
    const std::wstring_view text(data, static_cast<std::size_t>(length) - 1);
    value.text = text.substr(0, text.find(L'\0'));
  }
  if (!holds(*state_->tree, path, value)) {
    state_->change({Action::set, path, {}, std::move(value)});
  }
  return 1;
}

std::int16_t CQuillDpData::SetSubValueForByteW(const wchar_t* path, std::int16_t length,
                                               const std::uint8_t* data) {
  if (length < 0 || !legalKey(path)) return 0;
  QuillValue value;
  if (length > 0) {
    value.kind = QuillValue::Kind::bytes;
    value.bytes.assign(data, data + length);
  }
  if (!holds(*state_->tree, path, value)) {
    state_->change({Action::set, path, {}, std::move(value)});
  }
  return 1;
}

std::int16_t CQuillDpData::DeleteSubKeyW(const wchar_t* path) {
  if (!state_->tree->find(path)) return 0;
  state_->change({Action::remove, path, {}, {}});
  return 1;
}

std::int16_t CQuillDpData::RenameSubKeyW(const wchar_t* path, const wchar_t* newName) {
  const QuillNode* node = state_->tree->find(path);
  const std::wstring_view name = newName;
  if (!node || name.empty() || name.find(L'\\') != name.npos) return 0;
  if (node->name != name) state_->change({Action::rename, path, newName, {}});
  return 1;
}

namespace {

void visitNode(const QuillNode& node, const std::wstring& parent,
               const std::function<void(const std::wstring&, const CQuillDpNode&)>& visitor) {
  const std::wstring key = parent.empty() ? node.name : parent + L"\\" + node.name;
  visitor(key, node.view);
  for (const auto& child : node.children) visitNode(*child, key, visitor);
}

}  // namespace

void CQuillDpData::visit(
    const std::function<void(const std::wstring& path, const CQuillDpNode& node)>& visitor) const {
  for (const auto& node : state_->tree->root().children) visitNode(*node, L"", visitor);
}
