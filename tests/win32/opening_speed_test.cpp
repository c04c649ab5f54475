// Opening the dialog costs what its windows cost.
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/win32/opening_speed.h"

namespace quill {
namespace {

TEST(OpeningSpeed, IsThatOfABareTemplate) {
  NativeBench bench;
  const OpeningSpeed speed = MeasureOpening(bench, 31);
  std::printf("dialog %.2f ms, bare template %.2f ms, median of pairs %.2f\n", speed.dialog_ms,
              speed.template_ms, speed.ratio);
  EXPECT_LT(speed.ratio, 1.15);
}

}  // namespace
}  // namespace quill
