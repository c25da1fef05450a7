// An install with symbols and a fresh recording host, for tests of what draws.
#pragma once

#include <gtest/gtest.h>

#include "support/install.h"
#include "support/recording_host.h"
#include "support/transcript.h"

namespace test {

class EngineFixture : public testing::Test {
 protected:
  EngineFixture() {
    resetHost();
    std::filesystem::create_directories(install_.root() / "system");
    writeBytes(install_.root() / "system" / "Fah.dwg", "x");
    std::filesystem::create_directories(install_.symbols() / "Dqbl0001");
    writeBytes(install_.symbols() / "dwgdir.dab", "A01     0001B12     0001");
    writeBytes(install_.symbols() / "Dqbl0001" / "Dqbl0001.idx",
               "A01 breaker QF A01 0 0 0 0 0\r\nB12 fuse FU B12 0 0 0 0 0\r\n");
    takeTranscript();
  }
  ~EngineFixture() override { EXPECT_TRUE(host().everythingClosed()); }

  std::wstring symbolPath(const std::wstring& name) const {
    return Install::wide(install_.symbols()) + L"\\Dqbl0001\\" + name + L".dwg";
  }
  std::wstring markerPath() const { return Install::wide(install_.root()) + L"\\system\\Fah.dwg"; }

  Install install_;
};

}  // namespace test
