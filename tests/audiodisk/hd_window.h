// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QString>

#include "base/input/editable_list.h"
#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The disk space calculator, open, with its controls at hand.
class HdWindow : public RecordingWindow {
 protected:
  HdWindow()
      : RecordingWindow(WindowId::HDCalc, {{"MovieLength", &Settings::MovieLength},
                                           {"HDVideoMode", &Settings::HDVideoMode},
                                           {"HDVideoBitrate", &Settings::HDVideoBitrate},
                                           {"VideoOnlySize", &Settings::VideoOnlySize},
                                           {"HDAudioType", &Settings::HDAudioType},
                                           {"HDAudioBitrate", &Settings::HDAudioBitrate},
                                           {"DivXOption", &Settings::DivXOption}}) {}

  /// 100 minutes by codec version 4 with compressed audio of 224 kbit/s (164.0625 MB), the video
  /// at 1000 kbit/s (715.2557 MB, 879 in all) or of 700 MB (864 in all).
  void SetFilm() {
    record.MovieLength = 100;
    record.DivXOption = 1;
    record.HDVideoMode = 0;
    record.HDVideoBitrate = 1000;
    record.VideoOnlySize = 700;
    record.HDAudioType = 2;
    record.HDAudioBitrate = 224;
  }
  void OpenFilmByBitrate() {
    SetFilm();
    OpenCalculator();
  }
  void OpenFilmBySize() {
    SetFilm();
    record.HDVideoMode = 1;
    OpenCalculator();
  }

  /// Empties the field that has the focus, as a person does.
  static void Empty() {
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
  }

  /// Makes the next recomputation visible.
  void ArmRecomputation() { Result->setText(QStringLiteral("untouched")); }
  [[nodiscard]] bool Recomputed() const { return Text("Result") != "untouched"; }

  TextField* Video1 = nullptr;
  TextField* Video2 = nullptr;
  TextField* MLength = nullptr;
  EditableList* MP2 = nullptr;
  QLabel* Result = nullptr;

 private:
  void FindControls() override {
    Take(Video1, "Video1");
    Take(Video2, "Video2");
    Take(MLength, "MLength");
    Take(MP2, "MP2");
    Take(Result, "Result");
  }
};

}  // namespace brindle
