// Runs the text files of this folder, and sees to it that they try every function.
#include <gtest/gtest.h>

#include <filesystem>

#include "embedded/base/text.h"
#include "support/conversation.h"
#include "support/temp_folder.h"

TEST(Lisp, EveryFunctionIsTried) {
  std::string all;
  for (const auto& entry : std::filesystem::directory_iterator(
           std::filesystem::path(VORNIK_SOURCE_DIR) / "tests/embedded/drafting/lisp")) {
    if (entry.path().extension() == ".txt" && entry.path().filename() != "CMakeLists.txt")
      all += test::bytesOf(entry.path());
  }
  const drafting::Session session;
  const auto names = session.lisp.builtinNames();
  EXPECT_GT(names.size(), 80u);
  for (const std::string& name : names) {
    const std::string call = "(" + base::lowerCase(name);
    EXPECT_TRUE(all.find("> " + call + " ") != std::string::npos ||
                all.find("> " + call + ")") != std::string::npos)
        << name;
  }
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  test::registerConversations("tests/embedded/drafting/lisp");
  return RUN_ALL_TESTS();
}
