// Document and locks as modules use them.
#include "platform/acad.h"
#include "support/session_fixture.h"

namespace {

class Documents : public test::SessionFixture {
 protected:
  AcApDocManager& manager_ = *acDocManagerPtr();
};

TEST_F(Documents, CurrentDocumentShowsTheWorkingDatabase) {
  ASSERT_NE(manager_.curDocument(), nullptr);
  EXPECT_EQ(manager_.curDocument()->database(), acdbHostApplicationServices()->workingDatabase());
}

TEST_F(Documents, LocksAreGivenBackOneByOne) {
  AcApDocument* document = manager_.curDocument();
  EXPECT_EQ(manager_.lockDocument(document), 0);
  EXPECT_EQ(manager_.lockDocument(document), 0);
  EXPECT_EQ(session.document().locks, 2);
  EXPECT_EQ(manager_.unlockDocument(document), 0);
  EXPECT_EQ(manager_.unlockDocument(document), 0);
  EXPECT_EQ(session.document().locks, 0);
  EXPECT_NE(manager_.unlockDocument(document), 0);
  EXPECT_EQ(session.document().locks, 0);
}

TEST_F(Documents, RefusedLockIsTold) {
  session.faults.failAt("lockDocument", 1);
  EXPECT_NE(manager_.lockDocument(manager_.curDocument()), 0);
  EXPECT_EQ(takePrinted(), "\nThe drawing can't be locked.");
  EXPECT_NE(manager_.lockDocument(nullptr, AcAp::kWrite, nullptr, nullptr, false), 0);
  EXPECT_EQ(takePrinted(), "");
  EXPECT_EQ(session.document().locks, 0);
}

}  // namespace
