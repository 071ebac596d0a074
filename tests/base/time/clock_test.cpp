// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/time/clock.h"

#include <memory>

#include <QObject>
#include <QTest>
#include <QTime>
#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(SystemClock, NeverGoesBack) {
  const SystemClock clock;
  double last = clock.Now();
  for (int i = 0; i < 1000; ++i) {
    const double now = clock.Now();
    ASSERT_GE(now, last);
    last = now;
  }
}

TEST(SystemClock, TellsTheTimeOfDay) {
  const SystemClock clock;
  const double before = QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
  const auto told = static_cast<double>(clock.SecondsSinceMidnight());
  const double after = QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
  // Midnight may fall between the readings; a Single of a day is exact to about 0.01 s.
  EXPECT_TRUE((told >= before - 0.01 && told <= after + 0.01) || after < before);
}

TEST(SystemClock, RunsAnActionWhenItsTimeHasPassed) {
  SystemClock clock;
  QObject context;
  const double start = clock.Now();
  double ran = 0;
  clock.After(0.03, &context, [&] { ran = clock.Now(); });
  ASSERT_TRUE(QTest::qWaitFor([&] { return ran > 0; }, 10000));
  EXPECT_GE(ran - start, 0.029);
}

TEST(SystemClock, RunsNothingForAContextThatIsGone) {
  SystemClock clock;
  bool ran = false;
  bool later = false;
  QObject context;
  {
    QObject gone;
    clock.After(0, &gone, [&] { ran = true; });
  }
  clock.After(0.01, &context, [&] { later = true; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return later; }, 10000));
  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace brindle
