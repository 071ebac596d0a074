// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <string>
#include <vector>

#include <QApplication>
#include <QLabel>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/window_test.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Addresses = std::vector<std::string>;

class AboutWinTest : public WindowTest {
 protected:
  void OpenAbout() { window = Open(WindowId::AboutWin); }
  [[nodiscard]] std::string Text(const QString& name) const {
    return Find<QLabel>(window, name)->text().toStdString();
  }

  QWidget* window = nullptr;
};

TEST_F(AboutWinTest, OpensNothingByItself) {
  OpenAbout();
  EXPECT_EQ(desktop.addresses, Addresses());
}

TEST_F(AboutWinTest, ShowsTheAddressesOfTheProduct) {
  product.website = u"https://example.org/<b>other</b>"_s;
  product.mail = u"somebody@example.org"_s;
  OpenAbout();
  EXPECT_EQ(Text(u"website"_s), "https://example.org/<b>other</b>");
  EXPECT_EQ(Text(u"email"_s), "somebody@example.org");
}

TEST_F(AboutWinTest, EveryClickOnTheMailAddressBeginsOneMoreLetter) {
  OpenAbout();
  Click(Find(window, u"email"_s));
  EXPECT_EQ(desktop.addresses, Addresses{"mailto:velbrin@example.org"});
  Click(Find(window, u"email"_s));
  EXPECT_EQ(desktop.addresses, Addresses(2, "mailto:velbrin@example.org"));
}

TEST_F(AboutWinTest, EveryClickOnTheWebSiteOpensItOnceMore) {
  OpenAbout();
  Click(Find(window, u"website"_s));
  EXPECT_EQ(desktop.addresses, Addresses{"https://example.org/brindle"});
  Click(Find(window, u"website"_s));
  EXPECT_EQ(desktop.addresses, Addresses(2, "https://example.org/brindle"));
}

TEST_F(AboutWinTest, WorksFromTheKeyboard) {
  OpenAbout();
  Key(Qt::Key_Return);
  TabTo(Find(window, u"website"_s));
  Key(Qt::Key_Space);
  EXPECT_EQ(desktop.addresses,
            (Addresses{"mailto:velbrin@example.org", "https://example.org/brindle"}));
  EXPECT_EQ(desktop.askers, std::vector(2, window));
}

TEST_F(AboutWinTest, NothingElseIsClickable) {
  OpenAbout();
  for (const auto* name : {"Label9", "Label8", "Label3", "Image1", "Shape1"}) {
    Click(Find(window, QString::fromLatin1(name)));
  }
  EXPECT_EQ(desktop.addresses, Addresses());
}

TEST_F(AboutWinTest, ShownAgainItIsTheSameWindow) {
  OpenAbout();
  const auto before = QApplication::topLevelWidgets().size();
  windows.Open(WindowId::AboutWin);
  EXPECT_EQ(QApplication::topLevelWidgets().size(), before);
}

}  // namespace
}  // namespace brindle
