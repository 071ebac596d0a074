// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What the program answers is what the windows show: the same inputs, by the thousand.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <gtest/gtest.h>

#include "aspect/aspect_ra.h"
#include "audiodisk/audio_calc.h"
#include "audiodisk/hd_calc.h"
#include "base/input/form.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "convert/quick_c.h"
#include "split/avi_split.h"
#include "tests/cli/run_command.h"
#include "tests/support/window_test.h"
#include "video/bitrate_calc.h"
#include "video/overhead.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class Agreement : public WindowTest {
 protected:
  // 10,000 inputs in all.
  static constexpr int Bitrates = 1500;
  static constexpr int Audios = 2500;
  static constexpr int Spaces = 1500;
  static constexpr int Splits = 1000;
  static constexpr int Times = 2000;
  static constexpr int SizesCount = 800;
  static constexpr int Resolutions = 700;

  [[nodiscard]] int Whole(int least, int most) {
    return std::uniform_int_distribution(least, most)(random_);
  }
  [[nodiscard]] bool Perhaps() { return Whole(0, 1) == 1; }
  // A number with up to three decimals, as people type it.
  [[nodiscard]] double Typed(int least, int most) {
    constexpr int steps = 1000;
    const int number = Whole(least, most);
    return Perhaps() ? number : NumberOf(TextOf(number + Whole(0, steps - 1) / 1000.0));
  }

  static std::string Shown(const QWidget& window, const char* name) {
    const auto* widget = window.findChild<QWidget*>(QString::fromLatin1(name));
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
      return field->text().toStdString();
    }
    const auto* label = qobject_cast<const QLabel*>(widget);
    return label != nullptr ? label->text().toStdString() : std::string("no control ") + name;
  }

  // "601.6MB" as ", video 601.6 MB"; nothing for a blank.
  static void AddSize(std::string& sizes, const std::string& name, const std::string& shown) {
    if (!shown.empty()) {
      sizes += (sizes.empty() ? "" : ", ") + name + " " + shown.substr(0, shown.size() - 2) + " MB";
    }
  }

  // The run has this answer; or none, if it is empty.
  void ExpectAnswer(const std::string& line, const std::string& answer) const {
    const auto result = runner_.Run(line);
    ASSERT_EQ(result.answer, answer.empty() ? "" : answer + "\n") << line << result.errors;
    ASSERT_EQ(result.code, answer.empty() ? 3 : 0) << line;
  }

  // Says on a line which of the overheads count, and has the record say the same.
  std::string ChooseOverheads(bool withFrames) {
    const int system = Whole(0, 2);
    const double rate = FramesPerSecond(system);
    std::string line = " --rate " + TextOf(rate);
    if (withFrames) {
      const bool frames = Perhaps();
      line += std::string(" --frame-overhead ") + (frames ? "on" : "off");
      record.VideoFrameOverhead = frames ? VideoFrameOverheadOf(rate) : 0;
    }
    if (!Perhaps()) {
      line += " --interleave-overhead off";
      record.AudioInterleaveOverhead = 0;
    } else if (Perhaps()) {
      const int interval = Whole(1, 100);
      line += " --interleave " + std::to_string(interval);
      record.AudioInterleaveOverhead = InterleaveOverheadByFrames(interval, rate);
    } else {
      const int interval = Whole(40, 4000);
      line += " --interleave " + std::to_string(interval) + "ms";
      record.AudioInterleaveOverhead = InterleaveOverheadByTime(interval);
    }
    return line;
  }

  std::string ChooseDivX() {
    record.DivXOption = static_cast<std::int16_t>(Whole(0, 1));
    return record.DivXOption == 0 ? " --divx 3" : " --divx 4/5";
  }

  std::string ChooseLength() {
    record.MovieLength = Typed(1, 400);
    return " --length " + TextOf(record.MovieLength);
  }

  CommandRunner runner_;
  std::mt19937 random_{20261122};  // NOLINT(cert-msc51-cpp): the same inputs in every run
};

