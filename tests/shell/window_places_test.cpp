// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/window_places.h"

#include <optional>
#include <string>
#include <vector>

#include <QPoint>
#include <QRect>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/form.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

struct PlaceCase {
  std::string name;
  QRect window;
  QPoint expected;
};

class Place : public ::testing::TestWithParam<PlaceCase> {};

// Two screens side by side, each with a bar of 30 at its top.
TEST_P(Place, IsOnAScreen) {
  const std::vector<QRect> screens{{0, 30, 1000, 770}, {1000, 30, 800, 570}};
  EXPECT_EQ(PlaceOnScreens(GetParam().window, screens), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Place,
    ::testing::Values(PlaceCase{"WhereItStood", {100, 100, 300, 200}, {100, 100}},
                      PlaceCase{"OnTheOtherScreen", {1200, 100, 300, 200}, {1200, 100}},
                      PlaceCase{"AtTheVeryCorner", {700, 600, 300, 200}, {700, 600}},
                      PlaceCase{"UnderTheBar", {100, 0, 300, 200}, {100, 30}},
                      PlaceCase{"OverTheLeftEdge", {-100, 100, 300, 200}, {0, 100}},
                      PlaceCase{"OverTheLowerEdge", {100, 700, 300, 200}, {100, 600}},
                      PlaceCase{"MostlyOnTheFirst", {800, 100, 300, 200}, {700, 100}},
                      PlaceCase{"MostlyOnTheSecond", {900, 100, 300, 200}, {1000, 100}},
                      PlaceCase{"OnAScreenThatIsGone", {5000, 5000, 300, 200}, {700, 600}},
                      PlaceCase{"LargerThanTheScreen", {1100, 100, 900, 700}, {1000, 30}},
                      PlaceCase{"AtTheEndOfTheNumbers", {2147483000, 10, 300, 200}, {700, 30}}),
    NameOf);

class WindowPlacesTest : public ::testing::Test {
 protected:
  // Shows a window, moves it if there is somewhere to move it to, and says where it came up.
  QPoint ShownAt(const QString& name, std::optional<QPoint> moved = {}) {
    WindowPlaces places(folder.Path());
    Form form(name, name);
    places.Watch(form);
    form.show();
    const auto shown = form.pos();
    if (moved) {
      form.move(*moved);
    }
    form.close();
    return shown;
  }

  TemporaryFolder folder;
};

TEST_F(WindowPlacesTest, AWindowComesBackWhereItStood) {
  ShownAt(u"One"_s, QPoint(120, 90));
  ShownAt(u"Two"_s, QPoint(40, 50));
  EXPECT_EQ(ShownAt(u"One"_s), QPoint(120, 90));
  EXPECT_EQ(ShownAt(u"Two"_s), QPoint(40, 50));
}

TEST_F(WindowPlacesTest, AWindowThatIsStillShownIsRemembered) {
  Form form(u"One"_s, {});
  {
    WindowPlaces places(folder.Path());
    places.Watch(form);
    form.show();
    form.move(33, 44);
    places.RememberAll();
  }
  EXPECT_EQ(ShownAt(u"One"_s), QPoint(33, 44));
}

TEST_F(WindowPlacesTest, AWindowThatWasNeverShownIsNot) {
  {
    WindowPlaces places(folder.Path());
    Form form(u"One"_s, {});
    places.Watch(form);
    form.move(33, 44);
    places.RememberAll();
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>());
}

TEST_F(WindowPlacesTest, RubbishInTheFileMovesNoWindow) {
  const auto usual = ShownAt(u"Another"_s);
  for (const auto* rubbish :
       {"One=5", "One=@Point(1)", "One=@Rect(1 2 3 4)", "[", "\x00\xff\xfe", "One="}) {
    folder.Put("Brindle2.places", "[General]\n" + std::string(rubbish) + "\n");
    EXPECT_EQ(ShownAt(u"One"_s), usual) << rubbish;
  }
}

TEST_F(WindowPlacesTest, AFolderThatIsNotThereCostsThePlacesOnly) {
  WindowPlaces places(folder.PathOf("none"));
  Form form(u"One"_s, {});
  places.Watch(form);
  form.show();
  EXPECT_TRUE(form.close());
}

}  // namespace
}  // namespace brindle
