// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QPoint>
#include <QRadioButton>
#include <QString>
#include <QTest>
#include <QWindow>

#include "base/input/editable_list.h"
#include "base/input/spin_button.h"
#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The disk space calculator, open, with its controls at hand.
class HdWindow : public CalculatorWindow {
 protected:
  void OpenCalculator() {
    window = Open(WindowId::HDCalc);
    Video1 = Find<TextField>(window, QStringLiteral("Video1"));
    Video2 = Find<TextField>(window, QStringLiteral("Video2"));
    MLength = Find<TextField>(window, QStringLiteral("MLength"));
    MP2 = Find<EditableList>(window, QStringLiteral("MP2"));
    Result = Find<QLabel>(window, QStringLiteral("Result"));
  }

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

  [[nodiscard]] SpinButton* Spin(const QString& name) const {
    return Find<SpinButton>(window, name);
  }
  [[nodiscard]] QRadioButton* Option(const QString& name) const {
    return Find<QRadioButton>(window, name);
  }

  /// Presses an option where its caption is: it may be wider than that, and heeds nothing there.
  void PressOption(const QString& name) const {
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, Start(name));
  }
  /// Clicks an option.
  void Choose(const QString& name) const {
    PressOption(name);
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, Start(name));
  }

  /// Empties the field that has the focus, as a person does.
  static void Empty() {
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
  }

  TextField* Video1 = nullptr;
  TextField* Video2 = nullptr;
  TextField* MLength = nullptr;
  EditableList* MP2 = nullptr;
  QLabel* Result = nullptr;

 private:
  [[nodiscard]] QPoint Start(const QString& name) const {
    const auto* option = Option(name);
    return option->mapTo(window.data(), QPoint(option->height() / 2, option->height() / 2));
  }
};

}  // namespace brindle
