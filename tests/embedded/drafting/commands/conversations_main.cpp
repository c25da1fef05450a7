// Runs the text files of this folder.
#include <gtest/gtest.h>

#include "support/conversation.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  test::registerConversations("tests/embedded/drafting/commands");
  return RUN_ALL_TESTS();
}
