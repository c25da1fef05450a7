// CQuillDpData: keys and values, and what happens to the file.
#include "platform/quill_data.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <random>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "support/temp_folder.h"
#include "support/transcript.h"

namespace {

namespace fs = std::filesystem;
using test::takeTranscript;

class QuillData : public testing::Test {
 protected:
  QuillData() { takeTranscript(); }
  ~QuillData() override { base::setSaveHook(nullptr); }

  static void set(CQuillDpData& tree, const wchar_t* key, const std::wstring& text) {
    EXPECT_EQ(tree.SetSubValueW(key, static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0),
              1);
  }
  static std::wstring get(const CQuillDpData& tree, const wchar_t* key) {
    const CQuillDpNode* node = tree.GetSubValueFromPathW(0, key);
    return !node ? L"(none)" : node->length == 0 ? L"(no value)" : node->text();
  }
  static int lengthOf(const CQuillDpData& tree, const wchar_t* key) {
    const CQuillDpNode* node = tree.GetSubValueFromPathW(0, key);
    return node ? node->length : -1;
  }
  static std::wstring keysOf(const CQuillDpData& tree) {
    std::wstring keys;
    tree.visit([&](const std::wstring& key, const CQuillDpNode&) { keys += key + L","; });
    return keys;
  }
  int read(CQuillDpData& tree) { return tree.ReadDataFromQdpFile(wide().c_str()); }
  int write(CQuillDpData& tree) { return tree.WriteDataToQdpFile(wide().c_str()); }
  std::wstring wide() const { return base::wideFromPath(path_); }
  std::wstring inFile(const wchar_t* key) {
    CQuillDpData tree;
    read(tree);
    return get(tree, key);
  }

