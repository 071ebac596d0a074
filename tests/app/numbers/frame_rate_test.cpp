// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/numbers/frame_rate.h"

#include <limits>

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(FramesPerSecondTest, OfTheThreeSystemsAreExactDecimals) {
  EXPECT_EQ(FramesPerSecond(0), 25);
  EXPECT_EQ(FramesPerSecond(1), 23.976);
  EXPECT_EQ(FramesPerSecond(2), 29.97);
}

TEST(FramesPerSecondTest, OfAnyOtherSystemAreNone) {
  for (const int system : {-1, 3, 4, 7, 25, 32767, -32768, std::numeric_limits<int>::max(),
                           std::numeric_limits<int>::min()}) {
    EXPECT_EQ(FramesPerSecond(system), 0) << system;
  }
}

}  // namespace
}  // namespace brindle