TEST_F(Agreement, OfTheVideoBitrate) {
  for (int i = 0; i < Bitrates; ++i) {
    record.CDCapacity = Typed(1, 5000);
    record.CDCount = static_cast<std::int16_t>(Whole(1, 4));
    record.ExtraMaterial = Perhaps() ? 0 : Typed(0, 300);
    record.AudioBitrate = Typed(0, 640);
    const auto line = "bitrate" + ChooseLength() + " --size " + TextOf(record.CDCapacity) +
                      " --discs " + std::to_string(record.CDCount) + " --extra " +
                      TextOf(record.ExtraMaterial) + " --audio " + TextOf(record.AudioBitrate) +
                      ChooseDivX() + ChooseOverheads(true);
    const auto window = MakeBitrateCalc(services);
    const auto result = Shown(*window, "Result");
    std::string sizes;
    AddSize(sizes, "video", Shown(*window, "Stat(0)"));
    AddSize(sizes, "audio", Shown(*window, "Stat(1)"));
    AddSize(sizes, "overhead", Shown(*window, "Stat(2)"));
    ExpectAnswer(line,
                 result.empty() ? "" : result + " kbps (" + Shown(*window, "Qual") + ")\n" + sizes);
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(Agreement, OfTheAudioBitrate) {
  for (int i = 0; i < Audios; ++i) {
    record.TargetAVISize = Typed(1, 3000);
    record.VideoOnlySize = Typed(0, 1500);
    const auto line = "audio" + ChooseLength() + " --target " + TextOf(record.TargetAVISize) +
                      " --video " + TextOf(record.VideoOnlySize) + ChooseOverheads(false);
    const auto window = MakeAudioCalc(services);
    const auto result = Shown(*window, "Result");
    const auto suggestion = Shown(*window, "Qual");
    ExpectAnswer(line,
                 result.empty()
                     ? ""
                     : result + " kbps" + (suggestion.empty() ? "" : "\nsuggested " + suggestion));
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(Agreement, OfTheDiskSpace) {
  for (int i = 0; i < Spaces; ++i) {
    record.HDVideoMode = Whole(0, 1);
    record.HDVideoBitrate = Typed(0, 4000);
    record.VideoOnlySize = Typed(0, 4000);
    record.HDAudioType = static_cast<std::int16_t>(Whole(0, 2));
    record.HDAudioBitrate = Typed(0, 640);
    const auto line = "space" + ChooseLength() +
                      (record.HDVideoMode == 0 ? " --video-bitrate " + TextOf(record.HDVideoBitrate)
                                               : " --video-size " + TextOf(record.VideoOnlySize)) +
                      " --audio " +
                      (record.HDAudioType == 0   ? "wav44"
                       : record.HDAudioType == 1 ? "wav48"
                                                 : TextOf(record.HDAudioBitrate)) +
                      ChooseDivX();
    const auto window = MakeHDCalc(services);
    const auto shown = Shown(*window, "Result");
    const auto result = runner_.Run(line);
    ASSERT_EQ(result.answer.substr(0, result.answer.find('\n')), shown.empty() ? "" : shown + " MB")
        << line;
  }
}

TEST_F(Agreement, OfTheSplit) {
  for (int i = 0; i < Splits; ++i) {
    const bool isThree = Perhaps();
    record.SplitSegmentsMode = isThree ? 1 : 0;
    record.SplitAVISize = Typed(100, 5000);
    // Parts that fit: the window cuts others to fit while they are typed.
    const int most = static_cast<int>(record.SplitAVISize) / 2 - 1;
    record.SplitSize1 = Typed(0, most);
    record.SplitSize2 = Typed(0, most);
    record.KeyframeInterval = static_cast<std::int16_t>(Whole(1, 100));
    record.FrameRateSystem = static_cast<std::int16_t>(Whole(0, 2));
    const double first = record.SplitSize1;
    const auto line = "split" + ChooseLength() + " --size " + TextOf(record.SplitAVISize) +
                      " --segment " + TextOf(first) +
                      (isThree ? " --segment " + TextOf(record.SplitSize2) : "") + " --rate " +
                      TextOf(FramesPerSecond(record.FrameRateSystem)) + " --key-frame-every " +
                      std::to_string(record.KeyframeInterval);
    const auto window = MakeAVISplit(services);
    const auto field = [&](int number) {
      return Shown(*window, ("SetF(" + std::to_string(number) + ")").c_str());
    };
    const auto range = [&](int number) {
      return field(number + 1).empty() ? std::string() : field(number) + " to " + field(number + 1);
    };
    const auto segment = [&](const char* number, const std::string& size,
                             const std::string& ranges) {
      return std::string("\nsegment ") + number + ", " + size + " MB: delete " +
             (ranges.empty() ? "nothing" : ranges);
    };
    std::string answer;
    if (!field(0).empty()) {
      answer = "cut at frame " + field(0) + (isThree ? " and " + field(4) : "");
      answer += segment("1", TextOf(first), range(0));
      if (isThree) {
        answer += segment("2", Shown(*window, "Size2"),
                          range(2) + (range(2).empty() ? "" : " and ") + range(4));
        answer += segment("3", Shown(*window, "Size3"), range(6));
      } else {
        answer += segment("2", Shown(*window, "Size2"), range(2));
      }
      const auto minutes = Shown(*window, "Time2");
      answer += "\n" + Shown(*window, "KeyFr") + " key frames, one every " +
                TextOf(record.KeyframeInterval *
                       NumberOf(Formatted(FramesPerSecond(record.FrameRateSystem), "#"))) +
                " frames; duration " + Shown(*window, "Time1") + ":" +
                (minutes.size() == 1 ? "0" : "") + minutes + ":" + Shown(*window, "Time3");
    }
    ExpectAnswer(line, answer);
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(Agreement, OfARunningTime) {
  for (int i = 0; i < Times; ++i) {
    record.FrameRateSystem = static_cast<std::int16_t>(Whole(0, 2));
    record.MovieLength = Typed(0, 400);
    const auto window = MakeQuickC(services);
    const auto minutes = Shown(*window, "Time2");
    ExpectAnswer("time " + TextOf(record.MovieLength) + " --rate " +
                     TextOf(FramesPerSecond(record.FrameRateSystem)),
                 Shown(*window, "Time1") + ":" + (minutes.size() == 1 ? "0" : "") + minutes + ":" +
                     Shown(*window, "Time3") + " = " + Shown(*window, "Min") +
                     " minutes = " + Shown(*window, "Frames") + " frames");
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(Agreement, OfASize) {
  const auto window = MakeQuickC(services);
  for (int i = 0; i < SizesCount; ++i) {
    const char* const unit = std::array{"B", "KB", "MB", "GB"}.at(static_cast<std::size_t>(i % 4));
    const auto typed = TextOf(Typed(1, 2000000000));
    auto* field = window->findChild<QLineEdit*>(QString::fromLatin1(unit));
    field->setText(QString::fromStdString(typed));
    QKeyEvent key(QEvent::KeyRelease, Qt::Key_0, Qt::NoModifier, u"0"_s);
    QCoreApplication::sendEvent(field, &key);
    ExpectAnswer("size " + typed + unit, Shown(*window, "B") + " B = " + Shown(*window, "KB") +
                                             " KB = " + Shown(*window, "MB") +
                                             " MB = " + Shown(*window, "GB") + " GB");
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(Agreement, OfAResolution) {
  // Within the reach of the window's sliders.
  constexpr double leastHeight = 160;
  constexpr double mostHeight = 576;
  for (int i = 0; i < Resolutions;) {
    record.ResHorizontal = static_cast<std::int16_t>(Whole(20, 45) * 16);
    record.ResVertical = static_cast<std::int16_t>(Whole(10, 36) * 16);
    record.AspectMode = static_cast<std::int16_t>(Whole(0, 2));
    record.StandardAspect = static_cast<std::int16_t>(Whole(0, 5));
    record.CustomAspect = SingleOf(TextOf(Typed(1, 2)));
    std::string line = "resolution --width " + std::to_string(record.ResHorizontal) + " --ratio ";
    double ratio = 0;
    if (record.AspectMode == 0) {
      line += "free --height " + std::to_string(record.ResVertical);
    } else if (record.AspectMode == 1) {
      line += std::array{"1:1", "4:3", "1.66:1", "16:9", "1.85:1", "2.35:1"}.at(
          static_cast<std::size_t>(record.StandardAspect));
      ratio = std::array{1.0, 1.33, 1.66, 1.778, 1.85, 2.35}.at(
          static_cast<std::size_t>(record.StandardAspect));
    } else {
      line += TextOfSingle(record.CustomAspect);
      ratio = NumberOf(TextOfSingle(record.CustomAspect));
    }
    if (ratio != 0 &&
        (record.ResHorizontal / ratio < leastHeight || record.ResHorizontal / ratio > mostHeight)) {
      continue;
    }
    ++i;
    const auto window = MakeAspectRa(services);
    ExpectAnswer(line, Shown(*window, "HRESL") + "x" + Shown(*window, "VRESL") + "\n" +
                           Shown(*window, "Stats(0)") + " pixels, " + Shown(*window, "Stats(1)") +
                           " macroblocks, ratio " + Shown(*window, "Stats(4)") + ", error " +
                           Shown(*window, "Stats(5)"));
    ASSERT_FALSE(HasFailure());
  }
}

}  // namespace
}  // namespace brindle
