// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/form_filler.h"

#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/base/input/field_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class FormFillerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window.A->setText(u"100"_s);
    window.L->Field()->setText(u"128"_s);
    window.Start();
  }

  FieldWindow window;
  FormFiller filler{window};
};

TEST_F(FormFillerTest, RunsTheHandlersThatAPersonWould) {
  filler.Type(*window.A, u"102.5"_s);
  filler.Type(*window.L, u"192"_s);
  filler.Leave(*window.B);
  EXPECT_EQ(window.events, (Events{"B lost", "A got", "A up 102.5", "A lost", "L got", "L up 192",
                                   "L lost", "B got"}));
  EXPECT_EQ(window.A->text(), u"102.5"_s);
  EXPECT_EQ(filler.Fields(), (std::vector<TextField*>{window.A, window.L->Field()}));
}

TEST_F(FormFillerTest, TypesEvenWhatStandsThereAlready) {
  const int changes = window.A->Changes();
  filler.Type(*window.A, u"100"_s);
  EXPECT_EQ(window.events, (Events{"B lost", "A got", "A up 100"}));
  EXPECT_GT(window.A->Changes(), changes);
}

TEST_F(FormFillerTest, GoesBackToWhereTheFocusWas) {
  window.A->setFocus();
  FormFiller second(window);
  second.Type(*window.L, u"192"_s);
  window.events.clear();
  second.Leave(*window.B);
  EXPECT_EQ(window.focusWidget(), window.A);
  EXPECT_EQ(window.events, (Events{"L lost", "B got", "B lost", "A got"}));
}

TEST_F(FormFillerTest, LeavesOutWhatIsDisabled) {
  window.A->setEnabled(false);
  filler.Type(*window.A, u"102.5"_s);
  EXPECT_EQ(window.events, Events());
  EXPECT_EQ(window.A->text(), u"100"_s);
  EXPECT_TRUE(filler.Fields().empty());
}

TEST_F(FormFillerTest, WorksInAWindowThatIsNotTheActiveOne) {
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other, 10000));
  FormFiller second(window);
  second.Type(*window.A, u"102.5"_s);
  second.Leave(*window.L);
  EXPECT_EQ(window.events,
            (Events{"B lost", "A got", "A up 102.5", "A lost", "L got", "L lost", "B got"}));
  window.events.clear();
  other.close();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
  EXPECT_EQ(window.events, Events()) << "the focus is in B already";
}

}  // namespace
}  // namespace brindle
