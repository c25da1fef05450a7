// The module started in a recording host, with an install to draw from.
#pragma once

#include <gtest/gtest.h>

#include "library_window/library_window.h"
#include "module/module_state.h"
#include "support/install.h"
#include "support/recording_host.h"
#include "support/transcript.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* package);
extern "C" std::int32_t acrxGetApiVersion();

namespace test {

class HostFixture : public testing::Test {
 protected:
  HostFixture() {
    resetHost();
    setLibraryWindow(nullptr);
    takeTranscript();
  }
  ~HostFixture() override {
    if (libraryWindow()) send(AcRx::kUnloadAppMsg);
  }

  AcRx::AppRetCode send(int message) {
    return acrxEntryPoint(static_cast<AcRx::AppMsgCode>(message), &package_);
  }
  // Calls a LISP function by its code; what it returned.
  std::wstring call(int code, std::vector<Link> arguments = {}) {
    host().functionCode = code;
    host().lispArguments = std::move(arguments);
    send(AcRx::kInvkSubrMsg);
    return host().lispValue;
  }

  Install install_;
  int package_ = 0;
};

}  // namespace test
