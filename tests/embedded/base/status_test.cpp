#include "embedded/base/status.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using base::Result;
using base::Status;

TEST(Status, IsGoodByDefault) {
  EXPECT_TRUE(Status().ok());
  EXPECT_TRUE(Status().message().empty());
}

TEST(Status, AFailureWithoutWordsIsStillAFailure) { EXPECT_FALSE(Status::failure("").ok()); }

TEST(Status, AFailureCarriesItsMessage) {
  EXPECT_EQ(Status::failure("a.dwg: byte 12").message(), "a.dwg: byte 12");
}

TEST(Result, HoldsAValue) {
  Result<int> result = 7;
  ASSERT_TRUE(result.ok());
  EXPECT_EQ(*result, 7);
}

TEST(Result, HoldsTheReasonWhyThereIsNone) {
  const Result<std::string> result = Status::failure("no such file");
  EXPECT_FALSE(result);
  EXPECT_EQ(result.message(), "no such file");
}

TEST(Result, CarriesValuesThatOnlyMove) {
  Result<std::unique_ptr<int>> result = std::make_unique<int>(3);
  const std::unique_ptr<int> taken = std::move(result.value());
  EXPECT_EQ(*taken, 3);
}

}  // namespace
