// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QLabel>
#include <QString>

#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The AVI split calculator, open, with its fields at hand. The built-in figures are 100 minutes
/// PAL and two segments, 700 of 1300 MB, with a key frame every 10 seconds.
class AviSplitWindow : public RecordingWindow {
 protected:
  AviSplitWindow()
      : RecordingWindow(WindowId::AVISplit, {{"MovieLength", &Settings::MovieLength},
                                             {"SplitAVISize", &Settings::SplitAVISize},
                                             {"SplitSize1", &Settings::SplitSize1},
                                             {"SplitSize2", &Settings::SplitSize2},
                                             {"SplitSegmentsMode", &Settings::SplitSegmentsMode},
                                             {"KeyframeInterval", &Settings::KeyframeInterval},
                                             {"FrameRateSystem", &Settings::FrameRateSystem}}) {}

  /// Opens it for three segments of these sizes.
  void OpenThree(double megaBytes, double first, double second) {
    record.SplitSegmentsMode = 1;
    record.SplitAVISize = megaBytes;
    record.SplitSize1 = first;
    record.SplitSize2 = second;
    OpenCalculator();
  }

  /// Enters the field from elsewhere, which selects all of it, and pastes over that.
  void Enter(TextField* field, const QString& text) {
    FirstRange->setFocus();
    field->setFocus();
    Paste(text);
  }

  /// Enters the field from elsewhere and empties it.
  void Clear(TextField* field) {
    FirstRange->setFocus();
    field->setFocus();
    Key(Qt::Key_Delete);
  }

  /// The visible sizes, beginning with the whole file: "1300 700 600".
  [[nodiscard]] std::string Sizes() const {
    const auto sizes = Text("AVIsize") + " " + Text("Size1") + " " + Text("Size2");
    return Size3->isVisible() ? sizes + " " + Text("Size3") : sizes;
  }

  /// The visible ranges to delete: "75000-150000 0-74999"; only dashes if there are none.
  [[nodiscard]] std::string Ranges() const {
    std::string ranges;
    for (int i = 0; i < (Size3->isVisible() ? 8 : 4); i += 2) {
      ranges += ranges.empty() ? "" : " ";
      ranges += Text(QStringLiteral("SetF(%1)").arg(i)) + "-" +
                Text(QStringLiteral("SetF(%1)").arg(i + 1));
    }
    return ranges;
  }

  /// Makes the next recomputation visible.
  void ArmRecomputation() { KeyFr->setText(QStringLiteral("untouched")); }
  [[nodiscard]] bool Recomputed() const { return Text("KeyFr") != "untouched"; }

  TextField* AVIsize = nullptr;
  TextField* Frames = nullptr;
  TextField* Size1 = nullptr;
  TextField* Size2 = nullptr;
  TextField* Size3 = nullptr;
  TextField* KeyFs = nullptr;
  QLabel* KeyFr = nullptr;
  TextField* FirstRange = nullptr;

 private:
  void FindControls() override {
    Take(AVIsize, "AVIsize");
    Take(Frames, "Frames");
    Take(Size1, "Size1");
    Take(Size2, "Size2");
    Take(Size3, "Size3");
    Take(KeyFs, "KeyFs");
    Take(KeyFr, "KeyFr");
    Take(FirstRange, "SetF(0)");
  }
};

}  // namespace brindle
