// Tree files: exact bytes, round trips, truncation and damage.
#include "embedded/common_funcs/quill_file.h"

#include <gtest/gtest.h>

#include <random>

#include "embedded/common_funcs/base64.h"
#include "embedded/common_funcs/escape.h"

namespace {

using namespace common_funcs;

QuillValue text(std::wstring value) { return {QuillValue::Kind::text, std::move(value), {}}; }
QuillValue bytes(std::vector<std::uint8_t> value) {
  return {QuillValue::Kind::bytes, {}, std::move(value)};
}

std::string messageOf(const std::string& file) {
  QuillTree tree;
  const base::Status status = readTree(file, tree);
  return status.ok() ? "" : status.message();
}

TEST(TreeFile, WritesANodeALine) {
  QuillTree tree;
  tree.set(L"ZHLSY", text(L"主回路&01\x03"));
  tree.set(L"ZHLSY\\长度", text(L"1"));
  tree.set(L"a\\b", text(L""));
  tree.set(L"块\\0\\Sld", bytes({1, 2, 0xFF, 0}));
  EXPECT_EQ(writeTree(tree),
            "qdp 1\n"
            "ZHLSY\t主回路&01%03\n"
            "ZHLSY\\长度\t1\n"
            "a\n"
            "a\\b\t\n"
            "块\n"
            "块\\0\n"
            "块\\0\\Sld\t%=AQL/AA==\n"
            "end 7\n");
}

TEST(TreeFile, EmptyTree) {
  EXPECT_EQ(writeTree(QuillTree()), "qdp 1\nend 0\n");
  EXPECT_EQ(messageOf("qdp 1\nend 0\n"), "");
}

TEST(TreeFile, EscapesWhatWouldBreakALine) {
  QuillTree tree;
  tree.set(L"a\tb%c\n", text(L"C:\\x\ty\r\n%=\x7F"));
  const std::string file = writeTree(tree);
  EXPECT_EQ(file, "qdp 1\na%09b%25c%0A\tC:\\x%09y%0D%0A%25=%7F\nend 1\n");
  QuillTree again;
  ASSERT_TRUE(readTree(file, again).ok());
  EXPECT_EQ(again.find(L"a\tb%c\n")->value.text, L"C:\\x\ty\r\n%=\x7F");
}

TEST(TreeFile, EmptyTextAndNoValueAreDifferent) {
  QuillTree tree;
  ASSERT_TRUE(readTree("qdp 1\na\nb\t\nend 2\n", tree).ok());
  EXPECT_EQ(tree.find(L"a")->view.length, 0);
  EXPECT_EQ(tree.find(L"b")->view.length, 1);
}

TEST(TreeFile, TakesCarriageReturns) {
  QuillTree tree;
  ASSERT_TRUE(readTree("qdp 1\r\na\tx\r\nend 1\r\n", tree).ok());
  EXPECT_EQ(tree.find(L"a")->value.text, L"x");
}

TEST(TreeFile, KeyThatLooksLikeTheLastLineIsAKey) {
  QuillTree tree;
  tree.set(L"end 1", {});
  tree.set(L"qdp 1", {});
  QuillTree again;
  ASSERT_TRUE(readTree(writeTree(tree), again).ok());
  EXPECT_NE(again.find(L"end 1"), nullptr);
}

TEST(TreeFile, DamageIsNamedWithLineAndByte) {
  EXPECT_EQ(messageOf(""), "line 0, byte 0: is no tree file");
  EXPECT_EQ(messageOf("qdp 2\nend 0\n"), "line 1, byte 0: is no tree file");
  EXPECT_EQ(messageOf("qdp 1\na\tx\n"), "line 2, byte 10: ends before its last line");
  EXPECT_EQ(messageOf("qdp 1\na\tx\nend 1"), "line 2, byte 10: ends before its last line");
  EXPECT_EQ(messageOf("qdp 1\na\nend 2\n"), "line 3, byte 8: gives another number of nodes");
  EXPECT_EQ(messageOf("qdp 1\na\nend 1x\n"), "line 3, byte 8: gives another number of nodes");
  EXPECT_EQ(messageOf("qdp 1\na\na\nend 2\n"), "line 3, byte 8: repeats a key");
  EXPECT_EQ(messageOf("qdp 1\na\\b\nend 1\n"), "line 2, byte 6: stands before its parent");
  EXPECT_EQ(messageOf("qdp 1\n\tx\nend 1\n"), "line 2, byte 6: has no usable key");
  EXPECT_EQ(messageOf("qdp 1\na%5Cb\nend 1\n"), "line 2, byte 6: has no usable key");
  EXPECT_EQ(messageOf("qdp 1\na\t%=AB\nend 1\n"), "line 2, byte 6: holds no proper bytes");
  EXPECT_EQ(messageOf("qdp 1\na\t" + std::string(32767, 'x') + "\nend 1\n"),
            "line 2, byte 6: holds a value that is too long");
  EXPECT_EQ(messageOf("qdp 1\na\t\xFF\nend 1\n"), "byte 0: is no UTF-8 text");
}

TEST(TreeFile, LoneSurrogatesSurvive) {
  std::wstring odd = L"a";
  odd += static_cast<wchar_t>(0xD800);
  QuillTree tree;
  tree.set(L"k", text(odd));
  QuillTree again;
  ASSERT_TRUE(readTree(writeTree(tree), again).ok());
  EXPECT_EQ(again.find(L"k")->value.text, odd);
}

TEST(TreeFile, DeepKeysAreRefused) {
  std::string key = "a";
  std::string file = "qdp 1\n";
  for (int i = 0; i < 65; ++i, key += "\\a") file += key + "\n";
  EXPECT_EQ(messageOf(file + "end 65\n").substr(0, 8), "line 66,");
  QuillTree tree;
  std::wstring deep;
  for (int i = 0; i < 65; ++i) deep += L"a\\";
  EXPECT_FALSE(tree.set(deep, {}));
}

std::string sampleFile() {
  QuillTree tree;
  tree.set(L"ZHLSY", text(L"主回路&01\x03"));
  tree.set(L"ZHLLIB\\主回路&01", text(LR"(("01" "A01" "" 0 0 0 "&&&&"))"));
  tree.set(L"块\\Sld", bytes({1, 2, 3}));
  return writeTree(tree);
}

TEST(TreeFile, EveryTruncationIsKnown) {
  const std::string file = sampleFile();
  for (std::size_t length = 0; length < file.size(); ++length) {
    EXPECT_NE(messageOf(file.substr(0, length)), "") << length;
  }
}

TEST(TreeFile, DamagedBytesDoNoHarm) {
  const std::string file = sampleFile();
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    std::string damaged = file;
    for (int i = 0; i < 2; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
    QuillTree tree;
    if (!readTree(damaged, tree).ok()) continue;
    QuillTree again;
    EXPECT_TRUE(readTree(writeTree(tree), again).ok());
  }
}

TEST(TreeFile, RandomTreesRoundTrip) {
  std::mt19937 random(2);
  for (int round = 0; round < 50; ++round) {
    QuillTree tree;
    for (int i = 0; i < 60; ++i) {
      std::wstring key;
      for (unsigned level = 0; level <= random() % 3; ++level) {
        key += L"\\k" + std::to_wstring(random() % 30);
      }
      switch (random() % 3) {
        case 0: tree.set(key, {}); break;
        case 1:
          tree.set(key, text(std::wstring(random() % 9, static_cast<wchar_t>(random() % 900 + 1))));
          break;
        default: tree.set(key, bytes(std::vector<std::uint8_t>(random() % 9 + 1, 0xA5))); break;
      }
      if (random() % 5 == 0) tree.remove(key);
    }
    QuillTree again;
    const std::string file = writeTree(tree);
    ASSERT_TRUE(readTree(file, again).ok());
    EXPECT_EQ(writeTree(again), file);
  }
}

TEST(Base64, KnownTexts) {
  EXPECT_EQ(toBase64({}), "");
  EXPECT_EQ(toBase64({'f'}), "Zg==");
  EXPECT_EQ(toBase64({'f', 'o'}), "Zm8=");
  EXPECT_EQ(toBase64({'f', 'o', 'o'}), "Zm9v");
  EXPECT_EQ(toBase64({0xFB, 0xFF}), "+/8=");
}

TEST(Base64, RoundTripsEveryLength) {
  std::vector<std::uint8_t> all;
  for (int i = 0; i < 300; ++i) {
    EXPECT_EQ(fromBase64(toBase64(all)), all);
    all.push_back(static_cast<std::uint8_t>(i * 37));
  }
}

TEST(Base64, RefusesWhatItWouldNotWrite) {
  for (const char* wrong : {"Z", "Zg", "Zg=", "Zh==", "Zg==Zg==", "Z===", "Zm9*", "===="}) {
    EXPECT_FALSE(fromBase64(wrong)) << wrong;
  }
}

TEST(Escape, BareSignStandsForItself) {
  EXPECT_EQ(unescape(L"50% %zz %4"), L"50% %zz %4");
  EXPECT_EQ(unescape(L"%41%0a"), L"A\n");
  EXPECT_EQ(escape(L"空\x03%"), L"空%03%25");
}

}  // namespace
