// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>
#include <QString>

#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The audio bitrate calculator, open, with its controls at hand.
class AudioWindow : public RecordingWindow {
 protected:
  AudioWindow()
      : RecordingWindow(WindowId::AudioCalc, {{"MovieLength", &Settings::MovieLength},
                                              {"VideoOnlySize", &Settings::VideoOnlySize},
                                              {"TargetAVISize", &Settings::TargetAVISize}}) {}

  /// Opens it with these figures and no overhead.
  void OpenWith(double minutes, double videoMegaBytes, double targetMegaBytes) {
    record.MovieLength = minutes;
    record.VideoOnlySize = videoMegaBytes;
    record.TargetAVISize = targetMegaBytes;
    record.VideoFrameOverhead = 0;
    record.AudioInterleaveOverhead = 0;
    OpenCalculator();
  }

  /// Makes the next recomputation visible.
  void ArmRecomputation() { Result->setText(QStringLiteral("untouched")); }
  [[nodiscard]] bool Recomputed() const { return Text("Result") != "untouched"; }

  TextField* MLength = nullptr;
  TextField* Source = nullptr;
  TextField* Target = nullptr;
  QLineEdit* Result = nullptr;

 private:
  void FindControls() override {
    Take(MLength, "MLength");
    Take(Source, "Source");
    Take(Target, "Target");
    Take(Result, "Result");
  }
};

}  // namespace brindle
