#include "platform/result.h"

#include <gtest/gtest.h>

#include <memory>

namespace platform {
namespace {

Result<int> half(int number) {
  if (number % 2 != 0) return Error{.what = "odd"};
  return number / 2;
}

TEST(Result, GivesItsValueOrItsError) {
  EXPECT_TRUE(half(4));
  EXPECT_EQ(*half(4), 2);
  EXPECT_FALSE(half(3));
  EXPECT_EQ(half(3).error().what, "odd");
}

TEST(Result, GoesOnWithTheValueAndKeepsTheError) {
  EXPECT_EQ(*half(8).and_then(half), 2);
  EXPECT_EQ(half(6).and_then(half).error().what, "odd");
  int calls = 0;
  const auto failed = half(3);
  EXPECT_FALSE(failed.and_then([&](int) { return ++calls, Result<Done>(Done{}); }));
  EXPECT_EQ(calls, 0);
}

TEST(Result, GivesItsValueAway) {
  Result<std::unique_ptr<int>> made = std::make_unique<int>(1);
  const auto taken = std::move(made).and_then(
      [](std::unique_ptr<int> given) { return Result<std::unique_ptr<int>>(std::move(given)); });
  EXPECT_EQ(**taken, 1);
}

TEST(ResultDeathTest, StopsTheProgramWhereAnErrorIsTakenForAValue) {
  const Result<int> failed = half(3);
  EXPECT_DEATH(static_cast<void>(*failed), "the value of a failed result was used");
  const Result<std::string> text = Error{};
  EXPECT_DEATH(static_cast<void>(text->size()), "the value of a failed result was used");
}

TEST(ResultDeathTest, StopsTheProgramWhereAValueIsTakenForAnError) {
  EXPECT_DEATH(static_cast<void>(half(4).error()), "the error of a successful result was used");
}

TEST(Error, NamesPathStepAndTheSystemsWords) {
  EXPECT_EQ((Error{.path = "/x", .code = EDQUOT, .what = "rename"}.message()),
            "/x: rename: Disk quota exceeded");
  EXPECT_EQ((Error{.path = "/x", .code = ENOENT}.message()), "/x: No such file or directory");
  EXPECT_EQ((Error{.path = "/x", .what = "not a regular file"}.message()),
            "/x: not a regular file");
  EXPECT_EQ((Error{.code = ENXIO, .what = "no bus"}.message()),
            "no bus: No such device or address");
}

TEST(Error, NamesItsCauseLast) {
  EXPECT_EQ((Error{.path = "/x", .what = "not readable"}
                 .because(Error{.what = "too deep"}.because({.code = EIO}))
                 .message()),
            "/x: not readable: too deep: Input/output error");
}

}  // namespace
}  // namespace platform
