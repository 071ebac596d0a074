// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/owning_window_list.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <QLineEdit>
#include <QPointer>
#include <QString>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/support/window_test.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Windows defined by the test, which can access the last one made.
class WindowListTest : public ::testing::Test {
 protected:
  WindowListTest() {
    list.Add(WindowId::QuickC, [this] {
      ++made;
      auto form = std::make_unique<Form>(u"First"_s, u"First"_s);
      first = form.get();
      return form;
    });
    list.Add(WindowId::HDCalc, [this] {
      auto form = std::make_unique<Form>(u"Second"_s, u"Second"_s);
      second = form.get();
      return form;
    });
  }

  static void RunEventLoop() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }

  FakeDesktop desktop;
  OwningWindowList list{desktop};
  int made = 0;
  QPointer<Form> first;
  QPointer<Form> second;
};

TEST_F(WindowListTest, AWindowIsMadeAtItsFirstShow) {
  EXPECT_EQ(made, 0);
  list.Open(WindowId::QuickC);
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(first->isVisible());
  EXPECT_EQ(second, nullptr);
}

TEST_F(WindowListTest, AWindowHasNoOwnerAndHoldsUpNoOther) {
  list.Open(WindowId::QuickC);
  EXPECT_EQ(first->parent(), nullptr);
  EXPECT_FALSE(first->isModal());
}

TEST_F(WindowListTest, ShownAgainTheSameOneComesToTheFront) {
  list.Open(WindowId::QuickC);
  ASSERT_TRUE(QTest::qWaitForWindowActive(first, 10000));
  const auto before = first;
  list.Open(WindowId::HDCalc);
  ASSERT_TRUE(QTest::qWaitForWindowActive(second, 10000));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !first->isActiveWindow(); }, 10000));

  list.Open(WindowId::QuickC);
  EXPECT_TRUE(QTest::qWaitForWindowActive(before, 10000));
  EXPECT_EQ(first, before);
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(second->isVisible());
}

TEST_F(WindowListTest, ShownAgainAMinimizedOneIsRestored) {
  list.Open(WindowId::QuickC);
  first->showMinimized();
  ASSERT_TRUE(first->isMinimized());
  list.Open(WindowId::QuickC);
  EXPECT_FALSE(first->isMinimized());
  EXPECT_TRUE(first->isVisible());
  EXPECT_EQ(made, 1);
}

TEST_F(WindowListTest, AClosedOneIsDestroyedFromTheEventLoop) {
  list.Open(WindowId::QuickC);
  list.Open(WindowId::HDCalc);
  first->close();
  ASSERT_NE(first, nullptr) << "destroyed under its own event";
  EXPECT_FALSE(first->isVisible());
  RunEventLoop();
  EXPECT_EQ(first, nullptr);
  EXPECT_NE(second, nullptr);
  EXPECT_TRUE(second->isVisible());
}

TEST_F(WindowListTest, AfterAClosedOneComesANewOne) {
  list.Open(WindowId::QuickC);
  first->close();
  RunEventLoop();
  list.Open(WindowId::QuickC);
  EXPECT_EQ(made, 2);
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(first->isVisible());
}

TEST_F(WindowListTest, ClosedAndShownBeforeTheEventLoopRunsTheNewOneStays) {
  list.Open(WindowId::QuickC);
  const auto old = first;
  old->close();
  list.Open(WindowId::QuickC);
  EXPECT_EQ(made, 2);
  ASSERT_NE(first, old);
  RunEventLoop();
  EXPECT_EQ(old, nullptr);
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(first->isVisible());

  list.Open(WindowId::QuickC);
  EXPECT_EQ(made, 2) << "the new one is forgotten";
}

TEST_F(WindowListTest, ALoadedWindowIsMadeButNotShown) {
  auto& loaded = list.Load(WindowId::QuickC);
  EXPECT_EQ(made, 1);
  EXPECT_EQ(&loaded, first);
  EXPECT_FALSE(first->isVisible());
  EXPECT_EQ(second, nullptr);
}

TEST_F(WindowListTest, AShownOneIsLoadedAsOftenAsOneLikes) {
  list.Open(WindowId::QuickC);
  auto& loaded = list.Load(WindowId::QuickC);
  EXPECT_EQ(&list.Load(WindowId::QuickC), &loaded);
  EXPECT_NE(&list.Load(WindowId::HDCalc), &loaded);
  EXPECT_EQ(made, 1);
}

TEST_F(WindowListTest, TheNextShowMakesALoadedOneAfresh) {
  list.Load(WindowId::QuickC);
  const QPointer<Form> loaded = first;
  list.Open(WindowId::QuickC);
  EXPECT_EQ(made, 2);
  RunEventLoop();
  EXPECT_EQ(loaded, nullptr);
  EXPECT_TRUE(first->isVisible());
  EXPECT_TRUE(QTest::qWaitForWindowActive(first, 10000));
}

TEST_F(WindowListTest, LoadedAgainBeforeItWasShownItIsMadeAfresh) {
  list.Load(WindowId::QuickC);
  const auto old = first;
  list.Load(WindowId::QuickC);
  EXPECT_EQ(made, 2);
  EXPECT_NE(first, old);
}

TEST_F(WindowListTest, LoadingAShownOneGivesThatAndLeavesItWhereItIs) {
  list.Open(WindowId::QuickC);
  ASSERT_TRUE(QTest::qWaitForWindowActive(first, 10000));
  list.Open(WindowId::HDCalc);
  ASSERT_TRUE(QTest::qWaitForWindowActive(second, 10000));

  EXPECT_EQ(&list.Load(WindowId::QuickC), first);
  RunEventLoop();
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(first->isVisible());
  EXPECT_TRUE(second->isActiveWindow());
}

