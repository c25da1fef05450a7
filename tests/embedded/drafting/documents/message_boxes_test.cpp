// Message boxes where nobody shows them: on the command line.
#include "platform/framework_messages.h"
#include "support/session_fixture.h"

namespace {

class MessageBoxes : public test::SessionFixture {
 protected:
  int answer(unsigned style) {
    return showMessageBox({.text = L"Sure?", .caption = L"Test", .style = style});
  }
};

TEST_F(MessageBoxes, ArePrintedWithTheirCaption) {
  EXPECT_EQ(answer(kMessageOk), kMessageAnswerOk);
  EXPECT_EQ(takePrinted(), "\nTest: Sure?");
}

TEST_F(MessageBoxes, QuestionsAreCancelled) {
  EXPECT_EQ(answer(1), kMessageAnswerCancel);
  EXPECT_EQ(answer(0x34), kMessageAnswerCancel);
  EXPECT_EQ(answer(0x30), kMessageAnswerOk);  // an icon doesn't make it a question
}

}  // namespace
