// Calls that must raise one of the framework's exceptions, which are thrown as pointers.
#pragma once

#include <gtest/gtest.h>

#include "platform/framework.h"

namespace test {

template <typename Exception, typename Call>
void expectRaised(Call call) {
  try {
    call();
    FAIL() << "no exception";
  } catch (Exception* exception) {
    exception->Delete();
  }
}

template <typename Call>
void expectInvalidArgument(Call call) {
  expectRaised<CInvalidArgException>(call);
}

}  // namespace test
