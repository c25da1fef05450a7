// Message boxes go to whoever takes them.
#include <gtest/gtest.h>

#include "platform/framework_messages.h"

namespace {

TEST(Messages, HandlerSeesTheCallAndAnswers) {
  MessageBoxCall seen;
  setMessageBoxHandler([&](const MessageBoxCall& call) {
    seen = call;
    return 6;
  });
  EXPECT_EQ(showMessageBox({.text = L"文字", .caption = L"标题", .style = 4}), 6);
  EXPECT_EQ(seen.text, L"文字");
  EXPECT_EQ(seen.caption, L"标题");
  EXPECT_EQ(seen.style, 4U);
  EXPECT_EQ(seen.owner, nullptr);
  setMessageBoxHandler({});
}

TEST(Messages, HandlerMaySetAnother) {
  setMessageBoxHandler([](const MessageBoxCall&) {
    setMessageBoxHandler([](const MessageBoxCall&) { return 8; });
    return 7;
  });
  EXPECT_EQ(showMessageBox({.text = L"Sure?", .caption = L"Test", .style = 1}), 7);
  EXPECT_EQ(showMessageBox({.text = L"Sure?", .caption = L"Test", .style = 1}), 8);
  setMessageBoxHandler({});
}

}  // namespace