TEST_F(WindowListTest, AMinimizedOneStaysMinimizedWhenLoaded) {
  list.Open(WindowId::QuickC);
  first->showMinimized();
  EXPECT_EQ(&list.Load(WindowId::QuickC), first);
  EXPECT_TRUE(first->isMinimized());
}

TEST_F(WindowListTest, AfterAClosedOneANewOneIsLoaded) {
  list.Open(WindowId::QuickC);
  const auto old = first;
  old->close();
  const auto* loaded = &list.Load(WindowId::QuickC);
  EXPECT_EQ(made, 2);
  EXPECT_NE(loaded, old);
  RunEventLoop();
  EXPECT_EQ(old, nullptr);
  ASSERT_EQ(first, loaded);
  EXPECT_FALSE(first->isVisible());
}

TEST_F(WindowListTest, ALoadedOneThatWasShownAndClosedIsForgotten) {
  list.Load(WindowId::QuickC);
  list.Open(WindowId::QuickC);
  first->close();
  RunEventLoop();
  EXPECT_EQ(first, nullptr);
  list.Load(WindowId::QuickC);
  EXPECT_EQ(made, 3);
}

TEST_F(WindowListTest, AWindowThatCannotBeLoadedLeavesNothingAndCanBeTriedAgain) {
  bool fails = true;
  list.Add(WindowId::AspectRa, [&] {
    if (fails) {
      throw std::runtime_error("no such file");
    }
    return std::make_unique<Form>(u"Third"_s, u"Third"_s);
  });
  EXPECT_THROW(list.Load(WindowId::AspectRa), std::runtime_error);
  fails = false;
  EXPECT_EQ(list.Load(WindowId::AspectRa).objectName(), u"Third"_s);
}

TEST_F(WindowListTest, AWindowThatCannotBeMadeLeavesNothingAndCanBeTriedAgain) {
  bool fails = true;
  QPointer<Form> third;
  list.Add(WindowId::AspectRa, [&] {
    auto form = std::make_unique<Form>(u"Third"_s, u"Third"_s);
    third = form.get();
    if (fails) {
      throw std::runtime_error("no such file");
    }
    return form;
  });
  EXPECT_THROW(list.Open(WindowId::AspectRa), std::runtime_error);
  EXPECT_EQ(third, nullptr);
  EXPECT_THROW(list.Open(WindowId::AspectRa), std::runtime_error);
  EXPECT_EQ(third, nullptr);

  fails = false;
  list.Open(WindowId::AspectRa);
  ASSERT_NE(third, nullptr);
  EXPECT_TRUE(third->isVisible());
}

TEST_F(WindowListTest, WhatTheFactoryThrowsComesOut) {
  list.Add(WindowId::AspectRa,
           []() -> std::unique_ptr<Form> { throw std::runtime_error("it's 'slide.ocx'"); });
  try {
    list.Open(WindowId::AspectRa);
    ADD_FAILURE() << "nothing came out";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "it's 'slide.ocx'");
  }
}

TEST(WindowListEnd, TakesTheLoadedWindowsWithIt) {
  QPointer<Form> form;
  {
    FakeDesktop desktop;
    OwningWindowList list(desktop);
    list.Add(WindowId::QuickC, [] { return std::make_unique<Form>(u"First"_s, u"First"_s); });
    form = &list.Load(WindowId::QuickC);
    ASSERT_NE(form, nullptr);
  }
  EXPECT_EQ(form, nullptr);
}

TEST(WindowListEnd, TakesTheOpenWindowsWithIt) {
  QPointer<Form> form;
  {
    FakeDesktop desktop;
    OwningWindowList list(desktop);
    list.Add(WindowId::QuickC, [&] {
      auto made = std::make_unique<Form>(u"First"_s, u"First"_s);
      form = made.get();
      return made;
    });
    list.Open(WindowId::QuickC);
    ASSERT_NE(form, nullptr);
  }
  EXPECT_EQ(form, nullptr);
}

TEST_F(WindowListTest, F1InAWindowOpensThePageOfItsName) {
  list.Open(WindowId::QuickC);
  ASSERT_TRUE(QTest::qWaitForWindowActive(first, 10000));
  Key(Qt::Key_F1);
  EXPECT_EQ(desktop.pages, std::vector<std::string>{first->objectName().toStdString()});
  EXPECT_EQ(desktop.askers, std::vector<QWidget*>{first});
}

class RealWindows : public WindowTest {};

TEST_F(RealWindows, ANewOneIsLoadedFromTheRecord) {
  const QPointer<QWidget> first(Open(WindowId::BitrateCalc));
  EXPECT_EQ(Find<QLineEdit>(first, u"MLength"_s)->text(), u"100"_s);
  first->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(first, nullptr);

  record.MovieLength = 90.5;
  auto* second = Open(WindowId::BitrateCalc);
  EXPECT_EQ(Find<QLineEdit>(second, u"MLength"_s)->text(), u"90.5"_s);
}

TEST_F(RealWindows, ALoadedOneIsLoadedAfreshWhenItIsShown) {
  windows.Load(WindowId::BitrateCalc);
  record.MovieLength = 90.5;
  auto* shown = Open(WindowId::BitrateCalc);
  EXPECT_EQ(Find<QLineEdit>(shown, u"MLength"_s)->text(), u"90.5"_s);
}

TEST_F(RealWindows, TheOldOneIsNotLoadedAgain) {
  auto* window = Open(WindowId::BitrateCalc);
  record.MovieLength = 90.5;
  windows.Open(WindowId::BitrateCalc);
  EXPECT_EQ(Find<QLineEdit>(window, u"MLength"_s)->text(), u"100"_s);
}

}  // namespace
}  // namespace brindle
