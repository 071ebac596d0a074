// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_view.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QAccessible>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QPalette>
#include <QPoint>
#include <gtest/gtest.h>

#include "tests/wav/sound_support.h"
#include "wav/level_range.h"
#include "wav/pass.h"
#include "wav/sound_drawing.h"
#include "wav/sound_outlook.h"
#include "wav/wav_error.h"

namespace brindle {
namespace {

constexpr const char* Empty = "Nothing has been scanned.";
constexpr const char* Quiet = "Peaks at -50% and 25% of full scale.";
constexpr const char* Ahead =
    "Peaks at -50% and 25% of full scale. The target is 100%. Nothing would be cut off.";
constexpr const char* Loud = "Peaks at -100% and 50% of full scale.";

// Four columns, with the peaks -50 % and 25 %.
std::string Joined(const std::string& first, const std::string& second) { return first + second; }

SoundPicture QuietPicture() { return PictureOf({0, -16384, 8192, 0}); }
constexpr Peaks QuietPeaks{.lowest = -16384, .highest = 8192};

PassProgress At(float percent) { return {.percent = percent}; }

class ViewOfSound : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Told() const {
    const auto text = QAccessible::queryAccessibleInterface(&view)->text(QAccessible::Description);
    return text.toStdString();
  }

  [[nodiscard]] QImage Rendered(double ratio) {
    const QSize pixels(static_cast<int>(view.width() * ratio),
                       static_cast<int>(view.height() * ratio));
    QImage image(pixels, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    view.render(&image);
    image.setDevicePixelRatio(1);
    return image;
  }

  mutable SoundView view;
};

TEST_F(ViewOfSound, IsAGraphicThatTakesNoFocus) {
  auto* interface = QAccessible::queryAccessibleInterface(&view);
  EXPECT_EQ(interface->role(), QAccessible::Graphic);
  EXPECT_EQ(interface->text(QAccessible::Name).toStdString(), "Picture of the sound");
  EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
  EXPECT_FALSE(interface->state().focusable);
  EXPECT_EQ(Told(), Empty);
}

TEST_F(ViewOfSound, GrowsWithItsFontAndWithNothingElse) {
  const auto size = view.sizeHint();
  view.ShowScanned(QuietPicture(), QuietPeaks);
  EXPECT_EQ(view.sizeHint(), size);
  QFont font = view.font();
  font.setPointSize(2 * font.pointSize());
  view.setFont(font);
  EXPECT_GT(view.sizeHint().height(), size.height());
}

TEST_F(ViewOfSound, TellsAScanWithoutATarget) {
  view.ShowScan(QuietPicture());
  EXPECT_EQ(Told(), Quiet);
}

TEST_F(ViewOfSound, TellsAfterAScanWhatAPassWouldDo) {
  view.ShowScanned(QuietPicture(), QuietPeaks);
  EXPECT_EQ(Told(), Ahead);
}

TEST_F(ViewOfSound, ForgetsThePassAheadDuringTheNextScan) {
  view.ShowScanned(QuietPicture(), QuietPeaks);
  view.ShowScan(PictureOf({0, {}}));
  EXPECT_EQ(Told(), "Silence.");
  view.AimAt(50);
  EXPECT_EQ(Told(), "Silence.");
}

TEST_F(ViewOfSound, FollowsTheTarget) {
  view.AimAt(50);
  view.ShowScanned(QuietPicture(), QuietPeaks);
  EXPECT_EQ(Told(), Joined(Quiet, " The target is 50%. Nothing would be cut off."));
  view.AimAt(-25);
  EXPECT_EQ(Told(), Joined(Quiet, " The target is -25%. Nothing would be cut off."));
  view.AimAt(0);
  EXPECT_EQ(Told(), Joined(Quiet, " The target is 0%. Nothing would be cut off."));
  view.AimAt(-1e308);
  EXPECT_EQ(
      Told(),
      Joined(Quiet, " The target is -1E+308%. Samples would be cut off in 50% of the sound."));
}

TEST_F(ViewOfSound, TellsWhatPeaksOfAnotherSoundWouldCutOff) {
  view.ShowScanned(QuietPicture(), {.lowest = -9000, .highest = 5});
  EXPECT_EQ(Told(),
            Joined(Quiet, " The target is 100%. Samples would be cut off in 25% of the sound."));
}

TEST_F(ViewOfSound, OfSilenceHasNothingAhead) {
  view.ShowScanned(PictureOf({0, 0}), {});
  EXPECT_EQ(Told(), "Silence.");
}

TEST_F(ViewOfSound, IsEmptyAfterAnotherFileWasOpened) {
  view.ShowScanned(QuietPicture(), QuietPeaks);
  view.Clear();
  EXPECT_EQ(Told(), Empty);
  view.AimAt(50);
  EXPECT_EQ(Told(), Empty);
}

TEST_F(ViewOfSound, ShowsTheNormalizedSoundAfterAPass) {
  for (const bool changesFile : {true, false}) {
    view.ShowScanned(QuietPicture(), QuietPeaks);
    view.BeginPass(100, 2, changesFile);
    EXPECT_EQ(Told(), Ahead);
    view.ShowPass(At(90));
    view.EndPass(PassCompleted{});
    EXPECT_EQ(Told(), Loud);
    view.AimAt(50);
    EXPECT_EQ(Told(), Loud) << "no pass is ahead without another scan";
    view.AimAt(100);
  }
}

TEST_F(ViewOfSound, ShowsWhatAnAbortedPassHasChanged) {
  for (const PassState& end : {PassState(PassAborted{}), PassState(WavError{})}) {
    view.ShowScanned(QuietPicture(), QuietPeaks);
    view.BeginPass(100, 2, true);
    view.ShowPass(At(97));  // three of four words
    view.EndPass(end);
    EXPECT_EQ(Told(), Loud);
    view.ShowScanned(QuietPicture(), QuietPeaks);
    view.BeginPass(100, 2, true);
    view.ShowPass(At(90));  // one word
    view.EndPass(end);
    EXPECT_EQ(Told(), Quiet);
  }
}

TEST_F(ViewOfSound, GoesBackWhenAnAbortedPassHasChangedAnotherFile) {
  view.ShowScanned(QuietPicture(), QuietPeaks);
  view.BeginPass(100, 2, false);
  view.ShowPass(At(95));
  EXPECT_NE(Told(), Ahead);
  view.EndPass(PassAborted{});
  EXPECT_EQ(Told(), Ahead);
}

TEST_F(ViewOfSound, KeepsThePlanOfAPassThatRuns) {
  view.AimAt(50);
  view.ShowScanned(QuietPicture(), QuietPeaks);
  view.BeginPass(100, 2, true);
  view.AimAt(30);
  EXPECT_EQ(Told(), Ahead);
}

TEST_F(ViewOfSound, WithoutAPictureEnduresAPass) {
  view.BeginPass(100, 2, true);
  view.ShowPass(At(50));
  view.EndPass(PassCompleted{});
  EXPECT_EQ(Told(), Empty);
}

TEST_F(ViewOfSound, IsDrawnInThePixelsOfAnyScreen) {
  view.resize(301, 83);
  const SoundOutlook outlook{.picture = QuietPicture(), .gain = 2};
  view.ShowScanned(QuietPicture(), QuietPeaks);
  for (const bool isDark : {false, true}) {
    QPalette palette(isDark ? QColor(0x3a, 0x3a, 0x3a) : QColor(0xef, 0xef, 0xef));
    palette.setColor(QPalette::Base, isDark ? QColor(Qt::black) : QColor(Qt::white));
    view.setPalette(palette);
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0}) {
      const auto rendered = Rendered(ratio);
      EXPECT_EQ(rendered, DrawnSound(outlook, rendered.size(), ratio, SoundColors::Of(palette)))
          << ratio;
    }
  }
}

}  // namespace
}  // namespace brindle
