// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The picture of the sound in the normalizer's window.

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <QColor>
#include <QFile>
#include <QImage>
#include <QRgb>
#include <QString>
#include <gtest/gtest.h>

#include "tests/support/user.h"
#include "tests/wav/normalizer_window.h"
#include "tests/wav/wav_builder.h"
#include "wav/sound_drawing.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class SoundInWindow : public NormalizingWindow {
 protected:
  static constexpr const char* Empty = "Nothing has been scanned.";
  static constexpr const char* QuietPeaks = "Peaks at -50% and 25% of full scale.";
  static constexpr const char* NothingCutOff = " Nothing would be cut off.";

  static std::string At(const std::string& percent) {
    return std::string(QuietPeaks) + " The target is " + percent + "%." + NothingCutOff;
  }

  [[nodiscard]] std::string Told() const {
    return Control("Sound")->accessibleDescription().toStdString();
  }
  [[nodiscard]] QImage Picture() const { return Control("Sound")->grab().toImage(); }
  [[nodiscard]] SoundColors Colors() const { return SoundColors::Of(Control("Sound")->palette()); }

  static int Count(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        count += image.pixelColor(x, y) == color ? 1 : 0;
      }
    }
    return count;
  }
  [[nodiscard]] int CountOf(const QColor& color) const { return Count(Picture(), color); }
};

TEST_F(SoundInWindow, IsEmptyUntilAScan) {
  OpenNormalizer();
  const auto before = Picture();
  EXPECT_EQ(Told(), Empty);
  OpenFile(Put("in.wav", Quiet()));
  EXPECT_EQ(Told(), Empty);
  EXPECT_EQ(Picture(), before);
}

TEST_F(SoundInWindow, ShowsAfterAScanWhatNormalizingWouldMake) {
  OpenScanned(Long(4));
  EXPECT_EQ(Told(), At("100"));
  EXPECT_GT(CountOf(Colors().sound), 0);
  EXPECT_GT(CountOf(Colors().ghost), 0);
  EXPECT_GT(CountOf(Colors().text), 0);
  EXPECT_EQ(CountOf(Colors().cutOff), 0);
}

TEST_F(SoundInWindow, FollowsThePercentageAsItIsTyped) {
  OpenScanned(Long(4));
  PercNorm->setFocus();
  std::vector<QImage> pictures{Picture()};
  TypeOver(u"7"_s);
  EXPECT_EQ(Told(), At("7"));
  pictures.push_back(Picture());
  Type(u"5"_s);
  EXPECT_EQ(Told(), At("75"));
  pictures.push_back(Picture());
  Type(u"."_s);
  EXPECT_EQ(Told(), At("75"));
  Type(u"5"_s);
  EXPECT_EQ(Told(), At("75.5"));
  TypeOver(u"-"_s);
  EXPECT_EQ(Told(), At("76")) << "the stored percentage";
  Type(u"5"_s);
  EXPECT_EQ(Told(), At("-5"));
  Type(u"0"_s);
  EXPECT_EQ(Told(), At("-50"));
  pictures.push_back(Picture());
  TypeOver(u"300"_s);
  EXPECT_EQ(Told(), At("100"));
  EXPECT_EQ(Picture(), pictures.front());
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Told(), At("100")) << "the stored percentage";
  for (std::size_t one = 0; one < pictures.size(); ++one) {
    for (std::size_t other = 0; other < one; ++other) {
      EXPECT_NE(pictures[one], pictures[other]) << one << " and " << other;
    }
  }
}

TEST_F(SoundInWindow, BeginsWithTheStoredPercentage) {
  record.WavNormalizePercent = 80;
  OpenScanned(Quiet());
  EXPECT_EQ(Told(), At("80"));
}

TEST_F(SoundInWindow, OfASilentFileHasNothingAhead) {
  OpenScanned({.levels = {0, 0, 0, 0}});
  EXPECT_EQ(Told(), "Silence.");
  EXPECT_EQ(CountOf(Colors().ghost), 0);
  PercNorm->setFocus();
  TypeOver(u"50"_s);
  EXPECT_EQ(Told(), "Silence.");
}

TEST_F(SoundInWindow, GrowsWithTheScan) {
  OpenNormalizer();
  auto wav = Long(5);
  wav.levels[70000] = 16384;
  OpenFile(Put("in.wav", wav));
  LetUpdatesCome();
  std::vector<int> drawn;
  for (int block = 0; block < 4; ++block) {
    During("Scanning...", [&] {
      drawn.push_back(CountOf(Colors().sound));
      EXPECT_EQ(CountOf(Colors().ghost), 0);
      EXPECT_EQ(Told(), drawn.size() < 3 ? QuietPeaks : "Peaks at -50% and 50% of full scale.");
    });
  }
  ClickOn("btnScan");
  ASSERT_EQ(drawn.size(), 4U);
  EXPECT_GT(drawn[0], 0);
  for (std::size_t block = 1; block < drawn.size(); ++block) {
    EXPECT_GT(drawn[block], drawn[block - 1]);
  }
}

