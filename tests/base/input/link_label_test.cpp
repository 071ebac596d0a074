// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/link_label.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QImage>
#include <QKeyEvent>
#include <QString>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Two links, one above the other; the first has the focus.
class LinkLabelTest : public ::testing::Test {
 protected:
  LinkLabelTest() {
    link->setText(u"https://example.org/a<b>"_s);
    other->setText(u"somebody@example.org"_s);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(link);
    layout->addWidget(other);
    QObject::connect(link, &LinkLabel::Clicked, link, [this] { ++clicks; });
    window.show();
    window.activateWindow();
    link->setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
  }

  QWidget window;
  LinkLabel* link = new LinkLabel(u"link"_s);
  LinkLabel* other = new LinkLabel(u"other"_s);
  int clicks = 0;
};

TEST_F(LinkLabelTest, AClickIsAPressAndAReleaseOfTheLeftButton) {
  Press(link);
  EXPECT_EQ(clicks, 0);
  LetGo(link);
  EXPECT_EQ(clicks, 1);
}

TEST_F(LinkLabelTest, OtherButtonsAreNoClick) {
  Click(link, Qt::RightButton);
  Click(link, Qt::MiddleButton);
  EXPECT_EQ(clicks, 0);
}

TEST_F(LinkLabelTest, LettingGoElsewhereIsNoClick) {
  Press(link);
  LetGo(other);
  EXPECT_EQ(clicks, 0);
}

TEST_F(LinkLabelTest, APressElsewhereIsNoClick) {
  Press(other);
  LetGo(link);
  EXPECT_EQ(clicks, 0);
}

TEST_F(LinkLabelTest, EnterReturnAndTheSpaceBarClick) {
  Key(Qt::Key_Return);
  Key(Qt::Key_Enter);
  Key(Qt::Key_Space);
  EXPECT_EQ(clicks, 3);
}

TEST_F(LinkLabelTest, AHeldKeyClicksOnce) {
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
  QApplication::sendEvent(link, &repeated);
  EXPECT_EQ(clicks, 0);
}

TEST_F(LinkLabelTest, OtherKeysAreLeftToTheWindow) {
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(link, &escape);
  EXPECT_FALSE(escape.isAccepted());
  EXPECT_EQ(clicks, 0);
}

TEST_F(LinkLabelTest, IsReachedByTab) {
  Key(Qt::Key_Tab);
  EXPECT_TRUE(other->hasFocus());
  Key(Qt::Key_Return);
  EXPECT_EQ(clicks, 0);
}

TEST_F(LinkLabelTest, ShowsWhetherTabHasReachedIt) {
  Key(Qt::Key_Tab);
  const auto focused = other->grab().toImage();
  Key(Qt::Key_Backtab);
  EXPECT_TRUE(other->grab().toImage() != focused);
}

TEST_F(LinkLabelTest, IsALinkToAScreenReaderWhichCanFollowIt) {
  link->setAccessibleName(u"Site :"_s);
  auto* interface = QAccessible::queryAccessibleInterface(link);
  EXPECT_EQ(interface->role(), QAccessible::Link);
  EXPECT_EQ(interface->text(QAccessible::Name), u"Site :"_s);
  EXPECT_EQ(interface->text(QAccessible::Description), u"https://example.org/a<b>"_s);
  auto* actions = interface->actionInterface();
  EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
  actions->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clicks, 1);
  actions->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(clicks, 1);
}

TEST_F(LinkLabelTest, WithoutANameItIsCalledByItsText) {
  const auto* interface = QAccessible::queryAccessibleInterface(other);
  EXPECT_EQ(interface->text(QAccessible::Name), u"somebody@example.org"_s);
}

// The colour of the letters: the one that differs most from the background.
QColor ColorOfLetters(LinkLabel* label, const QColor& background) {
  const auto image = label->grab().toImage();
  QColor farthest = background;
  const auto distance = [&](const QColor& color) {
    return std::abs(color.lightness() - background.lightness());
  };
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      farthest = distance(color) > distance(farthest) ? color : farthest;
    }
  }
  return farthest;
}

TEST_F(LinkLabelTest, CanBeReadOnALightAndOnADarkWindow) {
  for (const QColor background : {QColor(0xef, 0xef, 0xef), QColor(0x2a, 0x2a, 0x2a)}) {
    QPalette palette(background);
    palette.setColor(QPalette::Link, QColor(0, 0, 0xff));
    window.setPalette(palette);
    other->setPalette(palette);
    link->setFocus();
    EXPECT_GT(std::abs(ColorOfLetters(other, background).lightness() - background.lightness()), 90);
  }
}

}  // namespace
}  // namespace brindle
