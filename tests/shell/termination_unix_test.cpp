// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <csignal>
#include <cstddef>
#include <ostream>
#include <string>

#include <QTest>
#include <gtest/gtest.h>

#include "shell/termination.h"

namespace brindle {
namespace {

struct SignalCase {
  std::string name;
  int number = 0;
};

void PrintTo(const SignalCase& row, std::ostream* out) { *out << row.name; }

// Restores the previous handling of the signals, for the tests that follow.
class TerminationSignal : public ::testing::TestWithParam<SignalCase> {
 protected:
  void SetUp() override {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      ASSERT_EQ(sigaction(numbers.at(i), nullptr, &before.at(i)), 0);
    }
  }
  void TearDown() override {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      sigaction(numbers.at(i), &before.at(i), nullptr);
    }
  }

  static constexpr std::array numbers{SIGTERM, SIGINT, SIGHUP, SIGXFSZ};
  std::array<struct sigaction, numbers.size()> before{};
};

TEST_P(TerminationSignal, AsksOnceFromTheEventLoop) {
  const Termination termination;
  int asked = 0;
  QObject::connect(&termination, &Termination::Asked, [&] { ++asked; });
  std::raise(GetParam().number);
  EXPECT_EQ(asked, 0) << "asked inside the signal handler";
  EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 0; }, 10000));
  QCoreApplication::processEvents();
  EXPECT_EQ(asked, 1);

  std::raise(GetParam().number);
  EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 1; }, 10000));
}

INSTANTIATE_TEST_SUITE_P(Each, TerminationSignal,
                         ::testing::Values(SignalCase{"Terminate", SIGTERM},
                                           SignalCase{"Interrupt", SIGINT},
                                           SignalCase{"HangUp", SIGHUP}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace brindle
