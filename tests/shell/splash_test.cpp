// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/splash.h"

#include <memory>
#include <ostream>
#include <string>

#include <QLabel>
#include <QPoint>
#include <QString>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/support/window_test.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class SplashTest : public WindowTest {
 protected:
  // Longer than the time between two checks of the clock.
  static constexpr double aTurn = 0.1;

  void Run() {
    splash = std::make_unique<Splash>(services);
    QObject::connect(splash.get(), &Splash::Finished, [this] { ++finished; });
    splash->Run();
    WaitForActive(splash.get());
  }

  [[nodiscard]] QLabel* Label(const char* name) const {
    return Find<QLabel>(splash.get(), QString::fromLatin1(name));
  }

  std::unique_ptr<Splash> splash;
  int finished = 0;
};

TEST_F(SplashTest, ShowsVersionWebsiteAndAuthor) {
  Run();
  EXPECT_EQ(Label("Label1")->text(), u"Version 2.91 DX"_s);
  EXPECT_EQ(Label("Label2")->text(), u"https://example.org/brindle"_s);
  EXPECT_EQ(Label("Label3")->text(), u"Velbrin 2026"_s);
}

TEST_F(SplashTest, ShowsWhatStandsInTheProductAsPlainText) {
  product.website = u"<b>https://example.org/other</b>"_s;
  product.author = u"<i>Someone</i>"_s;
  Run();
  EXPECT_EQ(Label("Label2")->text(), product.website);
  EXPECT_EQ(Label("Label2")->textFormat(), Qt::PlainText);
  EXPECT_EQ(Label("Label3")->text(), product.author);
  EXPECT_EQ(Label("Label3")->textFormat(), Qt::PlainText);
}

TEST_F(SplashTest, HoldsAPictureThatFillsIt) {
  Run();
  auto* picture = Label("Image1");
  EXPECT_FALSE(picture->pixmap(Qt::ReturnByValue).isNull());
  EXPECT_EQ(picture->rect(), splash->rect());
}

TEST_F(SplashTest, WaitsUntilTwoSecondsHavePassed) {
  clock.SetSecondsSinceMidnight(3600);
  Run();
  clock.Advance(1.99);
  EXPECT_EQ(finished, 0);
  EXPECT_TRUE(splash->isVisible());
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
}

TEST_F(SplashTest, TheTwoSecondsBeginWhenItIsShown) {
  splash = std::make_unique<Splash>(services);
  QObject::connect(splash.get(), &Splash::Finished, [this] { ++finished; });
  clock.Advance(100);
  splash->Run();
  clock.Advance(1.99);
  EXPECT_EQ(finished, 0);
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
}

TEST_F(SplashTest, TellsInTheRecordWhetherItWasDismissed) {
  record.SplashDone = 7;
  Run();
  EXPECT_EQ(record.SplashDone, 0);
  clock.Advance(aTurn);
  EXPECT_EQ(record.SplashDone, 0);
  Click(Label("Image1"));
  EXPECT_EQ(record.SplashDone, 1);
}

TEST_F(SplashTest, RunningOutIsNoDismissal) {
  Run();
  clock.Advance(5);
  EXPECT_EQ(finished, 1);
  EXPECT_EQ(record.SplashDone, 0);
}

TEST_F(SplashTest, FinishesOnce) {
  Run();
  Key(Qt::Key_Space);
  Click(Label("Label1"));
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
  Key(Qt::Key_Space);
  Click(Label("Image1"));
  clock.Advance(10);
  EXPECT_EQ(finished, 1);
  EXPECT_EQ(clock.Waiting(), 0U);
}

TEST_F(SplashTest, GoneWhileItWaitsItFinishesNothing) {
  Run();
  splash.reset();
  clock.Advance(10);
  EXPECT_EQ(finished, 0);
}

TEST_F(SplashTest, ClosedByTheDesktopItIsDismissed) {
  Run();
  splash->close();
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
}