TEST_F(SoundInWindow, StaysAsAnAbortedScanHasReadIt) {
  OpenNormalizer();
  OpenFile(Put("in.wav", Long(5)));
  LetUpdatesCome();
  int drawn = 0;
  During("Scanning...", [&] {
    drawn = CountOf(Colors().sound);
    ClickOn("Cancel");
  });
  ClickOn("btnScan");
  EXPECT_EQ(Told(), At("100"));
  EXPECT_EQ(CountOf(Colors().sound), drawn);
  EXPECT_GT(CountOf(Colors().ghost), 0);
}

TEST_F(SoundInWindow, IsEmptiedByTheNextFile) {
  OpenScanned(Quiet());
  EXPECT_EQ(Told(), At("100"));
  OpenFile(Put("other.wav", Long(2)));
  EXPECT_EQ(Told(), Empty);
  EXPECT_EQ(CountOf(Colors().sound), 0);
}

TEST_F(SoundInWindow, StaysWhenAFileIsRefused) {
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Ok);
  OpenFile(Put("text.wav", QByteArray("nothing to hear")));
  EXPECT_EQ(Told(), At("100"));
}

TEST_F(SoundInWindow, ShowsThePassAsItGoesAndTheNormalizedSoundAfterIt) {
  for (const bool isInPlace : {true, false}) {
    record.WavOverwriteSource = isInPlace;
    auto wav = Long(5);
    for (auto& level : wav.levels) {
      level = level == 100 ? std::int16_t{8000} : level;
    }
    OpenScanned(wav);
    LetUpdatesCome();
    std::vector<int> ahead{CountOf(Colors().ghost)};
    for (int block = 0; block < 3; ++block) {
      During("Normalizing...", [&] { ahead.push_back(CountOf(Colors().ghost)); });
    }
    Normalize();
    for (std::size_t block = 2; block < ahead.size(); ++block) {
      EXPECT_LT(ahead[block], ahead[block - 1]);
    }
    EXPECT_EQ(Told(), "Peaks at -100% and 50% of full scale.");
    EXPECT_EQ(CountOf(Colors().ghost), 0);
    clock.AdvanceAtEveryLook(0);
    window->close();
    RunDeletions();
    QFile::remove(PathOf("out.wav"));
  }
}

TEST_F(SoundInWindow, ShowsWhatAnAbortedPassInPlaceHasChanged) {
  record.WavOverwriteSource = true;
  OpenScanned(Long(5));
  LetUpdatesCome();
  During("Normalizing...", [] {});
  questions.Answer(BoxAnswer::Yes);
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  ClickOn("btnNorm");
  EXPECT_EQ(Told(), "Peaks at -100% and 50% of full scale.");
  EXPECT_EQ(CountOf(Colors().ghost), 0);
}

TEST_F(SoundInWindow, GoesBackToTheOpenFileWhenAPassToATargetIsAborted) {
  OpenScanned(Long(5));
  const auto before = Picture();
  LetUpdatesCome();
  questions.Answer(BoxAnswer::Yes);
  During("Normalizing...", [] {});
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  ClickOn("btnNorm");
  EXPECT_EQ(Told(), At("100"));
  EXPECT_EQ(Picture(), before);
}

TEST_F(SoundInWindow, IsUnchangedByAPassThatIsNotRequired) {
  OpenScanned({.levels = {32767, -32768, 1}});
  const auto before = Picture();
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{NotRequired});
  EXPECT_EQ(Picture(), before);
}

TEST_F(SoundInWindow, ShowsInRedWhatTheScanHadLeftOut) {
  auto wav = Long(2);
  wav.levels[40000] = 32000;
  OpenScanned(wav);
  EXPECT_EQ(CountOf(Colors().cutOff), 0);
  LetUpdatesCome();
  questions.Answer(BoxAnswer::Yes);
  // The second block has been read by then.
  During("Scanning...", [] {});
  During("Scanning...", [&] { ClickOn("Cancel"); });
  ClickOn("btnNorm");
  EXPECT_GT(CountOf(Colors().cutOff), 0);
  EXPECT_EQ(Told(),
            "Peaks at -50% and 97.7% of full scale. The target is 100%. Samples would be cut off "
            "in 0.05% of the sound.");
}

}  // namespace
}  // namespace brindle
