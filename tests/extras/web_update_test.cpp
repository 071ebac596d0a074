// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <string>
#include <vector>

#include <QLabel>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/window_test.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Addresses = std::vector<std::string>;

constexpr auto Page = "https://example.org/brindle/update";

class WebUpdateTest : public WindowTest {};

TEST_F(WebUpdateTest, OpensTheUpdatePageOnceWhenItLoads) {
  Open(WindowId::WebUpdate);
  EXPECT_EQ(desktop.addresses, Addresses{Page});
}

TEST_F(WebUpdateTest, LoadedWithoutBeingShownItOpensThePageAsWell) {
  auto& window = windows.Load(WindowId::WebUpdate);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(desktop.addresses, Addresses{Page});
}

TEST_F(WebUpdateTest, ShownAgainItOpensNothing) {
  Open(WindowId::WebUpdate);
  windows.Open(WindowId::WebUpdate);
  EXPECT_EQ(desktop.addresses, Addresses{Page});
}

TEST_F(WebUpdateTest, ClosedAndShownAgainItLoadsAfresh) {
  Open(WindowId::WebUpdate)->close();
  Open(WindowId::WebUpdate);
  EXPECT_EQ(desktop.addresses, Addresses(2, Page));
}

TEST_F(WebUpdateTest, TheLinkOpensThePageOnceMoreAtEveryClick) {
  auto* window = Open(WindowId::WebUpdate);
  Click(Find(window, u"WebBrowser"_s));
  EXPECT_EQ(desktop.addresses, Addresses(2, Page));
  Key(Qt::Key_Return);
  EXPECT_EQ(desktop.addresses, Addresses(3, Page));
  EXPECT_EQ(desktop.askers, std::vector(3, window));
}

TEST_F(WebUpdateTest, ShowsAndOpensTheAddressOfTheProduct) {
  product.updatePage = u"https://example.org/<b>new</b>"_s;
  auto* window = Open(WindowId::WebUpdate);
  EXPECT_EQ(Find<QLabel>(window, u"WebBrowser"_s)->text(), product.updatePage);
  EXPECT_EQ(desktop.addresses, Addresses{"https://example.org/<b>new</b>"});
}

}  // namespace
}  // namespace brindle