class SplashClick : public SplashTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(SplashClick, EndsItAtTheNextTurn) {
  Run();
  auto* widget = Label(GetParam());
  clock.Advance(0.5);
  Press(widget);
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 0);
  LetGo(widget);
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
}

TEST_P(SplashClick, LetGoElsewhereIsNone) {
  Run();
  auto* widget = Label(GetParam());
  // Released elsewhere: the middle of the picture is outside every label, and for the picture the
  // release is outside the splash.
  Press(widget);
  if (widget == Label("Image1")) {
    QTest::mouseRelease(splash->windowHandle(), Qt::LeftButton, {}, QPoint(-5, -5));
  } else {
    LetGo(Label("Image1"));
  }
  clock.Advance(1);
  EXPECT_EQ(finished, 0);
  EXPECT_EQ(record.SplashDone, 0);
}

INSTANTIATE_TEST_SUITE_P(Each, SplashClick,
                         ::testing::Values("Image1", "Label1", "Label2", "Label3", "Toolkit"),
                         [](const auto& instance) { return std::string(instance.param); });

struct KeyCase {
  std::string name;
  Qt::Key key = Qt::Key_Space;
};

void PrintTo(const KeyCase& row, std::ostream* out) { *out << row.name; }

class SplashKey : public SplashTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(SplashKey, EndsItAtTheNextTurn) {
  Run();
  clock.Advance(0.5);
  Key(GetParam().key);
  EXPECT_EQ(record.SplashDone, 1);
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
}

INSTANTIATE_TEST_SUITE_P(Each, SplashKey,
                         ::testing::Values(KeyCase{"Space", Qt::Key_Space},
                                           KeyCase{"Letter", Qt::Key_A},
                                           KeyCase{"Enter", Qt::Key_Return},
                                           KeyCase{"Escape", Qt::Key_Escape},
                                           KeyCase{"Backspace", Qt::Key_Backspace}),
                         [](const auto& instance) { return instance.param.name; });

struct MidnightCase {
  std::string name;
  double start = 0;  // seconds since midnight
  bool ends = true;  // after two seconds
};

void PrintTo(const MidnightCase& row, std::ostream* out) { *out << row.name; }

class SplashBeforeMidnight : public SplashTest,
                             public ::testing::WithParamInterface<MidnightCase> {};

TEST_P(SplashBeforeMidnight, EndsByItselfOnlyWhenTheTwoSecondsFit) {
  const auto& [name, start, ends] = GetParam();
  clock.SetSecondsSinceMidnight(start);
  Run();
  clock.Advance(1.98);
  EXPECT_EQ(finished, 0);
  clock.Advance(0.2);
  EXPECT_EQ(finished, ends ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Starts, SplashBeforeMidnight,
                         ::testing::Values(MidnightCase{"Long", 86390, true},
                                           MidnightCase{"JustInTime", 86397.75, true},
                                           MidnightCase{"TwoSeconds", 86398, false},
                                           MidnightCase{"OneSecond", 86399, false},
                                           MidnightCase{"AMoment", 86399.9375, false}),
                         [](const auto& instance) { return instance.param.name; });

TEST_F(SplashTest, AcrossMidnightItStaysUntilAKey) {
  clock.SetSecondsSinceMidnight(86399);
  Run();
  clock.Advance(600);
  EXPECT_EQ(finished, 0);
  EXPECT_TRUE(splash->isVisible());
  Key(Qt::Key_Space);
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
}

TEST_F(SplashTest, AcrossMidnightItStaysUntilAClick) {
  clock.SetSecondsSinceMidnight(86399);
  Run();
  clock.Advance(600);
  EXPECT_EQ(finished, 0);
  Click(Label("Label2"));
  clock.Advance(aTurn);
  EXPECT_EQ(finished, 1);
}

}  // namespace
}  // namespace brindle
