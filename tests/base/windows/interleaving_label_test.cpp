// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/windows/interleaving_label.h"

#include <QString>
#include <gtest/gtest.h>

#include "base/settings/settings.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

TEST(InterleavingLabel, IsOnWhereAnyOverheadIsCounted) {
  Settings record;
  InterleavingLabel label(record);
  label.Refresh();
  EXPECT_EQ(label.text(), u"OFF"_s);
  record.VideoFrameOverhead = 0.001;
  EXPECT_EQ(label.text(), u"OFF"_s);
  label.Refresh();
  EXPECT_EQ(label.text(), u"ON"_s);
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0.001;
  label.Refresh();
  EXPECT_EQ(label.text(), u"ON"_s);
  record.VideoFrameOverhead = -0.001;
  label.Refresh();
  EXPECT_EQ(label.text(), u"OFF"_s);
}

}  // namespace
}  // namespace brindle