  test::TempFolder folder_;
  fs::path path_ = folder_ / "zhllib.qdp";
  CQuillDpData tree_;
};

TEST_F(QuillData, SettingMakesEveryLevel) {
  set(tree_, L"a\\b\\c", L"x");
  EXPECT_EQ(get(tree_, L"a\\b\\c"), L"x");
  EXPECT_EQ(get(tree_, L"a\\b"), L"(no value)");
  EXPECT_EQ(get(tree_, L"a\\c"), L"(none)");
  EXPECT_EQ(keysOf(tree_), L"a,a\\b,a\\b\\c,");
}

TEST_F(QuillData, InnerNodesCarryValues) {
  set(tree_, L"块\\0", L"x");
  set(tree_, L"块", L"2");
  EXPECT_EQ(get(tree_, L"块"), L"2");
  EXPECT_EQ(get(tree_, L"块\\0"), L"x");
}

TEST_F(QuillData, LengthCountsTheTerminator) {
  set(tree_, L"a", L"");
  EXPECT_EQ(lengthOf(tree_, L"a"), 1);
  set(tree_, L"a", L"xy");
  EXPECT_EQ(lengthOf(tree_, L"a"), 3);
  tree_.SetSubValueW(L"a", 0, L"", 0);
  EXPECT_EQ(lengthOf(tree_, L"a"), 0);
  tree_.SetSubValueW(L"a", 1, L" ", 0);  // the blank stands where the terminator belongs
  EXPECT_EQ(lengthOf(tree_, L"a"), 1);
  EXPECT_EQ(get(tree_, L"a"), L"");
}

TEST_F(QuillData, LongestText) {
  const std::wstring longest(32766, L'x');
  set(tree_, L"a", longest);
  EXPECT_EQ(lengthOf(tree_, L"a"), 32767);
  write(tree_);
  EXPECT_EQ(inFile(L"a"), longest);
}

TEST_F(QuillData, SeveralBackslashesCountAsOne) {
  set(tree_, L"当前选择\\\\块名", L"x");
  EXPECT_EQ(get(tree_, L"当前选择\\块名"), L"x");
  EXPECT_EQ(get(tree_, L"\\当前选择\\\\\\块名\\"), L"x");
}

TEST_F(QuillData, CaseCounts) {
  set(tree_, L"a", L"small");
  set(tree_, L"A", L"large");
  EXPECT_EQ(get(tree_, L"a"), L"small");
}

TEST_F(QuillData, BadArgumentsAreRefused) {
  EXPECT_EQ(tree_.SetSubValueW(L"", 2, L"x", 0), 0);
  EXPECT_EQ(tree_.SetSubValueW(L"\\", 2, L"x", 0), 0);
  EXPECT_EQ(tree_.SetSubValueW(L"a", -1, L"x", 0), 0);
  EXPECT_EQ(tree_.SetSubValueForByteW(L"", 0, nullptr), 0);
  EXPECT_EQ(tree_.GetSubValueFromPathW(0, L""), nullptr);
  EXPECT_EQ(tree_.DeleteSubKeyW(L"a"), 0);
  EXPECT_EQ(tree_.RenameSubKeyW(L"a", L"b"), 0);
  EXPECT_EQ(keysOf(tree_), L"");
}

TEST_F(QuillData, BytesAreKept) {
  const std::uint8_t bytes[] = {0, 1, 255};
  EXPECT_EQ(tree_.SetSubValueForByteW(L"a", 3, bytes), 1);
  tree_.SetSubValueForByteW(L"b", 0, bytes);
  write(tree_);
  CQuillDpData again;
  EXPECT_EQ(read(again), 1);
  const CQuillDpNode* node = again.GetSubValueFromPathW(0, L"a");
  ASSERT_EQ(node->length, 3);
  EXPECT_EQ(std::memcmp(node->data, bytes, 3), 0);
  EXPECT_EQ(node->text(), L"");
  EXPECT_EQ(lengthOf(again, L"b"), 0);
}

TEST_F(QuillData, DeletingTakesEverythingBelow) {
  set(tree_, L"a\\b\\c", L"x");
  set(tree_, L"a\\d", L"y");
  EXPECT_EQ(tree_.DeleteSubKeyW(L"a\\b"), 1);
  EXPECT_EQ(keysOf(tree_), L"a,a\\d,");
}

TEST_F(QuillData, RenamingKeepsValueChildrenAndPlace) {
  set(tree_, L"a\\b", L"x");
  set(tree_, L"a\\b\\c", L"y");
  set(tree_, L"a\\z", L"z");
  EXPECT_EQ(tree_.RenameSubKeyW(L"a\\b", L"n"), 1);
  EXPECT_EQ(get(tree_, L"a\\n"), L"x");
  EXPECT_EQ(keysOf(tree_), L"a,a\\n,a\\n\\c,a\\z,");
  EXPECT_EQ(tree_.RenameSubKeyW(L"a\\n", L"n"), 1);
  EXPECT_EQ(tree_.RenameSubKeyW(L"a\\n", L"z"), 1);  // replaces the other
  EXPECT_EQ(keysOf(tree_), L"a,a\\z,a\\z\\c,");
  EXPECT_EQ(get(tree_, L"a\\z"), L"x");
  EXPECT_EQ(tree_.RenameSubKeyW(L"a\\z", L""), 0);
  EXPECT_EQ(tree_.RenameSubKeyW(L"a\\z", L"p\\q"), 0);
}

TEST_F(QuillData, ManyKeysAreFound) {
  for (int i = 0; i < 200; ++i) set(tree_, (L"k\\" + std::to_wstring(i)).c_str(), L"x");
  for (int i = 0; i < 200; i += 2) tree_.DeleteSubKeyW((L"k\\" + std::to_wstring(i)).c_str());
  EXPECT_EQ(tree_.RenameSubKeyW(L"k\\1", L"one"), 1);
  EXPECT_EQ(tree_.RenameSubKeyW(L"k\\3", L"5"), 1);
  EXPECT_EQ(get(tree_, L"k\\one"), L"x");
  EXPECT_EQ(get(tree_, L"k\\1"), L"(none)");
  EXPECT_EQ(get(tree_, L"k\\2"), L"(none)");
  EXPECT_EQ(get(tree_, L"k\\5"), L"x");
}

// The tree against a plain map over random operations, saved and read now and then.
TEST_F(QuillData, AgreesWithAMapOverRandomOperations) {
  std::map<std::wstring, std::wstring> model;
  std::mt19937 random(7);
  for (int round = 0; round < 4000; ++round) {
    const std::wstring key = L"k" + std::to_wstring(random() % 40);
    const std::wstring path = L"top\\" + key;
    switch (random() % 4) {
      case 0:
      case 1:
        model[key] = std::to_wstring(round);
        set(tree_, path.c_str(), model[key]);
        break;
      case 2:
        EXPECT_EQ(tree_.DeleteSubKeyW(path.c_str()), static_cast<int>(model.erase(key)));
        break;
      default: {
        const std::wstring other = L"k" + std::to_wstring(random() % 40);
        EXPECT_EQ(tree_.RenameSubKeyW(path.c_str(), other.c_str()), model.count(key) ? 1 : 0);
        if (!model.count(key)) break;
        const std::wstring value = model[key];
        model.erase(key);
        model[other] = value;
        break;
      }
    }
    if (round % 500 == 499) {
      ASSERT_EQ(write(tree_), 1);
      ASSERT_EQ(read(tree_), 1);
    }
  }
  for (int i = 0; i < 40; ++i) {
    const std::wstring key = L"k" + std::to_wstring(i);
    EXPECT_EQ(get(tree_, (L"top\\" + key).c_str()), model.count(key) ? model[key] : L"(none)");
  }
}

TEST_F(QuillData, MissingFileIsAnEmptyTree) {
  set(tree_, L"a", L"x");
  EXPECT_EQ(read(tree_), 0);
  EXPECT_EQ(keysOf(tree_), L"");
  EXPECT_EQ(takeTranscript(), L"");
}

TEST_F(QuillData, UnchangedTreeIsNotWritten) {
  EXPECT_EQ(read(tree_), 0);
  EXPECT_EQ(write(tree_), 1);
  EXPECT_FALSE(fs::exists(path_));
  set(tree_, L"a", L"x");
  write(tree_);
  const auto before = fs::last_write_time(path_);
  set(tree_, L"a", L"x");
  EXPECT_EQ(write(tree_), 1);
  EXPECT_EQ(fs::last_write_time(path_), before);
  EXPECT_FALSE(fs::exists(folder_ / "zhllib.qdp.bak"));
}

TEST_F(QuillData, OldFileIsKeptAsBackup) {
  read(tree_);
  set(tree_, L"a", L"1");
  write(tree_);
  set(tree_, L"a", L"2");
  write(tree_);
  EXPECT_EQ(test::bytesOf(folder_ / "zhllib.qdp.bak"), "qdp 1\na\t1\nend 1\n");
}

TEST_F(QuillData, ChangesOfTwoProgramsAddUp) {
  read(tree_);
  set(tree_, L"a", L"1");
  set(tree_, L"gone", L"x");
  set(tree_, L"old", L"y");
  write(tree_);
  CQuillDpData other;
  read(other);
  set(other, L"b", L"theirs");
  set(other, L"a", L"theirs too");
  write(other);
  set(tree_, L"c", L"mine");
  tree_.DeleteSubKeyW(L"gone");
  tree_.RenameSubKeyW(L"old", L"new");
  write(tree_);
  EXPECT_EQ(test::bytesOf(path_), "qdp 1\na\ttheirs too\nnew\ty\nb\ttheirs\nc\tmine\nend 4\n");
  EXPECT_EQ(get(tree_, L"b"), L"theirs");
}

TEST_F(QuillData, OperationsAreMergedInTheirOrder) {
  read(tree_);
  set(tree_, L"k\\a", L"1");
  write(tree_);
  CQuillDpData other;
  read(other);
  set(other, L"z", L"theirs");
  write(other);
  set(tree_, L"k\\a", L"2");
  tree_.RenameSubKeyW(L"k\\a", L"b");
  set(tree_, L"k\\a", L"3");
  set(tree_, L"k\\a", L"4");
  write(tree_);
  EXPECT_EQ(inFile(L"k\\b"), L"2");
  EXPECT_EQ(inFile(L"k\\a"), L"4");
  EXPECT_EQ(inFile(L"z"), L"theirs");
}

TEST_F(QuillData, FileRemovedMeanwhileIsWrittenWhole) {
  read(tree_);
  set(tree_, L"a", L"1");
  write(tree_);
  fs::remove(path_);
  set(tree_, L"b", L"2");
  write(tree_);
  EXPECT_EQ(inFile(L"a"), L"1");
}

TEST_F(QuillData, DamagedFileIsMovedAsideAtTheFirstSaveAndSaidOnce) {
  test::writeBytes(path_, "qdp 1\na\t1\n");
  EXPECT_EQ(read(tree_), 0);
  EXPECT_EQ(keysOf(tree_), L"");
  EXPECT_EQ(write(tree_), 1);  // nothing changed: nothing happens
  EXPECT_EQ(takeTranscript(), L"");
  EXPECT_EQ(test::bytesOf(path_), "qdp 1\na\t1\n");

  set(tree_, L"b", L"2");
  EXPECT_EQ(write(tree_), 1);
  EXPECT_EQ(takeTranscript(), L"\n文件" + wide() +
                                  L"无法读取(line 2, byte 10: ends before its last line),"
                                  L"已改名为zhllib.qdp.damaged-1.");
  EXPECT_EQ(test::bytesOf(folder_ / "zhllib.qdp.damaged-1"), "qdp 1\na\t1\n");
  EXPECT_EQ(inFile(L"b"), L"2");
  set(tree_, L"b", L"3");
  write(tree_);
  EXPECT_EQ(takeTranscript(), L"");
}

TEST_F(QuillData, FileDamagedMeanwhileIsMovedAside) {
  read(tree_);
  set(tree_, L"a", L"1");
  write(tree_);
  test::writeBytes(path_, "rubbish");
  set(tree_, L"b", L"2");
  EXPECT_EQ(write(tree_), 1);
  EXPECT_EQ(test::bytesOf(folder_ / "zhllib.qdp.damaged-1"), "rubbish");
  EXPECT_EQ(inFile(L"a"), L"1");
}

TEST_F(QuillData, FailedSaveKeepsFileAndChanges) {
  read(tree_);
  set(tree_, L"a", L"1");
  write(tree_);
  set(tree_, L"a", L"2");
  base::setSaveHook([](base::SaveStep step) {
    return step == base::SaveStep::flush ? base::Status::failure("disk full") : base::Status();
  });
  EXPECT_EQ(write(tree_), 0);
  EXPECT_NE(takeTranscript().find(L"disk full"), std::wstring::npos);
  EXPECT_EQ(inFile(L"a"), L"1");
  base::setSaveHook(nullptr);
  EXPECT_EQ(write(tree_), 1);
  EXPECT_EQ(inFile(L"a"), L"2");
}

TEST_F(QuillData, CanBeWrittenElsewhere) {
  read(tree_);
  set(tree_, L"a", L"1");
  write(tree_);
  const fs::path other = folder_ / "other.qdp";
  EXPECT_EQ(tree_.WriteDataToQdpFile(base::wideFromPath(other).c_str()), 1);
  EXPECT_EQ(test::bytesOf(other), test::bytesOf(path_));
}

}  // namespace
