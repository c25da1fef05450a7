// Saving against the real system: a folder without permission, a full disk, a process killed at any
// moment. Each test forks, since it changes or ends the process that saves.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "embedded/base/files.h"
#include "embedded/base/raw_file.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using base::SaveStep;
using base::Status;
using test::bytesOf;

// Runs `body` in a process of its own; its wait status.
int inChild(const std::function<int()>& body) {
  const pid_t child = fork();
  if (child == 0) _exit(body());
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

constexpr int kNoSuchUser = 65534;

class SavingOnARealSystem : public testing::Test {
 protected:
  SavingOnARealSystem() { test::writeBytes(document_, "old"); }

  test::TempFolder folder_;
  fs::path document_ = folder_ / "library.qdp";
};

TEST_F(SavingOnARealSystem, AReadOnlyFolderKeepsTheDocument) {
  fs::permissions(folder_.path(), fs::perms(0555));
  fs::permissions(document_, fs::perms(0666));
  const int status = inChild([&] {
    if (geteuid() == 0 && seteuid(kNoSuchUser) != 0) return 2;
    const Status saved = base::saveAtomically(document_, "new");
    return saved.ok() || saved.message().find("Permission denied") == std::string::npos ? 1 : 0;
  });
  fs::permissions(folder_.path(), fs::perms(0755));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(bytesOf(document_), "old");
}

TEST_F(SavingOnARealSystem, AReadOnlyDocumentIsNotReplaced) {
  fs::permissions(folder_.path(), fs::perms(0777));
  fs::permissions(document_, fs::perms(0444));
  const int status = inChild([&] {
    if (geteuid() == 0 && seteuid(kNoSuchUser) != 0) return 2;
    return base::saveAtomically(document_, "new").ok() ? 1 : 0;
  });
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(bytesOf(document_), "old");
}

TEST_F(SavingOnARealSystem, ADiskThatFillsUpKeepsTheDocument) {
  const int status = inChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {100000, 100000};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
    return base::saveAtomically(document_, std::string(200000, 'n')).ok() ? 1 : 0;
  });
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(bytesOf(document_), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()), 1);
}

TEST(RawFile, AFullDeviceIsReportedWithItsReason) {
  base::RawFile file;
  ASSERT_TRUE(file.create("/dev/full").ok());
  const Status status = file.write("x");
  EXPECT_FALSE(status.ok());
  EXPECT_EQ(status.message(), "/dev/full: No space left on device");
}

TEST_F(SavingOnARealSystem, ALinkIsFollowedAndPermissionsAreKept) {
  fs::permissions(document_, fs::perms(0640));
  fs::create_directory(folder_ / "links");
  const fs::path link = folder_ / "links" / "current.qdp";
  fs::create_symlink("../library.qdp", link);
  ASSERT_TRUE(base::saveAtomically(link, "new").ok());
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(bytesOf(document_), "new");
  EXPECT_EQ(fs::status(document_).permissions(), fs::perms(0640));
  EXPECT_EQ(bytesOf(folder_ / "library.qdp.bak"), "old");
}

SaveStep killedAt;

class KilledInMidSave : public SavingOnARealSystem, public testing::WithParamInterface<SaveStep> {};

TEST_P(KilledInMidSave, TheOldDocumentIsIntact) {
  killedAt = GetParam();
  const int status = inChild([&] {
    base::setSaveHook([](SaveStep step) {
      if (step == killedAt) raise(SIGKILL);
      return Status();
    });
    static_cast<void>(base::saveAtomically(document_, "new"));
    return 0;
  });
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(bytesOf(document_), "old");
  // The next save isn't hindered by what the killed one left.
  EXPECT_TRUE(base::saveAtomically(document_, "newer").ok());
  EXPECT_EQ(bytesOf(document_), "newer");
  EXPECT_EQ(bytesOf(folder_ / "library.qdp.bak"), "old");
}

INSTANTIATE_TEST_SUITE_P(EveryStep, KilledInMidSave,
                         testing::Values(SaveStep::create, SaveStep::write, SaveStep::flush,
                                         SaveStep::keepBackup, SaveStep::replace));

TEST_F(SavingOnARealSystem, KilledAtAnyMomentTheDocumentIsOneOfTheTwo) {
  const std::string first(300000, '1');
  const std::string second(300000, '2');
  test::writeBytes(document_, first);
  for (int run = 0; run < 25; ++run) {
    const pid_t child = fork();
    if (child == 0) {
      for (int save = 0;; ++save)
        static_cast<void>(base::saveAtomically(document_, save % 2 == 0 ? second : first));
    }
    usleep(static_cast<useconds_t>(300 + 700 * run));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string now = bytesOf(document_);
    ASSERT_TRUE(now == first || now == second) << "after " << run << " runs";
    const fs::path backup = folder_ / "library.qdp.bak";
    if (fs::exists(backup)) {
      const std::string kept = bytesOf(backup);
      ASSERT_TRUE(kept == first || kept == second);
    }
  }
}

}  // namespace
